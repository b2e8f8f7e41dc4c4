"""Reads the stub libraries: the lists of symbols that the linker resolves imports against."""

from pathlib import Path


def read_stub(text):
    """The install name of a stub library and the symbols that it lists, one a line."""
    install_name, symbols = None, set()
    for line in text.splitlines():
        words = line.split()
        if words[:1] == ["install-name:"]:
            install_name = words[1].strip("'")
        elif len(words) == 2 and words[0] == "-":
            symbols.add(words[1])
    return install_name, symbols


def read_stubs(directory):
    """Install name to symbols, over all stub libraries of the directory."""
    return dict(read_stub(path.read_text()) for path in sorted(Path(directory).glob("*.tbd")))
