"""Checks how the library is laid out in the file and in memory, as the phone's loader wants it."""

from macho import SECTION_ZERO_FILL

PAGE = 0x4000
LARGEST_ALIGNMENT = 14  # that of a page
READ, WRITE, EXECUTE = 1, 2, 4
READ_ONLY_AFTER_FIXUPS = 0x10

# The segments in their order, with protection and flags. The protection at first is also the greatest: no page can
# become both writable and executable.
SEGMENTS = {
    "__TEXT": (READ | EXECUTE, 0),
    "__DATA_CONST": (READ | WRITE, READ_ONLY_AFTER_FIXUPS),
    "__DATA": (READ | WRITE, 0),
    "__LINKEDIT": (READ, 0),
}


def complaints(library):
    """What is wrong with segments and sections, a line each."""
    return [*_segments(library), *_sections(library)]


def _protection(bits):
    return "".join(letter if bits & bit else "-" for letter, bit in (("r", READ), ("w", WRITE), ("x", EXECUTE)))


def _segments(library):
    names = [segment.name for segment in library.segments]
    if names != list(SEGMENTS):
        yield f"segments {' '.join(names)} instead of {' '.join(SEGMENTS)}"
        return
    address = offset = 0
    for segment in library.segments:
        protection, flags = SEGMENTS[segment.name]
        found = (segment.protection, segment.greatest_protection)
        if found != (protection, protection):
            rights = " at most ".join(map(_protection, found))
            yield f"segment {segment.name}: protection {rights} instead of {_protection(protection)}"
        if segment.flags != flags:
            yield f"segment {segment.name}: flags {segment.flags:#x} instead of {flags:#x}"
        # The file ends where its last byte stands, everything else at a whole page.
        last = segment is library.segments[-1]
        if segment.address % PAGE or segment.offset % PAGE or (segment.size % PAGE and not last):
            yield f"segment {segment.name}: {segment.address:#x}, {segment.offset:#x} not at pages of {PAGE}"
        if segment.address < address or segment.offset != offset or segment.size > segment.reach:
            yield f"segment {segment.name}: {segment.address:#x}, {segment.offset:#x} does not follow what is before it"
        address, offset = segment.address + segment.reach, segment.offset + segment.size
    if offset != len(library.data):
        yield f"segments end at {offset} in the file of {len(library.data)} bytes"


def _sections(library):
    segments = {segment.name: segment for segment in library.segments}
    free = {"__TEXT": 32 + library.size_of_commands}  # where the next section of a segment may begin
    for section in library.sections:
        name = f"section {section.segment},{section.name}"
        segment = segments.get(section.segment)
        if not segment:
            yield f"{name}: in no segment"
            continue
        begin = section.address - segment.address
        end = begin + section.size
        filled = section.type == SECTION_ZERO_FILL
        if begin < free.get(section.segment, 0) or end > (segment.reach if filled else segment.size):
            yield f"{name}: {begin:#x} to {end:#x} overlaps another or leaves its segment"
        if section.alignment > LARGEST_ALIGNMENT or section.address % (1 << section.alignment):
            yield f"{name}: {section.address:#x} is not aligned to 2^{section.alignment}"
        if section.offset != (0 if filled else segment.offset + begin):
            yield f"{name}: at {section.offset:#x} in the file, at {begin:#x} of its segment"
        free[section.segment] = end
