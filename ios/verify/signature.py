"""Checks an ad-hoc code signature: one code directory with the hash of every page of the file."""

import hashlib
import struct

from macho import LC_CODE_SIGNATURE

SUPER_BLOB = 0xFADE0CC0
CODE_DIRECTORY = 0xFADE0C02
CODE_DIRECTORY_SLOT = 0
FLAG_ADHOC = 0x2
SHA256 = 2
EARLIEST_WITH_EXECUTABLE_SEGMENT = 0x20400


def complaints(library):
    """What is wrong with the signature of the library, a line each."""
    start, size = library.range_of(LC_CODE_SIGNATURE)
    if not size:
        return ["code signature: missing"]
    if start + size != len(library.data):
        return [f"code signature: ends at {start + size}, the file at {len(library.data)}"]
    try:
        return list(_super_blob(library, start, library.data[start:]))
    except (struct.error, ValueError) as error:
        return [f"code signature: unreadable: {error}"]


def _super_blob(library, start, blob):
    magic, _, count = struct.unpack_from(">3I", blob)
    if magic != SUPER_BLOB or count != 1:
        yield f"code signature: magic {magic:#x} with {count} parts instead of a super blob with one"
        return
    slot, offset = struct.unpack_from(">2I", blob, 12)
    (magic,) = struct.unpack_from(">I", blob, offset)
    if slot != CODE_DIRECTORY_SLOT or magic != CODE_DIRECTORY:
        yield f"code signature: slot {slot} holds {magic:#x} instead of a code directory"
        return
    yield from _code_directory(library, start, blob[offset:])


def _code_directory(library, start, directory):
    _, _, version, flags, hashes, identity, specials, pages, limit = struct.unpack_from(">9I", directory)
    hash_size, hash_type, _, page_shift = struct.unpack_from(">4B", directory, 36)
    name = directory[identity : directory.index(b"\0", identity)].decode()
    if not flags & FLAG_ADHOC:
        yield f"code signature: flags {flags:#x} without ad-hoc"
    if name != "Corvel.dylib":
        yield f"code signature: identifier {name}"
    if specials:
        yield f"code signature: {specials} special slots where the library has nothing to seal"
    if limit != start:
        yield f"code signature: covers {limit} bytes instead of the {start} before it"
    if (hash_type, hash_size) != (SHA256, 32) or page_shift not in (12, 14):
        yield f"code signature: hash type {hash_type} of {hash_size} bytes over pages of 2^{page_shift}"
        return
    page_size = 1 << page_shift
    if pages != -(-start // page_size):
        yield f"code signature: {pages} page hashes for {start} bytes in pages of {page_size}"
        return
    for page in range(pages):
        content = library.data[page * page_size : min((page + 1) * page_size, start)]
        stored = directory[hashes + 32 * page : hashes + 32 * (page + 1)]
        if hashlib.sha256(content).digest() != stored:
            yield f"code signature: page {page} (offset {page * page_size:#x}) does not have its hash"
    if version >= EARLIEST_WITH_EXECUTABLE_SEGMENT:
        base, size = struct.unpack_from(">2Q", directory, 64)
        if (base, size) not in ((text.offset, text.size) for text in library.segments if text.name == "__TEXT"):
            yield f"code signature: executable segment {base:#x}+{size:#x} is not __TEXT"
