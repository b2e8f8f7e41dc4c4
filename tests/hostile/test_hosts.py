"""Apps that do their worst: every method that Corvel calls or hooks throws, does nothing, or does something unexpected
half-way. A comment must then be handed over once and whole or be missed with a line in the log, and afterwards the app
must be served as ever.

usage: test_hosts.py SIMULATOR LIBRARY [-k NAME]
"""

import re
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "transfer"))
from player import Played, main  # noqa: E402


class App:
    def __init__(self, host, room, send, asked, superclasses):
        self.host = host
        self.room = room  # numbered, so that each is another one
        self.send = send
        self.asked = asked  # classes whose objects Corvel asks what every object can be asked
        self.superclasses = superclasses  # of classes, as another version of the app may have them


APPS = {
    app.host: app
    for app in (
        App("douyin", 'host enter "73{}"', "DY_SendMessage", ("HTSLiveCommentFragment", "HTSLiveCommentStore",
            "IESLiveCommentContext"), (("HTSLiveCommentStore", "HTSLiveComponent"),
            ("HTSLiveCommentFragment", "HTSLiveBaseStore"), ("IESLiveCommentContext", "HTSLiveBaseStore"))),
        App("xhs", 'host enter "g{}"', "XHS_SendMessage", ("XYLivePlayDecorateView", "XYCommentBar"), ()),
        App("kuaishou", 'host enter "街{}"', "KS_SendMessage", ("KSLiveCommentBarService", "KSLiveCommentService"), ()),
        App("wechat", 'host enter "t{}"', "FC_SendMessage", ("MMLiveCommentView",), ()),
    )
}  # fmt: skip
ASKED = ("respondsToSelector:", "isKindOfClass:", "valueForKey:", "setValue:forKey:", "performSelector:",
         "performSelector:withObject:", "performSelector:withObject:withObject:")  # fmt: skip
# What a method may do before it does what it should.
DEEDS = ("notify DanmuServiceReady", "host leave", 'host enter "9"', "call {send} \"inner\"", "call action dm_ftap",
         "call action dm_imp", "call action dm_cap", "set Corvel.wc.floatSwitch bool true", "scene 1 disconnect")  # fmt: skip


class Course:
    """A script of attempts, each in a room of its own, and what must have come of each."""

    def __init__(self, app):
        self.app = app
        self.lines = ["setup set Corvel.debug.logEnabled bool true", 'setup pasteboard "x"']
        self.rooms = 0
        self.attempts = []  # text, whether the app is well

    def enter(self):
        self.rooms += 1
        self.lines += ["host leave", self.app.room.format(self.rooms)]

    def attempt(self, before=(), after=(), well=False):
        text = f"text {len(self.attempts)}"
        self.attempts.append((text, well))
        self.lines += before
        self.enter()
        self.lines += ["wait 1", f"echo attempt {text}", f'call {self.app.send} "{text}"', "wait 1", "print log", *after]

    def bad_and_well(self, before):
        self.attempt(before)
        self.lines.append("host calm")
        self.attempt(well=True)


def played(host, lines):
    with tempfile.TemporaryDirectory() as directory:
        return Played(Path(directory), host, lines)


def methods_of(host):
    result = played(host, ["print host methods"])
    return re.findall(r"^host methods: (\S+) (\S+)( perhaps)?$", result.printed, re.MULTILINE)


def said_by_host(printed):
    return [line for line in printed.splitlines() if line.startswith("host ")]


class HostileHosts(unittest.TestCase):
    def check(self, course):
        result = played(course.app.host, course.lines)
        where = "\n".join([*course.lines, "---", result.printed])
        self.assertEqual(result.status, 0, where)
        parts = re.split(r"^attempt (text \d+)\n", result.printed, flags=re.MULTILINE)
        for (text, well), part in zip(course.attempts, parts[2::2], strict=True):
            arrived = len(re.findall(rf'^comment \d+: "{text}" ', result.printed, re.MULTILINE))
            self.assertLessEqual(arrived, 1, f"{text} was sent twice\n{where}")
            if well:
                self.assertEqual(arrived, 1, f"{text} was lost\n{where}")
            elif arrived == 0:
                log = part.split(f'send=\\"{text}\\"')[-1]
                handed = f'"{text}"' in part.split("print log")[0]
                self.assertTrue(handed or "❌" in log or re.search(r"=N|0x0|nil", log), f"{text} was lost silently\n{where}")
        return result

    def every_method(self, host):
        app = APPS[host]
        for cls, selector, perhaps in methods_of(host):
            with self.subTest(cls=cls, selector=selector):
                course = Course(app)
                if perhaps:
                    course.lines.append(f"setup host with method {cls} {selector}")
                course.lines.append(f'setup host throw maybe {cls} {selector} "worst"')
                course.bad_and_well([])
                # Whatever Corvel did meanwhile, the app's own exceptions went where they go without it.
                own = [line for line in course.lines if not line.startswith(("call", "print"))]
                course.attempt([f"host refuse {cls} {selector}"], ["host calm", f"print host calls {selector}"])
                for deed in DEEDS:
                    if not (deed.startswith("set Corvel.wc") and host != "wechat"):
                        course.bad_and_well([f"host let {selector} do {deed.format(send=app.send)}"])
                        course.lines += ["unset Corvel.wc.floatSwitch", "scene add active" if "scene" in deed else "wait 1"]
                course.attempt(well=True)
                result = self.check(course)
                alone = played_alone(host, own)
                self.assertEqual(said_by_host(alone)[:2], said_by_host(result.printed)[: len(said_by_host(alone)[:2])])

    def test_douyin(self):
        self.every_method("douyin")
