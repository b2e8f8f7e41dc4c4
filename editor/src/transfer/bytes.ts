// Texts out of bytes, and what is wrong with bytes that are none.

type Encoding = "utf-8" | "utf-16le" | "utf-16be" | "utf-32le" | "utf-32be";

/** Thrown for bytes that are no text; `at` counts from 0. */
export class TextFault {
  constructor(
    readonly at: number,
    private readonly encoding: Encoding,
  ) {}

  /** What the bytes seemed to be. */
  get seeming(): string {
    return this.encoding.slice(0, 6).toUpperCase();
  }
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

function textOfUtf32(bytes: Uint8Array, encoding: Encoding): string {
  const view = new DataView(bytes.buffer, bytes.byteOffset, bytes.length);
  let text = "";
  for (let at = 0; at < bytes.length; at += 4) {
    const point = at + 4 <= bytes.length ? view.getUint32(at, encoding === "utf-32le") : Infinity;
    if (point > 0x10ffff || (point & ~0x7ff) === 0xd800) {
      throw new TextFault(at, encoding);
    }
    text += String.fromCodePoint(point);
  }
  return text.replace(/^\ufeff/, "");
}

function decoded(bytes: Uint8Array, encoding: Encoding): string {
  if (encoding.startsWith("utf-32")) {
    return textOfUtf32(bytes, encoding);
  }
  try {
    return new TextDecoder(encoding, { fatal: true }).decode(bytes);
  } catch {
    if (encoding === "utf-8") {
      throw new TextFault(faultOf(bytes) ?? bytes.length, encoding);
    }
    const marked = new TextDecoder(encoding, { ignoreBOM: true }).decode(bytes);
    throw new TextFault(2 * marked.indexOf("\ufffd"), encoding);
  }
}

/** By the mark of byte order or, the first character being ASCII, by its zero bytes: so the phone tells it. */
function encodingOf([first = 0xff, second = 0xff, third = 0xff, fourth = 0xff]: Uint8Array): Encoding {
  if (first === 0 && second === 0) {
    return "utf-32be";
  }
  const isLittle = first === 0xff && second === 0xfe;
  if ((isLittle || second === 0) && third === 0 && fourth === 0) {
    return "utf-32le";
  }
  if (first === 0 || (first === 0xfe && second === 0xff)) {
    return "utf-16be";
  }
  return isLittle || second === 0 ? "utf-16le" : "utf-8";
}

/** The text that bytes are, in the encoding that the phone takes them for. Throws a TextFault. */
export function textOfBytes(bytes: Uint8Array): string {
  return decoded(bytes, encodingOf(bytes));
}

/** UTF-16 without a mark: most zero bytes are those of ASCII characters, such as line breaks. */
function unmarkedUtf16(bytes: Uint8Array): Encoding | undefined {
  const zeros: [number, number] = [0, 0];
  bytes.forEach((byte, at) => {
    zeros[at % 2 === 0 ? 0 : 1] += byte === 0 ? 1 : 0;
  });
  if (bytes.length % 2 !== 0 || zeros[0] === zeros[1]) {
    return undefined;
  }
  return zeros[0] < zeros[1] ? "utf-16le" : "utf-16be";
}

/** The same for a file, which need not begin in ASCII and may come from an old Chinese editor. */
export function textOfFile(bytes: Uint8Array): string {
  try {
    return textOfBytes(bytes);
  } catch (fault) {
    const other = bytes.includes(0) ? unmarkedUtf16(bytes) : "gb18030";
    try {
      return new TextDecoder(other, { fatal: true }).decode(bytes);
    } catch {
      throw fault;
    }
  }
}
