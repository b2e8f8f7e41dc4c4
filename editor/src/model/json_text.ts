// Reads a JSON object without touching its values: each member keeps the very text that stands there, so that numbers
// and nested values which a browser would round or reorder go out as they came. Says where a text is no JSON.

/** What is wrong with a text. */
export type JsonFaultKind =
  | "value"
  | "key"
  | "colon"
  | "comma"
  | "after"
  | "end"
  | "string"
  | "control"
  | "escape"
  | "half"
  | "range"
  | "deep"
  | "object";

/** Thrown for a text that is no JSON object; `at` counts UTF-16 units from 0. */
export class JsonFault {
  constructor(
    readonly kind: JsonFaultKind,
    readonly at: number,
  ) {}
}

/** The phone reads no deeper. */
const mostLevels = 512;

const quote = 0x22;
const backslash = 0x5c;
const number = /-?(?:0|[1-9]\d*)(?:\.\d+)?(?:[eE][+-]?\d+)?/y;

class Reader {
  private at = 0;
  private levels = 0;

  constructor(private readonly text: string) {}

  members(): Map<string, string> {
    const found = new Map<string, string>();
    this.skipBlanks();
    const start = this.at;
    if (this.text[start] !== "{") {
      this.value();
      this.finish();
      throw new JsonFault("object", start);
    }
    this.object((key, raw) => found.set(key, raw));
    this.finish();
    return found;
  }

  private fail(kind: JsonFaultKind, at = this.at): never {
    throw new JsonFault(at >= this.text.length ? "end" : kind, Math.min(at, this.text.length));
  }

  private skipBlanks(): void {
    for (;;) {
      const unit = this.text.charCodeAt(this.at);
      if (unit !== 0x20 && unit !== 0x0a && unit !== 0x0d && unit !== 0x09) {
        return;
      }
      ++this.at;
    }
  }

  private finish(): void {
    this.skipBlanks();
    if (this.at < this.text.length) {
      this.fail("after");
    }
  }

  /** Whether the sign comes next, which is then passed. */
  private passes(sign: string): boolean {
    this.skipBlanks();
    if (this.text[this.at] !== sign) {
      return false;
    }
    ++this.at;
    return true;
  }

  private value(): void {
    this.skipBlanks();
    switch (this.text[this.at]) {
      case "{":
        return this.object();
      case "[":
        return this.array();
      case '"':
        return this.string();
      case "t":
        return this.word("true");
      case "f":
        return this.word("false");
      case "n":
        return this.word("null");
      default:
        return this.number();
    }
  }

  private word(word: string): void {
    if (!this.text.startsWith(word, this.at)) {
      this.fail("value");
    }
    this.at += word.length;
  }

  private number(): void {
    number.lastIndex = this.at;
    const found = number.exec(this.text);
    if (!found) {
      this.fail("value");
    }
    if (!Number.isFinite(Number(found[0]))) {
      this.fail("range");
    }
    this.at += found[0].length;
  }

  private enter(): void {
    if (++this.levels > mostLevels) {
      this.fail("deep");
    }
    ++this.at;
  }

  private array(): void {
    this.enter();
    if (!this.passes("]")) {
      do {
        this.value();
      } while (this.passes(","));
      if (!this.passes("]")) {
        this.fail("comma");
      }
    }
    --this.levels;
  }

  private object(visit?: (key: string, raw: string) => void): void {
    this.enter();
    if (!this.passes("}")) {
      do {
        this.member(visit);
      } while (this.passes(","));
      if (!this.passes("}")) {
        this.fail("comma");
      }
    }
    --this.levels;
  }

  private member(visit?: (key: string, raw: string) => void): void {
    this.skipBlanks();
    const keyStart = this.at;
    if (this.text[keyStart] !== '"') {
      this.fail("key");
    }
    this.string();
    const keyEnd = this.at;
    if (!this.passes(":")) {
      this.fail("colon");
    }
    this.skipBlanks();
    const start = this.at;
    this.value();
    // Of two equal keys the last counts, as on the phone.
    visit?.(JSON.parse(this.text.slice(keyStart, keyEnd)) as string, this.text.slice(start, this.at));
  }

  private string(): void {
    const start = this.at++;
    for (;;) {
      const unit = this.text.charCodeAt(this.at);
      if (unit === quote) {
        ++this.at;
        return;
      }
      if (Number.isNaN(unit)) {
        throw new JsonFault("string", start);
      }
      if (unit < 0x20) {
        this.fail("control");
      }
      if (unit === backslash) {
        this.escape();
      } else if ((unit & 0xf800) === 0xd800) {
        this.pair(unit, this.text.charCodeAt(this.at + 1), 1);
      } else {
        ++this.at;
      }
    }
  }

  private escape(): void {
    const letter = this.text[this.at + 1] ?? "";
    if (letter === "u") {
      const unit = this.hexadecimal(this.at);
      if ((unit & 0xf800) === 0xd800) {
        this.pair(unit, this.hexadecimal(this.at + 6, true), 6);
      } else {
        this.at += 6;
      }
    } else if (letter !== "" && '"\\/bfnrt'.includes(letter)) {
      this.at += 2;
    } else {
      this.fail("escape");
    }
  }

  /** The unit that the escape there stands for. */
  private hexadecimal(at: number, mayLack = false): number {
    const found = /^\\u([0-9a-fA-F]{4})$/.exec(this.text.slice(at, at + 6));
    if (!found) {
      return mayLack ? NaN : this.fail("escape", at);
    }
    return parseInt(found[1] ?? "", 16);
  }

  /** Passes a character of two units, each that many long. The phone takes no half of one. */
  private pair(high: number, low: number, length: number): void {
    if ((high & 0xfc00) !== 0xd800 || (low & 0xfc00) !== 0xdc00) {
      throw new JsonFault("half", this.at);
    }
    this.at += 2 * length;
  }
}

/** The members of the object that a text is; throws a JsonFault for any other text. */
export function readMembers(text: string): Map<string, string> {
  return new Reader(text).members();
}

/** The JSON text of a string. Half characters, which the phone does not take, become U+FFFD as in its own exports. */
export function jsonOfString(text: string): string {
  return JSON.stringify(text.replace(/[\ud800-\udfff]/gu, "\ufffd"));
}
