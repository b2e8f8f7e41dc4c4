"""Texts of a hundred thousand units in all cells of the largest grid: a cell looks at no more of them than it can show,
and keeps the whole.

usage: test_long_texts.py SIMULATOR LIBRARY [-k NAME]
"""

import plistlib
import re
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "transfer"))
from player import Played, main  # noqa: E402

UNITS = 100_000


class LongTexts(unittest.TestCase):
    def titles(self, text, columns):
        """What the first cell shows of the text, whether its dot tells so, and what a tap sends."""
        values = {"Corvel.config.gridPresetIndex": 9, "Corvel.config.gridCustomCols": columns}
        values |= {"Corvel.config.gridCustomRows": columns}
        values |= {f"Corvel.slots.{index}": text for index in range(columns * columns)}
        with tempfile.TemporaryDirectory() as directory:
            state = Path(directory) / "state"
            state.mkdir()
            (state / "UserDefaults.plist").write_bytes(plistlib.dumps(values, fmt=plistlib.FMT_BINARY))
            played = Played(Path(directory), "kuaishou", ['host enter "1"', "call action dm_ftap", "wait 1",
                "print view tag 1000 title", "print view tag 8888 in tag 1000 hidden", "tap tag 1000"],
                state=state)  # fmt: skip
        self.assertEqual(played.status, 0, played.printed[:2000])
        self.assertIn(f'comment 1: "{text}"', played.printed)
        title = re.search(r'^view tag 1000 title: "(.*)"$', played.printed, re.MULTILINE)[1]
        return title, "hidden: false" in played.printed

    def test_marks(self):
        # On the one letter they take no room: the one bound is how much of a text is looked at.
        title, cut = self.titles("e" + "\u0301\u0302\u0316" * (UNITS // 3), 4)
        self.assertTrue(cut)
        self.assertTrue(500 < len(title) < 5000, len(title))
        title, cut = self.titles("e" + "\u0301" * UNITS, 12)
        self.assertTrue(cut)

    def test_words(self):
        title, cut = self.titles("弹幕 abc " * (UNITS // 7), 12)
        self.assertTrue(cut)
        title, cut = self.titles("弹幕 abc " * (UNITS // 7), 4)
        self.assertTrue(cut and 10 < len(title) < 100, title)


if __name__ == "__main__":
    main()
