// Packing in the zlib format, by the same steps as the phone takes: what it refuses is refused here.

import {
  Z_FINISH,
  Z_NO_FLUSH,
  Z_OK,
  Z_STREAM_END,
  ZStream,
  zlibDeflate,
  zlibDeflateEnd,
  zlibDeflateInit,
  zlibInflate,
  zlibInflateEnd,
  zlibInflateInit,
} from "pako";

/** No text is unpacked any further, in bytes. */
export const mostUnpacked = 64 << 20;

export type ZlibFaultKind = "header" | "damaged" | "checksum" | "short" | "large";

/** Thrown for what cannot be unpacked; `at` is the number of bytes that were read before. */
export class ZlibFault {
  constructor(
    readonly kind: ZlibFaultKind,
    readonly at: number,
  ) {}
}

function kindOf(message: string): ZlibFaultKind {
  if (/header|window|method/.test(message)) {
    return "header";
  }
  return message.includes("data check") ? "checksum" : "damaged";
}

function streamOf(input: Uint8Array): ZStream {
  const stream = new ZStream();
  stream.input = input;
  stream.avail_in = input.length;
  return stream;
}

/** What the steps put out until one says something else than Z_OK; `check` sees each result and may throw. */
function collect(stream: ZStream, step: () => number, check: (result: number, length: number) => void): Uint8Array {
  const parts: Uint8Array[] = [];
  let length = 0;
  for (let result: number = Z_OK; result === Z_OK; ) {
    stream.output = new Uint8Array(1 << 16);
    stream.next_out = 0;
    stream.avail_out = stream.output.length;
    result = step();
    parts.push(stream.output.subarray(0, stream.next_out));
    length += stream.next_out;
    check(result, length);
  }
  const whole = new Uint8Array(length);
  let at = 0;
  for (const part of parts) {
    whole.set(part, at);
    at += part.length;
  }
  return whole;
}

/** The packed form, at the level that the phone packs with. */
export function pack(bytes: Uint8Array): Uint8Array {
  const stream = streamOf(bytes);
  zlibDeflateInit(stream, 9);
  const packed = collect(
    stream,
    () => zlibDeflate(stream, Z_FINISH),
    () => undefined,
  );
  zlibDeflateEnd(stream);
  return packed;
}

/** What was packed; bytes behind the end do not count. Throws a ZlibFault. */
export function unpack(packed: Uint8Array): Uint8Array {
  const stream = streamOf(packed);
  zlibInflateInit(stream);
  try {
    return collect(
      stream,
      () => zlibInflate(stream, Z_NO_FLUSH),
      (result, length) => {
        if (length > mostUnpacked) {
          throw new ZlibFault("large", stream.total_in);
        }
        if (result !== Z_OK && result !== Z_STREAM_END) {
          throw new ZlibFault(stream.avail_in === 0 && !stream.msg ? "short" : kindOf(stream.msg), stream.total_in);
        }
      },
    );
  } finally {
    zlibInflateEnd(stream);
  }
}
