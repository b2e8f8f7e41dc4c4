"""The build: the same bytes from another directory, and a plain word when it cannot or must not be done."""

import filecmp
import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

import build


def run(checkout, *step, **environment):
    command = ["cmake", *step, "--preset", "phone"]
    return subprocess.run(command, cwd=checkout, capture_output=True, text=True, env={**os.environ, **environment})


class BuildTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.directory = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.directory.cleanup)
        cls.clone = Path(cls.directory.name) / "a checkout of another name, and a longer one" / "corvel"
        shutil.copytree(build.ROOT, cls.clone, symlinks=True, ignore=shutil.ignore_patterns(".git", "out"))
        run(cls.clone).check_returncode()

    def test_is_the_same_in_another_directory(self):
        done = run(self.clone, "--build", CCACHE_DISABLE="1")
        self.assertEqual(done.returncode, 0, done.stdout)
        there = self.clone / "out" / "packages"
        files = [str(path.relative_to(build.PACKAGES)) for path in build.PACKAGES.rglob("*") if path.is_file()]
        self.assertGreater(len(files), 3)
        same, different, missing = filecmp.cmpfiles(build.PACKAGES, there, files, shallow=False)
        self.assertEqual((different, missing), ([], []))

    def run_with_spare(self, body):
        """Builds the clone with one more exported function."""
        source = self.clone / "src" / "startup" / "spare.cpp"
        source.write_text(
            'extern "C" {\nint printf(const char *, ...);\n__attribute__((visibility("default"))) void Spare();\n}\n'
            f"void Spare() {{\n{body}\n}}\n"
        )
        self.addCleanup(source.unlink)
        return run(self.clone, "--build")

    def test_stops_at_a_breach(self):
        done = self.run_with_spare("")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("export too many: _Spare", done.stdout)

    def test_stops_at_an_import_without_a_stub(self):
        done = self.run_with_spare('printf("%d", 1);')
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("undefined symbol: _printf", done.stdout)

    def test_says_what_brings_a_missing_tool(self):
        with tempfile.TemporaryDirectory() as directory:
            for path in (*Path("/usr/bin").iterdir(), *Path("/bin").iterdir()):
                link = Path(directory) / path.name
                if path.name != "ld64.lld-19" and not link.exists():
                    link.symlink_to(path)
            done = run(self.clone, "-B", Path(directory) / "build", PATH=directory)
        self.assertEqual(done.returncode, 1)
        self.assertIn("ld64.lld-19 is missing; tools/setup phone installs it", done.stderr)


if __name__ == "__main__":
    unittest.main()
