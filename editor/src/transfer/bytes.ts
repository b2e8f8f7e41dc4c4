// Texts out of bytes, and what is wrong with bytes that are none.

/** Thrown for bytes that are no text; `at` counts from 0. */
export class TextFault {
  constructor(readonly at: number) {}
}

/** How many bytes of a UTF-8 sequence follow its first, with the smallest second byte and the largest. */
function sequenceOf(first: number): [number, number, number] | undefined {
  if (first < 0x80) {
    return [0, 0, 0];
  }
  if (first >= 0xc2 && first <= 0xdf) {
    return [1, 0x80, 0xbf];
  }
  if (first >= 0xe0 && first <= 0xef) {
    return [2, first === 0xe0 ? 0xa0 : 0x80, first === 0xed ? 0x9f : 0xbf];
  }
  if (first >= 0xf0 && first <= 0xf4) {
    return [3, first === 0xf0 ? 0x90 : 0x80, first === 0xf4 ? 0x8f : 0xbf];
  }
  return undefined;
}

/** Where bytes stop being UTF-8; undefined when they are. */
function faultOf(bytes: Uint8Array): number | undefined {
  for (let at = 0; at < bytes.length; ) {
    const sequence = sequenceOf(bytes[at] ?? 0);
    if (!sequence) {
      return at;
    }
    const [more, least, most] = sequence;
    for (let offset = 1; offset <= more; ++offset) {
      const byte = bytes[at + offset] ?? 0;
      if (byte < (offset === 1 ? least : 0x80) || byte > (offset === 1 ? most : 0xbf)) {
        return at;
      }
    }
    at += more + 1;
  }
  return undefined;
}

/** The text that bytes are in UTF-8, or in UTF-16 where that is what they look like. Throws a TextFault. */
export function textOfBytes(bytes: Uint8Array): string {
  const [first, second] = bytes;
  const isLittle = bytes.length > 1 && (second === 0 || (first === 0xff && second === 0xfe));
  const isBig = bytes.length > 1 && (first === 0 || (first === 0xfe && second === 0xff));
  try {
    return new TextDecoder(isLittle ? "utf-16le" : isBig ? "utf-16be" : "utf-8", { fatal: true }).decode(bytes);
  } catch {
    throw new TextFault(isLittle || isBig ? 0 : (faultOf(bytes) ?? bytes.length));
  }
}

/** The same for a file, which may also come from an old Chinese editor. */
export function textOfFile(bytes: Uint8Array): string {
  try {
    return textOfBytes(bytes);
  } catch (fault) {
    if (bytes.includes(0)) {
      throw fault;
    }
    try {
      return new TextDecoder("gb18030", { fatal: true }).decode(bytes);
    } catch {
      throw fault;
    }
  }
}
