"""Everything that an app comes in, and what cannot be judged."""

import plistlib
import shutil
import struct
import subprocess
import unittest
import zipfile

from inspection import HOSTS, Inspection, ask, classes_of
from phone_build import HEAD, build

IDENTIFIERS = {"douyin": "com.ss.iphone.ugc.Aweme", "xhs": "com.xingin.discover", "kuaishou": "com.jiangjia.gif",
               "wechat": "com.tencent.xin"}
LC_ENCRYPTION_INFO_64 = 0x2C
LC_SEGMENT_64 = 0x19


def commands(bytes_):
    """Where each load command begins, and which it is."""
    at, count = 32, struct.unpack_from("<I", bytes_, 16)[0]
    for _ in range(count):
        command, size = struct.unpack_from("<II", bytes_, at)
        yield at, command
        at += size


class Forms(Inspection):
    def info(self, host, **more):
        return plistlib.dumps({"CFBundleIdentifier": IDENTIFIERS[host], "CFBundleExecutable": "Main", **more})

    def app(self, host, linked=True):
        """A folder with the app, whose classes are in a framework; the framework may be one that is loaded later."""
        folder = self.folder / "App.app"
        framework = self.made(classes_of(host), "App.app/Frameworks/Live.framework/Live", kind="-dylib")
        build(self.folder, "App.app/Main", HEAD, libraries=[framework] if linked else [])
        (folder / "Info.plist").write_bytes(self.info(host))
        (folder / "Frameworks" / "notes.txt").write_text("no library")
        return folder

    def packed(self, folder, name="App.ipa", prefix="Payload/"):
        path = self.folder / name
        with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as file:
            for entry in sorted(folder.rglob("*")):
                file.write(entry, f"{prefix}{folder.name}/{entry.relative_to(folder)}")
        return path

    def test_folder_and_ipa(self):
        for host in HOSTS:
            folder = self.app(host)
            for path in (folder, self.packed(folder)):
                status, entry = self.answer(path)
                self.assertEqual((status, entry["host"], entry["works"]), (0, HOSTS[host], True))
            (folder / "Info.plist").write_bytes(plistlib.dumps(plistlib.loads((folder / "Info.plist").read_bytes()),
                                                               fmt=plistlib.FMT_BINARY))
            self.assertEqual(self.answer(folder)[0], 0)
            shutil.rmtree(folder)

    def test_the_host_of_the_app_counts(self):
        folder = self.app("kuaishou")
        (folder / "Info.plist").write_bytes(self.info("xhs"))
        status, said, _ = ask(folder)
        self.assertEqual((status, said.splitlines()[-1]), (1, "xhs: no way to send would work"))

    def test_a_library_that_comes_late(self):
        status, entry = self.answer(self.app("wechat", linked=False))
        self.assertEqual(status, 1)
        hook = next(host for host in entry["hosts"] if host["name"] == "finder")["hooks"][0]
        self.assertEqual(hook["verdict"], "missing")
        self.assertIn("not loaded with the app", hook["note"])

    def test_inherited_across_images(self):
        classes = classes_of("kuaishou", ["inherits KSSLiveCommentBarService comment:"])
        base = self.made(classes.part(["KSSLiveBarService", "KwaiLiveBaseService", "KwaiLiveBaseComponent"]),
                         "App.app/Frameworks/Base.dylib", kind="-dylib")
        rest = self.made(classes.part(["KSSLiveCommentBarService"]), "App.app/Main", libraries=[base])
        folder = rest.parent
        (folder / "Info.plist").write_bytes(self.info("kuaishou"))
        status, entry = self.answer(folder)
        self.assertEqual(status, 0)
        found = entry["hosts"][2]
        self.assertEqual([path["name"] for path in found["paths"] if path["works"]], ["bar"])
        self.assertEqual(found["paths"][0]["steps"][0]["from"], "KSSLiveBarService")

    def test_universal(self):
        source = classes_of("wechat").source()
        phone = build(self.folder, "phone", source)
        desk = build(self.folder, "desk", source, target="x86_64-apple-ios15.0-simulator")
        both = self.folder / "both"
        subprocess.run(["llvm-lipo-19", "-create", phone, desk, "-output", both], check=True)
        self.assertEqual(self.answer(both)[0], 0)
        only = self.folder / "only"
        subprocess.run(["llvm-lipo-19", "-create", desk, "-output", only], check=True)
        self.refused(only, "no part for 64-bit ARM, only x86_64")
        self.refused(desk, "for x86_64, not for 64-bit ARM")

    def test_a_key_by_its_variable(self):
        classes = classes_of("xhs", ["without method XYCommentBar setText:"])
        for variables, works in (("", False), ("id _text;", True), ("id text2;", False)):
            classes.variables["XYCommentBar"] = variables
            found = self.host(self.made(classes), "xhs")
            self.assertEqual(found["paths"][1]["works"], works, variables)

    def test_classes_of_swift(self):
        source = classes_of("wechat").source().replace(
            "@interface MMLiveCommentView", '__attribute__((objc_runtime_name("_TtC4Live17MMLiveCommentView")))\n'
            "@interface MMLiveCommentView")
        status, said, _ = ask(build(self.folder, "App", source))
        self.assertEqual(status, 1)
        self.assertIn("only a class of Swift, _TtC4Live17MMLiveCommentView", said)

    def test_encrypted(self):
        path = self.made(classes_of("wechat"), arguments=["-encryptable"])
        self.assertEqual(self.answer(path)[0], 0)
        content = bytearray(path.read_bytes())
        at = next(at for at, command in commands(content) if command == LC_ENCRYPTION_INFO_64)
        struct.pack_into("<I", content, at + 16, 1)
        path.write_bytes(content)
        self.refused(path, "needs a decrypted copy")
        # One framework that is encrypted is no reason to judge nothing.
        folder = self.app("xhs")
        shutil.copy(path, folder / "Frameworks" / "Other.dylib")
        status, said, _ = ask(folder)
        self.assertEqual(status, 0)
        self.assertIn("left aside: Frameworks/Other.dylib: encrypted", said)

    def test_no_executable(self):
        for content, text in (
            (b"", "neither a Mach-O executable nor an .ipa"),
            (b"#!/bin/sh\n", "neither a Mach-O executable nor an .ipa"),
            (b"BC\xc0\xde" + bytes(60), "bitcode in place of machine code"),
            (b"\xde\xc0\x17\x0b" + bytes(60), "bitcode in place of machine code"),
            (b"\xce\xfa\xed\xfe" + bytes(60), "32-bit"),
            (b"dyld_v1   arm64" + bytes(60), "shared cache"),
            (b"\xca\xfe\xba\xbe\xff\xff\xff\xff" + bytes(60), "malformed fat file"),
            (b"\xcf\xfa\xed\xfe", "file"),
            (b"PK\x03\x04" + bytes(60), "zip"),
        ):
            path = self.folder / "file"
            path.write_bytes(content)
            self.refused(path, text)
        self.refused(self.folder / "nothing", "no such file")
        self.refused(self.folder, "no Info.plist")

    def test_no_app_in_the_zip(self):
        folder = self.app("wechat")
        self.refused(self.packed(folder, prefix="Data/"), "no app in its folder Payload")
        for plist, text in ((b"{", "no property list"), (plistlib.dumps({}), "names no executable"),
                            (self.info("wechat", CFBundleExecutable="Other"), "the executable Other is missing"),
                            (self.info("wechat", CFBundleExecutable="../x"), "the executable ../x is missing")):
            (folder / "Info.plist").write_bytes(plist)
            self.refused(folder, text)
            self.refused(self.packed(folder), text)

    def test_stubs(self):
        path = self.made(classes_of("wechat"), "Live.dylib", kind="-dylib")
        content = bytearray(path.read_bytes())
        struct.pack_into("<I", content, 12, 9)
        path.write_bytes(content)
        self.refused(path, "a stub to link against")

    def test_cut_off(self):
        folder = self.app("kuaishou")
        whole = self.packed(folder).read_bytes()
        executable = (folder / "Frameworks" / "Live.framework" / "Live").read_bytes()
        for content in (whole, executable):
            for part in range(1, 40):
                path = self.folder / "cut"
                path.write_bytes(content[: len(content) * part // 40])
                status, said, errors = ask(path)
                self.assertIn((status, len(errors.splitlines())), ((0, 0), (1, 0), (2, 1)), errors)
                self.assertEqual(said == "", status == 2)

    def test_classes_in_a_circle(self):
        source = """
        struct part { unsigned flags, start, size, more; void *layout; const char *name; void *rest[6]; };
        struct cls { struct cls *isa, *super; void *cache[2]; struct part *part; };
        extern struct cls one, two;
        struct part p1 = {.name = "MMLiveCommentView"}, p2 = {.name = "Two"};
        __attribute__((section("__DATA,__data"))) struct cls one = {&one, &two, {0}, &p1}, two = {&two, &one, {0}, &p2};
        __attribute__((section("__DATA,__objc_classlist"), used)) struct cls *list[] = {&one, &two};
        """
        for arguments in (["-fixup_chains"], ["-no_fixup_chains"]):
            self.refused(build(self.folder, "App", source, arguments), "descends from itself")

    def test_command_line(self):
        path = self.made(classes_of("wechat"))
        self.assertEqual(ask()[0], 2)
        self.assertEqual(ask("--nonsense", path)[0], 2)
        self.assertEqual(ask("--help")[0], 0)
        empty = build(self.folder, "Empty", HEAD)
        self.assertEqual(ask(path, empty)[0], 1)
        status, said, errors = ask("--json", path, self.folder / "nothing", empty)
        self.assertEqual(status, 2)
        self.assertEqual(said.count('"path"'), 2)
        self.assertIn("nothing: no such file", errors)


if __name__ == "__main__":
    unittest.main()
