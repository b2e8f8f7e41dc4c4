#!/usr/bin/env python3
"""What the library's work takes, beside the least that must be done.

usage: measure.py library|sends|growth

After `cmake --build --preset release --target corvel-sim corvel-bench`. A line for each count: row, "work", "floor" or
"also", instructions, allocations, apart by tabs.
"""

import sys
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
sys.path.insert(0, str(FOLDER.parent))
import callgrind  # noqa: E402

# The scripts of each group, with the app that they are played in.
GROUPS = {
    "library": [("douyin", "library.scn")],
    "sends": [(host, "send.scn") for host in ("douyin", "xhs", "kuaishou", "wechat")],
    "growth": [("douyin", "growth.scn")],
}


def main(group):
    counts = {}
    for host, script in GROUPS[group]:
        counts |= callgrind.simulate(host, FOLDER / script)
    callgrind.print_counts(counts)


if __name__ == "__main__":
    if len(sys.argv) != 2 or sys.argv[1] not in GROUPS:
        sys.exit(__doc__)
    try:
        main(sys.argv[1])
    except callgrind.CannotCount as reason:
        sys.exit(f"measure: {reason}")
