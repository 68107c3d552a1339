# SPDX-License-Identifier: MIT

"""Checks that every include in src/ follows the table of which folder may include which.

Usage: check_includes.py SOURCE_ROOT
"""
import pathlib
import re
import sys

# Folder → the folders whose headers it may include besides its own. The longest folder that a
# file lies in counts. No two folders may include each other: what both need lies below both.
LOGIC = {"support", "display", "model", "results", "windows", "launch", "services"}
LOOK = {"support", "views/style", "views/words"}
SHOWN = LOGIC | LOOK | {"editing", "preferences"}
ALLOWED = {
    "support": set(),
    "display": {"support"},
    "model": {"display", "support"},
    "results": {"support"},
    "windows": {"display", "model", "results", "support"},
    "launch": {"display", "model", "results", "windows", "support"},
    "services": {"model", "support"},
    "editing": {"display", "model", "results", "windows", "launch", "support"},
    "platform/desktop": LOGIC,
    "platform/freedesktop": LOGIC | {"platform/desktop"},
    "platform/null": LOGIC | {"platform/desktop", "platform/freedesktop"},
    "platform/x11": LOGIC | {"platform/desktop", "platform/freedesktop"},
    "platform/sway": LOGIC | {"platform/desktop", "platform/freedesktop", "platform/x11"},
    "platform": LOGIC | {"platform/desktop", "platform/freedesktop", "platform/null",
                         "platform/x11", "platform/sway"},
    "preferences": {"services", "support"},
    "app": LOGIC | {"editing", "platform/desktop", "preferences"},
    "views/style": {"support"},
    "views/words": {"support"},
    "views/shared": SHOWN,
    "views/capture": SHOWN | {"views/shared"},
    "views/editor": SHOWN | {"views/shared", "views/capture"},
    "views/detail": SHOWN | {"views/shared"},
    "views/main": SHOWN | {"views/shared", "views/capture", "views/editor", "views/detail"},
    "views/app": SHOWN | {"views/shared", "views/main"},
    "app/scenes": SHOWN | {"app", "platform", "platform/desktop", "views/shared", "views/main",
                           "views/app"},
}
# Link borders: what may be included of the libraries outside these folders.
CONFINED = {
    "xcb/": "platform/x11",
    "gio/": "platform/freedesktop",
    "glib": "platform/freedesktop",
    "sqlite3.h": "model",
    "xxhash.h": "model",
    "sodium.h": "services/update",
    "QNetwork": "services/update",
    "QSsl": "services/update",
}


def folder_of(path):
    return max((f for f in ALLOWED if path.startswith(f + "/")), key=len, default="")


def table_mistakes():
    for folder, allowed in ALLOWED.items():
        for other in allowed & ALLOWED.keys():
            if folder in ALLOWED[other]:
                yield f"the table lets {folder} and {other} include each other"


def violations(root):
    yield from table_mistakes()
    for file in sorted(root.rglob("*")):
        if file.suffix not in {".h", ".cpp"}:
            continue
        name = file.relative_to(root).as_posix()
        folder = folder_of(name)
        if not folder:
            yield f"{name}: lies in no folder of the table"
        for line in file.read_text().splitlines():
            match = re.match(r'\s*#include\s+(["<])([^">]+)[">]', line)
            if not match:
                continue
            quoted, included = match.group(1) == '"', match.group(2)
            if quoted:
                target = folder_of(included)
                if target != folder and target not in ALLOWED[folder]:
                    yield f"{name}: may not include {included}"
            for prefix, home in CONFINED.items():
                if included.startswith(prefix) and not name.startswith(home + "/"):
                    yield f"{name}: may not include <{included}>"


found = list(violations(pathlib.Path(sys.argv[1])))
print("\n".join(found) or "All includes follow the table.")
sys.exit(bool(found))
