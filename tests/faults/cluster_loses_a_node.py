#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Two desks on two nodes of a cluster write contracts, and the node of one is killed: what was acknowledged stands on the others."""

import threading

from rig.fault import check, run, step
from lib.sound_books import check as check_books
from lib.waiting import wait_for

# The node of the first desk is killed when the two have saved so many, or more.
_FEWEST_BEFORE = 5
_MOST_TRIES = 20


class Writer(threading.Thread):
    """A desk that adds contracts one after the other, and again what it was told was not saved."""

    def __init__(self, name, desk, persons, count):
        super().__init__(name=name, daemon=True)
        self._desk = desk
        self._persons = persons
        self._count = count
        self.acknowledged = []
        self.refused = []
        self.problem = None

    def run(self):
        try:
            for number in range(1, self._count + 1):
                self._add(f"{self.name} {number}", 50_000_000 + 1_000 * number)
        except Exception as error:  # noqa: BLE001 - told by the test's own thread
            self.problem = error

    def _add(self, text, amount):
        for _ in range(_MOST_TRIES):
            try:
                self._desk.fill_new(self._persons, amount, text)
            except AssertionError as error:
                # The node went while the window was open, or before it was.
                self.refused.append(str(error))
                self._close_windows()
                continue
            if self._save(text):
                self.acknowledged.append(text)
                return
            self._close_windows()
        raise AssertionError(f"{text}: not saved in {_MOST_TRIES} tries; {self.refused[-3:]}")

    def _save(self, text):
        for _ in range(_MOST_TRIES):
            answer = self._desk.ask("save")
            if answer["is"] == "closed":
                return bool(answer["value"])
            self.refused.append(f"{text}: {answer['is']}, {answer['said']}")
            if answer["is"] != "kept":
                return False
        return False

    def _close_windows(self):
        """Questions are answered with yes, so that what was typed is dropped."""
        for _ in range(_MOST_TRIES):
            if self._desk.ask("cancel")["is"] == "failed":
                return


def on_survivors(cluster, texts):
    """Each acknowledged contract once, with a document of its own and a code of its own, the same on each node."""
    names = ",".join(f"'{text}'" for text in texts)
    views = []
    for node in cluster.nodes[1:]:
        # What was acknowledged elsewhere is applied here a moment later, unless a reader asks to wait for it, as the desks do.
        node.database.rows("SET SESSION wsrep_sync_wait=1; SELECT MAX(iID) FROM AutomobilContracts")
        check_books(node.database, f"on {node.name}")
        views.append(node.database.rows(
            "SELECT c.sExplain, c.iCode, c.iDocNum, COUNT(DISTINCT h.iID) AS documents, SUM(d.dBed) AS bed, SUM(d.dBes) AS bes "
            "FROM AutomobilContracts c LEFT JOIN Documents h ON h.iNum=c.iDocNum AND h.iFiscalYear=c.iFiscalYear "
            "LEFT JOIN Docs d ON d.iDocNum=c.iDocNum AND d.iFiscalYear=c.iFiscalYear "
            f"WHERE c.sExplain IN ({names}) GROUP BY c.iID ORDER BY c.iID"))
    found = views[0]
    stand = sorted(row["sExplain"] for row in found)
    check(stand == sorted(texts), f"each acknowledged contract stands there once: {sorted(set(texts) - set(stand))} do not, "
                                  f"{sorted(text for text in set(stand) if stand.count(text) > 1)} more often")
    check(len({row["iCode"] for row in found}) == len(found), "each has a code of its own")
    check(len({row["iDocNum"] for row in found}) == len(found), "each has a document of its own")
    for row in found:
        check(row["documents"] == "1" and float(row["bed"]) > 0 and abs(float(row["bed"]) - float(row["bes"])) < 0.0001,
              f"its document is there and balances: {row}")
    check(all(view == found for view in views), "the nodes agree")


def cluster_loses_a_node(office):
    cluster = office.open_cluster()
    step("three nodes")
    persons = [row["iID"] for row in cluster.nodes[0].database.rows("SELECT iID FROM Persons ORDER BY iID LIMIT 2")]
    addresses = [node.address for node in cluster.nodes]
    writers = [Writer(name, office.desk(address=",".join(addresses[first:] + addresses[:first])), persons, office.rounds // 2)
               for name, first in (("first", 0), ("second", 1))]
    for writer in writers:
        writer.start()
    enough = office.random.randint(_FEWEST_BEFORE, office.rounds * 3 // 5)
    wait_for(lambda: sum(len(writer.acknowledged) for writer in writers) >= enough or
             not any(writer.is_alive() for writer in writers), f"{enough} contracts", seconds=60)
    cluster.kill(cluster.nodes[0])
    before = sum(len(writer.acknowledged) for writer in writers)
    step(f"{before} contracts, and node1 is killed")
    for writer in writers:
        writer.join(90)
        check(not writer.is_alive(), f"{writer.name} comes to an end")
        if writer.problem:
            raise writer.problem
    check(before < office.rounds, "the node was killed while contracts were written")
    texts = [text for writer in writers for text in writer.acknowledged]
    check(len(texts) == office.rounds, f"all contracts were saved in the end: {len(texts)}")
    on_survivors(cluster, texts)
    refused = [text for writer in writers for text in writer.refused]
    step(f"{len(texts)} contracts stand on both survivors; told not to be saved at first: {refused}")
    return f"{len(texts)} acknowledged, {before} of them before the kill, all on both survivors"


if __name__ == "__main__":
    run(cluster_loses_a_node, __doc__, rounds=50)
