// How near the page's titles come to those of the simulated phone, over texts of many kinds and cells of many sizes.

import assert from "node:assert/strict";
import { test } from "node:test";
import { Chance } from "./packing";
import { play, unquoted } from "./simulated";
import { open, seed, take } from "./support";

const chinese = "主播晚上好，这首歌太好听了！再来一首吧：我们都爱听。今天的衣服（绿色那件）还有吗？";
const english =
  "Good evening everyone! This is such a lovely song, could you please sing it again? I'd love that; thanks a lot. ";
const emoji = "😀🎉❤️👨‍👩‍👧👍🏽🇨🇳🌹🔥";

/** So many characters from a text that goes on and on, as a user counts them. */
function piece(text: string, start: number, length: number): string {
  const parts = Array.from(new Intl.Segmenter("zh", { granularity: "grapheme" }).segment(text), (each) => each.segment);
  return Array.from({ length }, (_, index) => parts[(start + index) % parts.length]).join("");
}

function texts(chance: Chance, count: number): string[] {
  const lengths = [2, 5, 9, 14, 22, 35, 60, 120];
  const kinds: ((start: number, length: number) => string)[] = [
    (start, length) => piece(chinese, start, length),
    (start, length) => piece(english, start, 2 * length),
    (start, length) => piece(emoji, start, length),
    (start, length) => piece(chinese + english.slice(0, 40) + emoji + "666 哈哈哈 OK~ ", start, length),
    (start, length) => piece(english.replace(/[^a-z]/gi, ""), start, length),
    (start, length) => piece(chinese, start, length >> 1) + "\n" + piece(english, start, length),
  ];
  return Array.from({ length: count }, (_, index) => kinds[index % kinds.length]!(chance.below(60), chance.of(lengths)));
}

function lengthOf(text: string): number {
  return Array.from(new Intl.Segmenter("zh", { granularity: "grapheme" }).segment(text)).length;
}

/** Preset, cells, scale and size of the letters. */
const grids = [
  [0, 4, 1, 11],
  [2, 16, 0.75, 14],
  [4, 25, 1, 11],
  [7, 48, 1, 9],
  [7, 48, 1.5, 11],
] as const;

test("titles are cut where the phone cuts them, or a little before or behind", async (context) => {
  const chance = new Chance(seed);
  const page = await open();
  const distances: number[] = [];
  for (const [preset, cells, scale, size] of grids) {
    const wanted = texts(chance, cells);
    const configuration: Record<string, unknown> = {
      "Corvel.config.gridPresetIndex": preset,
      "Corvel.config.matrixScale": scale,
      "Corvel.config.fontSize": size,
    };
    wanted.forEach((text, index) => (configuration[`Corvel.slots.${index}`] = text));
    const packed = JSON.stringify(configuration);
    await take(page, packed);
    const asked = wanted.map((_, index) => `print view cell ${index} title`);
    const script = ["wait 3", 'pasteboard from "in.txt"', "call action dm_imp", "wait 1", 'tap "弹"', "wait 1", ...asked];
    const { printed } = await play("douyin", script, { "in.txt": packed });
    const titles = await page.getByRole("grid").getByRole("button").evaluateAll((cells) =>
      cells.map((each): [string, boolean] => [
        each.querySelector(".cell-title")?.textContent ?? "",
        !each.querySelector<HTMLElement>(".marker")!.hidden,
      ]),
    );
    for (const [index, text] of wanted.entries()) {
      const there = unquoted(new RegExp(`^view cell ${index} title: (.*)$`, "m").exec(printed)?.[1] ?? "");
      assert.ok(there !== "" && text.startsWith(there), `cell ${index}: ${there}`);
      const [here, isMarked] = titles[index]!;
      assert.ok(text.startsWith(here) && isMarked === (here !== text), `cell ${index}: ${here}`);
      distances.push(Math.abs(lengthOf(here) - lengthOf(there)));
    }
  }
  const within = (most: number): number => distances.filter((each) => each <= most).length;
  const count = distances.length;
  const most = Math.max(...distances);
  context.diagnostic(`${within(0)} of ${count} titles are equal, ${within(1)} within a character, all within ${most}`);
  // Where a word wraps on one side only, all of it counts.
  assert.ok(within(0) > 0.85 * count && within(1) > 0.9 * count, `seed ${seed}: ${distances.join(" ")}`);
});
