// Base64 as the phone reads it: whole groups of four, padding at the end only, nothing else in between.

/** Where a text stops being base64, counted from 0; its length where it is cut short. */
export class Base64Fault {
  constructor(readonly at: number) {}
}

/** Throws a Base64Fault. */
export function bytesOfBase64(text: string): Uint8Array {
  const odd = text.search(/[^A-Za-z0-9+/]/);
  const body = odd < 0 ? text : text.slice(0, odd);
  const padding = odd < 0 ? "" : text.slice(odd);
  const wanted = body.length % 4 === 0 ? "" : "=".repeat(4 - (body.length % 4));
  if (padding !== wanted || wanted.length === 3) {
    throw new Base64Fault(padding === "" ? text.length : odd);
  }
  const characters = atob(text);
  const bytes = new Uint8Array(characters.length);
  for (let index = 0; index < bytes.length; ++index) {
    bytes[index] = characters.charCodeAt(index);
  }
  return bytes;
}

export function base64OfBytes(bytes: Uint8Array): string {
  // A call takes only so many arguments.
  const most = 0x8000;
  let characters = "";
  for (let at = 0; at < bytes.length; at += most) {
    characters += String.fromCharCode(...bytes.subarray(at, at + most));
  }
  return btoa(characters);
}
