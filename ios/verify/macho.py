"""Reads a 64-bit Mach-O library: load commands, sections, exports, imports, fixups, initialisers, method names."""

import struct
from dataclasses import dataclass

MAGIC_64 = 0xFEEDFACF
CPU_ARM64 = 0x0100000C
FILETYPE_DYLIB = 6
PLATFORM_IOS = 2

LC_SYMTAB = 0x2
LC_DYSYMTAB = 0xB
LC_LOAD_DYLIB = 0xC
LC_ID_DYLIB = 0xD
LC_SEGMENT_64 = 0x19
LC_UUID = 0x1B
LC_CODE_SIGNATURE = 0x1D
LC_BUILD_VERSION = 0x32
LC_DYLD_EXPORTS_TRIE = 0x80000033
LC_DYLD_CHAINED_FIXUPS = 0x80000034

SECTION_ZERO_FILL = 0x1
SECTION_POINTER_SLOTS = 0x6  # each slot receives the address of one symbol at load
SECTION_STUBS = 0x8
SECTION_MOD_INIT_POINTERS = 0x9
SECTION_MOD_TERM_POINTERS = 0xA
SECTION_INIT_OFFSETS = 0x16

CHAINED_IMPORT = 1
# DYLD_CHAINED_PTR_64 and its kin by offset from the base, which is zero here: targets and steps read the same.
CHAINED_POINTERS = (2, 6)
CHAIN_STEP = 4
NO_CHAIN_IN_PAGE = 0xFFFF
TARGET_MASK = 0xFFFFFFFFF  # of a rebased pointer in a chain of fixups


class Malformed(Exception):
    """The file is not the kind of Mach-O that this reader takes; the text says where."""


@dataclass
class Section:
    segment: str
    name: str
    address: int
    size: int
    offset: int
    alignment: int  # as an exponent of two
    type: int
    first_indirect: int  # where its entries begin in the table of indirect symbols; of stubs and pointer slots
    entry_size: int  # of stubs


@dataclass
class Segment:
    name: str
    address: int
    reach: int  # of its addresses; `size` bytes of them come from the file
    offset: int
    size: int
    greatest_protection: int
    protection: int
    flags: int


@dataclass(frozen=True, order=True)
class Import:
    library: str
    symbol: str
    weak: bool = False


@dataclass(frozen=True)
class Bound:
    """What the loader writes into a place that it binds: the import's address and this many bytes."""

    entry: Import
    addend: int


def _version(packed):
    return f"{packed >> 16}.{packed >> 8 & 0xFF}" + (f".{packed & 0xFF}" if packed & 0xFF else "")


class Library:
    """One library, read whole at construction. Raises Malformed."""

    def __init__(self, data):
        self.data = data
        self.segments, self.sections, self.dependencies = [], [], []
        self.commands = {}  # where the last of each kind stands
        self.install_name = self.platform = self.minimum = self.uuid = None
        self.size_of_commands = 0
        self._ranges, self._symbol_table, self._indirect_table = {}, (0, 0, 0, 0), (0, 0)
        try:
            self._read_commands()
            self.exports = self._read_exports()
            self.imports = self._read_imports()
            self.fixups = self._read_fixups()
            self.defined, self.undefined = self._read_symbol_table()
            self.indirect_symbols = self._read_indirect_symbols()
            self.initialisers = self._read_initialisers()
            self.method_names = self._read_method_names()
            self.selectors = self._read_selectors()
        except (struct.error, IndexError, OverflowError, ValueError) as error:
            raise Malformed(f"malformed Mach-O: {error}") from error

    def _unpack(self, form, offset):
        return struct.unpack_from("<" + form, self.data, offset)

    def _text(self, offset, end=None):
        stop = self.data.index(b"\0", offset, end)
        return self.data[offset:stop].decode()

    def _read_commands(self):
        magic, self.cpu, subtype, self.filetype, count, self.size_of_commands, self.flags, _ = self._unpack("8I", 0)
        self.cpu_subtype = subtype & 0xFFFFFF
        if magic != MAGIC_64:
            raise Malformed(f"not a 64-bit Mach-O: magic {magic:#x}")
        at = 32
        for _ in range(count):
            command, size = self._unpack("2I", at)
            if size < 8:
                raise Malformed(f"load command at {at:#x}: {size} bytes")
            self.commands[command] = at
            if command == LC_SEGMENT_64:
                self._read_segment(at)
            elif command in (LC_ID_DYLIB, LC_LOAD_DYLIB):
                name = self._text(at + self._unpack("I", at + 8)[0], at + size)
                if command == LC_ID_DYLIB:
                    self.install_name = name
                else:
                    self.dependencies.append(name)
            elif command == LC_BUILD_VERSION:
                self.platform, minimum = self._unpack("2I", at + 8)
                self.minimum = _version(minimum)
            elif command == LC_UUID:
                self.uuid = self.data[at + 8 : at + 24].hex()
            elif command in (LC_DYLD_EXPORTS_TRIE, LC_DYLD_CHAINED_FIXUPS, LC_CODE_SIGNATURE):
                self._ranges[command] = self._unpack("2I", at + 8)
            elif command == LC_SYMTAB:
                self._symbol_table = self._unpack("4I", at + 8)
            elif command == LC_DYSYMTAB:
                self._indirect_table = self._unpack("2I", at + 56)
            at += size

    def _read_segment(self, at):
        name, address, reach, offset, size, greatest, initial, count, flags = self._unpack("16s4Q4I", at + 8)
        name = name.rstrip(b"\0").decode()
        self.segments.append(Segment(name, address, reach, offset, size, greatest, initial, flags))
        for i in range(count):
            section, segment, *numbers = self._unpack("16s16s2Q7I", at + 72 + 80 * i)
            address, size, offset, alignment, _, _, flags, first_indirect, entry_size = numbers
            names = (segment.rstrip(b"\0").decode(), section.rstrip(b"\0").decode())
            if flags & 0xFF != SECTION_ZERO_FILL and offset + size > len(self.data):
                raise Malformed(f"section at {offset:#x}: beyond the end of the file")
            placed = (address, size, offset, alignment)
            self.sections.append(Section(*names, *placed, flags & 0xFF, first_indirect, entry_size))

    def range_of(self, command):
        """Offset and size in the file of what the command points at; (0, 0) without it."""
        return self._ranges.get(command, (0, 0))

    def section(self, name):
        """The first section of that name; None when the library has none."""
        return next((section for section in self.sections if section.name == name), None)

    def section_at(self, address):
        """The section that the address lies in; None when it lies in none."""
        return next((s for s in self.sections if s.address <= address < s.address + s.size), None)

    def content(self, section):
        return self.data[section.offset : section.offset + section.size]

    def _number(self, at):
        """An unsigned LEB128 number and the place after it."""
        value = shift = 0
        while True:
            byte = self.data[at]
            value |= (byte & 0x7F) << shift
            shift, at = shift + 7, at + 1
            if byte < 0x80:
                return value, at

    def _read_exports(self):
        """Name to address, from the exports trie."""
        start, size = self.range_of(LC_DYLD_EXPORTS_TRIE)
        exports, pending = {}, [(start, "")] if size else []
        visited = set()
        while pending:
            at, prefix = pending.pop()
            if at in visited or not start <= at < start + size:
                raise Malformed(f"exports trie: node at {at - start:#x} is visited twice or lies outside")
            visited.add(at)
            terminal, at = self._number(at)
            if terminal:
                flags, after = self._number(at)
                exports[prefix] = 0 if flags else self._number(after)[0]
            at += terminal
            children, at = self.data[at], at + 1
            for _ in range(children):
                edge = self._text(at)
                at += len(edge.encode()) + 1
                node, at = self._number(at)
                pending.append((start + node, prefix + edge))
        return exports

    def _library_of(self, ordinal):
        return self.dependencies[ordinal - 1] if 1 <= ordinal <= len(self.dependencies) else f"ordinal {ordinal}"

    def _read_imports(self):
        """The imports that the loader binds, from the chained fixups."""
        start, size = self.range_of(LC_DYLD_CHAINED_FIXUPS)
        if not size:
            return []
        _, _, imports, symbols, count, form, packed = self._unpack("7I", start)
        if form != CHAINED_IMPORT or packed:
            raise Malformed(f"chained fixups: imports of format {form}, compression {packed}")
        found = []
        for i in range(count):
            (entry,) = self._unpack("I", start + imports + 4 * i)
            name = self._text(start + symbols + (entry >> 9))
            found.append(Import(self._library_of(entry & 0xFF), name, bool(entry >> 8 & 1)))
        return found

    def _read_fixups(self):
        """Address to what the loader writes there: a Bound import, or an address of the library itself."""
        start, size = self.range_of(LC_DYLD_CHAINED_FIXUPS)
        if not size:
            return {}
        starts = start + self._unpack("2I", start)[1]
        (count,) = self._unpack("I", starts)
        if count > len(self.segments):
            raise Malformed(f"chained fixups: {count} segments of {len(self.segments)}")
        fixups = {}
        for segment, place in zip(self.segments, self._unpack(f"{count}I", starts + 4)):
            if not place:
                continue
            _, page_size, form, offset, _, pages = self._unpack("IHHQIH", starts + place)
            if form not in CHAINED_POINTERS or offset != segment.address:
                raise Malformed(f"chained fixups: pointers of format {form} at {offset:#x} for {segment.name}")
            for page, first in enumerate(self._unpack(f"{pages}H", starts + place + 22)):
                if first != NO_CHAIN_IN_PAGE:
                    fixups.update(self._chain(segment, page * page_size + first))
        return fixups

    def _chain(self, segment, place):
        """The fixups of one page, from the place of the first in the segment."""
        while True:
            if place + 8 > segment.size:
                raise Malformed(f"chained fixups: {place:#x} lies outside {segment.name}")
            (pointer,) = self._unpack("Q", segment.offset + place)
            bound = Bound(self.imports[pointer & 0xFFFFFF], pointer >> 24 & 0xFF) if pointer >> 63 else None
            yield segment.address + place, bound or pointer & TARGET_MASK
            step = pointer >> 51 & 0xFFF
            if not step:
                return
            place += CHAIN_STEP * step

    def _read_symbol_table(self):
        """What the symbol table says: names of the external definitions, and imports."""
        defined, undefined = set(), set()
        for i in range(self._symbol_table[1]):
            symbol, kind = self._symbol(i)
            if kind & 0xE0 or not kind & 0x01:  # debugging entries and local symbols
                continue
            if kind & 0x0E:
                defined.add(symbol.symbol)
            else:
                undefined.add(symbol)
        return defined, undefined

    def _symbol(self, i):
        """An entry of the symbol table, as the import that it is if its kind says so, and its kind."""
        symbols, count, strings, _ = self._symbol_table
        if i >= count:
            raise Malformed(f"symbol table: no entry {i} among {count}")
        index, kind, _, description, _ = self._unpack("IBBHQ", symbols + 16 * i)
        name = self._text(strings + index)
        return Import(self._library_of(description >> 8), name, bool(description & 0x40)), kind

    def _read_indirect_symbols(self):
        """What the table that names the symbols of stubs and pointer slots leads to, in its order."""
        start, count = self._indirect_table
        return [self._symbol(i)[0] for i in self._unpack(f"{count}I", start)]

    def _read_initialisers(self):
        """Addresses of the functions that the loader runs, however they are listed."""
        found = []
        for section in self.sections:
            if section.type == SECTION_INIT_OFFSETS:
                found += struct.unpack(f"<{section.size // 4}I", self.content(section))
            elif section.type in (SECTION_MOD_INIT_POINTERS, SECTION_MOD_TERM_POINTERS):
                pointers = struct.unpack(f"<{section.size // 8}Q", self.content(section))
                found += [pointer & TARGET_MASK for pointer in pointers]
        return found

    def _read_method_names(self):
        """Address to name, of all that the library calls methods by."""
        section = self.section("__objc_methname")
        names, at = {}, 0
        for name in self.content(section).split(b"\0")[:-1] if section else ():
            names[section.address + at] = name.decode()
            at += len(name) + 1
        return names

    def _read_selectors(self):
        """The names that the selector references point at; None for a reference that leads to no method name."""
        references = self.section("__objc_selrefs")
        if not references:
            return []
        places = range(references.address, references.address + references.size, 8)
        return [self.method_names.get(self.fixups.get(place)) for place in places]
