# SPDX-License-Identifier: MIT

"""Checks the words of the interface: that all of them are looked up and that the tables fit.

Usage: check_words.py TREE TRANSLATION_BUILD_FOLDER
"""
import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools/words"))
from extract_keys import (CONTEXT, PLACEHOLDER, UnreadableKey, is_piece,  # noqa: E402
                          is_sentence, keys_of, literals, messages_of)

# What English says in other words than the keys, and nothing else.
ENGLISH = {
    "Your Mac, ready in one click.": "Your desktop, ready in one click.",
    "Your workspace stays on your Mac.": "Your workspace stays on this computer.",
    "Workspace data stays on this Mac": "Workspace data stays on this computer",
    "Shortcuts use Control–Option and work globally without Input Monitoring.":
        "Shortcuts use Ctrl–Alt and work globally without Input Monitoring.",
    "macOS could not open %@.": "The system could not open %@.",
    "macOS refused the window position change.":
        "The system refused the window position change.",
    **{f"⌃⌥{digit}": f"Ctrl+Alt+{digit}" for digit in range(1, 6)},
}
# Words in views that are no text of the interface: the name of the product and what is stored.
NOT_LOOKED_UP = {"Trovell", " Copy", " Variant", "My Workspace"}
WORD = re.compile(r"^\s*[A-Z][a-z]+[^A-Z/]*$")


def source_files(root, folders):
    for folder in folders:
        for file in sorted((root / folder).rglob("*")):
            if file.suffix in {".h", ".cpp"}:
                yield file, file.relative_to(root).as_posix()


def unregistered_patterns(name, source, keys):
    """Texts of the logic that a value is put into, without a key for the whole."""
    for literal in literals(source):
        pattern = re.sub(r"%\d", "%@", literal.text)
        if is_sentence(literal) and is_piece(literal.text) \
                and not any(pattern in key for key in keys):
            yield (f"{name}:{literal.line}: \"{literal.text}\" is part of no pattern in "
                   "views/words/LogicTexts.h")


def texts_not_looked_up(name, source):
    for literal in literals(source):
        if literal.is_text and literal.suffix != "_key" and literal.text not in NOT_LOOKED_UP \
                and (is_sentence(literal) or WORD.match(literal.text)):
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


def english_problems(table):
    actual = {key: forms[0] for _, key, _, forms in messages_in(table) if forms}
    for key in sorted(ENGLISH.keys() | actual.keys()):
        if ENGLISH.get(key) != actual.get(key):
            yield f"{table.name}: \"{key}\" reads \"{actual.get(key)}\", not \"{ENGLISH.get(key)}\""


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
    logic = sorted(folder.name for folder in root.iterdir() if folder.name != "views")
    views = sorted(folder.name for folder in (root / "views").iterdir()
                   if folder.is_dir() and folder.name not in ("style", "words"))
    for file, name in source_files(root, logic):
        yield from unregistered_patterns(name, file.read_text(encoding="utf-8"), keys)
    for file, name in source_files(root / "views", views):
        yield from texts_not_looked_up(name, file.read_text(encoding="utf-8"))
    for file, name in source_files(root, ["."]):
        yield from uncollected_keys(name, file.read_text(encoding="utf-8"))
    template = {message[:3] for message in messages_in(build / "trovell_template.ts")}
    yield from (f"the template lacks {message}" for message in sorted(messages - template))
    for table in sorted((tree / "translations").glob("*.ts")) + sorted(build.glob("test/*.ts")):
        yield from table_problems(table, messages)
    yield from english_problems(tree / "translations/trovell_en.ts")


if __name__ == "__main__":
    try:
        found = list(problems(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])))
    except UnreadableKey as problem:
        found = [str(problem)]
    print("\n".join(found) or "All words are looked up and all tables fit.")
    sys.exit(bool(found))
