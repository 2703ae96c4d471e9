#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""The spreadsheet of bench/ReportOfContracts.cpp by openpyxl, row by row without keeping them: write_sheet.py CELLS TARGET. CELLS is
JSON: rows of texts, numbers, {"date": "2026-03-21"} and null. See peer.py."""

import datetime
import json
import sys

import openpyxl
from openpyxl.cell import WriteOnlyCell

import peer


def cells_of(path):
    with open(path, encoding="utf-8") as file:
        rows = json.load(file)
    return [[datetime.date.fromisoformat(cell["date"]) if isinstance(cell, dict) else cell for cell in row] for row in rows]


def write(rows, target):
    book = openpyxl.Workbook(write_only=True)
    sheet = book.create_sheet()

    def shown(value):
        if not isinstance(value, datetime.date):
            return value
        cell = WriteOnlyCell(sheet, value)
        cell.number_format = "yyyy-mm-dd"
        return cell

    for row in rows:
        sheet.append([shown(value) for value in row])
    book.save(target)


ROWS = cells_of(sys.argv[1])
peer.serve(lambda: write(ROWS, sys.argv[2]))
