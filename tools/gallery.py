#!/usr/bin/python3 -B
# Debian's own Python: it is the one that finds Debian's Pillow.
"""Plays the scripts of demo/gallery and writes the pictures that README and guide show.

usage: tools/gallery.py SIMULATOR LIBRARY FOLDER

A script is one of the simulator's, with comments that say more of its pictures (places and sizes in points):

    # host: NAME                       the app, in the first lines
    # crop: PICTURE X Y WIDTH HEIGHT   only this part of the screen is kept, like whole screens at one pixel a point
    # close: PICTURE X Y WIDTH HEIGHT  the same at two pixels a point
    # finger: PICTURE X Y              a disc is drawn where the finger is

A picture named NAME.NN.MS is a frame of the moving picture NAME: they follow each other by NN and stay MS milliseconds.
"""

import io
import re
import struct
import subprocess
import sys
import tempfile
import zlib
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from PIL import Image, ImageChops, ImageDraw

ROOT = Path(__file__).resolve().parents[1]
SCRIPTS = ROOT / "demo/gallery"
WORDS = ROOT / "tests/scenarios/corvel.words"
FRAME = re.compile(r"(?P<name>[\w-]+)\.(?P<order>\d+)\.(?P<duration>\d+)")
SCALE = 2  # pixels a point in the simulator's pictures
FINGER_RADIUS = 22  # points


class Refused(Exception):
    """A script that cannot be played, in words for the user."""


def remarks(script, word):
    """The words of every comment `# word: …` of a script."""
    return [line.split() for line in re.findall(rf"^# {word}: (.*)$", script.read_text("utf-8"), re.MULTILINE)]


def play(script, simulator, library, folder):
    """The pictures of a script as the simulator draws them, by name."""
    hosts = remarks(script, "host")
    if not hosts:
        raise Refused(f"{script} names no app: its first lines want '# host: NAME'")
    options = ["--library", library, "--words", WORDS, "--host", hosts[0][0], "--pictures", folder]
    run = subprocess.run([simulator, *options, "run", script], capture_output=True, text=True)
    if run.returncode != 0:
        raise Refused(f"{script} ended with status {run.returncode}\n{run.stdout}{run.stderr}".rstrip())
    return {path.stem: Image.open(path).convert("RGB") for path in Path(folder).glob("*.png")}


def draw_finger(picture, x, y):
    """Shades a disc with a bright rim; drawn larger and reduced, for a smooth rim."""
    fine = 4
    radius = FINGER_RADIUS * SCALE
    disc = Image.new("L", (2 * radius * fine, 2 * radius * fine))
    ImageDraw.Draw(disc).ellipse((0, 0, disc.width - 1, disc.height - 1), fill=80, outline=220, width=4 * fine)
    picture.paste("white", (round(x * SCALE) - radius, round(y * SCALE) - radius), disc.reduce(fine))


def finish(script, pictures):
    """Draws fingers, cuts, and reduces to the size in which the pages show the pictures."""
    parts = {name: box for word in ("crop", "close") for name, *box in remarks(script, word)}
    unknown = {*parts, *(name for name, *_ in remarks(script, "finger"))} - pictures.keys()
    if unknown:
        raise Refused(f"{script} takes no picture {', '.join(sorted(unknown))}")
    for name, x, y in remarks(script, "finger"):
        draw_finger(pictures[name], float(x), float(y))
    close = {name for name, *_ in remarks(script, "close")}
    finished = {}
    for name, picture in pictures.items():
        if name in parts:
            x, y, width, height = (round(float(number) * SCALE) for number in parts[name])
            picture = picture.crop((x, y, x + width, y + height))
        finished[name] = picture if name in close else picture.reduce(SCALE)
    return finished


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def image_data(picture):
    """The compressed rows of a picture, as the chunks of its PNG hold them."""
    file = io.BytesIO()
    picture.save(file, "PNG", optimize=True)
    png = file.getvalue()
    data, place = b"", 8
    while place < len(png):
        length, kind = struct.unpack_from(">I4s", png, place)
        if kind == b"IDAT":
            data += png[place + 8 : place + 8 + length]
        place += length + 12
    return data


def write_animation(path, frames):
    """Writes (picture, milliseconds) as an animated PNG that repeats for ever. Each frame holds what differs from the
    one before. https://www.w3.org/TR/png-3/#apng-frame-based-animation"""
    width, height = frames[0][0].size
    stills = [(frames[0][0], (0, 0), frames[0][1])]
    for (before, _), (picture, duration) in zip(frames, frames[1:]):
        changed = ImageChops.difference(before, picture).getbbox() or (0, 0, 1, 1)
        stills.append((picture.crop(changed), changed[:2], duration))
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    out = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"acTL", struct.pack(">II", len(stills), 0))
    number = 0
    for picture, (x, y), duration in stills:
        control = struct.pack(">IIIIIHHBB", number, *picture.size, x, y, duration, 1000, 0, 0)
        out += chunk(b"fcTL", control)
        number += 1
        if number == 1:
            out += chunk(b"IDAT", image_data(picture))
        else:
            out += chunk(b"fdAT", struct.pack(">I", number) + image_data(picture))
            number += 1
    path.write_bytes(out + chunk(b"IEND", b""))


def write(pictures, folder):
    """Writes stills, and frames as the moving pictures that they make."""
    moving = {}
    for name, picture in sorted(pictures.items()):
        if frame := FRAME.fullmatch(name):
            moving.setdefault(frame["name"], []).append((int(frame["order"]), picture, int(frame["duration"])))
        else:
            picture.save(folder / f"{name}.png", optimize=True)
    for name, frames in moving.items():
        ordered = sorted(frames, key=lambda frame: frame[0])
        write_animation(folder / f"{name}.png", [(picture, duration) for _, picture, duration in ordered])


def make(script, simulator, library, folder):
    with tempfile.TemporaryDirectory() as raw:
        write(finish(script, play(script, simulator, library, raw)), folder)


def make_all(simulator, library, folder):
    """Makes every picture, and puts them into the folder when all of them are good. Returns their paths."""
    with tempfile.TemporaryDirectory() as fresh, ThreadPoolExecutor() as pool:
        # Results are asked for so that what a thread raised is raised here.
        list(pool.map(lambda script: make(script, simulator, library, Path(fresh)), sorted(SCRIPTS.glob("*.scn"))))
        paths = []
        for picture in sorted(Path(fresh).iterdir()):
            path = folder / picture.name
            path.write_bytes(picture.read_bytes())
            paths.append(path)
        return paths


def main(simulator, library, folder):
    try:
        paths = make_all(simulator, library, Path(folder))
    except (OSError, Refused) as error:
        print(f"gallery: {error}", file=sys.stderr)
        return 1
    size = sum(path.stat().st_size for path in paths)
    print(f"{len(paths)} pictures, {size / 1024:.0f} KiB, in {folder}")
    return 0


if __name__ == "__main__":
    if len(sys.argv) != 4:
        print("usage: tools/gallery.py SIMULATOR LIBRARY FOLDER", file=sys.stderr)
        sys.exit(2)
    sys.exit(main(*sys.argv[1:]))
