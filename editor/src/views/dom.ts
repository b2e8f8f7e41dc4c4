// Elements, made in one expression.

type Child = Node | string;

interface Properties {
  [name: string]: string | boolean | EventListener | undefined;
}

/** An element with attributes, with listeners under names such as `onclick`, and children. */
export function element<Name extends keyof HTMLElementTagNameMap>(
  name: Name,
  properties: Properties = {},
  ...children: Child[]
): HTMLElementTagNameMap[Name] {
  const made = document.createElement(name);
  for (const [key, value] of Object.entries(properties)) {
    if (typeof value === "function") {
      made.addEventListener(key.slice(2), value);
    } else if (value === true) {
      made.setAttribute(key, "");
    } else if (typeof value === "string") {
      made.setAttribute(key, value);
    }
  }
  made.append(...children);
  return made;
}

export function button(title: string, press: () => void, properties: Properties = {}): HTMLButtonElement {
  return element("button", { type: "button", onclick: press, ...properties }, title);
}

let names = 0;

/** A name that no other element has. */
export function freshId(): string {
  return `e${++names}`;
}

/** A titled part of the page: a card of rows, with a note below. */
export function group(title: string, rows: Child[], note?: string): HTMLElement {
  const id = freshId();
  return element(
    "section",
    { "aria-labelledby": id },
    element("h2", { id }, title),
    element("div", { class: "card" }, ...rows),
    ...(note === undefined ? [] : [element("p", { class: "note" }, note)]),
  );
}

/** Shows or hides. */
export function show(shown: boolean, ...elements: HTMLElement[]): void {
  for (const each of elements) {
    each.hidden = !shown;
  }
}

/** Sets a field's text where it differs: setting moves the cursor. */
export function setValue(field: HTMLTextAreaElement | HTMLInputElement | HTMLSelectElement, value: string): void {
  if (field.value !== value) {
    field.value = value;
  }
}
