"""What the checks of the phone build share: where it lies, and how to run a tool."""

import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PACKAGES = ROOT / "out" / "packages"
LIBRARY = PACKAGES / "Corvel.dylib"
DEBUG_INFORMATION = PACKAGES / "Corvel.dylib.dSYM"
STUBS = ROOT / "ios" / "stubs"
VERSION = re.search(r"^project\(Corvel VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text(), re.M)[1]

# Architecture of each package to the directory on the phone that it installs into.
DIRECTORIES = {
    "iphoneos-arm": "/Library/MobileSubstrate/DynamicLibraries",
    "iphoneos-arm64": "/var/jb/Library/MobileSubstrate/DynamicLibraries",
}
INSTALL_NAME = DIRECTORIES["iphoneos-arm"] + "/Corvel.dylib"

sys.path.insert(0, str(ROOT / "ios" / "verify"))


def package(architecture):
    return PACKAGES / f"corvel_{VERSION}_{architecture}.deb"


def output(*command):
    """What the command prints; the test fails when it does."""
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout
