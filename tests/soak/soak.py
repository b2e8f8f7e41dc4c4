#!/usr/bin/env python3
"""What a long use leaves behind: the same course thousands of times over in one process.

usage: soak.py CYCLES [COURSE…] -- SIMULATOR [OPTION…]

Each course is played CYCLES times, in twenty parts. After the first parts, in which whatever is made once is made,
memory grows by less than 200 bytes a cycle; there are as many objects of each class that matters at the end of every
part; and a cycle of the last parts takes no more processor time than one of the first. The status is 1 where it does
not hold, 2 when the command line makes no sense.
"""

import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

PARTS = 20
WARM = 4  # parts
BYTES_A_CYCLE = 200
# The quickest part of several is compared with the quickest of others: another program's load makes none quicker.
DEARER = 2
GRAIN = 0.004  # seconds: shorter differences of a part say nothing

CLASSES = ("DanmuWindow", "UIWindow", "UIView", "UIButton", "UILabel", "UIVisualEffectView", "UIScrollView", "UISwitch",
           "UISlider", "UISegmentedControl", "UITextField", "UITextView", "UIToolbar", "UIViewController",
           "UIAlertController", "UIPanGestureRecognizer", "UITapGestureRecognizer", "UILongPressGestureRecognizer",
           "CorvelSimBlockObserver")

ENTER = {"douyin": 'host enter "7311"', "xhs": 'host enter "g7"', "kuaishou": 'host enter "老街"',
         "wechat": 'host enter "t1"'}
OPEN = ['tap "弹"', "wait 0.5"]
SETTINGS = ['press "弹"', "wait 0.5"]


class Course:
    """The app, what is done again and again, what comes before, and what is kept of a cycle although nobody needs it."""

    def __init__(self, host, cycle, before=(), kept=None, dearer=DEARER):
        self.host = host
        self.before = ["wait 3", *before]
        self.cycle = cycle
        self.kept = kept or {"bytes": 0}
        self.dearer = dearer


COURSES = {f"rooms-{host}": Course(host, [enter, "wait 0.1", "host leave", "wait 0.1"]) for host, enter in ENTER.items()}
COURSES |= {
    "comments": Course("douyin", ["tap cell 1", "wait 0.3"], [ENTER["douyin"], *OPEN]),
    "matrix": Course("douyin", [*OPEN, *OPEN]),
    "settings": Course("xhs", [*SETTINGS, 'tap "✕"', "wait 0.5"]),
    "rebuilds": Course("kuaishou", ['tap segment "自定义"', 'tap segment "12"'], SETTINGS),
    # The keyboard observers of an editor stay registered when its own buttons close it: that is wanted so, and each
    # costs a look at every keyboard (src/matrix/slot_editor.cpp).
    "editors": Course("douyin", ["press cell 0", "wait 0.5", 'tap "取消"', "wait 0.5"], OPEN,
                      kept={"bytes": 700, "CorvelSimBlockObserver": 2}, dearer=5),
    "overlay": Course("wechat", ["set Corvel.wc.floatSwitch bool true", "wait 0.1", "unset Corvel.wc.floatSwitch",
                                 "wait 0.1"]),
    "overlay-with-panels": Course("wechat", [*OPEN, "set Corvel.wc.floatSwitch bool true", "wait 0.1",
                                             "unset Corvel.wc.floatSwitch", "wait 0.1"]),
}


def play(course, cycles, simulator):
    """The facts after each part, as lists by query."""
    each = max(1, cycles // PARTS)
    queries = ["bytes", "processor"] + [f"objects {name}" for name in CLASSES]
    lines = list(course.before)
    for _ in range(PARTS):
        lines += course.cycle * each + ["wait 5", "forget"] + [f"print {query}" for query in queries]
    with tempfile.TemporaryDirectory() as folder:
        script = Path(folder, "soak.scn")
        script.write_text("\n".join(lines) + "\n", encoding="utf-8")
        words = ROOT / "tests/scenarios/corvel.words"
        done = subprocess.run([*simulator, "--words", words, "--host", course.host, "run", script],
                              capture_output=True, text=True)
    if done.returncode != 0:
        return None, f"ended with status {done.returncode}: {(done.stdout + done.stderr)[-400:]}"
    facts = {}
    for query, value in re.findall(r"^(bytes|processor|objects \w+): ([0-9.]+)$", done.stdout, re.M):
        facts.setdefault(query, []).append(float(value))
    return (each, facts), ""


def faults(course, each, facts):
    """What does not hold, and what was measured."""
    wrong = []
    grown = (facts["bytes"][-1] - facts["bytes"][WARM]) / (each * (PARTS - 1 - WARM))
    if grown >= BYTES_A_CYCLE + course.kept["bytes"]:
        wrong.append(f"memory grows by {grown:.0f} bytes a cycle")
    for name in CLASSES:
        counts = [count - part * each * course.kept.get(name, 0)
                  for part, count in enumerate(facts[f"objects {name}"][WARM:])]
        if min(counts) != max(counts):
            wrong.append(f"{name}: {[int(count) for count in counts]} objects")
    spent = [later - earlier for earlier, later in zip(facts["processor"], facts["processor"][1:])]
    first, last = min(spent[WARM:WARM + 5]), min(spent[-5:])
    if last > first * course.dearer + GRAIN:
        wrong.append(f"a cycle takes {1e6 * last / each:.0f} µs in the end, {1e6 * first / each:.0f} µs in the beginning")
    figures = f"{grown:.1f} bytes a cycle, {1e6 * first / each:.0f} µs a cycle at first, {1e6 * last / each:.0f} at last"
    return wrong, figures


def main(words):
    if "--" not in words or not words[0].isdigit() or int(words[0]) < PARTS:
        sys.stderr.write(__doc__)
        return 2
    dashes = words.index("--")
    names, simulator = words[1:dashes] or list(COURSES), words[dashes + 1:]
    unknown = set(names) - set(COURSES)
    if unknown:
        sys.stderr.write(f"soak: no course {min(unknown)}; there are {', '.join(COURSES)}\n")
        return 2
    failed = 0
    for name in names:
        played, problem = play(COURSES[name], int(words[0]), simulator)
        wrong, figures = faults(COURSES[name], *played) if played else ([problem], "")
        failed += bool(wrong)
        print(f"{name}: {figures}" if not wrong else "\n  ".join([f"{name}: FAILED {figures}", *wrong]), flush=True)
    print(f"{len(names)} courses of {words[0]} cycles, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
