# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The file for the tax authority, read back with other programs."""

import csv
import io
import subprocess

from . import season
from .season import (ADDRESS, AMOUNT, AREA_CODE, CITY, CODE, DATE, DISCOUNT, DOCUMENT_DATE, DUTIES, ECONOMIC_NUMBER,
                     FAMILY_NAME, FIRST_NAME, GOODS_KIND, KIND, NATIONAL_CODE, PARTY_KIND, PERSON_KIND, POSTAL_CODE,
                     PROVINCE, RETURNED, SERIAL, TAX, TELEPHONE)

TABLES = {"Moshakhasat", "Foroush", "Foroush_Detail", "Kharid", "Kharid_Detail"}
_PERSON_KINDS = {season.NATURAL: "1", season.LEGAL: "2"}


class TaxFile:
    def __init__(self, path):
        self._path = path

    @property
    def tables(self):
        return set(_run("mdb-tables", "-1", self._path).split())

    def count(self, table):
        return int(_run("mdb-count", self._path, table))

    def records(self, table):
        """Dictionaries of texts by field, in the order of the file; nothing stored is empty."""
        return list(csv.DictReader(io.StringIO(_run("mdb-export", self._path, table))))


def _run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True, timeout=30,
                          env={"PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8", "MDB_JET3_CHARSET": "UTF-8"}).stdout


def detail_of(cells, guid):
    """The record that a row of the list, a list of texts, must have become."""
    record = {"HeadID": guid, "Description": cells[KIND], "Returned": "1" if cells[RETURNED] == season.YES else "0",
              "Amount": _number(cells[AMOUNT]), "ValueAddedTax": _number(cells[TAX]), "OtherDuties": _number(cells[DUTIES]),
              "Discount": _number(cells[DISCOUNT]), "FamilyName": cells[FAMILY_NAME]}
    if not cells[SERIAL]:
        return record
    serial = int(cells[SERIAL])
    return record | {
        "GoodsKind": cells[GOODS_KIND], "Sequence": str(0 if serial > 1_000_000_000 else serial),
        "PersonKind": _PERSON_KINDS[cells[PERSON_KIND]], "PostalCode": cells[POSTAL_CODE], "AreaCode": cells[AREA_CODE],
        "Telephone": cells[TELEPHONE], "Address": cells[ADDRESS], "FirstName": cells[FIRST_NAME],
        "EconomicNumber": cells[ECONOMIC_NUMBER], "NationalCode": cells[NATIONAL_CODE],
        "PartyKind": cells[PARTY_KIND] or "0", "ProvinceCode": cells[PROVINCE] or "0", "CityCode": cells[CITY] or "0",
        "ContractCode": _number(cells[CODE]), "ContractDate": cells[DATE], "DocumentDate": cells[DOCUMENT_DATE]}


def _number(cell):
    return cell.replace(",", "") or "0"


def differences(rows, records, guid):
    """What differs between the rows of the list and the file's records."""
    found = []
    if len(rows) != len(records):
        found.append(f"{len(records)} records instead of {len(rows)}")
    for number, (cells, record) in enumerate(zip(rows, records), 1):
        wanted = detail_of(cells, guid)
        for name, value in record.items():
            if value != wanted.get(name, ""):
                found.append(f"record {number}, {name}: {value!r} instead of {wanted.get(name, '')!r}")
    return found[:8]
