// Nothing that was typed is lost: a reload brings it back, and where the browser keeps nothing the page says so.

import assert from "node:assert/strict";
import { test } from "node:test";
import { address, cell, comments, lines, open, packed, redo, taking, undo } from "./support";

test("a reload brings back the set, what was before it, and what was about to be taken in", async () => {
  const page = await open();
  await lines(page).fill("one");
  await lines(page).fill("one\ntwo");
  await cell(page, 3).click();
  await page.keyboard.type("three");
  await taking(page).fill("half a string");
  await page.reload();
  assert.deepEqual(await comments(page), ["one", "two", "three"]);
  assert.equal(await taking(page).inputValue(), "half a string");
  await undo(page).click();
  assert.deepEqual(await comments(page), ["one", "two"]);
  await redo(page).click();
  assert.deepEqual(await comments(page), ["one", "two", "three"]);
});

test("a large set is kept as well", async () => {
  const page = await open();
  const long = Array.from({ length: 60 }, (_, index) => `${index} ` + "弹".repeat(5000));
  await lines(page).fill(long.join("\n"));
  await page.reload();
  assert.deepEqual(await comments(page), long);
});

test("a browser that keeps nothing is told of, and asks before the page goes", async () => {
  const first = (): void => {
    Object.defineProperty(window, "localStorage", {
      get() {
        throw new DOMException("denied", "SecurityError");
      },
    });
  };
  const page = await open({ first });
  await cell(page, 1).click();
  await page.keyboard.type("kept?");
  assert.ok(await page.getByText("This browser keeps nothing for the page.").isVisible());
  assert.deepEqual(await comments(page), ["kept?"]);
  const asked = page.waitForEvent("dialog");
  await Promise.all([asked.then((dialog) => dialog.dismiss()), page.close({ runBeforeUnload: true })]);
  assert.equal((await asked).type(), "beforeunload");
});

test("a full browser is told of", async () => {
  const page = await open();
  await page.evaluate(() => {
    localStorage.setItem("other", "x".repeat(5_200_000));
  });
  await lines(page).fill("弹".repeat(200_000));
  assert.ok(await page.getByText("The set is too large for the browser to keep.").isVisible());
  await lines(page).fill("short");
  await page.getByText("The set is too large for the browser to keep.").waitFor({ state: "hidden" });
});

test("two windows show the same, and undo brings back what another replaced", async () => {
  const page = await open();
  const other = await page.context().newPage();
  await other.goto(address);
  await lines(page).fill("here");
  await lines(other).fill("there");
  await page.waitForFunction(() => document.querySelector<HTMLTextAreaElement>(".lines")?.value === "there");
  await undo(page).click();
  assert.deepEqual(await comments(page), ["here"]);
  await other.waitForFunction(() => document.querySelector<HTMLTextAreaElement>(".lines")?.value === "here");
  assert.notEqual(await packed(other).inputValue(), "");
});
