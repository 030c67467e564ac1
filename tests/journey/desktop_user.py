# SPDX-License-Identifier: GPL-3.0-or-later
"""A person at the desktop: sees the window through its accessibility tree, acts with the mouse and the keyboard."""

import os
import subprocess

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from environment import wait_until  # noqa: E402


class DesktopUser:
    def __init__(self, environment):
        self._environment = environment
        # The accessibility library of this process is to look at the journey's own bus and display.
        for key in ("DBUS_SESSION_BUS_ADDRESS", "DISPLAY", "XDG_RUNTIME_DIR"):
            os.environ[key] = environment.env[key]
        Atspi.init()
        # A program that is busy for long is a fault that shows as a failed step, not as a hang here.
        Atspi.set_timeout(3000, 15000)
        self._name = None

    def look_at(self, program_name):
        self._name = program_name

    def _application(self):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(i)
            if application is not None and application.get_name() == self._name:
                return application
        return None

    def windows(self):
        """The showing windows of the program."""
        application = self._application()
        if application is None:  # yet
            return []
        all_windows = [application.get_child_at_index(i) for i in range(application.get_child_count())]
        return [one for one in all_windows if one is not None and one.get_state_set().contains(Atspi.StateType.SHOWING)]

    def active_window(self):
        return wait_until(lambda: next((one for one in self.windows()
                                        if one.get_state_set().contains(Atspi.StateType.ACTIVE)), None), 10, "an active window")

    @staticmethod
    def extents(control):
        return _extents(control)

    def find(self, name, role=None):
        """The showing control of that name, or none."""
        application = self._application()
        return _search(application, name, role, 12) if application is not None else None

    def wait_for(self, name, role=None, seconds=15):
        return wait_until(lambda: self.find(name, role), seconds, f"the control “{name}”")

    def find_on_page(self, words, starts=True, seconds=15):
        """What begins with these words on the page, or is called so; the page is scrolled to it."""
        return self._on_page(lambda: next((one for one in _parts(self._page())
                                           if (one.get_name() or "").startswith(words) and (starts or one.get_name() == words)),
                                          None), seconds, f"“{words}” on the page")

    def link_after(self, words, seconds=15):
        """The first link of the page behind these words."""
        def found():
            parts = list(_parts(self._page()))
            place = next((i for i, one in enumerate(parts) if one.get_name() == words), len(parts))
            return next((one for one in parts[place:] if one.get_role() == Atspi.Role.LINK), None)

        return self._on_page(found, seconds, f"a link behind “{words}”")

    def _page(self):
        return _search(self._application(), "", Atspi.Role.DOCUMENT_WEB, 16)

    def _on_page(self, find, seconds, what):
        def shown():
            try:
                found = find()
                if found is None:
                    return None
                box, pane = _extents(found), _extents(self._page().get_parent())
            except (GLib.Error, AttributeError):
                return None  # the page went away while it was looked at
            below = box.y + box.height > pane.y + pane.height
            if not below and box.y >= pane.y:
                return found
            self._xdotool("mousemove", str(pane.x + pane.width - 60), str(pane.y + pane.height // 2),
                          "click", "--repeat", "3", "5" if below else "4")
            return None

        return wait_until(shown, seconds, what)

    def text_of(self, name):
        control = self.wait_for(name)
        return Atspi.Text.get_text(control, 0, -1) if "Text" in control.get_interfaces() else ""

    def value_of(self, name):
        return round(Atspi.Value.get_current_value(self.wait_for(name)))

    def click(self, control, times=1, across=0.5):
        """Clicks into the control, at that fraction of its width."""
        box = _extents(control)
        x, y = int(box.x + box.width * across), box.y + box.height // 2
        self._xdotool("mousemove", str(x), str(y), "click", "--repeat", str(times), "--delay", "60", "1")

    def type(self, text):
        self._xdotool("type", "--delay", "15", text)

    def press(self, *keys):
        self._xdotool("key", *keys)

    def minimize(self):
        self._xdotool("search", "--onlyvisible", "--name", "^Zib$", "windowminimize", "%@")

    def sees_window(self, title):
        # It fails when it finds none.
        return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"], check=False, timeout=30,
                              env=self._environment.env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0

    def rows(self, table_name):
        table = self.wait_for(table_name)
        return Atspi.Table.get_n_rows(table)

    def cell(self, table_name, row, column="Name"):
        """The cell of a table in the column of that heading, or in the only one."""
        table = self.wait_for(table_name)
        return Atspi.Table.get_accessible_at(table, row, self._column(table, column))

    def heading(self, table_name, column):
        table = self.wait_for(table_name)
        return Atspi.Table.get_column_header(table, self._column(table, column))

    def texts(self, name, column="Name"):
        """What the rows of a table say in that column, or the rows of a list."""
        rows = self.wait_for(name)
        if rows.get_role() == Atspi.Role.TABLE:
            place = self._column(rows, column)
            cells = [Atspi.Table.get_accessible_at(rows, row, place) for row in range(Atspi.Table.get_n_rows(rows))]
        else:
            cells = [rows.get_child_at_index(i) for i in range(rows.get_child_count())]
        return [cell.get_name() for cell in cells if cell is not None]

    def selected(self, name, column="Name"):
        """What the first selected row of a table says in that column; none when no row is selected."""
        rows = self.wait_for(name)
        chosen = Atspi.Table.get_selected_rows(rows)
        return self.cell(name, chosen[0], column).get_name() if chosen else None

    def box(self, name):
        """Where the control is on the screen."""
        return _extents(self.wait_for(name))

    def choose(self, name, text):
        """Clicks the row of that text in a table or list."""
        row = wait_until(lambda: text in self.texts(name) and self.texts(name).index(text) + 1, 10,
                         f"“{text}” in “{name}”") - 1
        rows = self.wait_for(name)
        is_table = rows.get_role() == Atspi.Role.TABLE
        self.click(self.cell(name, row) if is_table else rows.get_child_at_index(row))

    def double_click_row(self, table_name, row):
        self.click(self.cell(table_name, row), times=2)

    def drag_row(self, table_name, row, below):
        """Drags a row to the lower half of another one."""
        self.drag(self.cell(table_name, row), self.cell(table_name, below), down=0.75)

    def pull(self, x, y, by):
        """Drags what is there to the right by so many pixels."""
        self._xdotool("mousemove", str(x), str(y), "mousedown", "1")
        for part in range(1, 5):
            self._xdotool("mousemove", str(x + by * part // 4), str(y))
        self._xdotool("mouseup", "1")

    def drag(self, control, target, down=0.5):
        """Drags one control onto another, to that fraction of its height."""
        start, end = _extents(control), _extents(target)
        x, y = start.x + start.width // 3, start.y + start.height // 2
        to_x, to_y = end.x + end.width // 3, int(end.y + end.height * down)
        self._xdotool("mousemove", str(x), str(y), "mousedown", "1")
        for part in range(1, 9):  # a drag begins, and its target is found, by moving
            self._xdotool("mousemove", str(x + (to_x - x) * part // 8), str(y + (to_y - y) * part // 8))
        self._xdotool("mousemove", str(to_x + 1), str(to_y), "mouseup", "1")

    @staticmethod
    def _column(table, heading):
        count = Atspi.Table.get_n_columns(table)
        titles = [Atspi.Table.get_column_description(table, column) for column in range(count)]
        return titles.index(heading) if count > 1 else 0

    def _xdotool(self, *arguments):
        self._environment.run(["xdotool", *arguments])


def _extents(control):
    return Atspi.Component.get_extents(control, Atspi.CoordType.SCREEN)


def _parts(control):
    """The control and all within it, in the order in which they are read."""
    if control is None:
        return
    yield control
    for i in range(control.get_child_count()):
        yield from _parts(control.get_child_at_index(i))


def _search(control, name, role, depth):
    try:
        if (control.get_name() == name and (role is None or control.get_role() == role)
                and control.get_state_set().contains(Atspi.StateType.SHOWING)):
            return control
        if depth == 0 or control.get_role() in (Atspi.Role.TABLE, Atspi.Role.LIST, Atspi.Role.TREE):
            return None
        for i in range(control.get_child_count()):
            child = control.get_child_at_index(i)
            found = _search(child, name, role, depth - 1) if child is not None else None
            if found is not None:
                return found
    except GLib.Error:
        pass  # the control went away while it was looked at
    return None
