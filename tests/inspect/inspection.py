"""What the tests of the check share: the programs, an app's classes as the simulator registers them, and the answer."""

import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from phone_build import Classes, build

INSPECTOR = sys.argv.pop(1)
SIMULATOR = sys.argv.pop(1).split(",")
HOSTS = {"douyin": "douyin", "xhs": "xhs", "kuaishou": "kuaishou", "wechat": "finder"}  # and what the library calls it
LAYOUTS = {
    "chained": ["-fixup_chains"],
    "opcodes": ["-no_fixup_chains"],
    "chained, relative lists": ["-fixup_chains", "-objc_relative_method_lists"],
    "opcodes, relative lists": ["-no_fixup_chains", "-objc_relative_method_lists"],
}


def play(host, lines):
    """What the simulator prints for a script, by the query; a query without a fact has the one that is `absent`."""
    words = Path(__file__).resolve().parents[1] / "scenarios" / "corvel.words"
    done = subprocess.run([*SIMULATOR, "--words", words, "--host", host, "run", "-"], input="\n".join(lines) + "\n",
                          capture_output=True, text=True, check=False)
    if done.returncode != 0:
        raise AssertionError(f"the simulator ended with {done.returncode}: {done.stderr}\n" + "\n".join(lines))
    facts = {}
    for line in done.stdout.splitlines():
        query, colon, fact = line.partition(": ")
        if colon:
            facts.setdefault(query, []).append(fact)
    return facts


def play_app(host, plan=(), lines=(), switches=()):
    """The app's classes as the plan makes them, and what the simulator prints for a script with the switches on."""
    facts = play(host, [*(f"setup host {line}" for line in plan), *(f"setup set {key} bool true" for key in switches),
                        "print host classes", *lines])
    return Classes(facts["host classes"]), facts


def classes_of(host, plan=()):
    return play_app(host, plan)[0]


def ask(*words):
    """Status, output and errors of the check."""
    done = subprocess.run([INSPECTOR, *map(str, words)], capture_output=True, text=True, check=False, timeout=60)
    return done.returncode, done.stdout, done.stderr


class Inspection(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name)

    def made(self, classes, name="App", arguments=(), categories=(), **rest):
        return build(self.folder, name, classes.source(categories), arguments, **rest)

    def answer(self, path):
        """Status and the one entry of the answer."""
        status, said, errors = ask("--json", path)
        self.assertIn(status, (0, 1), errors)
        return status, json.loads(said)[0]

    def host(self, path, name):
        entry = self.answer(path)[1]
        return next(host for host in entry["hosts"] if host["name"] == HOSTS[name])

    def refused(self, path, text):
        """The check ends with one line that holds the text."""
        status, said, errors = ask(path)
        self.assertEqual((status, said), (2, ""), errors)
        self.assertEqual(len(errors.splitlines()), 1, errors)
        self.assertIn(text, errors)
