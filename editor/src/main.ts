// Puts the page together.

import { Configuration } from "./model/configuration";
import { Page } from "./page";
import { preferencesOf } from "./table";
import { textsFor } from "./texts";
import { CellEditor } from "./views/cell_editor";
import { button, element, group, show } from "./views/dom";
import { giveView } from "./views/give_view";
import { GridView } from "./views/grid_view";
import { header } from "./views/header";
import { linesView } from "./views/lines_view";
import { othersView } from "./views/others_view";
import { Sayings } from "./views/sayings";
import { settingRow } from "./views/setting_rows";
import { sizeView } from "./views/size_view";
import { TakeView } from "./views/take_view";

const texts = textsFor(navigator.languages);
const sayings = new Sayings();
const page = new Page(texts, (text) => sayings.say(text));

document.documentElement.lang = texts.language === "zh" ? "zh-CN" : "en";
document.title = `Corvel ${texts.title}`;

function gridSection(): HTMLElement {
  const editor = new CellEditor(page);
  const grid = new GridView(page, () => editor.focus());
  const section = group(texts.grid, [grid.element, editor.element], texts.gridHint + texts.gap + texts.gridNote);
  section.append(element("p", { class: "note keys" }, texts.gridKeys));
  return section;
}

function settings(): HTMLElement[] {
  const rows = (name: "switches" | "latency" | "sliders" | "colors"): HTMLElement[] =>
    preferencesOf(name).map((each) => settingRow(page, each));
  const latency = element("details", {}, element("summary", {}, texts.latency), ...rows("latency"));
  return [
    group(texts.look, [...rows("sliders"), ...rows("colors")]),
    group(texts.switches, [...rows("switches"), latency], texts.rowNote),
  ];
}

function banner(): HTMLElement {
  const made = element("p", { class: "banner", role: "alert" });
  page.listen(() => {
    show(page.keepFault !== undefined, made);
    made.textContent = page.keepFault === "full" ? texts.notKeptLarge : page.keepFault ? texts.notKept : "";
  });
  return made;
}

function startOver(): void {
  page.change(Configuration.empty);
  page.say(texts.startedOver);
}

const take = new TakeView(page);
document.body.append(
  header(page),
  element(
    "main",
    {},
    element("div", { class: "column" }, banner(), gridSection(), sizeView(page)),
    element("div", { class: "column" }, linesView(page), giveView(page), take.element),
    element(
      "div",
      { class: "column" },
      ...settings(),
      othersView(page),
      element(
        "div",
        { class: "card" },
        element("div", { class: "row bar" }, button(texts.startOver, startOver, { class: "red" })),
      ),
    ),
  ),
  element("footer", { class: "note" }, texts.about),
  sayings.element,
);
take.takeFromAddress();
window.addEventListener("hashchange", () => take.takeFromAddress());
