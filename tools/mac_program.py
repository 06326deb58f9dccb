"""Takes a Mac program apart into its architectures, makes room for a code signature at the end of each, joins them again."""

import struct
from dataclasses import dataclass

UNIVERSAL, ARM64 = 0xCAFEBABE, 0x0100000C
SEGMENT, CODE_SIGNATURE = 0x19, 0x1D
HEADER = 32  # bytes; the commands follow
SIGNATURE_ALIGNMENT = 16


class NoRoom(Exception):
    """The linker left no space for one more command."""


@dataclass
class Part:
    """One architecture of a program."""

    kind: tuple  # processor and its subtype
    alignment: int  # the power of two to which it begins
    code: bytearray

    def page(self):
        return 0x4000 if self.kind[0] == ARM64 else 0x1000

    def commands(self):
        at = HEADER
        for _ in range(struct.unpack_from("<I", self.code, 16)[0]):
            command, size = struct.unpack_from("<2I", self.code, at)
            yield command, at
            at += size

    def segment(self, name):
        """Where the command of a segment stands, and the place and size of the segment in the file."""
        for command, at in self.commands():
            if command == SEGMENT and self.code[at + 8:at + 24].rstrip(b"\0") == name:
                return at, *struct.unpack_from("<2Q", self.code, at + 40)
        raise ValueError(f"the program has no segment {name.decode()}")

    def signature_command(self):
        return next((at for command, at in self.commands() if command == CODE_SIGNATURE), None)

    def first_section(self):
        sections = (at + 72 + 80 * index for command, at in self.commands() if command == SEGMENT
                    for index in range(struct.unpack_from("<I", self.code, at + 64)[0]))
        offsets = (struct.unpack_from("<I", self.code, at + 48)[0] for at in sections)
        return min(offset for offset in offsets if offset)  # 0 where nothing of the section lies in the file


def rounded(size, alignment):
    return -(-size // alignment) * alignment


def split(data):
    if struct.unpack_from(">I", data)[0] != UNIVERSAL:
        return [Part(struct.unpack_from("<2I", data, 4), 14, bytearray(data))]
    parts = []
    for index in range(struct.unpack_from(">I", data, 4)[0]):
        *kind, offset, size, alignment = struct.unpack_from(">5I", data, 8 + 20 * index)
        parts.append(Part(tuple(kind), alignment, bytearray(data[offset:offset + size])))
    return parts


def join(parts):
    if len(parts) == 1:
        return bytes(parts[0].code)
    header, body = struct.pack(">2I", UNIVERSAL, len(parts)), b""
    start = len(header) + 20 * len(parts)
    for part in parts:
        place = rounded(start + len(body), 1 << part.alignment)
        header += struct.pack(">5I", *part.kind, place, len(part.code), part.alignment)
        body = body.ljust(place - start, b"\0") + part.code
    return header + body


def remove_signature(part):
    """Leaves the code up to where a signature may begin, and a command for it."""
    at = part.signature_command()
    if at is not None:
        del part.code[struct.unpack_from("<I", part.code, at + 8)[0]:]
    else:
        add_signature_command(part)
    part.code += bytes(-len(part.code) % SIGNATURE_ALIGNMENT)


def add_signature_command(part):
    count, size = struct.unpack_from("<2I", part.code, 16)
    end = HEADER + size
    if end + 16 > part.first_section():
        raise NoRoom("there is no room for the command of a code signature")
    struct.pack_into("<4I", part.code, end, CODE_SIGNATURE, 16, 0, 0)
    struct.pack_into("<2I", part.code, 16, count + 1, size + 16)


def announce_signature(part, length):
    """Says in the commands that a signature of this length follows the code, as the end of the last segment. Returns the
    size that it has to be filled up to."""
    start, size = len(part.code), rounded(length, SIGNATURE_ALIGNMENT)
    struct.pack_into("<2I", part.code, part.signature_command() + 8, start, size)
    at, place, _ = part.segment(b"__LINKEDIT")
    end = start + size - place
    struct.pack_into("<Q", part.code, at + 32, rounded(end, part.page()))
    struct.pack_into("<Q", part.code, at + 48, end)
    return size
