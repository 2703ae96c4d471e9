#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""Reads the include graph of auto/, suite/ and host/ and names every arrow that does not point down.

    include_graph.py [ROOT]

A header and the source of the same name are one unit: including the header means linking the source, so what the source
includes counts too. Five things are faults: an include that goes up a floor, a circle among folders, a circle among units,
a unit that is no window but reaches one of Qt's window classes, and a rule that reaches the database.
"""

import argparse
import re
import sys
from collections import defaultdict, deque
from pathlib import Path, PurePosixPath

# From below. Folders on one line may see each other, as long as there is no circle.
FLOORS = [
    ["suite/sql"],
    ["suite/db/connection"],
    ["suite/db/records"],
    ["suite/utility"],
    ["suite/accounting/frame"],
    ["suite/accounting/office"],
    ["suite/accounting/changes"],
    ["suite/accounting/books/chart", "suite/accounting/reports"],
    ["suite/accounting/books/totals"],
    ["suite/accounting/papers"],
    ["suite/accounting/attachments", "suite/accounting/books", "suite/accounting/invoices", "suite/accounting/taxfile"],
    ["suite/accounting/bin"],
    ["suite/accounting/lists"],
    ["suite/accounting/records"],
    ["suite/accounting/waiting"],
    ["suite/accounting/imported"],
    ["suite/accounting/importing"],
    ["suite/accounting/recovery"],
    ["suite/accounting/history"],
    ["suite/accounting/search", "suite/accounting/timeline", "suite/accounting/today"],
    ["suite/accounting/twins"],
    ["suite/crm", "suite/image"],
    ["suite/treasury"],
    ["auto"],
    ["host"],
]
# These see nothing but themselves.
ALONE = ["suite/sql", "suite/utility/documents", "suite/utility/values"]
# Neighbours that do not know each other.
STRANGERS = [("suite/crm", "suite/image")]
# The host loads the module while it runs and knows nothing but its entry; only the demo office works by the module's rules.
MODULE = "auto"
MODULE_ENTRY = "auto/CAutoDBSetting"
HOST = "host"
DEMO = "host/demo"

# Which units are windows and which are rules, by folder; "*" is all of the folder. The build makes its libraries by the same
# table. All others are records, values and work on data.
KINDS = "cmake/kinds.txt"
DATABASE = "suite/db"
WINDOW_NAME = re.compile(r"CDlg")

# Qt's headers that show nothing: every other one counts as a window's.
CORE = set("""
    QAbstractItemModel QAbstractListModel QAbstractTableModel QAnyStringView QAtomicInt QBuffer QByteArray QByteArrayView QCache QCalendar QCborArray QCborValue
    QByteArrayList QChar QCollator QCommandLineParser QCoreApplication QCryptographicHash QDate QDateTime QDebug QDir QDirIterator QElapsedTimer QEvent
    QEventLoop QFile QFileInfo QFunctionPointer QHash QIODevice QItemSelectionModel QJsonArray QJsonDocument QJsonObject QJsonValue
    QLibrary QLibraryInfo QList QLocalServer QLocalSocket QLocale QLockFile QLoggingCategory QMap QMetaObject QMetaType
    QMimeData QMultiHash QMultiMap QMutex QMutexLocker QObject QPair QPointer QProcess QProcessEnvironment QQueue
    QRandomGenerator QRegularExpression QSaveFile QScopedValueRollback QScopeGuard QSet QSettings QSharedPointer
    QSignalBlocker QSortFilterProxyModel QStandardPaths QString QStringConverter QStringDecoder QStringList QStringView QSysInfo QTemporaryDir
    QTemporaryFile QTextStream QThread QTime QTimer QTranslator QUrl QUuid QVariant QVector QVersionNumber QWaitCondition QXmlStreamReader
    QtEndian QtGlobal
""".split())

INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<(Q\w+(?:/\w+)*)>)', re.MULTILINE)
GENERATED = (".moc",)


def unit_of(path):
    return re.sub(r"(_posix|_windows)?\.(h|cpp)$", "", path)


def folder_of(unit):
    return str(PurePosixPath(unit).parent)


def within(unit, folder):
    return unit.startswith(folder + "/")


def floor_of(unit):
    """The index of the most specific floor that holds the unit."""
    found = [(len(folder), level) for level, folders in enumerate(FLOORS) for folder in folders if within(unit, folder)]
    return max(found)[1] if found else -1


class Graph:
    """arrows: per unit, the units it includes, each with the file that does so. shown: per unit, Qt's window headers.
    kinds: per kind, its names per folder."""

    def __init__(self, root):
        self.kinds = {"window": {}, "rule": {}}
        for line in (root / KINDS).read_text(encoding="utf-8").splitlines():
            if line and not line.startswith("#"):
                kind, folder, *names = line.split()
                self.kinds[kind][folder] = names
        self.files = sorted(str(path.relative_to(root)) for top in ("auto", "suite", "host")
                            for path in (root / top).rglob("*") if path.suffix in (".h", ".cpp"))
        self.units = sorted({unit_of(file) for file in self.files})
        self.arrows = defaultdict(dict)
        self.shown = defaultdict(dict)
        self.includes = []
        self.missing = []
        present = set(self.files)
        for file in self.files:
            for ours, qt in INCLUDE.findall((root / file).read_text(encoding="utf-8")):
                if qt:
                    if qt.rsplit("/", 1)[-1] not in CORE:
                        self.shown[unit_of(file)].setdefault(f"<{qt}>", file)
                elif ours in present:
                    self.includes.append((file, ours))
                    if unit_of(ours) != unit_of(file):
                        self.arrows[unit_of(file)].setdefault(unit_of(ours), file)
                elif not ours.endswith(GENERATED):
                    self.missing.append(f"{file} includes {ours}, which is not there")

    def is_of(self, kind, unit):
        names = self.kinds[kind].get(folder_of(unit), ())
        return PurePosixPath(unit).name in names or "*" in names

    def is_window(self, unit):
        return bool(WINDOW_NAME.match(PurePosixPath(unit).name)) or self.is_of("window", unit)


def up_a_floor(graph):
    for file, header in graph.includes:
        here, there = unit_of(file), unit_of(header)
        if floor_of(there) > floor_of(here):
            yield f"{file} includes {header}: up a floor"
        elif any(within(here, folder) and not within(there, folder) for folder in ALONE):
            yield f"{file} includes {header}: its folder sees nothing but itself"
        elif any(within(here, a) and within(there, b) or within(here, b) and within(there, a) for a, b in STRANGERS):
            yield f"{file} includes {header}: the two do not know each other"
        elif within(here, HOST) and not within(here, DEMO) and within(there, MODULE) and there != MODULE_ENTRY:
            yield f"{file} includes {header}: of the module the host knows its entry alone"
        elif within(there, DEMO) and not within(here, DEMO):
            yield f"{file} includes {header}: the demo office is a program of its own"


def shortest_way(arrows, start, is_end):
    """The nodes from start to the nearest node that is an end, start itself only when a way leads back to it."""
    before = {}
    waiting = deque([start])
    while waiting:
        node = waiting.popleft()
        for following in sorted(arrows.get(node, ())):
            if is_end(following):
                way = [following]
                while node != start:
                    way.append(node)
                    node = before[node]
                return [start, *reversed(way)]
            if following not in before and following != start:
                before[following] = node
                waiting.append(following)
    return None


def circles(arrows):
    """A shortest circle through each node that no circle found before goes through."""
    seen = set()
    for node in sorted(arrows):
        if node in seen:
            continue
        way = shortest_way(arrows, node, lambda following, node=node: following == node)
        if way:
            seen.update(way)
            yield way


def folder_circles(graph):
    folders = defaultdict(dict)
    for unit, targets in graph.arrows.items():
        for target, file in targets.items():
            if folder_of(unit) != folder_of(target):
                folders[folder_of(unit)].setdefault(folder_of(target), f"{file} includes {target}.h")
    for way in circles(folders):
        steps = [folders[a][b] for a, b in zip(way, way[1:])]
        yield "circle of folders " + " -> ".join(way) + ": " + "; ".join(steps)


def unit_circles(graph):
    for way in circles(graph.arrows):
        yield "circle of files: " + " -> ".join([graph.arrows[a][b] for a, b in zip(way, way[1:])] + [way[-1]])


def linked(graph):
    """The arrows but the host's to the module, which it does not link: the entry's source is not behind its header there."""
    return {unit: {target: file for target, file in targets.items() if target != MODULE_ENTRY or within(unit, MODULE)}
            for unit, targets in graph.arrows.items()}


def users_of(arrows, unit):
    """All units that include the unit, directly or not."""
    found, waiting = set(), [unit]
    while waiting:
        followed = waiting.pop()
        for user, targets in arrows.items():
            if followed in targets and user not in found and user != unit:
                found.add(user)
                waiting.append(user)
    return sorted(found)


def reached_windows(graph):
    arrows = linked(graph)
    shows = graph.shown.__contains__
    for unit in graph.units:
        if graph.is_window(unit):
            continue
        # What only goes through another unit that is no window is told there.
        ways = [[unit]] if shows(unit) else [
            [unit, target] if shows(target) else [unit, *(shortest_way(arrows, target, shows) or [])]
            for target in sorted(arrows.get(unit, ())) if graph.is_window(target)]
        way = min((way for way in ways if shows(way[-1])), key=len, default=None)
        if not way:
            continue
        header, last = min(graph.shown[way[-1]].items())
        chain = [arrows[a][b] for a, b in zip(way, way[1:])] + [last, header]
        others = [user for user in users_of(arrows, unit) if not graph.is_window(user)]
        more = f" (and with it {len(others)} more, such as {others[0]})" if others else ""
        yield f"{unit} is no window and reaches one: {' -> '.join(chain)}{more}"


def rules_with_a_database(graph):
    for unit in graph.units:
        if not graph.is_of("rule", unit):
            continue
        way = shortest_way(graph.arrows, unit, lambda target: within(target, DATABASE))
        if way:
            chain = [graph.arrows[a][b] for a, b in zip(way, way[1:])] + [way[-1]]
            yield f"{unit} is a rule and reaches the database: {' -> '.join(chain)}"


def stale_names(graph):
    arrows = linked(graph)
    shows = graph.shown.__contains__
    for kind, folders in graph.kinds.items():
        for unit in (f"{folder}/{name}" for folder, names in folders.items() for name in names):
            if unit.endswith("/*"):
                if not any(folder_of(other) == unit[:-2] for other in graph.units):
                    yield f"{unit} stands among the {kind}s and holds no source"
            elif unit not in graph.units:
                yield f"{unit} stands among the {kind}s and is not there"
            elif kind == "window" and not shows(unit) and not shortest_way(arrows, unit, shows):
                yield f"{unit} stands among the windows and reaches none"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("root", type=Path, nargs="?", default=Path(__file__).resolve().parents[2])
    graph = Graph(parser.parse_args().root)
    checks = (up_a_floor, folder_circles, unit_circles, reached_windows, rules_with_a_database, stale_names)
    faults = graph.missing + [fault for check in checks for fault in check(graph)]
    if not graph.files:
        faults.append("no source was found")
    for fault in faults:
        print(fault)
    print(f"{len(faults)} fault(s) in {len(graph.files)} sources")
    return bool(faults)


if __name__ == "__main__":
    sys.exit(main())
