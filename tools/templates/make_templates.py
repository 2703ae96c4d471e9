#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""Makes the contract templates that the program fills.

    make_templates.py FOLDER [--font-folder FOLDER]

The font folder holds the program's fonts as they stand beside it; with them the documents look alike on every computer.
"""

import argparse
from pathlib import Path

import docx_writer
from contract_forms import FORMS


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("folder", type=Path)
    parser.add_argument("--font-folder", type=Path)
    options = parser.parse_args()
    options.folder.mkdir(parents=True, exist_ok=True)
    fonts = docx_writer.embedded_fonts(options.font_folder) if options.font_folder else []
    for name, form in FORMS.items():
        docx_writer.write(options.folder / name, form, fonts)


if __name__ == "__main__":
    main()
