#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""Writes a template with the marks as an office would, with two programs that know nothing of ours.

    office_template.py docx FILE      by python-docx
    office_template.py fodt FILE      for LibreOffice, which turns it into a document
"""

import sys
from xml.sax.saxutils import escape

# Each line is a paragraph, a list in it the cells of a table's row; {Name} is a field. The plan's row follows its titles.
LINES = [
    "Letterhead {If_Logo}{Logo_20}{EndIf}{Dealership}",
    "Amount {Amount} ({AmountWords})",
    "{If_DelayAmount}Delay {DelayAmount} a day.{EndIf}",
    "{If_AmountRent}Rent {AmountRent}{IfNot_RentTime} without a period{EndIf}.{EndIf}",
    ["Colour {If_Color}{Color}{EndIf}", "{If_VIN}VIN {VIN}{EndIf}"],
    "{If_PlanCount}",
    "Plan of {PlanCount}",
    ["Number", "Due", "Sum"],
    ["{PlanNum}", "{PlanDate}", "{PlanAmount}"],
    "{EndIf}",
    "Signed {iCode}",
]


def pieces(text):
    """Text and the names of fields in turn."""
    for i, piece in enumerate(text.replace("}", "{").split("{")):
        if piece:
            yield piece, i % 2 == 1


def by_python_docx(path):
    import docx
    from docx.oxml import OxmlElement
    from docx.oxml.ns import qn

    def add_field(paragraph, name):
        run = paragraph.add_run()
        for kind in ("begin", "separate", "end"):
            mark = OxmlElement("w:fldChar")
            mark.set(qn("w:fldCharType"), kind)
            run._r.append(mark)
            if kind == "begin":
                # As a spelling check splits it.
                for part in (" MERGEFIELD ", name[: len(name) // 2], name[len(name) // 2 :] + " "):
                    code = OxmlElement("w:instrText")
                    code.set(qn("xml:space"), "preserve")
                    code.text = part
                    run._r.append(code)

    def write(paragraph, text):
        for piece, is_field in pieces(text):
            if is_field:
                add_field(paragraph, piece)
            else:
                paragraph.add_run(piece)

    document = docx.Document()
    table = None
    for line in LINES:
        if isinstance(line, str):
            table = None
            write(document.add_paragraph(), line)
            continue
        if table is None or len(table.columns) != len(line):
            table = document.add_table(rows=0, cols=len(line))
        for cell, text in zip(table.add_row().cells, line, strict=True):
            write(cell.paragraphs[0], text)
    write(document.sections[0].header.paragraphs[0], "Header {DealershipTel}{If_DelayAmount}delay{EndIf}")
    document.save(path)


def for_libreoffice(path):
    def content(text):
        result = ""
        for piece, is_field in pieces(text):
            name = escape(piece)
            field = 'text:table-name="T" text:table-type="table" text:database-name="Office"'
            result += (
                f'<text:database-display {field} text:column-name="{name}">&lt;{name}&gt;</text:database-display>'
                if is_field
                else name
            )
        return f"<text:p>{result}</text:p>"

    body, rows = "", []

    def table():
        if not rows:
            return ""
        lines = "".join(
            "<table:table-row>" + "".join(f"<table:table-cell>{content(cell)}</table:table-cell>" for cell in row) + "</table:table-row>"
            for row in rows
        )
        columns = "<table:table-column/>" * len(rows[0])
        rows.clear()
        return f"<table:table>{columns}{lines}</table:table>"

    for line in LINES:
        if isinstance(line, str):
            body += table() + content(line)
        else:
            rows.append(line)
    spaces = " ".join(
        f'xmlns:{name}="urn:oasis:names:tc:opendocument:xmlns:{name}:1.0"' for name in ("office", "text", "table", "style")
    )
    header = content("Header {DealershipTel}{If_DelayAmount}delay{EndIf}")
    with open(path, "w", encoding="utf-8") as file:
        file.write(
            f'<?xml version="1.0" encoding="UTF-8"?><office:document {spaces} office:version="1.3"'
            ' office:mimetype="application/vnd.oasis.opendocument.text"><office:automatic-styles>'
            '<style:page-layout style:name="pm1"><style:page-layout-properties/><style:header-style>'
            "<style:header-footer-properties/></style:header-style></style:page-layout></office:automatic-styles>"
            '<office:master-styles><style:master-page style:name="Standard" style:page-layout-name="pm1">'
            f"<style:header>{header}</style:header></style:master-page></office:master-styles>"
            f"<office:body><office:text>{body}</office:text></office:body></office:document>"
        )


if __name__ == "__main__":
    {"docx": by_python_docx, "fodt": for_libreoffice}[sys.argv[1]](sys.argv[2])
