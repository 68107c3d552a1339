# SPDX-License-Identifier: MIT

"""Runs clang-tidy over the logic, two of its compile units at a time. In a unity build a unit is a
whole folder, which takes a fraction of the time that its files take one by one.

Usage: check_tidy.py BUILD_FOLDER
"""
import concurrent.futures
import json
import pathlib
import re
import subprocess
import sys
import tempfile

TARGETS = re.compile(r"CMakeFiles/trovell_(core|editing|platform_desktop)\.dir/")


def units(build, folder):
    """The units to look at; `folder` receives their commands, without the compiler's cache."""
    commands = json.loads((build / "compile_commands.json").read_text())
    chosen = [entry for entry in commands
              if TARGETS.search(entry["command"]) and "autogen" not in entry["file"]]
    for entry in chosen:
        entry["command"] = re.sub(r"^.*?(\S*(?:g\+\+|clang\+\+|c\+\+)\S* -)", r"\1",
                                  entry["command"])
    (folder / "compile_commands.json").write_text(json.dumps(chosen))
    return [entry["file"] for entry in chosen]


def complaints(folder, unit):
    run = subprocess.run(
        ["clang-tidy-19", "--quiet", "--warnings-as-errors=*", "-p", folder,
         "--extra-arg=-Wno-unknown-warning-option", "--extra-arg=-Wno-deprecated-declarations",
         "--extra-arg=-Wno-unused-command-line-argument",
         unit], capture_output=True, text=True)
    return run.stdout if run.returncode else ""


with tempfile.TemporaryDirectory() as name:
    folder = pathlib.Path(name)
    found = units(pathlib.Path(sys.argv[1]), folder)
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        texts = list(pool.map(lambda unit: complaints(folder, unit), found))
print("\n".join(filter(None, texts)) or f"clang-tidy has nothing against {len(found)} units.")
sys.exit(any(texts) or not found)
