# SPDX-License-Identifier: MIT

"""Collects the localisation keys of the sources.

Usage: extract_keys.py SOURCE_ROOT OUTPUT.cpp

A key is a literal with the suffix _key, which lupdate does not know. The keys are written as a file
that it reads: one context, a key with one number as a message with plural forms, and for each
number of a key with several a phrase in a context of its own (see views/words/TranslationTables.h).
The file stays untouched when nothing has changed.
"""
import pathlib
import re
import sys
from typing import NamedTuple

CONTEXT = "Trovell"
TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<raw>(?:u8|u|U|L)?R"(?P<mark>[^()\s\\]*)\(.*?\)(?P=mark)"\w*)
      | (?P<prefix>u8|u|U|L)?"(?P<string>(?:\\.|[^"\\\n])*)"(?P<suffix>\w*)
      | (?P<number>\d[\w']*)
      | (?P<character>(?:u8|u|U|L)?'(?:\\.|[^'\\\n])+')
      | (?P<word>\w+)
      | (?P<sign>\S)""",
    re.DOTALL | re.VERBOSE)
ESCAPE = re.compile(r"\\(u[0-9a-fA-F]{4}|x[0-9a-fA-F]+|.)", re.DOTALL)
PLACEHOLDER = re.compile(r"%(?:([1-9])\$)?(@|lld)")


class UnreadableKey(Exception):
    pass


def unescaped(literal):
    def character(match):
        code = match.group(1)
        if code[0] in "ux" and len(code) > 1:
            return chr(int(code[1:], 16))
        if code in 'nt"\\\'':
            return {"n": "\n", "t": "\t"}.get(code, code)
        raise UnreadableKey(f"escape \\{code}")
    return ESCAPE.sub(character, literal)


class Literal(NamedTuple):
    text: str
    suffix: str
    line: int
    is_text: bool  # Not of bytes: u"…" or within QStringLiteral.


def literals(source):
    """Yields all ordinary string literals, neighbours put together."""
    def line():
        return source.count("\n", 0, token.start()) + 1

    pieces, is_text, start, before = [], False, 0, ["", ""]
    for token in TOKEN.finditer(source):
        if token.group("comment"):
            continue
        if token.group("string") is not None and before[1] != "operator":
            start = start if pieces else line()
            is_text = is_text or token.group("prefix") == "u" or before == ["QStringLiteral", "("]
            pieces.append(token.group("string"))
            if not token.group("suffix"):
                continue
        if pieces:
            yield Literal(unescaped("".join(pieces)), token.group("suffix") or "", start, is_text)
            pieces, is_text = [], False
        if token.group("word") == "_key" or (token.group("raw") or "").endswith("_key"):
            raise UnreadableKey(f"line {line()}: _key must follow an ordinary literal directly")
        before = [before[1], token.group()]


def keys_of(root):
    """Key → the files that use it, in a stable order."""
    keys = {}
    for file in sorted(root.rglob("*")):
        if file.suffix not in {".h", ".cpp"}:
            continue
        name = file.relative_to(root).as_posix()
        try:
            for literal in literals(file.read_text(encoding="utf-8")):
                if literal.suffix == "_key":
                    keys.setdefault(literal.text, {})[name] = True
        except UnreadableKey as problem:
            raise UnreadableKey(f"{name}: {problem}") from problem
    return {key: list(keys[key]) for key in sorted(keys)}


def number_positions(key):
    kinds = [match.group(2) for match in PLACEHOLDER.finditer(key)]
    return [position for position, kind in enumerate(kinds, 1) if kind == "lld"]


def messages_of(keys):
    """Yields (context, key, has plural forms, files)."""
    for key, files in keys.items():
        numbers = number_positions(key)
        yield CONTEXT, key, len(numbers) == 1, files
        if len(numbers) > 1:
            for position in numbers:
                yield f"{CONTEXT}, number {position}", key, True, files


def quoted(text):
    for character, escape in (("\\", "\\\\"), ('"', '\\"'), ("\n", "\\n"), ("\t", "\\t")):
        text = text.replace(character, escape)
    return f'"{text}"'


def main(root, output):
    lines = ["// Made by tools/words/extract_keys.py."]
    for context, key, has_plural, files in messages_of(keys_of(root)):
        macro = "QT_TRANSLATE_N_NOOP" if has_plural else "QT_TRANSLATE_NOOP"
        lines.append(f"//: {', '.join(files)}")
        lines.append(f"{macro}({quoted(context)}, {quoted(key)});")
    text = "\n".join(lines) + "\n"
    if not output.exists() or output.read_text(encoding="utf-8") != text:
        output.parent.mkdir(parents=True, exist_ok=True)
        output.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    try:
        main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]))
    except UnreadableKey as unreadable:
        sys.exit(str(unreadable))
