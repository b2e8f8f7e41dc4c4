#!/usr/bin/env python3
"""Measures and prints the table: work, our figure, the floor measured in the same run, the ratio, the goal.

usage: run.py [--page|--known] [ROW|GROUP ...]

Everything must be built. All rows unless some are named. The status is 1 when a row misses its goal or cannot be
measured, 2 when there is none of that name. --page measures how cost grows, too, and writes docs/performance.md's table
and pictures anew. --known measures nothing: it looks at the names alone, and prints the groups of their rows.
"""

import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
sys.path.insert(0, str(FOLDER))
import page  # noqa: E402
from rows import ROWS  # noqa: E402

# What measures each group of rows.
COMMANDS = {
    "library": ["library/measure.py", "library"],
    "sends": ["library/measure.py", "sends"],
    "idle": ["idle/measure.py"],
    "phone": ["device/measure.py"],
    "simulator": ["simulator/measure.py"],
    "growth": ["library/measure.py", "growth"],
}


def measure(group):
    """The group's counts: {row: {kind: (count, allocations)}}."""
    done = subprocess.run([sys.executable, "-B", FOLDER / COMMANDS[group][0], *COMMANDS[group][1:]],
                          stdout=subprocess.PIPE, text=True)
    if done.returncode != 0:
        sys.exit(f"bench: the rows of {group} cannot be measured")
    counts = {}
    for line in done.stdout.splitlines():
        row, kind, count, *allocated = line.split("\t")
        counts.setdefault(row, {})[kind] = int(count), int(allocated[0]) if allocated else 0
    return counts


def judged(row, counts):
    """Whether the goal is met, and the row's words for the table."""
    found = counts.get(row.name, {})
    if not {"work", "floor"} <= found.keys() or (row.also and "also" not in found):
        sys.exit(f"bench: {row.name} was not measured")
    (work, allocated), (floor, unavoidable) = found["work"], found["floor"]
    also = found["also"][0] if row.also else 0
    limit = row.most if row.most is not None else row.goal * (floor + also)
    met = work <= limit and (not row.allocates_nothing or allocated <= unavoidable)
    ratio = f"{work / floor:.2f}" if floor else "–"
    goal = [f"{row.goal:g}"] if row.goal is not None else []
    if row.most is not None:
        goal.append(f"at most {row.most:,}")
    words = [row.work, f"{work:,}", f"{floor:,}", ratio, ", ".join(goal)]
    if row.also:
        words[3] += f" ({work / (floor + also):.2f} with {row.also}: {also:,})"
    if row.allocates_nothing:
        words[1] += f", {allocated} allocations"
        words[2] += f", {unavoidable} allocations"
    return met, words


def table(rows, counts):
    """The table's lines, and the names of the rows that miss their goals."""
    lines = ["| row | work | ours | floor | ratio | goal |", "|---|---|---:|---:|---:|---:|"]
    missed = []
    for row in rows:
        met, words = judged(row, counts)
        lines.append(f"| {row.name} | " + " | ".join(words) + (" |" if met else " missed |"))
        if not met:
            missed.append(row.name)
    return lines, missed


def chosen(names):
    """The rows that the names mean."""
    known = {row.name for row in ROWS} | {row.group for row in ROWS}
    for name in names:
        if name not in known:
            print(f"corvel: no row named '{name}'; there are {' '.join(row.name for row in ROWS)}", file=sys.stderr)
            sys.exit(2)
    return [row for row in ROWS if not names or row.name in names or row.group in names]


def main(arguments):
    option = arguments.pop(0) if arguments[:1] in (["--page"], ["--known"]) else ""
    rows = chosen(arguments)
    groups = sorted({row.group for row in rows})
    if option == "--known":
        print(" ".join(groups))
        return
    counts = {}
    with ThreadPoolExecutor(2) as pool:  # each measures in a process of its own
        for found in pool.map(measure, groups + (["growth"] if option == "--page" else [])):
            counts |= found
    lines, missed = table(rows, counts)
    print("\n".join(lines))
    if option == "--page":
        page.write(lines, counts)
    if missed:
        sys.exit(f"bench: above the goal: {', '.join(missed)}")


if __name__ == "__main__":
    main(sys.argv[1:])
