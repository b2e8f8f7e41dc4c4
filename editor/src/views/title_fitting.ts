// How much of a comment a cell shows, as the phone finds it: the longest beginning whose wrapped lines fit.

import { table } from "../table";

/** What a user takes for one character; a browser without the division takes code points. */
const characters: (text: string) => string[] =
  typeof Intl.Segmenter === "function"
    ? ((segmenter) => (text: string) => Array.from(segmenter.segment(text), (each) => each.segment))(
        new Intl.Segmenter(undefined, { granularity: "grapheme" }),
      )
    : (text) => Array.from(text);

export interface Title {
  text: string;
  cut: boolean;
}

/** Measures texts in a place of the page that nobody sees. */
export class TitleFitting {
  private readonly box: HTMLElement;
  private readonly known = new Map<string, Title>();
  private look = "";
  private height = 0;
  /** No more of a text is looked at: units that take no room have no other end. */
  private mostUnits = 0;

  constructor(box: HTMLElement) {
    this.box = box;
  }

  /** The room for titles and the size of their letters, in px. */
  setRoom(width: number, height: number, fontSize: number): void {
    const look = `${width} ${height} ${fontSize}`;
    if (look !== this.look) {
      this.look = look;
      this.known.clear();
      this.height = height;
      const squares = (Math.max(width, 0) * Math.max(height, 0)) / fontSize ** 2;
      this.mostUnits = table.look.titleUnitsAtLeast + Math.floor(squares * table.look.titleUnitsPerSquare);
      this.box.style.width = `${Math.max(width, 0)}px`;
      this.box.style.fontSize = `${fontSize}px`;
    }
  }

  fit(text: string): Title {
    const before = this.known.get(text);
    if (before) {
      return before;
    }
    const title = this.search(text);
    this.known.set(text, title);
    return title;
  }

  private fits(text: string): boolean {
    // A browser gives an empty last line no height, the phone does.
    this.box.textContent = text.endsWith("\n") ? text + "\u200b" : text;
    return this.box.getBoundingClientRect().height <= this.height;
  }

  private search(text: string): Title {
    const front = text.slice(0, this.mostUnits);
    if (this.fits(front)) {
      return { text: front, cut: front !== text };
    }
    const parts = characters(front);
    let fitting = 0;
    let tooMany = parts.length;
    while (tooMany - fitting > 1) {
      const middle = (fitting + tooMany) >> 1;
      if (this.fits(parts.slice(0, middle).join(""))) {
        fitting = middle;
      } else {
        tooMany = middle;
      }
    }
    return { text: parts.slice(0, Math.max(fitting, 1)).join(""), cut: true };
  }
}
