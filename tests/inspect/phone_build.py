"""Executables for the phone, made from what the simulator says of an app's classes."""

import re
import subprocess
from pathlib import Path

HEAD = """
typedef struct objc_object *id; typedef struct objc_class *Class; typedef struct objc_selector *SEL;
typedef _Bool BOOL; typedef void (^Block)(void);
__attribute__((objc_root_class)) @interface NSObject { Class isa; } @end
"""
TYPES = {"v": "void", "@": "id", "@?": "Block", "#": "Class", ":": "SEL", "B": "BOOL", "c": "signed char", "i": "int",
         "I": "unsigned", "q": "long", "Q": "unsigned long", "f": "float", "d": "double", "^v": "void *"}
TYPE = re.compile(r"@\?|\^v|\{\w+=(d+)\}|.")


def c_types(encoding):
    """The C types of a method's result, receiver, selector and arguments."""
    found = []
    for match in TYPE.finditer(encoding):
        text = match[0]
        found.append(f"struct {text[1:text.index('=')]}" if match[1] else TYPES[text])
    return found


def structures(encodings):
    """Declarations of the structures of doubles in the encodings."""
    found = {}
    for encoding in encodings:
        for name, fields in re.findall(r"\{(\w+)=(d+)\}", encoding):
            found[name] = "".join(f" double field{i};" for i in range(len(fields)))
    return "".join(f"struct {name} {{{fields} }};\n" for name, fields in found.items())


def method(selector, encoding, body):
    """A method's declaration or, with a body, its definition."""
    types = c_types(encoding)
    words = selector.split(":")
    if ":" in selector:
        name = " ".join(f"{word}:({kind})a{i}" for i, (word, kind) in enumerate(zip(words, types[3:], strict=False)))
    else:
        name = selector
    return f"- ({types[0]}){name}" + (" { for (;;) {} }\n" if body else ";\n")


class Classes:
    """Classes by name: their superclass, methods and instance variables."""

    def __init__(self, facts=()):
        self.supers = {}
        self.methods = {}
        self.variables = {}
        for fact in facts:
            words = fact.split()
            if len(words) == 2:
                self.add(*words)
            else:
                self.methods[words[0]][words[1]] = words[2]

    def add(self, name, superclass, methods=None):
        self.supers[name] = superclass
        self.methods[name] = dict(methods or {})

    def part(self, names):
        """Those of the names alone."""
        part = Classes()
        for name in names:
            part.add(name, self.supers[name], self.methods[name])
            part.variables[name] = self.variables.get(name, "")
        return part

    def source(self, categories=()):
        """Objective-C that defines the classes; methods of those in `categories` stand in a category."""
        text = HEAD + structures(t for methods in self.methods.values() for t in methods.values())
        written = {"NSObject"}

        def declare(name):
            if name in written:
                return
            superclass = self.supers.get(name, "NSObject")
            declare(superclass)
            written.add(name)
            variables = self.variables.get(name, "")
            declared = "".join(method(s, t, False) for s, t in self.methods.get(name, {}).items())
            inside = "" if name in categories else declared
            nonlocal text
            text += f"@interface {name} : {superclass} {{ {variables} }}\n{inside}@end\n"
            if name in categories:
                text += f"@interface {name} (More)\n{declared}@end\n"

        for name in sorted(self.supers):
            declare(name)
        for name in sorted(self.supers):
            defined = "".join(method(s, t, True) for s, t in self.methods[name].items())
            if name in categories:
                text += f"@implementation {name}\n@end\n@implementation {name} (More)\n{defined}@end\n"
            else:
                text += f"@implementation {name}\n{defined}@end\n"
        return text


def build(folder, name, source, arguments=(), libraries=(), target="arm64-apple-ios15.0", kind="-execute"):
    """Compiles and links the source; undefined symbols are found at load, so no system library is needed."""
    code = Path(folder) / f"{Path(name).name}.m"
    code.write_text(source + ("int main(void) { return 0; }\n" if kind == "-execute" else ""), encoding="utf-8")
    made = code.with_suffix(".o")
    subprocess.run(["clang-19", "-target", target, "-fblocks", "-Wno-everything", "-c", code, "-o", made], check=True)
    out = Path(folder) / name
    out.parent.mkdir(parents=True, exist_ok=True)
    architecture, version = ("arm64", "15.0") if target.startswith("arm64") else ("x86_64", "15.0")
    platform = "ios" if architecture == "arm64" else "ios-simulator"
    subprocess.run(
        ["ld64.lld-19", "-arch", architecture, "-platform_version", platform, version, version, kind, "-undefined",
         "dynamic_lookup", *(["-e", "_main"] if kind == "-execute" else ["-install_name", f"@rpath/{name.removeprefix('App.app/')}"]),
         *arguments, made, *libraries, "-o", out],
        check=True,
    )
    return out
