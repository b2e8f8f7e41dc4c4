// The number of cells: a preset, or columns and rows of one's own.

import { customSize, gridSize, presetOf, sizeFor, withSize } from "../model/grid";
import { commentsFrom } from "../model/remarks";
import { usedSlots } from "../model/slots";
import { Page } from "../page";
import { table } from "../table";
import { button, element, freshId, group, setValue, show } from "./dom";

const { grid } = table;

function numberChoice(page: Page, title: string, key: string, most: number): [HTMLElement, HTMLSelectElement] {
  const id = freshId();
  const select = element("select", {
    id,
    onchange: () => page.change(page.configuration.with([[key, select.value]])),
  });
  for (let number = 1; number <= most; ++number) {
    select.append(element("option", { value: String(number) }, String(number)));
  }
  return [element("div", { class: "row pair" }, element("label", { for: id }, title), select), select];
}

export function sizeView(page: Page): HTMLElement {
  const { texts } = page;
  const name = freshId();
  const choosePreset = (index: number): void =>
    page.change(page.configuration.with([[grid.presetKey, String(index)]]));
  const labels = [...grid.presets.map(([columns, rows]) => String(columns * rows)), texts.custom];
  const choices = labels.map((label, index) => {
    const input = element("input", { type: "radio", name, onchange: () => choosePreset(index) });
    return { input, label: element("label", {}, input, element("span", {}, label)) };
  });
  const segments = element(
    "div",
    { class: "segments row", role: "radiogroup", "aria-label": texts.sizeCells },
    ...choices.map((each) => each.label),
  );
  const [columnsRow, columns] = numberChoice(page, texts.columns, grid.columnsKey, grid.mostColumns);
  const [rowsRow, rows] = numberChoice(page, texts.rows, grid.rowsKey, grid.mostRows);
  const beyondText = element("span");
  const enlarge = button("", () => {
    const larger = sizeFor(usedSlots(page.configuration));
    page.change(larger ? withSize(page.configuration, larger) : page.configuration);
  });
  const beyond = element("div", { class: "row pair", role: "status" }, beyondText, enlarge);

  page.listen(() => {
    const { configuration } = page;
    const preset = presetOf(configuration);
    choices.forEach(({ input }, index) => (input.checked = index === preset));
    show(preset === grid.presets.length, columnsRow, rowsRow);
    const custom = customSize(configuration);
    setValue(columns, String(custom.columns));
    setValue(rows, String(custom.rows));
    const size = gridSize(configuration);
    const cells = size.columns * size.rows;
    const hidden = commentsFrom(configuration, cells);
    beyondText.textContent = texts.beyond(hidden, cells);
    const larger = sizeFor(usedSlots(configuration));
    show(hidden > 0, beyond);
    show(larger !== undefined, enlarge);
    enlarge.textContent = larger ? texts.enlarge(larger.columns * larger.rows) : "";
  });
  return group(texts.size, [segments, columnsRow, rowsRow, beyond]);
}
