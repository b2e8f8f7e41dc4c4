// QR codes: drawn from a string, read from a picture.

import encodeQR from "qr";
import decodeQR from "qr/decode.js";

/** As many bytes fit into the largest code. */
export const mostInCode = 2953;

/** The modules of a code, true for dark, with the quiet zone around; undefined when the text does not fit. */
export function codeOf(text: string): boolean[][] | undefined {
  return text.length <= mostInCode ? encodeQR(text, "raw", { ecc: "low", border: 4 }) : undefined;
}

/** A picture of the code, as an address. */
export function pictureOf(modules: boolean[][], scale: number): string {
  const canvas = document.createElement("canvas");
  canvas.width = canvas.height = modules.length * scale;
  const context = canvas.getContext("2d");
  if (!context) {
    return "";
  }
  context.fillStyle = "#fff";
  context.fillRect(0, 0, canvas.width, canvas.height);
  context.fillStyle = "#000";
  modules.forEach((row, y) =>
    row.forEach((dark, x) => dark && context.fillRect(x * scale, y * scale, scale, scale)),
  );
  return canvas.toDataURL();
}

function loaded(file: Blob): Promise<HTMLImageElement> {
  return new Promise((resolve, reject) => {
    const image = new Image();
    const address = URL.createObjectURL(file);
    image.onload = () => {
      URL.revokeObjectURL(address);
      resolve(image);
    };
    image.onerror = () => {
      URL.revokeObjectURL(address);
      reject(new Error("no picture"));
    };
    image.src = address;
  });
}

/** The pixels of a picture whose longer side is at most that long. */
function pixelsOf(image: HTMLImageElement, longest: number): ImageData | undefined {
  const scale = Math.min(1, longest / Math.max(image.naturalWidth, image.naturalHeight, 1));
  const canvas = document.createElement("canvas");
  canvas.width = Math.max(1, Math.round(image.naturalWidth * scale));
  canvas.height = Math.max(1, Math.round(image.naturalHeight * scale));
  const context = canvas.getContext("2d");
  if (!context) {
    return undefined;
  }
  // What is clear counts as paper.
  context.fillStyle = "#fff";
  context.fillRect(0, 0, canvas.width, canvas.height);
  context.drawImage(image, 0, 0, canvas.width, canvas.height);
  return context.getImageData(0, 0, canvas.width, canvas.height);
}

/** What the code in a picture says; undefined without one. Rejects what is no picture. */
export async function textInPicture(file: Blob): Promise<string | undefined> {
  const image = await loaded(file);
  for (const longest of [2400, 1200, 600]) {
    const pixels = pixelsOf(image, longest);
    try {
      if (pixels) {
        return decodeQR(pixels, { effort: 4, timeLimit: 2000 });
      }
    } catch {
      // No code at this size; a photograph may show it at another.
    }
  }
  return undefined;
}
