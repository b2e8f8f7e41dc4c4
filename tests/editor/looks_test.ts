// The page on a phone and on a desk, light and dark, in both languages; the grid's cells lie where the phone's lie.

import assert from "node:assert/strict";
import path from "node:path";
import { test } from "node:test";
import { Page } from "playwright-core";
import { play } from "./simulated";
import { cell, consider, open, paths, phone, take } from "./support";

/** Something of everything that the page can show. */
const filled = JSON.stringify({
  ...Object.fromEntries(
    Array.from({ length: 60 }, (_, index) => [
      `Corvel.slots.${index}`,
      ["主播晚上好！", "666", "这首歌太好听了，再来一首吧，我们都爱听", "Hello from the other side", "😀🎉❤️\n👍🏽"][index % 5],
    ]),
  ),
  "Corvel.config.gridPresetIndex": 7,
  "Corvel.config.fontSize": 9,
  "Corvel.config.matrixScale": 1.25,
  "Corvel.config.floatButtonAlpha": 0,
  "Corvel.config.buttonBgColor": "#B03060",
  "Corvel.config.showCaptureButton": true,
  "Corvel.later": { a: null },
  "somebody.else": "s".repeat(3000),
});

async function assertUsable(page: Page): Promise<void> {
  assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= window.innerWidth));
  const nameless = await page.evaluate(() =>
    Array.from(document.querySelectorAll<HTMLElement>("button, input:not([type=file]), textarea, select"))
      .filter((each) => !each.closest("[hidden]") && !each.ariaLabel && !each.textContent)
      .filter((each) => !(each as HTMLInputElement).labels?.length)
      .map((each) => each.outerHTML),
  );
  assert.deepEqual(nameless, []);
}

for (const locale of ["en-US", "zh-CN"]) {
  for (const [name, size] of [["phone", phone], ["desk", {}]] as const) {
    for (const colorScheme of ["light", "dark"] as const) {
      test(`${name}, ${colorScheme}, ${locale}`, async () => {
        const page = await open({ ...size, colorScheme, locale });
        assert.equal(await page.title(), locale === "zh-CN" ? "Corvel 弹幕网格" : "Corvel Comment grid");
        const picture = async (state: string): Promise<void> => {
          await assertUsable(page);
          const file = `pictures/${name}-${colorScheme}-${locale}${state}.png`;
          // A screen of the page's height: a picture beyond the screen is one without fingers to this browser.
          const height = await page.evaluate(() => document.documentElement.scrollHeight);
          await page.setViewportSize({ ...page.viewportSize()!, height });
          await page.screenshot({ path: path.join(path.dirname(paths.page), file) });
        };
        await picture("");
        await consider(page, filled);
        await page.locator("button.filled").last().click();
        await page.locator("details").evaluate((each: HTMLDetailsElement) => (each.open = true));
        await consider(page, '{"Corvel.slots.0":"弹幕"');
        await picture("-filled");
      });
    }
  }
}

test("cells lie where the phone draws them", async () => {
  const page = await open();
  for (const [preset, scale, last] of [[0, 1, 3], [3, 1.25, 19], [7, 0.5, 47]] as const) {
    const text = `{"Corvel.config.gridPresetIndex":${preset},"Corvel.config.matrixScale":${scale}}`;
    await take(page, text);
    const panel = (await page.locator(".panel").boundingBox())!;
    const box = (await cell(page, last + 1).boundingBox())!;
    const script = ["wait 3", 'pasteboard from "in.txt"', "call action dm_imp", "wait 1", 'tap "弹"', "wait 1"];
    const { printed } = await play("douyin", [...script, `print view cell ${last} frame`], { "in.txt": text });
    const frame = /frame: (.*)$/m.exec(printed)?.[1]?.split(" ").map(Number) ?? [];
    [box.x - panel.x, box.y - panel.y, box.width, box.height].forEach((length, index) => {
      assert.ok(Math.abs(length - (frame[index] ?? NaN)) < 0.6, `${preset}: ${length} and ${frame.join(" ")}`);
    });
  }
});
