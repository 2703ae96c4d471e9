# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the program produces, read back with other programs: word documents, PDF pages, spreadsheets."""

import os
import re
import shutil
import stat
import subprocess
import unicodedata
import urllib.parse
import zipfile
from xml.etree import ElementTree

from .waiting import wait_for

_WORD = "{http://schemas.openxmlformats.org/wordprocessingml/2006/main}"
_SHEET = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"
_DIRECTION_MARKS = re.compile("[\u200e\u200f\u202a-\u202e\u2066-\u2069]")


class Opener:
    """Stands in for the desktop's opener: shows nothing, and remembers what it was asked to open."""

    def __init__(self, desktop):
        folder = os.path.join(desktop.home, "opener")
        os.makedirs(folder)
        self._asked = os.path.join(folder, "asked")
        script = os.path.join(folder, "xdg-open")
        with open(script, "w", encoding="utf-8") as file:
            file.write(f"#!/bin/sh\nprintf '%s\\n' \"$1\" >> '{self._asked}'\n")
        os.chmod(script, stat.S_IRWXU)
        desktop.environment["PATH"] = folder + os.pathsep + desktop.environment["PATH"]

    def opened(self):
        """The one path that it was asked to open."""
        asked = wait_for(self.asked, "the document to be opened")
        if len(asked) != 1:
            raise AssertionError(f"opened more than once: {asked}")
        return asked[0]

    def asked(self):
        """All paths that it has been asked to open so far."""
        if not os.path.exists(self._asked):
            return []
        with open(self._asked, encoding="utf-8") as file:
            return [urllib.parse.unquote(line.removeprefix("file://")) for line in file.read().splitlines()]


def _parts(path, pattern):
    with zipfile.ZipFile(path) as package:
        if (broken := package.testzip()) is not None:
            raise AssertionError(f"{path}: the part {broken} is damaged")
        return {name: package.read(name) for name in package.namelist() if re.fullmatch(pattern, name)}


def word_parts(path):
    """The source of every part that holds words or controls them."""
    return {name: data.decode() for name, data in _parts(path, r"word/[^/]*\.xml").items()}


def word_text(path):
    """The words of the body, the headers and the footers, a line for each paragraph."""
    lines = []
    for part in _parts(path, r"word/(document|header\d*|footer\d*)\.xml").values():
        for paragraph in ElementTree.fromstring(part).iter(f"{_WORD}p"):
            lines.append("".join(run.text or "" for run in paragraph.iter(f"{_WORD}t")))
    return plain("\n".join(lines))


def sheet(path):
    """Returns whether the first sheet reads from the right, and its rows, each a list of texts and numbers."""
    parts = _parts(path, r"xl/(worksheets/sheet1|sharedStrings)\.xml")
    shared = []
    if "xl/sharedStrings.xml" in parts:
        shared = [_texts(item) for item in ElementTree.fromstring(parts["xl/sharedStrings.xml"])]
    root = ElementTree.fromstring(parts["xl/worksheets/sheet1.xml"])
    view = root.find(f".//{_SHEET}sheetView")
    rows = [[_cell(cell, shared) for cell in row] for row in root.iter(f"{_SHEET}row")]
    return view.get("rightToLeft") == "1", rows


def _texts(node):
    return "".join(text.text or "" for text in node.iter(f"{_SHEET}t"))


def _cell(cell, shared):
    if cell.get("t") == "inlineStr":
        return _texts(cell)
    value = cell.findtext(f"{_SHEET}v")
    if value is None:
        return None
    return shared[int(value)] if cell.get("t") == "s" else float(value)


def pdf_pages(path):
    """The words of each page; shaped letters are turned back into those that were typed."""
    text = subprocess.run(["pdftotext", "-layout", path, "-"], capture_output=True, text=True, check=True,
                          timeout=30).stdout
    return [plain(page) for page in text.split("\f")[:-1]]


def plain(text):
    """Letters as typed and digits as stored; a direction mark may replace a blank."""
    digits = {ord(first) + i: str(i) for first in "۰٠" for i in range(10)}
    return _DIRECTION_MARKS.sub(" ", unicodedata.normalize("NFKC", text)).translate(digits)


def line_holds(text, words):
    """Whether one line of a PDF page holds all these words; numbers and words that read from the right change places."""
    return any(set(words.split()) <= set(line.split()) for line in text.splitlines())


def has_word_processor():
    return shutil.which("soffice") is not None


def as_pdf(desktop, path, folder):
    """The pages of a word document, made by another program; returns their file."""
    home = os.path.join(desktop.home, "writer")
    environment = {name: value for name, value in desktop.environment.items() if name != "DISPLAY"}
    subprocess.run(["soffice", f"-env:UserInstallation=file://{home}", "--headless", "--convert-to", "pdf",
                    "--outdir", folder, path], env=environment, check=True, capture_output=True, timeout=100)
    pages = os.path.join(folder, os.path.splitext(os.path.basename(path))[0] + ".pdf")
    if not os.path.exists(pages):
        raise AssertionError(f"{path} does not open in another program")
    return pages
