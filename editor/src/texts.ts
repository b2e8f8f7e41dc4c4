// Every word that the page says, but for what the library's table brings. The Chinese names of the phone's own rows and
// buttons stand in both languages as the phone shows them.

import { table } from "./table";
import { JsonFaultKind } from "./model/json_text";
import { ZlibFaultKind } from "./transfer/zlib";

export type Language = "en" | "zh";

function mebibytes(bytes: number): string {
  return (bytes / (1 << 20)).toFixed(bytes < 10 << 20 ? 1 : 0) + " MiB";
}

/** Exact, for what is a byte too much. Both languages write numbers alike. */
function counted(number: number): string {
  return number.toLocaleString("en");
}

const english = {
  language: "en" as Language,
  comma: ", ",
  /** Between two sentences. */
  gap: " ",
  title: "Comment grid",
  undo: "Undo",
  redo: "Redo",

  grid: "The grid",
  gridHint: "Tap a cell to type. Hold and drag a comment to another cell.",
  gridKeys: "On a keyboard: arrows choose, Enter types, Alt with arrows moves the comment, Delete empties.",
  gridNote:
    "Drawn like the phone's grid, as near as a browser's text allows: letters differ a little, so a long comment may " +
    "be cut a character or a word sooner or later there. The red dot marks a cut comment; it is sent whole all the same.",
  cell: (number: number) => `Cell ${number}`,
  cellSays: (number: number, text: string, cut: boolean) => `Cell ${number}: ${text}${cut ? ", cut on the grid" : ""}`,
  cellEmpty: (number: number) => `Cell ${number}, empty: sends ${number}`,
  cellHint: "A comment. Enter goes on to the next cell, Shift+Enter breaks the line.",
  cellTooLong: (units: number) => `This comment has ${units} characters, too many to type in here. Empty it to start anew.`,
  earlierCell: "Previous cell",
  laterCell: "Next cell",
  moveEarlier: "Move earlier",
  moveLater: "Move later",
  empty: "Empty",
  moved: (from: number, to: number) => `Moved from cell ${from} to cell ${to}`,
  beyond: (count: number, cells: number) =>
    count === 1 ? `1 comment lies beyond the ${cells} cells.` : `${count} comments lie beyond the ${cells} cells.`,
  enlarge: (cells: number) => `Use ${cells} cells`,

  size: "Size",
  sizeCells: "Number of cells",
  custom: "Custom",
  columns: "Columns",
  rows: "Rows",

  lines: "Comments, one a line",
  linesHint: "Type or paste as many as you like; each line is a cell. ↵ stands for a line break within a comment.",
  linesTooLong: "The comments are too long to show as lines.",

  give: "To the phone",
  giveSteps:
    "Copy the text, and on the phone hold the button 弹, unfold 插件配置 and tap 导入Corvel配置. What the text does not " +
    "name stays on the phone as it is.",
  text: "Text for the phone",
  copy: "Copy",
  copied: "Copied",
  copyByHand: "The browser does not let the page copy. The text is marked: copy it by hand.",
  copyLink: "Copy link",
  linkCopied: (length: number) => `Link copied, ${length} characters`,
  linkNote:
    "The link opens this page with the set in it; nothing of it goes to a server. A long one may be cut short by what " +
    "sends it.",
  linkLocal: "This page lies in a file: the link opens only where that file is.",
  code: "QR code",
  codeLarge: "QR code, as large as the window",
  codeName: (length: number) => `QR code with the text, ${length} characters`,
  codeNote: (length: number) =>
    `${length} characters, in one code. Tap it to make it large, read it with the phone's camera, and copy what it says.`,
  codeTooLong: (length: number, most: number) =>
    `The text has ${length} characters; one QR code holds ${most}. Use Copy or the link.`,
  phoneShows: "The phone will show",
  phoneWouldShow: "The phone would show",

  take: "From the phone",
  takeHint:
    "On the phone tap 导出Corvel配置, and paste the text here. Or drop a text file or a picture of a QR code " +
    "anywhere on this page. It takes the place of what is here; Undo brings that back.",
  takeField: "Text from the phone, or comments",
  paste: "Paste",
  pasteDenied: "The browser does not let the page paste: hold the field and choose Paste.",
  chooseFile: "Choose a file",
  takeIn: "Take in",
  takeLines: (count: number) => (count === 1 ? "Use as 1 comment" : `Use as ${count} comments`),
  takeSet: (comments: number, keys: number) =>
    `${comments === 1 ? "1 comment" : `${comments} comments`}, ${keys === 1 ? "1 key" : `${keys} keys`} in all.`,
  takeAnyway: "It can be read all the same.",
  taken: "Taken in. Undo brings back what was here.",
  fromLink: "Taken from the link. Undo brings back what was here.",
  linkBroken: (fault: string) => `The link carries no set: ${fault}`,
  fromFile: (name: string) => `From ${name}:`,
  fileTooLarge: (name: string, bytes: number) => `${name} has ${mebibytes(bytes)}; the page reads at most 64 MiB.`,
  fileUnreadable: (name: string) => `${name} could not be read.`,
  noCode: (name: string) => `In ${name} no QR code was found. Cut the picture so that the code fills it.`,
  noPicture: (name: string) => `${name} is no picture that this browser can show.`,
  readingPicture: "Looking for a QR code…",

  look: "Look",
  switches: "Switches",
  latency: "Douyin's latency (experimental)",
  leave: "Leave as on the phone",
  leaveRow: (title: string) => `${title}: leave as it is on the phone`,
  byDefault: "by default",
  rowNote: "Rows without ✕ are not in the text: the phone keeps what it has. Here they show what a phone has at first.",

  others: "Also in the text",
  othersNote: "These came with it and go out untouched.",
  remove: "Remove",
  removeKey: (key: string) => `Remove ${key}`,
  unknownKey: "not known here",
  foreignKey: "not Corvel's: the phone skips it",
  startOver: "Start over",
  startedOver: "Everything is empty. Undo brings it back.",

  notKept: "This browser keeps nothing for the page. Copy the text before you close it.",
  notKeptLarge: "The set is too large for the browser to keep. Copy the text before you close the page.",
  otherTab: "Changed in another window. Undo brings back what was here.",
  about: `For Corvel ${table.version}. The page asks the network for nothing; what you type stays in this browser.`,

  remarks: {
    empty: "Nothing is set yet: the import would change nothing.",
    hidden: (count: number) =>
      `${count === 1 ? "1 comment has" : `${count} comments have`} no cell on the phone's grid.`,
    mostCells: (count: number, most: number) => `${count} comments lie beyond ${most} cells, the most that a phone shows.`,
    unstorable: (keys: string) => `The phone leaves out what has a null in it: ${keys}.`,
    foreign: (keys: string) => `The phone skips keys that do not begin with ${table.prefix}: ${keys}.`,
    wrongKind: (keys: string) => `Of a kind that the phone cannot use, so that it takes the default: ${keys}.`,
    clamped: (title: string, value: string) => `${title}: the phone draws ${value} instead.`,
    log: (units: number) => `It holds the debug log, ${units} characters, with comments that were sent.`,
    logOn: "It turns the debug log on.",
    hides: "It hides everything of Corvel in WeChat.",
  },

  nothingThere: "There is no text.",
  around: "There is more than the exported text; copy it from DM1: on, and nothing else.",
  place: (line: number, column: number) => `line ${line}, character ${column}`,
  base64: (sign: string, at: number) =>
    sign.trim() === ""
      ? `There is a blank or a line break in it, at character ${at}.`
      : `“${sign}”, character ${at}, cannot stand in such a text.`,
  base64Short: (length: number) => `It is cut short: it ends after ${length} characters, within a group of four.`,
  zlib: {
    header: () => "What follows DM1: is not packed as the phone packs it, from its first byte on.",
    damaged: (at: number) => `It is damaged: the packed bytes make no sense at byte ${at}.`,
    checksum: (at: number) => `It is damaged: its checksum, before byte ${at}, does not fit. Some characters were changed.`,
    short: (at: number) => `It is cut short: the packed bytes end after byte ${at}, before the text does.`,
    large: () => "Unpacked it would be larger than 64 MiB.",
  } as Record<ZlibFaultKind, (at: number) => string>,
  notText: (at: number, seeming: string) => `Byte ${at} of the text is not ${seeming}.`,
  json: {
    value: "A value is missing or misspelt",
    key: "A key in double quotes is missing",
    colon: "A colon is missing behind a key",
    comma: "A comma or a closing bracket is missing",
    after: "There is more behind the end",
    end: "It is no JSON",
    string: "A text in double quotes is not closed",
    control: "A line break or control character stands within a text",
    escape: "An escape with \\ is misspelt",
    half: "Half of a character of two parts stands alone",
    range: "A number is too large",
    deep: "It nests deeper than 512 levels",
    object: "It is no object in braces { }",
  } as Record<JsonFaultKind, string>,
  jsonShort: (what: string) => `${what}: the text ends too early.`,
  tooLarge: (size: number, most: number) =>
    `As JSON it has ${counted(size)} bytes; the phone takes at most ${counted(most)}.`,
};

export type Texts = typeof english;

const chinese: Texts = {
  language: "zh",
  comma: "，",
  gap: "",
  title: "弹幕网格",
  undo: "撤销",
  redo: "重做",

  grid: "网格",
  gridHint: "点格子输入弹幕；按住并拖动可移到别的格子。",
  gridKeys: "用键盘：方向键选择，回车输入，Alt 加方向键移动弹幕，Delete 清空。",
  gridNote:
    "按手机上的网格绘制，在浏览器文字所能达到的范围内尽量接近：字形略有不同，长弹幕在手机上可能早一字一词或晚一字一词截断。" +
    "红点表示标题被截断；发送时仍是全文。",
  cell: (number) => `第 ${number} 格`,
  cellSays: (number, text, cut) => `第 ${number} 格：${text}${cut ? "，标题被截断" : ""}`,
  cellEmpty: (number) => `第 ${number} 格，空：发送 ${number}`,
  cellHint: "一条弹幕。回车到下一格，Shift+回车换行。",
  cellTooLong: (units) => `这条弹幕有 ${units} 个字符，太长，无法在此输入。清空后可重新输入。`,
  earlierCell: "上一格",
  laterCell: "下一格",
  moveEarlier: "前移",
  moveLater: "后移",
  empty: "清空",
  moved: (from, to) => `已从第 ${from} 格移到第 ${to} 格`,
  beyond: (count, cells) => `有 ${count} 条弹幕在这 ${cells} 格之外。`,
  enlarge: (cells) => `改用 ${cells} 格`,

  size: "矩阵规模",
  sizeCells: "格数",
  custom: "自定义",
  columns: "列数",
  rows: "行数",

  lines: "弹幕，每行一条",
  linesHint: "可随意输入或粘贴；每行对应一格。↵ 表示弹幕内的换行。",
  linesTooLong: "弹幕太长，无法按行显示。",

  give: "传到手机",
  giveSteps:
    "拷贝这段文字，在手机上长按“弹”，展开“插件配置”，点“导入Corvel配置”。文字里没有的内容，手机保持原样。",
  text: "给手机的文字",
  copy: "拷贝",
  copied: "已拷贝",
  copyByHand: "浏览器不允许网页拷贝。文字已选中，请手动拷贝。",
  copyLink: "拷贝链接",
  linkCopied: (length) => `已拷贝链接，${length} 个字符`,
  linkNote: "链接会打开本页并带上这套配置；内容不会发给服务器。太长的链接可能在传送时被截断。",
  linkLocal: "本页是一个文件：链接只能在有这个文件的地方打开。",
  code: "二维码",
  codeLarge: "二维码，放大到整个窗口",
  codeName: (length) => `二维码，内容为这段文字，${length} 个字符`,
  codeNote: (length) => `${length} 个字符，一个二维码即可。点它放大，用手机相机扫描，再拷贝其内容。`,
  codeTooLong: (length, most) => `文字有 ${length} 个字符，一个二维码最多 ${most} 个。请用“拷贝”或链接。`,
  phoneShows: "手机将提示",
  phoneWouldShow: "手机会提示",

  take: "从手机取回",
  takeHint:
    "在手机上点“导出Corvel配置”，把文字粘贴到这里；也可以把文本文件或二维码图片拖到本页任意位置。" +
    "它会取代这里现有的内容，可以撤销。",
  takeField: "手机导出的文字，或弹幕",
  paste: "粘贴",
  pasteDenied: "浏览器不允许网页粘贴：请长按输入框，选择“粘贴”。",
  chooseFile: "选择文件",
  takeIn: "载入",
  takeLines: (count) => `用作 ${count} 条弹幕`,
  takeSet: (comments, keys) => `${comments} 条弹幕，共 ${keys} 个键。`,
  takeAnyway: "不过仍可读取。",
  taken: "已载入。撤销可恢复原来的内容。",
  fromLink: "已从链接载入。撤销可恢复原来的内容。",
  linkBroken: (fault) => `链接里没有可用的配置：${fault}`,
  fromFile: (name) => `来自 ${name}：`,
  fileTooLarge: (name, bytes) => `${name} 有 ${mebibytes(bytes)}，本页最多读取 64 MiB。`,
  fileUnreadable: (name) => `无法读取 ${name}。`,
  noCode: (name) => `在 ${name} 里没有找到二维码。请裁剪图片，让二维码占满画面。`,
  noPicture: (name) => `${name} 不是浏览器能显示的图片。`,
  readingPicture: "正在查找二维码……",

  look: "外观",
  switches: "开关",
  latency: "延迟优化(实验)",
  leave: "保持手机原样",
  leaveRow: (title) => `${title}：保持手机原样`,
  byDefault: "默认",
  rowNote: "没有 ✕ 的行不在文字里：手机保持原样。这里显示的是手机最初的值。",

  others: "文字里还有",
  othersNote: "随配置而来，原样带出。",
  remove: "移除",
  removeKey: (key) => `移除 ${key}`,
  unknownKey: "本页不认识",
  foreignKey: "不属于 Corvel，手机会跳过",
  startOver: "全部清空",
  startedOver: "已全部清空。可以撤销。",

  notKept: "此浏览器不为网页保存内容。关闭前请先拷贝文字。",
  notKeptLarge: "内容太大，浏览器无法保存。关闭网页前请先拷贝文字。",
  otherTab: "内容在另一个窗口里改过。撤销可恢复原来的内容。",
  about: `适用于 Corvel ${table.version}。本页不访问网络，输入的内容只留在这个浏览器里。`,

  remarks: {
    empty: "还没有任何内容：导入后不会有变化。",
    hidden: (count) => `有 ${count} 条弹幕在手机的网格里没有格子。`,
    mostCells: (count, most) => `有 ${count} 条弹幕超出 ${most} 格，手机最多显示这么多。`,
    unstorable: (keys) => `含有 null 的值，手机会略去：${keys}。`,
    foreign: (keys) => `不以 ${table.prefix} 开头的键，手机会跳过：${keys}。`,
    wrongKind: (keys) => `类型不对，手机会按默认值处理：${keys}。`,
    clamped: (title, value) => `${title}：手机会按 ${value} 绘制。`,
    log: (units) => `其中有调试日志，${units} 个字符，含有发送过的弹幕。`,
    logOn: "它会打开调试日志。",
    hides: "它会在微信里隐藏 Corvel 的全部界面。",
  },

  nothingThere: "没有文字。",
  around: "除导出的文字外还有别的内容；请只拷贝从 DM1: 开始的那一段。",
  place: (line, column) => `第 ${line} 行第 ${column} 个字符`,
  base64: (sign, at) =>
    sign.trim() === "" ? `第 ${at} 个字符处有空格或换行。` : `第 ${at} 个字符“${sign}”不能出现在这段文字里。`,
  base64Short: (length) => `文字不完整：共 ${length} 个字符，最后一组不足四个。`,
  zlib: {
    header: () => "DM1: 之后的内容从第一个字节起就不是手机的压缩格式。",
    damaged: (at) => `文字已损坏：压缩数据在第 ${at} 个字节处无法解读。`,
    checksum: (at) => `文字已损坏：第 ${at} 个字节之前的校验和不符，有字符被改动。`,
    short: (at) => `文字不完整：压缩数据在第 ${at} 个字节后中断。`,
    large: () => "解压后超过 64 MiB。",
  },
  notText: (at, seeming) => `文字的第 ${at} 个字节不是 ${seeming}。`,
  json: {
    value: "缺少值，或值写错",
    key: "缺少用双引号括起的键",
    colon: "键后缺少冒号",
    comma: "缺少逗号或右括号",
    after: "结尾之后还有内容",
    end: "不是 JSON",
    string: "双引号括起的文字没有结束",
    control: "文字中有换行或控制字符",
    escape: "\\ 转义写错",
    half: "有单独出现的半个字符",
    range: "数字过大",
    deep: "嵌套超过 512 层",
    object: "不是花括号 { } 括起的对象",
  },
  jsonShort: (what) => `${what}：文字过早结束。`,
  tooLarge: (size, most) => `JSON 共 ${counted(size)} 字节，手机最多接受 ${counted(most)}。`,
};

/** The texts for what the browser prefers. */
export function textsFor(languages: readonly string[]): Texts {
  const first = languages.find((each) => /^(zh|en)\b/i.test(each)) ?? "en";
  return /^zh/i.test(first) ? chinese : english;
}
