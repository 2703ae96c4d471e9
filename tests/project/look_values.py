#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""Reads the sources of auto/, suite/ and host/ and names each value of the look that stands outside of its tables.

    look_values.py [ROOT]

Colours stand in HostColors, the sizes of text in LookFonts, pictures come from LookIcons, and HostStyle draws the controls: a
window that names a colour, a style sheet, the size of a font or the file of an icon stays as it is when the look changes.
"""

import argparse
import re
import sys
from pathlib import Path

# Names of Qt's own colours; Qt::transparent is none.
NAMED = "|".join(f"{shade}{colour}" for colour in ("red", "green", "blue", "cyan", "magenta", "yellow", "gray") for shade in ("", "dark"))
NAMED = re.sub(r"dark(\w)", lambda found: "dark" + found[1].upper(), NAMED)

# What a source may not hold, by kind.
VALUES = {
    "colour": re.compile(
        r"\bQColor\s*[({]\s*[^)}\s]"  # made in place
        r'|\bQColor\s+\w+\s*[({]\s*(?:\d|Qt::|u?")'  # made as a variable; else it may be a function's name
        r"|\bQRgba?(?:64)?\b|\bqRgba?(?:64)?\s*\("
        rf"|\bQt::(?:white|black|lightGray|{NAMED})\b"
        r"|\bQColorConstants\b|\bsetNamedColor\b|\bQColor::from"
        r'|"[^"\n]*#(?:[0-9a-fA-F]{8}|[0-9a-fA-F]{6}|[0-9a-fA-F]{3})\b[^"\n]*"'),
    "style sheet": re.compile(r"\bsetStyleSheet\s*\("),
    "size of a font": re.compile(r"\bset(?:PixelSize|PointSizeF?)\s*\("),
    "icon": re.compile(r'\bQ(?:Icon|Pixmap)\s*(?:\w+\s*)?[({]\s*(?:u|QStringLiteral\()?"[^"\n]*:/icons[^"\n]*"?'),
}

# A file, or a folder with its slash, and what may stand there and why.
ALLOWED = {
    "suite/utility/look/": ({"colour", "size of a font"}, "the tables themselves"),
    "suite/accounting/reports/ReportPainter.cpp": ({"colour"}, "paints paper, which is white under every look"),
    "suite/accounting/reports/ReportTexts.cpp": ({"size of a font"}, "letters on paper, in the size of the office's layout"),
    "suite/accounting/papers/QrCode.cpp": ({"colour"}, "paints paper, which is white under every look"),
    "suite/accounting/papers/SheetFlow.cpp": ({"colour"}, "paints paper, which is white under every look"),
    "suite/accounting/papers/SheetText.cpp": ({"size of a font"}, "paints paper, which is white under every look"),
    "suite/accounting/papers/SheetText.h": ({"colour"}, "paints paper, which is white under every look"),
    "suite/accounting/reports/KWndReportGen.cpp": ({"colour"}, "shows the sheet of paper"),
    "suite/image/PictureIntake.cpp": ({"colour"}, "reads the pixels of a picture"),
    "suite/image/Thumbnails.cpp": ({"colour"}, "is kept on white under every look"),
    "host/demo/DemoPictures.cpp": ({"colour"}, "paints the pictures of the demo office's cars"),
    "host/demo/DemoCars.cpp": ({"colour"}, "the paint of the demo office's cars"),
}

COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
STRING = re.compile(r'"(?:[^"\\\n]|\\.)*"')


def without_comments(text):
    """The text with its comments blanked, lines kept; what looks like one within a string stays."""
    parts = re.compile(f"({STRING.pattern})|{COMMENT.pattern}", re.DOTALL)
    return parts.sub(lambda found: found[1] or re.sub(r"[^\n]", " ", found[0]), text)


def entry_of(path):
    """The narrowest line of the table that is about the file; None for most."""
    found = [entry for entry in ALLOWED if path.startswith(entry)]
    return max(found, key=len, default=None)


def values_in(text):
    """Line, kind and text of each value."""
    for number, line in enumerate(without_comments(text).split("\n"), start=1):
        for kind, value in VALUES.items():
            found = value.search(line)
            if found:
                yield number, kind, found[0]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("root", type=Path, nargs="?", default=Path(__file__).resolve().parents[2])
    root = parser.parse_args().root
    files = sorted(path for top in ("auto", "suite", "host") for path in (root / top).rglob("*") if path.suffix in (".h", ".cpp"))
    faults = []
    used = set()
    for file in files:
        path = str(file.relative_to(root))
        entry = entry_of(path)
        kinds = ALLOWED[entry][0] if entry else set()
        for number, kind, found in values_in(file.read_text(encoding="utf-8")):
            if kind in kinds:
                used.add((entry, kind))
            else:
                faults.append(f"{path}:{number}: {kind} of its own: {found.strip()}")
    for entry, (kinds, why) in ALLOWED.items():
        faults += [f"{entry} may name a {kind} ({why}) and names none" for kind in sorted(kinds) if (entry, kind) not in used]
    if not files:
        faults.append("no source was found")
    for fault in faults:
        print(fault)
    print(f"{len(faults)} fault(s) in {len(files)} sources")
    return bool(faults)


if __name__ == "__main__":
    sys.exit(main())
