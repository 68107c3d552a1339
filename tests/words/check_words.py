# SPDX-License-Identifier: MIT

"""Checks the words of the interface: that all of them are looked up and that the tables fit.

Usage: check_words.py TREE TRANSLATION_BUILD_FOLDER
"""
import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools/words"))
from extract_keys import (CONTEXT, PLACEHOLDER, UnreadableKey, keys_of,  # noqa: E402
                          literals, messages_of)

# Words that are no text of the interface: the name of the product and what is stored.
NOT_LOOKED_UP = {"Trovell", " Copy", " Variant", "My Workspace"}
SENTENCE = re.compile(r"[^\W\d_][,.;:]? [^\W\d_]")
WORD = re.compile(r"^\s*[A-Z][a-z]+[^A-Z/]*$")


def source_files(root):
    for file in sorted(root.rglob("*")):
        if file.suffix in {".h", ".cpp"}:
            yield file, file.relative_to(root).as_posix()


def texts_without_key(name, source):
    """Literals that people would read: of several words, and in views of one that looks like it."""
    for literal in literals(source):
        is_shown = SENTENCE.search(literal.text) or \
            name.startswith("views/") and WORD.match(literal.text)
        if literal.is_text and literal.suffix != "_key" and is_shown \
                and literal.text not in NOT_LOOKED_UP:
            yield f"{name}:{literal.line}: \"{literal.text}\" is not looked up: use _key"


def messages_in(table):
    """Yields (context, key, has plural forms, finished translations) of a table."""
    for context in ElementTree.parse(table).getroot().iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            if translation.get("type") in ("vanished", "obsolete"):
                continue
            has_plural = message.get("numerus") == "yes"
            forms = [form.text or "" for form in translation.iter("numerusform")] \
                if has_plural else [translation.text or ""]
            yield (context.findtext("name"), message.findtext("source"), has_plural,
                   [] if translation.get("type") == "unfinished" else forms)


def placeholders(text):
    """(position, kind) of every placeholder, in order of position."""
    found, following = [], 1
    for match in PLACEHOLDER.finditer(text):
        found.append((int(match.group(1) or following), match.group(2)))
        following += match.group(1) is None
    return sorted(found)


def placeholder_problem(context, key, translation):
    expected = placeholders(key) if context == CONTEXT else [(1, "lld")]
    actual = placeholders(translation)
    if [position for position, _ in expected] != [position for position, _ in actual]:
        return "other placeholders than its key"
    # A number may be written as the text that its phrase makes of it.
    if any(kind == "@" and other == "lld" for (_, kind), (_, other) in zip(expected, actual)):
        return "a number in the place of a text"
    return None


def table_problems(table, messages):
    """`messages` are the (context, key, has plural forms) of the sources."""
    for context, key, has_plural, forms in messages_in(table):
        where = f"{table.name}: \"{key}\" ({context})"
        if (context, key, has_plural) not in messages:
            yield f"{where} is no key of the sources"
        for form in forms:
            problem = placeholder_problem(context, key, form) if form else "an empty translation"
            if problem:
                yield f"{where} has {problem}: \"{form}\""


def uncollected_keys(name, source):
    """Counts the suffix in another way than the collector does."""
    code = re.sub(r"//[^\n]*", "", source).replace('operator""_key', "")
    written = code.count('"_key')
    collected = sum(literal.suffix == "_key" for literal in literals(source))
    if written != collected:
        yield f"{name}: {written} keys, of which {collected} can be collected"


def problems(tree, build):
    root = tree / "src"
    keys = keys_of(root)
    messages = {message[:3] for message in messages_of(keys)}
    for file, name in source_files(root):
        source = file.read_text(encoding="utf-8")
        yield from uncollected_keys(name, source)
        if not name.startswith("views/style/"):
            yield from texts_without_key(name, source)
    template = {message[:3] for message in messages_in(build / "trovell_template.ts")}
    yield from (f"the template lacks {message}" for message in sorted(messages - template))
    for table in sorted((tree / "translations").glob("*.ts")) + sorted(build.glob("test/*.ts")):
        yield from table_problems(table, messages)


if __name__ == "__main__":
    try:
        found = list(problems(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])))
    except UnreadableKey as problem:
        found = [str(problem)]
    print("\n".join(found) or "All words are looked up and all tables fit.")
    sys.exit(bool(found))
