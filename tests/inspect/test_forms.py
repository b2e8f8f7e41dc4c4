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
# A class as the compiler lays it out.
PARTS = """
struct part { unsigned flags, start, size, more; void *layout; const char *name; void *rest[6]; };
struct cls { struct cls *isa, *super; void *cache[2]; struct part *part; };
"""


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
        """Whatever holds an app's classes, the same is said of them."""
        for host in HOSTS:
            plain = self.answer(self.made(classes_of(host)))[1]["hosts"]
            folder = self.app(host)
            for path in (folder, self.packed(folder)):
                status, entry = self.answer(path)
                self.assertEqual((status, entry["host"], entry["works"]), (0, HOSTS[host], True))
                self.assertEqual(entry["hosts"], plain)
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

    def test_what_comes_late_is_passed_over(self):
        """Of two classes of one name the one that is loaded first counts; a method that comes late is not hooked."""
        classes = classes_of("kuaishou")
        folder = self.folder / "App.app"
        self.made(classes.part(["KSLiveCommentService"]), "App.app/Frameworks/A.dylib", kind="-dylib")
        early = self.made(classes, "App.app/Frameworks/B.dylib", kind="-dylib")
        build(self.folder, "App.app/Main", HEAD, libraries=[early])
        (folder / "Info.plist").write_bytes(self.info("kuaishou"))
        self.assertEqual({hook["verdict"] for hook in self.answer(folder)[1]["hosts"][2]["hooks"]}, {"present"})
        bar = "KSSLiveCommentBarService"
        late = classes.part([bar])
        late.methods[bar] = {"bindTarget:": classes.methods[bar].pop("bindTarget:")}
        more = late.source([bar]).replace(f"@implementation {bar}\n@end\n", "")
        self.made(classes, "App.app/Main")
        build(self.folder, "App.app/Frameworks/A.dylib", more, kind="-dylib")
        hook = next(hook for hook in self.answer(folder)[1]["hosts"][2]["hooks"] if hook["method"] == "bindTarget:")
        self.assertEqual((hook["verdict"], hook["note"]),
                         ("missing", "its library Frameworks/A.dylib is not loaded with the app"))

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

    def universal(self, name, *parts):
        path = self.folder / name
        subprocess.run(["llvm-lipo-19", "-create", *parts, "-output", path], check=True)
        return path

    def test_universal(self):
        source = classes_of("wechat").source()
        phone = build(self.folder, "phone", source)
        plain = self.answer(phone)[1]["hosts"]
        desk = build(self.folder, "desk", source, target="x86_64-apple-ios15.0-simulator")
        old = self.folder / "old"
        subprocess.run(["clang-19", "-target", "armv7-apple-ios10", "-x", "c", "-c", "/dev/null", "-o", old], check=True)
        for parts in ((phone, desk), (old, phone), (old, desk, phone)):
            status, entry = self.answer(self.universal("several", *parts))
            self.assertEqual((status, entry["hosts"]), (0, plain))
        self.refused(self.universal("only", desk), "no part for 64-bit ARM, only x86_64")
        self.refused(self.universal("neither", desk, old), "no part for 64-bit ARM, only x86_64, armv7")
        self.refused(desk, "for x86_64, not for 64-bit ARM")
        self.refused(old, "for a 32-bit")

    def test_pointer_authentication(self):
        """Beside plain code, code for arm64e is passed over, although its part may come first; alone it is refused."""
        classes = classes_of("wechat")
        phone = self.made(classes)
        content = bytearray(build(self.folder, "signed", HEAD).read_bytes())
        struct.pack_into("<I", content, 8, 0x80000002)
        signed = self.folder / "signed"
        signed.write_bytes(content)
        self.refused(signed, "arm64e")
        self.refused(self.universal("only", signed), "arm64e")
        for parts in ((phone, signed), (signed, phone)):
            status, entry = self.answer(self.universal("both", *parts))
            self.assertEqual((status, entry["hosts"]), (0, self.answer(phone)[1]["hosts"]))

    def test_a_key_by_its_variable(self):
        classes = classes_of("xhs", ["without method XYCommentBar setText:"])
        for variables, verdict in (("", "missing"), ("id _text;", "present"), ("id text2;", "missing"),
                                   ("double text;", "types"), ("Block _isText;", "types")):
            classes.variables["XYCommentBar"] = variables
            bar = self.host(self.made(classes), "xhs")["paths"][1]
            self.assertEqual((bar["steps"][0]["verdict"], bar["works"]), (verdict, verdict == "present"), variables)

    def test_a_delegate_by_its_variable(self):
        """The decorate view comes as its bar's delegate where no other hook brings it."""
        plan = ["types XYLivePlayDecorateView didMoveToSuperview d@:", "without method XYCommentBar delegate"]
        classes = classes_of("xhs", plan)
        for variables, held in (("", False), ("id _delegate;", True), ("long delegate;", False)):
            classes.variables["XYCommentBar"] = variables
            self.assertEqual(self.host(self.made(classes), "xhs")["paths"][0]["held"], held, variables)

    def test_other_types_lose_comments(self):
        """A method that is called with what it does not take ends the send; the ways behind it are not tried."""
        for host, method, types in (
            ("xhs", "XYLivePlayDecorateView sendFasterChatMsg:", "v@:q"),
            ("kuaishou", "KSSLiveCommentBarService comment:", "v@:q"),
            ("wechat", "MMLiveCommentView didCommitText:", "B@:q"),
        ):
            found = self.host(self.made(classes_of(host, [f"types {method} {types}"])), host)
            self.assertEqual((found["works"], found["paths"][0]["loses"]), (False, True), method)

    def test_a_result_that_nobody_uses(self):
        for types, works in (("v@:@", True), ("@@:@", True), ("q@:@", True), ("{CGRect=dddd}@:@", False)):
            found = self.host(self.made(classes_of("wechat", [f"types MMLiveCommentView didCommitText: {types}"])), "wechat")
            self.assertEqual(found["works"], works, types)
        classes = classes_of("xhs")
        for types, works in (("#@:q@q@", False), ("v@:q@q@", False), ("@@:i@i@", True)):
            classes.methods["XYLiveIMMessage"]["initWithType:groupID:priority:dict:"] = types
            self.assertEqual(self.host(self.made(classes), "xhs")["paths"][2]["works"], works, types)

    def test_classes_of_swift(self):
        source = classes_of("wechat").source().replace(
            "@interface MMLiveCommentView", '__attribute__((objc_runtime_name("_TtC4Live17MMLiveCommentView")))\n'
            "@interface MMLiveCommentView")
        status, said, _ = ask(build(self.folder, "App", source))
        self.assertEqual(status, 1)
        self.assertIn("only a class of Swift, _TtC4Live17MMLiveCommentView", said)
        # One that has a name for Objective-C too is a class like others; its description is marked.
        found = self.host(build(self.folder, "App", f"""
        {PARTS}
        extern struct cls one;
        struct part p1 = {{.name = "MMLiveCommentView"}};
        __attribute__((section("__DATA,__data"))) struct cls one = {{&one, 0, {{0}}, (struct part *)((char *)&p1 + 2)}};
        __attribute__((section("__DATA,__objc_classlist"), used)) struct cls *list[] = {{&one}};
        """), "wechat")
        self.assertEqual({hook["note"] for hook in found["hooks"]}, {"no such method"})

    def test_ancestors_of_the_system(self):
        """Of one that is not known, no more than what every object has."""
        classes = classes_of("douyin")
        fragment = "HTSLiveCommentFragment"
        classes.supers[fragment] = "UIInputViewController"
        for selector in ("dealloc", "commentBegan"):
            del classes.methods[fragment][selector]
        hooks = {hook["method"]: hook for hook in self.host(self.made(classes), "douyin")["hooks"]
                 if hook["class"] == fragment}
        self.assertEqual((hooks["dealloc"]["verdict"], hooks["dealloc"]["from"]), ("inherited", "NSObject"))
        self.assertEqual(hooks["commentBegan"]["note"],
                         "no such method in the app; what its ancestor UIInputViewController has is not known")

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
        with path.open("wb") as file:
            file.truncate(1 << 33)
        self.refused(path, "larger than any app")
        self.refused("/dev/null", "neither a file nor a folder")
        self.refused(self.folder / "nothing", "no such file")
        self.refused(self.folder, "no Info.plist")

    def test_names_that_steer_a_terminal(self):
        """Names out of a file stand in one line, as they are when they are only foreign."""
        folder = self.app("wechat")
        (folder / "Info.plist").write_bytes(plistlib.dumps({"CFBundleExecutable": "a\nb\x1b[2J\u202e\u2028直播"},
                                                           fmt=plistlib.FMT_BINARY))
        self.refused(folder, "the executable a\\x0Ab\\x1B[2J\\xE2\\x80\\xAE\\xE2\\x80\\xA8直播 is missing")
        (folder / "Info.plist").write_bytes(self.info("wechat"))
        foreign = folder.rename(self.folder / "微信 8.0.app")
        self.assertEqual(self.answer(foreign)[1]["path"], str(foreign))
        self.assertIn("微信 8.0.app  com.tencent.xin", ask(foreign)[1].splitlines()[0])

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

    def test_bitcode(self):
        """Beside machine code it does no harm; in its place there is nothing to look into."""
        part = self.folder / "bitcode"
        subprocess.run(["clang-19", "-target", "arm64-apple-ios15.0", "-emit-llvm", "-x", "c", "-c", "/dev/null", "-o", part],
                       check=True)
        self.refused(part, "bitcode in place of machine code")
        embedded = ["-sectcreate", "__LLVM", "__bundle", part]
        self.assertEqual(self.answer(self.made(classes_of("wechat"), arguments=embedded))[0], 0)
        stub = build(self.folder, "App.app/Frameworks/Stub.dylib", "int nothing;", embedded, kind="-dylib")
        self.refused(stub, "bitcode in place of machine code")
        folder = self.app("wechat")
        status, entry = self.answer(folder)
        self.assertEqual(status, 0)
        self.assertEqual(entry["leftAside"], ["Frameworks/Stub.dylib: bitcode in place of machine code"])

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
        source = PARTS + """
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
