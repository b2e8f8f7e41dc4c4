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
            ("HTSLiveCommentFragment", "AWELiveBaseObject"), ("IESLiveCommentContext", "HTSLiveBaseStore"))),
        App("xhs", 'host enter "g{}"', "XHS_SendMessage", ("XYLivePlayDecorateView", "XYCommentBar"),
            (("XYLivePlayDecorateView", "UIView"), ("XYCommentBar", "XYInputBarRoot"), ("XYLiveImEngine", "UIView"),
            ("XYLiveIMMessage", "XYLiveIMRoot"))),
        App("kuaishou", 'host enter "街{}"', "KS_SendMessage", ("KSSLiveCommentBarService", "KSLiveCommentService"),
            (("KSSLiveCommentBarService", "NSObject"), ("KSLiveCommentService", "NSObject"),
            ("KSSLiveCommentBarService", "UIView"))),
        App("wechat", 'host enter "t{}"', "FC_SendMessage", ("MMLiveCommentView",), (("MMLiveCommentView", "MMLiveRootView"),
            ("WCPluginsMgr", "NSObject"))),
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
        self.lines += ["wait 1", 'set Corvel.debug.logBuffer ""', f"echo attempt {text}", f'call {self.app.send} "{text}"', "wait 1", "print log", *after]

    def bad_and_well(self, before):
        self.attempt(before)
        self.lines.append("host calm")
        self.attempt(well=True)


def played(host, lines, **options):
    with tempfile.TemporaryDirectory() as directory:
        return Played(Path(directory), host, lines, **options)


def methods_of(host):
    result = played(host, ["print host methods"])
    # The player's getters have scenarios of their own: nothing calls them here.
    return re.findall(r"^host methods: (?!TVL|VeLive)(\S+) (\S+)( perhaps)?$", result.printed, re.MULTILINE)


def said_by_host(printed):
    """What the app's own events said before the second attempt."""
    return re.findall(r"^host (?!calls).*", printed.split("attempt text 1")[0], re.MULTILINE)


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
                own = [line for line in course.lines if not line.startswith(("call", "print"))]
                course.attempt([f"host refuse {cls} {selector}"], ["host calm", f"print host calls {selector}"])
                for deed in DEEDS:
                    if not (deed.startswith("set Corvel.wc") and host != "wechat"):
                        how = "once" if "scene" in deed else "do"
                        course.bad_and_well([f"host let {selector} {how} {deed.format(send=app.send)}"])
                        course.lines += ["unset Corvel.wc.floatSwitch", "scene add active" if "scene" in deed else "wait 1"]
                course.attempt(well=True)
                result = self.check(course)
                # The app's own exceptions went where they go without Corvel.
                self.assertEqual(said_by_host(played(host, own, library="none").printed), said_by_host(result.printed))

    def wrapped(self, host):
        """Others replace the same methods before and after Corvel: each is called, and the app's own once."""
        app = APPS[host]
        methods = [(cls, selector) for cls, selector, perhaps in methods_of(host) if not perhaps and selector != "dealloc"]
        for first in ("setup host wrap {} {}", "setup host throw maybe {} {} \"no\""):
            course = Course(app)
            course.lines += [first.format(*method) for method in methods if "sharedInstance" not in method]
            if "throw" in first:
                course.attempt()
                course.lines += ["host calm"]
            course.lines += [f"host wrap {cls} {selector}" for cls, selector in methods if "sharedInstance" != selector]
            for _ in range(3):
                course.attempt(well=True)
            self.check(course)

    def asked(self, host):
        """What every object answers is the class's own here, and fails."""
        app = APPS[host]
        course = Course(app)
        for cls in app.asked:
            course.lines += [f"setup host wrap {cls} {selector}" for selector in ASKED]
        course.attempt(well=True)
        for cls in app.asked:
            for selector in ASKED:
                if selector.startswith("setValue") or cls.endswith("Context"):
                    # A key that a context refuses is skipped, the text's own too: all that counts is that nothing breaks.
                    for deed in (f'throw maybe {cls} {selector} "asked"', f"refuse {cls} {selector}"):
                        course.enter()
                        course.lines += [f"host {deed}", f'call {app.send} "unheard"', "wait 1", "host calm"]
                    course.attempt(well=True)
                    continue
                course.bad_and_well([f'host throw maybe {cls} {selector} "asked"'])
                if not selector.startswith("perform"):  # what that swallows has been handed over
                    course.bad_and_well([f"host refuse {cls} {selector}"])
        course.attempt([f'host throw maybe {cls} {selector} "asked"' for cls in app.asked for selector in ASKED])
        course.lines.append("host calm")
        course.attempt(well=True)
        self.check(course)

    def moved(self, host):
        """A class has another superclass than ever."""
        app = APPS[host]
        for cls, superclass in app.superclasses:
            with self.subTest(cls=cls, superclass=superclass):
                course = Course(app)
                course.lines.append(f"setup host superclass {cls} {superclass}")
                course.attempt(well=True)
                self.check(course)


for host in APPS:
    for kind in ("every_method", "wrapped", "asked", "moved"):
        if kind != "moved" or APPS[host].superclasses:
            setattr(HostileHosts, f"test_{host}_{kind}", lambda self, kind=kind, host=host: getattr(self, kind)(host))

if __name__ == "__main__":
    main()
