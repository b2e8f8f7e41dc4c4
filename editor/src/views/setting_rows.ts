// Rows for the preferences that the settings panel edits. A row whose key is in the set has a ✕ to take it out.

import { colorOf } from "../model/colors";
import { readBool, readFloat } from "../model/stored_values";
import { Page } from "../page";
import { Preference } from "../table";
import { button, element, freshId, setValue, show } from "./dom";

/** A control, what keeps it up to date, and what stands beside it. */
interface Control {
  input: HTMLInputElement;
  update(): void;
}

function switchFor(page: Page, { key }: Preference): Control {
  const input = element("input", { type: "checkbox", role: "switch", class: "switch" });
  input.addEventListener("change", () => page.change(page.configuration.with([[key, String(input.checked)]])));
  return {
    input,
    update: () => (input.checked = readBool(page.configuration, key)),
  };
}

function sliderFor(page: Page, preference: Preference, shown: HTMLElement): Control {
  const { key, slider = [0, 1] } = preference;
  const step = slider[1] - slider[0] > 5 ? "0.5" : "0.05";
  const input = element("input", { type: "range", min: String(slider[0]), max: String(slider[1]), step });
  const put = (): void => page.change(page.configuration.with([[key, String(Number(input.value))]]), key);
  input.addEventListener("input", put);
  return {
    input,
    update: () => {
      const value = readFloat(page.configuration, key, Number(preference.default));
      setValue(input, String(value));
      shown.textContent = String(Number(value.toFixed(3)));
    },
  };
}

function colorFor(page: Page, { key }: Preference, shown: HTMLElement): Control {
  const input = element("input", { type: "color" });
  const put = (): void =>
    page.change(page.configuration.with([[key, JSON.stringify(input.value.toUpperCase())]]), key);
  input.addEventListener("input", put);
  return {
    input,
    update: () => {
      const color = colorOf(page.configuration, key);
      setValue(input, color);
      shown.textContent = color.toUpperCase();
    },
  };
}

export function settingRow(page: Page, preference: Preference): HTMLElement {
  const { texts } = page;
  const title = preference.row?.[texts.language] ?? preference.key;
  const [id, noteId] = [freshId(), freshId()];
  const shown = element("span", { class: "value", "aria-hidden": "true" });
  const { input, update } =
    preference.type === "bool"
      ? switchFor(page, preference)
      : preference.slider
        ? sliderFor(page, preference, shown)
        : colorFor(page, preference, shown);
  input.id = id;
  input.setAttribute("aria-describedby", noteId);
  const leave = button("✕", () => page.change(page.configuration.with([[preference.key, undefined]])), {
    class: "leave",
    title: texts.leave,
    "aria-label": texts.leaveRow(title),
  });
  const text = preference.text[texts.language].replace(/ %/g, "\u00a0%");
  const note = texts.language === "en" ? `${preference.row?.zh ?? ""}: ${text}` : text;
  page.listen(() => {
    update();
    const isSet = page.configuration.has(preference.key);
    show(isSet, leave);
    shown.classList.toggle("faint", !isSet);
  });
  return element(
    "div",
    { class: `row setting ${preference.slider ? "with-slider" : ""}` },
    element(
      "div",
      { class: "setting-words" },
      element("label", { for: id }, title),
      element("span", { class: "note", id: noteId }, note),
    ),
    shown,
    input,
    leave,
  );
}
