"""The build: the same bytes from another directory, and a plain word when it cannot or must not be done."""

import filecmp
import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

import build


def run(checkout, **environment):
    command = [checkout / "ios" / "package"]
    return subprocess.run(command, capture_output=True, text=True, env={**os.environ, **environment})


class BuildTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.directory = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.directory.cleanup)
        cls.clone = Path(cls.directory.name) / "a checkout of another name, and a longer one" / "corvel"
        shutil.copytree(build.ROOT, cls.clone, symlinks=True, ignore=shutil.ignore_patterns(".git", "out"))

    def test_is_the_same_in_another_directory(self):
        done = run(self.clone, CCACHE_DISABLE="1")
        self.assertEqual(done.returncode, 0, done.stderr)
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
        return run(self.clone)

    def test_stops_at_a_breach(self):
        done = self.run_with_spare("")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("export too many: _Spare", done.stderr)

    def test_stops_at_an_import_without_a_stub(self):
        done = self.run_with_spare('printf("%d", 1);')
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("undefined symbol: _printf", done.stdout + done.stderr)

    def test_names_the_package_of_a_missing_tool(self):
        for tool, package in (("ld64.lld-19", "lld-19"), ("dpkg-deb", "dpkg"), ("dsymutil-19", "llvm-19")):
            with self.subTest(tool), tempfile.TemporaryDirectory() as directory:
                for place in ("/usr/bin", "/bin"):
                    for path in Path(place).iterdir():
                        link = Path(directory) / path.name
                        if path.name != tool and not link.exists():
                            link.symlink_to(path)
                done = run(self.clone, PATH=directory)
                self.assertEqual(done.returncode, 1)
                self.assertEqual(done.stderr, f"ios/package: missing Debian packages: {package}\n")


if __name__ == "__main__":
    unittest.main()
