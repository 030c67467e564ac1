# SPDX-License-Identifier: GPL-3.0-or-later
"""Every window as somebody uses it who does not see it, or has no mouse."""

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from environment import wait_until  # noqa: E402

ROLE = Atspi.Role
# What somebody works with, and so has to be told what it is.
CONTROLS = {ROLE.PUSH_BUTTON, ROLE.CHECK_BOX, ROLE.RADIO_BUTTON, ROLE.TOGGLE_BUTTON, ROLE.SLIDER, ROLE.TEXT, ROLE.ENTRY,
            ROLE.TABLE, ROLE.TREE, ROLE.LIST, ROLE.COMBO_BOX, ROLE.SPIN_BUTTON, ROLE.MENU_ITEM, ROLE.PAGE_TAB, ROLE.LINK,
            ROLE.CHECK_MENU_ITEM, ROLE.RADIO_MENU_ITEM, ROLE.PASSWORD_TEXT}
ROWS = {ROLE.TABLE, ROLE.TREE_TABLE, ROLE.TREE, ROLE.LIST}
SOURCES = ("Now Playing", "Music", "Downloads", "Imported", "Favorites")
MOST_CONTROLS = 60  # of one window


class AccessibilitySteps:
    """Steps over `self.user` and `self.environment`; the program runs, with songs and a playlist."""

    STEPS = ("accessibility",)

    def accessibility(self):
        seen = 0
        for source in SOURCES:
            self.user.choose("Sources", source)
            seen += self.check_names(f"the window with {source}")
        self.user.choose("Sources", "Music")
        wait_until(lambda: self.user.rows("Songs"), 10, "songs")
        self.user.click(self.user.cell("Songs", 0))
        self.check_sentence()
        windows = {"song information": lambda: self.user.press("ctrl+i"), "preferences": lambda: self.user.press("ctrl+comma"),
                   "about": self.open_about,
                   "an alert": self.ask_to_remove, "add to library": lambda: self.user.press("ctrl+o")}
        for name, opens in windows.items():
            before = len(self.user.windows())
            opens()
            wait_until(lambda count=before: len(self.user.windows()) > count, 10, f"the window “{name}”")
            own = name != "add to library"  # which is the toolkit's
            seen += self.check_names(name, own)
            if own:
                self.check_keyboard(name)
            self.user.press("Escape")
            wait_until(lambda count=before: len(self.user.windows()) <= count, 10, f"“{name}” to close")
        self.user.click(self.user.wait_for("Search"))
        reached = self.check_keyboard("the main window")
        return f"{seen} controls have names, {reached} reached with the Tab key in the main window"

    def open_about(self):
        self.user.click(self.user.wait_for("Menu"))
        self.user.press("Up", "Up", "Up", "Return")  # over "Quit" and "Close window"

    def ask_to_remove(self):
        self.user.click(self.user.cell("Songs", 0))
        self.user.press("Delete")

    def check_names(self, where, own=True):
        """No control without a name and a role; returns how many were seen."""
        faults, seen = [], 0
        for window in self.user.windows():
            for control, above in shown_controls(window):
                role = control.get_role()
                if own and role in (ROLE.INVALID, ROLE.UNKNOWN):
                    faults.append(f"no role: “{control.get_name()}” in {above}")
                if role in CONTROLS:
                    seen += 1
                    if not (control.get_name() or "").strip() and not control.get_relation_set():
                        faults.append(f"no name: {control.get_role_name()} in {above}")
        assert not faults, f"{where}: " + "; ".join(faults)
        assert seen, f"{where}: no controls"
        return seen

    def check_sentence(self):
        cell = self.user.cell("Songs", 0)
        artist, album = (self.user.cell("Songs", 0, column).get_name() for column in ("Artist", "Album"))
        sentence = cell.get_description()
        for part in (cell.get_name(), f"by {artist}", f"from {album}", "second"):
            assert part in sentence, f"“{part}” is missing in “{sentence}”"

    def check_keyboard(self, where):
        """The Tab key reaches all that takes the keyboard, and where it is can be seen; returns how many."""
        window = self.user.active_window()
        wanted = {key_of(control): control for control, _ in shown_controls(window) if wants_keyboard(control)}
        reached, unseen, before = {}, [], None
        if focused_in(window) is None:  # where nothing waits to be pressed, the key leads in
            self.user.press("Tab")
        for _ in range(MOST_CONTROLS):
            focused = wait_until(lambda: focused_in(window), 5, f"the keyboard in {where}")
            key, box = key_of(focused), self.user.extents(focused)
            if before is not None and before[0] != key and self.environment.pixels(before[1]) == before[2]:
                unseen.append(before[0])
            if key in reached:
                break
            reached[key] = focused
            before = key, box, self.environment.pixels(box)
            self.user.press("Tab")
            wait_until(lambda last=key: (at := focused_in(window)) is not None and key_of(at) != last or len(wanted) < 2, 5,
                       f"the keyboard to leave {key} in {where}")
        missed = [key for key in wanted if key not in reached]
        assert not missed, f"{where}: the Tab key does not reach {missed}"
        assert not unseen, f"{where}: nobody sees the keyboard in {unseen}"
        return len(reached)


def shown_controls(window, above=""):
    """Each showing control and what it stands in; not the rows of tables and lists, which are one place."""
    for i in range(window.get_child_count()):
        try:
            control = window.get_child_at_index(i)
            if control is None or not control.get_state_set().contains(Atspi.StateType.SHOWING):
                continue
            yield control, above or window.get_name()
            if control.get_role() not in ROWS:
                yield from shown_controls(control, control.get_name() or above)
        except GLib.Error:
            continue  # went away while it was looked at


def key_of(control):
    return f"{control.get_role_name()} “{control.get_name()}”"


def wants_keyboard(control):
    states = control.get_state_set()
    return (control.get_role() in CONTROLS and control.get_role() not in (ROLE.MENU_ITEM, ROLE.LINK)
            and all(states.contains(state) for state in (Atspi.StateType.FOCUSABLE, Atspi.StateType.ENABLED))
            # The arrows lead through a group; its checked one is what the Tab key leads to.
            and (control.get_role() != ROLE.RADIO_BUTTON or states.contains(Atspi.StateType.CHECKED)))


def focused_in(window):
    return next((control for control, _ in shown_controls(window)
                 if control.get_state_set().contains(Atspi.StateType.FOCUSED) and control.get_role() in CONTROLS), None)
