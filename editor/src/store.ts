// What the browser keeps of the page between two visits. Nothing here throws: a browser may forbid it or be full.

import { Configuration } from "./model/configuration";

const setName = "corvel-grid.set";
const draftName = "corvel-grid.pasted";
/** How much of what was before is kept for undoing, in characters and in steps. */
const mostPast = 1_000_000;
const mostSteps = 30;

export interface Kept {
  present: Configuration;
  past: Configuration[];
}

/** Why something was not kept. */
export type KeepFault = "forbidden" | "full";

function parsed(text: string | null): Kept | undefined {
  try {
    const { present, past } = JSON.parse(text ?? "") as { present: string; past: string[] };
    return { present: Configuration.parse(present), past: past.map((each) => Configuration.parse(each)) };
  } catch {
    return undefined;
  }
}

function write(name: string, text: string): KeepFault | undefined {
  try {
    window.localStorage.setItem(name, text);
    return undefined;
  } catch (fault) {
    return fault instanceof DOMException && fault.name === "QuotaExceededError" ? "full" : "forbidden";
  }
}

function readItem(name: string): string | null {
  try {
    return window.localStorage.getItem(name);
  } catch {
    return null;
  }
}

export function loadKept(): Kept | undefined {
  return parsed(readItem(setName));
}

export function keep({ present, past }: Kept): KeepFault | undefined {
  const now = present.toText();
  const before: string[] = [];
  let room = mostPast;
  for (const each of past.slice(-mostSteps).reverse()) {
    const text = each.toText();
    room -= text.length;
    if (room < 0) {
      break;
    }
    before.unshift(text);
  }
  // Where both do not fit, what there is now counts.
  const whole = write(setName, JSON.stringify({ present: now, past: before }));
  return whole === undefined ? undefined : write(setName, JSON.stringify({ present: now, past: [] }));
}

/** Calls back with what another window of this browser has kept. */
export function onKeptElsewhere(changed: (present: Configuration) => void): void {
  window.addEventListener("storage", (event) => {
    const kept = event.key === setName ? parsed(event.newValue) : undefined;
    if (kept) {
      changed(kept.present);
    }
  });
}

/** What was typed into the field for texts from the phone. */
export function loadDraft(): string {
  return readItem(draftName) ?? "";
}

export function keepDraft(text: string): KeepFault | undefined {
  return write(draftName, text);
}
