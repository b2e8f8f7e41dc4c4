// The comments of a configuration, one a slot. Slots count from 0; a cell shows its number from 1 while it is empty.

import { table } from "../table";
import { Configuration } from "./configuration";
import { jsonOfString } from "./json_text";
import { readString } from "./stored_values";

export function slotKey(index: number): string {
  return table.slotPrefix + String(index);
}

/** So many slots are told apart; keys beyond are carried along like any other that the page does not know. */
export const mostSlots = 10_000;

/** The slot that a key belongs to. */
export function slotOf(key: string): number | undefined {
  const digits = key.startsWith(table.slotPrefix) ? key.slice(table.slotPrefix.length) : "";
  return /^(0|[1-9]\d*)$/.test(digits) && Number(digits) < mostSlots ? Number(digits) : undefined;
}

/** The comment of a slot, empty without one. */
export function slotText(configuration: Configuration, index: number): string {
  return readString(configuration, slotKey(index));
}

/** How many slots there are up to the last comment. */
export function usedSlots(configuration: Configuration): number {
  let count = 0;
  for (const key of configuration.keys) {
    const index = slotOf(key);
    if (index !== undefined && index >= count && slotText(configuration, index) !== "") {
      count = index + 1;
    }
  }
  return count;
}

/** What stands for an empty slot: one that had a comment says so, for an import leaves alone what it does not name. */
function emptied(configuration: Configuration, index: number): string | undefined {
  return configuration.has(slotKey(index)) ? '""' : undefined;
}

/** The same with other comments in some slots. */
export function withSlots(configuration: Configuration, texts: Iterable<readonly [number, string]>): Configuration {
  const changes: [string, string | undefined][] = [];
  for (const [index, text] of texts) {
    if (slotText(configuration, index) !== text) {
      changes.push([slotKey(index), text === "" ? emptied(configuration, index) : jsonOfString(text)]);
    }
  }
  return changes.length > 0 ? configuration.with(changes) : configuration;
}

/** The same with the comment of one slot in the place of another; those between move up by one. */
export function withMoved(configuration: Configuration, from: number, to: number): Configuration {
  const first = Math.min(from, to);
  const raws: (string | undefined)[] = [];
  for (let index = first; index <= Math.max(from, to); ++index) {
    raws.push(slotText(configuration, index) === "" ? undefined : configuration.raw(slotKey(index)));
  }
  const [moved] = raws.splice(from - first, 1);
  raws.splice(to - first, 0, moved);
  return configuration.with(
    raws.map((raw, offset) => [slotKey(first + offset), raw ?? emptied(configuration, first + offset)]),
  );
}
