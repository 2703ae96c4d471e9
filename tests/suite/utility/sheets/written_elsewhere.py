#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""Writes a spreadsheet as another program does: texts, numbers, dates by their format, formulas, a hidden sheet.

    written_elsewhere.py FILE
"""

import datetime
import sys

import openpyxl

book = openpyxl.Workbook()
sheet = book.active
sheet.title = "اشخاص"
sheet.append(["نام", "تاریخ تولد", "مبلغ", "فعال", "جمع"])
sheet.append(["علی", datetime.date(1980, 3, 21), 1250000, True, "=C2*2"])
sheet.append(["زهرا", datetime.datetime(1999, 12, 31, 23, 30), 12.5, False, None])
sheet["B3"].number_format = "[$-fa-IR]yyyy/mm/dd"
sheet["A5"] = "پس از سطر خالی"
sheet["C5"] = 0.1
sheet["C5"].number_format = '0.00 "day"'
# A sheet that is formatted to its end holds nothing there.
sheet["XFD1048576"].number_format = "0"
second = book.create_sheet("دوم")
second["B2"] = "تنها"
hidden = book.create_sheet("پنهان")
hidden["A1"] = "دیده نمی‌شود"
hidden.sheet_state = "hidden"
book.create_sheet("خالی")
book.save(sys.argv[1])
