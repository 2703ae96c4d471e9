# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The program as a screen reader sees it: windows, named widgets, their values and actions."""

import contextlib
import functools
import os
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from .waiting import wait_for  # noqa: E402

# The library's newer names clash with those of other interfaces in Python; the older ones are the unambiguous ones.
warnings.filterwarnings("ignore", category=DeprecationWarning)

WINDOW_ROLES = ("frame", "dialog", "alert", "window")
_TABLE_ROLES = ("tree", "table", "tree table", "list")
_USED_ROLES = (*_TABLE_ROLES, "text", "password text", "combo box", "check box", "radio button", "push button",
               "spin button", "page tab")
# A slot that opens a window answers only when that window is gone; nothing waits for that.
_ANSWER_MS = 3000

State = Atspi.StateType


def connect():
    """Once, after the accessibility bus runs."""
    if Atspi.init() not in (0, 1):
        raise RuntimeError("the accessibility library finds no bus")
    Atspi.set_timeout(_ANSWER_MS, _ANSWER_MS)


class NotThereYet(LookupError):
    """A table has no such cell, or none any more: it is being filled."""


class Node:
    """A widget as the accessibility interface shows it. Everything but its role is read anew each time."""

    def __init__(self, accessible):
        self.accessible = accessible

    def __eq__(self, other):
        return isinstance(other, Node) and other.accessible == self.accessible

    def __hash__(self):
        return hash(self.accessible)

    def __repr__(self):
        try:
            return f"<{self.role} {self.label!r}>"
        except GLib.Error:
            return "<gone>"

    @functools.cached_property
    def role(self):
        return self.accessible.get_role_name()

    @property
    def name(self):
        return self.accessible.get_name()

    @property
    def description(self):
        return self.accessible.get_description()

    @property
    def label(self):
        """The name that identifies the widget. A drop-down's own name is its value, so the label beside it names it."""
        if self.role != "combo box":
            return self.name
        for relation in self.accessible.get_relation_set():
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
                return relation.get_target(0).get_name()
        return ""

    def has(self, state):
        return self.accessible.get_state_set().contains(state)

    @property
    def showing(self):
        states = self.accessible.get_state_set()
        return states.contains(State.SHOWING) and states.contains(State.VISIBLE)

    @property
    def enabled(self):
        return self.has(State.ENABLED)

    @property
    def focused(self):
        return self.has(State.FOCUSED)

    @property
    def checked(self):
        return self.has(State.CHECKED)

    @property
    def editable(self):
        return self.has(State.EDITABLE)

    @property
    def children(self):
        found = (self.accessible.get_child_at_index(i) for i in range(self.accessible.get_child_count()))
        return [Node(child) for child in found if child is not None]

    @property
    def text(self):
        """What an entry line holds, what a drop-down shows, what a label says; without marks of direction."""
        if "Text" in self.accessible.get_interfaces():
            return Atspi.Text.get_text(self.accessible, 0, -1).replace("\u200e", "")
        return self.name

    @property
    def number(self):
        """The number that an entry line shows; 0 for an empty one."""
        digits = self.text.translate(_TO_ASCII)
        return float(digits) if digits else 0.0

    @property
    def extents(self):
        """x, y, width and height on the screen."""
        box = Atspi.Component.get_extents(self.accessible, Atspi.CoordType.SCREEN)
        return box.x, box.y, box.width, box.height

    def set_text(self, text):
        if not Atspi.EditableText.set_text_contents(self.accessible, text):
            raise AssertionError(f"{self!r} takes no text")

    @property
    def actions(self):
        if "Action" not in self.accessible.get_interfaces():
            return []
        count = Atspi.Action.get_n_actions(self.accessible)
        return [Atspi.Action.get_action_name(self.accessible, i) for i in range(count)]

    def act(self, action):
        """Runs one of the widget's own actions: Press, Toggle, ShowMenu, SetFocus."""
        actions = self.actions
        if action not in actions:
            raise AssertionError(f"{self!r} has no action {action}, only {actions}")
        try:
            Atspi.Action.do_action(self.accessible, actions.index(action))
        except GLib.Error as error:
            if "reply" not in str(error):
                raise

    def descendants(self):
        """All descendants except the rows of tables, which are read by row and column. An open window has thousands."""
        for child in self.children:
            yield child
            if child.role not in _TABLE_ROLES:
                yield from child.descendants()

    def shown_descendants(self):
        """The same without what stands below something that does not show."""
        for child in self.children:
            yield child
            if child.role not in _TABLE_ROLES and child.accessible.get_child_count() and child.showing:
                yield from child.shown_descendants()

    # A table's own.

    @property
    def row_count(self):
        return Atspi.Table.get_n_rows(self.accessible)

    def headers(self):
        columns = Atspi.Table.get_n_columns(self.accessible)
        return [Atspi.Table.get_column_header(self.accessible, column).get_name() for column in range(columns)]

    def cell(self, row, column):
        """A cell as it is now; NotThereYet while the table has no such row."""
        accessible = Atspi.Table.get_accessible_at(self.accessible, row, column)
        if accessible is None:
            raise NotThereYet(f"cell {column} of row {row} in {self!r}")
        return Node(accessible)

    def row(self, row):
        """The texts of a row by the column titles, without the mark of the sorted one."""
        return self._while_still(lambda: self._row(row, self._titles()))

    def rows(self):
        """All rows of one filling: a table that is filled anew meanwhile is read again."""
        return self._while_still(lambda: [self._row(row, titles) for titles in [self._titles()]
                                          for row in range(self.row_count)])

    def texts(self, columns):
        """The same as lists of the first columns' texts."""
        return self._while_still(lambda: [[self.cell(row, column).name for column in range(columns)]
                                          for row in range(self.row_count)])

    def _titles(self):
        return [title.rstrip("*") for title in self.headers()]

    def _row(self, row, titles):
        return {title: self.cell(row, column).name for column, title in enumerate(titles)}

    def _while_still(self, read):
        def attempt():
            filling = Filling(self)
            found = read()
            return None if filling.over else (found,)
        return wait_for(attempt, lambda: f"{self!r} to hold still")[0]

    @property
    def selected_rows(self):
        return list(Atspi.Table.get_selected_rows(self.accessible))


_TO_ASCII = {ord(persian): str(digit) for digit, persian in enumerate("۰۱۲۳۴۵۶۷۸۹")}
_TO_ASCII |= {ord(arabic): str(digit) for digit, arabic in enumerate("٠١٢٣٤٥٦٧٨٩")}
_TO_ASCII |= {ord(separator): None for separator in ",،٬ \u200e\u200f\u2066\u2067\u2069"} | {ord("٫"): "."}


class Filling:
    """How a table is filled at one moment. Rows that are exchanged become other accessibles, so that a cell from before is gone."""

    def __init__(self, table):
        self._table = table
        self._cell = table.cell(0, 0) if table.row_count else None

    @property
    def over(self):
        """Whether the table has been filled anew since. One that was empty shows it by its first row only."""
        if self._cell is None:
            return self._table.row_count > 0
        try:
            return self._cell.has(State.DEFUNCT)
        except GLib.Error as error:
            # A program that is too busy to answer is no sign.
            if "reply" in error.message:
                raise
            return True


@contextlib.contextmanager
def filled_anew(table, what):
    """What is done in the with statement fills the table anew; ends when that has begun. An empty table must get rows."""
    filling = wait_for(lambda: Filling(table), f"{table!r} to hold still")
    yield
    wait_for(lambda: filling.over, lambda: f"{table!r} to be filled by {what}; it has {table.row_count} rows")


class ProgramGone(BaseException):
    """Nothing awaited can come any more."""


class Tree:
    """The windows of one running program."""

    def __init__(self, process_id):
        self._process_id = process_id
        self._application = None
        self._known = {}
        self._walked = {}  # by window: the widgets that its last search met

    def _find_application(self):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child is not None and child.get_process_id() == self._process_id:
                # The toolkit does not announce every change, so nothing may be remembered.
                child.set_cache_mask(Atspi.Cache.NONE)
                return child
        return None

    def windows(self):
        if not os.path.exists(f"/proc/{self._process_id}/fd/0"):
            raise ProgramGone("the program has ended by itself")
        if self._application is None:
            self._application = self._find_application()
        if self._application is None:
            return []
        return [node for node in Node(self._application).children if node.role in WINDOW_ROLES and node.showing]

    def window(self, title, *, seconds=20):
        """The visible window whose title is, or begins with, the given one."""
        def look():
            return next((node for node in self.windows() if node.name.startswith(title)), None)
        return wait_for(look, lambda: f"the window {title!r}; there are {self._titles()}", seconds=seconds)

    def no_window(self, title, *, seconds=20):
        wait_for(lambda: not any(node.name.startswith(title) for node in self.windows()),
                 f"the window {title!r} to go", seconds=seconds)

    def _titles(self):
        try:
            return [node.name for node in self.windows()]
        except GLib.Error:
            return []

    def look(self, role, name, window, description=None):
        """All visible widgets of that role and name. A widget known from before is checked, not searched; others are looked for
        among those that an earlier search of the window met before it is searched anew, which asks for thousands of widgets."""
        key = (window, role, name, description)
        known = self._known.get(key)
        if known and all(self._still(node, role, name) for node in known):
            return known
        found = self._among(self._walked.get(window, ()), role, name, description)
        if not found:
            self._walked[window] = list(window.shown_descendants())
            found = self._among(self._walked[window], role, name, description)
        self._known[key] = found
        return found

    @staticmethod
    def _among(nodes, role, name, description):
        found = []
        for node in nodes:
            try:
                if node.role == role and node.label == name and node.showing \
                        and (description is None or node.description == description):
                    found.append(node)
            except GLib.Error:
                continue  # gone since
        return found

    @staticmethod
    def _still(node, role, name):
        try:
            return node.showing and node.role == role and node.label == name
        except GLib.Error:
            return False

    def find(self, role, name, window, *, description=None, seconds=10):
        """The one visible widget of that role and name."""
        def look():
            found = self.look(role, name, window, description)
            if len(found) > 1:
                raise AssertionError(f"{len(found)} widgets are called {name!r}: a listener cannot tell them apart")
            return found[0] if found else None
        return wait_for(look, f"{role} {name!r} in {window!r}", seconds=seconds)

    def shows(self, role, name, window):
        return bool(self.look(role, name, window))

    def check_names(self, window):
        """Every widget that shows and can be used must have a name of its own, or a screen reader cannot tell it apart."""
        roles = {}
        for node in _used(window):
            roles.setdefault((node.role, node.label), []).append(node)
        wrong = [f"{len(nodes)} times {role} {name!r}" for (role, name), nodes in roles.items()
                 if not name.strip() or len(nodes) > 1]
        if wrong:
            raise AssertionError(f"{window!r} has {', '.join(wrong)}")

    def dump(self):
        """The whole tree as text, for the day when a journey fails."""
        lines = []
        try:
            for window in self.windows():
                _dump(window, 0, lines)
        except (ProgramGone, GLib.Error) as error:
            lines.append(f"({error})")
        return "\n".join(lines)


class FocusWatch:
    """Where the keyboard's focus is, as the program announces it."""

    def __init__(self):
        self.node = None
        self._listener = Atspi.EventListener.new(self._heard)
        self._listener.register("object:state-changed:focused")

    def _heard(self, event):
        if event.detail1:
            self.node = Node(event.source)

    def listen(self):
        """Processes what has been announced so far."""
        while GLib.MainContext.default().iteration(False):
            pass


def _used(node):
    """The widgets below a node that a person acts on; the parts of a compound one belong to it."""
    for child in node.children:
        if not child.showing:
            continue
        if child.role in _USED_ROLES:
            yield child
        elif child.role not in _TABLE_ROLES:
            yield from _used(child)


def _dump(node, depth, lines):
    try:
        states = [state.value_nick for state in node.accessible.get_state_set().get_states()]
        shown = [state for state in states if state in
                 ("active", "checked", "editable", "enabled", "focused", "selected", "showing")]
        role = node.role
        text = f" = {node.text!r}" if "Text" in node.accessible.get_interfaces() and role != "password text" else ""
        lines.append(f"{'  ' * depth}{role} {node.label!r}{text} {','.join(shown)}")
        if role in ("tree", "table"):
            for row in range(min(node.row_count, 20)):
                lines.append(f"{'  ' * (depth + 1)}{node.row(row)}")
            return
        for child in node.children:
            _dump(child, depth + 1, lines)
    except GLib.Error as error:
        lines.append(f"{'  ' * depth}(gone: {error.message})")
