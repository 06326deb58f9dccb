"""Reads what tools/mac_checks asks of a Mac program: slices, load commands, undefined symbols, code signature."""

import hashlib
import struct
from dataclasses import dataclass, field

CPU_TYPES = {0x0100000C: "arm64", 0x01000007: "x86_64"}
FAT_MAGIC, MACH_MAGIC_64 = 0xCAFEBABE, 0xFEEDFACF
LC_SYMTAB, LC_CODE_SIGNATURE, LC_BUILD_VERSION, LC_RPATH, LC_DYLD_ENVIRONMENT = 2, 0x1D, 0x32, 0x8000001C, 0x27
DYLIB_COMMANDS = {0xC, 0x80000018, 0x8000001F, 0x20}  # load, weak, re-export, lazy
SIGNATURE_MAGIC, CODE_DIRECTORY_MAGIC, ENTITLEMENTS_MAGIC = 0xFADE0CC0, 0xFADE0C02, 0xFADE7171
AD_HOC = 0x2


@dataclass
class Signature:
    identifier: str
    flags: int
    is_intact: bool  # every page has the hash that was written down


@dataclass
class Slice:
    architecture: str
    minimum: str = ""
    sdk: str = ""
    libraries: list = field(default_factory=list)
    search_paths: list = field(default_factory=list)
    undefined: dict = field(default_factory=dict)  # symbol -> library, or "" for any that happens to be loaded
    signature: Signature | None = None


class Damaged(Exception):
    """The file isn't what its own headers say."""


def text_at(data, offset):
    return data[offset:data.index(b"\0", offset)].decode()


def version(packed):
    return f"{packed >> 16}.{packed >> 8 & 255}"


def slices(data):
    try:
        if struct.unpack_from(">I", data)[0] != FAT_MAGIC:
            return [read_slice(data)]
        count = struct.unpack_from(">I", data, 4)[0]
        places = [struct.unpack_from(">5I", data, 8 + 20 * index)[2:4] for index in range(count)]
        return [read_slice(data[offset:offset + size]) for offset, size in places]
    except (struct.error, ValueError) as error:
        raise Damaged(str(error)) from error


def read_slice(data):
    magic, cpu, _, _, count, _, _, _ = struct.unpack_from("<8I", data)
    if magic != MACH_MAGIC_64:
        raise Damaged("not a Mac program")
    result, symbols, at = Slice(CPU_TYPES.get(cpu, hex(cpu))), None, 32
    for _ in range(count):
        command, size = struct.unpack_from("<2I", data, at)
        if command in DYLIB_COMMANDS:
            result.libraries.append(text_at(data, at + struct.unpack_from("<I", data, at + 8)[0]))
        elif command in (LC_RPATH, LC_DYLD_ENVIRONMENT):
            result.search_paths.append(text_at(data, at + struct.unpack_from("<I", data, at + 8)[0]))
        elif command == LC_BUILD_VERSION:
            _, minimum, sdk = struct.unpack_from("<3I", data, at + 8)
            result.minimum, result.sdk = version(minimum), version(sdk)
        elif command == LC_SYMTAB:
            symbols = struct.unpack_from("<4I", data, at + 8)
        elif command == LC_CODE_SIGNATURE:
            result.signature = read_signature(data, struct.unpack_from("<I", data, at + 8)[0])
        at += size
    if symbols:
        result.undefined = read_undefined(data, symbols, result.libraries)
    return result


def read_undefined(data, table, libraries):
    offset, count, strings, _ = table
    undefined = {}
    for index in range(count):
        name, kind, _, description, _ = struct.unpack_from("<IBBHQ", data, offset + 16 * index)
        if kind & 0xE0 or kind & 0x0E or not kind & 1:
            continue  # for the debugger, defined here, or local
        library = description >> 8
        undefined[text_at(data, strings + name)] = libraries[library - 1] if 0 < library <= len(libraries) else ""
    return undefined


def read_signature(data, offset):
    magic, _, count = struct.unpack_from(">3I", data, offset)
    if magic != SIGNATURE_MAGIC:
        raise Damaged("the code signature isn't one")
    for index in range(count):
        place = offset + struct.unpack_from(">2I", data, offset + 12 + 8 * index)[1]
        if struct.unpack_from(">I", data, place)[0] == CODE_DIRECTORY_MAGIC:
            return read_code_directory(data, place)
    raise Damaged("the code signature lists no pages")


def read_code_directory(data, place):
    _, _, _, flags, hashes, identifier, _, count, limit = struct.unpack_from(">9I", data, place)
    hash_size, _, _, page_bits = struct.unpack_from("4B", data, place + 36)
    page = 1 << page_bits
    written = [data[place + hashes + hash_size * index:][:hash_size] for index in range(count)]
    computed = [hashlib.sha256(data[start:min(start + page, limit)]).digest() for start in range(0, limit, page)]
    return Signature(text_at(data, place + identifier), flags, written == computed)
