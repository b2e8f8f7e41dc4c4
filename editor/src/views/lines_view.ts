// All comments as lines of one field.

import { linesOf, withLines } from "../model/lines";
import { Page } from "../page";
import { element, freshId, group } from "./dom";

/** A field with more text than this would keep the browser busy. */
const longestShown = 400_000;

export function linesView(page: Page): HTMLElement {
  const { texts } = page;
  const id = freshId();
  const field = element("textarea", {
    class: "lines",
    rows: "8",
    "aria-label": texts.lines,
    "aria-describedby": id,
    autocomplete: "off",
    spellcheck: "false",
  });
  const note = element("p", { class: "note", id }, texts.linesHint);
  field.addEventListener("input", () => page.change(withLines(page.configuration, field.value), "lines"));
  page.listen(() => {
    const lines = linesOf(page.configuration, longestShown);
    field.disabled = lines === undefined;
    note.textContent = lines === undefined ? texts.linesTooLong : texts.linesHint;
    // What differs by empty lines at the end is being typed.
    if (field.value.replace(/\n+$/, "") !== lines?.replace(/\n+$/, "")) {
      field.value = lines ?? "";
    }
  });
  const section = group(texts.lines, [field]);
  section.append(note);
  return section;
}
