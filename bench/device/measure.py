#!/usr/bin/env python3
"""What loading the phone's library takes, and how large it is, beside the least that there is.

usage: measure.py

After `./corvel build device`. A line for each figure: row, "work" or "floor", number, apart by tabs.

load-all, load-none: instructions of the emulated processor from the call of the library's first initialiser to the
return of the last, in a process that has the classes of all apps, and in one that has none; the floor is
bench/device/floor.cpp. The calls that change classes are left out of both (bench/device/class_changes.hpp), and are the
same in number: otherwise the status is 1.

size: bytes of the library, of the smallest one that the same linker makes with the same segments, and of the library's
code.
"""

import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BENCH = ROOT / "out/device/bench/device"
LIBRARY = ROOT / "out/packages/Corvel.dylib"
HOSTS = {"load-all": "douyin", "load-none": "plain"}


def load(host, library):
    """Instructions, and changes of classes, while the library (or "floor") is loaded in that app."""
    with tempfile.TemporaryDirectory() as state:
        done = subprocess.run(
            ["qemu-aarch64", "-L", ROOT / "out/device-root", "-plugin", BENCH / "libinstruction-counter.so",
             BENCH / "load-bench", "--host", host, "--library", library, "--state", state, "run", "-"],
            stdin=subprocess.DEVNULL, capture_output=True, text=True)
    found = dict(re.findall(r"^(instructions|changes)\t(\d+)$", done.stdout, re.M))
    if done.returncode != 0 or len(found) != 2:
        sys.exit(f"measure: nothing was counted in {host}: {done.stdout}{done.stderr}")
    return int(found["instructions"]), int(found["changes"])


def main():
    for row, host in HOSTS.items():
        (work, changes), (floor, fewest) = load(host, LIBRARY), load(host, "floor")
        if changes != fewest:
            sys.exit(f"measure: {changes} changes of classes in {host}, {fewest} must be")
        print(f"{row}\twork\t{work}\n{row}\tfloor\t{floor}")
    print(f"size\twork\t{LIBRARY.stat().st_size}")
    print(f"size\tfloor\t{(ROOT / 'out/phone/bench/size/smallest.dylib').stat().st_size}")


if __name__ == "__main__":
    if len(sys.argv) != 1:
        sys.exit(__doc__)
    main()
