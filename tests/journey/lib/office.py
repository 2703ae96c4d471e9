# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The program at work in one office: started on a data folder, set up, logged in, closed."""

import os

from . import labels
from .database import Database
from .drivers import DRIVERS, KeyboardDriver
from .input import Input
from .tree import Tree, connect
from .waiting import wait_for

COMPANY = "نمایشگاه نمونه"
ADMINISTRATOR = "مدیر نمونه"
ADMINISTRATOR_USER = "modir"
# For an office that lasts as long as a journey; typed into fields only.
PASSWORD = "rahe-abi-1405"
# The demo office that the program fills by itself.
DEMO_COMPANY = "نمایشگاه اتومبیل آریا"
DEMO_USER = "demo"


class Office:
    """One data folder and the program that runs on it, on a database of its own or on an office's server. driver decides how everything is
    done. A desk at a server shares the screen with the others."""

    def __init__(self, desktop, program, data_folder, pictures, driver="tree", server=None):
        self.desktop = desktop
        self.program = program
        self.data_folder = data_folder
        self.pictures = pictures
        self.input = Input(desktop.environment)
        self._kind_of_driver = driver
        self._server = server
        self._company = COMPANY
        self._process = None
        self.tree = None
        self.driver = None
        self.main = None
        connect()

    def start(self, *options):
        """Starts the program; its first window is not awaited here."""
        server = self._server.options() if self._server else []
        self._process = self.desktop.processes.start(
            [self.program, "--data-dir", self.data_folder, *server, *options], log=self.desktop.log("program"),
            environment=self.desktop.environment)
        self.tree = Tree(self._process.pid)
        self.driver = DRIVERS[self._kind_of_driver](self.tree, self.input, self._bring_forward if self._server else None)

    def set_up(self):
        """The first start of a new office."""
        window = self.tree.window(labels.FIRST_START, seconds=60)
        self.pictures.take("first-start", "The first start asks for the administrator and the dealership")
        entries = {labels.ADMINISTRATOR: ADMINISTRATOR, labels.USER: ADMINISTRATOR_USER, labels.PASSWORD: PASSWORD,
                   labels.REPEATED: PASSWORD, labels.COMPANY: COMPANY, labels.COMPANY_TELEPHONE: "02188000000",
                   labels.COMPANY_CITY: "تهران", labels.COMPANY_ADDRESS: "خیابان آزادی"}
        for label, text in entries.items():
            self.driver.enter(label, text, window)
        self.pictures.take("first-start-filled", "Administrator and dealership are filled in")
        self.driver.press(labels.BEGIN, window)
        self.tree.no_window(labels.FIRST_START)

    def log_in(self, user=ADMINISTRATOR_USER, password=PASSWORD, picture=None):
        window = self.tree.window(labels.LOGIN, seconds=60)
        self.driver.enter(labels.USER, user, window)
        self.driver.enter(labels.PASSWORD, password, window)
        if picture:
            self.pictures.take(*picture)
        self.driver.press(labels.ENTER, window)
        self.main = self.tree.window(self._company, seconds=30)
        return self.main

    def log_in_demo(self):
        """Into the demo office, as its manager."""
        self._company = DEMO_COMPANY
        return self.log_in(DEMO_USER, DEMO_USER)

    def leave(self):
        """Closes the program by its menu and waits until it and its database server are gone."""
        if isinstance(self.driver, KeyboardDriver):
            self.driver.keys(self.main, "ctrl+q")
        else:
            self.driver.open_menu(labels.PROGRAM_MENU, self.main)
            self.driver.menu_entry(labels.LEAVE, self.main)
        self.wait_until_gone()

    def wait_until_gone(self):
        status = wait_for(lambda: self._process.poll() is not None and (self._process.returncode,),
                          "the program to end", seconds=30)[0]
        if status != 0:
            raise AssertionError(f"the program ended with {status}")
        self._process = None

    def close(self):
        """Whatever state it is in."""
        if self._process is not None:
            self.desktop.processes.end(self._process, patience=20)
            self._process = None

    @property
    def process_id(self):
        return self._process.pid

    @property
    def server_process_id(self):
        """Of the program's own server."""
        with open(os.path.join(self.data_folder, "database", "server.pid"), encoding="ascii") as file:
            return int(file.read())

    @property
    def database(self):
        return self._server.database if self._server else Database(self.data_folder)

    def another_desk(self, name, server):
        """The same program once more on this screen, for another user of the office's server."""
        return Office(self.desktop, self.program, os.path.join(self.desktop.home, name), self.pictures, self._kind_of_driver, server)

    def open_contracts(self, picture=None):
        """The contract list, opened from the menu; returns its table."""
        return self.open_list(labels.CONTRACTS, picture)

    def open_list(self, title, picture=None):
        """A list of the gallery, opened from the menu; returns its table."""
        self.driver.open_menu(labels.AUTO_MENU, self.main)
        wait_for(lambda: self.tree.shows("menu item", title, self.main), "the menu to open")
        if picture:
            self.pictures.take(*picture)
        self.driver.menu_entry(title, self.main)
        return self.tree.find("tree", title, self.main)

    def command(self, caption):
        """A button of the list that shows in the main window."""
        self.driver.press(caption, self.main)

    def _bring_forward(self, window):
        self.input.bring_to_front(self._process.pid, window.name)

    def message(self, title, text, answer=labels.CLOSE_MESSAGE, picture=None):
        """Checks that the message on screen holds the text, and answers it."""
        window = self.tree.window(title)
        shown = wait_for(lambda: next((node.name for node in window.shown_descendants()
                                       if node.role == "label" and text in node.name), None),
                         f"a message that says {text!r}")
        if picture:
            self.driver.ready(window)
            self.pictures.take(*picture)
        self.driver.press(answer, window)
        wait_for(lambda: window not in self.tree.windows(), "the message to go")
        return shown

    def check_secrets(self):
        """No password in a process list, a log or a settings file."""
        secret = PASSWORD.encode()
        for entry in os.listdir("/proc"):
            if entry.isdigit() and secret in _content(f"/proc/{entry}/cmdline"):
                raise AssertionError(f"the process list of {entry} shows a password")
        logs = [self.desktop.log("program")]
        for folder in ("logs", "settings"):
            path = os.path.join(self.data_folder, folder)
            logs += [os.path.join(path, name) for name in os.listdir(path)]
        for log in logs:
            if secret in _content(log):
                raise AssertionError(f"{log} holds a password")

    def report_failure(self):
        """What the screen showed when a step failed."""
        self.pictures.take("failure", "Where the journey stopped")
        text = self.tree.dump() if self.tree else "the program was not started"
        self.pictures.keep_text("tree-on-failure.txt", text)
        log = self.desktop.log("program")
        if os.path.exists(log):
            with open(log, encoding="utf-8", errors="replace") as file:
                text += "\n--- the program's own words ---\n" + file.read()[-4000:]
        return text


def _content(path):
    try:
        with open(path, "rb") as file:
            return file.read()
    except OSError:
        return b""
