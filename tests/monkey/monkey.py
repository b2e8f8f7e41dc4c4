#!/usr/bin/env python3
"""A monkey at the simulated phone: random steps, and after each the rules of corvel.rules.

usage: monkey.py [OPTION…] HOST|all STEPS SEED -- SIMULATOR [OPTION…]

--save FOLDER     where a failing script is left (the present folder unless said)
--rules FILE      rules in the place of corvel.rules
--jobs N          runs side by side (one a processor unless said)

STEPS lines are played for each host, in runs of at most 5000; the runs' seeds are SEED, SEED + 1, … A run that fails
prints its seed and a shortened script that fails in the same way. The status is 0 when none did, 1 when one did, 2
when the command line makes no sense.
"""

import argparse
import os
import re
import subprocess
import sys
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from shrink import shrink
from steps import HOSTS, ROOT, Steps

HERE = Path(__file__).resolve().parent
LONGEST_RUN = 5000
SHRINKING_SECONDS = 240
HUNG_SECONDS = 900  # for a whole run
TALKATIVE = 20  # with more runs than these, each is told of as it ends


class Run:
    """One script played: how it ended and what it said."""

    def __init__(self, simulator, rules, host, lines):
        self.lines = lines
        with tempfile.TemporaryDirectory() as folder:
            script = Path(folder, "steps.scn")
            script.write_text("\n".join(lines) + "\n", encoding="utf-8")
            command = [*simulator, "--words", str(ROOT / "tests/scenarios/corvel.words"), "--rules", str(rules),
                       "--lenient", "--host", host, "--pictures", folder, "run", str(script)]
            try:
                done = subprocess.run(command, capture_output=True, timeout=HUNG_SECONDS, env=dict(os.environ, TMPDIR=folder))
                self.status, output, remarks = done.returncode, done.stdout, done.stderr
            except subprocess.TimeoutExpired as hung:
                self.status, output, remarks = "hung", hung.stdout or b"", hung.stderr or b""
        self.output = output.decode("utf-8", "replace").replace(str(script), "steps")
        self.remarks = remarks.decode("utf-8", "replace").replace(str(script), "steps")
        self.passed_over = self.remarks.count("passed over: steps:")
        self.slow = re.findall(r"^steps:(\d+): slow: (.*)$", self.remarks, re.M)

    @property
    def failed(self):
        return self.status != 0

    def complaint(self):
        """What went wrong, in a line or two."""
        said = [line for line in self.output.splitlines() if re.match(r"steps:\d+: (broken|exception|expected)", line)]
        said += [line for line in self.remarks.splitlines()
                 if re.search(r"ERROR: |SUMMARY: |runtime error: |terminat|Assert|uncaught", line)]
        return "\n".join(said[-3:]) or (self.remarks.splitlines() or self.output.splitlines() or [""])[-1]

    def kind(self):
        """The complaint without places and numbers: a shortened script must fail in the same way."""
        first = self.complaint().splitlines()[:1] or [""]
        return self.status, re.sub(r"0x[0-9a-f]+|\d+", "N", first[0])[:120]

    def last_line(self):
        """The line at which the run ended, as far as it says; else the number of lines."""
        said = re.findall(r"^steps:(\d+): (?:broken|exception)", self.output, re.M)
        return int(said[-1]) if said else len(self.lines)


def shortened(run, play):
    deadline = time.monotonic() + SHRINKING_SECONDS
    kind = run.kind()

    def fails(lines):
        return time.monotonic() < deadline and play(lines).kind() == kind

    lines = run.lines[:run.last_line()]
    return shrink(lines if fails(lines) else run.lines, fails)


def read_words():
    if "--" not in sys.argv:
        sys.exit("monkey: the simulator's command is missing\n" + __doc__)
    dashes = sys.argv.index("--")
    parser = argparse.ArgumentParser(add_help=False)
    parser.add_argument("--save", type=Path, default=Path("."))
    parser.add_argument("--rules", type=Path, default=HERE / "corvel.rules")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("host", choices=(*HOSTS, "all"))
    parser.add_argument("steps", type=int)
    parser.add_argument("seed", type=int)
    return parser.parse_args(sys.argv[1:dashes]), sys.argv[dashes + 1:]


def main():
    words, simulator = read_words()
    hosts = HOSTS if words.host == "all" else (words.host,)
    runs = [(host, words.seed + at // LONGEST_RUN, min(LONGEST_RUN, words.steps - at))
            for at in range(0, words.steps, LONGEST_RUN) for host in hosts]
    begun = time.monotonic()

    def play_run(what):
        host, seed, steps = what
        return Run(simulator, words.rules, host, Steps(host, seed).lines(steps))

    done = passed_over = failures = 0
    with ThreadPoolExecutor(words.jobs) as pool:
        for (host, seed, steps), run in zip(runs, pool.map(play_run, runs)):
            done += steps
            passed_over += run.passed_over
            if len(runs) > TALKATIVE:
                print(f"{host} {steps} {seed}: ended with {run.status}, {done} of {words.steps * len(hosts)} steps",
                      file=sys.stderr, flush=True)
            for line, seconds in run.slow:
                print(f"{host} {steps} {seed}: slow, {seconds}: {run.lines[int(line) - 1][:200]}")
            if not run.failed:
                continue
            failures += 1
            print(f"{host} {steps} {seed}: failed with status {run.status}\n{run.complaint()}", flush=True)
            if failures <= 3:  # more of them are likely the same
                fewer = shortened(run, lambda lines: Run(simulator, words.rules, host, lines))
                words.save.mkdir(parents=True, exist_ok=True)
                file = words.save / f"{host}-{seed}.scn"
                file.write_text(f"# host: {host}\n" + "\n".join(fewer) + "\n", encoding="utf-8")
                print(f"shortened to {len(fewer)} lines, {file}:\n" + "\n".join(fewer), flush=True)
    took = time.monotonic() - begun
    print(f"{done} steps on {', '.join(hosts)} from seed {words.seed}: {failures} of {len(runs)} runs failed; "
          f"{passed_over} lines passed over; {done / took:.0f} steps a second")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
