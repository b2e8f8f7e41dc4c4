// Reads a text that was pasted, dropped or linked: as strictly as the phone does, then as kindly as it can be read.

import { Configuration } from "../model/configuration";
import { JsonFault } from "../model/json_text";
import { table } from "../table";
import { Texts } from "../texts";
import { Base64Fault, bytesOfBase64 } from "./base64";
import { TextFault, textOfBytes } from "./bytes";
import { magics } from "./encoding";
import { ZlibFault, unpack } from "./zlib";

/** What became of a text. */
export interface Reading {
  /** What the phone would show if this text were imported there. */
  toast: string;
  /** What it carries; also what the phone would refuse, where that can be mended. */
  configuration?: Configuration;
  /** Why the phone would refuse it, and where. */
  fault?: string;
}

function isPacked(text: string): boolean {
  return magics.some((magic) => text.startsWith(magic));
}

/** The bytes of JSON that a string carries. Throws what the steps throw. */
function jsonOf(text: string): Uint8Array {
  if (!isPacked(text)) {
    return new TextEncoder().encode(text);
  }
  const bytes = bytesOfBase64(text.slice(4));
  return bytes.length > 0 ? unpack(bytes) : bytes;
}

/** Lines and columns count from 1. */
function placeOf(text: string, at: number, texts: Texts): string {
  const before = text.slice(0, at);
  return texts.place(before.split("\n").length, at - before.lastIndexOf("\n"));
}

function quoted(text: string, at: number): string {
  return [...text.slice(at, at + 2)][0] ?? "";
}

function explain(fault: unknown, text: string, json: string | undefined, texts: Texts): string {
  if (fault instanceof Base64Fault) {
    const at = fault.at + 4;
    return at >= text.length ? texts.base64Short(text.length) : texts.base64(quoted(text, at), at + 1);
  }
  if (fault instanceof ZlibFault) {
    return texts.zlib[fault.kind](fault.at);
  }
  if (fault instanceof TextFault) {
    return texts.notText(fault.at + 1, fault.seeming);
  }
  if (fault instanceof JsonFault && json !== undefined) {
    const what = texts.json[fault.kind];
    return fault.at >= json.length ? texts.jsonShort(what) : what + texts.comma + placeOf(json, fault.at, texts);
  }
  throw fault;
}

/** What the phone makes of a text. */
function readStrictly(text: string, texts: Texts): Reading {
  if (text === "") {
    return { toast: table.toasts.nothingCopied, fault: texts.nothingThere };
  }
  let json: string | undefined;
  try {
    const bytes = jsonOf(text);
    const size = bytes.length;
    json = isPacked(text) ? textOfBytes(bytes) : text.replace(/^\ufeff/, "");
    const configuration = Configuration.parse(json);
    if (size > table.largestText) {
      return { toast: table.toasts.unreadable, configuration, fault: texts.tooLarge(size, table.largestText) };
    }
    return { toast: table.toasts.imported, configuration };
  } catch (fault) {
    return { toast: table.toasts.unreadable, fault: explain(fault, text, json, texts) };
  }
}

/** The string within a text that has more around it or in it: a chat's words, line breaks, a link's letters. */
function mended(text: string): string | undefined {
  const found = /(DM1|CV1):([A-Za-z0-9+/_\-\s]*)/.exec(text);
  if (!found) {
    const start = text.indexOf("{");
    return start >= 0 && !text.trimStart().startsWith("[") ? text.slice(start, text.lastIndexOf("}") + 1) : undefined;
  }
  const body = (found[2] ?? "").replace(/\s/g, "").replace(/-/g, "+").replace(/_/g, "/");
  return `${found[1]}:${body}${"=".repeat((4 - (body.length % 4)) % 4)}`;
}

export function read(text: string, texts: Texts): Reading {
  const strict = readStrictly(text, texts);
  if (strict.configuration || text === "") {
    return strict;
  }
  const other = mended(text);
  const reading = other !== undefined && other !== text ? readStrictly(other, texts) : undefined;
  if (!reading?.configuration) {
    return strict;
  }
  const fault = isPacked(text) || text.trimStart().startsWith("{") ? strict.fault : texts.around;
  return { toast: strict.toast, configuration: reading.configuration, ...(fault === undefined ? {} : { fault }) };
}
