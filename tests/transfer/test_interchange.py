"""Configurations go back and forth between the library and Python's own zlib, base64 and json.

usage: test_interchange.py SIMULATOR [SEED]
"""

import base64
import json
import random
import subprocess
import sys
import tempfile
import unittest
import zlib
from pathlib import Path

SIMULATOR = Path(sys.argv[1]).resolve()
SEED = int(sys.argv[2]) if len(sys.argv) > 2 else 1
LONGEST_TEXT = 5000  # UTF-16 units
ALPHABETS = ("abc ", "弹幕，主播好", "😀👨‍👩‍👧❤️", '\n\t"\\/\x00\x1f\x7f\u2028\ufeff', "éàüß日本語한국어")
FLAGS = ("showCaptureButton", "autoCaptureAfterSend", "floatAutoSnap")
FLOATS = ("matrixScale", "matrixAlpha", "fontSize", "floatButtonAlpha")


def random_text(chance):
    units = chance.choice((0, 1, 7, 40, LONGEST_TEXT // 2))
    return "".join(chance.choice(chance.choice(ALPHABETS)) for _ in range(units))


def random_configuration(chance):
    found = {f"Corvel.slots.{index}": random_text(chance) for index in range(chance.choice((0, 1, 4, 48, 144)))}
    found |= {f"Corvel.config.{name}": chance.random() < 0.5 for name in FLAGS}
    found |= {f"Corvel.config.{name}": chance.randrange(1, 40) / 16 for name in FLOATS}
    found["Corvel.config.gridPresetIndex"] = chance.randrange(-2, 10)
    return found


def pack(configuration, magic, level, ascii_only):
    text = json.dumps(configuration, ensure_ascii=ascii_only).encode()
    return magic + base64.b64encode(zlib.compress(text, level)).decode()


def unpack(text):
    assert text.startswith("DM1:"), text[:20]
    return json.loads(zlib.decompress(base64.b64decode(text[4:], validate=True)))


class Interchange(unittest.TestCase):
    def carry(self, text, host):
        """What the library exports in an app after importing the text there."""
        with tempfile.TemporaryDirectory() as name:
            directory = Path(name)
            (directory / "in.txt").write_text(text, encoding="utf-8", newline="")
            (directory / "play.scn").write_text(
                'wait 3\npasteboard from "in.txt"\ncall action dm_imp\nwait 0.3\nexpect toast text is "导入成功"\n'
                'tap "弹"\nwait 1\ntap "弹"\nwait 1\npasteboard none\ncall action dm_exp\npasteboard to "out.txt"\n',
                encoding="utf-8",
            )
            command = [SIMULATOR, "--host", host, "run", "play.scn"]
            run = subprocess.run(command, cwd=directory, capture_output=True, text=True, timeout=120, check=False)
            self.assertEqual(run.returncode, 0, run.stdout[-2000:] + run.stderr[-2000:])
            return (directory / "out.txt").read_text(encoding="utf-8")

    def test_round_trips(self):
        for number in range(8):
            with self.subTest(seed=SEED, number=number):
                chance = random.Random(f"{SEED} {number}")
                configuration = random_configuration(chance)
                text = pack(configuration, chance.choice(("DM1:", "CV1:")), chance.randrange(10), number % 2 == 0)
                first = self.carry(text, "douyin")
                exported = unpack(first)
                # What the library itself writes while it runs.
                self.assertEqual(exported, configuration | {"Corvel.debug.logEnabled": False})
                for key, value in configuration.items():
                    self.assertIs(type(exported[key]) is bool, type(value) is bool, key)
                self.assertEqual(unpack(self.carry(first, "kuaishou")), exported)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
