"""Whether rules that are broken are seen, and whether a failing run can be repeated and is shortened."""

import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from monkey import HERE, Run
from shrink import shrink

# In a room with the matrix open, two comments sent.
TAPS = ["wait 3", 'host enter "7311"', 'tap "弹"', "wait 1", "tap cell 1", "tap cell 2"]


class MonkeyTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def play(self, rule, lines):
        rules = self.folder / "test.rules"
        rules.write_text(rule + "\n", encoding="utf-8")
        return Run(simulator, rules, "douyin", lines)

    def test_rules(self):
        sends = 'sends dm_mT: from {} keys "Corvel.slots." empty "额" ready douyin DY_IsReady'
        for rule, lines, line in (
            ("single UIWindow", ["wait 3", "window", "wait 1"], 2),
            ('single DanmuWindow button "弹"', TAPS, None),
            ('above DanmuWindow panel "Corvel" button "弹"', TAPS, 3),
            ('above DanmuWindow button "弹" panel "Corvel"', TAPS, None),
            ("through DanmuWindow", TAPS, None),
            ("through UIWindow", ["wait 1", "wait 2"], 1),  # the app's own window takes every touch itself
            ('keys "Corvel."', ["wait 3", 'set Host.own "x"', 'press "弹"', "wait 1"], None),
            ('keys "Corvel.ui."', ["setup set Corvel.debug.logEnabled bool false", "wait 3", 'press "弹"', "wait 1"], None),
            ('keys "Corvel.debug."', ["wait 3", 'set Corvel.slots.1 "x"', 'press "弹"', "wait 1"], 3),
            (sends.format(1000), TAPS, None),
            (sends.format(1001), TAPS, 5),
            (sends.format(1000), TAPS[:4] + ['host throw HTSLiveCommentStore context "x"', "tap cell 0"], None),
            (sends.format(1000), TAPS + ['call DY_SendMessage "x"', "wait 1"], None),
        ):
            with self.subTest(rule):
                run = self.play(rule, lines)
                self.assertEqual(run.status, 0 if line is None else 4, run.output + run.remarks)
                self.assertEqual(run.last_line(), line or len(lines), run.output)

    def test_lines_without_sense(self):
        run = self.play("single DanmuWindow", ["frob", "wait 3", 'tap "no such"', 'tap "弹"', "setup unset x", 'type "x"'])
        self.assertEqual((run.status, run.passed_over), (0, 4), run.output + run.remarks)
        for rule in ("frob", "single", 'single DanmuWindow frob "x"', "above DanmuWindow", "single DanmuWindow button x"):
            self.assertEqual(self.play(rule, ["wait 1"]).status, 2)

    def test_shrink(self):
        lines = [str(number) for number in range(100)]
        self.assertEqual(shrink(lines, lambda fewer: {"7", "50", "93"} <= set(fewer)), ["7", "50", "93"])
        self.assertEqual(shrink(lines, lambda fewer: len(fewer) > 0), ["99"])

    def test_failing_run(self):
        rules = self.folder / "one.rules"
        rules.write_text('above DanmuWindow panel "Corvel" button "弹"\n', encoding="utf-8")

        def said(steps, seed):
            command = [sys.executable, "-B", HERE / "monkey.py", "--save", self.folder, "--rules", rules, "wechat",
                       str(steps), str(seed), "--", *simulator]
            done = subprocess.run(command, capture_output=True, text=True)
            return done.returncode, done.stdout

        status, output = said(600, 5)
        self.assertEqual(status, 1, output)
        self.assertRegex(output, r"(?m)^wechat 600 5: failed with status 4\nsteps:\d+: broken: above DanmuWindow .*below$")
        script = (self.folder / "wechat-5.scn").read_text(encoding="utf-8").splitlines()
        self.assertEqual(script[0], "# host: wechat")
        self.assertLess(len(script), 6, script)
        self.assertEqual(Run(simulator, rules, "wechat", script[1:]).status, 4)
        shown = re.sub(r" [0-9]+ steps a second", "", output)
        self.assertEqual(re.sub(r" [0-9]+ steps a second", "", said(600, 5)[1]), shown)


if __name__ == "__main__":
    simulator = sys.argv[1:]
    unittest.main(argv=sys.argv[:1])
