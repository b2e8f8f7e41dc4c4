// The string that carries a configuration to the phone, and the link that carries it to another browser.

import { Configuration } from "../model/configuration";
import { base64OfBytes } from "./base64";
import { pack } from "./zlib";

export const magics = ["DM1:", "CV1:"];

/** What the phone's own export would write, and takes in. */
export function encode(configuration: Configuration): string {
  return "DM1:" + base64OfBytes(pack(new TextEncoder().encode(configuration.toText())));
}

/** The page's address with the string behind it, in the letters that an address may carry as they are. */
export function linkOf(address: string, encoded: string): string {
  const fragment = encoded.replace(/\+/g, "-").replace(/\//g, "_").replace(/=/g, "");
  return address.replace(/#.*$/s, "") + "#" + fragment;
}
