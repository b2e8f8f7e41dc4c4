// Short words to the user that come and go, for one who listens too.

import { element } from "./dom";

const shownFor = 3500;

export class Sayings {
  readonly element = element("div", { class: "saying", role: "status", "aria-live": "polite" });
  private timer = 0;

  say(text: string): void {
    window.clearTimeout(this.timer);
    this.element.textContent = text;
    this.element.classList.add("shown");
    this.timer = window.setTimeout(() => this.element.classList.remove("shown"), shownFor);
  }
}
