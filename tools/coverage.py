#!/usr/bin/env python3
"""Plays the desk's tests against a library that counts its lines, and names every line that none of them reaches.

usage: coverage.py BUILD      BUILD: the folder of a build with the coverage preset

tests/known-uncovered.txt says why no test reaches a line: `FILE | the line | the reason`. A line that opens a block stands
for all of it. What only the compiler runs (a constexpr function without any run) does not count. It ends with status 1
when less than 95 % of the lines are reached, when a line that is not is missing from that list, or when a test fails.
"""

import os
import re
import shutil
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
KNOWN = ROOT / "tests" / "known-uncovered.txt"
LEAST = 95  # percent
PLAYED = "^(unit|scenario|demo|transfer|pages|inspect)/"
# It requires that the library touches no file, and here the counting itself does.
LEFT_OUT = "^scenario/startup/nothing-else"


def play(build, profiles):
    """Plays the tests; what they reach is counted in files as they go, for the simulator ends without its runtime."""
    shutil.rmtree(profiles, ignore_errors=True)
    profiles.mkdir()
    environment = dict(os.environ, LLVM_PROFILE_FILE=f"{profiles}/%m%c.profraw")
    command = ["ctest", "--test-dir", build, "-R", PLAYED, "-E", LEFT_OUT, "-j", str(os.cpu_count()),
               "--output-on-failure", "--quiet"]
    return subprocess.run(command, env=environment).returncode == 0


def counted(build, profiles):
    """By file: how often each of its lines that hold code was run."""
    data = profiles / "all.profdata"
    subprocess.run(["llvm-profdata-19", "merge", "-sparse", "-o", data, *profiles.glob("*.profraw")], check=True)
    objects = [build / "libCorvel.so"]
    for program in ("tests/unit-tests", "tests/preference-pages", "corvel-inspect"):
        objects += ["-object", build / program]
    command = ["llvm-cov-19", "export", "-format=lcov", f"-instr-profile={data}", *objects, "-sources", ROOT / "src"]
    text = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    files = {}
    for line in text.splitlines():
        if line.startswith("SF:"):
            lines = files.setdefault(str(Path(line[3:]).relative_to(ROOT)), {})
        elif found := re.match(r"DA:(\d+),(\d+)", line):
            lines[int(found[1])] = lines.get(int(found[1]), 0) + int(found[2])
    return files


def block(source, first):
    """The number behind the last line of the block that a line (counted from 0) opens; of none, behind the line."""
    depth = 0
    for number in range(first, len(source)):
        depth += source[number].count("{") - source[number].count("}")
        if depth <= 0 and (number > first or "{" in source[number] or source[number].rstrip().endswith(";")):
            return number + 1
    return first + 1


def for_the_compiler(source, lines):
    """The lines of functions that may run while compiling, and never run otherwise."""
    found = set()
    for first, text in enumerate(source):
        if re.search(r"\bconst(expr|eval)\b.*\(", text) and "if constexpr" not in text:
            extent = range(first + 1, block(source, first) + 1)
            if not any(lines.get(line, 0) for line in extent):
                found.update(extent)
    return found


def known_reasons():
    entries = KNOWN.read_text(encoding="utf-8").splitlines() if KNOWN.exists() else []
    return [tuple(entry.split(" | ")) for entry in entries if entry and not entry.startswith("#")]


def explained(path, source, missed, reasons, used):
    """By line: why it is not reached."""
    found = {}
    for row in reasons:
        where, text, reason = row
        for first in range(len(source)) if where == path else ():
            extent = set(range(first + 1, block(source, first) + 1)) & missed
            if source[first].strip() == text and extent:
                used.add(row)
                found.update(dict.fromkeys(extent, reason))
    return found


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__.split("\n\n")[1])
    build = Path(sys.argv[1]).resolve()
    profiles = build / "profiles"
    sound = play(build, profiles)
    reasons, used, unexplained, reached, total = known_reasons(), set(), 0, 0, 0
    for path, lines in sorted(counted(build, profiles).items()):
        source = (ROOT / path).read_text(encoding="utf-8").splitlines()
        for line in for_the_compiler(source, lines):
            lines.pop(line, None)
        if not lines:
            continue
        missed = {line for line, count in lines.items() if count == 0}
        reached += len(lines) - len(missed)
        total += len(lines)
        share = 100 * (len(lines) - len(missed)) / len(lines)
        print(f"{share:6.1f} %  {len(lines) - len(missed):4} of {len(lines):4}  {path}")
        why = explained(path, source, missed, reasons, used)
        for line in sorted(missed):
            unexplained += line not in why
            print(f"           {path}:{line}: {source[line - 1].strip()}  -- {why.get(line, 'NO REASON IS GIVEN')}")
    stale = [row for row in reasons if row not in used]
    for path, line, _ in stale:
        print(f"{path}: {line}  -- is reached now; strike it off {KNOWN.relative_to(ROOT)}")
    share = 100 * reached / total
    print(f"{share:.2f} % of {total} lines are reached; of those that are not, {unexplained} are without a reason")
    sys.exit(0 if sound and share >= LEAST and not unexplained and not stale else 1)


if __name__ == "__main__":
    main()
