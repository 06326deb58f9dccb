#!/usr/bin/env python3
"""tools/mac_checks_selftest.py APP: plants faults in copies of a sound Tavrin.app and expects tools/mac_checks to name each.
A check that nothing can trip is no check."""

import re
import shutil
import struct
import sys
import tempfile
from importlib.machinery import SourceFileLoader
from importlib.util import module_from_spec, spec_from_loader
from pathlib import Path

TOOLS = Path(__file__).resolve().parent
ROOT = TOOLS.parent
sys.dont_write_bytecode = True
sys.path.insert(0, str(TOOLS))
from mac_planting import add_entitlement, change, swap  # noqa: E402
from mac_seal_faults import FAULTS as SEAL_FAULTS  # noqa: E402


def load(name):
    spec = spec_from_loader(name, SourceFileLoader(name, str(TOOLS / name)))
    module = module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


class Copy:
    """A bundle, and what it was made from, to be spoilt."""

    def __init__(self, app, folder):
        self.app, self.root = folder / "Tavrin.app", folder / "root"
        shutil.copytree(app, self.app)
        shutil.copytree(ROOT / "packaging/macos/sdk", self.root / "packaging/macos/sdk",
                        ignore=shutil.ignore_patterns("include"))
        shutil.copytree(ROOT / "src/platform/macos", self.root / "src/platform/macos")
        shutil.copy(ROOT / "packaging/macos/entitlements.plist", self.root / "packaging/macos")
        shutil.copy(ROOT / "CMakeLists.txt", self.root)
        self.program = self.app / "Contents/MacOS/Tavrin"
        self.info = self.app / "Contents/Info.plist"
        inner = self.app / "Contents/Helpers/SeamCheck.app/Contents"
        self.helper, self.helper_info = inner / "MacOS/tavrin-seam-check", inner / "Info.plist"
        self.resources = self.app / "Contents/Resources"
        self.listing = self.app / "Contents/_CodeSignature/CodeResources"
        self.entitlements = self.root / "packaging/macos/entitlements.plist"
        self.sdk = self.root / "packaging/macos/sdk"


def keep_one_architecture(copy):
    change(copy.program, lambda data: struct.pack_into(">I", data, 4, 1))


def export_unused(copy):
    path = copy.sdk / "lib/libobjc.tbd"
    path.write_text(re.sub(r"symbols: \[", "symbols: [ _objc_neverCalled,", path.read_text(), count=1))


def forget_export(copy):
    path = copy.sdk / "Frameworks/CoreFoundation.framework/CoreFoundation.tbd"
    swap(path, b"_CFRelease,", b"")


def forget_class(copy):
    swap(copy.sdk / "Frameworks/AppKit.framework/AppKit.tbd", b"NSStatusBar,", b"")


def bind_to_any_library(copy):
    """Sets the library of each undefined symbol of the first slice to what means: search all that is loaded."""
    data = bytearray(copy.program.read_bytes())
    start = struct.unpack_from(">I", data, 8 + 8)[0]
    at = start + 32
    for _ in range(struct.unpack_from("<I", data, start + 16)[0]):
        command, size, symbols, count = struct.unpack_from("<4I", data, at)
        if command == 2:
            for index in range(count):
                place = start + symbols + 16 * index
                if data[place + 4] == 1:
                    data[place + 7] = 0xFE
        at += size
    copy.program.write_bytes(data)


FAULTS = [
    # what is spoilt, how, what must be said of it
    ("a program is missing", lambda c: c.program.unlink(), "Tavrin: isn't there as a program"),
    ("a program isn't executable", lambda c: c.program.chmod(0o644), "Tavrin: isn't there as a program"),
    ("a program is cut off", lambda c: c.program.write_bytes(c.program.read_bytes()[:900]), "Tavrin: "),
    ("an architecture is missing", keep_one_architecture, "instead of arm64, x86_64"),
    ("it asks for a newer system", lambda c: swap(c.program, struct.pack("<2I", 0x32, 32) + struct.pack("<2I", 1, 13 << 16),
                                                  struct.pack("<2I", 0x32, 32) + struct.pack("<2I", 1, 15 << 16)),
     "starts on macOS 15.0"),
    ("macOS would tell it an older version", lambda c: swap(c.program, struct.pack("<2I", 13 << 16, 26 << 16),
                                                            struct.pack("<2I", 13 << 16, (15 << 16) + (1 << 8))),
     "SDK 15.1, not 26.0"),
    ("it needs a library of somebody's machine", lambda c: swap(c.program, b"/usr/lib/libobjc.A.dylib", b"/opt/lib/libobjc.A.dylib"),
     "isn't a library of the system"),
    ("it needs a private framework", lambda c: swap(c.program, b"/Library/Frameworks/Carbon.", b"/Library/PrivateWorks/Carb."),
     "isn't a library of the system"),
    ("a private function is linked", lambda c: swap(c.program, b"\0_CFGetTypeID\0", b"\0_CGSGetTypeI\0"), "is private, but linked"),
    ("a private class is linked", lambda c: swap(c.sdk / "allow.txt", b"MBAssessmentModeAssertion #", b"NSStatusBar #"),
     "_OBJC_CLASS_$_NSStatusBar is private, but linked"),
    ("a function is linked that no stub has", lambda c: swap(c.program, b"\0_CFGetTypeID\0", b"\0_CFGetTypeIE\0"),
     "_CFGetTypeIE is taken from"),
    ("symbols are searched everywhere", bind_to_any_library, "comes from whatever is loaded"),
    ("the machine that built it shows", lambda c: swap(c.program, b"/usr/lib/libobjc.A", b"/usr/.cache/zig/.A"),
     "names a folder of the machine"),
    ("a stub lost a function", forget_export, "_CFRelease is taken from"),
    ("a stub lost a class", forget_class, "_OBJC_CLASS_$_NSStatusBar is taken from"),
    ("a stub exports what nobody uses", export_unused, "exports _objc_neverCalled"),
    ("a private function is looked up without a reason", lambda c: swap(c.sdk / "allow.txt", b"CGSGetWindowCount #", b"# "),
     "allow.txt gives no reason for CGSGetWindowCount"),
    ("a reason outlived its private function", lambda c: swap(c.sdk / "allow.txt", b"CGSGetWindowCount #", b"CGSGetWindowCounts #"),
     "allow.txt names CGSGetWindowCounts"),
    ("Info.plist is torn", lambda c: c.info.write_bytes(c.info.read_bytes()[:300]), "Info.plist: can't be read"),
    ("it would stand in the Dock", lambda c: swap(c.info, b"LSUIElement", b"LSUIElemint"), "LSUIElement is None"),
    ("the seam check passes for Tavrin", lambda c: swap(c.helper_info, b"org.tavrin.seam-check", b"org.tavrin.Tavrin"),
     "Info.plist of Tavrin Seam Check: CFBundleIdentifier is"),
    ("the seam check is missing", lambda c: c.helper.unlink(), "tavrin-seam-check: isn't there as a program"),
    ("a yes is a text", lambda c: swap(c.info, b"<key>LSUIElement</key>\n    <true/>",
                                       b"<key>LSUIElement</key>\n    <string>1</string>"), "LSUIElement is '1'"),
    ("the version wasn't filled in", lambda c: c.info.write_text(re.sub(r"\d+\.\d+\.\d+", "@VERSION@", c.info.read_text())),
     "CFBundleVersion is '@VERSION@'"),
    ("the entitlements are torn", lambda c: c.entitlements.write_text("<plist><dict>"), "entitlements.plist: can't be read"),
    ("the entitlements are explained", lambda c: swap(c.entitlements, b"<dict>", b"<!-- Why --><dict>"), "bears a comment"),
    ("a debugger may attach", lambda c: add_entitlement(c, "com.apple.security.get-task-allow"), "get-task-allow must stay off"),
    ("the sandbox is on", lambda c: swap(c.entitlements, b"app-sandbox</key>\n    <false/>", b"app-sandbox</key>\n    <true/>"),
     "app-sandbox must stay off"),
    ("the icon is cut off", lambda c: (c.resources / "Tavrin.icns").write_bytes(b"icns\0\0\1\0"), "Tavrin.icns: isn't an icon"),
    ("the menu bar image is missing", lambda c: (c.resources / "MenuBarIcon.png").unlink(), "MenuBarIcon.png is missing"),
    ("a licence is empty", lambda c: (c.resources / "Licences/libc++.txt").write_text(""), "libc++.txt is missing or empty"),
    ("a text's line is torn", lambda c: swap(c.resources / "en.lproj/Localizable.strings", b'" = "Stop";', b'" = "Stop;'),
     "Localizable.strings: can't be read"),
]


def main():
    if len(sys.argv) != 2 or not Path(sys.argv[1]).is_dir():
        sys.exit(__doc__)
    app, checks, missed = Path(sys.argv[1]), load("mac_checks"), 0
    cases = [("nothing", lambda copy: None, None), *FAULTS, *SEAL_FAULTS]
    for name, plant, expected in cases:
        with tempfile.TemporaryDirectory() as folder:
            copy = Copy(app, Path(folder))
            plant(copy)
            found = checks.findings(copy.app, copy.root)
        if any(expected in finding for finding in found) if expected else not found:
            continue
        missed += 1
        print(f"mac_checks_selftest: {name}: expected {expected or 'no finding'!r}, got {found}", file=sys.stderr)
    print(f"{len(cases) - missed} passed, {missed} failed")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
