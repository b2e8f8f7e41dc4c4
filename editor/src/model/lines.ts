// The comments as lines of one text. A line break within a comment is shown as a sign of its own.

import { Configuration } from "./configuration";
import { mostSlots, slotText, usedSlots, withSlots } from "./slots";

const breakSign = "↵";

function lineOf(text: string): string {
  return text.replace(/\r\n|[\r\n]/g, breakSign);
}

function allTexts(configuration: Configuration): string[] {
  return Array.from({ length: usedSlots(configuration) }, (_, index) => slotText(configuration, index));
}

/** All comments up to the last, one a line; undefined when they have more characters than that. */
export function linesOf(configuration: Configuration, most: number): string | undefined {
  const texts = allTexts(configuration);
  const length = texts.reduce((sum, each) => sum + each.length + 1, 0);
  return length > most ? undefined : texts.map(lineOf).join("\n");
}

/** The same with these lines as comments. A line that stands there already, here or elsewhere, keeps its comment. */
export function withLines(configuration: Configuration, text: string): Configuration {
  const old = allTexts(configuration);
  const broken = new Map(old.map((each) => [lineOf(each), each]));
  const lines = text.split(/\r\n|[\r\n]/);
  // Whatever is too much for the slots stays together in the last.
  if (lines.length > mostSlots) {
    lines.push(lines.splice(mostSlots - 1).join(breakSign));
  }
  const texts: [number, string][] = lines.map((line, index) => {
    const before = old[index];
    const kept = before !== undefined && lineOf(before) === line ? before : broken.get(line);
    return [index, kept ?? line.split(breakSign).join("\n")];
  });
  for (let index = lines.length; index < old.length; ++index) {
    texts.push([index, ""]);
  }
  return withSlots(configuration, texts);
}
