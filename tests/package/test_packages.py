"""The packages install what they should, where they should, as whom they should, and run nothing."""

import io
import plistlib
import struct
import subprocess
import tarfile
import unittest
from email.parser import Parser

import build
import library
import macho

BUNDLES = ["com.ss.iphone.ugc.Aweme", "com.xingin.discover", "com.jiangjia.gif", "com.tencent.xin"]


def unpacked(architecture, part):
    """The members of one part of a package, by name."""
    data = subprocess.run(["dpkg-deb", part, build.package(architecture)], check=True, capture_output=True).stdout
    with tarfile.open(fileobj=io.BytesIO(data)) as archive:
        members = {member.name.removeprefix("."): member for member in archive}
        contents = {name: archive.extractfile(member).read() for name, member in members.items() if member.isfile()}
    return members, contents


def without_name_and_signature(data):
    """The library's bytes but for what its install name decides: header, load commands, page hashes."""
    signature, _ = macho.Library(data).range_of(macho.LC_CODE_SIGNATURE)
    (commands,) = struct.unpack_from("<I", data, 20)
    return data[32 + commands : signature].lstrip(b"\0")


class PackageTest(unittest.TestCase):
    def test_nothing_else_is_built(self):
        names = {"Corvel.dylib", "Corvel.dylib.dSYM"} | {build.package(name).name for name in build.DIRECTORIES}
        self.assertEqual({path.name for path in build.PACKAGES.iterdir()}, names)

    def test_installs_the_library_and_its_filter(self):
        for architecture, directory in build.DIRECTORIES.items():
            with self.subTest(architecture):
                members, _ = unpacked(architecture, "--fsys-tarfile")
                steps = directory.split("/")
                parents = {"/".join(steps[:count]) for count in range(1, len(steps) + 1)}
                self.assertEqual(set(members), parents | {f"{directory}/Corvel.dylib", f"{directory}/Corvel.plist"})

    def test_belongs_to_root(self):
        for architecture in build.DIRECTORIES:
            with self.subTest(architecture):
                for name, member in unpacked(architecture, "--fsys-tarfile")[0].items():
                    owner = (member.uid, member.gid, member.uname, member.gname)
                    self.assertEqual(owner, (0, 0, "root", "root"), name)
                    data_file = name.endswith(".plist")
                    self.assertEqual(oct(member.mode), oct(0o644 if data_file else 0o755), name)

    def test_runs_nothing_at_installation(self):
        for architecture in build.DIRECTORIES:
            with self.subTest(architecture):
                _, contents = unpacked(architecture, "--ctrl-tarfile")
                self.assertEqual(set(contents), {"/control"})

    def test_control_file(self):
        for architecture in build.DIRECTORIES:
            with self.subTest(architecture):
                control = Parser().parsestr(unpacked(architecture, "--ctrl-tarfile")[1]["/control"].decode())
                self.assertEqual(control["Name"], "Corvel")
                self.assertEqual(control["Version"], build.VERSION)
                self.assertEqual(control["Architecture"], architecture)
                self.assertEqual(control["Section"], "Tweaks")
                # What is older lacks classes and methods that the library uses: the list of them is selectors.txt.
                self.assertEqual(control["Depends"], "firmware (>= 15.0), mobilesubstrate | ellekit")
                self.assertRegex(control["Description"], r"[A-Za-z]+ [a-z]+")
                self.assertRegex(control["Description"], "[\u4e00-\u9fff]{4}")

    def test_filter_names_the_four_apps(self):
        for architecture, directory in build.DIRECTORIES.items():
            with self.subTest(architecture):
                _, contents = unpacked(architecture, "--fsys-tarfile")
                plist = plistlib.loads(contents[f"{directory}/Corvel.plist"])
                self.assertEqual(plist, {"Filter": {"Bundles": BUNDLES}})

    def test_library_keeps_every_rule_under_its_path(self):
        for architecture, directory in build.DIRECTORIES.items():
            with self.subTest(architecture):
                data = unpacked(architecture, "--fsys-tarfile")[1][f"{directory}/Corvel.dylib"]
                self.assertEqual(library.complaints(macho.Library(data), f"{directory}/Corvel.dylib"), [])

    def test_libraries_differ_in_the_install_name_only(self):
        built = without_name_and_signature(build.LIBRARY.read_bytes())
        for architecture, directory in build.DIRECTORIES.items():
            with self.subTest(architecture):
                data = unpacked(architecture, "--fsys-tarfile")[1][f"{directory}/Corvel.dylib"]
                self.assertEqual(without_name_and_signature(data), built)
        data = unpacked("iphoneos-arm", "--fsys-tarfile")[1][build.INSTALL_NAME]
        self.assertEqual(data, build.LIBRARY.read_bytes())


if __name__ == "__main__":
    unittest.main()
