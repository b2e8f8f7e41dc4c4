// The clipboard, which a browser may refuse to a page.

/** Whether the text was copied; a browser that knows no other way copies from the field. */
export async function copy(text: string, field: HTMLTextAreaElement): Promise<boolean> {
  try {
    await navigator.clipboard.writeText(text);
    return true;
  } catch {
    // A page from a file or without encryption has no such clipboard.
  }
  const shown = field.value;
  field.value = text;
  field.focus();
  field.setSelectionRange(0, text.length);
  const copied = document.execCommand("copy");
  field.value = shown;
  if (!copied) {
    field.select();
  }
  return copied;
}

/** The text in the clipboard; undefined where a page may not see it. */
export async function pasted(): Promise<string | undefined> {
  try {
    return await navigator.clipboard.readText();
  } catch {
    return undefined;
  }
}
