"""The window, on a display in memory: real mouse and keys go in, pictures of the real window come out.

Called with the simulator, which the window's program lies beside, the library and then unittest's own arguments. CORVEL_TOUCHES asks for more
random touches, CORVEL_SEED for others.
"""

import os
import random
import subprocess
import sys
import unittest
from pathlib import Path
from tempfile import TemporaryDirectory

from desk import LIMIT, ROOT, Desk
from display import read_png

SIMULATOR, LIBRARY = (Path(argument).resolve() for argument in sys.argv[1:3])
WINDOW = SIMULATOR.with_name("corvel-window")
TOUCHES = int(os.environ.get("CORVEL_TOUCHES", "600"))
SEED = os.environ.get("CORVEL_SEED", "1")

# Places on the usual screen, in points.
BUTTON = (350, 380)
FIRST_SLOT = (130, 250)
CHAT = (0, 640, 300, 140)
SAVE_SLOT = (279, 395)
FIRST_SWITCH = (300, 252)
FIRST_SLIDER = (195, 512)


class WindowTest(unittest.TestCase):
    def open(self, options=(), **more):
        desk = Desk(WINDOW, LIBRARY, options=["--check-drawing", *options], **more)
        self.addCleanup(desk.clear)
        return desk

    def enter(self, desk):
        """Enters a room and waits for the library's button, a red or orange one."""
        desk.push("enter")

        def is_there():
            red, _, blue = desk.phone().at(desk.scale * BUTTON[0], desk.scale * (BUTTON[1] + 18))
            return red > 200 and blue < 120

        desk.until(is_there, "the button is there")
        return desk.at_rest()

    def replay(self, desk, *more, state=None):
        """The saved script, played by the simulator alone: status and lines."""
        script = Path(desk.folder.name) / "replay.scn"
        script.write_text(desk.saved.read_text(encoding="utf-8") + "".join(line + "\n" for line in more), encoding="utf-8")
        command = [SIMULATOR, "--host", desk.host, "--library", LIBRARY, "--words",
                   ROOT / "tests/scenarios/corvel.words", "--pictures", desk.folder.name, "run", script]
        if state:
            command[1:1] = ["--state", state]
        run = subprocess.run(command, capture_output=True, text=True, timeout=LIMIT)
        return run.returncode, run.stdout.splitlines()

    def save(self, desk):
        saved = desk.count("saved ")
        desk.push("save")
        desk.until(lambda: desk.count("saved ") > saved, "the script is saved")

    def expect_same_picture(self, desk):
        """The window shows, pixel by pixel, what the simulator draws when it plays the saved script."""
        shown = desk.at_rest()
        self.save(desk)
        status, lines = self.replay(desk, "picture replayed")
        self.assertEqual(status, 0, lines)
        drawn = read_png(Path(desk.folder.name) / "replayed.png")
        self.assertEqual((shown.width, shown.height), (drawn.width, drawn.height))
        corner = 100  # pixels, which the window leaves to the phone's case
        inner = (0, corner, shown.width, shown.height - 2 * corner)
        self.assertEqual(shown.part(*inner).differs(drawn.part(*inner), least=2), 0)
        return shown

    def close(self, desk, status=0, by_signal=False):
        self.assertEqual(desk.close(by_signal), status, desk.story())
        self.assertTrue(desk.heard(" wrong 0\n"), desk.story())

    def test_a_comment_in_ones_own_words(self):
        words = "晚上好"
        desk = self.open(keys=words)
        room = self.enter(desk)
        desk.tap(*BUTTON)
        grid = desk.at_rest()
        self.assertGreater(grid.part(60, 160, 310, 280).differs(room.part(60, 160, 310, 280), 8), 0.5)
        self.assertEqual(grid.part(*CHAT).differs(room.part(*CHAT)), 0)

        desk.hold(*FIRST_SLOT)
        editor = desk.at_rest()
        self.assertTrue(all(part > 200 for part in editor.at(195, 820)), "the keyboard's lowest part")
        desk.display.press("a", holding="Control_L")
        desk.display.type(words)
        typed = desk.at_rest()
        text = (30, 270, 330, 100)
        self.assertGreater(typed.part(*text).differs(editor.part(*text)), 0.004)
        keys = (0, 540, 390, 250)
        self.assertEqual(typed.part(*keys).differs(editor.part(*keys)), 0)

        desk.tap(*SAVE_SLOT)
        desk.at_rest()
        desk.tap(*FIRST_SLOT)
        desk.until(lambda: desk.heard(f'comment 1: "{words}"'), "the comment is there")
        sent = desk.at_rest()
        self.assertGreater(sent.part(*CHAT).differs(room.part(*CHAT)), 0.01)

        self.save(desk)
        status, lines = self.replay(desk)
        self.assertEqual(status, 0, lines)
        comments = [line.rstrip("\n") for line in desk.said if line.startswith("comment ")]
        self.assertEqual([line for line in lines if line.startswith("comment ")], comments)
        self.close(desk)
        # What the app stored outlasts the window.
        desk.saved.write_text(f'expect pref Corvel.slots.0 is "{words}"\n', encoding="utf-8")
        self.assertEqual(self.replay(desk, state=desk.state)[0], 0)

    def test_settings_and_turning(self):
        desk = self.open(scale=2)
        self.enter(desk)
        desk.hold(*BUTTON)
        panel = desk.at_rest()
        desk.tap(*FIRST_SWITCH)
        desk.drag(FIRST_SLIDER, (250, FIRST_SLIDER[1]))
        desk.at_rest()
        changed = self.expect_same_picture(desk)
        red, green, blue = changed.at(2 * FIRST_SWITCH[0] - 24, 2 * FIRST_SWITCH[1])
        self.assertTrue(green > red + 60 and green > blue + 60, "the switch is green")
        status, lines = self.replay(desk, "expect no pref Corvel.config.matrixScale is float 1", "print prefs Corvel.config")
        self.assertEqual(status, 0, lines)

        desk.wheel(195, 500, -6)
        scrolled = desk.at_rest()
        rows = (100, 440, 560, 700)
        self.assertGreater(scrolled.part(*rows).differs(panel.part(*rows)), 0.02)
        self.expect_same_picture(desk)

        desk.push("left")
        desk.until(lambda: desk.place("phone")[2:] == [1688, 780], "the phone lies on its side")
        self.expect_same_picture(desk)
        desk.push("portrait")
        desk.push("dark")
        desk.until(lambda: desk.place("phone")[2:] == [780, 1688], "the phone stands")
        self.expect_same_picture(desk)
        self.close(desk)

    def test_keys_and_clipboard(self):
        desk = self.open(options=["--first", self.steps('setup set Corvel.slots.0 "x"')])
        self.enter(desk)
        desk.tap(*BUTTON)
        desk.at_rest()
        desk.hold(*FIRST_SLOT)
        desk.at_rest()
        desk.display.type("abd")
        for key in ("Left", "BackSpace", "c", "End", "Home", "Delete"):
            desk.display.press(key)
        # acd; cut, and twice put back
        for letter in "axvv":
            desk.display.press(letter, holding="Control_L")
        desk.at_rest()
        desk.tap(*SAVE_SLOT)
        desk.at_rest()
        self.save(desk)
        status, lines = self.replay(desk, 'expect pref Corvel.slots.0 is "acdacd"', 'expect pasteboard is "acd"')
        self.assertEqual(status, 0, lines)
        self.close(desk)

    def test_two_fingers_and_an_app_that_misbehaves(self):
        desk = self.open(host="kuaishou", options=["--first", ROOT / "demo/window.steps"])
        self.enter(desk)
        desk.display.key("Control_L", True)
        desk.tap(*BUTTON)
        desk.display.key("Control_L", False)
        desk.at_rest()
        self.assertIn("finger 2", desk.saved.read_text(encoding="utf-8"))
        left, bottom, width, _ = desk.place("save")
        log = (left, bottom // 2 + 50, width, bottom // 2 - 100)
        before = desk.display.picture(*log)
        desk.push("throw")
        desk.tap(*FIRST_SLOT)
        desk.until(lambda: desk.display.picture(*log).differs(before) > 0.005, "the log tells of the failure")
        desk.push("calm")
        self.assertFalse(desk.heard("comment 1:"))
        desk.tap(*FIRST_SLOT)
        desk.until(lambda: desk.heard("comment 1:"), "the comment is there")
        self.save(desk)
        self.assertEqual(self.replay(desk)[0], 0)
        self.close(desk)

    def steps(self, *lines):
        file = Path(self.enterContext(TemporaryDirectory())) / "first.steps"
        file.write_text("".join(line + "\n" for line in lines), encoding="utf-8")
        return file

    def test_an_app_that_ends(self):
        desk = self.open(options=["--first", self.steps(
            "host new fragment", 'host throw HTSLiveCommentFragment dealloc "boom"',
            "host let componentMount call fragment 1 performSelector: dealloc")])
        desk.push("enter")
        desk.until(lambda: desk.heard("exception reached the host: boom"), "the end is told")
        desk.tap(195, 400)  # nothing happens any more, and nothing goes wrong
        self.save(desk)
        self.close(desk, status=3)
        status, lines = self.replay(desk)
        self.assertEqual((status, lines[-1].split(": ", 1)[1]), (3, "exception reached the host: boom"))

    def test_closing_in_the_middle(self):
        def with_a_panel_springing(desk):
            desk.tap(*BUTTON)

        def with_the_editor_open(desk):
            desk.tap(*BUTTON)
            desk.at_rest()
            desk.hold(*FIRST_SLOT)
            desk.at_rest()
            desk.display.type("abc")

        def with_a_slider_held(desk):
            desk.hold(*BUTTON)
            desk.at_rest()
            desk.tap(*FIRST_SWITCH)
            desk.display.move(*desk.on_phone(*FIRST_SLIDER))
            desk.display.button(True)
            desk.display.move(*desk.on_phone(240, FIRST_SLIDER[1]))

        kept = "expect pref Corvel.slots.3 is \"kept\""
        for act, by_signal, expected in (
            (with_a_panel_springing, False, kept),
            (with_the_editor_open, True, kept + "\nexpect no pref Corvel.slots.0"),
            (with_a_slider_held, False, kept + "\nexpect pref Corvel.config.autoCaptureAfterSend is bool true"),
        ):
            with self.subTest(act.__name__):
                desk = self.open(options=["--first", self.steps('setup set Corvel.slots.3 "kept"')])
                self.enter(desk)
                act(desk)
                desk.passed()
                self.close(desk, by_signal=by_signal)
                desk.saved.write_text(expected + "\nprint prefs Corvel\n", encoding="utf-8")
                status, lines = self.replay(desk, state=desk.state)
                self.assertEqual(status, 0, lines)

    def test_random_touches(self):
        desk = self.open()
        self.enter(desk)
        chance = random.Random(SEED)
        done = 0

        def touch(count):
            nonlocal done
            width, height = desk.place("phone")[2:]
            for _ in range(count):
                start = (chance.randrange(width), chance.randrange(height))
                if chance.random() < 0.1:
                    desk.drag(start, (chance.randrange(width), chance.randrange(height)), steps=4, seconds=0)
                else:
                    desk.tap(*start)
                done += 1
                if done % 20 == 0:
                    desk.until(lambda: desk.count("touch ") >= done, f"{done} touches")
                if done % 200 == 0:
                    desk.push("enter")

        touch(TOUCHES // 3)
        warm = desk.memory()
        touch(TOUCHES - TOUCHES // 3)
        grown = desk.memory() - warm
        print(f"{warm} KiB after {TOUCHES // 3} touches, {grown} KiB more after {TOUCHES}")
        self.close(desk)
        # The script of what was done, and the comments, are all that may grow. A sanitized build keeps what was freed;
        # there the leak checker has had its say when the window closed.
        if b"__asan_init" not in WINDOW.read_bytes():
            self.assertLess(grown, 4096 + TOUCHES // 4, "KiB")

    def test_refusals(self):
        for options, display, says in (
            (["--host", "plain"], "", "no display: neither DISPLAY nor WAYLAND_DISPLAY is set"),
            (["--host", "frob"], "", "unknown host frob; hosts are douyin, kuaishou, plain, wechat, xhs"),
            (["--host", "plain", "--save", "/proc/none/x"], "", "cannot write /proc/none/x"),
            (["--host", "plain", "--scale", "9"], "", "--scale wants pixels a point, from 0.25 to 4, not 9"),
            (["--host", "plain", "frob"], "", "the window takes no 'frob'"),
            (["--host"], "", "--host wants a value"),
        ):
            with self.subTest(says):
                self.expect_refusal(options, display, says)
        desk = self.open(host="plain")
        self.expect_refusal(["--host", "plain", "--screen", "100x900"], desk.display.name,
                            "--screen: no phone has such a screen: it stands upright, from 200 to 2000 points")
        self.close(desk)

    def expect_refusal(self, options, display, says):
        with TemporaryDirectory() as folder:
            run = subprocess.run(
                [WINDOW, "--library", LIBRARY, *options], capture_output=True, text=True, timeout=LIMIT,
                env=os.environ | {"DISPLAY": display, "WAYLAND_DISPLAY": "", "XDG_DATA_HOME": folder})
            self.assertEqual((run.returncode, run.stdout, run.stderr), (2, "", f"corvel-window: {says}\n"))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
