"""Checks the seal of Tavrin.app by what lies in the bundle alone: each hash in it against what it is the hash of."""

import hashlib
import plistlib
import re
from dataclasses import dataclass

from mac_object import Damaged, slices
from mac_seal_reader import der_entitlements, read_signature

AD_HOC_AND_HARDENED = 0x10002
SHA256_BY_4096 = (32, 2, 0, 12)
NO_REQUIREMENTS = bytes.fromhex("fade0c010000000c00000000")
NO_CERTIFICATES = bytes.fromhex("fade0b0100000008")
INFO, REQUIREMENTS, LIST, ENTITLEMENTS, DER, CERTIFICATES = 1, 2, 3, 5, 7, 0x10000
BESIDE_THE_LIST = {"Info.plist", "PkgInfo", "_CodeSignature/CodeResources"}  # vouched for otherwise, or by nobody
ALIGNMENT = 16


@dataclass
class Vouched:
    """What the signature of a program must vouch for beside the code."""

    identifier: str
    entitlements: dict
    info: bytes = b""  # of the bundle, for its main program
    listing: bytes = b""


def check_signature(where, one, vouched):
    if one.signature is None:
        yield f"{where}: isn't signed, so that a downloaded Tavrin counts as damaged"
        return
    try:
        signature = read_signature(one.signature)
    except Damaged as damage:
        yield f"{where}: {damage}"
        return
    problems = [*check_place(one), *check_directory(one, signature.directory, vouched.identifier),
                *check_pages(one.data, signature.directory), *check_slots(signature, vouched),
                *check_entitlements(signature.blobs, vouched.entitlements)]
    yield from (f"{where}: {problem}" for problem in problems)


def check_place(one):
    begin, size = one.signature_place
    place, length = one.segments.get("__LINKEDIT", (0, 0))
    if begin % ALIGNMENT or not begin + size == place + length == len(one.data):
        yield "the signature isn't the end of the program"


def check_directory(one, directory, identifier):
    if directory.identifier != identifier:
        yield f"signed as {directory.identifier}, not as {identifier}"
    if directory.flags != AD_HOC_AND_HARDENED:
        yield f"signed with the flags {directory.flags:#x}, not ad hoc with the hardened runtime"
    if directory.form != SHA256_BY_4096:
        yield "isn't hashed with SHA-256 by pages of 4096 bytes"
    if directory.limit != one.signature_place[0]:
        yield f"only {directory.limit} of its {one.signature_place[0]} bytes before the signature are sealed"
    if directory.text != (*one.segments.get("__TEXT", (0, 0)), 1):
        yield "the signature names another segment of instructions"
    if f"{directory.runtime >> 16}.{directory.runtime >> 8 & 255}" != one.sdk:
        yield "the signature names the runtime of another system than it was built for"


def check_pages(data, directory):
    pages = [data[at:min(at + 4096, directory.limit)] for at in range(0, directory.limit, 4096)]
    if len(pages) != len(directory.pages):
        yield f"has {len(pages)} pages, of which {len(directory.pages)} are sealed"
    for number, (page, sealed) in enumerate(zip(pages, directory.pages)):
        if hashlib.sha256(page).digest() != sealed:
            yield f"page {number} was changed after sealing"


def check_slots(signature, vouched):
    limit = signature.directory.limit
    hashed = {INFO: ("Info.plist", vouched.info), LIST: ("the list of files", vouched.listing),
              **{slot: (name, signature.blobs.get(slot, b"")) for slot, name in
                 ((REQUIREMENTS, "the requirements"), (ENTITLEMENTS, "the entitlements"), (DER, "the binary entitlements"))}}
    for slot, sealed in sorted({**dict.fromkeys(hashed, b""), **signature.directory.beside}.items()):
        name, data = hashed.get(slot, (f"slot {slot}", b""))
        if sealed != (hashlib.sha256(data).digest() if data else bytes(32)):
            yield f"{name}: not what was sealed with the program"
    if signature.blobs.get(REQUIREMENTS) != NO_REQUIREMENTS:
        yield "makes requirements, which an ad hoc signature can't keep"
    if signature.blobs.get(CERTIFICATES) != NO_CERTIFICATES:
        yield "bears a certificate, or no place for one"


def check_entitlements(blobs, wanted):
    try:
        written = plistlib.loads(blobs.get(ENTITLEMENTS, b"")[8:])
    except Exception as error:  # of the parser or of expat: each says why itself
        written = f"unreadable ({error})"
    if written != wanted:
        yield f"sealed with other entitlements than those in packaging/macos: {written}"
    binary = der_entitlements(blobs.get(DER, b""))
    if binary != wanted:
        yield f"sealed with other binary entitlements than those in packaging/macos: {binary}"


def check_list(contents, main):
    """The list of files, Contents/_CodeSignature/CodeResources, against the files."""
    try:
        listing = plistlib.loads((contents / "_CodeSignature/CodeResources").read_bytes())
        lists = [(listing["files2"], listing["rules2"], "hash2", hashlib.sha256),
                 (listing["files"], listing["rules"], "hash", hashlib.sha1)]
    except Exception as error:  # of the file system, the parser, or for want of a key
        yield f"CodeResources: can't be read, so that a downloaded Tavrin counts as damaged: {error!r}"
        return
    present = present_in(contents)
    yield from (f"{name}: is a link, which the seal doesn't cover" for name, path in present.items() if path.is_symlink())
    covered = {name: path for name, path in present.items() if name not in BESIDE_THE_LIST | {f"MacOS/{main}"}}
    old = {name: path for name, path in covered.items() if name.startswith("Resources/")}
    for wanted, (files, rules, kind, algorithm) in zip((covered, old), lists):
        yield from (f"{name}: isn't in the list {kind} of the seal" for name in sorted(wanted.keys() - files.keys()))
        yield from (f"{name}: sealed, but missing" for name in sorted(files.keys() - wanted.keys()))
        for name in sorted(wanted.keys() & files.keys()):
            entry = files[name] if isinstance(files[name], dict) else {kind: files[name]}
            yield from check_entry(name, wanted[name], entry, rules, kind, algorithm)


def present_in(contents):
    """Name and path of all that a list must cover: each file, but of a bundle within the bundle only the bundle."""
    inner = [path for path in contents.rglob("*.app") if path.is_dir()]
    files = [path for path in contents.rglob("*") if not path.is_dir() and not any(one in path.parents for one in inner)]
    return {path.relative_to(contents).as_posix(): path for path in [*files, *inner]}


def check_entry(name, path, entry, rules, kind, algorithm):
    rule = deciding(name, rules)
    traits = {trait for trait in ("omit", "nested", "optional") if rule.get(trait)}
    if traits != ({"nested"} if "cdhash" in entry else {"optional"} if entry.get("optional") else set()):
        yield f"{name}: listed against the rules of the seal"
    if "cdhash" in entry:
        yield from check_helper(name, path, entry)
    elif entry.get(kind) != algorithm(path.read_bytes()).digest():
        yield f"{name}: changed after sealing ({kind})"


def deciding(name, rules):
    """The heaviest of the rules that fit, as macOS has it; without any, the file isn't covered."""
    best, heaviest = {"omit": True}, 0
    for pattern, rule in rules.items():
        rule = rule if isinstance(rule, dict) else {}
        if re.compile(pattern).search(name) and rule.get("weight", 1) > heaviest:
            best, heaviest = rule, rule.get("weight", 1)
    return best


def program_in(app):
    try:
        return app / "Contents/MacOS" / plistlib.loads((app / "Contents/Info.plist").read_bytes())["CFBundleExecutable"]
    except Exception as error:  # of the file system, the parser, or for want of the key
        raise Damaged(f"names no program: {error!r}") from error


def check_helper(name, path, entry):
    """A bundle within the bundle is listed by the hashes of its program's code, one an architecture."""
    try:
        hashes = [read_signature(one.signature or b"").directory.code_hash
                  for one in slices(program_in(path).read_bytes())]
    except (Damaged, OSError) as damage:
        hashes = []
        yield f"{name}: {damage}"
    named = [bytes.fromhex(digits) for digits in re.findall(r'cdhash H"([0-9a-f]{40})"', entry.get("requirement", ""))]
    if sorted(named) != sorted(hashes) or entry["cdhash"] not in hashes:
        yield f"{name}: not the program that was sealed with the bundle"
