"""docs/performance.md: the last table, and pictures of how cost grows."""

import re
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
PAGE = ROOT / "docs/performance.md"
PICTURES = ROOT / "docs/images/performance"

# A picture: what it is called, its axes, and its curves, by the beginning of the rows' names and the kind of count.
PLOTS = [
    ("cells", "cells", "million instructions",
     [("first layout", "layout-cells-", "work"), ("its floor", "layout-cells-", "floor"),
      ("layout again", "again-cells-", "work")]),
    ("text-length", "UTF-16 units of each of 48 texts", "million instructions",
     [("first layout", "layout-units-", "work"), ("its floor, which measures each whole text", "layout-units-", "floor")]),
    ("log", "UTF-16 units in the log", "million instructions",
     [("one line more", "log-units-", "work"), ("its floor", "log-units-", "floor")]),
    ("transfer", "slots of 200 UTF-16 units", "million instructions",
     [("import", "import-slots-", "work"), ("its storing alone", "import-slots-", "also"),
      ("export", "export-slots-", "work")]),
]
COLORS = ["#c2185b", "#607d8b", "#1565c0"]


def points(counts, beginning, kind):
    """Size and count of each row that begins so, by size."""
    found = []
    for row, kinds in counts.items():
        if row.startswith(beginning):
            found.append((int(row[len(beginning):]), kinds[kind][0]))
    return sorted(found)


def draw(name, across, upwards, curves, counts):
    """Writes one picture with gnuplot."""
    lines = [f'set terminal svg size 640,360 font "sans-serif,12" background "#ffffff"',
             f'set output "{PICTURES / (name + ".svg")}"', "set key left top", "set grid", "set border 3",
             "set tics nomirror", "set yrange [0:*]", "set xrange [0:*]", f'set xlabel "{across}"',
             f'set ylabel "{upwards}"']
    data, plots = [], []
    for number, (title, beginning, kind) in enumerate(curves):
        data.append(f"$curve{number} << END")
        data += [f"{size} {count / 1e6}" for size, count in points(counts, beginning, kind)]
        data.append("END")
        plots.append(f'$curve{number} with linespoints lw 2 pt 7 ps 0.6 lc rgb "{COLORS[number]}" title "{title}"')
    subprocess.run(["gnuplot"], input="\n".join(data + lines + ["plot " + ", ".join(plots)]) + "\n", text=True,
                   check=True)


def write(table, counts):
    """Puts the table into the page, and draws its pictures."""
    PICTURES.mkdir(parents=True, exist_ok=True)
    for plot in PLOTS:
        draw(*plot, counts)
    text = PAGE.read_text()
    begin, end = "<!-- table -->\n", "<!-- end of table -->"
    before, after = text.index(begin) + len(begin), text.index(end)
    PAGE.write_text(text[:before] + "\n" + "\n".join(re.sub(r"(\d),(?=\d{3})", r"\1 ", line) for line in table) +
                    "\n\n" + text[after:])
