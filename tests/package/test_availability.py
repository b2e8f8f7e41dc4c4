"""Whatever the library uses is entered with the first iOS that has it, and none is younger than the oldest iOS served.

Whoever uses a new name looks its version up and enters it; until then these tests fail.
"""

import re
import unittest
from pathlib import Path

import build
import library
import macho

OTHER_ORIGINS = ("before 13", "host", "own")


def numbers(version):
    return tuple(map(int, version.split(".")))


class AvailabilityTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.library = macho.Library(build.LIBRARY.read_bytes())

    def expect(self, used, list_name):
        """The list holds just what is used, by version and name."""
        text = Path(__file__).with_name(list_name).read_text()
        entries = [tuple(line.split("\t")) for line in text.splitlines() if not line.startswith("#")]
        entered = {name for name, _ in entries}
        self.assertEqual(used - entered, set(), f"not in {list_name}")
        self.assertEqual(entered - used, set(), f"in {list_name}, but not in the library")
        self.assertEqual(entries, sorted(set(entries), key=lambda entry: (entry[1], entry[0])), list_name)
        for name, version in entries:
            if version not in OTHER_ORIGINS:
                self.assertRegex(version, r"^1[3-9]\.\d$", name)
                self.assertLessEqual(numbers(version), numbers(library.MINIMUM_IOS), name)

    def test_selectors(self):
        self.expect(set(self.library.method_names.values()), "selectors.txt")

    def test_classes(self):
        text = self.library.content(self.library.section("__cstring")).decode()
        self.expect({name for name in text.split("\0") if re.fullmatch(r"(NS|UI|CA)[A-Z]\w+", name)}, "classes.txt")

    def test_symbols(self):
        self.expect({entry.symbol for entry in self.library.imports}, "symbols.txt")


if __name__ == "__main__":
    unittest.main()
