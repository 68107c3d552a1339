# SPDX-License-Identifier: MIT

"""Makes a table in a test language out of the template with all keys.

Usage: make_test_language.py TEMPLATE.ts OUTPUT.ts LANGUAGE

Every text is accented, about 35 % longer and stands in brackets, so that a text which is not
looked up, is put together from pieces or is cut off shows. LANGUAGE is "en_XA", or "ar_XB" for
the same from right to left.
"""
import re
import sys
import xml.etree.ElementTree as ElementTree

# The forms that lrelease expects of the language.
PLURAL_FORMS = {"en_XA": 2, "ar_XB": 6}
ACCENTED = str.maketrans("aceghijklnorstuwyzACEGHIJKLNORSTUWYZ",
                         "åçéĝĥîĵķļñöŕšţûŵýžÅÇÉĜĤÎĴĶĻÑÖŔŠŢÛŴÝŽ")
GROWTH = 0.35
PLACEHOLDER = re.compile(r"(%@|%lld)")
RIGHT_TO_LEFT, POP = "\u202e", "\u202c"


def lengthened(word, surplus):
    """The word with vowels doubled; surplus carries what the words before are still owed."""
    surplus += len(word) * GROWTH
    longer = ""
    for character in word:
        longer += character
        if surplus >= 1 and character in "aeiouAEIOU":
            longer += character.lower()
            surplus -= 1
    return longer, surplus


def pseudo(text, reverses):
    surplus = 0.0
    words = []
    for word in text.split(" "):
        pieces = []
        for piece in PLACEHOLDER.split(word):
            if piece and not PLACEHOLDER.fullmatch(piece):
                piece, surplus = lengthened(piece, surplus)
                piece = piece.translate(ACCENTED)
                piece = RIGHT_TO_LEFT + piece + POP if reverses else piece
            pieces.append(piece)
        words.append("".join(pieces))
    return "⟦" + " ".join(words) + "~" * round(max(surplus, 0)) + "⟧"


def fill(message, language):
    translation = message.find("translation")
    translation.attrib.pop("type", None)
    text = pseudo(message.findtext("source"), language == "ar_XB")
    if message.get("numerus") != "yes":
        translation.text = text
        return
    for form in list(translation):
        translation.remove(form)
    for _ in range(PLURAL_FORMS[language]):
        ElementTree.SubElement(translation, "numerusform").text = text


def main(template, output, language):
    tree = ElementTree.parse(template)
    root = tree.getroot()
    root.set("language", language)
    for context in list(root):
        if context.findtext("name") != "Trovell":
            root.remove(context)  # Bare numbers do: the sentence around them is marked.
            continue
        for message in context.iter("message"):
            fill(message, language)
    tree.write(output, encoding="utf-8", xml_declaration=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
