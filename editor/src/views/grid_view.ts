// The grid as the phone draws it: the panel with its cells, to choose, to type into and to drag.

import { colorOf, translucent } from "../model/colors";
import { Geometry, GridSize, gridSize, usableFloat } from "../model/grid";
import { slotText, withSlots } from "../model/slots";
import { Page } from "../page";
import { Frame, table } from "../table";
import { element } from "./dom";
import { makeDraggable } from "./dragging";
import { Title, TitleFitting } from "./title_fitting";

const { grid: numbers, look } = table;

function px(length: number): string {
  return `${length}px`;
}

function place(view: HTMLElement, frame: Frame): void {
  view.style.left = px(frame.x);
  view.style.top = px(frame.y);
  view.style.width = px(frame.width);
  view.style.height = px(frame.height);
}

interface Cell {
  button: HTMLButtonElement;
  title: HTMLElement;
  marker: HTMLElement;
}

export class GridView {
  readonly element: HTMLElement;
  private readonly panel = element("div", { class: "panel" });
  private readonly background = element("div", { class: "panel-background" });
  private readonly heading = element("div", { class: "panel-title", "aria-hidden": "true" }, look.title);
  private readonly rows: HTMLElement;
  private readonly fitting: TitleFitting;
  private cells: Cell[] = [];
  private size: GridSize = { columns: 0, rows: 0 };

  constructor(
    private readonly page: Page,
    /** Called when a user wants to type into the chosen cell. */
    private readonly edit: () => void,
  ) {
    const box = element("div", { class: "title-box", "aria-hidden": "true" });
    this.rows = element("div", { role: "grid", "aria-label": page.texts.grid });
    this.panel.append(this.background, this.heading, this.rows, box);
    this.fitting = new TitleFitting(box);
    this.element = element("div", { class: "stage" }, this.panel);
    this.rows.addEventListener("keydown", (event) => this.pressed(event));
    makeDraggable(this.rows, {
      cellAt: (x, y) => this.cellAt(x, y),
      carried: (from, over, x, y) => this.showCarried(from, over, x, y),
      dropped: (from, on) => this.drop(from, on),
    });
    page.listen(() => this.update());
  }

  /** Puts the keyboard's focus on the chosen cell. */
  focus(): void {
    this.cells[this.page.chosen]?.button.focus();
  }

  private update(): void {
    const { configuration } = this.page;
    const size = gridSize(configuration);
    const scale = usableFloat(configuration, look.scaleKey);
    const geometry = new Geometry(size, scale);
    if (size.columns !== this.size.columns || size.rows !== this.size.rows) {
      this.size = size;
      this.build();
    }
    this.updatePanel(geometry, scale);
    const fontSize = scale * usableFloat(configuration, look.fontSizeKey);
    const inset = numbers.textInset;
    this.fitting.setRoom(geometry.cellWidth - inset, geometry.cellHeight - inset, fontSize);
    const style = {
      background: translucent(colorOf(configuration, look.cellKey), look.cellAlpha),
      color: translucent(colorOf(configuration, look.textKey), look.textAlpha),
      fontSize: px(fontSize),
    };
    this.cells.forEach((cell, index) => {
      place(cell.button, geometry.cellFrame(index));
      Object.assign(cell.button.style, style);
      this.updateCell(cell, index);
    });
  }

  private updatePanel(geometry: Geometry, scale: number): void {
    const { configuration } = this.page;
    this.panel.style.width = px(geometry.width);
    this.panel.style.height = px(geometry.height);
    this.panel.style.borderRadius = px(look.panelCornerRadius);
    this.panel.style.opacity = String(usableFloat(configuration, look.alphaKey));
    this.background.style.background = translucent(colorOf(configuration, look.backgroundKey), look.backgroundAlpha);
    place(this.heading, { ...numbers.titleFrame, width: geometry.width });
    this.heading.style.lineHeight = px(numbers.titleFrame.height);
    this.heading.style.fontSize = px(look.titleSize * scale);
    this.heading.style.color = `rgba(255, 255, 255, ${look.titleAlpha})`;
  }

  private updateCell(cell: Cell, index: number): void {
    const { texts, configuration, chosen } = this.page;
    const text = slotText(configuration, index);
    const shown: Title = this.fitting.fit(text || String(index + 1));
    if (cell.title.textContent !== shown.text) {
      cell.title.textContent = shown.text;
    }
    cell.marker.hidden = !shown.cut;
    const spoken = text.length > 200 ? text.slice(0, 200) + "…" : text;
    cell.button.setAttribute(
      "aria-label",
      text === "" ? texts.cellEmpty(index + 1) : texts.cellSays(index + 1, spoken, shown.cut),
    );
    cell.button.tabIndex = index === chosen ? 0 : -1;
    cell.button.classList.toggle("chosen", index === chosen);
    cell.button.parentElement?.setAttribute("aria-selected", String(index === chosen));
  }

  private build(): void {
    this.cells = [];
    this.rows.replaceChildren();
    for (let row = 0; row < this.size.rows; ++row) {
      const made = element("div", { role: "row" });
      for (let column = 0; column < this.size.columns; ++column) {
        made.append(element("div", { role: "gridcell" }, this.buildCell(this.cells.length)));
      }
      this.rows.append(made);
    }
  }

  private buildCell(index: number): HTMLButtonElement {
    const title = element("span", { class: "cell-title" });
    const marker = element("span", { class: "marker" });
    Object.assign(marker.style, {
      width: px(numbers.markerSize),
      height: px(numbers.markerSize),
      top: px(numbers.markerTop),
      right: px(numbers.markerFromRight - numbers.markerSize),
    });
    const choose = (): void => {
      this.page.choose(index);
      this.edit();
    };
    const button = element("button", { type: "button", class: "cell", onclick: choose }, title, marker);
    button.style.borderRadius = px(look.cellCornerRadius);
    this.cells.push({ button, title, marker });
    return button;
  }

  private pressed(event: KeyboardEvent): void {
    const steps: Record<string, number> = {
      ArrowLeft: -1,
      ArrowRight: 1,
      ArrowUp: -this.size.columns,
      ArrowDown: this.size.columns,
    };
    const { chosen, cells } = this.page;
    const step = steps[event.key];
    if (event.key === "Home" || event.key === "End") {
      this.page.choose(event.key === "Home" ? 0 : cells - 1);
    } else if (event.key === "Delete" || event.key === "Backspace") {
      this.page.change(withSlots(this.page.configuration, [[chosen, ""]]));
    } else if (step === undefined || chosen + step < 0 || chosen + step >= cells) {
      return;
    } else if (event.altKey) {
      this.page.move(chosen, chosen + step);
    } else {
      this.page.choose(chosen + step);
    }
    event.preventDefault();
    this.focus();
  }

  private cellAt(x: number, y: number): number | undefined {
    const found = this.cells.findIndex(({ button }) => {
      // Where the cell lies, not where it is carried to.
      const panel = this.panel.getBoundingClientRect();
      const left = panel.left + parseFloat(button.style.left);
      const top = panel.top + parseFloat(button.style.top);
      return (
        x >= left && x < left + parseFloat(button.style.width) && y >= top && y < top + parseFloat(button.style.height)
      );
    });
    return found >= 0 ? found : undefined;
  }

  private showCarried(from: number, over: number, x: number, y: number): void {
    this.cells.forEach(({ button }, index) => {
      button.classList.toggle("carried", index === from);
      button.classList.toggle("target", index === over && over !== from);
      button.style.transform = index === from ? `translate(${x}px, ${y}px) scale(1.06)` : "";
    });
  }

  private drop(from: number, on: number | undefined): void {
    for (const { button } of this.cells) {
      button.classList.remove("carried", "target");
      button.style.transform = "";
    }
    if (on !== undefined) {
      this.page.move(from, on);
    }
  }
}
