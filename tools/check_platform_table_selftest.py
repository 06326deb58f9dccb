#!/usr/bin/env python3
"""Proves that tools/check_platform_table.py can fail: spoils a small tree in one way at a time and wants just that found."""

import sys
import tempfile
from pathlib import Path

sys.dont_write_bytecode = True
import check_platform_table as checker

HEADER = """// virtual void comment();
class Screens {
  public:
    virtual ~Screens() = default;
    virtual std::vector<Screen>
    screens() const = 0;
    class Inner { virtual bool isHere() const { return true; } };
    virtual void watch(std::function<void()> handler) = 0; // virtual void other();
};
"""
CHECKS = """reads(family, "It is so.", isSo), changes("x", "It is "
      "long.", isLong)"""
TABLE = """| `Screens.screens` | `NSScreen screens` | It is so. |
| `Inner.isHere` | nothing | It is so.<br>It is long. |
| `Screens.watch` | `NSNotice` | none: nobody can tell |
"""
MACOS = "NSScreen.screens; // NSComment\nNSNotice;\n"

# Which file is changed from what to what, and words of the one finding.
FAULTS = [
    ("table", "", "", None),
    ("header", "watch(", "wait(", ("Screens.wait isn't in", "no header has a virtual operation Screens.watch")),
    ("header", "    class Inner {", "    virtual int more() = 0;\n    class Inner {", ("Screens.more isn't in",)),
    ("table", "`NSNotice`", "`NSComment`", ("nothing in the sources for macOS uses NSComment",)),
    ("table", "`NSNotice`", "`notice.mm`", ("there is no notice.mm below src/platform/macos",)),
    ("table", "| `NSNotice` |", "| |", ("doesn't tell what it is on macOS",)),
    ("table", "none: nobody can tell", "none: why", ("doesn't say why",)),
    ("table", "none: nobody can tell", "", ("needs one cell with its check",)),
    ("table", "none: nobody can tell", "It was so.", ("there is no check “It was so.”",)),
    ("table", "<br>It is long.", "", ("no operation names the check “It is long.”",)),
    ("table", "`Inner.isHere`", "`Screens.screens`", ("stands here twice", "Inner.isHere isn't in")),
    ("checks", '"It is "\n      "long."', '"It is so."', ("two checks are called", "there is no check “It is long.”")),
]


def found_in(texts):
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        for path, text in {"src/platform/screens.h": texts["header"], "src/seam_check/x_checks.cpp": texts["checks"],
                           "docs/platform.md": texts["table"], "src/platform/macos/x.mm": texts["macos"]}.items():
            (root / path).parent.mkdir(parents=True, exist_ok=True)
            (root / path).write_text(text)
        return list(checker.findings(root))


def main():
    wrong = 0
    for name, before, after, wanted in FAULTS:
        texts = {"header": HEADER, "checks": CHECKS, "table": TABLE, "macos": MACOS}
        assert before in texts[name]
        texts[name] = texts[name].replace(before, after, 1) if before else texts[name]
        found = found_in(texts)
        if len(found) != len(wanted or ()) or not all(any(words in one for one in found) for words in wanted or ()):
            wrong += 1
            print(f"{before!r} to {after!r}: wanted {wanted}, found {found}")
    print(f"check_platform_table_selftest: {len(FAULTS) - wrong} of {len(FAULTS)} as wanted")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
