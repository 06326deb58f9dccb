"""The tree as the checks see it: what git tracks or would track, its text, its C++, and what a file includes."""

import os
import re
import subprocess
from dataclasses import dataclass, field
from pathlib import Path, PurePosixPath

CPP_FOLDERS = ("src", "simulator", "tests", "bench", "fuzz")
CPP_SUFFIXES = (".cpp", ".h", ".mm")
INCLUDE_ROOTS = ("src", "simulator")

INCLUDE = re.compile(r'^[ \t]*#[ \t]*(?:include|import)[ \t]*["<]([^">\n]+)[">]', re.MULTILINE)
COMMENT_OR_LITERAL = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"([^(\s]{0,16})\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<![0-9a-fA-F])\'(?:\\.|[^\'\\\n])*\'',
    re.DOTALL)


@dataclass
class Tree:
    root: Path
    texts: dict = field(default_factory=dict)  # path relative to the root -> its text

    def cpp(self, *folders):
        """The C++ files below the folders (all folders with C++ when none is given)."""
        return [path for path in self.texts
                if path.endswith(CPP_SUFFIXES) and path.split("/")[0] in (folders or CPP_FOLDERS)]


def read_tree(root):
    listed = subprocess.run(
        ["git", "-c", "safe.directory=*", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        cwd=root, check=True, stdout=subprocess.PIPE).stdout
    tree = Tree(root)
    for path in sorted(set(os.fsdecode(listed).split("\0")) - {""}):
        file = root / path
        if file.is_symlink() or not file.is_file():
            continue
        data = file.read_bytes()
        if b"\0" not in data:
            tree.texts[path] = data.decode(errors="replace")
    return tree


def folder_of(path):
    return path.rpartition("/")[0]


def line_of(text, offset):
    return text.count("\n", 0, offset) + 1


def code_of(text):
    """The text with comments and literals blanked, line by line."""
    return COMMENT_OR_LITERAL.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), text)


def includes_of(tree, path):
    """(line, what is included, the file of the tree that is meant or None) for each include of a file."""
    own_root = path.split("/")[0]
    roots = [*INCLUDE_ROOTS, *(["tests"] if own_root == "tests" else [])]
    roots.sort(key=lambda root: root != own_root)
    beside = str(PurePosixPath(path).parent)
    text = tree.texts[path]
    for match in INCLUDE.finditer(text):
        name = match.group(1)
        candidates = [os.path.normpath(f"{folder}/{name}") for folder in [*roots, beside]]
        target = next((candidate for candidate in candidates if candidate in tree.texts), None)
        yield line_of(text, match.start(1)), name, target
