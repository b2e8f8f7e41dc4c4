// Plays scripts of the simulator for the tests of the grid page.

import { execFile } from "node:child_process";
import { mkdtemp, readFile, rm, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import path from "node:path";
import { promisify } from "node:util";
import { paths } from "./support";

const run = promisify(execFile);
const words = path.join(__dirname, "../../../tests/scenarios/corvel.words");

/** Plays the lines in a host, with the files that they name; what was printed, and what was written to out.txt. */
export async function play(
  host: string,
  lines: string[],
  files: Record<string, string> = {},
): Promise<{ printed: string; out: string | undefined }> {
  const folder = await mkdtemp(path.join(tmpdir(), "corvel-page-"));
  try {
    for (const [name, text] of Object.entries({ ...files, "play.scn": lines.join("\n") + "\n" })) {
      await writeFile(path.join(folder, name), text);
    }
    const { stdout } = await run(
      paths.simulator,
      ["--library", paths.library, "--words", words, "--host", host, "--pictures", ".", "run", "play.scn"],
      { cwd: folder, maxBuffer: 1 << 26 },
    ).catch((fault: { stdout?: string; stderr?: string }) => {
      throw new Error(`the script failed in ${host}: ${fault.stdout?.slice(-1500)}${fault.stderr?.slice(-1500)}`);
    });
    const out = await readFile(path.join(folder, "out.txt"), "utf8").catch(() => undefined);
    return { printed: stdout, out };
  } finally {
    await rm(folder, { recursive: true, force: true });
  }
}

/** A text as a script writes it. */
export function quoted(text: string): string {
  const escaped = text.replace(/[\\"]|[^ -~\u00a1-\u1fff\u2e80-\ud7ff]/g, (unit) =>
    /[\\"]/.test(unit) ? "\\" + unit : "\\u" + unit.charCodeAt(0).toString(16).padStart(4, "0"),
  );
  return `"${escaped}"`;
}

/** The text that a script or a query has written. */
export function unquoted(text: string): string {
  const named: Record<string, string> = { n: "\n", t: "\t", "0": "\0" };
  return text
    .slice(1, -1)
    .replace(/\\(?:u([0-9A-Fa-f]{4})|(.))/g, (_, unit?: string, sign = "") =>
      unit ? String.fromCharCode(parseInt(unit, 16)) : (named[sign] ?? sign),
    );
}
