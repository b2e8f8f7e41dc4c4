// What a user should know of a configuration before the phone imports it.

import { mostCells, preferenceOf, table } from "../table";
import { Texts } from "../texts";
import { Configuration, shownKey } from "./configuration";
import { gridSize, usableFloat } from "./grid";
import { slotOf, usedSlots } from "./slots";
import { isScalar, isStorable, readBool, readFloat, readString } from "./stored_values";

const shownKeys = 5;

function listed(keys: string[], texts: Texts): string {
  const shown = keys.slice(0, shownKeys).map(shownKey).join(texts.comma);
  return shown + (keys.length > shownKeys ? ` … (${keys.length})` : "");
}

/** Whether the phone can use what is stored under one of its own keys. */
function isUsable(configuration: Configuration, key: string): boolean {
  const preference = preferenceOf(key);
  if (!preference && slotOf(key) === undefined) {
    return true;
  }
  return isScalar(configuration, key);
}

/** Comments in slots from that on. */
export function commentsFrom(configuration: Configuration, first: number): number {
  return configuration.keys.filter((key) => {
    const index = slotOf(key);
    return index !== undefined && index >= first && readString(configuration, key) !== "";
  }).length;
}

function remarksOnKeys(configuration: Configuration, texts: Texts): string[] {
  const foreign: string[] = [];
  const unstorable: string[] = [];
  const wrongKind: string[] = [];
  for (const key of configuration.keys) {
    if (!key.startsWith(table.prefix)) {
      foreign.push(key);
    } else if (!isStorable(configuration, key)) {
      unstorable.push(key);
    } else if (!isUsable(configuration, key)) {
      wrongKind.push(key);
    }
  }
  const of = (keys: string[], say: (keys: string) => string): string[] =>
    keys.length > 0 ? [say(listed(keys, texts))] : [];
  const { remarks } = texts;
  return [...of(unstorable, remarks.unstorable), ...of(wrongKind, remarks.wrongKind), ...of(foreign, remarks.foreign)];
}

function remarksOnComments(configuration: Configuration, texts: Texts): string[] {
  const size = gridSize(configuration);
  const beyondAll = usedSlots(configuration) > mostCells ? commentsFrom(configuration, mostCells) : 0;
  const hidden = commentsFrom(configuration, size.columns * size.rows) - beyondAll;
  return [
    ...(hidden > 0 ? [texts.remarks.hidden(hidden)] : []),
    ...(beyondAll > 0 ? [texts.remarks.mostCells(beyondAll, mostCells)] : []),
  ];
}

function remarksOnRanges(configuration: Configuration, texts: Texts): string[] {
  return table.preferences.flatMap((preference) => {
    const { key, row, usable } = preference;
    if (!row || !usable || !isScalar(configuration, key)) {
      return [];
    }
    const drawn = usableFloat(configuration, key);
    return drawn === readFloat(configuration, key, drawn)
      ? []
      : [texts.remarks.clamped(row[texts.language], String(drawn))];
  });
}

/** The phone reads the first and refuses the second. */
export interface Remarks {
  notes: string[];
  refusal?: string;
}

/** `size` is that of the configuration's JSON text, in bytes. */
export function remarksOn(configuration: Configuration, size: number, texts: Texts): Remarks {
  const { remarks } = texts;
  if (configuration.keys.length === 0) {
    return { notes: [remarks.empty] };
  }
  const log = readString(configuration, table.logKey);
  const notes = [
    ...remarksOnComments(configuration, texts),
    ...remarksOnRanges(configuration, texts),
    ...remarksOnKeys(configuration, texts),
    ...(readBool(configuration, table.hidesInWeChatKey) ? [remarks.hides] : []),
    ...(readBool(configuration, table.logEnabledKey) ? [remarks.logOn] : []),
    ...(log !== "" ? [remarks.log(log.length)] : []),
  ];
  return size > table.largestText ? { notes, refusal: texts.tooLarge(size, table.largestText) } : { notes };
}
