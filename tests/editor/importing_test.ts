// Strings, files, pictures and links are taken in; what the phone would refuse is told, with the place.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { once } from "node:events";
import { createServer } from "node:http";
import { mkdtemp, readFile, rm, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import path from "node:path";
import { test } from "node:test";
import { deflateSync } from "node:zlib";
import { packText, unpackText } from "./packing";
import { play } from "./simulated";
import { cell, comments, consider, drop, given, lines, mostBytes, open, packed, part, paths } from "./support";
import { take, taking, undo } from "./support";

/** A configuration whose JSON text has so many bytes. */
function sized(bytes: number): string {
  const frame = '{"Corvel.slots.0":""}';
  return frame.replace('""', `"${"x".repeat(bytes - frame.length)}"`);
}

const tooLarge = new RegExp(`it has [0-9,]+ bytes; the phone takes at most ${mostBytes.toLocaleString("en")}\\.`);
const sample = '{"Corvel.slots.0":"弹幕😀\\n\\/","Corvel.slots.1":"two"}';
const good = packText(sample);
const shown = { imported: "导入成功", unreadable: "格式无效", empty: "剪贴板为空" };

/** A text, and what the page must say of it where the phone refuses it. */
const refused: Record<string, [string, RegExp]> = {
  "a blank behind the magic": ["DM1: " + good.slice(4), /blank or a line break.*character 5\b.*can be read all the/],
  "a line break": [good.slice(0, 20) + "\n" + good.slice(20), /line break.*character 21\b.*2 comments/],
  "words around": ["看这个 " + good + " 很好用", /from DM1: on/],
  "another letter": ["DM1:弹" + good.slice(5), /“弹”, character 5/],
  "half a group": ["DM1:" + good.slice(4, 41), /cut short: it ends after 41 characters/],
  "cut short": [good.slice(0, 44), /packed bytes end after byte 30/],
  "not packed": ["DM1:" + Buffer.from(sample).toString("base64"), /not packed/],
  "a wrong checksum": [packText(Buffer.from(sample)).slice(0, -4) + "AAAA", /checksum, before byte/],
  "nothing behind the magic": ["DM1:", /ends too early/],
  "a wrong byte": ["CV1:" + deflateSync(Buffer.from([0x7b, 0xff])).toString("base64"), /Byte 2 of the text is not UTF-8/],
  "a value missing": ['{\n "a":1,\n "b":}', /value.*line 3, character 6/],
  "a comma too many": ['{"a":1,}', /key in double quotes.*line 1, character 8/],
  "more behind": ['{"a":1} x', /more behind the end.*character 9/],
  "an open text": ['{"a":"b', /not closed.*character 6/],
  "half a character": ['{"a":"\\ud83d"}', /[Hh]alf.*character 7/],
  "a number too large": ['{"a":1e400}', /too large.*character 6/],
  "a list": ['[{"a":1}]', /no object/],
  "too deep": ['{"a":' + "[".repeat(513) + "]".repeat(513) + "}", /512 levels/],
  "a byte too large": [sized(mostBytes + 1), tooLarge],
  "a byte too large when unpacked": [packText(sized(mostBytes + 1)), tooLarge],
  "too large in UTF-16 only": [packText(Buffer.from(sized(mostBytes / 2 + 1), "utf16le")), tooLarge],
  "a bomb": [packText(Buffer.alloc(80 << 20, 0x20)), /larger than 64 MiB/],
};
const taken: Record<string, string> = {
  packed: good,
  "packed under the other magic": packText(sample, "CV1:", 1),
  "bare JSON with blanks around": ` \n${sample}\t`,
  "bytes behind the end": good.replace(/=*$/, "") + "AAAA".slice((good.replace(/=*$/, "").length - 4) % 4),
  "packed with a mark of order": packText(Buffer.from("\ufeff" + sample)),
  "packed in UTF-16": packText(Buffer.from(sample, "utf16le")),
  "just not too large": sized(mostBytes),
  "just not too large when unpacked": packText(sized(mostBytes)),
  "two equal keys": '{"Corvel.slots.0":"first","Corvel.slots.0":"last"}',
  "nothing of ours": '{"Other":1}',
};

test("the toast that the page foretells is the one that the phone shows", async () => {
  const page = await open();
  const files: Record<string, string> = {};
  const script = ["wait 3"];
  const ask = async (text: string, toast: string, notes: RegExp, name: string): Promise<void> => {
    const said = await consider(page, text);
    assert.equal(said.toast, toast, name);
    assert.match(said.notes, notes, name);
    const file = `${Object.keys(files).length}.txt`;
    files[file] = text;
    script.push(`pasteboard from "${file}"`, "call action dm_imp", "wait 0.3", `expect toast text is "${toast}"`, "wait 2");
  };
  for (const [name, [text, notes]] of Object.entries(refused)) {
    await ask(text, shown.unreadable, notes, name);
  }
  for (const [name, text] of Object.entries(taken)) {
    await ask(text, shown.imported, /keys? in all/, name);
  }
  await play("douyin", script, files);
});

test("keys and values that the page does not know stay as they came", async () => {
  const page = await open();
  const odd =
    '{"Corvel.later":[1.0,{"b":null,"a":-0.0}],"Corvel.number":123456789012345678901234567890,"Other":1e-7,' +
    '"Corvel.slots.0":5,"Corvel.slots.2":"\\u5f39","Corvel.slots.99999999":"far","__proto__":"x"}';
  await taking(page).fill(packText(odd));
  await page.getByRole("button", { name: "Take in" }).click();
  assert.equal(unpackText(await given(page)), odd);
  const notes = await part(page, "To the phone").locator("li").allInnerTexts();
  assert.match(notes.join(" "), /null in it: Corvel.later.*do not begin with Corvel.: Other, __proto__/);
  await page.getByRole("button", { name: "Remove Corvel.later" }).click();
  await lines(page).fill((await lines(page).inputValue()) + "\nmore");
  assert.equal(
    unpackText(await given(page)),
    odd.replace(/"Corvel.later":.*?},?\],/, "").replace(/}$/, ',"Corvel.slots.3":"more"}'),
  );
});

test("comments are taken in as lines, and undo brings back what was there", async () => {
  const page = await open();
  await lines(page).fill("before");
  const said = await consider(page, "主播好\r\n666\r\n\r\nbye\r\n");
  assert.equal(said.toast, shown.unreadable);
  await page.getByRole("button", { name: "Use as 4 comments" }).click();
  assert.deepEqual(await comments(page), ["主播好", "666", "", "bye"]);
  assert.equal(await taking(page).inputValue(), "");
  await undo(page).click();
  assert.deepEqual(await comments(page), ["before"]);
});

test("files are read, in an old encoding too, and what is none is said", async () => {
  const page = await open();
  const problem = part(page, "From the phone").getByRole("alert");
  const units = Buffer.from("主播好😀\n6", "utf16le");
  const marked = Buffer.from("\ufeff主播好😀\n6", "utf16le");
  const points = Buffer.alloc(7 * 4);
  [..."\ufeff主播好😀\n6"].forEach((each, index) => points.writeUInt32BE(each.codePointAt(0)!, 4 * index));
  for (const [name, bytes] of Object.entries({
    GB18030: Buffer.from([0xd6, 0xf7, 0xb2, 0xa5, 0xba, 0xc3, 0x94, 0x39, 0xfc, 0x36, 0x0d, 0x0a, 0x36]),
    "UTF-8 with a mark": Buffer.from("\ufeff主播好😀\n6\n"),
    "UTF-16": units,
    "UTF-16 with a mark": marked,
    "UTF-16, the large byte first": Buffer.from(units).swap16(),
    "UTF-16, the large byte first, with a mark": Buffer.from(marked).swap16(),
    "UTF-32, the large byte first": points,
    "UTF-32": Buffer.from(points).swap32(),
  })) {
    await drop(page, { name: "a.txt", type: "text/plain", bytes });
    await page.getByRole("button", { name: "Use as 2 comments" }).click();
    assert.deepEqual(await comments(page), ["主播好😀", "6"], name);
    await undo(page).click();
  }
  await drop(page, { name: "b.txt", type: "", bytes: Buffer.from(good) });
  await page.getByRole("button", { name: "Take in" }).click();
  assert.deepEqual(await comments(page), ["弹幕😀↵/", "two"]);
  await drop(page, { name: "c.bin", type: "", bytes: Buffer.from([0x61, 0x62, 0xff, 0x00, 0xff]) });
  await page.getByText("c.bin could not be read. Byte 3 of the text is not UTF-8.").waitFor();
  await drop(page, { name: "half.txt", type: "", bytes: Buffer.from([0xff, 0xfe, 0x61, 0, 0, 0xd8, 0x61, 0]) });
  await page.getByText("half.txt could not be read. Byte 5 of the text is not UTF-16.").waitFor();
  await drop(page, { name: "cut.txt", type: "", bytes: points.subarray(0, 10) });
  await page.getByText("cut.txt could not be read. Byte 9 of the text is not UTF-32.").waitFor();
  await drop(page, { name: "d.png", type: "image/png", bytes: Buffer.from("no picture") });
  await page.getByText("d.png is no picture").waitFor();
  // A file too long for the field is read all the same.
  const many = Array.from({ length: 10_000 }, (_, index) => `comment number ${index} of many`);
  await drop(page, { name: "e.txt", type: "text/plain", bytes: Buffer.from(many.join("\n")) });
  const use = page.getByRole("button", { name: "Use as 10000 comments" });
  await use.waitFor();
  assert.ok(await problem.isHidden());
  await use.click();
  assert.deepEqual(await comments(page), many);
});

test("bytes of any kind are answered, and 64 MiB of text too", async () => {
  const page = await open();
  const noise = Buffer.from(Array.from({ length: 3 << 16 }, (_, index) => (index * 7919) >> 3 & 0xff));
  await drop(page, { name: "noise", type: "", bytes: noise });
  await page.getByText("noise could not be read.").waitFor();
  for (const [text, notes] of [
    ["CV1:" + noise.toString("base64"), /not packed|damaged/],
    ["[".repeat(4 << 20), /512 levels/],
    [packText(`{"Corvel.slots.0":"${"x".repeat(63 << 20)}"}`), tooLarge],
    [packText(`{"Corvel.slots.0":"${"x".repeat(63 << 20)}`), /not closed.*character 19/],
  ] as const) {
    const said = await consider(page, text);
    assert.equal(said.toast, shown.unreadable);
    assert.match(said.notes, notes);
  }
  // Nor does the grid measure all of a comment that takes no room, or show all of a key.
  await take(page, packText(JSON.stringify({ "Corvel.slots.0": "\u200b".repeat(20 << 20) })));
  assert.ok(await cell(page, 1).locator(".marker").isVisible());
  await take(page, packText(JSON.stringify({ ["k".repeat(60 << 20)]: 1 })));
  await part(page, "To the phone").getByText(/skips keys that .* k{80}…\.$/).waitFor();
  // A set that no phone takes can be opened here, and made smaller.
  await take(page, packText(JSON.stringify({ "Corvel.slots.0": "x".repeat(mostBytes), "Corvel.slots.1": "y" })));
  await part(page, "To the phone").getByText("格式无效").waitFor();
  await page.getByRole("button", { name: "Empty", exact: true }).click();
  await part(page, "To the phone").getByText("导入成功").waitFor();
  assert.deepEqual(await comments(page), ["", "y"]);
});

test("the picture of a code brings the set back", async () => {
  const page = await open();
  await lines(page).fill(Array.from({ length: 48 }, (_, index) => `第${index}条弹幕，今天真好`).join("\n"));
  const code = part(page, "To the phone").getByRole("img");
  const wanted = await given(page);
  assert.equal(await code.getAttribute("alt"), `QR code with the text, ${wanted.length} characters`);
  // As a picture of its own, and within a picture of the screen.
  const png = Buffer.from(((await code.getAttribute("src")) ?? "").split(",")[1] ?? "", "base64");
  const screen = await page.screenshot();
  await code.scrollIntoViewIfNeeded();
  for (const bytes of [png, screen.length > 0 ? await page.screenshot() : screen]) {
    const other = await open();
    await drop(other, { name: "code.png", type: "image/png", bytes });
    await other.getByRole("button", { name: "Take in" }).click();
    assert.equal(await given(other), wanted);
  }
  const without = await open();
  await drop(without, { name: "empty.png", type: "image/png", bytes: await without.screenshot() });
  await without.getByText("In empty.png no QR code was found.").waitFor();
});

/** What a program of Debian's reads in a picture. */
function textIn(file: string): string {
  return execFileSync("zbarimg", ["--nodbus", "--quiet", "--raw", file], { encoding: "utf8" }).replace(/\n$/, "");
}

test("a code of any size says the same to another reader", async () => {
  const page = await open();
  const code = part(page, "To the phone").getByRole("img");
  const folder = await mkdtemp(path.join(tmpdir(), "corvel-code-"));
  try {
    const file = path.join(folder, "code.png");
    for (const length of [0, 300, 1500, 2400, 3260]) {
      // Letters that cannot be packed, so that the last is near the largest code.
      const letters = Array.from({ length }, (_, index) => Math.sin(index + 1).toString(36).slice(-2, -1));
      await lines(page).fill(letters.join(""));
      const wanted = await given(page);
      const source = (await code.getAttribute("src")) ?? "";
      await writeFile(file, Buffer.from(source.split(",")[1] ?? "", "base64"));
      assert.ok(length < 3260 || wanted.length > 2900, `${wanted.length} characters`);
      assert.equal(textIn(file), wanted);
    }
    // The largest on a screen of one pixel a point, with fingers to enlarge it.
    for (const size of [{ width: 1280, height: 900 }, { width: 390, height: 844 }]) {
      await page.setViewportSize(size);
      await code.click();
      await page.screenshot({ path: file });
      assert.equal(textIn(file), await packed(page).inputValue());
      await page.keyboard.press("Escape");
      assert.ok((await code.boundingBox())!.width <= 300);
    }
  } finally {
    await rm(folder, { recursive: true });
  }
});

test("a code that another program wrote is read", async () => {
  const page = await open();
  const digits = "0123456789abcdef".repeat(10);
  const folder = await mkdtemp(path.join(tmpdir(), "corvel-code-"));
  try {
    const file = path.join(folder, "code.png");
    for (const level of ["L", "Q"]) {
      const wanted = packText(JSON.stringify({ "Corvel.slots.0": `一条 ${level} ${digits}` }));
      execFileSync("qrencode", ["--8bit", "--level", level, "--output", file, wanted]);
      await page.locator("input[type=file]").setInputFiles(file);
      await page.getByRole("button", { name: "Take in" }).click();
      assert.deepEqual(await comments(page), [`一条 ${level} ${digits}`]);
    }
  } finally {
    await rm(folder, { recursive: true });
  }
});

test("what is too long for a code is said, with both lengths", async () => {
  const page = await open();
  await lines(page).fill(Array.from({ length: 400 }, (_, index) => Math.sin(index + 1).toString(36)).join("\n"));
  const { length } = await given(page);
  assert.ok(length > 2953);
  await part(page, "To the phone").getByText(`${length} characters; one QR code holds 2953`).waitFor();
  assert.ok(await part(page, "To the phone").getByRole("img").isHidden());
});

test("where a page may not use the clipboard, it copies all the same, or says how", async () => {
  const first = (): void => {
    Object.defineProperty(navigator, "clipboard", { value: undefined });
  };
  const page = await open({ first });
  await lines(page).fill("一条");
  await part(page, "To the phone").getByRole("button", { name: "Copy", exact: true }).click();
  await page.getByText("Copied", { exact: true }).waitFor();
  await page.getByRole("button", { name: "Paste" }).click();
  await page.getByText("The browser does not let the page paste").waitFor();
  await page.keyboard.press("Control+v");
  const pasted = await taking(page).inputValue();
  assert.deepEqual(JSON.parse(unpackText(pasted)), { "Corvel.slots.0": "一条" });
  await page.evaluate(() => {
    document.execCommand = () => false;
  });
  await part(page, "To the phone").getByRole("button", { name: "Copy", exact: true }).click();
  await page.getByText("The text is marked: copy it by hand.").waitFor();
  assert.equal(await page.evaluate(() => getSelection()?.toString()), pasted);
});

test("a link carries the set to a page on a web server", async () => {
  const html = await readFile(paths.page);
  const server = createServer((_, answer) => {
    answer.setHeader("content-type", "text/html; charset=utf-8").end(html);
  }).listen(0, "127.0.0.1");
  try {
    await once(server, "listening");
    const place = server.address();
    const address = `http://127.0.0.1:${typeof place === "object" && place ? place.port : 0}/grid`;
    const page = await open({ address });
    await lines(page).fill("从链接来\n??>>~~");
    const wanted = await given(page);
    await page.getByRole("button", { name: "Copy link" }).click();
    const link = await page.evaluate(() => navigator.clipboard.readText());
    assert.match(link, /^http:[^#]*\/grid#DM1:[A-Za-z0-9_-]+$/);
    const other = await open({ address, fragment: link.split("#")[1] ?? "" });
    assert.equal(await packed(other).inputValue(), wanted);
    // Once taken it leaves the address, so that a reload does not undo what is done here.
    await lines(other).fill("changed");
    await other.reload();
    assert.deepEqual(await comments(other), ["changed"]);
    const broken = await open({ address, fragment: "DM1:eJx" });
    await broken.getByText("The link carries no set").waitFor();
  } finally {
    server.close();
    server.closeAllConnections();
  }
});
