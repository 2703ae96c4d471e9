#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""A desk that receives money without a pause keeps no other desk from saving contracts, in an office that has no rows yet."""

import threading

import rig
from lib import sound_books
from rig.drill import new_office
from rig.fault import check, run


class Receiver(threading.Thread):
    def __init__(self, desk, person):
        super().__init__(daemon=True)
        self._desk = desk
        self._person = person
        self._stopped = threading.Event()
        self.at_work = threading.Event()
        self.done = 0
        self.problem = None

    def run(self):
        try:
            while not self._stopped.is_set():
                self._desk.do("receive", self._person, 1 + self.done % 1000, f"receipt {self.done}")
                self.done += 1
                self.at_work.set()
        except Exception as error:  # noqa: BLE001 - told by the test
            self.problem = error
            self.at_work.set()

    def stop(self):
        self._stopped.set()
        self.join(60)
        if self.problem is not None:
            raise self.problem


def steady_receipts(office):
    folder = new_office(office, "office", keeps_log=False)
    folder.open()
    receiver = Receiver(folder.desk(), folder.persons[0])
    receiver.start()
    check(receiver.at_work.wait(60), "the desk receives")
    desk = folder.desk(user=rig.OTHER_CLERK)
    for number in range(office.rounds):
        key = desk.add_contract(folder.persons, 500_000_000, f"contract {number}")
        desk.open(key)
        desk.do("set", "dAmount", 400_000_000)
        desk.do("save", awaited="closed")
    receiver.stop()
    contracts = folder.database.number("SELECT COUNT(*) FROM AutomobilContracts WHERE dAmount=400000000")
    check(contracts == office.rounds, f"{contracts:.0f} contracts are saved, not {office.rounds}")
    received = folder.database.number("SELECT COUNT(*) FROM Receipts")
    check(received == receiver.done, f"{received:.0f} receipts are stored, not {receiver.done}")
    sound_books.check(folder.database, "the office")
    folder.close()
    return f"{office.rounds} contracts saved and changed while {receiver.done} receipts were written"


if __name__ == "__main__":
    run(steady_receipts, __doc__, rounds=6)
