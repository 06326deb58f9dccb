#!/usr/bin/env python3
"""Proves that tools/check can fail: plants one fault of each kind into a small clean tree and wants exactly that fault
reported, at its place and in its words."""

import importlib.util
import json
import subprocess
import sys
import tempfile
from importlib.machinery import SourceFileLoader
from pathlib import Path

sys.dont_write_bytecode = True
TOOLS = Path(__file__).resolve().parent
loader = SourceFileLoader("check", str(TOOLS / "check"))
check = importlib.util.module_from_spec(importlib.util.spec_from_loader("check", loader))
sys.modules["check"] = check
loader.exec_module(check)

FILLER = "int a();\n" * 20
SEVEN = "int a, std::map<int, int> b, int c, int d, int e, int f, int g"
FLOORS_PAGE = """# Folders
## The program (`src/`)
**Floor 1 · concurrency/** holds
**Floor 1 · views/** holds
**Floor 2 · platform/** holds
**Floor 3 · seam_check/** holds
**Floor 4 · pins/** holds
**Floor 4 · shortcuts/** holds
**Floor 5 · core/** holds
**Floor 6 · ui/** holds
**Floor 6 · app/** holds
## The modelled Mac (`simulator/`)
**Floor 1 · menu_bar/** holds
**Floor 2 · driver/** holds
## Beside them
**Floor 9 · tests/** holds
"""

# Names of banned calls in comments and texts, an ignored folder and a longer word are no findings.
CLEAN = {
    "CMakeLists.txt": (TOOLS.parent / "CMakeLists.txt").read_text(),
    ".gitignore": "/build/\n",
    "README.md": "See simulator/work/readme.\n",
    "docs/folders.md": FLOORS_PAGE,
    "src/concurrency/task.h": "#include <thread>\n// 1'000 of 'em\nstd::thread worker;\n" + FILLER,
    "src/platform/clock.h": '#include "concurrency/task.h"\n',
    "src/core/manager.h": '#include "core/policy.h"\n#include "platform/clock.h"\n',
    "src/views/view.h": "auto visit(View view) { return std::visit(Handlers{}, view.kind); }\n",
    "src/core/kinds.cpp": '#include "views/view.h"\nauto a = visitKind(v, [](const StackKind auto&) {});\nauto b = std::visit(f, c.value);\n'
                          "void d() { switch (kind) { case A: break; } switch (e) { default: break; } }\n",
    "src/ui/configure_texts.cpp": "bool f() { return mode == MenuBarRuntimeMode::divider; }\n",
    "src/core/policy.h": 'const char* s = "std::cout \\" throw";  // no throw, no getenv()\n',
    "src/core/manager.cpp": '#include "core/manager.h"\nint n = std::snprintf(b, 1, "");\n',
    "src/app/start.h": '#include "core/manager.h"\n',
    "src/pins/pin.h": '#include "platform/clock.h"\n',
    "src/shortcuts/key.h": '#include "pins/pin.h"\n',
    "src/core/uses.cpp": '#include "shortcuts/key.h"\n#include "core/six.h"\n',
    "src/core/six.h": "class Six {\n  public:\n    Six(std::map<int, int> a, int b, int c, int d, int e, int f);\n};\n",
    "src/platform/macos/view.h": '#include "platform/clock.h"\n',
    "src/main_macos.mm": '#include "app/start.h"\n#include "platform/macos/view.h"\nvoid f() { std::cout << 1; }\n',
    "src/seam_check/check.h": '#include "platform/clock.h"\n',
    "src/seam_check/main_macos.mm": '#include "platform/macos/view.h"\n#include "seam_check/check.h"\n',
    "simulator/menu_bar/bar.h": '#include "platform/clock.h"\n/* rand() */\n',
    "simulator/driver/driver.h": '#include "menu_bar/bar.h"\n',
    "simulator/main.cpp": '#include "app/start.h"\n#include "driver/driver.h"\n#include "menu_bar/bar.h"\nvoid f() { std::cout << 1; }\n',
    "tests/core/manager_test.cpp": '#include "support/mac.h"\nTEST(Manager, Starts) {}\n',
    "tests/support/mac.h": "#pragma once\n",
    "tests/support/mac.cpp": '#include "support/mac.h"\n',
    "build/debug/generated.cpp": "throw\n",
}
BUILT = ["src/core/manager.cpp", "src/core/uses.cpp", "src/core/kinds.cpp", "src/ui/configure_texts.cpp",
         "simulator/main.cpp", "tests/core/manager_test.cpp", "tests/support/mac.cpp"]


def include(name):
    return f'#include "{name}"\n'


def plus(path, text):
    """The clean file with a text put under it."""
    return {path: CLEAN[path] + text}


# What is planted, where it must be reported, and words that the report must have.
FAULTS = [
    # include floors
    (plus("src/concurrency/task.h", include("platform/clock.h")), "src/concurrency/task.h:24", "lies under platform"),
    (plus("src/core/policy.h", include("app/start.h")), "src/core/policy.h:2", "core lies under app"),
    (plus("src/core/policy.h", include("menu_bar/bar.h")), "src/core/policy.h:2", "doesn't know the modelled Mac"),
    ({**plus("src/core/policy.h", include("platform/macos/ax.h")), "src/platform/macos/ax.h": ""},
     "src/core/policy.h:2", "only platform/macos/"),
    (plus("src/core/manager.cpp", "# include <../src/core/policy.h>\n"), "src/core/manager.cpp:3", "from the root"),
    (plus("src/core/manager.h", include("policy.h")), "src/core/manager.h:3", "from the root"),
    (plus("simulator/menu_bar/bar.h", include("core/policy.h")), "simulator/menu_bar/bar.h:3", "sees only base/"),
    ({"src/util/list.h": "", **plus("src/core/policy.h", include("util/list.h"))}, "src/util/list.h:1", "no floor"),
    (plus("src/app/start.h", include("seam_check/check.h")), "src/app/start.h:2", "doesn't know its self-check"),
    (plus("src/seam_check/main_macos.mm", include("app/start.h")), "src/seam_check/main_macos.mm:3",
     "seam_check lies under app"),
    (plus("simulator/menu_bar/bar.h", include("driver/driver.h")), "simulator/menu_bar/bar.h:3",
     "menu_bar lies under driver"),
    ({"simulator/panel/list.h": "", **plus("simulator/driver/driver.h", include("panel/list.h"))},
     "simulator/panel/list.h:1", "no floor"),
    ({"docs/folders.md": FLOORS_PAGE.replace("Floor 2 · driver", "Floor 2 · tray/** holds\n**Floor 2 · driver")},
     "docs/folders.md:14", "simulator/tray/, which isn't there"),
    # circles and names
    (plus("src/core/policy.h", include("core/manager.h")), "src/core/manager.h:1",
     "circle of files: src/core/manager.h, src/core/policy.h"),
    ({"src/pins/other.h": "", **plus("src/pins/pin.h", include("shortcuts/own.h")), "src/shortcuts/own.h": include("pins/other.h")},
     "src/pins/:1", "circle: src/pins, src/shortcuts"),
    ({"simulator/driver/driver.h": CLEAN["simulator/driver/driver.h"] + include("views/list.h"),
      "simulator/views/list.h": "", "src/views/list.h": "",
      "docs/folders.md": FLOORS_PAGE.replace("## The modelled Mac (`simulator/`)",
                                             "## The modelled Mac (`simulator/`)\n**Floor 1 · views/** holds"),
      **plus("src/core/uses.cpp", include("views/list.h"))},
     "simulator/views/list.h:1", "two files: src/views/list.h"),
    # dead files
    ({"src/core/old.h": ""}, "src/core/old.h:1", "nobody includes it"),
    ({"simulator/menu_bar/old.h": "", "simulator/menu_bar/old.cpp": include("menu_bar/old.h")}, "simulator/menu_bar/old.h:1",
     "nobody includes it"),
    ({"bench/deep/scan.cpp": ""}, "bench/deep/scan.cpp:1", "no glob"),
    ({"src/platform/macos/ax.cpp": ""}, "src/platform/macos/ax.cpp:1", "no glob"),
    # tests
    ({"tests/core/manager_test.cpp": "// TEST(Manager, Starts) {}\n"}, "tests/core/manager_test.cpp:1", "no TEST"),
    ({"tests/core/new_test.cpp": "TEST_F(New, Works) {}\n"}, "tests/core/new_test.cpp:1", "isn't in the build"),
    # banned calls
    *[(plus(path, f"auto x = {call};\n"), f"{path}:{line}", words) for path, line, call, words in [
        ("src/concurrency/task.h", 24, "std::this_thread::sleep_for(1s)", "sleep_for is banned: use the scheduler"),
        ("tests/core/manager_test.cpp", 3, "usleep(5)", "usleep is banned"),
        ("src/core/policy.h", 2, "std::jthread(f)", "queues of concurrency"),
        ("simulator/main.cpp", 5, "std::async(f)", "queues of concurrency"),
        ("src/core/policy.h", 2, "std::chrono::steady_clock::now()", "scheduler's clock"),
        ("simulator/menu_bar/bar.h", 3, "rand()", "seeded generator"),
        ("simulator/menu_bar/bar.h", 3, "std::random_device{}()", "seeded generator"),
        ("simulator/menu_bar/bar.h", 3, "std::printf(s)", "a stream that is handed in"),
        ("src/core/manager.cpp", 3, "&std::cerr", "a stream that is handed in"),
        ("simulator/menu_bar/bar.h", 3, "std::unordered_map<int, int>()", "std::map"),
        ("src/core/policy.h", 2, "std::unordered_set<int>()", "std::map"),
        ("src/core/policy.h", 2, 'std::getenv("HOME")', "hand the value in"),
        ("src/core/policy.h", 2, "f() ? 1 : throw 1", "std::unexpected"),
    ]],
    # what was left behind, written so that this file isn't a finding itself
    (plus("README.md", "TO" "DO\n"), "README.md:2", "issues"),
    (plus("README.md", "cd /ho" "me/someone\n"), "README.md:2", "one machine"),
    # links
    (plus("README.md", "[a](src/core/policy.h) [b](https://example.org/x) [c](docs/c.md#top)\n"), "README.md:2",
     "docs/c.md"),
    # proportions
    (plus("tests/support/mac.h", FILLER * 2), "tests/:1", "at most 33%"),
    (plus("src/core/manager.cpp", "\n" * 600), "src/core/manager.cpp:1", "602 lines"),
    ({f"tests/scenarios/{n}.txt": "" for n in range(31)}, "tests/scenarios/:1", "31 files, at most 30"),
    # constructors
    (plus("src/core/six.h", f"struct Seven {{\n    Seven({SEVEN});\n}};\n"), "src/core/six.h:6", "Seven takes 7"),
    # kinds of views, and the way of hiding
    *[(plus("src/core/manager.cpp", f"{code}\n"), f"src/core/manager.cpp:{line}", words) for code, line, words in [
        ("switch (view.kind) {\ncase A:\ndefault: return;\n}", 5, "default: in a switch over kinds"),
        ("visitKind(view, [](const Text&) {},\n [](const auto&) {});", 4, "a handler for anything"),
        ("visitKind(view, [this]<class Kind>(const Kind&) {});", 3, "a handler for anything"),
        ("std::visit(Handlers{}, view.kind);", 3, "use visitKind"),
        ("if (mode() == MenuBarRuntimeMode::divider) f();", 3, "the mode is asked only where"),
    ]],
]


def grow(folder, planted):
    """Writes the clean tree with a fault into a folder that git takes for a checkout."""
    built = [{"directory": str(folder), "file": path} for path in BUILT]
    files = {**CLEAN, **planted, "build/debug/compile_commands.json": json.dumps(built)}
    for path, text in files.items():
        file = folder / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)
    subprocess.run(["git", "init", "-q", "."], cwd=folder, check=True)
    return folder


def complaint(planted, place, words):
    """What is wrong with the checker's answer to a planted fault; None when it is right."""
    with tempfile.TemporaryDirectory() as folder:
        found = check.findings(check.read_tree(grow(Path(folder), planted)))
    if len(found) == 1 and found[0].startswith(place + ":") and words in found[0]:
        return None
    return f"wanted one finding “{place}: … {words} …”, got {found or 'none'}"


def complaint_of_clean_tree():
    with tempfile.TemporaryDirectory() as folder:
        found = check.findings(check.read_tree(grow(Path(folder), {})))
    return f"the clean tree has findings: {found}" if found else None


def complaint_of_exit_status():
    for planted, wanted in [({}, 0), ({"src/core/old.h": ""}, 1)]:
        with tempfile.TemporaryDirectory() as folder:
            grow(Path(folder), planted)
            status = subprocess.run([sys.executable, TOOLS / "check", "--root", folder],
                                    stdout=subprocess.DEVNULL, check=False).returncode
        if status != wanted:
            return f"exit status {status} where {wanted} was wanted"
    return None


def main():
    complaints = [complaint_of_clean_tree(), complaint_of_exit_status(), *[complaint(*fault) for fault in FAULTS]]
    wrong = [one for one in complaints if one]
    print("\n".join([*wrong, f"check_selftest: {len(complaints) - len(wrong)} of {len(complaints)} as wanted"]))
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
