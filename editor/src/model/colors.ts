// Colours as the phone reads them: #RRGGBB or RRGGBB, no short form.

import { preferenceOf } from "../table";
import { Configuration } from "./configuration";
import { readString } from "./stored_values";

/** The colour under the key in the form #rrggbb: the first hexadecimal number of its text, black without one. */
export function colorOf(configuration: Configuration, key: string): string {
  const text = readString(configuration, key) || String(preferenceOf(key)?.default);
  const digits = /^\s*(?:0[xX])?([0-9a-fA-F]+)/.exec(text.startsWith("#") ? text.slice(1) : text)?.[1] ?? "0";
  // What has more digits than the phone's number holds counts as the largest number.
  const significant = digits.replace(/^0+/, "");
  const value = significant.length > 8 ? 0xffffff : parseInt(significant || "0", 16) & 0xffffff;
  return "#" + value.toString(16).padStart(6, "0");
}

/** The colour for a style sheet, that opaque. */
export function translucent(color: string, alpha: number): string {
  const part = (at: number): number => parseInt(color.slice(at, at + 2), 16);
  return `rgba(${part(1)}, ${part(3)}, ${part(5)}, ${alpha})`;
}
