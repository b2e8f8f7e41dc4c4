"""The library keeps the rules, and LLVM's tools read in it what our own readers do."""

import re
import subprocess
import unittest

import build
import library
import macho
import stubs

EXPORTS = {"_InitUI"} | {f"_{host}_{name}" for host in ("DY", "XHS", "KS", "FC") for name in ("IsReady", "SendMessage")}

HOSTS = ["Douyin", "Xiaohongshu", "Kuaishou", "WeChat"]


class LibraryTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.library = macho.Library(build.LIBRARY.read_bytes())

    def test_keeps_every_rule(self):
        self.assertEqual(library.complaints(self.library, build.INSTALL_NAME), [])

    def test_exports_are_the_nine_functions(self):
        self.assertEqual(set(self.library.exports), EXPORTS)

    def test_llvm_sees_the_same_exports(self):
        listing = build.output("llvm-nm-19", "--extern-only", "--defined-only", build.LIBRARY)
        self.assertEqual({line.split()[-1] for line in listing.splitlines()}, EXPORTS)
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

    def test_llvm_sees_the_same_target(self):
        headers = build.output("llvm-objdump-19", "--macho", "--private-headers", build.LIBRARY)
        self.assertRegex(headers, r"MH_MAGIC_64\s+ARM64\s+ALL\s+0x00\s+DYLIB")
        self.assertRegex(headers, r"platform ios\n\s+sdk 15.0\n\s+minos 15.0")
        self.assertIn(f"name {build.INSTALL_NAME} ", headers)
        self.assertEqual(len(re.findall(r"S_(?:MOD_)?INIT_FUNC\w+", headers)), 1)

    def test_llvm_sees_the_same_stubs(self):
        for stub in build.STUBS.glob("*.tbd"):
            listing = build.output("llvm-nm-19", "--just-symbol-name", stub)
            names = {line for line in listing.splitlines() if line.startswith("_")}
            self.assertEqual(names, stubs.read_stub(stub.read_text())[1], stub.name)


class LoadTest(unittest.TestCase):
    def test_registers_its_classes_before_the_six_initialisers(self):
        """The calls that the one constructor makes, from the machine code before its names were stripped."""
        (start,) = macho.Library(build.LINKED.read_bytes()).initialisers
        listing = build.output("llvm-objdump-19", "-d", "--demangle", "--no-show-raw-insn", build.LINKED)
        code = listing.partition(f"{start:016x} <")[2].partition("\n\n")[0]
        calls = re.findall(r"\sbl?\s+0x\w+ <(?:corvel::(\w+)\(\)>|.+\+0x\w+>)$", code, re.M)
        registered = ["RegisterDanmuWindowClass", "RegisterGestureProxyClass", "RegisterHandlers"]
        self.assertEqual(calls[:3], registered)
        # Start-up, the first of the six, is not a call of its own: what it calls lies between.
        installers = ["ScheduleLatencyHooks"] + [f"Install{host}Hooks" for host in HOSTS]
        self.assertEqual([name for name in calls[3:] if name], installers)
        self.assertEqual(calls[-len(installers) :], installers)


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
