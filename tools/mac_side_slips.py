#!/usr/bin/env python3
"""tools/mac_side_slips.py BUILD: plants one slip after another in a copy of a source for the real Mac, builds the tests of the Mac
side with it (in the build BUILD of the preset mac-side), and expects the tests named with it to fail. Needs a screen: it is
`./test --mac-side --slips` that provides one."""

import json
import os
import re
import shlex
import subprocess
import sys
import tempfile
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SOURCES = ROOT / "src/platform/macos"
SECONDS_MAX = 120


@dataclass(frozen=True)
class Slip:
    name: str
    file: str  # below src/platform/macos/
    right: str
    wrong: str
    tests: str  # a GoogleTest pattern; at least one of them fails


SLIPS = [
    Slip("a missing release", "support/menu.mm",
         "    item.target = action;\n", "    item.target = action;\n    CFRetain((__bridge CFTypeRef)action);\n",
         "LifetimesTest.rounds*"),
    Slip("a release too many", "system/defaults.mm",
         "    store(domain, ownDomain(), key, list.get());", "    store(domain, ownDomain(), key, list.get());\n    CFRelease(list.get());",
         "ServicesTest.preferences*"),
    Slip("a flipped coordinate", "presentation/panel.mm",
         "toNSRect(anchor_)", "NSMakeRect(anchor_.x, anchor_.y, anchor_.width, anchor_.height)",
         "SurfacesTest.aPanel*"),
    Slip("a swapped modifier", "views/view_keyboard.mm",
         "~NSEventModifierFlagShift", "~NSEventModifierFlagOption", "ViewsTest.tab*"),
    Slip("a callback on the wrong thread", "system/scheduler.mm",
         "    CFRunLoopPerformBlock(CFRunLoopGetMain(), kCFRunLoopCommonModes, ^{\n"
         "        if (const auto next = posted->take()) runReportingAllFaults(*this, next);\n    });",
         "    if (const auto next = posted->take()) runReportingAllFaults(*this, next);",
         "ServicesTest.workOfAQueue*"),
    Slip("an error in a slot taken for a value", "support/accessibility_values.mm",
         "kAXValueTypeAXError))\n        return std::unexpected(errorFrom(*error));",
         "kAXValueTypeAXError))\n        return std::monostate{};", "CFunctionsTest.aListOfValues*"),
    Slip("a right press taken for a left one", "presentation/status_items.mm",
         "if (event.type == NSEventTypeRightMouseUp) return true;", "", "SeamContract.theModelledMac*"),
    Slip("a nil where the header says non-null", "support/conversions.mm",
         "if (units.empty()) return @\"\";", "if (units.empty()) return nil;", "ServicesTest.preferences*"),
    Slip("a block that retains its owner", "views/view_accessibility.mm",
         "__weak TavrinViewNode* weakNode = node;\n    for", "TavrinViewNode* weakNode = node;\n    for",
         "LifetimesTest.aNode*"),
]


def run(command, folder, **options):
    return subprocess.run(command, cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, errors="replace", **options)


def compile_slip(build, source, copy, output):
    commands = json.loads((build / "compile_commands.json").read_text())
    entry = next(one for one in commands if Path(one["file"]) == source)
    words = shlex.split(entry["command"])
    words[words.index("-o") + 1] = str(output)
    words[words.index("-c") + 1] = str(copy)
    done = run(words, entry["directory"])
    if done.returncode != 0:
        raise SystemExit(f"mac side slips: {copy.name} doesn't compile\n{done.stdout}")
    return entry["output"] if "output" in entry else shlex.split(entry["command"])[words.index("-o") + 1]


def link_with(build, old, new, program):
    listed = run(["ninja", "-t", "commands", "-s", "mac-side-tests"], build).stdout.strip()
    link = listed.replace(f" {old} ", f" {new} ").replace("-o mac-side-tests ", f"-o {program} ")
    done = run(link, build, shell=True)
    if done.returncode != 0 or new.name not in link:
        raise SystemExit(f"mac side slips: it doesn't link\n{done.stdout[-2000:]}")


def planted(build, slip, folder):
    """The tests with the slip in them; None when its place has changed."""
    source = SOURCES / slip.file
    text = source.read_text()
    if text.count(slip.right) != 1:
        return None
    copy, output, program = folder / source.name, folder / "slip.o", folder / "tests"
    copy.write_text(text.replace(slip.right, slip.wrong))
    link_with(build, compile_slip(build, source, copy, output), output, program)
    return program


def caught_by(build, slip, program):
    """The test that failed, or the one that the program ended in or never left; None when all was well."""
    try:
        done = run([str(program), f"--gtest_filter={slip.tests}", "--gtest_color=no", "-GSX11HandlesWindowDecorations",
                    "NO"], build, timeout=SECONDS_MAX)
    except subprocess.TimeoutExpired:
        return f"{slip.tests}, which didn't end"
    if done.returncode == 0:
        return None
    failed = re.findall(r"\[  FAILED  \] (\S+)", done.stdout) or re.findall(r"\[ RUN      \] (\S+)", done.stdout)[-1:]
    return failed[0] if failed else None


def main():
    build = Path(sys.argv[1]).resolve()
    missed = 0
    with tempfile.TemporaryDirectory() as folder:
        for slip in SLIPS:
            program = planted(build, slip, Path(folder))
            caught = program and caught_by(build, slip, program)
            missed += not caught
            print(f"{slip.name}: {'caught by ' + caught if caught else 'its place has changed' if not program else 'missed'}",
                  flush=True)
    print(f"{len(SLIPS) - missed} passed, {missed} failed")
    return 1 if missed else 0


if __name__ == "__main__":
    os.environ.setdefault("ASAN_OPTIONS", "detect_leaks=0")
    sys.exit(main())
