#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""desktop_files_test.py BIN_FOLDER VERSION: hunts what desktops, shells and readers of the manual would stumble over:
files that their tools refuse, and options, versions and kinds of file of which one place knows and another does not."""

import configparser
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

TOP = pathlib.Path(__file__).parents[2]
RESOURCES = TOP / "resources"
PROGRAMS = ("zib", "zib-catalogue")
BIN, VERSION = pathlib.Path(sys.argv[1]), sys.argv[2]


class DesktopFiles(unittest.TestCase):
    def accepted(self, *command, **environment):
        """What the command prints, which is to succeed and to have nothing to say against its input."""
        with tempfile.TemporaryDirectory() as home:
            done = subprocess.run(
                [str(part) for part in command], text=True, capture_output=True, timeout=60, check=False,
                env=os.environ | {"HOME": home, "XDG_RUNTIME_DIR": home, "LC_ALL": "C.UTF-8"} | environment)
        self.assertEqual((done.returncode, done.stderr.strip()), (0, ""), done.stdout)
        return done.stdout

    def options(self, program):
        text = self.accepted(BIN / program, "--help", QT_QPA_PLATFORM="offscreen")
        return set(re.findall(r"^ +(?:-\w, )?--([a-z-]+)", text, re.MULTILINE))

    def desktop_entry(self):
        entry = configparser.ConfigParser(interpolation=None)
        entry.optionxform = str
        entry.read(RESOURCES / "zib.desktop")
        return entry

    def test_the_desktops_tools_accept_the_entry_and_the_description(self):
        self.assertEqual(self.accepted("desktop-file-validate", "--warn-kde", RESOURCES / "zib.desktop"), "")
        self.accepted("appstreamcli", "validate", "--no-net", RESOURCES / "zib.metainfo.xml")

    def test_entry_and_description_offer_the_same(self):
        component = xml.etree.ElementTree.parse(RESOURCES / "zib.metainfo.xml").getroot()
        entry = self.desktop_entry()
        provided = [kind.text for kind in component.findall("provides/mediatype")]
        self.assertEqual(entry["Desktop Entry"]["MimeType"].rstrip(";").split(";"), provided)
        self.assertEqual(component.find("releases/release").get("version"), VERSION)
        names = entry["Desktop Entry"]["Actions"].rstrip(";").split(";")
        self.assertEqual({entry[f"Desktop Action {name}"]["Exec"] for name in names},
                         {f"zib --{name}" for name in names})
        self.assertLessEqual(set(names), self.options("zib"))

    def test_manual_and_completions_know_the_options(self):
        for program in PROGRAMS:
            options = self.options(program)
            manual = (RESOURCES / "man" / f"{program}.1").read_text().replace("\\-", "-")
            patterns = {"bash": r"--([a-z-]+)", "zsh": r"--([a-z-]+)", "fish": r" -l ([a-z-]+)"}
            told = {shell: (RESOURCES / "completion" / f"{program}.{shell}").read_text() for shell in patterns}
            found = {shell: set(re.findall(patterns[shell], text)) for shell, text in told.items()}
            found["manual"] = set(re.findall(r"^\.B.*--([a-z-]+)", manual.split(".SH OPTIONS")[1].split(".SH")[0],
                                             re.MULTILINE))
            for place, known in found.items():
                with self.subTest(program=program, place=place):
                    self.assertEqual(known, options)

    def test_the_manual_is_sound(self):
        for program in PROGRAMS:
            page = RESOURCES / "man" / f"{program}.1"
            with self.subTest(program=program):
                self.accepted("man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", page, MANWIDTH="80")
                self.assertEqual(self.accepted("mandoc", "-T", "lint", "-W", "style", page), "")
                self.assertIn(f'"Zib {VERSION}"', page.read_text())

    def test_the_shells_complete(self):
        for program in PROGRAMS:
            for shell in ("zsh", "fish"):
                self.accepted(shell, "-n", RESOURCES / "completion" / f"{program}.{shell}")
            offered = self.accepted("bash", "-c", f"""
                . /usr/share/bash-completion/bash_completion
                . "{RESOURCES}/completion/{program}.bash"
                COMP_WORDS=({program} --) COMP_CWORD=1 COMP_LINE="{program} --" COMP_POINT={len(program) + 3}
                $(complete -p {program} | sed 's/.*-F \\([^ ]*\\).*/\\1/')
                printf '%s\\n' "${{COMPREPLY[@]}}" """)
            self.assertEqual({word.removeprefix("--") for word in offered.split()}, self.options(program))

    def test_the_service_manager_accepts_the_unit(self):
        with tempfile.TemporaryDirectory() as folder:
            unit = pathlib.Path(folder) / "zib-catalogue.service"
            text = (RESOURCES / unit.name).read_text()
            unit.write_text(text.replace("ExecStart=zib-catalogue", f"ExecStart={BIN}/zib-catalogue"))
            self.accepted("systemd-analyze", "verify", "--user", "--man=no", unit)
            self.accepted("systemd-analyze", "security", "--user", "--offline=yes", "--threshold=30", unit)

    def test_icons_are_painted_in_every_size(self):
        for icon in ("zib.svg", "zib-symbolic.svg"):
            for size in (16, 512):
                painted = self.accepted("sh", "-c", f"rsvg-convert -w {size} {RESOURCES}/{icon} |"
                                        "identify -format '%w %h %[fx:mean.a>0.2]' -")
                self.assertEqual(painted, f"{size} {size} 1", icon)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
