#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""The contract of bench/FillContract.cpp as a mail merge by python-docx: mail_merge.py TEMPLATE TARGET TEXT. See peer.py."""

import sys

import docx
from docx.oxml.ns import qn

import peer


def merge(root, text):
    """Puts the text in place of each merge field's result; the field itself goes, its words stay. How many there were."""
    merged = 0
    for paragraph in root.iter(qn("w:p")):
        instruction, is_result = "", False
        for run in list(paragraph.iter(qn("w:r"))):
            mark = run.find(qn("w:fldChar"))
            kind = mark.get(qn("w:fldCharType")) if mark is not None else None
            code = run.find(qn("w:instrText"))
            if kind == "begin":
                instruction, is_result, is_first = "", False, True
            elif code is not None:
                instruction += code.text or ""
            elif kind == "separate":
                is_result = True
            elif is_result and kind is None and "MERGEFIELD" in instruction:
                for words in run.iter(qn("w:t")):
                    words.text = text if is_first else ""
                    is_first = False
            if "MERGEFIELD" in instruction or kind == "begin":
                if kind is not None or code is not None:
                    run.getparent().remove(run)
            if kind == "end":
                merged += "MERGEFIELD" in instruction
                instruction, is_result = "", False
    return merged


def fill(template, target, text):
    document = docx.Document(template)
    roots = [document.element]
    for section in document.sections:
        roots += [section.header._element, section.footer._element]  # pylint: disable=protected-access
    if sum(merge(root, text) for root in roots) == 0:
        sys.exit("no merge field")
    document.save(target)


peer.serve(lambda: fill(*sys.argv[1:4]))
