# SPDX-License-Identifier: GPL-3.0-or-later
"""The program in another language than the rest of the journey: no English is left in its windows."""

import pathlib
import xml.etree.ElementTree

from accessibility_steps import shown_controls
from environment import wait_until

TRANSLATIONS = pathlib.Path(__file__).parents[2] / "translations"


class LanguageSteps:
    """Steps over `self.user`, `self.environment`, `self.output`, `self.library()`, `self.end()` and `self.launch()`; the program
    runs, with a search of several songs."""

    STEPS = ("translated",)

    def translated(self):
        self.end()
        english = untranslated("de")
        self.environment.env["LANGUAGE"] = "de"
        try:
            self.launch()
            seen = self.in_german(english)
        finally:
            del self.environment.env["LANGUAGE"]
            self.end()
            self.launch()
        return f"{seen} German texts"

    def in_german(self, english):
        self.user.choose("Quellen", self.library()["Recent Searches"][0]["Name"])
        count = wait_until(lambda: self.user.rows("Songs"), 15, "songs")
        shown = lambda: self.user.text_of("Zu den gezeigten Songs oder zum Link")
        wait_until(lambda: shown().startswith(f"{count} Songs, "), 5, f"“{count} Songs” instead of “{shown()}”")
        self.user.press("ctrl+shift+f")
        self.user.type(self.user.texts("Songs", "Name")[0])
        wait_until(lambda: shown().startswith("1 Song, "), 5, f"“1 Song” instead of “{shown()}”")
        self.user.press("Escape")
        seen = self.check_language("the window", english)
        self.user.click(self.user.wait_for("Menü"))
        self.environment.screenshot(self.output / "german-menu.png")
        self.user.press("Up", "Up", "Up", "Return")
        self.user.wait_for("Gebaut mit")
        seen += self.check_language("the window about Zib", english)
        self.user.press("Escape", "ctrl+i")
        self.user.wait_for("Komponist")
        seen += self.check_language("the song information", english)
        self.user.press("Escape", "ctrl+comma")
        self.user.wait_for("Musikordner")
        seen += self.check_language("the preferences", english)
        self.user.press("Escape", "ctrl+o")
        self.user.wait_for("Hinzufügen")
        self.user.wait_for("Abbrechen")  # the toolkit's own
        self.user.press("Escape")
        self.user.choose("Quellen", "Aktuelle Wiedergabe")
        self.user.find_on_page("Oder ein Tag probieren:")
        return seen

    def check_language(self, where, english):
        """No showing control says what the German translation says otherwise; returns how many said something."""
        self.environment.screenshot(self.output / f"german-{where.split()[-1]}.png")
        said = [text for window in self.user.windows() for control, _ in shown_controls(window)
                for text in (control.get_name(), control.get_description()) if text]
        left = [text for text in said if text in english]
        assert not left, f"English in {where}: {left}"
        return len(said)


def untranslated(language):
    """The English texts that read differently in that language."""
    path = TRANSLATIONS / f"zib_{language}.ts"
    words = {}
    for message in xml.etree.ElementTree.parse(path).getroot().iter("message"):
        words.setdefault(message.findtext("source"), set()).add(message.findtext("translation").strip())
    return {source for source, texts in words.items() if source not in texts}
