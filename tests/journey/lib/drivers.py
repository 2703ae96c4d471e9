# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Three ways to do the same work: through the accessibility interface alone, with the keyboard alone, with the mouse.

All three see through the accessibility tree; they differ in how they act.
"""

from .tree import WINDOW_ROLES, Atspi, FocusWatch, GLib, Node, State
from .waiting import TimeRanOut, wait_for

ENTRY_ROLES = ("text", "password text")
_TOP_ROLES = (*WINDOW_ROLES, "popup menu", "application")


class Driver:
    """What the three have in common. A window is given as the node that Tree.window returns.

    bring_forward(window) brings a window before those of another program; None where the program has the screen for itself and its
    windows must come forward by themselves.
    """

    def __init__(self, tree, input_devices, bring_forward=None):
        self.tree = tree
        self.input = input_devices
        self._bring_forward = bring_forward

    def ready(self, window):
        """Waits until the window gets the screen's keys, so that the one before is gone."""
        wait_for(lambda: self._is_ready(window),
                 lambda: f"{window!r} to take the keys, which {self.input.window_with_keys()!r} takes")

    def _is_ready(self, window):
        if self.input.window_with_keys() == window.name and window.has(State.ACTIVE):
            return True
        # The other program may come forward itself at any moment, so that once is not enough.
        if self._bring_forward:
            self._bring_forward(window)
        return False

    def keys(self, window, *keys):
        self.ready(window)
        self.input.keys(*keys)

    @staticmethod
    def window_of(node):
        accessible = node.accessible
        while accessible is not None and accessible.get_role_name() not in WINDOW_ROLES:
            accessible = accessible.get_parent()
        return Node(accessible)

    def entry(self, label, window, **options):
        """The entry line of that label; a hidden-text one counts as well."""
        def look():
            found = []
            for role in ENTRY_ROLES:
                found += self.tree.look(role, label, window, options.get("description")) if not found else []
            if len(found) > 1:
                raise AssertionError(f"{len(found)} entry lines are called {label!r}")
            return found[0] if found else None
        return wait_for(look, f"the entry line {label!r} in {window!r}")

    def enter(self, label, text, window, *, taken=None, **options):
        """Replaces what an entry line holds. taken: what the line is to hold then, where it refuses a part of the text."""
        node = self.entry(label, window, **options)
        self._enter(node, text)
        held = text if taken is None else taken
        if node.role != "password text":
            wait_for(lambda: _same(node, held), lambda: f"{label!r} to hold {held!r}, not {node.text!r}")
        return node

    def press(self, label, window, *, role="push button"):
        node = self.tree.find(role, label, window)
        wait_for(lambda: node.enabled, f"the button {label!r} to be enabled")
        self._press(node)

    def toggle(self, label, window):
        """Presses a check box without awaiting the result. Returns the box."""
        node = self.tree.find("check box", label, window)
        self._toggle(node)
        return node

    def check(self, label, window, on=True):
        node = self.tree.find("check box", label, window)
        if node.checked != on:
            self._toggle(node)
            wait_for(lambda: node.checked == on, f"{label!r} to be {'checked' if on else 'unchecked'}")

    def option(self, label, window):
        """Picks one of several options."""
        node = self.tree.find("radio button", label, window)
        if not node.checked:
            self._option(node)
        wait_for(lambda: node.checked, f"the option {label!r} to be picked")

    def tick(self, name, box, window):
        """Ticks an entry of the list named box."""
        node = wait_for(lambda: next((item for item in self.tree.find("list", box, window).children
                                      if item.name == name), None), f"the entry {name!r} of {box!r}")
        if not node.checked:
            self._tick(node, box, window)
            wait_for(lambda: node.checked, f"{name!r} to be ticked")

    def choose(self, label, text, window):
        """Sets a drop-down."""
        node = self.tree.find("combo box", label, window)
        if node.name != text:
            self._choose(node, text, window)
        wait_for(lambda: node.name == text, lambda: f"{label!r} to show {text!r}, not {node.name!r}")

    def select_row(self, table, row):
        if table.selected_rows != [row]:
            self._select_row(table, row)
        wait_for(lambda: table.selected_rows == [row], f"row {row} to be selected")


def _same(node, text):
    if node.text == text:
        return True
    # A number line groups what is typed, and keeps ASCII digits.
    return any(character.isdigit() for character in text) and node.number == _number(text)


def _number(text):
    return float("".join(str(int(c)) if c.isdigit() else "." if c in ".٫" else "" for c in text) or 0)


class TreeDriver(Driver):
    """Acts through the accessibility interface's own operations."""

    name = "tree"

    def _enter(self, node, text):
        node.set_text(text)

    def _press(self, node):
        node.act("Press")

    def _toggle(self, node):
        node.act("Toggle")

    def _option(self, node):
        node.act("Toggle")

    def _tick(self, node, box, window):
        # The toolkit's own operation selects the entry and leaves its tick alone; a screen reader's user presses the keys.
        KeyboardDriver(self.tree, self.input, self._bring_forward).tick(node.name, box, window)

    def _choose(self, node, text, window):
        # The toolkit opens the list through the interface, but selects no entry; a screen reader's user goes through the
        # opened list with the arrow keys and hears each.
        node.act("ShowMenu")
        item = wait_for(lambda: _item(node, text), f"the entry {text!r}")
        # A list with nothing chosen yet ignores a step to its current entry.
        self.input.keys("End", "Home")
        for entry in Node(item.accessible.get_parent()).children:
            wait_for(lambda entry=entry: entry.has(State.SELECTED), f"{entry!r} to be selected")
            if entry == item:
                break
            self.input.keys("Down")
        self.input.keys("Return")

    def open_menu(self, menu, window):
        self._menu = self.tree.find("menu item", menu, window)
        self._menu.act("ShowMenu")

    def menu_entry(self, text, window):
        entry = self.tree.find("menu item", text, window)
        entry.act("Press")
        try:
            # Pressing an entry through the interface leaves its menu open.
            if entry.showing:
                self._menu.act("ShowMenu")
        except GLib.Error:
            # The entry was the one that quits the program.
            pass

    def _select_row(self, table, row):
        Atspi.Table.add_row_selection(table.accessible, row)


class KeyboardDriver(Driver):
    """Presses keys alone. What Tab does not reach cannot be used."""

    name = "keyboard"

    def __init__(self, tree, input_devices, bring_forward=None):
        super().__init__(tree, input_devices, bring_forward)
        self._watch = FocusWatch()

    def focus(self, node, window):
        """Walks with Tab until the widget has the focus."""
        self.ready(window)
        met = []
        inner = None
        while not node.focused:
            before = self._focused(window)
            self.input.keys("Tab")
            # Tab goes through a time of day part by part, and the focus stays.
            seconds = 2 if before is not None and before.role == "spin button" else 10
            try:
                wait_for(lambda: node.focused or self._has_left(before), "the focus to move", seconds=seconds)
            except TimeRanOut:
                if self._watch.node and self._watch.node.role == "spin button" and self._watch.node != inner:
                    inner = self._watch.node
                    continue
                raise AssertionError(f"Tab stays on {self._watch.node!r} and does not reach {node!r}") from None
            if len(met) > 2 and met[0] == self._watch.node:
                raise AssertionError(f"Tab does not reach {node!r}, only {met}")
            met.append(self._watch.node)

    def _focused(self, window):
        """What has the focus now; None where nothing is known to."""
        self._watch.listen()
        try:
            if self._watch.node is not None and self._watch.node.focused:
                return self._watch.node
        except GLib.Error:
            pass
        return next((node for node in window.shown_descendants() if node.focused), None)

    def _has_left(self, before):
        """Whether another widget has the focus. An announcement alone may be of an earlier move, and a key that is pressed upon it
        would go past what is looked for."""
        self._watch.listen()
        return self._watch.node is not None and self._watch.node != before and self._watch.node.focused

    def _enter(self, node, text):
        self.focus(node, self.window_of(node))
        self.input.keys("ctrl+a")
        if text:
            self.input.type(text)
        else:
            self.input.keys("Delete")

    def _press(self, node):
        self.focus(node, self.window_of(node))
        self.input.keys("space")

    def _toggle(self, node):
        self._press(node)

    def _option(self, node):
        # Tab comes to the picked option; the arrow keys go from there to the others, by position.
        window = self.window_of(node)
        options = [other for other in Node(node.accessible.get_parent()).children if other.role == node.role]
        current = next(option for option in options if option.checked)
        self.focus(current, window)
        for _ in options:
            if current == node:
                return
            (x, y, _, _), (wanted_x, wanted_y, _, _) = current.extents, node.extents
            below, left = wanted_y > y, wanted_x < x
            self.input.keys(("Down" if below else "Up") if wanted_y != y else ("Left" if left else "Right"))
            before = current
            current = wait_for(lambda before=before: next((option for option in options
                                                           if option.checked and option != before), None),
                               "the next option to be picked")

    def _tick(self, node, box, window):
        entries = self.tree.find("list", box, window)
        self.focus(entries, window)
        self.input.keys("Home", *["Down"] * entries.children.index(node), "space")

    def _choose(self, node, text, window):
        self.focus(node, window)
        self.input.keys("Home")
        for _ in range(50):
            if node.name == text:
                return
            before = node.name
            self.input.keys("Down")
            wait_for(lambda: node.name != before, f"the drop-down to go on to {text!r}", seconds=3)

    def open_menu(self, menu, window):
        # Alt alone goes to the menu bar's first menu; from right to left the next one lies on the left. A window that has
        # just come may take the focus back from the bar; a person begins again.
        item = self.tree.find("menu item", menu, window)
        bar = Node(item.accessible.get_parent()).children
        for seconds in (2, 5):
            self._enter_menu_bar(window, bar)
            try:
                self._go_to_menu(item, bar)
                self.input.keys("Down")
                wait_for(lambda: any(entry.showing for popup in item.children for entry in popup.children),
                         f"the menu {menu!r} to open", seconds=seconds)
                return
            except TimeRanOut:
                continue
        raise AssertionError(f"the keys do not open the menu {menu!r}")

    def _go_to_menu(self, item, bar):
        for _ in bar:
            current = wait_for(lambda: next((node for node in bar if node.focused), None), "the menu bar's focus",
                               seconds=3)
            if current == item:
                return
            self.input.keys("Left")
            wait_for(lambda: not current.focused, "the next menu", seconds=3)

    def _enter_menu_bar(self, window, bar):
        # A window that has just come may still be taking the focus, and a menu bar forgets an Alt that meets that; a
        # person presses it again.
        for seconds in (1, 2, 5):
            self.keys(window, "alt")
            try:
                wait_for(lambda: any(node.focused for node in bar), "the menu bar's focus", seconds=seconds)
                return
            except TimeRanOut:
                continue
        raise AssertionError("Alt does not lead to the menu bar")

    def menu_entry(self, text, window):
        entry = self.tree.find("menu item", text, window)
        for _ in range(20):
            if entry.focused:
                break
            self.input.keys("Down")
            try:
                wait_for(lambda: entry.focused, f"the entry {text!r}", seconds=0.5)
            except TimeRanOut:
                continue
        self.input.keys("Return")

    def _select_row(self, table, row):
        self.focus(table, self.window_of(table))
        self.input.keys("Home", *["Down"] * row)


class MouseDriver(Driver):
    """Points and clicks at what it sees; types only into entry lines."""

    name = "mouse"

    def point(self, node):
        """The middle of a widget, after the wheel has brought it into view."""
        self.ready(self.window_of(node))
        for _ in range(40):
            x, y, width, height = node.extents
            middle = (x + width // 2, y + height // 2)
            hidden = self._hidden_by(node, middle)
            if hidden is None:
                return middle
            (left, top, wide, high), below = hidden
            self.input.wheel(left + wide // 2, top + high // 2, 2 if below else -2)
            try:
                wait_for(lambda: node.extents != (x, y, width, height), "the page to scroll", seconds=1)
            except TimeRanOut:
                break
        raise AssertionError(f"{node!r} cannot be brought into view")

    @staticmethod
    def _hidden_by(node, middle):
        """The extents of the widget that clips a point of this one, and whether the point lies below it."""
        parent = node.accessible.get_parent()
        while parent is not None and parent.get_role_name() not in _TOP_ROLES:
            left, top, width, height = box = Node(parent).extents
            if width > 0 and not top <= middle[1] < top + height:
                return box, middle[1] >= top + height
            parent = parent.get_parent()
        return None

    def click(self, node, **options):
        self.input.click(*self.point(node), **options)

    def _enter(self, node, text):
        self.click(node)
        wait_for(lambda: node.focused, f"the focus in {node!r}")
        self.input.keys("ctrl+a")
        if text:
            self.input.type(text)
        else:
            self.input.keys("Delete")

    def _press(self, node):
        self.click(node)

    def _toggle(self, node):
        self.click(node)

    def _option(self, node):
        self.click(node)

    def _tick(self, node, box, window):
        # The box stands before the entry's name: from right to left at its right end.
        x, y, width, height = node.extents
        self.input.click(x + width - height // 2, y + height // 2)

    def _choose(self, node, text, window):
        self.click(node)
        item = wait_for(lambda: _item(node, text), f"the entry {text!r}")
        left, top, wide, high = Node(item.accessible.get_parent()).extents
        for _ in range(40):
            x, y, width, height = item.extents
            if top <= y and y + height <= top + high:
                break
            self.input.wheel(left + wide // 2, top + high // 2, 1 if y + height > top + high else -1)
            wait_for(lambda: item.extents != (x, y, width, height), "the list to scroll")
        self.input.click(x + width // 2, y + height // 2)

    def open_menu(self, menu, window):
        self.click(self.tree.find("menu item", menu, window))

    def menu_entry(self, text, window):
        self.click(self.tree.find("menu item", text, window))

    def _select_row(self, table, row):
        self.click(table.cell(row, 1))


def _item(combo, text):
    """The entry of a drop-down whose list is open, in sight or not."""
    for child in combo.children:
        if child.role == "list" and child.showing:
            return next((item for item in child.children if item.name == text), None)
    return None


DRIVERS = {driver.name: driver for driver in (TreeDriver, KeyboardDriver, MouseDriver)}
