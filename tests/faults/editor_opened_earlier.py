#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""An editor that was opened before another desk saved takes nothing back of what the other saved."""

import rig
from rig.fault import check, run, step


class Contract:
    """As the table has it."""

    def __init__(self, office, key):
        self._office = office
        self.key = key

    def __getitem__(self, column):
        return self._office.database.value(f"SELECT {column} FROM AutomobilContracts WHERE iID={self.key}")


def both_fields_stay(early, late, contract):
    for mine, theirs in ((("sExplain", "mine"), ("dAmount", "320000000")), (("dAmount", "340000000"), ("sExplain", "theirs")),
                         (("sDeal", "deal"), ("sDesc", "note"))):
        early.open(contract.key)
        late.open(contract.key)
        late.do("set", *theirs)
        late.do("save", awaited="closed")
        early.do("set", *mine)
        early.do("save", awaited="closed")
        for column, text in (mine, theirs):
            check(contract[column] == text, f"{column} is {contract[column]!r}, not {text!r}, which a desk saved")


def same_field_is_asked(early, late, contract):
    for button, kept in (("theirs", "late"), ("mine", "early"), ("back", "late")):
        early.open(contract.key)
        late.open(contract.key)
        late.do("set", "sExplain", "late")
        late.do("save", awaited="closed")
        early.do("set", "sExplain", "early")
        window = early.ask("save")
        check(window["is"] == "window" and window["window"]["class"] == rig.CONFLICT, f"asked about it: {window}")
        shown = "\n".join(window["window"]["texts"])
        check("late" in shown and "early" in shown, f"both texts are shown: {shown}")
        check(contract["sExplain"] == "late", "nothing is written before the answer")
        early.do("press", rig.CONFLICT_BUTTONS[button], awaited="kept" if button == "back" else "closed")
        check(contract["sExplain"] == kept, f"{button}: {contract['sExplain']}")
        if button == "back":
            check(early.do("get", "sExplain") == "early", "what was typed is still there")
            early.do("cancel", awaited="closed")
        else:
            late.open(contract.key)
            late.do("set", "sExplain", "in between")
            late.do("save", awaited="closed")


def archived_meanwhile_stays_archived(early, late, contract):
    early.open(contract.key)
    late.do("archive", contract.key)
    archived = contract["iArchiveUserID"]
    check(archived != "0", "the list archives")
    early.do("set", "sExplain", "after the archive")
    answer = early.ask("save")
    check(contract["iArchiveUserID"] == archived, "the mark stays")
    check(contract["sExplain"] != "after the archive", "an archived contract is not changed")
    check(answer["is"] == "kept" and answer["said"], f"the refusal is told, and the window stays: {answer}")
    check(rig.CLERK in " ".join(answer["said"]), f"it names who archived it: {answer['said']}")
    check(early.do("get", "sExplain") == "after the archive", "what was typed is still there")
    early.do("cancel", awaited="closed")


def deleted_meanwhile_is_told(office, early, late, persons):
    key = late.add_contract(persons, 70_000_000)
    early.open(key)
    early.do("set", "sExplain", "typed for nothing")
    late.do("delete", key)
    early.do("asking", "on")
    answer = early.ask("save")
    check(answer["is"] == "question", f"it is told, with the offer to save it anew: {answer}")
    early.do("answer", "yes", awaited="closed")
    early.do("asking", "off")
    kept = office.database.rows("SELECT iID, iDocNum FROM AutomobilContracts WHERE sExplain='typed for nothing'")
    check(len(kept) == 1 and kept[0]["iDocNum"] != "0", f"saved as a new one: {kept}")


def editor_opened_earlier(office):
    office.open_office()
    early, late = office.desk(), office.desk()
    persons = office.persons()
    contract = Contract(office, early.add_contract(persons, 100_000_000))
    step("other fields")
    both_fields_stay(early, late, contract)
    office.check_books("merged")
    step("the same field")
    same_field_is_asked(early, late, contract)
    step("deleted meanwhile")
    deleted_meanwhile_is_told(office, early, late, persons)
    office.check_books("saved anew")
    step("archived meanwhile")
    archived_meanwhile_stays_archived(early, late, contract)
    office.check_books("archived")
    return "nothing of the other desk was taken back; whoever lost was told"


if __name__ == "__main__":
    run(editor_opened_earlier, __doc__)
