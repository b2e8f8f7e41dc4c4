"""The window of the simulated phone, steered as a person would."""

import os
import subprocess
import tempfile
import threading
import time
from pathlib import Path

from display import Display

ROOT = Path(__file__).resolve().parents[2]
# Generous: a loaded machine under the sanitizers is slow.
LIMIT = 60


class Desk:
    """The program on a display of its own. `keys` are characters that its keyboard has beside the usual ones."""

    def __init__(self, program, library, host="douyin", keys="", scale=1, options=()):
        self.host, self.scale = host, scale
        self.folder = tempfile.TemporaryDirectory()
        self.saved = Path(self.folder.name) / "saved.scn"
        self.state = Path(self.folder.name) / "state"
        self.display = Display()
        self.display.give_keys(keys)
        command = [program, "--host", host, "--library", library, "--state", self.state,
                   "--words", ROOT / "tests/scenarios/corvel.words", "--save", self.saved, "--scale", str(scale),
                   "--places", *options]
        self.process = subprocess.Popen(
            command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, cwd=self.folder.name,
            env=os.environ | {"DISPLAY": self.display.name, "WAYLAND_DISPLAY": "", "LC_ALL": "C.UTF-8"})
        self.said = []
        self.reader = threading.Thread(target=lambda: self.said.extend(iter(self.process.stdout.readline, "")))
        self.reader.start()
        self.until(lambda: self.display.window() and self.place("save"), "the window opens")
        self.window = self.display.window()
        self.display.focus(self.window)

    def until(self, holds, what):
        """Waits for something that is to come; what it was is the message when it does not."""
        end = time.monotonic() + LIMIT
        while True:
            value = holds()
            if value:
                return value
            assert self.process.poll() is None, f"the window has closed before {what}:\n" + self.story()
            assert time.monotonic() < end, f"never happened: {what}\n" + self.story()
            time.sleep(0.02)

    def count(self, beginning):
        """How many lines with this beginning the program has said."""
        return sum(line.startswith(beginning) for line in self.said)

    def story(self):
        """What the program said beside the places and files that tests ask for."""
        return "".join(line for line in self.said if not line.startswith(("place ", "saved ")))

    def heard(self, part):
        return any(part in line for line in self.said)

    def place(self, name):
        """Where the phone or a button is by now: x, y, width, height; None as long as nobody has said."""
        lines = [line.split()[2:] for line in self.said if line.startswith(f"place {name} ")]
        return [int(number) for number in lines[-1]] if lines else None

    def on_phone(self, x, y):
        left, top, _, _ = self.place("phone")
        return left + self.scale * x, top + self.scale * y

    def tap(self, x, y):
        """A finger down and up at a place of the phone's interface."""
        self.display.move(*self.on_phone(x, y))
        self.display.button(True)
        self.display.button(False)

    def hold(self, x, y):
        """A finger that rests for so long that it is a long press."""
        self.display.move(*self.on_phone(x, y))
        self.display.button(True)
        landed = self.passed()
        self.until(lambda: self.passed() > landed + 0.7, "the finger has rested")
        self.display.button(False)

    def wheel(self, x, y, notches):
        """The wheel turned over a place; up is above zero."""
        self.display.move(*self.on_phone(x, y))
        for _ in range(abs(notches)):
            self.display.button(True, 4 if notches > 0 else 5)
            self.display.button(False, 4 if notches > 0 else 5)

    def push(self, name):
        x, y, width, height = self.place(name)
        self.display.move(x + width // 2, y + height // 2)
        self.display.button(True)
        self.display.button(False)

    def drag(self, start, end, steps=12, seconds=0.3):
        self.display.move(*self.on_phone(*start))
        self.display.button(True)
        for step in range(1, steps + 1):
            time.sleep(seconds / steps)
            self.display.move(*self.on_phone(*(a + (b - a) * step / steps for a, b in zip(start, end))))
        self.display.button(False)

    def passed(self):
        """Seconds that have passed on the phone, by the script of what was done, which Ctrl+S saves: what was done
        before has reached the phone by then, however slow the computer is."""
        saved = self.count("saved ")
        self.display.press("s", holding="Control_L")
        self.until(lambda: self.count("saved ") > saved, "the script is saved")
        lines = self.saved.read_text(encoding="utf-8").splitlines()
        return sum(float(line.split()[1]) for line in lines if line.startswith("wait "))

    def phone(self):
        """The phone's screen as the computer's shows it."""
        return self.display.picture(*self.place("phone"))

    def at_rest(self, rests=0.3):
        """The phone's screen once nothing has moved on it for so many seconds of the phone's."""
        self.passed()
        picture, since = None, 0

        def still():
            nonlocal picture, since
            time = self.passed()
            now = self.phone()
            if picture and now.data == picture.data:
                return time - since >= rests
            picture, since = now, self.passed()
            return False

        self.until(still, "the screen comes to rest")
        return picture

    def memory(self):
        """KiB that the program holds."""
        status = Path(f"/proc/{self.process.pid}/status").read_text()
        return int(next(line for line in status.splitlines() if line.startswith("VmRSS")).split()[1])

    def spent(self):
        """Seconds of processor time that the program has taken."""
        fields = Path(f"/proc/{self.process.pid}/stat").read_text().rpartition(")")[2].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def close(self, by_signal=False):
        """Closes the window by its cross, or as a desktop does when it ends; gives the exit status."""
        if by_signal:
            self.process.terminate()
        else:
            self.display.ask_to_close(self.window)
        status = self.process.wait(LIMIT)
        self.reader.join()
        return status

    def clear(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
            self.reader.join()
        self.process.stdout.close()
        self.display.close()
        self.folder.cleanup()
