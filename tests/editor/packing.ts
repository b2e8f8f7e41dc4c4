// The strings of the phone, made and read by Node's own zlib; and random configurations.

import { deflateSync, inflateSync } from "node:zlib";

export function packText(json: string | Buffer, magic = "DM1:", level = 9): string {
  return magic + deflateSync(json, { level }).toString("base64");
}

export function unpackText(text: string): string {
  return inflateSync(Buffer.from(text.slice(4), "base64")).toString("utf8");
}

export function unpacked(text: string): Record<string, unknown> {
  return JSON.parse(unpackText(text)) as Record<string, unknown>;
}

/** Random numbers that a seed repeats. */
export class Chance {
  private state: number;

  constructor(seed: string) {
    this.state = [...seed].reduce((sum, letter) => (Math.imul(sum, 31) + letter.charCodeAt(0)) | 0, 17);
  }

  /** From 0 up to below that. */
  below(limit: number): number {
    // By the mulberry32 generator, whose numbers are even enough for texts.
    this.state = (this.state + 0x6d2b79f5) | 0;
    let mixed = Math.imul(this.state ^ (this.state >>> 15), this.state | 1);
    mixed ^= mixed + Math.imul(mixed ^ (mixed >>> 7), mixed | 61);
    return ((mixed ^ (mixed >>> 14)) >>> 0) % limit;
  }

  of<Item>(items: readonly Item[]): Item {
    return items[this.below(items.length)]!;
  }
}

const letters = [..."abc 弹幕，主播好😀❤️\n\r\t\"\\/\u0000\u001f\u007f\u2028\ufeff éàüß日本語한국어↵", "👨‍👩‍👧", "e\u0301", "\ud83d\ude00"];

export function randomText(chance: Chance, length: number): string {
  return Array.from({ length }, () => chance.of(letters)).join("");
}

const presets: [number, number][] = [[2, 2], [4, 3], [4, 4], [5, 4], [5, 5], [6, 6], [6, 7], [6, 8]];

/** A configuration as the phone may hold it, with up to 144 comments, whose grid begins on the screen. */
export function randomConfiguration(chance: Chance): Record<string, unknown> {
  const found: Record<string, unknown> = {};
  const slots = chance.of([0, 1, 4, 48, 144, 144]);
  for (let index = 0; index < slots; ++index) {
    found[`Corvel.slots.${index}`] = randomText(chance, chance.of([0, 1, 7, 40, 400]));
  }
  for (const name of ["showCaptureButton", "autoCaptureAfterSend", "floatAutoSnap"]) {
    found[`Corvel.config.${name}`] = chance.below(2) === 1;
  }
  for (const name of ["matrixAlpha", "fontSize", "floatButtonAlpha"]) {
    found[`Corvel.config.${name}`] = (1 + chance.below(39)) / 16;
  }
  found["Corvel.config.matrixScale"] = chance.of([0.5, 0.75, 1]);
  found["Corvel.config.gridPresetIndex"] = chance.below(12) - 2;
  found["Corvel.config.gridCustomCols"] = 1 + chance.below(12);
  found["Corvel.config.gridCustomRows"] = 1 + chance.below(12);
  found["Corvel.debug.logEnabled"] = false; // the phone stores that anyhow
  found["Corvel.position.floatButton.x"] = 12.25;
  found["Corvel.later.key"] = chance.of<unknown>([[1, { a: "b" }], { "": [] }, "x", 9007199254740993]);
  return found;
}

/** How many of its cells a finger reaches for certain: those of its first row. */
export function tappableCells(configuration: Record<string, unknown>): number {
  const [columns] = presets[Number(configuration["Corvel.config.gridPresetIndex"])] ?? [];
  return columns ?? Number(configuration["Corvel.config.gridCustomCols"]);
}
