// A configuration: keys and the JSON text of their values, in the order in which they came.

import { readMembers } from "./json_text";

const mostShown = 80;

/** A key as it is shown: one may be of any length. */
export function shownKey(key: string): string {
  return key.length > mostShown ? key.slice(0, mostShown) + "…" : key;
}

export class Configuration {
  static readonly empty = new Configuration(new Map());

  constructor(private readonly members: ReadonlyMap<string, string>) {}

  /** Throws a JsonFault for what is no JSON object. */
  static parse(text: string): Configuration {
    return new Configuration(readMembers(text));
  }

  get keys(): string[] {
    return [...this.members.keys()];
  }

  has(key: string): boolean {
    return this.members.has(key);
  }

  /** The JSON text of a value. */
  raw(key: string): string | undefined {
    return this.members.get(key);
  }

  /** The same with other values; a key whose text is undefined goes. */
  with(changes: Iterable<readonly [string, string | undefined]>): Configuration {
    const members = new Map(this.members);
    for (const [key, raw] of changes) {
      if (raw === undefined) {
        members.delete(key);
      } else {
        members.set(key, raw);
      }
    }
    return new Configuration(members);
  }

  /** The whole as one JSON object. */
  toText(): string {
    const members = [...this.members].map(([key, raw]) => `${JSON.stringify(key)}:${raw}`);
    return `{${members.join(",")}}`;
  }
}
