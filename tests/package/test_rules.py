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

    def segment(self, name):
        """Where the load command of a segment stands."""
        at = self.data.index(struct.pack("<I", macho.LC_SEGMENT_64))
        while self.data[at + 8 : at + 24] != name.ljust(16, b"\0"):
            at += struct.unpack_from("<I", self.data, at + 4)[0]
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

    def test_variadic_method(self):
        self.replace(b"\0appendString:\0", b"\0appendFormat:\0")
        self.expect("variadic method named: appendFormat:")

    def test_stub_that_the_symbol_table_names_otherwise(self):
        """As when stripping forgot to count the table of indirect symbols anew."""
        stubs = self.whole.section("__stubs")
        first, second = self.whole.indirect_symbols[stubs.first_indirect :][:2]
        struct.pack_into("<I", self.data, self.section_header(b"__stubs") + 68, stubs.first_indirect + 1)
        found = self.complaints()
        self.assertIn(f"stub {stubs.address:#x}: jumps to {first.symbol}, named {second.symbol}", found)
        end = stubs.address + stubs.size - 12
        self.assertTrue(any(line.startswith(f"stub {end:#x}: ") for line in found))

    def test_stub_of_another_slot(self):
        stubs = self.whole.section("__stubs")
        first, second = self.whole.indirect_symbols[stubs.first_indirect :][:2]
        (load,) = struct.unpack_from("<I", self.data, stubs.offset + 12 + 4)
        struct.pack_into("<I", self.data, stubs.offset + 4, load)
        self.expect(f"stub {stubs.address:#x}: jumps to {second.symbol}, named {first.symbol}")

    def test_stub_of_other_instructions(self):
        stubs = self.whole.section("__stubs")
        struct.pack_into("<I", self.data, stubs.offset + 8, 0xD61F0220)  # br x17
        self.expect(f"stub {stubs.address:#x}: does not load a slot and jump there")

    def test_slot_that_the_loader_binds_otherwise(self):
        slots = self.whole.section("__got")
        symbol = self.whole.indirect_symbols[slots.first_indirect].symbol
        (pointer,) = struct.unpack_from("<Q", self.data, slots.offset)
        bound = self.whole.imports.index(self.whole.fixups[slots.address].entry) ^ 1
        struct.pack_into("<Q", self.data, slots.offset, pointer & ~0xFFFFFF | bound)
        other = self.whole.imports[bound].symbol
        self.expect(
            f"pointer slot {slots.address:#x}: bound to {other}, named {symbol}",
            f"stub {self.whole.section('__stubs').address:#x}: jumps to {other}, named {symbol}",
        )

    def test_segment_protections(self):
        for name, protections, complaint in (
            (b"__TEXT", (7, 5), "protection r-x at most rwx instead of r-x"),
            (b"__DATA", (7, 7), "protection rwx at most rwx instead of rw-"),
            (b"__LINKEDIT", (3, 3), "protection rw- at most rw- instead of r--"),
        ):
            with self.subTest(name):
                self.data = bytearray(self.original)
                struct.pack_into("<2I", self.data, self.segment(name) + 56, *protections)
                self.expect(f"segment {name.decode()}: {complaint}")

    def test_segment_that_stays_writable(self):
        struct.pack_into("<I", self.data, self.segment(b"__DATA_CONST") + 68, 0)
        self.expect("segment __DATA_CONST: flags 0x0 instead of 0x10")

    def test_segment_beside_a_page(self):
        segment = self.segment(b"__LINKEDIT")
        address, _, offset = struct.unpack_from("<3Q", self.data, segment + 24)
        struct.pack_into("<Q", self.data, segment + 24, address + 0x1000)
        self.expect(f"segment __LINKEDIT: {address + 0x1000:#x}, {offset:#x} not at pages of 16384")

    def test_sections_that_overlap(self):
        header = self.section_header(b"__unwind_info")
        address, size = struct.unpack_from("<2Q", self.data, header + 32)
        struct.pack_into("<Q", self.data, header + 32, address - 4)
        self.expect(
            f"section __TEXT,__unwind_info: {address - 4:#x} to {address - 4 + size:#x} overlaps another or leaves its "
            "segment"
        )

    def test_constant_strings(self):
        strings = self.whole.section("__cfstring")
        (length,) = struct.unpack_from("<Q", self.data, strings.offset + 24)
        (characters,) = struct.unpack_from("<Q", self.data, strings.offset + 16)
        selectors = self.whole.section("__objc_methname")
        for field, value, complaint in (
            (0, struct.unpack_from("<Q", self.data, strings.offset)[0] ^ 1, "of class"),
            (8, 0x7C0, "flags 0x7c0"),
            (16, characters & ~macho.TARGET_MASK | selectors.address, "characters outside the constants"),
            (24, length + 1, f"length {length + 1} does not end where its characters do"),
            (24, 1 << 40, f"length {1 << 40}"),
        ):
            with self.subTest(complaint):
                self.data = bytearray(self.original)
                struct.pack_into("<Q", self.data, strings.offset + field, value)
                wanted = f"constant string {strings.address:#x}: {complaint}"
                self.assertTrue(any(line.startswith(wanted) for line in self.complaints()))

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
