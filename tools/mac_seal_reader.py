"""Reads the code signature of one architecture of a Mac program. Knows nothing of how tools/mac_seal writes it."""

import hashlib
import struct
from dataclasses import dataclass

from mac_object import Damaged, text_at

SUPER_BLOB, CODE_DIRECTORY = 0xFADE0CC0, 0xFADE0C02
DIRECTORY_SLOT = 0
OLDEST_VERSION = 0x20500


@dataclass
class Directory:
    """Apple's CodeDirectory: the hashes of the code, and of what the signature vouches for beside it."""

    flags: int
    identifier: str
    form: tuple  # size and kind of a hash, platform, page size as a power of two
    limit: int  # where the signed code ends
    text: tuple  # place, size and flags of the segment with the instructions
    runtime: int  # the system whose hardened runtime is meant, packed as in a load command
    pages: list
    beside: dict  # slot -> hash
    code_hash: bytes


@dataclass
class Signature:
    blobs: dict  # slot -> the whole blob
    directory: Directory


def read_signature(data):
    try:
        blobs = dict(blobs_in(data))
        if DIRECTORY_SLOT not in blobs:
            raise Damaged("the signature lists no pages")
        return Signature(blobs, read_directory(blobs[DIRECTORY_SLOT]))
    except (struct.error, ValueError) as error:
        raise Damaged(f"the signature can't be read: {error}") from error


def blobs_in(data):
    magic, size, count = struct.unpack_from(">III", data)
    if magic != SUPER_BLOB or size > len(data):
        raise Damaged("the signature isn't one")
    for number in range(count):
        slot, begin = struct.unpack_from(">II", data, 12 + number * 8)
        length = struct.unpack_from(">I", data, begin + 4)[0]
        if begin + length > size:
            raise Damaged(f"slot {slot:#x} reaches beyond the signature")
        yield slot, data[begin:begin + length]


def read_directory(raw):
    magic, _, version, flags, first_page, identifier, slot_count, page_count, limit = struct.unpack_from(">9I", raw)
    if magic != CODE_DIRECTORY or version < OLDEST_VERSION:
        raise Damaged(f"the list of pages is of version {version:#x}, too old to name the hardened runtime")
    form = struct.unpack_from("BBBB", raw, 36)
    width = form[0]
    hashes = {number: raw[first_page + number * width:first_page + (number + 1) * width]
              for number in range(-slot_count, page_count)}
    return Directory(flags, text_at(raw, identifier), form, limit, struct.unpack_from(">QQQ", raw, 64),
                     struct.unpack_from(">I", raw, 88)[0], [hashes[page] for page in range(page_count)],
                     {-slot: hashes[slot] for slot in range(-slot_count, 0)}, hashlib.sha256(raw).digest()[:20])


def der_values(data):
    """The tag and the contents of each value that stands in data, one after the other."""
    while data:
        tag, size, start = data[0], data[1], 2
        if size > 0x7F:
            start += size - 0x80
            size = int.from_bytes(data[2:start], "big")
        yield tag, data[start:start + size]
        data = data[start + size:]


def der_entitlements(blob):
    """An application's value of version 1 and a dictionary of pairs; None when that isn't what stands there."""
    try:
        [(outer, contents)] = der_values(blob[8:])
        version, (kind, pairs) = der_values(contents)
        entries = [list(der_values(pair)) for _, pair in der_values(pairs)]
        if (outer, version, kind) != (0x70, (2, b"\1"), 0xB0):
            return None
        return {key.decode(): bool(value[0]) for (_, key), (_, value) in entries}
    except (IndexError, ValueError):
        return None
