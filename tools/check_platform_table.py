#!/usr/bin/env python3
"""Compares docs/platform.md with the platform's headers and with the self-check: every virtual operation stands in the
table once, with what it is on macOS (names in backticks must occur in the sources for macOS) and with the contract check
that holds it, or "none: " and why; every check that is named exists, and every check is named. One line for each finding; exit status 1 when there is any."""

import argparse
import re
import sys
from pathlib import Path

TABLE = "docs/platform.md"
HEADERS = ("src/platform/*.h", "src/views/*.h", "src/concurrency/scheduler.h")
CHECKS = "src/seam_check/**/*_checks.cpp"
MACOS_SOURCES = ("src/platform/macos/**/*.mm", "src/platform/macos/**/*.h", "src/main_macos.mm")
NO_CHECK = "none: "
SEPARATOR = "<br>"

COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
# A class or struct with a body, a brace, or a virtual operation (a destructor is none).
TOKEN = re.compile(r"\b(?:class|struct)\s+(?P<type>\w+)[^;{}()]*\{|(?P<open>\{)|(?P<close>\})"
                   r"|\bvirtual\b(?P<operation>[^;{~]*?)\b(?P<name>\w+)\s*\(", re.DOTALL)
LITERAL = r'"(?:[^"\\]|\\.)*"'
CHECK = re.compile(r"\b(?:reads|changes|asks)\(\s*(?:family|" + LITERAL + r"),\s*((?:" + LITERAL + r"\s*)+),")


def operations_in(header):
    """The virtual operations of a header as Class.operation, in their order."""
    text = COMMENT.sub("", header.read_text())
    scopes = []
    for match in TOKEN.finditer(text):
        if match["type"]:
            scopes.append(match["type"])
        elif match["open"]:
            scopes.append(None)
        elif match["close"]:
            scopes = scopes[:-1]
        else:
            classes = [scope for scope in scopes if scope]
            if classes:
                yield f"{classes[-1]}.{match['name']}"


def checks_in(source):
    """The promises of the checks in a file."""
    for match in CHECK.finditer(COMMENT.sub("", source.read_text())):
        yield "".join(literal[1:-1] for literal in re.findall(LITERAL, match.group(1)))


def rows_of(table):
    """(line, operation, what it is on macOS, its checks) for each row with an operation."""
    for number, line in enumerate(table.read_text().splitlines(), 1):
        cells = [cell.strip() for cell in line.strip().strip("|").split("|")]
        match = re.fullmatch(r"`(\w+\.\w+)`", cells[0])
        if line.startswith("|") and match:
            yield number, match.group(1), cells[1:2], cells[2:]


def check_macos(root, number, cell, used):
    """Names in backticks: words in the sources for macOS, or a file there."""
    for name in re.findall(r"`([^`]+)`", cell):
        is_file = re.fullmatch(r"\w+\.(?:mm|h)", name)
        if is_file and not list((root / "src/platform/macos").rglob(name)):
            yield f"{TABLE}:{number}: there is no {name} below src/platform/macos"
        for word in () if is_file else re.findall(r"\w+", name):
            if word not in used:
                yield f"{TABLE}:{number}: nothing in the sources for macOS uses {word}"


def check_row(number, macos, held, promises):
    if not macos or not macos[0]:
        yield f"{TABLE}:{number}: doesn't tell what it is on macOS"
    if len(held) != 1 or not held[0]:
        yield f"{TABLE}:{number}: needs one cell with its check, or “{NO_CHECK}” and why"
        return
    if held[0].startswith(NO_CHECK):
        if len(held[0]) < len(NO_CHECK) + 10:
            yield f"{TABLE}:{number}: doesn't say why there is no check"
        return
    for name in held[0].split(SEPARATOR):
        if name.strip() not in promises:
            yield f"{TABLE}:{number}: there is no check “{name.strip()}”"


def findings(root):
    wanted = {}
    for pattern in HEADERS:
        for header in sorted(root.glob(pattern)):
            for operation in operations_in(header):
                wanted[operation] = header.relative_to(root)
    promises = [promise for source in sorted(root.glob(CHECKS)) for promise in checks_in(source)]
    if not wanted or not promises:
        yield f"{TABLE}:1: no operation or no check was found to compare it with"
    for promise in sorted({promise for promise in promises if promises.count(promise) > 1}):
        yield f"src/seam_check:1: two checks are called “{promise}”"
    if not (root / TABLE).is_file():
        yield f"{TABLE}:1: isn't there"
        return
    used = {word for pattern in MACOS_SOURCES for source in root.glob(pattern)
            for word in re.findall(r"\w+", COMMENT.sub("", source.read_text()))}
    seen, named = set(), set()
    for number, operation, macos, held in rows_of(root / TABLE):
        if operation not in wanted:
            yield f"{TABLE}:{number}: no header has a virtual operation {operation}"
        if operation in seen:
            yield f"{TABLE}:{number}: {operation} stands here twice"
        seen.add(operation)
        named.update(name.strip() for cell in held for name in cell.split(SEPARATOR))
        yield from check_row(number, macos, held, promises)
        if used and macos:
            yield from check_macos(root, number, macos[0], used)
    for operation, header in wanted.items():
        if operation not in seen:
            yield f"{header}:1: {operation} isn't in {TABLE}"
    for promise in promises:
        if promise not in named:
            yield f"{TABLE}:1: no operation names the check “{promise}”"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--root", type=Path, default=Path(__file__).resolve().parent.parent,
                        help="the tree to read (default: the one that this file lies in)")
    root = parser.parse_args().root.resolve()
    found = list(findings(root))
    print("\n".join([*found, f"platform table: {len(found)} findings"]))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
