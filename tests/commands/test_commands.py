"""The commands refuse what they do not understand at once: status 2, and words that say what they take."""

import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PLAY = "tests/scenarios/play"
SMOKE = "tests/scenarios/smoke.scn"


class CommandsTest(unittest.TestCase):
    def expect_refusal(self, *command, says):
        with self.subTest(" ".join(command)):
            # Nothing may be built before the refusal, so it comes within seconds or not at all.
            run = subprocess.run(command, cwd=ROOT, capture_output=True, text=True, timeout=60)
            reason, *usage = run.stderr.splitlines()
            self.assertEqual((run.returncode, run.stdout), (2, ""), run.stderr)
            self.assertEqual(reason, f"{Path(command[0]).name}: {says}")
            self.assertTrue(usage and usage[0].startswith("usage: "), run.stderr)

    def test_corvel_without_a_known_word(self):
        self.expect_refusal("./corvel", says="a word is missing")
        self.expect_refusal("./corvel", "frob", says="no word 'frob'")

    def test_corvel_demo(self):
        hosts = " ".join(sorted(path.stem for path in (ROOT / "demo").glob("*.scn")))
        self.expect_refusal("./corvel", "demo", "--host", says="--host needs a name")
        for name in ("frob", "--device", ""):
            reason = f"no demo for a host named '{name}'; there are {hosts}"
            self.expect_refusal("./corvel", "demo", "--host", name, says=reason)
        self.expect_refusal("./corvel", "demo", "--device", "xhs", says="demo takes no 'xhs'")

    def test_corvel_build_and_test(self):
        presets = "release debug sanitize coverage lint phone device"
        self.expect_refusal("./corvel", "build", "frob", says=f"no preset named 'frob'; there are {presets}")
        self.expect_refusal("./corvel", "build", "release", "debug", says="build takes one preset")
        self.expect_refusal("./corvel", "test", "--preset", says="--preset needs a name")
        self.expect_refusal("./corvel", "test", "--preset", "frob", says=f"no preset named 'frob'; there are {presets}")
        self.expect_refusal("./corvel", "test", "--frob", says="test takes no '--frob'")
        self.expect_refusal("./corvel", "test", "unit/color", "unit/label", says="test takes one filter")
        self.expect_refusal("./corvel", "gallery", "a", "b", says="gallery takes one folder")
        for word in ("package", "pages", "coverage", "editor"):
            self.expect_refusal("./corvel", word, "frob", says=f"{word} takes no 'frob'")

    def test_corvel_inspect(self):
        self.expect_refusal("./corvel", "inspect", says="inspect takes the path of an app")

    def test_corvel_fuzz_and_mutate(self):
        fuzzers = "import inspect loader log room_probe titles transfer values"
        self.expect_refusal("./corvel", "fuzz", "frob", says=f"no fuzzer named 'frob'; there are {fuzzers}")
        self.expect_refusal("./corvel", "fuzz", says=f"fuzz takes a name and perhaps seconds; there are {fuzzers}")
        self.expect_refusal("./corvel", "fuzz", "log", "soon", says="'soon' are no seconds")
        self.expect_refusal("./corvel", "mutate", "many", says="mutate takes numbers for count and seed")
        self.expect_refusal("./corvel", "mutate", "1", "1", "docs", says="no file or folder below src: 'docs'")

    def test_corvel_monkey_and_soak(self):
        def expect_line(*words, says):
            with self.subTest(words):
                run = subprocess.run(["./corvel", *words], cwd=ROOT, capture_output=True, text=True, timeout=60)
                self.assertEqual((run.returncode, run.stdout, run.stderr), (2, "", f"corvel: {says}\n"))

        hosts = "all douyin xhs kuaishou wechat"
        for name in ("frob", "plain", ""):
            expect_line("monkey", *([name] if name else ["--device", "12"]),
                        says=f"no host named '{name or 12}' for a monkey; there are {hosts}")
        for number in ("0", "-1", "1.5", "many", "9" * 30):
            expect_line("monkey", "xhs", number,
                        says=f"the number of steps is a whole number from 1 to 100000000, not '{number}'")
        expect_line("monkey", "xhs", "10", "x", says="the seed is a whole number from 0 to 999999999, not 'x'")
        expect_line("soak", "19", says="the number of cycles is a whole number from 20 to 10000000, not '19'")
        self.expect_refusal("./corvel", "monkey", "xhs", "10", "1", "2", says="monkey takes no '2'")
        self.expect_refusal("./corvel", "soak", "100", "2", says="soak takes no '2'")
        self.expect_refusal("./corvel", "bench", "--page", "log-on", says="bench --page measures all rows")
        bench = subprocess.run(["./corvel", "bench", "frob"], cwd=ROOT, capture_output=True, text=True, timeout=60)
        self.assertEqual((bench.returncode, bench.stdout), (2, ""))
        self.assertRegex(bench.stderr, r"^corvel: no row named 'frob'; there are ([a-z0-9-]+ )+log-on [a-z0-9 -]+\n$")

    def test_play(self):
        for words in ([], [SMOKE], ["--", SMOKE]):
            self.expect_refusal(PLAY, *words, says="the simulator, or the -- before the scenario, is missing")
        for words in ([], [SMOKE, "pictures", "more"]):
            reason = "expected a scenario and perhaps a directory for its pictures"
            self.expect_refusal(PLAY, "simulator", "--", *words, says=reason)
        for place in ("no-such.scn", "tests/scenarios"):
            self.expect_refusal(PLAY, "simulator", "--", place, says=f"cannot read {place}")
        with tempfile.NamedTemporaryFile("w", suffix=".scn") as scenario:
            scenario.write("# Names no app.\nwait 3\n")
            scenario.flush()
            reason = f"{scenario.name} names no app: its first lines want '# host: NAME'"
            self.expect_refusal(PLAY, "simulator", "--", scenario.name, says=reason)

    def test_setup(self):
        presets = "name a preset: release debug sanitize coverage lint phone device inspect editor bench"
        for words, reason in (([], presets), (["frob"], "no preset named frob")):
            run = subprocess.run(["tools/setup", *words], cwd=ROOT, capture_output=True, text=True)
            self.assertEqual((run.returncode, run.stderr), (2, f"setup: {reason}\n"))


if __name__ == "__main__":
    unittest.main()
