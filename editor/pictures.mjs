// Takes the guide's pictures of the page: `node pictures.mjs PAGE FOLDER` writes page-*.webp into the folder.

import { chromium } from "playwright-core";
import { writeFile } from "node:fs/promises";
import path from "node:path";
import { pathToFileURL } from "node:url";

const [page, folder] = process.argv.slice(2).map((each) => path.resolve(each));
const long = "这首歌太好听了，再来一首吧，我们都爱听，一直循环播放";
const comments = `主播好！\n666\n${long}\n❤️❤️❤️\n关注了\n求歌单\n双击了\n来了\n辛苦了\n晚安\n好听\n点赞`;
const kinds = {
  page: { viewport: { width: 375, height: 760 }, deviceScaleFactor: 1.5, isMobile: true, hasTouch: true },
  "page-desk": { viewport: { width: 1240, height: 800 }, colorScheme: "dark" },
};

const browser = await chromium.launch({ executablePath: "/usr/bin/chromium", args: ["--no-sandbox"] });
for (const [name, kind] of Object.entries(kinds)) {
  for (const [language, locale] of [["en", "en-US"], ["zh", "zh-CN"]]) {
    const tab = await browser.newPage({ ...kind, locale });
    await tab.goto(pathToFileURL(page).href);
    await tab.locator("textarea.lines").fill(comments);
    await tab.locator(".segments").getByText("12", { exact: true }).click();
    await tab.evaluate(() => {
      document.activeElement.blur();
      window.scrollTo(0, 0);
      document.querySelector("textarea.lines").scrollTop = 0;
    });
    const screen = await tab.context().newCDPSession(tab);
    const clip = { x: 0, y: 0, ...kind.viewport, scale: kind.deviceScaleFactor ?? 1 };
    // WebP takes a quarter of the room that PNG does.
    const { data } = await screen.send("Page.captureScreenshot", { format: "webp", quality: 70, clip });
    await writeFile(path.join(folder, `${name}-${language}.webp`), Buffer.from(data, "base64"));
    await tab.close();
  }
}
await browser.close();
