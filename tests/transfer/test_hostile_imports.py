"""Configurations with values of every wrong kind under every key are imported, and then fingers go over everything: no
exception may reach the app and nothing may crash.

usage: test_hostile_imports.py SIMULATOR LIBRARY [-k NAME]
"""

import json
import random
import re
import tempfile
import unittest
from pathlib import Path

from player import SEED, Played, main

KEYS_HEADER = Path(__file__).resolve().parents[2] / "src" / "preferences" / "preferences.hpp"
NUMBERS = ("0", "-0.0", "1", "-1", "8", "12", "13", "0.01", "-3.5", "1e-320", "1e9", "-1e9", "3.5e38", "1e39", "-1e39",
           "1.7976931348623157e308", "2147483648", "-2147483649", "4294967297", "9223372036854775807",
           "9223372036854775808", "-9223372036854775809", "123456789012345678901234567890")  # fmt: skip
TEXTS = ("", " ", "nan", "NaN", "inf", "-Infinity", "1e400", "0x10", "-5", "YES", "%@%n%s", "#", "#FFF", "#GGGGGG", "12",
         "#FFFFFFFFFFFFFFFF", "\x00", "\u202e\u0301\ufffe", "👨‍👩‍👧" * 300, "e" + "\u0301" * 3000, "\n" * 5000,
         "弹" * 20000)  # fmt: skip
# Where the floating button is until the app starts again, and the two buttons of an alert.
PLACES = ((350, 380), (127, 462), (262, 462))
ACTIONS = ("dm_ftap", "dm_bM", "dm_exp", "dm_imp", "dm_clear", "dm_log", "dm_clearLog", "dm_edbg", "dm_bm", "dm_cm",
           "dm_cap")  # fmt: skip


def nested(levels):
    return '[{"a":' * (levels // 2) + "0" + "}]" * (levels // 2)


def hostile_value(chance):
    """JSON text of a value."""
    kind = chance.randrange(6)
    if kind == 0:
        return chance.choice(("true", "false", "null", "[]", "{}", "[null]", '{"a":[1,null]}', '{"":{"":""}}'))
    if kind == 1:
        return nested(chance.choice((2, 10)))
    if kind == 2:
        return "[" + ",".join(hostile_value(chance) for _ in range(3)) + "]"
    return chance.choice(NUMBERS) if kind == 3 else json.dumps(chance.choice(TEXTS))


def own_keys():
    found = re.findall(r'"(Corvel\.[A-Za-z.]+)"_literal', KEYS_HEADER.read_text(encoding="utf-8"))
    assert len(found) > 25, found
    return found + [f"Corvel.slots.{index}" for index in range(-1, 50)] + ["Corvel.", "Corvel.unknown", "Other"]


def hostile_configuration(chance, levels):
    spared = chance.random()  # so that some runs find a grid and a button that a finger can reach
    members = {key: hostile_value(chance) for key in own_keys() if key.startswith("Corvel.s") or chance.random() > spared}
    members[chance.choice(list(members))] = nested(levels)
    return "{" + ",".join(f"{json.dumps(key)}:{value}" for key, value in members.items()) + "}"


def finger(chance):
    """One thing that a user does."""
    in_grid = (chance.randrange(50, 360), chance.randrange(180, 440))
    x, y = chance.choice((*PLACES, in_grid, in_grid, in_grid, (chance.randrange(390), chance.randrange(844))))
    place = f"at {x} {y}"
    return chance.choice((
        [f"tap {place}", f"wait {chance.choice((0, 0.1, 1))}"],
        [f"tap {place}", f"wait {chance.choice((0, 0.1, 1))}"],
        [f"press {place}", f"wait {chance.choice((0, 0.1, 1))}"],
        [f"drag {place} by {chance.randrange(-200, 200)} {chance.randrange(-400, 400)}"],
        [f"call action {chance.choice(ACTIONS)}", f"wait {chance.choice((0, 0.1, 1))}"],
        [f"keyboard height {chance.choice((0, 336, 800))}"],
    ))  # fmt: skip


def opened(show):
    """Imports, then opens both panels one after the other; the commands of show follow on each."""
    lines = ["wait 3", 'pasteboard from "in.txt"', "call action dm_imp", "wait 0.3", 'expect toast text is "导入成功"']
    lines += ["wait 3", 'host enter "1"', "call action dm_ftap", "wait 1", *show, "call action dm_ftap", "wait 1"]
    return [*lines, "press at {} {}".format(*PLACES[0]), "wait 1", *show]


def tour(chance):
    """Opens both panels and lets fingers loose on what is there, before and after a start of the app."""
    lines = []
    for show in (["picture panel"], []):
        lines += opened(show)
        lines += [line for _ in range(80) for line in finger(chance)]
        lines += ['pasteboard from "in.txt"', "call action dm_imp", "wait 3", "relaunch"]
    return [*lines, "wait 3"]


class HostileImports(unittest.TestCase):
    def play(self, host, levels, lines, chance):
        """The commands after an import of hostile values, one of them nested that deep."""
        with tempfile.TemporaryDirectory() as name:
            text = hostile_configuration(chance, levels)
            (Path(name) / "in.txt").write_text(text, encoding="utf-8", newline="")
            run = Played(Path(name), host, lines)
            self.assertEqual(run.status, 0, run.printed[-2000:])

    def take_tours(self, host):
        for number in range(2):
            with self.subTest(seed=SEED, number=number):
                chance = random.Random(f"{SEED} {host} {number}")
                self.play(host, 40, tour(chance), chance)

    def test_douyin(self):
        self.take_tours("douyin")

    def test_xhs(self):
        self.take_tours("xhs")

    def test_kuaishou(self):
        self.take_tours("kuaishou")

    def test_wechat(self):
        self.take_tours("wechat")

    def test_deep_values(self):
        """Without fingers: the store of the desk is slow at these."""
        self.play("douyin", 250, [*opened([]), "relaunch", "wait 3"], random.Random(SEED))


if __name__ == "__main__":
    main()
