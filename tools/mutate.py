#!/usr/bin/env python3
"""Puts random faults into the library's sources, one at a time, and tells which of them the tests catch.

usage: mutate.py COUNT SEED [PATH]      PATH: only faults in this file or folder below src

All of it happens in a copy of the tree under out/mutate; the checkout is only read. The same sources, seed and path
give the same faults. A fault that does not compile is passed over and another one drawn in its place. One that leaves
the library's code byte for byte as it was changes nothing, and is counted apart. Every survivor is shown with its diff;
those of which tests/known-survivors.txt says why they change nothing are counted apart too.
"""

import concurrent.futures
import difflib
import json
import os
import random
import re
import shutil
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
COPY = ROOT / "out" / "mutate"
OUT = COPY / "out" / "release"
LIBRARY = OUT / "libCorvel.so"
KNOWN = ROOT / "tests" / "known-survivors.txt"
# The simulator has these rooms in common with the library. A fault is to be the library's alone, so the simulator stays
# as it is, and so do the unit tests, which contain all of it, where the fault is in a header.
SHARED = re.compile(r"src/(objc|apple)/.*\.hpp")
PLAYED = re.compile(r"^(unit|scenario|demo|transfer|pages|soak)/")
LONGEST = 60  # seconds; what takes longer hangs, and so is caught

TOKEN = re.compile(
    r"""(?P<skipped>//[^\n]*|/\*.*?\*/|^[ ]*\#(?:[^\n]*\\\n)*[^\n]*|R"\((?:.*?)\)"|'(?:\\.|[^'\\])+')
      |(?P<text>"(?:\\.|[^"\\\n])*")
      |(?P<number>(?<![\w.])(?:0x[0-9a-fA-F]+|\d+\.?\d*(?:e-?\d+)?))
      |(?P<name>[A-Za-z_]\w*)
      |(?P<sign>&&|\|\||==|!=|<=|>=|\+\+|--|->|<<|>>|::|\S)""",
    re.MULTILINE | re.DOTALL | re.VERBOSE,
)
SWAPPED = {"&&": "||", "||": "&&", "==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "+": "-",
           "-": "+", "*": "/", "/": "*", "++": "--", "--": "++", "<<": ">>", ">>": "<<"}  # fmt: skip
BINARY = set(SWAPPED) - {"++", "--"}
# What begins a statement that cannot be left out alone.
KEPT = {"alignas", "auto", "case", "class", "const", "constexpr", "default", "do", "else", "enum", "explicit", "extern",
        "for", "friend", "if", "inline", "namespace", "private", "public", "static", "static_assert", "struct",
        "switch", "template", "typedef", "union", "unsigned", "using", "virtual", "void", "while"}  # fmt: skip


def number_faults(number):
    if re.fullmatch(r"\d+", number):
        value = int(number)
        return [str(value + 1), str(value * 2 + 1), str(max(value - 1, 0))]
    if number.startswith("0x"):
        return [hex(int(number, 16) ^ 1), hex(int(number, 16) << 1)]
    return [repr(float(number) * 2), repr(float(number) + 1), repr(float(number) / 2)]


def text_faults(text):
    inner = text[1:-1]
    return [f'"{inner}x"'] + ([f'"{inner[1:]}"'] if inner and inner[0] != "\\" else [])


def statement_end(tokens, start):
    """The token behind the statement that begins at one, if it ends with its own semicolon."""
    depth = 0
    for i in range(start, len(tokens)):
        sign = tokens[i].group()
        if sign in "([{":
            depth += 1
        elif sign in ")]}":
            depth -= 1
            if depth < 0:
                return None
        elif sign == ";" and depth == 0:
            return i + 1
    return None


def closing(tokens, start):
    """The index of the parenthesis that closes the one at `start`."""
    depth = 0
    for i in range(start, len(tokens)):
        depth += {"(": 1, ")": -1}.get(tokens[i].group(), 0)
        if depth == 0:
            return i
    return start


def sites(path, source):
    """Every place for a fault: (kind, begin, end, what may stand there instead)."""
    tokens = [found for found in TOKEN.finditer(source) if not found.group("skipped")]
    for i, token in enumerate(tokens):
        word, begin, end = token.group(), token.start(), token.end()
        spaced = source[begin - 1 : begin] in (" ", "\n") and source[end : end + 1] in (" ", "\n")
        before = tokens[i - 1].group() if i else ""
        after = tokens[i + 1].group() if i + 1 < len(tokens) else ""
        if token.group("number"):
            yield "number", begin, end, number_faults(word)
        elif token.group("text"):
            yield "text", begin, end, text_faults(word)
        elif word in ("true", "false"):
            yield "condition", begin, end, ["false" if word == "true" else "true"]
        elif word == "!" and (after == "(" or after.isidentifier()):
            yield "condition", begin, end, [""]
        elif word in ("if", "while") and after == "(":
            last = tokens[closing(tokens, i + 1)].start()
            condition = source[tokens[i + 1].end() : last]
            yield "condition", tokens[i + 1].end(), last, [f"!({condition})", "true", "false"]
        elif (word in BINARY and spaced and before != "operator") or word in ("++", "--"):
            yield "operator", begin, end, [SWAPPED[word]]
        elif word == "-" and before in ("(", ",", "{", "=", "return", "?", ":"):
            yield "operator", begin, end, [""]
        line = source[source.rfind("\n", 0, begin) + 1 : begin]
        if before in (";", "{", "}", "") and len(line) >= 4 and line.isspace() and word not in KEPT:
            last = statement_end(tokens, i)
            if last is not None and (token.group("name") or word in ("*", "++", "--", "(")):
                yield "statement", begin, tokens[last - 1].end(), [""]


class Fault:
    def __init__(self, path, kind, begin, end, instead):
        self.path, self.kind, self.begin, self.end, self.instead = path, kind, begin, end, instead

    def applied(self):
        source = (ROOT / self.path).read_text(encoding="utf-8")
        return source[: self.begin] + self.instead + source[self.end :]

    def line(self):
        return (ROOT / self.path).read_text(encoding="utf-8").count("\n", 0, self.begin) + 1

    def changed(self):
        """The lines that differ, as `- old` and `+ new`."""
        old = (ROOT / self.path).read_text(encoding="utf-8").splitlines()
        lines = difflib.unified_diff(old, self.applied().splitlines(), n=0, lineterm="")
        return [f"{line[0]} {line[1:].strip()}".rstrip() for line in list(lines)[3:]]


def draw(chance, within):
    """Faults without end: first a kind, then a place of that kind."""
    kinds = {}
    for path in sorted(p for p in (ROOT / "src").rglob("*") if p.suffix in (".cpp", ".hpp", ".m")):
        name = str(path.relative_to(ROOT))
        if name == within or name.startswith(within.rstrip("/") + "/"):
            for kind, begin, end, instead in sites(name, path.read_text(encoding="utf-8")):
                kinds.setdefault(kind, []).append((name, begin, end, instead))
    drawn = set()
    while any(kinds.values()):
        kind = chance.choice(sorted(kind for kind in kinds if kinds[kind]))
        name, begin, end, instead = chance.choice(kinds[kind])
        fault = Fault(name, kind, begin, end, chance.choice(instead))
        key = (name, begin, end, fault.instead)
        if key not in drawn:
            drawn.add(key)
            yield fault
        elif all((name, begin, end, text) in drawn for text in instead):
            kinds[kind].remove((name, begin, end, instead))


def run(command, **options):
    return subprocess.run(command, cwd=COPY, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **options)


def refresh_copy():
    """Makes the copy equal to the checkout, writing only what differs, so that little is built again."""
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "-z"], cwd=ROOT, check=True,
                            stdout=subprocess.PIPE).stdout  # fmt: skip
    names = {name for name in listed.decode().split("\0") if name and (ROOT / name).is_file()}
    for name in names:
        source, target = ROOT / name, COPY / name
        if not target.is_file() or source.read_bytes() != target.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)
    for path in list(COPY.rglob("*")):
        relative = path.relative_to(COPY)
        if path.is_file() and relative.parts[0] != "out" and str(relative) not in names:
            path.unlink()


class Tests:
    """The tests of the copy, in the order in which they are tried."""

    def __init__(self):
        listed = json.loads(run(["ctest", "--test-dir", OUT, "--show-only=json-v1"], check=True).stdout)
        self.tests = {}
        for test in listed["tests"]:
            if PLAYED.match(test["name"]):
                properties = {entry["name"]: entry["value"] for entry in test["properties"]}
                self.tests[test["name"]] = (test["command"], properties.get("WORKING_DIRECTORY", COPY))
        self.took = {}
        self.caught = {}  # by source file: the test that caught its last fault is tried first

    def play(self, name):
        """Whether the test passes; it and what it has started are ended when it takes too long."""
        command, directory = self.tests[name]
        start = time.monotonic()
        process = subprocess.Popen(command, cwd=directory, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL, start_new_session=True)  # fmt: skip
        try:
            passed = process.wait(LONGEST) == 0
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, 9)
            process.wait()
            passed = False
        self.took[name] = time.monotonic() - start
        return passed

    def first_failure(self, path):
        """The test that fails, those that are about the file's room first; nothing when all pass."""
        words = [word for word in Path(path).with_suffix("").parts[1:] if len(word) > 4]
        shared = SHARED.fullmatch(path)
        names = [name for name in self.tests if not (shared and name.startswith("unit/"))]
        names.sort(key=lambda name: (name != self.caught.get(path), not any(word in name for word in words),
                                     self.took.get(name, 0)))  # fmt: skip
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            waiting = {pool.submit(self.play, name): name for name in names}
            for done in concurrent.futures.as_completed(waiting):
                if not done.result():
                    pool.shutdown(wait=False, cancel_futures=True)
                    self.caught[path] = waiting[done]
                    return waiting[done]
        return None


def build(path):
    targets = ["Corvel"] if SHARED.fullmatch(path) else ["Corvel", "unit-tests", "preference-pages"]
    # What a dropped statement leaves unused is no reason to pass the fault over.
    lenient = dict(os.environ, CCC_OVERRIDE_OPTIONS="#x-Werror")
    return run(["cmake", "--build", OUT, "--target", *targets], env=lenient).returncode == 0


def code():
    """What the library does: its bytes without what only debuggers read."""
    stripped = LIBRARY.with_suffix(".stripped")
    run(["strip", "--remove-section=.note.gnu.build-id", "-o", stripped, LIBRARY], check=True)
    return stripped.read_bytes()


def prepare():
    refresh_copy()
    if not (OUT / "build.ninja").exists():
        run(["cmake", "--preset", "release", "-Wno-dev"], check=True)
    done = run(["cmake", "--build", OUT])
    if done.returncode != 0:
        sys.exit(done.stdout.decode() + "mutate: the sources as they are do not build")
    tests = Tests()
    failed = tests.first_failure("src")
    if failed:
        sys.exit(f"mutate: {failed} fails without any fault")
    tests.caught.clear()
    return tests


def known_survivors():
    """Faults that change nothing: file, old line and new line, as the list gives them."""
    blocks = KNOWN.read_text(encoding="utf-8").split("\n\n") if KNOWN.exists() else []
    return {tuple(line.rstrip() for line in block.splitlines() if line and not line.startswith("#")) for block in blocks}


def attempt(fault, tests, sound):
    """What became of the fault: nothing when it does not compile, else a word and what caught it."""
    target = COPY / fault.path
    target.write_text(fault.applied(), encoding="utf-8")
    try:
        if not build(fault.path):
            return None
        if code() == sound:
            return "same code", ""
        caught = tests.first_failure(fault.path)
        if caught:
            return "caught", caught
        known = (fault.path, *fault.changed()) in known_survivors()
        return ("known", "") if known else ("SURVIVED", "")
    finally:
        shutil.copy(ROOT / fault.path, target)


def main():
    if len(sys.argv) not in (3, 4) or not all(word.isdigit() for word in sys.argv[1:3]):
        sys.exit(__doc__.split("\n\n")[1])
    count, seed = int(sys.argv[1]), sys.argv[2]
    within = sys.argv[3] if len(sys.argv) == 4 else "src"
    os.environ.update(CCACHE_BASEDIR=str(COPY), CCACHE_NOHASHDIR="1")
    tests = prepare()
    sound = code()
    tally = {"caught": 0, "same code": 0, "known": 0, "SURVIVED": 0}
    for fault in draw(random.Random(seed), within):
        if sum(tally.values()) == count:
            break
        outcome = attempt(fault, tests, sound)
        if outcome is None:
            continue
        word, by = outcome
        tally[word] += 1
        print(f"{sum(tally.values())} {word} {fault.path}:{fault.line()} {fault.kind} {by}".rstrip(), flush=True)
        for line in fault.changed() if word != "caught" else []:
            print("    " + line, flush=True)
    changing = tally["caught"] + tally["SURVIVED"]
    print(f"seed {seed}: {tally['caught']} of {changing} faults that change behaviour were caught; "
          f"{tally['same code']} left the code as it was, {tally['known']} are known to change nothing")  # fmt: skip
    sys.exit(1 if tally["SURVIVED"] else 0)


if __name__ == "__main__":
    main()
