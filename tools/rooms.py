#!/usr/bin/env python3
"""The rooms of library and simulator, as the tables of docs/architecture.md list them.

usage: tools/rooms.py check [ROOT]          every include runs with the order, and the picture is fresh
       tools/rooms.py draw                  makes docs/images/rooms.svg from the tables
"""

import re
import sys
from html import escape
from pathlib import Path

PAGE = "docs/architecture.md"
PICTURE = "docs/images/rooms.svg"
ROW = re.compile(r"^\| `([\w/]+)` \| (.+) \|$")
INCLUDE = re.compile(r'^\s*#\s*include "([^"]+)"', re.MULTILINE)


def read_tables(root):
    """Each table as a list of (room, what it holds), in order."""
    tables = []
    for line in (root / PAGE).read_text(encoding="utf-8").splitlines():
        row = ROW.match(line)
        if row:
            tables[-1].append(row.groups())
        elif line == "| room | holds |":
            tables.append([])
    return tables


def wrong_includes(root, tables):
    """Messages for every include against the order, and for every folder that no table lists."""
    messages = []
    listed = {room for table in tables for room, _ in table}
    for parent in ("src", "simulator"):
        for folder in sorted(path for path in (root / parent).iterdir() if path.is_dir()):
            if f"{parent}/{folder.name}" not in listed:
                messages.append(f"{parent}/{folder.name}: no table of {PAGE} lists this room")
    for table in tables:
        rooms = [room for room, _ in table]
        names = [room.rsplit("/", 1)[-1] for room in rooms]
        for place, room in enumerate(rooms):
            for path in sorted((root / room).rglob("*.[chm]*")):
                for included in INCLUDE.findall(path.read_text(encoding="utf-8")):
                    target = included.split("/", 1)[0]
                    if "/" in included and target not in names[: place + 1]:
                        messages.append(f"{path.relative_to(root)}: includes {included} against the order of rooms")
    return sorted(set(messages))


def wrap(text, width):
    lines = [""]
    for word in text.replace("`", "").split():
        if len(lines[-1]) + len(word) > width:
            lines.append("")
        lines[-1] = f"{lines[-1]} {word}".strip()
    return lines


def drawing(tables):
    """A house: the rooms that both share at the bottom, the library's floors left, the simulator's right."""
    library, simulator, _ = tables
    shared = [row for row in library if row[0] in {room for room, _ in simulator}]
    shared_names = {room for room, _ in shared}
    columns = [[row for row in table if row[0] not in shared_names] for table in (library, simulator)]
    width, gap, line, head = 430, 24, 15, 24
    boxes = []

    def height(rows_text):
        return head + line * len(rows_text) + 8

    tops = []
    for column, rows in enumerate(columns):
        y = 10
        for room, holds in reversed(rows):
            text = wrap(holds, 60)
            boxes.append((10 + column * (width + gap), y, width, height(text), room, text, column))
            y += height(text) + 8
        tops.append(y)
    y = max(tops)
    for index, rows in enumerate(columns):  # both columns stand on the same ground
        shift = y - tops[index]
        boxes = [(x, t + shift, w, h, r, text, c) if c == index else (x, t, w, h, r, text, c) for x, t, w, h, r, text, c in boxes]
    for room, holds in reversed(shared):
        text = wrap(holds, 138)
        boxes.append((10, y, 2 * width + gap, height(text), room, text, 2))
        y += height(text) + 8
    colours = ("#e8f1fb", "#edf7ed", "#fdf3e1")
    parts = [
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{2 * width + gap + 20}" height="{y + 2}" '
        'font-family="sans-serif" font-size="12">',
        '<rect width="100%" height="100%" fill="#ffffff"/>',
    ]
    for x, top, w, h, room, text, column in boxes:
        parts.append(f'<rect x="{x}" y="{top}" width="{w}" height="{h}" rx="6" fill="{colours[column]}" stroke="#8a8f98"/>')
        parts.append(f'<text x="{x + 10}" y="{top + 18}" font-weight="bold">{escape(room)}</text>')
        for number, words in enumerate(text):
            parts.append(f'<text x="{x + 10}" y="{top + head + 10 + line * number}">{escape(words)}</text>')
    parts.append("</svg>")
    return "\n".join(parts) + "\n"


def main(words):
    root = Path(words[1]) if len(words) == 2 else Path(__file__).resolve().parent.parent
    if len(words) not in (1, 2) or words[0] not in ("check", "draw"):
        print(__doc__.strip(), file=sys.stderr)
        return 2
    tables = read_tables(root)  # the last, the check of an app, stands beside the house
    if words[0] == "draw":
        (root / PICTURE).write_text(drawing(tables), encoding="utf-8")
        return 0
    messages = wrong_includes(root, tables)
    if (root / PICTURE).read_text(encoding="utf-8") != drawing(tables):
        messages.append(f"{PICTURE} is stale: tools/rooms.py draw makes it anew")
    print("\n".join(messages) or "every include runs with the order of rooms")
    return 1 if messages else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
