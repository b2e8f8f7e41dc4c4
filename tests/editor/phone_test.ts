// Between the page and each simulated phone: strings from here are imported there and a tap sends the comment; strings
// from there come back through the page as they were.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { test } from "node:test";
import { Chance, packText, randomConfiguration, unpacked } from "./packing";
import { play } from "./simulated";
import { given, lines, open, part, seed, take } from "./support";

const hosts = { douyin: "7311532104", xhs: "秋冬穿搭", kuaishou: "乡村大舞台", wechat: "晚读一小时" };

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
const exporting = ["pasteboard none", "call action dm_exp", 'pasteboard to "out.txt"'];

/** What Python's own zlib and json make of a string, as Python writes it. */
function byPython(text: string): string {
  const program =
    "import base64, json, sys, zlib\n" +
    "text = sys.stdin.read()\n" +
    "print(json.dumps(json.loads(zlib.decompress(base64.b64decode(text[4:], validate=True))), sort_keys=True))";
  return execFileSync("python3", ["-c", program], { input: text, encoding: "utf8", maxBuffer: 1 << 26 });
}

for (const [host, room] of Object.entries(hosts)) {
  test(`a comment typed here is sent there: ${host}`, async () => {
    const page = await open();
    const wanted = ["主播好！", "第二条😀", "a line\nand another", '"quoted" \\ /', "这首歌太好听了，再来一首吧，我们都爱听"];
    await lines(page).fill(wanted.map((each) => each.replace("\n", "↵")).join("\n"));
    await part(page, "Size").getByRole("radiogroup").getByText("12", { exact: true }).click();
    const script = ["wait 3", `host enter "${room}"`, 'pasteboard from "in.txt"', ...importing, 'tap "弹"', "wait 1"];
    wanted.forEach((text, index) => {
      script.push(`tap cell ${index}`, "wait 0.5", `expect comment last text is ${JSON.stringify(text)}`);
    });
    script.push(`expect count comments is ${wanted.length}`);
    await play(host, script, { "in.txt": await given(page) });
  });

  test(`what is exported there comes back through here: ${host}`, async () => {
    const chance = new Chance(`${seed} ${host}`);
    const configuration = randomConfiguration(chance);
    const first = packText(JSON.stringify(configuration), chance.of(["DM1:", "CV1:"]), chance.below(10));
    const { out: exported = "" } = await play(host, ["wait 3", 'pasteboard from "in.txt"', ...importing, ...exporting], {
      "in.txt": first,
    });
    const page = await open();
    await take(page, exported);
    const back = await given(page);
    assert.equal(byPython(back), byPython(exported), `seed ${seed}`);
    for (const [key, value] of Object.entries(configuration)) {
      assert.deepEqual(unpacked(back)[key], value, `seed ${seed}: ${key}`);
    }
    const other = host === "douyin" ? "kuaishou" : "douyin";
    const { out: again = "" } = await play(other, ["wait 3", 'pasteboard from "in.txt"', ...importing, ...exporting], {
      "in.txt": back,
    });
    assert.equal(byPython(again), byPython(exported), `seed ${seed}`);
  });
}
