"""Counting instructions with valgrind's callgrind."""

import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
RELEASE = ROOT / "out/release"
# What allocates, as callgrind names it.
ALLOCATORS = {"malloc", "calloc", "realloc", "posix_memalign", "aligned_alloc"}


class CannotCount(Exception):
    """What kept a count from being made."""


def without_debug_information(program, folder):
    """A copy in the folder: Debian's valgrind does not read what Clang 19 writes, and stops there."""
    copy = Path(folder) / program.name
    subprocess.run(["objcopy", "--strip-debug", program, copy], check=True)
    return copy


def allocations(dump):
    """How often a function of ALLOCATORS was called, by the calls that callgrind has written down."""
    names, count, allocates = {}, 0, False
    for line in dump.splitlines():
        if line.startswith("cfn="):
            number, name = re.fullmatch(r"cfn=(\(\d+\))(?: (.*))?", line).groups()
            if name is not None:
                names[number] = name
            allocates = names.get(number, "").split("@")[0] in ALLOCATORS
        elif line.startswith("fn="):
            number, name = re.fullmatch(r"fn=(\(\d+\))(?: (.*))?", line).groups()
            if name is not None:
                names[number] = name
        elif line.startswith("calls=") and allocates:
            count += int(line[6:].split()[0])
    return count


def run(command, whole=False):
    """Runs a command that counts by name (bench/library/measure.hpp): instructions and allocations of each name. With
    `whole` all that the process does is counted, under the name ""."""
    if shutil.which("valgrind") is None:
        raise CannotCount("valgrind is not installed")
    with tempfile.TemporaryDirectory() as folder:
        out = Path(folder) / "counts"
        done = subprocess.run(
            ["valgrind", "--tool=callgrind", f"--instr-atstart={'yes' if whole else 'no'}",
             f"--callgrind-out-file={out}", *command],
            capture_output=True, text=True, stdin=subprocess.DEVNULL)
        if done.returncode != 0:
            raise CannotCount(f"{' '.join(map(str, command))}: {done.stdout}{done.stderr}")
        counts = {}
        for file in Path(folder).iterdir():
            dump = file.read_text(errors="replace")
            name = re.search(r"^desc: Trigger: Client Request: (.*)$", dump, re.M)
            total = re.search(r"^totals: (\d+)$", dump, re.M)
            if total is not None and (name is not None or whole):
                counts[name[1] if name else ""] = int(total[1]), allocations(dump)
        return counts


def simulate(host, script, library="bench/libcorvel-bench.so", whole=False):
    """Counts while the simulator plays the script with the library."""
    with tempfile.TemporaryDirectory() as folder:
        simulator = without_debug_information(RELEASE / "corvel-sim", folder)
        injected = without_debug_information(RELEASE / library, folder)
        return run([simulator, "--library", injected, "--words", ROOT / "tests/scenarios/corvel.words", "--host", host,
                    "run", script], whole)


def print_counts(counts):
    """A line for each count: row, "work", "floor" or "also", instructions, allocations, apart by tabs."""
    if not counts:
        sys.exit("measure: nothing was counted")
    for name, (instructions, allocated) in sorted(counts.items()):
        row, kind = name.rsplit("/", 1)
        print(f"{row}\t{kind}\t{instructions}\t{allocated}")
