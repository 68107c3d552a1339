# SPDX-License-Identifier: MIT

"""Tests of check_words.py and of the tools it builds on: each check meets what it is for."""
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import check_words  # noqa: E402
import extract_keys  # noqa: E402
import make_test_language  # noqa: E402


def keys_in(source):
    return [literal.text for literal in extract_keys.literals(source)
            if literal.suffix == "_key"]


def message(key, translation):
    if isinstance(translation, str):
        return f"<message><source>{key}</source><translation>{translation}</translation></message>"
    forms = "".join(f"<numerusform>{form}</numerusform>" for form in translation)
    return (f'<message numerus="yes"><source>{key}</source>'
            f"<translation>{forms}</translation></message>")


def table(folder, translations):
    body = "".join(message(*entry) for entry in translations.items())
    file = pathlib.Path(folder) / "trovell_xx.ts"
    file.write_text(f'<TS language="xx"><context><name>Trovell</name>{body}</context></TS>')
    return file


class Collecting(unittest.TestCase):
    def test_literals_with_the_suffix(self):
        source = r'''
            // u"in a comment"_key
            words.text(u"Save Layout"_key); /* u"in another"_key */
            const auto tall = isTall ? u"\"Tall\" \\ \u2026"_key : u"x"_s;
            render(u"two "
                   // with a comment between
                   "lines"_key, 1'000'000, '"', R"(raw "text)", "bytes");
            consteval auto operator""_key();
        '''
        self.assertEqual(keys_in(source), ["Save Layout", '"Tall" \\ …', "two lines"])

    def test_keys_that_cannot_be_read_are_refused(self):
        for source in ('u"text" _key', 'R"(raw)"_key', 'MACRO _key', r'u"\0"_key'):
            with self.subTest(source), self.assertRaises(extract_keys.UnreadableKey):
                keys_in(source)


class Sources(unittest.TestCase):
    def test_texts_without_a_key(self):
        source = '''u"Items"_key; u"Forgotten"_s; QStringLiteral("two words"); u"Trovell"_s;
                    u"gearshape"_s; u" • "_s; u":/trovell/symbols/"_s; sql("SELECT one");'''
        for name, count in (("views/a.cpp", 2), ("model/a.cpp", 1)):
            found = list(check_words.texts_without_key(name, source))
            self.assertEqual(len(found), count, found)


class Tables(unittest.TestCase):
    KEYS = {"%@ of %lld": [], "%lld": [], "%@ • %@": [], "Plain": []}

    def problems(self, messages):
        expected = {message[:3] for message in extract_keys.messages_of(self.KEYS)}
        with tempfile.TemporaryDirectory() as folder:
            return list(check_words.table_problems(table(folder, messages), expected))

    def test_what_fits(self):
        self.assertEqual(self.problems({"%@ of %lld": ["%2$lld: %1$@", "%2$@: %1$@"],
                                        "%@ • %@": "%2$@ • %1$@", "Plain": "Einfach"}), [])

    def test_what_does_not(self):
        for messages in ({"%@ of %lld": ["%lld"]}, {"%@ of %lld": ["%lld of %@"]},
                         {"%@ • %@": "%1$@ • %1$@"}, {"Plain": "%@"}, {"Unknown": "x"},
                         {"%lld": ["%lld", ""]}, {"Plain": ["x"]}, {"%lld": ["%lld", "%@%@"]}):
            with self.subTest(messages):
                self.assertEqual(len(self.problems(messages)), 1)


class TestLanguage(unittest.TestCase):
    def test_texts_grow_by_a_third_and_keep_their_placeholders(self):
        key = "Completed %lld actions. Review %lld items of %@."
        text = make_test_language.pseudo(key, reverses=False)
        self.assertEqual(check_words.placeholders(text), check_words.placeholders(key))
        self.assertTrue(1.25 < len(text) / len(key) < 1.45, text)


if __name__ == "__main__":
    unittest.main()
