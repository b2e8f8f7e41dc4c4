"""The rules notice what they are for: altered copies of the library, each with the complaint that it must draw."""

import shutil
import struct
import tempfile
import unittest
from pathlib import Path

import build
import library
import macho


class RulesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.original = build.LIBRARY.read_bytes()
        cls.whole = macho.Library(cls.original)

    def setUp(self):
        self.data = bytearray(self.original)
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.stubs = Path(directory.name) / "stubs"
        shutil.copytree(build.STUBS, self.stubs)

    def complaints(self):
        return library.complaints(macho.Library(bytes(self.data)), build.INSTALL_NAME, self.stubs)

    def expect(self, *wanted):
        found = self.complaints()
        for line in wanted:
            self.assertIn(line, found)

    def replace(self, old, new):
        """Overwrites every place where the bytes stand; a name keeps its length."""
        self.assertEqual(len(old), len(new))
        self.assertTrue(old in self.data, f"{old} stands nowhere in the library")
        self.data = self.data.replace(old, new)

    def section_header(self, name):
        """Where the header of a section stands."""
        at = self.data.index(name.ljust(16, b"\0"))
        self.assertLess(at, 32 + struct.unpack_from("<I", self.data, 20)[0])
        return at

    def stub_with(self, symbol):
        return next(path for path in self.stubs.glob("*.tbd") if f"- {symbol}\n" in path.read_text())

    def test_wrong_byte_in_a_page(self):
        for offset in (0x1000, 0x4321):
            self.data[offset] ^= 1
        self.expect(
            "code signature: page 1 (offset 0x1000) does not have its hash",
            "code signature: page 4 (offset 0x4000) does not have its hash",
        )

    def test_missing_signature(self):
        struct.pack_into("<I", self.data, self.whole.commands[macho.LC_CODE_SIGNATURE], 0x7FFFFFFF)
        self.expect("code signature: missing")

    def test_bytes_after_the_signature(self):
        size = len(self.data)
        self.data += b"\0"
        self.expect(f"code signature: ends at {size}, the file at {size + 1}")

    def test_renamed_export(self):
        self.replace(b"_InitUI\0", b"_InitUX\0")
        start, size = self.whole.range_of(macho.LC_DYLD_EXPORTS_TRIE)
        self.data[start : start + size] = self.data[start : start + size].replace(b"InitUI", b"InitUX")
        self.expect("export missing: _InitUI", "export too many: _InitUX")

    def test_export_that_only_the_trie_has(self):
        start, size = self.whole.range_of(macho.LC_DYLD_EXPORTS_TRIE)
        self.data[start : start + size] = self.data[start : start + size].replace(b"InitUI", b"InitUX")
        self.expect("export only in one of trie and symbol table: _InitUX")

    def test_missing_stub(self):
        stub = self.stub_with("_objc_msgSend")
        stub.write_text(stub.read_text().replace("      - _objc_msgSend\n", ""))
        self.expect("import in no stub: _objc_msgSend from /usr/lib/libobjc.A.dylib")

    def test_stub_under_the_wrong_library(self):
        stub = self.stub_with("_objc_msgSend")
        stub.write_text(stub.read_text().replace("libobjc.A", "libobjc.B"))
        self.expect(
            "import in no stub: _objc_msgSend from /usr/lib/libobjc.A.dylib",
            "stub never imported: _objc_msgSend of /usr/lib/libobjc.B.dylib",
        )

    def test_stub_too_many(self):
        stub = self.stub_with("_objc_msgSend")
        stub.write_text(stub.read_text().replace("      - _objc_msgSend\n", "      - _objc_msgSend\n      - _spare\n"))
        self.expect("stub never imported: _spare of /usr/lib/libobjc.A.dylib")

    def test_variadic_import(self):
        self.replace(b"\0_free\0", b"\0_open\0")
        self.expect("variadic function imported: _open", "import in no stub: _open from /usr/lib/libSystem.B.dylib")

    def test_import_from_the_cxx_library(self):
        self.replace(b"\0___cxa_begin_catch\0", b"\0___cxa_end_catches\0")
        self.expect("C++ library imported: ___cxa_end_catches")

    def test_other_platform_and_minimum(self):
        at = self.whole.commands[macho.LC_BUILD_VERSION]
        struct.pack_into("<2I", self.data, at + 8, 7, 0x0E0000)
        self.expect("platform 7, minimum 14.0 instead of iOS (2), 15.0")

    def test_other_processor(self):
        struct.pack_into("<2I", self.data, 4, macho.CPU_ARM64, 2)
        self.expect("not an arm64 library: processor 0x100000c.2, file type 6")

    def test_second_initialiser(self):
        header = self.section_header(b"__init_offsets")
        (size,) = struct.unpack_from("<Q", self.data, header + 40)
        struct.pack_into("<Q", self.data, header + 40, 2 * size)
        self.assertTrue(any(line.startswith("2 initialisers instead of one: 0x") for line in self.complaints()))

    def test_initialiser_of_the_old_form(self):
        header = self.section_header(b"__objc_imageinfo")
        struct.pack_into("<I", self.data, header + 64, macho.SECTION_MOD_INIT_POINTERS)
        self.assertTrue(any(line.startswith("2 initialisers instead of one: 0x") for line in self.complaints()))

    def test_selectors_that_the_runtime_would_not_see(self):
        self.replace(b"__objc_imageinfo", b"__objc_imagedata")
        self.expect("section __objc_imageinfo missing")

    def test_selector_reference_to_nowhere(self):
        selectors = self.whole.section("__objc_selrefs")
        self.data[selectors.offset : selectors.offset + 4] = b"\0\0\0\0"
        self.expect(f"selector references: 1 of {selectors.size // 8} point at no method name")

    def test_other_install_name(self):
        self.replace(b"/Library/MobileSubstrate/", b"/Library/MobileSubstrata/")
        self.expect(f"install name {build.INSTALL_NAME.replace('strate', 'strata')} instead of {build.INSTALL_NAME}")

    def test_too_large(self):
        self.data += bytes(library.SIZE_LIMIT + 1 - len(self.data))
        self.expect(f"size {library.SIZE_LIMIT + 1} bytes is over {library.SIZE_LIMIT}")

    def test_cut_short(self):
        for size in range(0, len(self.original), 509):
            self.data = bytearray(self.original[:size])
            try:
                self.assertNotEqual(self.complaints(), [], size)
            except macho.Malformed:
                continue

    def test_scrambled_bytes(self):
        """Whatever one byte of the headers or of the linker's tables says, the answer is a complaint."""
        tables, _ = self.whole.range_of(macho.LC_DYLD_CHAINED_FIXUPS)
        signature, _ = self.whole.range_of(macho.LC_CODE_SIGNATURE)
        for offset in [*range(0, 2048, 7), *range(tables, signature, 11)]:
            self.data = bytearray(self.original)
            self.data[offset] ^= 0xFF
            try:
                self.assertNotEqual(self.complaints(), [], hex(offset))
            except macho.Malformed:
                continue


if __name__ == "__main__":
    unittest.main()
