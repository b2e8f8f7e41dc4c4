"""Measures how many frames the window draws of those that are due, and what one costs.

Called with the simulator, which the window's program lies beside, the library and perhaps pixels a point.
"""

import os
import re
import sys
import time
from pathlib import Path

from desk import Desk

SIMULATOR, LIBRARY = (Path(argument).resolve() for argument in sys.argv[1:3])
SCALE = int(sys.argv[3]) if len(sys.argv) > 3 else 1
BUTTON, SLIDER = (350, 380), (195, 512)


def springing(desk):
    """The grid opens and goes, again and again."""
    for _ in range(12):
        desk.tap(*BUTTON)
        time.sleep(0.6)


def dragging(desk):
    """A finger draws the slider of the panel's size to and fro."""
    for _ in range(3):
        desk.drag(SLIDER, (300, SLIDER[1]), steps=150, seconds=1.5)
        desk.drag((300, SLIDER[1]), SLIDER, steps=150, seconds=1.5)


def measure(what, prepare):
    start = time.monotonic()
    desk = Desk(SIMULATOR.with_name("corvel-window"), LIBRARY, scale=SCALE, options=["--frames"])
    try:
        opened = time.monotonic() - start
        desk.push("enter")
        desk.at_rest()
        prepare(desk)
        desk.passed()
        before = desk.spent()
        what(desk)
        spent = desk.spent() - before
        desk.close()
        due, drawn = map(int, re.search(r"frames due (\d+) drawn (\d+)", "".join(desk.said)).groups())
    finally:
        desk.clear()
    print(f"{what.__name__}: opened within {opened:.2f} s, display and all; due {due}, drawn {drawn}; "
          f"{1000 * spent / drawn:.1f} ms of processor time a frame")


print(f"{os.cpu_count()} cores, load {os.getloadavg()[0]:.1f}, {SCALE} pixels a point")
measure(springing, lambda desk: None)
measure(dragging, lambda desk: (desk.hold(*BUTTON), desk.at_rest()))
