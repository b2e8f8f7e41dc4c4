"""Random scripts for the simulated phone: fingers, time, app events, preferences, imports, the phone itself.

A line may make no sense where it comes to stand (there is no such button just then): the simulator passes it over.
"""

import base64
import json
import random
import re
import zlib
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

HOSTS = ("douyin", "xhs", "kuaishou", "wechat")

# What each app's objects are called, what it may open a room with, and the methods that the library calls.
OBJECTS = {
    "douyin": ("fragment", "store", "gift-fragment", "gift-store", "context", "model"),
    "xhs": ("decorate", "bar", "engine", "push-decorate", "search-bar", "push-engine"),
    "kuaishou": ("bar", "service", "preview", "gift-bar", "gift-service", "like-preview"),
    "wechat": ("view", "search-view"),
}
EVENTS = {
    "douyin": ('enter "7311"', 'enter int 77', 'enter "8" at store.liveRoomId', "enter none", "enter none", 'enter ""',
               "give fragment 1 store store 2", "give fragment 1 store none", "give store 1 store store 1",
               "give store 1 roomModel none", 'give store 1 liveRoomId array [ "x" ]', "call fragment 1 componentMount",
               "call store 1 setup"),
    "xhs": ('enter "g7"', 'enter "群"', 'enter ""', "move decorate 1 to nowhere", "move bar 1 to screen",
            "move decorate 1 to screen", "move bar 1 to nowhere", 'call engine 1 joinWithGroupId:callback: "g9" block 1',
            'call bar 1 setText: "半"', "call bar 1 sendButtonTapped: nil"),
    "kuaishou": ('enter "老街"', 'enter ""', 'preview "老街"', "call bar 1 onCreate", "call service 1 onCreate",
                 "call preview 1 componentDidLoad", "call bar 1 bindTarget: nil", 'call bar 1 comment: "自"'),
    "wechat": ('enter "t1"', 'enter ""', "plugins open", "plugins close", "move view 1 to nowhere",
               "move view 1 to screen", "call view 1 setTaskId: nil", 'call view 1 didCommitText: "自"'),
}
CALLED = {
    "douyin": ("HTSLiveCommentStore sendCommentWithCommentContext:completion:", "HTSLiveCommentStore context",
               "HTSLiveCommentStore roomModel", "HTSLiveCommentStore liveRoomId", "HTSLiveCommentFragment store",
               "HTSLiveCommentFragment sendComment:commentContext:completion:"),
    "xhs": ("XYLivePlayDecorateView sendFasterChatMsg:", "XYCommentBar sendButtonTapped:", "XYCommentBar setText:",
            "XYCommentBar clearInput", "XYLiveImEngine sendCustomWithMsg:succ:fail:",
            "XYLiveIMMessage initWithType:groupID:priority:dict:"),
    "kuaishou": ("KSSLiveCommentBarService comment:", "KSLiveCommentService comment:completion:",
                 "KSLivePreviewSendCommentComponent sendComment:source:"),
    "wechat": ("MMLiveCommentView didCommitText:", "MMLiveCommentView taskId"),
}
SENDERS = {"douyin": "DY", "xhs": "XHS", "kuaishou": "KS", "wechat": "FC"}

TEXTS = ("", "1", "666", "主播好", "弹", "截", "Corvel", "弹幕😀\n\"二\"", "\0", "%@ %n %s", "\ud83d", "é" + "\u0301" * 40,
         "👨‍👩‍👧‍👦" * 30, "很长的一句话，" * 200, "x" * 3000, "مرحبا", "  两边  ", "#FF2D55", "12", "-1", "1e400", "nan")
NUMBERS = (0, 1, -1, 0.5, 3, 8, 12, 13, 0.05, 1.5, 20, 144, 400, -1e6, 1e6, 1e30, 1e-30, 2147483648)
BUTTONS = ("弹", "截", "✕", "保存", "取消", "确定", "确定清除", "关闭", "复制日志", "清空日志", "完成", "启用", "好",
           "▶ 插件配置", "▼ 插件配置", "▶ 延迟优化(实验)", "▼ 延迟优化(实验)", "导出Corvel配置", "导入Corvel配置",
           "清除插件配置", "查看调试日志", "清除调试日志", "自定义", "自定义", "4", "12", "36", "42", "48")
PRESENTED = ("present screen", 'present editor "你好"', 'present alert "标题" none "好" cancel',
             'present alert none "正文" "甲" "乙" destructive', "dismiss", "dismiss")
ACTIONS = ("dm_ftap", "dm_cap", "dm_bM", "dm_bm", "dm_cm", "dm_gd", "dm_exp", "dm_imp", "dm_clear", "dm_log",
           "dm_clearLog", "dm_edbg")


def quoted(text):
    """The text as a script writes it."""
    escapes = {"\n": "\\n", "\t": "\\t", "\0": "\\0", '"': '\\"', "\\": "\\\\"}
    return '"' + "".join(escapes.get(c) or (f"\\u{ord(c):04X}" if 0xD800 <= ord(c) < 0xE000 else c) for c in text) + '"'


def listed(file, pattern):
    return re.findall(pattern, (ROOT / file).read_text(encoding="utf-8"))


KEYS = listed("src/preferences/preferences.hpp", r'"(Corvel\.[^"]+\.[^"]+)"_literal')
ROWS = listed("src/settings/settings_table.hpp", r'\{u"([^"]+)"_literal, k')


class Steps:
    """Lines of one script; the same seed gives the same lines."""

    def __init__(self, host, seed):
        self.host = host
        self.random = random.Random(f"{host} {seed}")
        self.keys = KEYS + ["Corvel.frob", "Host.own"]
        self.keys += [f"Corvel.slots.{i}" for i in (0, 1, 2, 3, 7, 11, 143) for _ in range(4)]  # texts matter most
        kinds = ((20, self.float_button), (12, self.cell), (14, self.comments), (8, self.title), (6, self.row), (14, self.errand), (9, self.anywhere),
                 (8, self.fingers), (22, self.wait), (10, self.preference), (5, self.import_text), (12, self.app),
                 (4, self.misbehaviour), (7, self.keys_typed), (5, self.phone), (3, self.scenes), (4, self.presented),
                 (3, self.action), (1, self.relaunch), (3, self.tidiness))
        self.weights = [weight for weight, _ in kinds]
        self.kinds = [kind for _, kind in kinds]

    def lines(self, count):
        made = []
        while len(made) < count:
            made += self.random.choices(self.kinds, self.weights)[0]()
            if made[-1].endswith("held"):  # it lies there for a while, not for good
                made += [self.wait()[0], self.pick("touch cancel", f"touch up at {self.place()}")]
        return made[:count]

    def pick(self, *choices):
        return self.random.choice(choices)

    def place(self):
        return f"{self.random.randint(0, 389)} {self.random.randint(0, 843)}"

    def text(self):
        return self.random.choice(TEXTS)

    def float_button(self):
        # The places are those where the button begins and where a dragged one may dock.
        where = self.pick('"弹"', '"弹"', 'button "弹"', '"弹" in class DanmuWindow', "at 350 380")
        return [self.pick(f"tap {where}", f"tap {where}", f"press {where}", f"press {where} for 2",
                          f"drag {where} to {self.place()} in 0.3", f"drag {where} by {self.random.randint(-200, 200)} 3",
                          f"tap {where} times {self.random.randint(2, 4)}", f"press {where} held",
                          f"drag {where} to {self.place()} in 0.2 {self.pick('held', 'cancelled')}",
                          'tap "截"', 'drag "截" by -40 30')]

    def errand(self):
        """What a user sets out to do, in lines that find what they want."""
        rows = [quoted(row) for row in self.random.sample(ROWS, 4)]
        editor = [f"press cell {self.random.randint(0, 3)}", "wait 0.5", "erase all", f"type {quoted(self.text()[:20])}",
                  self.pick('tap "保存"', 'tap "取消"', 'tap "✕"', "wait 0"), "wait 0.5"]
        # Whatever is in the way goes; a press on the button would close a panel that is open.
        settings = self.pick([], ["dismiss", "wait 1"]) + ["touch cancel", "call action dm_cm", "wait 0.5", 'press "弹"',
                                                           "wait 0.5"]
        section = f"{self.pick('▶', '▼')} {self.pick('插件配置', '延迟优化(实验)')}"
        below = quoted(self.pick("导出Corvel配置", "导入Corvel配置", "清除插件配置", "查看调试日志", "清除调试日志"))
        return self.pick(
            [f"tap cell {self.random.randint(0, 8)}"] * 2 + editor,
            settings + [line for row in rows for line in (f"scroll label {row} into view", f"tap switch {row}")],
            settings + [line for row in rows for line in (f"scroll label {row} into view", f"slide slider {row} to 1")],
            settings + [f'scroll "{section}" into view', f'tap "{section}"', f"scroll {below} into view", f"tap {below}",
                        "wait 0.5", self.pick('tap "取消"', 'tap "关闭"', 'tap "确定清除"', "wait 0")],
            settings + ["tap class UITextField 1", "erase all", f"type {quoted(str(self.random.randint(0, 20)))}",
                        self.pick('tap "完成"', 'tap class UITextField 2', 'tap label "设置中心"', 'tap "弹"')],
            ["set Corvel.config.showCaptureButton bool true", "set Corvel.wc.floatSwitch bool true", "wait 7",
             "unset Corvel.wc.floatSwitch"],
            [f"set Corvel.config.gridPresetIndex int {self.random.randint(0, 9)}", "call action dm_imp"])

    def comments(self):
        """Some comments in a row, in a room if there is none."""
        first = self.random.randint(0, 3)
        lines = self.pick([], [f"set Corvel.slots.{first} {quoted(self.text())}"])
        lines += ["touch cancel", self.pick('tap "弹"', "wait 0"), "wait 0.5", f"host {self.pick(*EVENTS[self.host][:2])}"]
        for _ in range(self.random.randint(1, 5)):
            lines += [f"tap cell {self.pick(first, first, 0, 3, self.random.randint(0, 15))}", self.wait()[0]]
        return lines

    def tidiness(self):
        """Out of what has come to stand in the way."""
        return self.pick(["touch cancel", "dismiss", "wait 1", "dismiss", "wait 1"],
                         [f"tap alert {quoted(self.pick('取消', '关闭', '好'))}", "wait 0.5", "host calm"],
                         ["unset Corvel.wc.floatSwitch", "unset Corvel.config.gridPresetIndex"],
                         ["screen usual", "rotate portrait", "keyboard hide"],
                         ["scene 1 active", 'tap "✕" in class _UIColorPickerView', "wait 0.5"])

    def cell(self):
        index = self.pick(0, 0, 1, 2, 3, 5, 11, self.random.randint(0, 143))
        return [self.pick(*(f"tap cell {index}",) * 4, f"tap cell {index} times 3", f"press cell {index}",
                          f"drag cell {index} by 4 300 in 0.2", f"drag cell {index} by 30 5 cancelled",
                          f"press cell {index} for 0.3")]

    def title(self):
        text = quoted(self.random.choice(BUTTONS))
        return self.pick([f"tap {text}"], [f"tap {text}"], [f"scroll {text} into view", f"tap {text}"],
                         [f"press {text}"], [f"tap alert {text}"], [f"tap segment {text}"], [f"tap button {text}"])

    def row(self):
        text = quoted(self.random.choice(ROWS))
        value = self.random.choice((0.1, 0.5, 1, 1.5, 8, 14, 20, -5, 100))
        control = self.pick(f"tap switch {text}", f"slide slider {text} to {value}", f"tap beside {text}",
                            f"drag label {text} by 0 {self.random.randint(-150, 150)}")
        picker = [f"tap beside {text}", "wait 0.5",
                  self.pick("pick #FF2D55", "pick grey 0.5", 'tap segment "光谱"', "pick #00000000"),
                  self.pick('tap "✕" in class _UIColorPickerView', 'drag label "颜色" by 0 500', "wait 1")]
        return self.pick([control], [f"scroll label {text} into view", control], [f"scroll label {text} into view"] + picker,
                         [f"tap class UITextField {self.pick(1, 2)}", f"type {quoted(self.pick('5', '12', '0', '99'))}"],
                         ['drag label "设置中心" by ' + f"{self.random.randint(-400, 400)} {self.random.randint(-400, 400)}"])

    def anywhere(self):
        return [self.pick(f"tap at {self.place()}", f"press at {self.place()}", f"drag at {self.place()} to {self.place()} in 0.1",
                          f"drag at {self.place()} to {self.place()} cancelled", f"tap at {self.place()} times 2")]

    def fingers(self):
        finger = self.random.randint(1, 4)
        target = self.pick(f"at {self.place()}", f"at {self.place()}", '"弹"', "cell 0", '"截"', 'label "设置中心"', '"✕"')
        return [self.pick(f"touch down {target} finger {finger}", f"touch move at {self.place()} finger {finger}",
                          f"touch up at {self.place()} finger {finger}", f"touch cancel finger {finger}", "touch cancel")]

    def wait(self):
        return [f"wait {self.pick(0, 0.01, 0.1, 0.1, 0.25, 0.3, 0.5, 1, 2, 3, 7)}"]

    def value(self, depth=0):
        number = self.random.choice(NUMBERS)
        kind = self.random.randrange(10 if depth < 2 else 7)
        if kind < 3:
            return quoted(self.text())
        if kind < 7:
            whole = int(max(min(number, 2**62), -(2**62)))
            return self.pick(f"int {whole}", f"float {number}", f"double {number}", f"bool {self.pick('true', 'false')}",
                             "data 00FFA0", "data empty", f"date {whole % 10**9}")
        if kind < 9:
            return f"array [ {self.value(depth + 1)} {self.value(depth + 1)} ]"
        return f'dict {{ "a" {self.value(depth + 1)} }}'

    def preference(self):
        key = quoted(self.random.choice(self.keys))
        return [self.pick(f"set {key} {self.value()}", f"set {key} {self.value()}", f"set {key} {self.sensible(key)}",
                          f"unset {key}", f"host on worker set {key} {self.value()}", f"host on worker unset {key}")]

    def sensible(self, key):
        if "slots" in key:
            return quoted(self.text())
        if "olor" in key:
            return quoted(self.pick("#102030", "#FFFFFF", "red", "#12"))
        if "grid" in key:
            return f"int {self.random.randint(-1, 13)}"
        return self.pick(f"float {self.random.uniform(-1, 25):.2f}", "bool true", "bool false")

    def import_text(self):
        values = {}
        for _ in range(self.random.randint(0, 6)):
            values[self.random.choice(self.keys)] = self.pick(
                self.text(), self.random.choice(NUMBERS), True, False, None, [], [1, [None]], {}, {"a": {"b": 1}})
        text = json.dumps(values, ensure_ascii=False)
        packed = base64.b64encode(zlib.compress(text.encode("utf-8", "surrogatepass"))).decode()
        if self.random.random() < 0.2:
            packed = packed[:self.random.randrange(len(packed))] + self.pick("", "=", "A", "*")
        copied = self.pick(text, self.pick("DM1:", "CV1:") + packed, self.text(), text[:-1])
        copied = [f"pasteboard {quoted(copied)}"] if self.random.random() < 0.9 else ["pasteboard none"]
        return copied + self.pick(["call action dm_imp"], ["call action dm_imp", "wait 1"], ["call action dm_exp"])

    def app(self):
        named = f"{self.random.choice(OBJECTS[self.host])} {self.random.randint(1, 3)}"
        return [self.pick(*(f"host {event}" for event in EVENTS[self.host][:3] * 2), "host leave", "host leave",
                          f"host {self.random.choice(EVENTS[self.host])}", f"host {self.random.choice(EVENTS[self.host])}",
                          f"host new {self.random.choice(OBJECTS[self.host])}", f"host release {named}",
                          "notify DanmuServiceReady", "host on worker notify DanmuServiceReady", "call InitUI",
                          f"call {SENDERS[self.host]}_SendMessage {self.pick(quoted(self.text()), 'nil')}",
                          f"call {SENDERS[self.host]}_IsReady")]

    def misbehaviour(self):
        method = self.random.choice(CALLED[self.host])
        return [self.pick(f"host throw maybe {method} {quoted(self.text() or 'x')}", f"host refuse {method}", "host calm",
                          "host calm")]

    def keys_typed(self):
        return [self.pick(f"type {quoted(self.text()[:40])}", 'type "12"', "paste", "erase 2", "erase all", "select all",
                          "select 0 1", "keyboard hide", f"keyboard height {self.random.randint(0, 500)}",
                          f"keyboard duration {self.pick(0, 0.25, 2)}", "tap class UITextView", "tap class UITextField 1")]

    def phone(self):
        return [self.pick(f"appearance {self.pick('light', 'dark')}",
                          *(f"rotate {way}" for way in ("portrait", "left", "right", "upside-down")),
                          f"screen {self.pick('small', 'classic', 'usual', 'large')}",
                          f"screen {self.random.randint(200, 1100)} {self.random.randint(200, 1400)}")]

    def scenes(self):
        number = self.random.randint(1, 3)
        state = self.pick("active", "inactive", "background")
        return self.pick([f"scene {number} {state}"], ["scene 1 active"], [f"scene add {state}"],
                         [f"scene {number} disconnect"], [f"scene {number} keyless"],
                         [f"window level {self.pick(0, 1, 2000, 2200)}" + self.pick("", " key")],
                         ["scene 1 background", "wait 2", "scene 1 active"])

    def presented(self):
        return [self.random.choice(PRESENTED)]

    def action(self):
        return [f"call action {self.random.choice(ACTIONS)}"]

    def relaunch(self):
        # The overlay comes three seconds after a launch.
        return [self.pick("relaunch", "relaunch killed"), "wait 3"] if self.random.random() < 0.25 else ["wait 3"]
