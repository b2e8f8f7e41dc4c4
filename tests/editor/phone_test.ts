// Between the page and each simulated phone: strings from here are imported there and a tap sends the comment; strings
// from there come back through the page as they were.

import assert from "node:assert/strict";
import { execFile } from "node:child_process";
import { test } from "node:test";
import { Chance, packText, randomConfiguration, tappableCells } from "./packing";
import { play, quoted } from "./simulated";
import { given, lines, open, part, seed, take } from "./support";

const hosts = { douyin: "7311532104", xhs: "秋冬穿搭", kuaishou: "乡村大舞台", wechat: "晚读一小时" };
/** Random configurations for each host, and cells that are tapped of each. */
const configurations = 10;
const taps = 5;

/** A finger imports what was copied, by the settings panel. */
const importing = [
  'press "弹"',
  "wait 1",
  'scroll "▶ 插件配置" into view',
  'tap "▶ 插件配置"',
  'scroll "导入Corvel配置" into view',
  'tap "导入Corvel配置"',
  "wait 0.3",
  'expect toast text is "导入成功"',
  "wait 3",
  'tap "弹"',
  "wait 1",
];

/** The same by its action. */
const importingAtOnce = ["call action dm_imp", "wait 0.3", 'expect toast text is "导入成功"', "wait 3"];
const exporting = ["pasteboard none", "call action dm_exp", 'pasteboard to "out.txt"'];

/** What Python's own zlib and json make of strings, each as Python writes it. */
function byPython(texts: string[]): Promise<string[]> {
  const program =
    "import base64, json, sys, zlib\n" +
    "for text in sys.stdin.read().split():\n" +
    "    values = json.loads(zlib.decompress(base64.b64decode(text[4:], validate=True)))\n" +
    "    print(json.dumps(values, sort_keys=True))";
  return new Promise((resolve, reject) => {
    const done = (fault: Error | null, printed: string): void =>
      fault ? reject(fault) : resolve(printed.trimEnd().split("\n"));
    const python = execFile("python3", ["-c", program], { maxBuffer: 1 << 26 }, done);
    python.stdin?.end(texts.join("\n"));
  });
}

for (const [host, room] of Object.entries(hosts)) {
  test(`a comment typed here is sent there: ${host}`, async () => {
    const page = await open();
    const wanted = ["主播好！", "第二条😀", "a line\nand another", '"quoted" \\ /', "这首歌太好听了，再来一首吧，我们都爱听"];
    await lines(page).fill(wanted.map((each) => each.replace("\n", "↵")).join("\n"));
    await part(page, "Size").getByRole("radiogroup").getByText("12", { exact: true }).click();
    const script = ["wait 3", `host enter "${room}"`, 'pasteboard from "in.txt"', ...importing, 'tap "弹"', "wait 1"];
    wanted.forEach((text, index) => {
      script.push(`tap cell ${index}`, "wait 0.5", `expect comment last text is ${quoted(text)}`);
    });
    script.push(`expect count comments is ${wanted.length}`);
    await play(host, script, { "in.txt": await given(page) });
  });

  test(`random configurations go there and come back: ${host}`, async (context) => {
    const chance = new Chance(`${seed} ${host}`);
    const page = await open();
    let slots = 0;
    for (let number = 0; number < configurations; ++number) {
      const message = `seed ${seed}, configuration ${number}`;
      const configuration = randomConfiguration(chance);
      const made = packText(JSON.stringify(configuration), chance.of(["DM1:", "CV1:"]), chance.below(10));
      await take(page, made);
      const there = await given(page);
      const script = ["wait 3", `host enter "${room}"`, 'pasteboard from "in.txt"', ...importingAtOnce, ...exporting];
      script.push('tap "弹"', "wait 1");
      const cells = tappableCells(configuration);
      for (let tap = 0; tap < taps; ++tap) {
        const index = chance.below(cells);
        const text = String(configuration[`Corvel.slots.${index}`] || index + 1);
        script.push(`tap cell ${index}`, "wait 0.5", `expect comment last text is ${quoted(text)}`);
      }
      script.push(`expect count comments is ${taps}`);
      const { out: exported = "" } = await play(host, script, { "in.txt": there });
      await take(page, exported);
      const back = await given(page);
      const [first, second, third, fourth] = await byPython([made, there, exported, back]);
      // The texts are too long for a report.
      assert.ok(second === first && third === first && fourth === first, message);
      slots += Object.keys(configuration).filter((key) => key.startsWith("Corvel.slots.")).length;
    }
    context.diagnostic(`${configurations} configurations with ${slots} slots, ${taps} taps each`);
  });
}
