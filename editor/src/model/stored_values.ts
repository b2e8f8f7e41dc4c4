// Reads of a configuration as the phone reads its store: a value of a kind that a key cannot have reads as if the key
// were absent, and some kinds turn into others.

import { Configuration } from "./configuration";

function valueOf(configuration: Configuration, key: string): unknown {
  const raw = configuration.raw(key);
  return raw === undefined ? undefined : (JSON.parse(raw) as unknown);
}

/** The number that a text begins with, 0 without one. */
function leadingNumber(text: string): number {
  return Number(/^\s*([+-]?(?:\d+\.?\d*|\.\d+)(?:[eE][+-]?\d+)?)/.exec(text)?.[1] ?? 0);
}

/** Whether the phone can read the value as a number or a switch at all. */
export function isScalar(configuration: Configuration, key: string): boolean {
  return ["string", "number", "boolean"].includes(typeof valueOf(configuration, key));
}

/** In single precision; the fallback when there is none. */
export function readFloat(configuration: Configuration, key: string, fallback: number): number {
  const value = valueOf(configuration, key);
  if (!isScalar(configuration, key)) {
    return fallback;
  }
  const number = Math.fround(typeof value === "string" ? leadingNumber(value) : Number(value));
  return Number.isFinite(number) ? number : fallback;
}

export function readBool(configuration: Configuration, key: string): boolean {
  const value = valueOf(configuration, key);
  if (typeof value === "string") {
    return /^\s*[+-]?0*[YyTt1-9]/.test(value);
  }
  return typeof value === "boolean" ? value : typeof value === "number" && value !== 0;
}

/** Only the lower 32 bits count; 0 when there is none. */
export function readInteger(configuration: Configuration, key: string): number {
  const value = valueOf(configuration, key);
  if (typeof value === "string") {
    return Math.trunc(leadingNumber(value)) | 0;
  }
  return isScalar(configuration, key) ? Math.trunc(Number(value)) | 0 : 0;
}

/** The empty text when there is none. */
export function readString(configuration: Configuration, key: string): string {
  const value = valueOf(configuration, key);
  if (typeof value === "string") {
    return value;
  }
  return typeof value === "number" || typeof value === "boolean" ? String(Number(value)) : "";
}

/** Whether the phone's store can hold the value: it leaves out whatever has a null in it. */
export function isStorable(configuration: Configuration, key: string): boolean {
  const raw = configuration.raw(key) ?? "";
  if (!raw.includes("null")) {
    return true;
  }
  const holds = (value: unknown): boolean =>
    value !== null && (typeof value !== "object" || Object.values(value).every(holds));
  return holds(valueOf(configuration, key));
}
