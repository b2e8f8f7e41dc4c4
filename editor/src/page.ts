// What all views share: the configuration with its past, the chosen cell, the words, and who is told of changes.

import { Configuration } from "./model/configuration";
import { gridSize } from "./model/grid";
import { History } from "./model/history";
import { withMoved } from "./model/slots";
import { KeepFault, keep, loadKept, onKeptElsewhere } from "./store";
import { Texts } from "./texts";

/** What is kept at once; a larger set only when nothing has changed for a moment, and before the page goes. */
const keptAtOnce = 200_000;
const keepLater = 400;

export class Page {
  /** The cell that the keys and the field act on. */
  chosen = 0;
  /** Why the browser does not keep the set. */
  keepFault: KeepFault | undefined;
  /** Whether what there is now has left the page. */
  private carriedOut = true;
  private readonly history: History<Configuration>;
  private readonly listeners: (() => void)[] = [];
  private timer = 0;
  private keptSize = 0;

  constructor(
    readonly texts: Texts,
    /** Says something to the user, to one who listens too. */
    readonly say: (text: string) => void,
  ) {
    const kept = loadKept();
    this.history = new History(kept?.present ?? Configuration.empty, kept?.past);
    window.addEventListener("pagehide", () => this.keepPending());
    document.addEventListener("visibilitychange", () => this.keepPending());
    window.addEventListener("beforeunload", (event) => {
      if (this.keepFault && !this.carriedOut) {
        event.preventDefault();
        event.returnValue = "";
      }
    });
    onKeptElsewhere((present) => {
      if (present.toText() !== this.configuration.toText()) {
        this.history.change(present, "", Date.now());
        this.tell();
        say(texts.otherTab);
      }
    });
  }

  get configuration(): Configuration {
    return this.history.present;
  }
  get canUndo(): boolean {
    return this.history.canUndo;
  }
  get canRedo(): boolean {
    return this.history.canRedo;
  }
  get cells(): number {
    const size = gridSize(this.configuration);
    return size.columns * size.rows;
  }

  /** Calls back after every change, and once now. */
  listen(changed: () => void): void {
    this.listeners.push(changed);
    changed();
  }

  /** Quick changes of one kind are undone as one; "" never joins others. */
  change(next: Configuration, kind = ""): void {
    if (next !== this.configuration) {
      this.history.change(next, kind, Date.now());
      this.changed();
    }
  }

  undo(): void {
    this.history.undo();
    this.changed();
  }

  redo(): void {
    this.history.redo();
    this.changed();
  }

  choose(index: number): void {
    this.chosen = Math.max(0, Math.min(index, this.cells - 1));
    this.tell();
  }

  /** Moves a comment to another cell, which is chosen then. */
  move(from: number, to: number): void {
    if (from === to || to < 0 || to >= this.cells) {
      return;
    }
    this.chosen = to;
    this.change(withMoved(this.configuration, from, to));
    this.say(this.texts.moved(from + 1, to + 1));
  }

  /** To be called when the set was copied. */
  wasCarriedOut(): void {
    this.carriedOut = true;
  }

  private changed(): void {
    this.carriedOut = false;
    window.clearTimeout(this.timer);
    if (this.keptSize < keptAtOnce) {
      this.keepNow();
    } else {
      this.timer = window.setTimeout(() => {
        this.keepNow();
        this.tell();
      }, keepLater);
    }
    this.tell();
  }

  private keepPending(): void {
    if (this.timer !== 0) {
      this.keepNow();
    }
  }

  private keepNow(): void {
    window.clearTimeout(this.timer);
    this.timer = 0;
    this.keepFault = keep({ present: this.configuration, past: this.history.latest(30) });
    this.keptSize = this.configuration.keys.reduce((sum, key) => sum + (this.configuration.raw(key)?.length ?? 0), 0);
  }

  private tell(): void {
    this.chosen = Math.min(this.chosen, this.cells - 1);
    for (const listener of this.listeners) {
      listener();
    }
  }
}
