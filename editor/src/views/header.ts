// The bar at the top: the page's name, and the way back and forth.

import { Page } from "../page";
import { button, element } from "./dom";

export function header(page: Page): HTMLElement {
  const { texts } = page;
  const undo = button("↩", () => page.undo(), { "aria-label": texts.undo, title: texts.undo });
  const redo = button("↪", () => page.redo(), { "aria-label": texts.redo, title: texts.redo });
  page.listen(() => {
    undo.disabled = !page.canUndo;
    redo.disabled = !page.canRedo;
  });
  document.addEventListener("keydown", (event) => {
    const isUndo = (event.ctrlKey || event.metaKey) && !event.altKey && event.key.toLowerCase() === "z";
    const isRedo = (event.ctrlKey && event.key.toLowerCase() === "y") || (isUndo && event.shiftKey);
    // A field that is not the set's own undoes by itself.
    if ((isUndo || isRedo) && !(event.target instanceof HTMLElement && event.target.classList.contains("packed"))) {
      event.preventDefault();
      if (isRedo) {
        page.redo();
      } else {
        page.undo();
      }
    }
  });
  const title = element("h1", {}, element("b", {}, "Corvel"), " ", texts.title);
  return element("header", {}, title, element("div", {}, undo, redo));
}
