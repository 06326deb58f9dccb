"""Makes the ad hoc code signature of one architecture of a program, as xnu's cs_blobs.h lays it out: SHA-256 throughout,
no certificate. All numbers are big-endian."""

import hashlib
import plistlib
import struct
from dataclasses import dataclass

DIRECTORY, REQUIREMENTS, SIGNATURE = 0xFADE0C02, 0xFADE0C01, 0xFADE0CC0
ENTITLEMENTS, ENTITLEMENTS_DER, CERTIFICATES = 0xFADE7171, 0xFADE7172, 0xFADE0B01
# The slots, by which the parts of a signature are known to each other.
DIRECTORY_SLOT, INFO_SLOT, REQUIREMENTS_SLOT, RESOURCES_SLOT = 0, 1, 2, 3
ENTITLEMENTS_SLOT, ENTITLEMENTS_DER_SLOT, CERTIFICATES_SLOT = 5, 7, 0x10000
LAST_HASHED_SLOT = ENTITLEMENTS_DER_SLOT

WITH_RUNTIME = 0x20500  # the first version that names the hardened runtime
AD_HOC, HARDENED_RUNTIME = 0x2, 0x10000
SHA256, HASH_SIZE = 2, 32
PAGE_BITS = 12  # on both processors, as codesign has it
MAIN_PROGRAM = 1
FIXED_PART = 96  # bytes of a code directory of this version before the identifier


@dataclass
class Seal:
    """What a signature vouches for beside the code."""

    identifier: str
    entitlements: dict
    info: bytes = b""  # the files of the bundle, for its main program
    resources: bytes = b""


@dataclass
class Code:
    contents: bytes  # all that comes before the signature
    text: tuple  # place and size of the segment that holds the instructions
    sdk: int  # packed as in the load command


def sha256(data):
    return hashlib.sha256(data).digest()


def blob(magic, body=b""):
    return struct.pack(">2I", magic, 8 + len(body)) + body


def der(tag, body):
    if len(body) < 0x80:
        return bytes([tag, len(body)]) + body
    length = len(body).to_bytes(-(-len(body).bit_length() // 8), "big")
    return bytes([tag, 0x80 | len(length)]) + length + body


def entitlements_der(entitlements):
    """The second spelling of the entitlements, the only one that macOS 12 and newer go by. Ours are yes or no."""
    pairs = [der(0x30, der(0x0C, key.encode()) + der(0x01, b"\xff" if value else b"\0"))
             for key, value in sorted(entitlements.items())]
    return der(0x70, der(0x02, b"\x01") + der(0xB0, b"".join(pairs)))


def code_directory(code, seal, blobs):
    identifier = seal.identifier.encode() + b"\0"
    hashed = {INFO_SLOT: seal.info, RESOURCES_SLOT: seal.resources, **blobs}
    slots = [sha256(hashed[slot]) if hashed.get(slot) else bytes(HASH_SIZE) for slot in range(LAST_HASHED_SLOT, 0, -1)]
    page = 1 << PAGE_BITS
    pages = [sha256(code.contents[at:at + page]) for at in range(0, len(code.contents), page)]
    hashes_at = FIXED_PART + len(identifier) + HASH_SIZE * len(slots)
    head = struct.pack(">7I4BI", WITH_RUNTIME, AD_HOC | HARDENED_RUNTIME, hashes_at, FIXED_PART, len(slots), len(pages),
                       len(code.contents), HASH_SIZE, SHA256, 0, PAGE_BITS, 0)
    scatter = team = spare = long_limit = 0
    head += struct.pack(">3I4Q", scatter, team, spare, long_limit, *code.text, MAIN_PROGRAM)
    head += struct.pack(">2I", code.sdk, 0)
    return blob(DIRECTORY, head + identifier + b"".join(slots + pages))


def signature(code, seal):
    blobs = {REQUIREMENTS_SLOT: blob(REQUIREMENTS, struct.pack(">I", 0)),  # none: macOS takes the code's own hash
             ENTITLEMENTS_SLOT: blob(ENTITLEMENTS, plistlib.dumps(seal.entitlements)),
             ENTITLEMENTS_DER_SLOT: blob(ENTITLEMENTS_DER, entitlements_der(seal.entitlements))}
    blobs = {DIRECTORY_SLOT: code_directory(code, seal, blobs), **blobs, CERTIFICATES_SLOT: blob(CERTIFICATES)}
    index, place = b"", 12 + 8 * len(blobs)
    for slot, data in blobs.items():
        index += struct.pack(">2I", slot, place)
        place += len(data)
    return blob(SIGNATURE, struct.pack(">I", len(blobs)) + index + b"".join(blobs.values()))


def code_hash(signature_blob):
    """The hash by which macOS knows this code, of the directory that stands first in a signature."""
    place = struct.unpack_from(">I", signature_blob, 16)[0]
    size = struct.unpack_from(">I", signature_blob, place + 4)[0]
    return sha256(signature_blob[place:place + size])[:20]
