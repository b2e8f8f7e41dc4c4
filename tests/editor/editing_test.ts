// Comments and settings are typed, moved, undone, and there again after a reload.

import assert from "node:assert/strict";
import { test } from "node:test";
import { Page } from "playwright-core";
import { unpacked } from "./packing";
import { cell, cellField, comments, given, lines, open, part, phone, redo, undo } from "./support";

async function type(page: Page, text: string): Promise<void> {
  await page.keyboard.type(text);
}

test("cell by cell, Enter going on to the next", async () => {
  const page = await open();
  await cell(page, 1).click();
  await type(page, "主播好");
  await page.keyboard.press("Enter");
  await type(page, "two");
  await page.keyboard.press("Shift+Enter");
  await type(page, "lines");
  assert.deepEqual(await comments(page), ["主播好", "two↵lines"]);
  // What an input method is still choosing is no end of a comment.
  await cellField(page).dispatchEvent("keydown", { key: "Enter", isComposing: true });
  await cellField(page).dispatchEvent("keydown", { key: "Enter", keyCode: 229 });
  assert.equal(await cellField(page).getAttribute("id"), await page.evaluate(() => document.activeElement?.id));
  assert.equal(await page.getByText("Cell 2", { exact: true }).count(), 1);
  assert.deepEqual(unpacked(await given(page)), { "Corvel.slots.0": "主播好", "Corvel.slots.1": "two\nlines" });
  // A comment of two lines stays whole while others are typed as lines around it.
  await lines(page).fill("new\n主播好\ntwo↵lines");
  assert.equal(unpacked(await given(page))["Corvel.slots.2"], "two\nlines");
});

test("lines are cells, and a larger grid is at hand for those beyond", async () => {
  const page = await open();
  const wanted = Array.from({ length: 30 }, (_, index) => `comment ${index}`);
  await lines(page).fill(wanted.join("\n"));
  await assertCells(page, 4);
  await page.getByRole("button", { name: "Use 36 cells" }).click();
  await assertCells(page, 36);
  assert.match((await cell(page, 30).getAttribute("aria-label")) ?? "", /^Cell 30: comment 29/);
  assert.match((await cell(page, 31).getAttribute("aria-label")) ?? "", /empty: sends 31/);
  await lines(page).fill(wanted.concat(wanted).join("\n"));
  await page.getByRole("button", { name: "Use 64 cells" }).click();
  await assertCells(page, 64);
  await lines(page).fill(Array.from({ length: 145 }, () => "x").join("\n"));
  assert.ok(await page.getByRole("button", { name: /^Use / }).isHidden());
  await page.getByText("1 comment lies beyond the 64 cells").waitFor({ state: "hidden" });
  await page.getByLabel("Columns").selectOption("12");
  await page.getByLabel("Rows").selectOption("12");
  await assertCells(page, 144);
  const found = unpacked(await given(page));
  assert.equal(found["Corvel.config.gridPresetIndex"], 8);
  assert.equal(found["Corvel.config.gridCustomRows"], 12);
});

async function assertCells(page: Page, count: number): Promise<void> {
  assert.equal(await page.getByRole("grid").getByRole("button").count(), count);
}

test("undo goes back by what was done, not by letters, and redo forth", async () => {
  const page = await open();
  await cell(page, 1).click();
  await type(page, "first");
  await page.keyboard.press("Enter");
  await type(page, "second");
  await page.keyboard.press("Control+z");
  assert.deepEqual(await comments(page), ["first"]);
  await undo(page).click();
  assert.deepEqual(await comments(page), []);
  assert.ok(await undo(page).isDisabled());
  await redo(page).click();
  await page.keyboard.press("Control+Shift+z");
  assert.deepEqual(await comments(page), ["first", "second"]);
  assert.ok(await redo(page).isDisabled());
});

test("keys move through the grid and move comments", async () => {
  const page = await open();
  await lines(page).fill("a\nb\nc\nd");
  await cell(page, 1).focus();
  await page.keyboard.press("ArrowRight");
  await page.keyboard.press("ArrowDown");
  assert.match((await page.evaluate(() => document.activeElement?.getAttribute("aria-label"))) ?? "", /^Cell 4: d/);
  await page.keyboard.press("Alt+ArrowLeft");
  assert.deepEqual(await comments(page), ["a", "b", "d", "c"]);
  await page.keyboard.press("Alt+ArrowUp");
  assert.deepEqual(await comments(page), ["d", "a", "b", "c"]);
  await page.keyboard.press("Delete");
  // An emptied cell says so, for the phone would keep what it has.
  const found = unpacked(await given(page));
  assert.equal(found["Corvel.slots.0"], "");
  await undo(page).click();
  await undo(page).click();
  assert.deepEqual(await comments(page), ["a", "b", "d", "c"]);
});

test("a mouse drags a comment, and a click is none", async () => {
  const page = await open();
  await lines(page).fill("a\nb\nc\nd");
  await cell(page, 1).dragTo(cell(page, 4));
  assert.deepEqual(await comments(page), ["b", "c", "d", "a"]);
  await cell(page, 2).click();
  assert.equal(await cellField(page).inputValue(), "c");
  // Escape puts it back.
  await cell(page, 1).hover();
  await page.mouse.down();
  await cell(page, 3).hover();
  await page.keyboard.press("Escape");
  await page.mouse.up();
  assert.deepEqual(await comments(page), ["b", "c", "d", "a"]);
});

test("a finger drags after holding, and scrolls when it moves at once", async () => {
  const page = await open(phone);
  await lines(page).fill("a\nb\nc\nd");
  await page.evaluate(() => window.scrollTo(0, 0));
  const fingers = await page.context().newCDPSession(page);
  const middle = async (number: number) => {
    const box = (await cell(page, number).boundingBox())!;
    return { x: box.x + box.width / 2, y: box.y + box.height / 2 };
  };
  const touch = (type: "touchStart" | "touchMove" | "touchEnd", ...touchPoints: { x: number; y: number }[]) =>
    fingers.send("Input.dispatchTouchEvent", { type, touchPoints });
  const [first, last] = [await middle(1), await middle(4)];
  await touch("touchStart", first);
  await page.waitForTimeout(450);
  await touch("touchMove", last);
  await touch("touchEnd");
  assert.deepEqual(await comments(page), ["b", "c", "d", "a"]);
  await touch("touchStart", last);
  await touch("touchMove", first);
  await touch("touchEnd");
  assert.deepEqual(await comments(page), ["b", "c", "d", "a"]);
});

test("settings go into the set when touched, and out again", async () => {
  const page = await open();
  await page.getByRole("switch", { name: "Capture button" }).check();
  await page.getByLabel("Scale", { exact: true }).fill("0.75");
  await page.getByLabel("Cells", { exact: true }).fill("#12ab34");
  await part(page, "Switches").getByText("Douyin's latency").click();
  await page.getByRole("switch", { name: "Fast comment path" }).check();
  await page.getByRole("switch", { name: "Fast comment path" }).uncheck();
  assert.deepEqual(unpacked(await given(page)), {
    "Corvel.config.showCaptureButton": true,
    "Corvel.config.matrixScale": 0.75,
    "Corvel.config.buttonBgColor": "#12AB34",
    "Corvel.latency.fastCommentPath": false,
  });
  const background = await cell(page, 1).evaluate((each) => getComputedStyle(each).backgroundColor);
  assert.equal(background, "rgba(18, 171, 52, 0.6)");
  await page.getByRole("button", { name: "Scale: leave as it is on the phone" }).click();
  assert.equal(await page.getByLabel("Scale", { exact: true }).inputValue(), "1");
  assert.ok(!("Corvel.config.matrixScale" in unpacked(await given(page))));
});
