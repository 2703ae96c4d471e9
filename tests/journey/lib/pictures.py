# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Numbered pictures of the steps, with a file of captions beside them."""

import os
import re
import struct
import subprocess
import zlib


class Pictures:
    """Without a folder nothing is taken. go_on keeps the pictures that are there, and their numbers go on."""

    def __init__(self, folder, environment, go_on=False):
        self._folder = folder
        self._environment = environment
        self._count = 0
        if folder:
            os.makedirs(folder, exist_ok=True)
            old = [name for name in os.listdir(folder)
                   if re.fullmatch(r"\d\d-.*\.png|captions\.txt|tree-on-failure\.txt", name)]
            if go_on:
                self._count = max((int(name[:2]) for name in old if name[0].isdigit()), default=0)
            else:
                for name in old:
                    os.remove(os.path.join(folder, name))

    def take(self, name, caption, of=None):
        """One picture of the whole screen, or what of() makes; name is its file's name, caption says what it shows."""
        if not self._folder:
            return
        self._count += 1
        file = f"{self._count:02}-{name}.png"
        with open(os.path.join(self._folder, file), "wb") as picture:
            picture.write(of() if of else self._settled())
        with open(os.path.join(self._folder, "captions.txt"), "a", encoding="utf-8") as captions:
            captions.write(f"{file}\t{caption}\n")

    def _settled(self):
        """The screen once it is painted: two successive pictures are the same, but for a blinking caret."""
        before = None
        for _ in range(4):
            now = self._screen()
            if now == before:
                break
            before = now
        return _png(now)

    def _screen(self):
        """The bare pixels, which are quick to take and compare."""
        return subprocess.run(["import", "-silent", "-window", "root", "-depth", "8", "ppm:-"], env=self._environment,
                              check=True, capture_output=True, timeout=30).stdout

    def take_pages(self, name, caption, document):
        """A picture of every page of a PDF document."""
        if not self._folder:
            return
        self._count += 1
        stem = os.path.join(self._folder, f"{self._count:02}-{name}")
        subprocess.run(["pdftoppm", "-png", "-r", "90", document, stem], check=True, capture_output=True, timeout=60)
        pages = sorted(file for file in os.listdir(self._folder) if file.startswith(f"{self._count:02}-{name}"))
        with open(os.path.join(self._folder, "captions.txt"), "a", encoding="utf-8") as captions:
            captions.writelines(f"{file}\t{caption}\n" for file in pages)

    def keep_text(self, name, text):
        if self._folder:
            with open(os.path.join(self._folder, name), "w", encoding="utf-8") as file:
                file.write(text)


def _png(points):
    """A picture of bare pixels (a binary PPM) in the format that is kept."""
    header = re.match(rb"P6\s+(\d+)\s+(\d+)\s+255\s", points)
    width, height = int(header[1]), int(header[2])
    line = 3 * width
    lines = b"".join(b"\0" + points[at:at + line] for at in range(header.end(), header.end() + height * line, line))
    return (b"\x89PNG\r\n\x1a\n" + _chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
            + _chunk(b"IDAT", zlib.compress(lines)) + _chunk(b"IEND", b""))


def _chunk(kind, content):
    return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))
