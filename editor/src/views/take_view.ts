// Takes in a string from the phone, a text of comments, a file, a picture of a QR code, or this page's link.

import { withLines } from "../model/lines";
import { commentsFrom } from "../model/remarks";
import { Page } from "../page";
import { keepDraft, loadDraft } from "../store";
import { textOfFile, TextFault } from "../transfer/bytes";
import { Reading, read } from "../transfer/decoding";
import { textInPicture } from "../transfer/qr";
import { pasted } from "./clipboard";
import { button, element, freshId, group, show } from "./dom";
import { remarkList } from "./remark_list";

/** The page reads no larger file, in bytes. */
const largestFile = 64 << 20;
/** What is longer is not shown in the field. */
const longestShown = 200_000;
const readLater = 120;

/** The lines that a text would make, without those at its end that hold nothing. */
function linesIn(text: string): string {
  return text.replace(/^\ufeff/, "").replace(/[\r\n]+$/, "");
}

export class TakeView {
  readonly element: HTMLElement;
  private readonly field: HTMLTextAreaElement;
  private readonly source = element("p", { class: "row", hidden: true });
  private readonly problem = element("p", { class: "row red", role: "alert", hidden: true });
  private readonly remarks = remarkList();
  private readonly actions: HTMLElement;
  private readonly takeButton: HTMLButtonElement;
  private readonly linesButton: HTMLButtonElement;
  /** What was read last: the field's text, or that of a file. */
  private text = "";
  private reading: Reading = { toast: "" };
  private timer = 0;

  constructor(private readonly page: Page) {
    const { texts } = page;
    const id = freshId();
    this.field = element("textarea", { id, class: "packed", rows: "3", spellcheck: "false", autocomplete: "off" });
    this.field.addEventListener("input", () => this.typed());
    const chooser = element("input", {
      type: "file",
      accept: "image/*,text/*,.txt,.json",
      hidden: true,
      onchange: () => {
        const [file] = chooser.files ?? [];
        void (file && this.readFile(file).then(() => (chooser.value = "")));
      },
    });
    this.takeButton = button(texts.takeIn, () => this.take(), { class: "filled" });
    this.linesButton = button("", () => this.takeLines());
    this.actions = element("div", { class: "bar row" }, this.takeButton, this.linesButton);
    this.element = group(
      texts.take,
      [
        element("div", { class: "row" }, element("label", { for: id }, texts.takeField), this.field),
        element(
          "div",
          { class: "bar row" },
          button(texts.paste, () => void this.pasteIn()),
          button(texts.chooseFile, () => chooser.click()),
          chooser,
        ),
        this.source,
        this.problem,
        this.remarks.element,
        this.actions,
      ],
      texts.takeHint,
    );
    this.field.value = loadDraft();
    this.consider(this.field.value);
    this.acceptDrops();
  }

  /** Takes what the address carries behind its #, and takes it off the address. */
  takeFromAddress(): void {
    const fragment = location.hash.slice(1);
    if (!/^(DM1|CV1)(:|%3A)/i.test(fragment)) {
      return;
    }
    history.replaceState(null, "", location.href.replace(/#.*$/s, ""));
    const { configuration, fault } = read(fragment.replace(/%3A/i, ":"), this.page.texts);
    if (configuration) {
      this.page.change(configuration);
      this.page.say(this.page.texts.fromLink);
    } else {
      this.page.say(this.page.texts.linkBroken(fault ?? ""));
    }
  }

  private typed(): void {
    if (keepDraft(this.field.value) === "full") {
      this.page.say(this.page.texts.notKeptLarge);
    }
    show(false, this.source, this.problem);
    window.clearTimeout(this.timer);
    this.timer = window.setTimeout(() => this.consider(this.field.value), readLater);
  }

  /** Shows what would become of a text. */
  private consider(text: string): void {
    const { texts } = this.page;
    this.text = text;
    this.reading = text === "" ? { toast: "" } : read(text, texts);
    const { configuration, fault, toast } = this.reading;
    const lines = linesIn(text).split(/\r\n|[\r\n]/).length;
    show(configuration !== undefined, this.takeButton);
    show(text !== "" && configuration === undefined, this.linesButton);
    this.linesButton.textContent = texts.takeLines(lines);
    show(text !== "", this.actions);
    if (text === "") {
      this.remarks.hide();
      return;
    }
    const notes = configuration
      ? [
          ...(fault === undefined ? [] : [fault, texts.takeAnyway]),
          texts.takeSet(commentsFrom(configuration, 0), configuration.keys.length),
        ]
      : [fault ?? ""];
    this.remarks.show(texts.phoneWouldShow, toast, notes);
  }

  private take(): void {
    // The field may have changed a moment ago.
    if (this.source.hidden) {
      this.consider(this.field.value);
    }
    if (this.reading.configuration) {
      this.page.change(this.reading.configuration);
      this.finish();
    }
  }

  private takeLines(): void {
    this.page.change(withLines(this.page.configuration, linesIn(this.source.hidden ? this.field.value : this.text)));
    this.finish();
  }

  private finish(): void {
    this.field.value = "";
    keepDraft("");
    show(false, this.source, this.problem);
    this.consider("");
    this.page.choose(0);
    this.page.say(this.page.texts.taken);
  }

  /** Considers a text that did not come from the keyboard. */
  private put(text: string, from?: string): void {
    const fits = text.length <= longestShown;
    this.field.value = fits ? text : "";
    keepDraft(this.field.value);
    show(false, this.problem);
    show(!fits, this.source);
    this.source.textContent = from ?? "";
    this.consider(text);
    this.element.scrollIntoView({ block: "nearest" });
  }

  private complain(problem: string): void {
    show(false, this.source);
    this.problem.textContent = problem;
    show(true, this.problem);
    this.element.scrollIntoView({ block: "nearest" });
  }

  private async pasteIn(): Promise<void> {
    const text = await pasted();
    if (text === undefined) {
      this.field.focus();
      this.page.say(this.page.texts.pasteDenied);
    } else {
      this.put(text);
    }
  }

  private async readFile(file: File): Promise<void> {
    const { texts } = this.page;
    if (file.size > largestFile) {
      this.complain(texts.fileTooLarge(file.name, file.size));
    } else if (file.type.startsWith("image/")) {
      await this.readPicture(file);
    } else {
      try {
        this.put(textOfFile(new Uint8Array(await file.arrayBuffer())), texts.fromFile(file.name));
      } catch (fault) {
        const why = fault instanceof TextFault ? texts.gap + texts.notText(fault.at + 1, fault.seeming) : "";
        this.complain(texts.fileUnreadable(file.name) + why);
      }
    }
  }

  private async readPicture(file: File): Promise<void> {
    const { texts } = this.page;
    this.page.say(texts.readingPicture);
    try {
      const text = await textInPicture(file);
      if (text === undefined) {
        this.complain(texts.noCode(file.name));
      } else {
        this.put(text);
      }
    } catch {
      this.complain(texts.noPicture(file.name));
    }
  }

  /** Files and texts may be dropped, and pasted, anywhere on the page. */
  private acceptDrops(): void {
    document.addEventListener("dragover", (event) => event.preventDefault());
    document.addEventListener("drop", (event) => {
      const [file] = event.dataTransfer?.files ?? [];
      const text = event.dataTransfer?.getData("text/plain") ?? "";
      if (file) {
        event.preventDefault();
        void this.readFile(file);
      } else if (text !== "" && !(event.target instanceof HTMLTextAreaElement)) {
        event.preventDefault();
        this.put(text);
      }
    });
    document.addEventListener("paste", (event) => {
      const [file] = event.clipboardData?.files ?? [];
      const text = event.clipboardData?.getData("text/plain") ?? "";
      const isTyped = event.target instanceof HTMLTextAreaElement || event.target instanceof HTMLInputElement;
      if (file) {
        event.preventDefault();
        void this.readFile(file);
      } else if (!isTyped && text !== "") {
        event.preventDefault();
        this.put(text);
      }
    });
  }
}
