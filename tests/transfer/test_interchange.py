"""Configurations go back and forth between the library and Python's own zlib, base64 and json, and texts that are none
are refused.

usage: test_interchange.py SIMULATOR LIBRARY [-k NAME]
"""

import base64
import json
import random
import tempfile
import unittest
import zlib
from pathlib import Path

from player import SEED, Played, main

MOST_SLOTS = 144
LONGEST_TEXT = 1000  # UTF-16 units; a full grid of them is near the largest configuration
LETTERS = "abc " "弹幕，主播好" "😀👨‍👩‍👧❤️" '\n\t"\\/\x00\x1f\x7f\u2028\ufeff' "éàüß日本語한국어"
FLAGS = ("showCaptureButton", "autoCaptureAfterSend", "floatAutoSnap")
FLOATS = ("matrixScale", "matrixAlpha", "fontSize", "floatButtonAlpha")
MEBIBYTE = 1 << 20
UNIT = MEBIBYTE // 2  # of a text that is packed small


def units(text):
    return len(text.encode("utf-16-le")) // 2


def random_text(chance, longest):
    text = "".join(chance.choices(LETTERS, k=longest))
    while units(text) > longest:
        text = text[: len(text) - (units(text) - longest + 1) // 2]
    return text


def random_configuration(chance, full):
    slots = MOST_SLOTS if full else chance.choice((0, 1, 4, 48, MOST_SLOTS))
    lengths = (LONGEST_TEXT,) if full else (0, 1, 7, 40, LONGEST_TEXT)
    found = {f"Corvel.slots.{index}": random_text(chance, chance.choice(lengths)) for index in range(slots)}
    found |= {f"Corvel.config.{name}": chance.random() < 0.5 for name in FLAGS}
    found |= {f"Corvel.config.{name}": chance.randrange(1, 40) / 16 for name in FLOATS}
    found["Corvel.config.gridPresetIndex"] = chance.randrange(-2, 10)
    return found


def pack(text, magic="DM1:", level=9):
    return magic + base64.b64encode(zlib.compress(text, level)).decode()


def unpack(text):
    assert text.startswith("DM1:"), text[:20]
    return json.loads(zlib.decompress(base64.b64decode(text[4:], validate=True)))


def noise(chance):
    """Several megabytes each, by name; none is a configuration."""
    # Random blanks keep the packed form so long that its text is made in a few dozen steps.
    blanks = chance.randbytes(4 * MEBIBYTE).translate(b" \t\r\n" * 64)
    return {
        "characters": chance.randbytes(4 * MEBIBYTE).decode("utf-16-le", "ignore"),
        "base64": "DM1:" + base64.b64encode(chance.randbytes(3 * MEBIBYTE)).decode(),
        "blanks": " " * (4 * MEBIBYTE),
        "brackets": "[" * (4 * MEBIBYTE),
        "braces": '{"a":' * MEBIBYTE,
        "packed bytes": pack(chance.randbytes(4 * MEBIBYTE), "CV1:"),
        "packed brackets": pack(blanks + b"[" * (56 * MEBIBYTE), level=1),
        "an open text": '{"Corvel.slots.0":"' + "弹" * (2 * MEBIBYTE),
        "an object cut short": json.dumps({f"Corvel.slots.{index}": "x" * 10000 for index in range(400)})[:-1],
    }


def bomb(units):
    """A packed text of so many times 512 KiB. One is packed, so that it knows nothing of its neighbours, and repeated."""
    packer = zlib.compressobj(9, wbits=-zlib.MAX_WBITS)

    def packed(text):
        return packer.compress(text) + packer.flush(zlib.Z_FULL_FLUSH)

    opening, unit, closing = b'{"Corvel.slots.0":"', b"x" * UNIT, b'"}'
    stream = packed(opening) + packed(unit) * units + packer.compress(closing) + packer.flush()
    # Adler-32 of the whole: two sums, which grow evenly while the byte stays the same.
    high, low = divmod(zlib.adler32(opening), 1 << 16)
    count = units * UNIT
    high = (high + count * low + unit[0] * count * (count + 1) // 2) % 65521
    low = (low + count * unit[0]) % 65521
    checksum = zlib.adler32(closing, high << 16 | low)
    return "DM1:" + base64.b64encode(b"\x78\xda" + stream + checksum.to_bytes(4)).decode()


class Interchange(unittest.TestCase):
    def play(self, text, host, lines):
        """The run of these commands with the text on the pasteboard, and what they wrote to out.txt, if anything."""
        with tempfile.TemporaryDirectory() as name:
            directory = Path(name)
            (directory / "in.txt").write_text(text, encoding="utf-8", newline="")
            run = Played(directory, host, ["wait 3", 'pasteboard from "in.txt"', *lines])
            self.assertEqual(run.status, 0, run.printed[-2000:])
            written = directory / "out.txt"
            return run, written.read_text(encoding="utf-8") if written.exists() else None

    def carry(self, text, host):
        """What the library exports in an app after importing the text there."""
        lines = ["call action dm_imp", "wait 0.3", 'expect toast text is "导入成功"', 'tap "弹"', "wait 1"]
        lines += ['tap "弹"', "wait 1", "pasteboard none", "call action dm_exp", 'pasteboard to "out.txt"']
        return self.play(text, host, lines)[1]

    def refuse(self, text):
        """The run in which the text was refused and the store left alone."""
        lines = ['set Corvel.slots.0 "kept"', "call action dm_imp", "wait 0.3", 'expect toast text is "格式无效"']
        lines += ['expect pref Corvel.slots.0 is "kept"', "expect count prefs Corvel. is 2"]
        return self.play(text, "douyin", lines)[0]

    def test_round_trips(self):
        for number in range(8):
            with self.subTest(seed=SEED, number=number):
                chance = random.Random(f"{SEED} {number}")
                configuration = random_configuration(chance, number == 0)
                text = json.dumps(configuration, ensure_ascii=number % 2 == 0).encode()
                first = self.carry(pack(text, chance.choice(("DM1:", "CV1:")), chance.randrange(10)), "douyin")
                exported = unpack(first)
                # What the library itself writes while it runs.
                self.assertEqual(exported, configuration | {"Corvel.debug.logEnabled": False})
                for key, value in configuration.items():
                    self.assertIs(type(exported[key]) is bool, type(value) is bool, key)
                self.assertEqual(unpack(self.carry(first, "kuaishou")), exported)

    def test_noise(self):
        for name, text in noise(random.Random(SEED)).items():
            with self.subTest(seed=SEED, noise=name):
                self.refuse(text)

    def test_a_bomb_is_refused_without_filling_memory(self):
        self.assertEqual(list(unpack(bomb(1)).values()), ["x" * UNIT])
        self.assertLess(self.refuse(bomb(8192)).most_memory, 256 * MEBIBYTE)


if __name__ == "__main__":
    main()
