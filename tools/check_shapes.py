"""The shape of the code: long files, full folders, constructors that take too much, kinds of views that are passed over,
and the way of hiding asked for in too many places."""

import re
from collections import Counter

from check_tree import CPP_FOLDERS, CPP_SUFFIXES, code_of, folder_of, line_of

LINES_MAX = 600
FILES_IN_FOLDER_MAX = 30
CONSTRUCTOR_PARAMETERS_MAX = 6

CLASS = re.compile(r"\b(?:class|struct)\s+(\w+)(?:\s+final)?\s*(?::[^;{]*)?\{")
KIND_SWITCH = re.compile(r"\bswitch\s*\([^;{]*\bkind\b[^;{]*\)\s*(?=\{)")
DEFAULT = re.compile(r"\bdefault\s*:")
KIND_VISIT = re.compile(r"\bvisitKind(?=\()")
VISIT_BY_HAND = re.compile(r"\bstd::visit\([^;]*\.kind\s*\)")
TAKES_ANYTHING = re.compile(r"\]\s*\(\s*(?:const\s+)?auto\b|\[[^\]]*\]\s*<\s*(?:class|typename)\b")
# An attribute concerns few of the many kinds of elements there.
KINDS_OF_ELEMENTS = "simulator/accessibility/"
VISITOR_OF_KINDS = "src/views/view.h"

MODE_ASKED = re.compile(r"\bMenuBarRuntimeMode::\w+")
MODE_DEFINED_IN = "src/hiding/menu_bar_runtime_mode.h"
# Where the mechanism is made, where Tavrin's own items are, and in texts.
MODE_ASKED_IN = {"src/core/make_hiding_mechanism.cpp", "src/hiding/own_status_items.cpp", "src/ui/configure_texts.cpp"}

BEFORE_A_CONSTRUCTOR = re.compile(r"(?:^|[;{}:>]|\bexplicit|\bconstexpr)\s*$")


def check_lengths(tree):
    for path, text in tree.texts.items():
        is_script = text.startswith("#!")
        length = len(text.splitlines())
        if (path.endswith(CPP_SUFFIXES + (".py", ".cmake")) or is_script) and length > LINES_MAX:
            yield f"{path}:1: {length} lines, at most {LINES_MAX}; split it by idea"


def check_folders(tree):
    for folder, count in Counter(folder_of(path) for path in tree.texts).items():
        if folder.split("/")[0] in CPP_FOLDERS and count > FILES_IN_FOLDER_MAX:
            yield f"{folder}/:1: {count} files, at most {FILES_IN_FOLDER_MAX}; split it by idea"


def enclosed(code, opening):
    """What stands from this bracket to the one that closes it."""
    depth = 0
    for offset in range(opening, len(code)):
        depth += (code[offset] in "({[") - (code[offset] in ")}]")
        if depth == 0:
            return code[opening:offset + 1]
    return code[opening:]


def check_kinds(tree):
    """A new kind must not compile until each place that tells kinds apart has handled it."""
    for path in tree.cpp("src", "simulator"):
        code = code_of(tree.texts[path])
        for pattern, fault, complaint in [(KIND_SWITCH, DEFAULT, "default: in a switch over kinds"),
                                          (KIND_VISIT, TAKES_ANYTHING, "a handler for anything in a visit of kinds")]:
            for match in pattern.finditer(code) if not path.startswith(KINDS_OF_ELEMENTS) else ():
                found = fault.search(enclosed(code, match.end()))
                if found:
                    yield f"{path}:{line_of(code, match.end() + found.start())}: {complaint}: name the kinds"
        for match in VISIT_BY_HAND.finditer(code) if path != VISITOR_OF_KINDS else ():
            yield f"{path}:{line_of(code, match.start())}: std::visit of a kind: use visitKind"


def check_mode(tree):
    for path in tree.cpp("src", "simulator"):
        code = code_of(tree.texts[path])
        for match in MODE_ASKED.finditer(code) if path not in {MODE_DEFINED_IN, *MODE_ASKED_IN} else ():
            yield (f"{path}:{line_of(code, match.start())}: {match.group()}: the mode is asked only where the "
                   f"mechanism is made, of Tavrin's own items and for texts; ask the mechanism instead")


def parameters_at(code, opening):
    """How many parameters stand between this parenthesis and the one that closes it."""
    depth, commas, is_empty = 0, 0, True
    for character in code[opening:]:
        if character in "(<{[":
            depth += 1
        elif character in ")>}]":
            depth -= 1
            if depth == 0:
                break
        elif character == "," and depth == 1:
            commas += 1
        is_empty = is_empty and (character.isspace() or character == "(")
    return 0 if is_empty else commas + 1


def check_constructors(tree):
    for path in tree.cpp("src", "simulator", "tests"):
        code = code_of(tree.texts[path])
        for name in sorted({match.group(1) for match in CLASS.finditer(code)}):
            for match in re.finditer(rf"(?<![~\w]){name}\(", code):
                count = parameters_at(code, match.end() - 1)
                if count > CONSTRUCTOR_PARAMETERS_MAX and BEFORE_A_CONSTRUCTOR.search(code[:match.start()]):
                    yield (f"{path}:{line_of(code, match.start())}: the constructor of {name} takes {count} parameters, "
                           f"at most {CONSTRUCTOR_PARAMETERS_MAX}; give it a struct, or fewer tasks")
