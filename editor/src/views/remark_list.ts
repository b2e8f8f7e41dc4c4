// What the phone says to a text, in the shape of its toast, and why.

import { element, show } from "./dom";

export interface RemarkList {
  element: HTMLElement;
  /** The words before the toast, its text, and what there is to say besides. */
  show(intro: string, toast: string, remarks: string[]): void;
  hide(): void;
}

export function remarkList(): RemarkList {
  const intro = element("span");
  const toast = element("span", { class: "toast", lang: "zh" });
  const list = element("ul");
  const whole = element("div", { class: "row remarks", role: "status" }, element("p", {}, intro, " ", toast), list);
  return {
    element: whole,
    show(introText, toastText, remarks) {
      intro.textContent = introText;
      toast.textContent = toastText;
      const old = Array.from(list.children, (each) => each.textContent);
      if (old.join("\n") !== remarks.join("\n")) {
        list.replaceChildren(...remarks.map((each) => element("li", {}, each)));
      }
      show(remarks.length > 0, list);
      show(true, whole);
    },
    hide() {
      show(false, whole);
    },
  };
}
