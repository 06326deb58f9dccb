"""Reads what tools/mac_checks asks of a Mac program: slices, segments, load commands, undefined symbols."""

import struct
from dataclasses import dataclass, field

CPU_TYPES = {0x0100000C: "arm64", 0x01000007: "x86_64"}
FAT_MAGIC, MACH_MAGIC_64 = 0xCAFEBABE, 0xFEEDFACF
LC_SYMTAB, LC_SEGMENT_64, LC_CODE_SIGNATURE, LC_BUILD_VERSION = 2, 0x19, 0x1D, 0x32
LC_RPATH, LC_DYLD_ENVIRONMENT = 0x8000001C, 0x27
DYLIB_COMMANDS = {0xC, 0x80000018, 0x8000001F, 0x20}  # load, weak, re-export, lazy


@dataclass
class Slice:
    architecture: str
    data: bytes = b""
    minimum: str = ""
    sdk: str = ""
    libraries: list = field(default_factory=list)
    search_paths: list = field(default_factory=list)
    undefined: dict = field(default_factory=dict)  # symbol -> library, or "" for any that happens to be loaded
    segments: dict = field(default_factory=dict)  # name -> place and size in the file
    signature_place: tuple = (0, 0)  # likewise
    signature: bytes | None = None


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
    result, symbols, at = Slice(CPU_TYPES.get(cpu, hex(cpu)), data), None, 32
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
            result.signature_place = begin, length = struct.unpack_from("<2I", data, at + 8)
            result.signature = data[begin:begin + length]
        elif command == LC_SEGMENT_64:
            result.segments[data[at + 8:at + 24].rstrip(b"\0").decode()] = struct.unpack_from("<2Q", data, at + 40)
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
