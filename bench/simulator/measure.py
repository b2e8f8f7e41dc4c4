#!/usr/bin/env python3
"""What the simulator's work takes, beside the least that must be done.

usage: measure.py

After `cmake --build --preset release --target corvel-sim Corvel corvel-bench`. A line for each count: row, "work", "floor" or
"also", instructions, allocations, apart by tabs.
"""

import sys
import tempfile
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
sys.path.insert(0, str(FOLDER.parent))
import callgrind  # noqa: E402


def program(name):
    """Counts a whole run of a program of this folder."""
    with tempfile.TemporaryDirectory() as folder:
        return callgrind.run([callgrind.without_debug_information(callgrind.RELEASE / "bench" / name, folder)],
                             whole=True)[""]


def scenario():
    """A run of a hundred commands, the start of an empty program, and what else such a run cannot do without."""
    floor, bare = program("corvel-bench-empty"), program("corvel-bench-bare")
    return {
        "scenario/work": callgrind.simulate("douyin", FOLDER / "hundred.scn", "libCorvel.so", whole=True)[""],
        "scenario/floor": floor,
        "scenario/also": tuple(more - less for more, less in zip(bare, floor)),
    }


def frames():
    with tempfile.TemporaryDirectory() as folder:
        window = callgrind.without_debug_information(callgrind.RELEASE / "bench/corvel-bench-frame", folder)
        library = callgrind.without_debug_information(callgrind.RELEASE / "libCorvel.so", folder)
        return callgrind.run([window, "--library", library, "--words",
                              callgrind.ROOT / "tests/scenarios/corvel.words", "--host", "douyin", "run", "-"])


if __name__ == "__main__":
    if len(sys.argv) != 1:
        sys.exit(__doc__)
    try:
        callgrind.print_counts(scenario() | frames())
    except callgrind.CannotCount as reason:
        sys.exit(f"measure: {reason}")
