# SPDX-License-Identifier: MIT

"""Rejects temporaries inside co_await expressions: GCC 12 destroys a capturing lambda or a braced
temporary that is written there twice. They must be named first.

Usage: check_coroutines.py SOURCE_ROOT
"""
import pathlib
import re
import sys


def expression_after(text, start):
    """The text from `start` to the end of the statement or of the enclosing bracket."""
    depth = 0
    for end in range(start, len(text)):
        character = text[end]
        if character in "([{":
            depth += 1
        elif character in ")]}":
            depth -= 1
        if depth < 0 or (depth == 0 and character == ";"):
            return text[start:end]
    return text[start:]


def violations(root):
    for file in sorted(root.rglob("*.cpp")):
        text = re.sub(r"//[^\n]*", "", file.read_text())
        for match in re.finditer(r"\bco_await\b", text):
            expression = expression_after(text, match.end())
            capturing = re.search(r"\[[^\]]+\]\s*[({]", expression)
            braced = re.search(r"[\w>]\s*\{|[(,]\s*\{", expression)
            if capturing or braced:
                line = text.count("\n", 0, match.start()) + 1
                yield f"{file}:{line}: name the temporary before co_await{expression.rstrip()}"


found = [line for root in sys.argv[1:] for line in violations(pathlib.Path(root))]
print("\n".join(found) or "No temporaries inside co_await expressions.")
sys.exit(bool(found))
