#!/usr/bin/env python3
"""What the library holds of an app once its button stands and nobody touches it.

usage: measure.py

After `cmake --build --preset release --target idle-bench Corvel`. A line for each figure: row, "work" or "floor",
number, apart by tabs; of the four apps the one that has most.

idle-timers: pieces of work that run in a quiet year. idle-observers: those that the library has registered with the
notification centre; it must have two, for DanmuServiceReady and for the turning of the screen, and in WeChat a third, for
the plugin's switch. idle-bytes: what the heap has grown by, from right before the library is opened to right after, and
from right before the overlay is built until two seconds after; with all that the desk keeps for it: its linker's records,
its runtime's dispatch tables of our classes, the simulated views.
"""

import re
import subprocess
import sys
from pathlib import Path

RELEASE = Path(__file__).resolve().parents[2] / "out/release"
OBSERVERS = {"douyin": 2, "xhs": 2, "kuaishou": 2, "wechat": 3}


def measure(host):
    done = subprocess.run([RELEASE / "bench/idle/idle-bench", host, RELEASE / "libCorvel.so"], capture_output=True,
                          text=True)
    found = {name: int(number) for name, number in re.findall(r"^(timers|observers|bytes)\t(\d+)$", done.stdout, re.M)}
    if done.returncode != 0 or len(found) != 3:
        sys.exit(f"measure: nothing was counted in {host}: {done.stdout}{done.stderr}")
    return found


def main():
    found = {host: measure(host) for host in OBSERVERS}
    host = max(found, key=lambda name: found[name]["observers"] - OBSERVERS[name])
    for row, work, floor in (
            ("idle-timers", max(figures["timers"] for figures in found.values()), 0),
            ("idle-observers", found[host]["observers"], OBSERVERS[host]),
            ("idle-bytes", max(figures["bytes"] for figures in found.values()), 0)):
        print(f"{row}\twork\t{work}\n{row}\tfloor\t{floor}")


if __name__ == "__main__":
    if len(sys.argv) != 1:
        sys.exit(__doc__)
    main()
