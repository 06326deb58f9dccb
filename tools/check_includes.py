"""Who may include whom: the floors of docs/folders.md, no circles, and each name for one file only."""

import re

from check_tree import INCLUDE_ROOTS, folder_of, includes_of

FLOORS_PAGE = "docs/folders.md"
TREE_HEADING = re.compile(r"^## .*\(`(\w+)/`\)$")
FLOOR_LINE = re.compile(r"^\*\*Floor (\d+) · ([\w/]+)/\*\*")

SEEN_BY_THE_MODEL = {"base", "concurrency", "views", "platform"}
MAIN_OF_THE_MODEL = re.compile(r"simulator/main[^/]*\.(?:cpp|h)$")
MAIN_ON_THE_MAC = re.compile(r"src/(?:seam_check/)?main_macos\.mm$")


def floors_of(tree):
    """Folder, from the root -> number of its floor, as the page has it."""
    floors, root = {}, None
    for line in tree.texts.get(FLOORS_PAGE, "").splitlines():
        if line.startswith("## "):
            heading = TREE_HEADING.match(line)
            root = heading.group(1) if heading else None
        elif root and (found := FLOOR_LINE.match(line)):
            floors[f"{root}/{found.group(2)}"] = int(found.group(1))
    return floors


def room_of(path):
    """The folder that stands on a floor: the first below src/ or simulator/; None for a file directly there."""
    parts = path.split("/")
    return "/".join(parts[:2]) if len(parts) > 2 else None


def complaint_of_program(path, target):
    if target.startswith("simulator/"):
        return "the program doesn't know the modelled Mac"
    if target.startswith("src/seam_check/") and not path.startswith("src/seam_check/"):
        return "the program doesn't know its self-check"
    sees_macos = path.startswith("src/platform/macos/") or MAIN_ON_THE_MAC.match(path)
    if target.startswith("src/platform/macos/") and not sees_macos:
        return "only platform/macos/ itself includes platform/macos/"
    return None


def complaint_of_model(path, target):
    if MAIN_OF_THE_MODEL.match(path) or not target.startswith("src/"):
        return None
    if target.split("/")[1] not in SEEN_BY_THE_MODEL or target.startswith("src/platform/macos/"):
        return "of the program the modelled Mac sees only base/, concurrency/, views/ and platform/"
    return None


def climbs(floors, path, target):
    own, other = room_of(path), room_of(target)
    same_tree = path.split("/")[0] == target.split("/")[0]
    return same_tree and own in floors and other in floors and floors[other] > floors[own]


def complaint_of_floors(floors, path, target):
    own, other = room_of(path), room_of(target)
    if climbs(floors, path, target):
        return f"{own.split('/')[1]} lies under {other.split('/')[1]}"
    return None


def check_floors(tree):
    floors = floors_of(tree)
    for path in tree.cpp("src", "simulator"):
        in_program = path.startswith("src/")
        if room_of(path) not in floors and not MAIN_ON_THE_MAC.match(path) and not MAIN_OF_THE_MODEL.match(path):
            yield f"{path}:1: its folder is on no floor ({FLOORS_PAGE})"
        for line, name, target in includes_of(tree, path):
            if target is None:
                continue
            if target != f"{target.split('/')[0]}/{name}":
                yield f"{path}:{line}: includes {name}: include from the root of src/ or simulator/"
            complaint = complaint_of_program(path, target) if in_program else complaint_of_model(path, target)
            complaint = complaint or complaint_of_floors(floors, path, target)
            if complaint:
                yield f"{path}:{line}: includes {name}: {complaint}"


def check_floors_page(tree):
    rooms = {folder_of(path) for path in tree.texts}
    lines = tree.texts.get(FLOORS_PAGE, "").splitlines()
    for folder in floors_of(tree):
        if not any(room == folder or room.startswith(folder + "/") for room in rooms):
            line = next(i for i, text in enumerate(lines, 1) if f"· {folder.split('/', 1)[1]}/**" in text)
            yield f"{FLOORS_PAGE}:{line}: has a floor for {folder}/, which isn't there"


def circles(edges):
    """The groups of nodes that lead to each other and back, each in order (Tarjan)."""
    number, low, path, found = {}, {}, [], []

    def visit(node):
        number[node] = low[node] = len(number)
        path.append(node)
        for following in sorted(edges.get(node, ())):
            if following not in number:
                visit(following)
            if following in path:
                low[node] = min(low[node], low[following])
        if low[node] == number[node]:
            group = path[path.index(node):]
            del path[path.index(node):]
            if len(group) > 1:
                found.append(sorted(group))

    for node in sorted(edges):
        if node not in number:
            visit(node)
    return found


def check_circles(tree):
    """Circles within a floor; one that goes over several has a climbing include, and the floors refuse that."""
    floors, files, folders = floors_of(tree), {}, {}
    for path in tree.cpp():
        for _, _, target in includes_of(tree, path):
            if target is None or climbs(floors, path, target):
                continue
            files.setdefault(path, set()).add(target)
            if folder_of(path) != folder_of(target):
                folders.setdefault(folder_of(path), set()).add(folder_of(target))
    for group in circles(files):
        yield f"{group[0]}:1: includes itself in a circle of files: {', '.join(group)}"
    for group in circles(folders):
        yield f"{group[0]}/:1: folders include each other in a circle: {', '.join(group)}"


def check_names(tree):
    """Both trees are include roots, so a path below one must not stand below the other."""
    first, second = INCLUDE_ROOTS
    for path in tree.cpp(first):
        twin = second + path[len(first):]
        if path.endswith(".h") and twin in tree.texts:
            yield f"{twin}:1: means two files: {path} has the same name for an include"
