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

# Names of banned calls in comments and texts, an ignored folder and a longer word are no findings.
CLEAN = {
    "CMakeLists.txt": (TOOLS.parent / "CMakeLists.txt").read_text(),
    ".gitignore": "/build/\n",
    "README.md": "The specifics of Part 7; see simulator/work/readme.\n",
    "src/concurrency/task.h": "#include <thread>\n// 1'000 of 'em\nstd::thread worker;\n" + FILLER,
    "src/platform/clock.h": '#include "concurrency/task.h"\n',
    "src/core/manager.h": '#include "core/policy.h"\n#include "platform/clock.h"\n',
    "src/core/policy.h": 'const char* s = "std::cout \\" throw";  // no throw, no getenv()\n',
    "src/core/manager.cpp": '#include "core/manager.h"\nint n = std::snprintf(b, 1, "");\n',
    "src/app/start.h": '#include "core/manager.h"\n',
    "src/platform/macos/view.h": '#include "platform/clock.h"\n',
    "src/main_macos.mm": '#include "app/start.h"\n#include "platform/macos/view.h"\nvoid f() { std::cout << 1; }\n',
    "src/seam_check/check.h": '#include "platform/clock.h"\n',
    "src/seam_check/main_macos.mm": '#include "platform/macos/view.h"\n#include "seam_check/check.h"\n',
    "simulator/model/bar.h": '#include "platform/clock.h"\n/* rand() */\n',
    "simulator/main.cpp": '#include "app/start.h"\n#include "model/bar.h"\nvoid f() { std::cout << 1; }\n',
    "tests/core/manager_test.cpp": '#include "support/mac.h"\nTEST(Manager, Starts) {}\n',
    "tests/support/mac.h": "#pragma once\n",
    "tests/support/mac.cpp": '#include "support/mac.h"\n',
    "build/debug/generated.cpp": "throw\n",
}
BUILT = ["src/core/manager.cpp", "simulator/main.cpp", "tests/core/manager_test.cpp", "tests/support/mac.cpp"]


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
    (plus("src/core/policy.h", include("model/bar.h")), "src/core/policy.h:2", "doesn't know the modelled Mac"),
    ({**plus("src/core/policy.h", include("platform/macos/ax.h")), "src/platform/macos/ax.h": ""},
     "src/core/policy.h:2", "only platform/macos/"),
    (plus("src/core/manager.cpp", "# include <../src/core/policy.h>\n"), "src/core/manager.cpp:3", "from the root"),
    (plus("src/core/manager.h", include("policy.h")), "src/core/manager.h:3", "from the root"),
    (plus("simulator/model/bar.h", include("core/policy.h")), "simulator/model/bar.h:3", "sees only base/"),
    ({"src/util/list.h": "", **plus("src/core/policy.h", include("util/list.h"))}, "src/util/list.h:1", "no floor"),
    (plus("src/app/start.h", include("seam_check/check.h")), "src/app/start.h:2", "doesn't know its self-check"),
    (plus("src/seam_check/main_macos.mm", include("app/start.h")), "src/seam_check/main_macos.mm:3",
     "seam_check lies under app"),
    # dead files
    ({"src/core/old.h": ""}, "src/core/old.h:1", "nobody includes it"),
    ({"simulator/model/old.h": "", "simulator/model/old.cpp": include("model/old.h")}, "simulator/model/old.h:1",
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
        ("simulator/main.cpp", 4, "std::async(f)", "queues of concurrency"),
        ("src/core/policy.h", 2, "std::chrono::steady_clock::now()", "scheduler's clock"),
        ("simulator/model/bar.h", 3, "rand()", "seeded generator"),
        ("simulator/model/bar.h", 3, "std::random_device{}()", "seeded generator"),
        ("simulator/model/bar.h", 3, "std::printf(s)", "a stream that is handed in"),
        ("src/core/manager.cpp", 3, "&std::cerr", "a stream that is handed in"),
        ("simulator/model/bar.h", 3, "std::unordered_map<int, int>()", "std::map"),
        ("src/core/policy.h", 2, "std::unordered_set<int>()", "std::map"),
        ("src/core/policy.h", 2, 'std::getenv("HOME")', "hand the value in"),
        ("src/core/policy.h", 2, "f() ? 1 : throw 1", "std::unexpected"),
    ]],
    # words
    (plus("README.md", "TODO\n"), "README.md:2", "issues"),
    (plus("src/core/policy.h", "// As Specification says.\n"), "src/core/policy.h:2", "the reason itself"),
    (plus("src/core/policy.h", "// As the spec says.\n"), "src/core/policy.h:2", "the reason itself"),
    (plus("README.md", "See Part 4.2.\n"), "README.md:2", "the reason itself"),
    (plus("README.md", "cd /home/someone\n"), "README.md:2", "one machine"),
    # links
    (plus("README.md", "[a](src/core/policy.h) [b](https://example.org/x) [c](docs/c.md#top)\n"), "README.md:2",
     "docs/c.md"),
    # proportions
    (plus("tests/support/mac.h", FILLER), "tests/:1", "at most 33%"),
    (plus("src/core/manager.cpp", "\n" * 600), "src/core/manager.cpp:1", "602 lines"),
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
