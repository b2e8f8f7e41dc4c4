"""Checks what the loader makes of pointers that the code relies on: stubs, their slots, constant strings."""

import struct

from macho import SECTION_POINTER_SLOTS, SECTION_STUBS, Bound

STUB_SIZE = 12
BRANCH = 0xD61F0200  # br x16

STRING_CLASS = "___CFConstantStringClassReference"
STRING_SIZE = 32
# Flags of a constant string to the bytes of a unit, as Core Foundation reads them from literals.
UNIT_SIZES = {0x7C8: 1, 0x7D0: 2}


def complaints(library):
    """What is wrong with stubs, pointer slots and constant strings, a line each."""
    return [*_slots(library), *_stubs(library), *_constant_strings(library)]


def _entries(library, section, size):
    """Place, and symbol by the table of indirect symbols (None beyond its end), of each entry of the section."""
    table = library.indirect_symbols[section.first_indirect :]
    for i in range(section.size // size):
        yield section.address + size * i, table[i] if i < len(table) else None


def _slots(library):
    """Each slot is bound to the symbol that the table names for it."""
    for section in library.sections:
        if section.type == SECTION_POINTER_SLOTS:
            for place, symbol in _entries(library, section, 8):
                bound = library.fixups.get(place)
                if symbol is None or bound != Bound(symbol, 0):
                    yield f"pointer slot {place:#x}: bound to {_name(bound)}, named {symbol and symbol.symbol}"


def _stubs(library):
    """Each stub jumps through a slot that is bound to the symbol that the table names for the stub."""
    for section in library.sections:
        if section.type != SECTION_STUBS:
            continue
        if section.entry_size != STUB_SIZE:
            yield f"stubs of {section.entry_size} bytes instead of {STUB_SIZE}"
            continue
        for place, symbol in _entries(library, section, STUB_SIZE):
            at = section.offset + place - section.address
            slot = _slot_of_stub(place, struct.unpack_from("<3I", library.data, at))
            if slot is None:
                yield f"stub {place:#x}: does not load a slot and jump there"
                continue
            bound = library.fixups.get(slot)
            if symbol is None or bound != Bound(symbol, 0):
                yield f"stub {place:#x}: jumps to {_name(bound)}, named {symbol and symbol.symbol}"


def _slot_of_stub(place, instructions):
    """Where `adrp x16, page; ldr x16, [x16, offset]; br x16` loads from; None for any other instructions."""
    page, load, branch = instructions
    if page & 0x9F00001F != 0x90000010 or load & 0xFFC003FF != 0xF9400210 or branch != BRANCH:
        return None
    pages = (page >> 5 & 0x7FFFF) << 2 | page >> 29 & 3
    signed = pages - (1 << 21 if pages >> 20 else 0)
    return (place & ~0xFFF) + (signed << 12) + (load >> 10 & 0xFFF) * 8


def _name(fixup):
    return fixup.entry.symbol if isinstance(fixup, Bound) else "nothing"


def _constant_strings(library):
    section = library.section("__cfstring")
    if not section or section.size % STRING_SIZE:
        yield f"constant strings: {section.size if section else 0} bytes are no multiple of {STRING_SIZE}"
        return
    for place in range(section.address, section.address + section.size, STRING_SIZE):
        flags, length = (
            struct.unpack_from("<Q", library.data, section.offset + place - section.address + field)[0]
            for field in (8, 24)
        )
        reason = _wrong_string(library, library.fixups.get(place), flags, library.fixups.get(place + 16), length)
        if reason:
            yield f"constant string {place:#x}: {reason}"


def _wrong_string(library, isa, flags, characters, length):
    if not isinstance(isa, Bound) or (isa.entry.symbol, isa.addend) != (STRING_CLASS, 0):
        return f"of class {_name(isa)}"
    if flags not in UNIT_SIZES:
        return f"flags {flags:#x}"
    size = UNIT_SIZES[flags]
    section = library.section_at(characters) if isinstance(characters, int) else None
    # Neither code nor what the runtime takes for a list: the section of plain constants that nothing writes to.
    if not section or (section.segment, section.name) != ("__TEXT", "__const") or characters % size:
        return "characters outside the constants"
    if characters + size * (length + 1) > section.address + section.size:
        return f"length {length}"
    at = section.offset + characters - section.address
    units = struct.unpack_from(f"<{length + 1}{'BH'[size - 1]}", library.data, at)
    if 0 in units[:-1] or units[-1]:
        return f"length {length} does not end where its characters do"
    if size == 1 and max(units) >= 0x80:
        return "characters beyond ASCII in bytes"
    return None
