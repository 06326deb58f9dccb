"""The faults of the seal that tools/mac_checks_selftest.py plants in copies of Tavrin.app."""

import shutil
import struct

from mac_planting import add_entitlement, change, swap


def slice_at(data, index):
    return struct.unpack_from(">I", data, 8 + 8 + 20 * index)[0]


def flip_in_page(copy, index, page):
    def edit(data):
        data[slice_at(data, index) + 4096 * page + 77] ^= 1
    change(copy.program, edit)


def unseal_slice(copy, index):
    def edit(data):
        start, command = slice_at(data, index), struct.pack("<2I", 0x1D, 16)
        at = data.index(command, start)
        data[at:at + len(command)] = struct.pack("<2I", 0x26, 16)
    change(copy.program, edit)


def append_to_last_slice(copy):
    def edit(data):
        size = struct.unpack_from(">I", data, 8 + 20 + 12)[0]
        struct.pack_into(">I", data, 8 + 20 + 12, size + 16)
        data += bytes(16)
    change(copy.program, edit)


def set_in_directory(copy, field, value):
    def edit(data):
        struct.pack_into(">I", data, data.index(b"\xfa\xde\x0c\x02") + field, value)
    change(copy.program, edit)


FAULTS = [
    # what is spoilt, how, what must be said of it
    ("a byte of code was flipped", lambda c: flip_in_page(c, 0, 5), "Tavrin (x86_64): page 5 was changed after sealing"),
    ("a byte of other code was flipped", lambda c: flip_in_page(c, 1, 200), "Tavrin (arm64): page 200 was changed"),
    ("one slice isn't sealed", lambda c: unseal_slice(c, 0), "Tavrin (x86_64): isn't signed"),
    ("another slice isn't sealed", lambda c: unseal_slice(c, 1), "Tavrin (arm64): isn't signed"),
    ("something follows the signature", append_to_last_slice, "Tavrin (arm64): the signature isn't the end"),
    ("the signature is cut off", lambda c: swap(c.program, b"\xfa\xde\x0c\xc0", b"\xfa\xde\x0c\xc1"), "the signature isn't one"),
    ("it is sealed under another name", lambda c: swap(c.program, b"org.tavrin.Tavrin\0", b"org.tavrin.Tavrim\0"),
     "signed as org.tavrin.Tavrim"),
    ("only the linker signed it", lambda c: set_in_directory(c, 12, 0x20002), "with the flags 0x20002"),
    ("the seal ends early", lambda c: set_in_directory(c, 32, 4096), "only 4096 of its"),
    ("it is hashed otherwise", lambda c: set_in_directory(c, 36, 0x2002000E), "isn't hashed with SHA-256 by pages of 4096"),
    ("data counts as instructions", lambda c: set_in_directory(c, 76, 4096), "another segment of instructions"),
    ("it names another runtime", lambda c: set_in_directory(c, 88, 13 << 16), "the runtime of another system"),
    ("it asks more than an ad hoc signature keeps", lambda c: swap(c.program, b"\xfa\xde\x0c\x01\0\0\0\x0c\0\0\0\0",
                                                                   b"\xfa\xde\x0c\x01\0\0\0\x0c\0\0\0\1"), "makes requirements"),
    ("the place for certificates is spoilt", lambda c: swap(c.program, b"\xfa\xde\x0b\x01", b"\xfa\xde\x0b\x02"),
     "bears a certificate"),
    ("its entitlements differ", lambda c: swap(c.program, b"app-sandbox</key>\n\t<false/>", b"app-sandbox</key>\n\t<true />"),
     "sealed with other entitlements"),
    ("its entitlements weren't hashed", lambda c: swap(c.program, b"app-sandbox</key>\n\t<false/>",
                                                      b"app-sandbox</key>\n <false/>"), "the entitlements: not what was sealed"),
    ("its binary entitlements differ", lambda c: swap(c.program, b"app-sandbox\1\1\0", b"app-sandbox\1\1\xff"),
     "sealed with other binary entitlements"),
    ("the entitlements changed after sealing", lambda c: add_entitlement(c, "com.apple.security.automation.apple-events"),
     "sealed with other entitlements"),
    ("Info.plist was changed", lambda c: swap(c.info, b"category.utilities", b"category.lifestyle"),
     "Tavrin (arm64): Info.plist: not what was sealed"),
    ("a resource was changed", lambda c: swap(c.resources / "Licences/libc++.txt", b"LLVM", b"LLUM"),
     "Resources/Licences/libc++.txt: changed after sealing (hash2)"),
    ("a resource was added", lambda c: (c.resources / "more.txt").write_text("more"), "Resources/more.txt: isn't in the list"),
    ("a program was added", lambda c: shutil.copy(c.helper, c.program.with_name("more")), "MacOS/more: isn't in the list"),
    ("a program was added further in", lambda c: shutil.copy(c.helper, c.helper.with_name("more")),
     "MacOS/more: isn't in the list"),
    ("a bundle was added", lambda c: shutil.copytree(c.helper.parents[2], c.helper.parents[3] / "More.app"),
     "Helpers/More.app: isn't in the list"),
    ("Info.plist further in was changed", lambda c: swap(c.helper_info, b"</plist>", b"</plist> "),
     "tavrin-seam-check (arm64): Info.plist: not what was sealed"),
    ("a link was added", lambda c: (c.resources / "link").symlink_to("Tavrin.icns"), "Resources/link: is a link"),
    ("a resource was removed", lambda c: (c.resources / "Licences/libunwind.txt").unlink(),
     "Resources/Licences/libunwind.txt: sealed, but missing"),
    ("the list is gone", lambda c: c.listing.unlink(), "CodeResources: can't be read"),
    ("the list was changed", lambda c: swap(c.listing, b"</plist>", b"</plist> "), "the list of files: not what was sealed"),
    ("the rules leave a file out", lambda c: swap(c.listing, b"^(.*/)?\\.DS_Store$", b"^Resources/Lic"),
     "Resources/Licences/libc++.txt: listed against the rules"),
    ("the program further in was exchanged", lambda c: swap(c.helper, b"org.tavrin.seam-check\0", b"org.tavrin.seam-chick\0"),
     "Helpers/SeamCheck.app: not the program that was sealed"),
]
