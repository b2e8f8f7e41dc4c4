"""Plays scripts of the simulator's commands for the tests of this directory.

Each of them is called with the simulator, the library and then unittest's own arguments; CORVEL_SEED asks for other
random values.
"""

import os
import subprocess
import sys
import unittest
from pathlib import Path

SIMULATOR, LIBRARY = (Path(argument).resolve() for argument in sys.argv[1:3])
WORDS = Path(__file__).resolve().parents[1] / "scenarios" / "corvel.words"
SEED = os.environ.get("CORVEL_SEED", "1")


def main():
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])


class Played:
    """How a run ended: its status, what it printed, and the most memory it held, in bytes."""

    def __init__(self, directory, host, lines, library=LIBRARY, state=None):
        (directory / "play.scn").write_text("\n".join(lines) + "\n", encoding="utf-8")
        command = [SIMULATOR, "--library", library, "--words", WORDS, "--host", host, "--pictures", ".", "run", "play.scn"]
        if state is not None:
            command[1:1] = ["--state", state]
        with open(directory / "printed.txt", "w+", encoding="utf-8") as printed:
            process = subprocess.Popen(command, cwd=directory, stdout=printed, stderr=subprocess.STDOUT)
            _, status, usage = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(status)
            printed.seek(0)
            self.printed = printed.read()
        self.status = process.returncode
        self.most_memory = usage.ru_maxrss * 1024
