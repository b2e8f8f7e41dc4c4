"""Holds the phone's library against the rules that it ships by.

usage: library.py LIBRARY INSTALL_NAME

Prints size, initialisers and imports, then a line for each breach; exit status 1 if any.
"""

import sys
from pathlib import Path

import layout
import macho
import pointers
import signature
import stubs

HERE = Path(__file__).resolve().parent.parent
SIZE_LIMIT = 200 * 1024
MINIMUM_IOS = "15.0"

# All that may come from the C++ library: unwinding through our frames, and the end when that is not allowed.
CXX_ALLOWED = {"___gxx_personality_v0", "___cxa_begin_catch", "__ZSt9terminatev"}

# Functions with a variable argument list in the libraries that we link. Their arguments travel differently on the
# phone and on the desktop, so neither may call them.
_FORMATTING = {
    width + stem + locale
    for stem, widths in (("printf", "f s sn as d w fw sw"), ("scanf", "f s w fw sw"))
    for width in ("", *widths.split())
    for locale in ("", "_l")
}
_SYSTEM = set(
    "open openat openx_np fcntl ioctl syscall semctl sem_open shm_open execl execle execlp err errx errc warn warnx "
    "warnc syslog setproctitle strfmon strfmon_l asl_log dispatch_debug __sprintf_chk __snprintf_chk".split()
)
_FRAMEWORKS = {"NSLog", "CFStringCreateWithFormat", "CFStringAppendFormat"}
VARIADIC = {"_" + name for name in _FORMATTING | _SYSTEM | _FRAMEWORKS}
# The same for methods.
VARIADIC_METHODS = set(
    "stringWithFormat: localizedStringWithFormat: stringByAppendingFormat: appendFormat: initWithFormat: "
    "initWithFormat:locale: initWithFormat:options:locale: localizedAttributedStringWithFormat: "
    "localizedAttributedStringWithFormat:options: appendLocalizedFormat: arrayWithObjects: setWithObjects: "
    "orderedSetWithObjects: initWithObjects: dictionaryWithObjectsAndKeys: initWithObjectsAndKeys: "
    "predicateWithFormat: expressionWithFormat: raise:format: encodeValuesOfObjCTypes: decodeValuesOfObjCTypes: "
    "handleFailureInMethod:object:file:lineNumber:description: "
    "handleFailureInFunction:file:lineNumber:description: appearanceWhenContainedIn: "
    "appearanceForTraitCollection:whenContainedIn: "
    "initWithTitle:message:delegate:cancelButtonTitle:otherButtonTitles: "
    "initWithTitle:delegate:cancelButtonTitle:destructiveButtonTitle:otherButtonTitles:".split()
)


def _kind(library):
    found = (library.cpu, library.cpu_subtype, library.filetype)
    if found != (macho.CPU_ARM64, 0, macho.FILETYPE_DYLIB):
        yield f"not an arm64 library: processor {library.cpu:#x}.{library.cpu_subtype}, file type {library.filetype}"
    if library.platform != macho.PLATFORM_IOS or library.minimum != MINIMUM_IOS:
        yield f"platform {library.platform}, minimum {library.minimum} instead of iOS (2), {MINIMUM_IOS}"


def _exports(library):
    expected = set((HERE / "exports.txt").read_text().split())
    yield from (f"export missing: {name}" for name in sorted(expected - library.exports.keys()))
    yield from (f"export too many: {name}" for name in sorted(library.exports.keys() - expected))
    disputed = library.defined ^ library.exports.keys()
    yield from (f"export only in one of trie and symbol table: {name}" for name in sorted(disputed))


def _imports(library, stub_directory):
    stubbed = {
        macho.Import(owner, symbol)
        for owner, symbols in stubs.read_stubs(stub_directory).items()
        for symbol in symbols
    }
    imported = set(library.imports)
    for entry in sorted(imported - stubbed):
        yield f"import in no stub: {entry.symbol} from {entry.library}" + (" (weak)" if entry.weak else "")
    for entry in sorted(stubbed - imported):
        yield f"stub never imported: {entry.symbol} of {entry.library}"
    idle = set(library.dependencies) - {entry.library for entry in imported}
    yield from (f"linked for nothing: {name}" for name in sorted(idle))
    disputed = library.undefined ^ imported
    yield from (f"import only in one of fixups and symbol table: {entry.symbol}" for entry in sorted(disputed))
    for entry in sorted(imported):
        if entry.symbol in VARIADIC:
            yield f"variadic function imported: {entry.symbol}"
        of_cxx = entry.library.startswith("/usr/lib/libc++") or entry.symbol.startswith(("__Z", "___cxa_"))
        if of_cxx and entry.symbol not in CXX_ALLOWED:
            yield f"C++ library imported: {entry.symbol}"


def _load(library):
    if len(library.initialisers) != 1:
        places = ", ".join(f"{at:#x}" for at in library.initialisers)
        yield f"{len(library.initialisers)} initialisers instead of one: {places}"
    for name in ("__objc_nlclslist", "__objc_nlcatlist", "__thread_init", "__mod_term_func"):
        if library.section(name):
            yield f"code that runs at load or exit: section {name}"
    # Without it the runtime does not look at the library, and the selectors stay bare names.
    if not library.section("__objc_imageinfo"):
        yield "section __objc_imageinfo missing"
    astray = library.selectors.count(None)
    if astray:
        yield f"selector references: {astray} of {len(library.selectors)} point at no method name"
    for name in sorted(VARIADIC_METHODS.intersection(library.method_names.values())):
        yield f"variadic method named: {name}"


def complaints(library, install_name, stub_directory=HERE / "stubs"):
    """Every breach of a rule, a line each, with the symbol or value that offends."""
    found = [*_kind(library), *_exports(library), *_imports(library, stub_directory), *_load(library)]
    if library.install_name != install_name:
        found.append(f"install name {library.install_name} instead of {install_name}")
    if len(library.data) > SIZE_LIMIT:
        found.append(f"size {len(library.data)} bytes is over {SIZE_LIMIT}")
    return found + layout.complaints(library) + pointers.complaints(library) + signature.complaints(library)


def main(path, install_name):
    try:
        library = macho.Library(Path(path).read_bytes())
    except macho.Malformed as error:
        sys.exit(f"{path}: {error}")
    size = len(library.data)
    print(f"{Path(path).name}: {size} bytes ({size / 1024:.0f} KiB of at most {SIZE_LIMIT // 1024})")
    print("initialisers: " + ", ".join(f"{at:#x}" for at in library.initialisers))
    print(f"imports: {len(library.imports)}")
    for owner in library.dependencies:
        names = sorted(entry.symbol for entry in library.imports if entry.library == owner)
        print(f"  {owner} ({len(names)}): {' '.join(names)}")
    found = complaints(library, install_name)
    for line in found:
        print(f"{path}: {line}", file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
