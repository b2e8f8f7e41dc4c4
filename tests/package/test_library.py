"""LLVM's tools read in the library what our own readers do, which the build holds it against the rules with."""

import re
import subprocess
import unittest

import build
import macho
import stubs


class LibraryTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.library = macho.Library(build.LIBRARY.read_bytes())

    def test_llvm_sees_the_same_exports(self):
        listing = build.output("llvm-nm-19", "--extern-only", "--defined-only", "--just-symbol-name", build.LIBRARY)
        self.assertEqual(set(listing.split()), self.library.exports.keys())
        trie = build.output("llvm-objdump-19", "--macho", "--exports-trie", build.LIBRARY)
        found = {name: int(address, 16) for address, name in re.findall(r"^(0x\w+)\s+(\S+)", trie, re.M)}
        self.assertEqual(found, self.library.exports)

    def test_llvm_sees_the_same_imports(self):
        fixups = build.output("llvm-objdump-19", "--macho", "--chained-fixups", build.LIBRARY)
        form = r"lib_ordinal = (\d+) .*\n\s+weak_import = 0\n\s+name_offset = \d+ \((\S+)\)"
        found = {(self.library.dependencies[int(ordinal) - 1], name) for ordinal, name in re.findall(form, fixups)}
        self.assertEqual(found, {(entry.library, entry.symbol) for entry in self.library.imports})
        listing = build.output("llvm-nm-19", "--undefined-only", "--just-symbol-name", build.LIBRARY)
        self.assertEqual(set(listing.split()), {entry.symbol for entry in self.library.imports})

    def test_llvm_sees_the_same_fixups(self):
        listing = build.output("llvm-objdump-19", "--macho", "--dyld-info", build.LIBRARY)
        form = r"^\S+ +\S+ +0x(\w+) 0x\w+ +(?:rebase +0x(\w+)|bind +0x(\w+) +\S+ +(\S+))$"
        found = {}
        for place, target, addend, symbol in re.findall(form, listing, re.M):
            found[int(place, 16)] = (symbol, int(addend, 16)) if symbol else int(target, 16)
        ours = {
            place: (fixup.entry.symbol, fixup.addend) if isinstance(fixup, macho.Bound) else fixup
            for place, fixup in self.library.fixups.items()
        }
        self.assertEqual(found, ours)

    def test_llvm_sees_the_same_stubs_and_slots(self):
        listing = build.output("llvm-objdump-19", "--macho", "--indirect-symbols", build.LIBRARY)
        found = [(int(place, 16), name) for place, name in re.findall(r"^(0x\w+) +\d+ (\S+)$", listing, re.M)]
        ours = []
        for section, size in ((self.library.section("__stubs"), 12), (self.library.section("__got"), 8)):
            for i in range(section.size // size):
                symbol = self.library.indirect_symbols[section.first_indirect + i]
                ours.append((section.address + size * i, symbol.symbol))
        self.assertEqual(found, ours)

    def test_llvm_sees_the_same_segments(self):
        headers = build.output("llvm-objdump-19", "--macho", "--private-headers", build.LIBRARY)
        form = (
            r"cmd LC_SEGMENT_64\n.*\n +segname (\S+)\n(?:.*\n){4}"
            r" +maxprot (\S+)\n +initprot (\S+)\n.*\n +flags (\S+)"
        )
        bits = {"r--": 1, "rw-": 3, "r-x": 5, "(none)": 0, "SG_READ_ONLY": 0x10}
        found = [(name, *(bits[word] for word in words)) for name, *words in re.findall(form, headers)]
        segments = self.library.segments
        self.assertEqual(found, [(s.name, s.greatest_protection, s.protection, s.flags) for s in segments])

    def test_llvm_sees_the_same_target(self):
        headers = build.output("llvm-objdump-19", "--macho", "--private-headers", build.LIBRARY)
        self.assertRegex(headers, r"MH_MAGIC_64\s+ARM64\s+ALL\s+0x00\s+DYLIB")
        self.assertRegex(headers, r"platform ios\n\s+sdk 15.0\n\s+minos 15.0")
        self.assertIn(f"name {build.INSTALL_NAME} ", headers)
        self.assertIn(f"current version {build.VERSION}\n", headers)
        self.assertEqual(len(re.findall(r"S_(?:MOD_)?INIT_FUNC\w+", headers)), 1)

    def test_shows_the_version_of_its_packages(self):
        self.assertIn(b"\0" + build.VERSION.encode() + b"\0", self.library.content(self.library.section("__cstring")))

    def test_llvm_sees_the_same_stubs(self):
        for stub in build.STUBS.glob("*.tbd"):
            listing = build.output("llvm-nm-19", "--just-symbol-name", stub)
            names = {line for line in listing.splitlines() if line.startswith("_")}
            self.assertEqual(names, stubs.read_stub(stub.read_text())[1], stub.name)


class DebugInformationTest(unittest.TestCase):
    def test_belongs_to_the_library(self):
        listing = build.output("llvm-dwarfdump-19", "--uuid", build.DEBUG_INFORMATION)
        uuid = macho.Library(build.LIBRARY.read_bytes()).uuid
        self.assertIn(uuid, listing.lower().replace("-", ""))

    def test_leads_from_an_exported_address_to_its_source(self):
        address = macho.Library(build.LIBRARY.read_bytes()).exports["_InitUI"]
        symbolizer = ["llvm-symbolizer-19", "--obj", build.DEBUG_INFORMATION / "Contents/Resources/DWARF/Corvel.dylib"]
        found = subprocess.run([*symbolizer, hex(address)], check=True, capture_output=True, text=True).stdout
        self.assertRegex(found, r"InitUI\n\S*src/overlay/\S+\.cpp:\d+")


if __name__ == "__main__":
    unittest.main()
