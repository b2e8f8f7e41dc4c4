// What the tests of the grid page share: Debian's Chromium, made as old as the page allows, with the page in it.
//
// usage of each test: node TEST.cjs PAGE SIMULATOR LIBRARY; CORVEL_SEED asks for other random values.

import { readFileSync } from "node:fs";
import { after, before } from "node:test";
import path from "node:path";
import { pathToFileURL } from "node:url";
import { Browser, BrowserContextOptions, Page, chromium } from "playwright-core";

const [pagePath = "", simulatorPath = "", libraryPath = ""] = process.argv.slice(2).map((each) => path.resolve(each));

export const paths = { page: pagePath, simulator: simulatorPath, library: libraryPath };
export const address = pathToFileURL(pagePath).href;
/** What the page was told of the library. */
const tablePath = path.join(path.dirname(pagePath), "table.json");
const table = JSON.parse(readFileSync(tablePath, "utf8")) as { largestText: number };

/** The phone takes texts of at most that many bytes. */
export const mostBytes = table.largestText;
export const seed = process.env["CORVEL_SEED"] ?? "1";

/** Takes out what came to Safari after 15.0, so that a use of it fails here as there. */
function makeOld(): void {
  const owners: [object, string[]][] = [
    [Array.prototype, ["at", "findLast", "findLastIndex", "toSorted", "toReversed", "toSpliced", "with"]],
    [String.prototype, ["at", "isWellFormed", "toWellFormed"]],
    [Object.getPrototypeOf(Uint8Array.prototype) as object, ["at", "findLast", "toSorted", "toReversed", "with"]],
    [Uint8Array.prototype, ["toBase64", "setFromBase64"]],
    [Uint8Array, ["fromBase64"]],
    [Object, ["hasOwn", "groupBy"]],
    [Map, ["groupBy"]],
    [Array, ["fromAsync"]],
    [Promise, ["withResolvers", "try"]],
    [Element.prototype, ["checkVisibility", "setHTMLUnsafe"]],
    [HTMLElement.prototype, ["showPopover", "hidePopover", "togglePopover", "inert"]],
    [HTMLInputElement.prototype, ["showPicker"]],
    [Crypto.prototype, ["randomUUID"]],
    [globalThis, ["structuredClone", "CompressionStream", "DecompressionStream", "BroadcastChannel", "HTMLDialogElement"]],
    [globalThis, ["requestIdleCallback", "reportError", "OffscreenCanvas", "BarcodeDetector", "Highlight", "CSSStyleSheet"]],
  ];
  for (const [owner, names] of owners) {
    for (const name of names) {
      delete (owner as Record<string, unknown>)[name];
    }
  }
}

let browser: Browser | undefined;

before(async () => {
  browser = await chromium.launch({ executablePath: "/usr/bin/chromium", args: ["--no-sandbox"] });
});
after(() => browser?.close());

export interface Opening extends BrowserContextOptions {
  /** Of the page, instead of the file's; and what stands behind its #. */
  address?: string;
  fragment?: string;
  /** Runs in the page before its own script. */
  first?: () => void;
}

/** Opens the page in a browser that has never seen it. What goes wrong in it, or goes to the network, fails the test. */
export async function open(opening: Opening = {}): Promise<Page> {
  const { address: other, fragment, first, ...options } = opening;
  const context = await browser!.newContext({ locale: "en-US", viewport: { width: 1280, height: 900 }, ...options });
  await context.grantPermissions(["clipboard-read", "clipboard-write"]);
  await context.addInitScript(makeOld);
  if (first) {
    await context.addInitScript(first);
  }
  const page = await context.newPage();
  const start = other ?? address;
  page.on("pageerror", (fault) => {
    throw fault;
  });
  page.on("request", (request) => {
    if (!/^(data|blob):/.test(request.url()) && !request.url().startsWith(start)) {
      throw new Error(`the page asks for ${request.url()}`);
    }
  });
  await page.goto(start + (fragment === undefined ? "" : "#" + fragment));
  return page;
}

/** On a phone's screen, with a finger. */
export const phone: Opening = { viewport: { width: 375, height: 667 }, isMobile: true, hasTouch: true };

// Parts of the page, as a user of English finds them.

export const lines = (page: Page) => page.getByLabel("Comments, one a line").and(page.locator("textarea"));
export const cell = (page: Page, number: number) => page.getByRole("grid").getByRole("button").nth(number - 1);
export const cellField = (page: Page) => page.getByLabel(/^Cell \d+$/);
export const packed = (page: Page) => page.getByLabel("Text for the phone");
export const taking = (page: Page) => page.getByLabel("Text from the phone, or comments");
export const undo = (page: Page) => page.getByRole("button", { name: "Undo" });
export const redo = (page: Page) => page.getByRole("button", { name: "Redo" });
export const part = (page: Page, title: string) => page.getByRole("region", { name: title });

/** The comments that the page holds. */
export async function comments(page: Page): Promise<string[]> {
  const text = await lines(page).inputValue();
  return text === "" ? [] : text.split("\n");
}

/** The string for the phone, once it is that of what is on the page now. */
export async function given(page: Page): Promise<string> {
  await part(page, "To the phone").getByRole("button", { name: "Copy", exact: true }).click();
  return page.evaluate(() => navigator.clipboard.readText());
}

/** Pastes a text, whatever has the focus being no field; what the page says to it. */
export async function consider(page: Page, text: string): Promise<{ toast: string; notes: string }> {
  await page.evaluate((pasted) => {
    const clipboardData = new DataTransfer();
    clipboardData.setData("text/plain", pasted);
    document.body.dispatchEvent(new ClipboardEvent("paste", { clipboardData, bubbles: true, cancelable: true }));
  }, text);
  const said = page.locator(".remarks").last();
  return {
    toast: await said.locator(".toast").innerText(),
    notes: (await said.locator("li").allInnerTexts()).join(" "),
  };
}

/** Takes a string in that was pasted. */
export async function take(page: Page, text: string): Promise<void> {
  await consider(page, text);
  await page.getByRole("button", { name: "Take in" }).click();
}

/** Drops files on the page. */
export async function drop(page: Page, file: { name: string; type: string; bytes: Buffer }): Promise<void> {
  const transfer = await page.evaluateHandle(
    ([name, type, base64]) => {
      const bytes = Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
      const made = new DataTransfer();
      made.items.add(new File([bytes], name, { type }));
      return made;
    },
    [file.name, file.type, file.bytes.toString("base64")] as const,
  );
  await page.dispatchEvent("body", "drop", { dataTransfer: transfer });
}
