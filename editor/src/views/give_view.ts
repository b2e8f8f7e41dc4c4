// The string for the phone: to copy, as a link, as a QR code; and what the phone will say to it.

import { remarksOn } from "../model/remarks";
import { Page } from "../page";
import { table } from "../table";
import { encode, linkOf } from "../transfer/encoding";
import { mostInCode } from "../transfer/qr";
import { copy } from "./clipboard";
import { codeView } from "./code_view";
import { button, element, freshId, group } from "./dom";
import { remarkList } from "./remark_list";

/** How long nothing must have changed before a large set is packed, in ms. */
const packLater = 250;
const packedAtOnce = 20_000;

export function giveView(page: Page): HTMLElement {
  const { texts } = page;
  const fieldId = freshId();
  const field = element("textarea", { id: fieldId, class: "packed", rows: "3", readonly: true, spellcheck: "false" });
  const code = codeView(texts);
  const codeNote = element("p", { class: "row note" });
  const remarks = remarkList();
  let encoded = "";
  let timer = 0;

  const pack = (): void => {
    const text = page.configuration.toText();
    encoded = encode(page.configuration);
    field.value = encoded;
    const { length } = encoded;
    codeNote.textContent = code.show(encoded) ? texts.codeNote(length) : texts.codeTooLong(length, mostInCode);
    const { notes, refusal } = remarksOn(page.configuration, new TextEncoder().encode(text).length, texts);
    const toast = refusal === undefined ? table.toasts.imported : table.toasts.unreadable;
    remarks.show(texts.phoneShows, toast, refusal === undefined ? notes : [refusal, ...notes]);
  };
  const packSoon = (): void => {
    window.clearTimeout(timer);
    timer = window.setTimeout(pack, encoded.length > packedAtOnce ? packLater : 0);
  };
  const copyOut = async (text: string, done: string): Promise<void> => {
    if (await copy(text, field)) {
      page.wasCarriedOut();
      page.say(done);
    } else {
      page.say(texts.copyByHand);
    }
  };
  // What is copied is what there is now, also right after a change.
  const packed = (): string => {
    window.clearTimeout(timer);
    pack();
    return encoded;
  };

  page.listen(packSoon);
  const isFile = location.protocol === "file:";
  return group(
    texts.give,
    [
      element("div", { class: "row" }, element("label", { for: fieldId }, texts.text), field),
      element(
        "div",
        { class: "bar row" },
        button(texts.copy, () => void copyOut(packed(), texts.copied), { class: "filled" }),
        button(texts.copyLink, () => {
          const link = linkOf(location.href, packed());
          void copyOut(link, texts.linkCopied(link.length));
        }),
      ),
      remarks.element,
      element("div", { class: "row code-row" }, code.element),
      codeNote,
    ],
    [texts.giveSteps, texts.linkNote, ...(isFile ? [texts.linkLocal] : [])].join(texts.gap),
  );
}
