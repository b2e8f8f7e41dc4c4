"""What the device loader makes of damaged and foreign files: altered copies of the library and what each must draw."""

import hashlib
import struct
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
ROOT = HERE.parent.parent
sys.path.insert(0, str(ROOT / "ios" / "verify"))
import macho  # noqa: E402

LIBRARY = ROOT / "out" / "packages" / "Corvel.dylib"
SIMULATOR = ROOT / "device" / "corvel-sim-device"
LC_ENCRYPTION_INFO_64 = 0x2C
ORDINAL_MASK = 0xFFFFFF  # of a bound pointer in a chain of fixups
UNDEFINED_INSTRUCTION = struct.pack("<I", 0)


class Altered:
    """A copy of the library to change in place."""

    def __init__(self):
        self.data = bytearray(LIBRARY.read_bytes())
        self.library = macho.Library(bytes(self.data))

    def put(self, offset, form, *values):
        struct.pack_into("<" + form, self.data, offset, *values)

    def sign_again(self):
        """Makes every page hash right for what the pages now hold, as somebody who changed the file would."""
        start, _ = self.library.range_of(macho.LC_CODE_SIGNATURE)
        (offset,) = struct.unpack_from(">I", self.data, start + 16)
        directory = start + offset
        hashes, _, _, pages, limit = struct.unpack_from(">5I", self.data, directory + 16)
        page_size = 1 << self.data[directory + 39]
        for page in range(pages):
            content = self.data[page * page_size : min((page + 1) * page_size, limit)]
            at = directory + hashes + 32 * page
            self.data[at : at + 32] = hashlib.sha256(content).digest()


class LoaderTest(unittest.TestCase):
    def setUp(self):
        self.altered = Altered()

    def launch(self):
        """Runs the simulator with the altered library; its status and all that it said."""
        with tempfile.TemporaryDirectory() as directory:
            path = Path(directory) / "Corvel.dylib"
            path.write_bytes(self.altered.data)
            symbols = Path(directory) / "Corvel.dylib.dSYM"
            symbols.symlink_to(LIBRARY.with_name("Corvel.dylib.dSYM"))
            run = subprocess.run(
                [SIMULATOR, "--host", "douyin", "--library", path, "run", "-"],
                input="wait 4\n", text=True, capture_output=True, timeout=120,
            )
            return run.returncode, run.stdout + run.stderr

    def expect_refusal(self, reason):
        status, said = self.launch()
        self.assertEqual(status, 2, said)
        self.assertIn(f"Corvel.dylib: {reason}", said)
        self.assertNotIn("launch douyin", said)

    def test_refuses_what_is_not_whole(self):
        whole = self.altered.data
        for size in (0, 3, 20, 40, 400, len(whole) // 2, len(whole) - 1):
            with self.subTest(size=size):
                self.altered.data = whole[:size]
                self.expect_refusal("truncated")

    def test_refuses_what_is_foreign(self):
        for offset, value, reason in ((0, 0xCAFEBABE, "not a 64-bit Mach-O file"),
                                      (4, 0x01000007, "built for another processor than arm64"),
                                      (12, 2, "not a dynamic library")):
            with self.subTest(reason=reason):
                self.altered = Altered()
                self.altered.put(offset, "I", value)
                self.expect_refusal(reason)

    def test_refuses_what_it_does_not_know(self):
        command = self.altered.library.commands[macho.LC_UUID]
        self.altered.put(command, "I", 0x99)
        self.expect_refusal("unknown load command 0x99")
        self.altered.put(command, "I", LC_ENCRYPTION_INFO_64)
        self.altered.put(command + 16, "I", 1)
        self.expect_refusal("encrypted")

    def test_refuses_a_page_that_differs(self):
        text = self.altered.library.section("__text")
        self.altered.data[text.offset] ^= 1
        self.expect_refusal("page 0 differs from its signature")

    def test_names_a_missing_import(self):
        start, size = self.altered.library.range_of(macho.LC_DYLD_CHAINED_FIXUPS)
        at = self.altered.data.index(b"_objc_retain\0", start, start + size)
        self.altered.data[at : at + 12] = b"_objc_rotain"
        self.altered.sign_again()
        self.expect_refusal("unbound import _objc_rotain")

    def test_one_wrong_fixup_fails_the_run(self):
        """Message sends bound to another import of the image."""
        imports = [entry.symbol for entry in self.altered.library.imports]
        wrong, right = imports.index("_free"), imports.index("_objc_msgSend")
        got = self.altered.library.section("__got")
        for at in range(got.offset, got.offset + got.size, 8):
            (pointer,) = struct.unpack_from("<Q", self.altered.data, at)
            if pointer >> 63 and pointer & ORDINAL_MASK == right:
                self.altered.put(at, "Q", pointer - right + wrong)
                break
        else:
            self.fail("no pointer is bound to _objc_msgSend")
        self.altered.sign_again()
        status, said = self.launch()
        self.assertNotEqual(status, 0, said)

    def test_one_corrupted_instruction_names_its_function(self):
        offset = self.altered.library.exports["_InitUI"]
        self.altered.data[offset : offset + 4] = UNDEFINED_INSTRUCTION
        self.altered.sign_again()
        status, said = self.launch()
        self.assertNotEqual(status, 0, said)
        self.assertIn("in _InitUI + 0", said)


if __name__ == "__main__":
    unittest.main()
