// What the set carries besides comments and settings: named, and to be taken out.

import { shownKey } from "../model/configuration";
import { slotOf } from "../model/slots";
import { Page } from "../page";
import { preferenceOf, table } from "../table";
import { button, element, group, show } from "./dom";

const mostShown = 100;

function isEditedElsewhere(key: string): boolean {
  const { presetKey, columnsKey, rowsKey } = table.grid;
  const isSize = [presetKey, columnsKey, rowsKey].includes(key);
  return isSize || slotOf(key) !== undefined || preferenceOf(key)?.row !== undefined;
}

export function othersView(page: Page): HTMLElement {
  const { texts } = page;
  const list = element("ul", { class: "plain" });
  const section = group(texts.others, [list], texts.othersNote);
  const rowOf = (key: string): HTMLElement => {
    const meaning = key.startsWith(table.prefix)
      ? (preferenceOf(key)?.text[texts.language] ?? texts.unknownKey)
      : texts.foreignKey;
    const shown = shownKey(key);
    const remove = (): void => page.change(page.configuration.with([[key, undefined]]));
    return element(
      "li",
      { class: "row setting" },
      element("div", { class: "setting-words" }, element("code", {}, shown), element("span", { class: "note" }, meaning)),
      button("✕", remove, { class: "leave", title: texts.remove, "aria-label": texts.removeKey(shown) }),
    );
  };
  let listed = "";
  page.listen(() => {
    const keys = page.configuration.keys.filter((key) => !isEditedElsewhere(key));
    show(keys.length > 0, section);
    if (keys.join("\n") !== listed) {
      listed = keys.join("\n");
      list.replaceChildren(...keys.slice(0, mostShown).map(rowOf));
    }
  });
  return section;
}
