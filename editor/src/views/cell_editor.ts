// The field below the grid: the comment of the chosen cell.

import { slotText, withSlots } from "../model/slots";
import { Page } from "../page";
import { button, element, freshId, setValue } from "./dom";

/** A field with more text than this would keep the browser busy. */
const longestTyped = 50_000;

export class CellEditor {
  readonly element: HTMLElement;
  private readonly field: HTMLTextAreaElement;
  private readonly label: HTMLLabelElement;
  private readonly warning = element("p", { class: "note", hidden: true });
  private readonly earlier: HTMLButtonElement;
  private readonly later: HTMLButtonElement;

  constructor(private readonly page: Page) {
    const { texts } = page;
    const id = freshId();
    this.label = element("label", { for: id });
    // Spoken only. The attribute for words that stand nowhere is too young.
    const hint = element("span", { id: freshId(), hidden: true }, texts.cellHint);
    this.field = element("textarea", {
      id,
      rows: "2",
      enterkeyhint: "next",
      autocomplete: "off",
      "aria-describedby": hint.id,
      oninput: () => this.typed(),
    });
    this.field.addEventListener("keydown", (event) => this.pressed(event));
    this.earlier = button("←", () => this.go(-1), { "aria-label": texts.earlierCell });
    this.later = button("→", () => this.go(1), { "aria-label": texts.laterCell });
    const put = (text: string): void => page.change(withSlots(page.configuration, [[page.chosen, text]]));
    this.element = element(
      "div",
      { class: "cell-editor" },
      element("div", { class: "bar" }, this.earlier, this.label, this.later),
      this.field,
      hint,
      this.warning,
      element(
        "div",
        { class: "bar" },
        button(texts.moveEarlier, () => page.move(page.chosen, page.chosen - 1)),
        button(texts.moveLater, () => page.move(page.chosen, page.chosen + 1)),
        button(texts.empty, () => put(""), { class: "red" }),
      ),
    );
    page.listen(() => this.update());
  }

  /** Lets the user type. */
  focus(): void {
    this.field.focus();
    this.field.select();
  }

  private update(): void {
    const { texts, chosen, cells, configuration } = this.page;
    const text = slotText(configuration, chosen);
    const tooLong = text.length > longestTyped;
    this.label.textContent = texts.cell(chosen + 1);
    this.field.placeholder = String(chosen + 1);
    this.field.readOnly = tooLong;
    this.warning.hidden = !tooLong;
    this.warning.textContent = tooLong ? texts.cellTooLong(text.length) : "";
    const shown = tooLong ? text.slice(0, 200) + "…" : text;
    if (this.field.value !== shown.replace(/\r\n?/g, "\n")) {
      setValue(this.field, shown);
    }
    this.earlier.disabled = chosen === 0;
    this.later.disabled = chosen === cells - 1;
  }

  private typed(): void {
    const { chosen, configuration } = this.page;
    this.page.change(withSlots(configuration, [[chosen, this.field.value]]), `cell ${chosen}`);
  }

  private go(step: number): void {
    this.page.choose(this.page.chosen + step);
    this.focus();
  }

  private pressed(event: KeyboardEvent): void {
    // Enter that ends the choice of an input method belongs to it; one browser tells it by the code alone.
    if (event.key === "Enter" && !event.shiftKey && !event.isComposing && event.keyCode !== 229) {
      event.preventDefault();
      this.go(1);
    }
  }
}
