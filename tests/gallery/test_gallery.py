"""The pictures of README and guides are what the library shows today, and every page shows what is there.

usage: test_gallery.py SIMULATOR LIBRARY [unittest's words]
"""

import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from PIL import Image, ImageChops, ImageSequence

ROOT = Path(__file__).resolve().parents[2]
IMAGES = ROOT / "docs/images"
REMEDY = "`./corvel gallery` makes the pictures anew; look at those that changed before they are committed"
LARGEST = 3 * 1024 * 1024  # bytes, all pictures together
SIMULATOR, LIBRARY = sys.argv.pop(1), sys.argv.pop(1)


def frames(path):
    with Image.open(path) as picture:
        return [(frame.convert("RGB"), frame.info.get("duration")) for frame in ImageSequence.Iterator(picture)]


def difference(old_path, new_path):
    """What tells two pictures apart, in words; nothing when each of their frames is the same."""
    old, new = frames(old_path), frames(new_path)
    if [duration for _, duration in old] != [duration for _, duration in new]:
        return "other frames"
    for number, ((before, _), (after, _)) in enumerate(zip(old, new)):
        if before.size != after.size:
            return f"{before.size[0]} by {before.size[1]} pixels, not {after.size[0]} by {after.size[1]}"
        if box := ImageChops.difference(before, after).getbbox():
            return f"frame {number} differs between {box[:2]} and {box[2:]}"
    return None


def pages():
    return [*ROOT.glob("*.md"), *(ROOT / "docs").rglob("*.md")]


def prose(page):
    """A page without its code."""
    return re.sub(r"```.*?```|`[^`\n]*`|^    .*?$", "", page.read_text("utf-8"), flags=re.DOTALL | re.MULTILINE)


def links(page):
    """What a page links to or shows within the project: the path, and the heading there if one is named."""
    text = prose(page)
    for link in re.findall(r"\]\(([^)\s]+)\)", text) + re.findall(r'(?:src|href)="([^"]+)', text):
        if "://" not in link:
            path, _, heading = link.partition("#")
            yield (page.parent / path).resolve() if path else page, heading


def headings(page):
    """The names under which a page's headings can be linked to."""
    titles = re.findall(r"^#+ (.*)$", page.read_text("utf-8"), re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", title.lower()).replace(" ", "-") for title in titles}


class GalleryTest(unittest.TestCase):
    def test_fresh(self):
        with tempfile.TemporaryDirectory() as folder:
            command = [ROOT / "tools/gallery.py", SIMULATOR, LIBRARY, folder]
            run = subprocess.run(command, capture_output=True, text=True)
            self.assertEqual(run.returncode, 0, run.stderr)
            fresh = {path.name: path for path in Path(folder).iterdir()}
            there = {path.name: path for path in IMAGES.glob("*.png")}
            stale = [f"{name}: no script takes it" for name in there.keys() - fresh.keys()]
            stale += [f"{name}: missing" for name in fresh.keys() - there.keys()]
            for name in fresh.keys() & there.keys():
                if change := difference(there[name], fresh[name]):
                    stale.append(f"{name}: {change}")
            if stale:
                self.fail("\n".join(["stale pictures in docs/images:", *sorted(stale), REMEDY]))
        self.assertLess(sum(path.stat().st_size for path in IMAGES.rglob("*")), LARGEST)

    def test_shown(self):
        shown = set()
        for page in pages():
            for target, heading in links(page):
                with self.subTest(page=str(page.relative_to(ROOT))):
                    self.assertTrue(target.exists(), f"it links to {target}, which is not there")
                    self.assertTrue(not heading or heading in headings(target), f"{target.name} has no #{heading}")
                shown.add(target.name)
        unseen = {path.name for path in IMAGES.rglob("*") if path.is_file()} - shown
        self.assertFalse(unseen, "no page shows these pictures")

    def test_refused(self):
        with tempfile.NamedTemporaryFile() as file:
            for folder in (file.name, f"{file.name}/pictures", "/proc/pictures"):
                run = subprocess.run([ROOT / "corvel", "gallery", folder], capture_output=True, text=True)
                self.assertEqual((run.returncode, run.stdout), (2, ""), folder)
                self.assertEqual(run.stderr, f"corvel: cannot write to '{folder}'\n")


if __name__ == "__main__":
    unittest.main()
