// Puts the page together: `node build.mjs OUT` reads OUT/table.json, which the library's own tables were written to, and
// leaves OUT/corvel-grid.html and the programs that test it in OUT/tests.

import { build } from "esbuild";
import { readFile, readdir, writeFile } from "node:fs/promises";
import path from "node:path";
import { fileURLToPath } from "node:url";

const here = path.dirname(fileURLToPath(import.meta.url));
const tests = path.join(here, "../tests/editor");
const out = path.resolve(process.argv[2]);
const mostBytes = 150 * 1024;
// The oldest browser that the page is for. A newer feature of the language is rewritten for it or stops the build.
const target = ["safari15", "ios15"];

async function bundled(entry, loader) {
  const result = await build({
    entryPoints: [path.join(here, "src", entry)],
    bundle: true,
    minify: true,
    charset: "utf8",
    legalComments: "none",
    format: "iife",
    target,
    write: false,
    ...loader,
  });
  return result.outputFiles[0].text.trim();
}

async function buildPage() {
  const table = JSON.stringify(JSON.parse(await readFile(path.join(out, "table.json"), "utf8")));
  const parts = {
    STYLE: await bundled("style.css", {}),
    // Within a page's script element, "</" of its end tag must not occur.
    SCRIPT: (await bundled("main.ts", { define: { LIBRARY_TABLE: table } })).replaceAll("</script", "<\\/script"),
  };
  const frame = await readFile(path.join(here, "src/page.html"), "utf8");
  const page = frame.replace(/\/\*(STYLE|SCRIPT)\*\//g, (_, name) => parts[name]);
  const bytes = Buffer.byteLength(page);
  if (bytes > mostBytes) {
    throw new Error(`the page has ${bytes} bytes, more than ${mostBytes}`);
  }
  await writeFile(path.join(out, "corvel-grid.html"), page);
}

async function buildTests() {
  const sources = (await readdir(tests)).filter((name) => name.endsWith("_test.ts"));
  await build({
    entryPoints: sources.map((name) => path.join(tests, name)),
    bundle: true,
    platform: "node",
    target: "node18",
    format: "cjs",
    outExtension: { ".js": ".cjs" },
    external: ["playwright-core"],
    nodePaths: [path.join(here, "node_modules")],
    outdir: path.join(out, "tests"),
  });
}

await Promise.all([buildPage(), buildTests()]);
