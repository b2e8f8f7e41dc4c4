// A QR code that fills the window at a tap: a large one has modules too small for a camera else.

import { codeOf, pictureOf } from "../transfer/qr";
import { Texts } from "../texts";
import { element, show } from "./dom";

export interface CodeView {
  element: HTMLElement;
  /** Shows the code of a text; false when no code holds it. */
  show(text: string): boolean;
}

export function codeView(texts: Texts): CodeView {
  const image = element("img", { class: "code" });
  const frame = element(
    "button",
    { type: "button", class: "code-button", "aria-label": texts.codeLarge, onclick: () => enlarge(!isLarge) },
    image,
  );
  let isLarge = false;
  let modules = 0;

  // As many whole pixels of the screen for each module as there is room for, so that all are equal.
  const fill = (): void => {
    const pixels = window.devicePixelRatio * Math.min(window.innerWidth, window.innerHeight);
    const width = (modules * Math.max(Math.floor(pixels / modules), 1)) / window.devicePixelRatio;
    image.style.width = isLarge ? `${width}px` : "";
  };
  const enlarge = (large: boolean): void => {
    isLarge = large;
    frame.classList.toggle("large", large);
    frame.setAttribute("aria-expanded", String(large));
    fill();
  };
  frame.addEventListener("keydown", (event) => event.key === "Escape" && enlarge(false));
  window.addEventListener("resize", fill);

  return {
    element: frame,
    show(text) {
      const code = codeOf(text);
      modules = code?.length ?? 0;
      show(code !== undefined, frame);
      image.src = code ? pictureOf(code, 4) : "";
      image.alt = texts.codeName(text.length);
      enlarge(false);
      return code !== undefined;
    },
  };
}
