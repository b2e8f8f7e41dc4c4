"""The order of rooms: it holds, and the check sees what runs against it."""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent


def check(root):
    done = subprocess.run([sys.executable, ROOT / "tools" / "rooms.py", "check", root], capture_output=True, text=True)
    return done.returncode, done.stdout


class Rooms(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.copy = Path(temporary.name)
        for folder in ("src", "simulator", "device", "docs", "inspect"):
            shutil.copytree(ROOT / folder, self.copy / folder)

    def put(self, path, text):
        (self.copy / path).parent.mkdir(parents=True, exist_ok=True)
        (self.copy / path).write_text(text, encoding="utf-8")

    def test_every_include_runs_with_the_order(self):
        self.assertEqual(check(ROOT), (0, "every include runs with the order of rooms\n"))

    def test_an_include_against_the_order_is_named(self):
        self.put("src/adapters/wrong.hpp", '#pragma once\n#include "overlay/toast.hpp"\n')
        self.put("simulator/hosts/wrong.cpp", '#  include "driver/runner.hpp"\n#include "preferences/preferences.hpp"\n')
        self.put("inspect/wrong.cpp", '#include "uikit/window.hpp"\n')
        status, said = check(self.copy)
        self.assertEqual(status, 1)
        self.assertEqual(
            said.splitlines(),
            [
                "inspect/wrong.cpp: includes uikit/window.hpp against the order of rooms",
                "simulator/hosts/wrong.cpp: includes driver/runner.hpp against the order of rooms",
                "simulator/hosts/wrong.cpp: includes preferences/preferences.hpp against the order of rooms",
                "src/adapters/wrong.hpp: includes overlay/toast.hpp against the order of rooms",
            ],
        )

    def test_a_room_must_be_listed_and_the_picture_fresh(self):
        self.put("src/attic/box.cpp", "")
        page = self.copy / "docs" / "architecture.md"
        page.write_text(page.read_text(encoding="utf-8").replace("host apps", "hosts"), encoding="utf-8")
        status, said = check(self.copy)
        self.assertEqual(status, 1)
        self.assertIn("src/attic: no table of docs/architecture.md lists this room", said)
        self.assertIn("docs/images/rooms.svg is stale", said)


if __name__ == "__main__":
    unittest.main()
