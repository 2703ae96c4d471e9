# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A screen of our own: X server, session bus, accessibility bus and window manager, in one temporary home."""

import os
import select
import shutil
import subprocess
import tempfile

from .processes import Processes
from .waiting import wait_for

SCREEN = "1366x768"
_BUS_LAUNCHERS = ("/usr/libexec/at-spi-bus-launcher", "/usr/lib/at-spi2-core/at-spi-bus-launcher")


class Desktop:
    """Use it in a with statement. Sets this process's environment, so that the accessibility library finds its bus."""

    def __init__(self):
        self.processes = Processes()
        self.home = tempfile.mkdtemp(prefix="tzj-")
        self.environment = self._environment()

    def _environment(self):
        kept = ("PATH", "LANG", "TZ", "USER", "LOGNAME", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS")
        environment = {name: os.environ[name] for name in kept if name in os.environ}
        for variable, folder in (("HOME", ""), ("XDG_RUNTIME_DIR", "run"), ("XDG_CONFIG_HOME", "config"),
                                 ("XDG_DATA_HOME", "data"), ("XDG_CACHE_HOME", "cache"), ("TMPDIR", "tmp")):
            path = os.path.join(self.home, folder)
            os.makedirs(path, mode=0o700, exist_ok=True)
            environment[variable] = path
        environment["LC_ALL"] = "C.UTF-8"
        environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        environment["QT_QPA_PLATFORM"] = "xcb"
        # Sizes must not depend on a guessed screen density.
        environment["QT_FONT_DPI"] = "96"
        environment["GIO_USE_VFS"] = "local"
        return environment

    def __enter__(self):
        try:
            self._start_screen()
            self._start_bus()
            self._start_window_manager()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        self.processes.end_all()
        shutil.rmtree(self.home, ignore_errors=True)

    def log(self, name):
        return os.path.join(self.home, f"{name}.log")

    def _set(self, name, value):
        self.environment[name] = value
        os.environ[name] = value

    def _start_screen(self):
        self._display_from(["Xvfb", "-screen", "0", SCREEN + "x24", "-nolisten", "tcp", "-noreset", "-dpi", "96"])
        # Latin and Persian, so that every letter that a journey types is on a key.
        if shutil.which("setxkbmap"):
            subprocess.run(["setxkbmap", "-layout", "us,ir"], env=self.environment, check=True)
        # So that window edges are visible in the pictures; an embellishment that may fail.
        if shutil.which("display"):
            subprocess.run(["display", "-window", "root", "xc:#46617a"], env=self.environment, check=False,
                           capture_output=True, timeout=20)

    def _display_from(self, arguments):
        reader, writer = os.pipe()
        try:
            screen = self.processes.start([*arguments, "-displayfd", str(writer)], log=self.log("screen"),
                                          environment=self.environment, pass_fds=(writer,))
        finally:
            os.close(writer)
        with os.fdopen(reader, "rb") as answers:
            if not select.select([answers], [], [], 20)[0]:
                raise RuntimeError("the X server does not answer")
            number = answers.readline().decode().strip()
        if not number:
            raise RuntimeError(f"the X server ended with {screen.wait()}")
        self._set("DISPLAY", f":{number}")

    def _start_bus(self):
        address = f"unix:path={os.path.join(self.environment['XDG_RUNTIME_DIR'], 'bus')}"
        self.processes.start(["dbus-daemon", "--session", "--nofork", "--nosyslog", f"--address={address}"],
                             log=self.log("bus"), environment=self.environment)
        self._set("DBUS_SESSION_BUS_ADDRESS", address)
        self._set("XDG_RUNTIME_DIR", self.environment["XDG_RUNTIME_DIR"])
        wait_for(lambda: os.path.exists(address.split("=", 1)[1]), "the session bus")
        launcher = next((path for path in _BUS_LAUNCHERS if os.path.exists(path)), None)
        if launcher is None:
            raise RuntimeError("the accessibility bus (at-spi2-core) is not installed")
        self.processes.start([launcher, "--launch-immediately"], log=self.log("accessibility"),
                             environment=self.environment)
        wait_for(self._accessibility_address, "the accessibility bus")

    def _accessibility_address(self):
        answer = subprocess.run(
            ["dbus-send", "--session", "--print-reply=literal", "--dest=org.a11y.Bus", "/org/a11y/bus",
             "org.a11y.Bus.GetAddress"], env=self.environment, capture_output=True, text=True, check=False)
        return answer.stdout.strip()

    def _start_window_manager(self):
        self.processes.start(["openbox", "--sm-disable"], log=self.log("windows"), environment=self.environment)
        wait_for(lambda: subprocess.run(["xdotool", "get_desktop"], env=self.environment, capture_output=True,
                                        check=False).returncode == 0, "the window manager")
