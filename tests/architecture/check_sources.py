# SPDX-License-Identifier: MIT

"""Checks what every source file owes: a licence line, in a header a word on what it is for, and in
src/ helper names that no other file of the folder has, since unity builds compile a folder as one.

Usage: check_sources.py PROJECT_ROOT
"""
import pathlib
import re
import sys

LICENCE = "SPDX-License-Identifier: MIT"
SCANNED = ["src", "tests", "tools", "benchmarks", "cmake", "packaging"]
SUFFIXES = {".h", ".cpp", ".py", ".sh", ".cmake"}
FORWARD = re.compile(r"(class|struct|enum class) \w+( : \w+)?;|[A-Z_]+\(\w+\)$|using namespace ")
HELPER = re.compile(r"""^(?:
    (?:struct|class|enum\ class)\ (?P<type>\w+)\b[^;]*$ |
    (?:constexpr|const|inline)\b[^(={]*?[ *&](?P<value>\w+)(?:\[\w*\])?(?:\ =|\(|\{) |
    (?P<function>[A-Za-z][\w:<>,\ *&]*[ *&]\w+\([^{;]*\)[^;{]*)$
)""", re.VERBOSE)


def source_files(root):
    for folder in SCANNED:
        for file in sorted((root / folder).rglob("*")):
            if file.suffix in SUFFIXES or file.name == "CMakeLists.txt":
                yield file


def says_what_it_is_for(lines):
    if lines[1:2] and lines[1].startswith("//"):
        return True
    nested = False
    for line in lines[1:]:
        if line.startswith(("//", "/*")):
            return True
        nested = nested or line.startswith("namespace")
        declared = line and not line.startswith(("#", "namespace", "}"))
        if nested and declared and not FORWARD.match(line):
            return False
    return False


def helper_names(text):
    for block in re.findall(r"^namespace \{\n(.*?)^\}", text, re.MULTILINE | re.DOTALL):
        # A declaration over several lines is one.
        for line in re.sub(r",\n\s+", ", ", block).split("\n"):
            if match := HELPER.match(line):
                yield match["type"] or match["value"] or match["function"]


def clashes(root):
    owners = {}
    for file in sorted((root / "src").rglob("*.cpp")):
        for name in set(helper_names(file.read_text())):
            other = owners.setdefault((file.parent, name), file)
            if other != file:
                yield f"{file}: {other.name} in this folder has a helper named {name}, too"


def violations(root):
    for file in source_files(root):
        lines = file.read_text().splitlines()
        if not any(LICENCE in line for line in lines[:2]):
            yield f"{file}: has no licence line"
        if file.suffix == ".h" and not says_what_it_is_for(lines):
            yield f"{file}: does not say what it is for"
    yield from clashes(root)


found = list(violations(pathlib.Path(sys.argv[1])))
print("\n".join(found) or "Every source file has what it owes.")
sys.exit(bool(found))
