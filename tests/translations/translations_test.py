#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""translations_test.py LUPDATE: hunts texts that people would see in the wrong language or with a hole in them: texts that
the translations do not know, unfinished ones, forms of a number that are missing, placeholders and tags that were lost."""

import configparser
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

TOP = pathlib.Path(__file__).parents[2]
FOLDER = TOP / "translations"
LANGUAGES = ("de", "fr", "es")
LUPDATE = sys.argv[1]
HINT = "cmake --build --preset dev --target update_translations, then translate what is unfinished in translations/*.ts"
PLACEHOLDER = re.compile(r"%L?[n\d]+|%@|%\.\df|%[a-z]+|</?\w+[^>]*>|\*\.\w+|\n")
# A mark that ends a word and needs a space before it that does not break the line.
FRENCH_MARK = re.compile(r"[^\u00a0?!][:;?!](?=\s|$)|«(?!\u00a0)|(?<!\u00a0)»")


def messages(path):
    for context in xml.etree.ElementTree.parse(path).getroot().findall("context"):
        for message in context.findall("message"):
            yield context.findtext("name"), message.findtext("source"), message


def texts(message):
    """The translation, or all forms of it by number."""
    translation = message.find("translation")
    forms = translation.findall("numerusform")
    return [form.text or "" for form in forms] if forms else [translation.text or ""]


class Translations(unittest.TestCase):
    def test_the_translations_know_the_texts_of_the_program_and_no_others(self):
        with tempfile.TemporaryDirectory() as copy:
            for path in FOLDER.glob("*.ts"):
                shutil.copy(path, copy)
            subprocess.run([FOLDER / "update", LUPDATE, copy], check=True, timeout=60)
            for path in sorted(FOLDER.glob("*.ts")):
                known = {(context, source) for context, source, _ in messages(path)}
                wanted = {(context, source) for context, source, _ in messages(pathlib.Path(copy) / path.name)}
                with self.subTest(file=path.name):
                    self.assertEqual((wanted - known, known - wanted), (set(), set()), HINT)

    def test_every_text_is_translated_whole(self):
        for path in sorted(FOLDER.glob("*.ts")):
            for context, source, message in messages(path):
                with self.subTest(file=path.name, context=context, source=source):
                    self.assertIsNone(message.find("translation").get("type"), HINT)
                    for text in texts(message):
                        self.assertTrue(text, HINT)
                        self.assertEqual(sorted(PLACEHOLDER.findall(text)), sorted(PLACEHOLDER.findall(source)))
                        self.assertEqual(text, text.strip(" "))
                        if path.stem == "zib_fr":
                            self.assertIsNone(FRENCH_MARK.search(re.sub(r"<[^>]*>|&\w+;", "", text)), text)

    def test_words_in_templates_drawings_and_scripts_are_known(self):
        known = {(context, source) for context, source, _ in messages(FOLDER / "zib_de.ts")}
        for context, files in (("PageTemplates", TOP.glob("pages/templates/*")),
                               ("PageWords", [*TOP.glob("resources/pages/*.svg"), TOP / "resources/pages/js/fade.js"])):
            found = {(context, word) for path in files for word in re.findall(r"\{\{(.*?)\}\}", path.read_text())}
            self.assertEqual({pair for pair in known if pair[0] == context}, found)

    def test_desktops_and_software_centres_show_every_language(self):
        entry = configparser.ConfigParser(interpolation=None)
        entry.optionxform = str
        entry.read(TOP / "resources" / "zib.desktop")
        for group in entry.sections():
            shown = {"Name", "GenericName", "Comment", "Keywords"} & set(entry[group])
            for key in shown if group != "Desktop Entry" else shown - {"Name"}:
                for language in LANGUAGES:
                    self.assertIn(f"{key}[{language}]", entry[group], group)
        lang = "{http://www.w3.org/XML/1998/namespace}lang"
        root = xml.etree.ElementTree.parse(TOP / "resources" / "zib.metainfo.xml").getroot()
        for parent in root.iter():
            for tag in {"summary", "p", "li", "caption", "keyword"} & {child.tag for child in parent}:
                counts = {language: sum(child.get(lang) == language for child in parent.findall(tag))
                          for language in (None, *LANGUAGES)}
                self.assertEqual(len(set(counts.values())), 1, f"{parent.tag}/{tag}: {counts}")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
