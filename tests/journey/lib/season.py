# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""The expected rows of a season's tax return, computed here from the office's tables alone."""

from dataclasses import dataclass, field

from .report_labels import TITLES
from .shamsi import season_bounds, text_of_sql

SALE, PURCHASE = 7, 8
LONGEST_ADDRESS = 80
CONTRACT_TYPES = ("مبایعه نامه", "قرارداد اجاره", "فروش اقساطی", "قرارداد نامه")
NATURAL, LEGAL = "حقیقی", "حقوقی"
YES, NO = "بلی", "خیر"
(NUMBER, SERIAL, KIND, RETURNED, AMOUNT, TAX, PERSON_KIND, POSTAL_CODE, AREA_CODE, TELEPHONE, ADDRESS, FIRST_NAME,
 FAMILY_NAME, ECONOMIC_NUMBER, NATIONAL_CODE, PARTY_KIND, ZONE, PROVINCE, CITY, SMALL, DISCOUNT, TOTAL, CODE, DATE, DUTIES,
 PAYMENT, HEADING, DOCUMENT, DOCUMENT_DATE, GOODS_KIND) = range(len(TITLES))
_TOTALLED = (AMOUNT, TAX, DISCOUNT, TOTAL)
_MONEY = (*_TOTALLED, DUTIES)


@dataclass
class Return:
    """A season's rows, each a list by column: amounts are numbers (None for an empty cell), all else is text."""
    rows: list = field(default_factory=list)

    @property
    def totals(self):
        return [sum(row[column] or 0 for row in self.rows) for column in _TOTALLED]

    @property
    def too_long_addresses(self):
        return sum(len(row[ADDRESS]) > LONGEST_ADDRESS for row in self.rows)

    def add(self, row):
        row[NUMBER] = str(len(self.rows) + 1)
        if row[SERIAL] is None:
            row[SERIAL] = row[NUMBER]
        self.rows.append(row)


def reckon(database, kind, season, year, minimum):
    """The rows of a season. kind is SALE or PURCHASE."""
    first, end = season_bounds(season, year)
    parties = _Parties(database)
    result = Return()
    small = []
    if kind == SALE:
        for contract in database.rows(f"SELECT * FROM AutomobilContracts WHERE dateContract>='{first}' AND"
                                      f" dateContract<'{end}' AND iStatus=0 ORDER BY dateContract, iID"):
            if float(contract["dCommission"]) < minimum:
                small.append(contract)
            else:
                for row in _contract_rows(contract, parties):
                    result.add(row)
    for line in database.rows(
            "SELECT l.*, f.date, f.iPersonID, f.dAmount AS dSum, f.dDiscount, f.dTax, f.dImposition, f.iDocNum,"
            " f.iFiscalYear, s.iCode AS iServiceCode, s.sName AS sService FROM Factors f"
            " JOIN FactorStuffs l ON l.iFactorNum=f.iID JOIN Persons p ON p.iID=f.iPersonID"
            f" LEFT JOIN Services s ON s.iID=l.iServiceID WHERE f.date>='{first}' AND f.date<'{end}' AND f.iStatus=0"
            f" AND f.iType={kind} AND l.dCount>=0 AND l.dPrice>=0 AND l.dCount*l.dPrice>={minimum}"
            " ORDER BY f.date, f.iID, l.iID"):
        result.add(_line_row(line, parties))
    for returned in ("0", "1"):
        contracts = [contract for contract in small if contract["bReturn"] == returned]
        if sum(float(contract["dCommission"]) for contract in contracts) > 0:
            result.add(_sum_row(contracts, returned))
    return result


class _Parties:
    """The columns of a party, and the dates of the documents."""

    def __init__(self, database):
        self._persons = {row["iID"]: row for row in database.rows("SELECT * FROM Persons")}
        stored = database.rows("SELECT sKey, sValue FROM Properties WHERE sSection='Company'")
        self._company = {row["sKey"]: row["sValue"] for row in stored}
        self._documents = {(row["iNum"], row["iFiscalYear"]): row["date"]
                           for row in database.rows("SELECT iNum, iFiscalYear, date FROM Documents")}

    def fill(self, row, person_id):
        person = self._persons.get(person_id)
        if person is None:
            company = {key: self._company.get(key, "") for key in (
                "postalCode", "areaCode", "telephone", "address", "name1", "name2", "economicCode", "nationalCode",
                "taxKind", "taxZone", "provinceCode", "cityCode")}
            texts = list(company.values())
            natural = self._company.get("kind", "1") == "1"
        else:
            texts = [person[column] for column in (
                "sPostalCode", "sAreaCode", "sTel", "sAddress", "sName", "sFamily", "sEconomicCode", "sNationalCode",
                "iTaxKind", "iTaxZone", "iProvinceCode", "iCityCode")]
            natural = person["iKind"] in ("0", "1")
        row[PERSON_KIND] = NATURAL if natural else LEGAL
        texts = [text or "" for text in texts]
        if texts[8] not in ("5", "6", "7", "8"):
            texts[8] = ""
        row[POSTAL_CODE:CITY + 1] = texts[:8] + ["" if text == "0" else text for text in texts[8:]]

    def fill_document(self, row, source):
        number = source["iDocNum"]
        row[DOCUMENT] = "" if number == "0" else number
        row[DOCUMENT_DATE] = text_of_sql(self._documents.get((number, source["iFiscalYear"]), ""))


def _empty_row():
    row = [""] * len(TITLES)
    row[SERIAL] = None
    row[SMALL] = NO
    row[PAYMENT], row[HEADING], row[GOODS_KIND] = "نقد", "خدمت", "12"
    row[DUTIES] = 0.0
    return row


def _contract_rows(contract, parties):
    commission = float(contract["dCommission"])
    for person, mark, tax, duty, discount in (
            ("iPersonFirstID", "iPersonContract1", "dTax", "dImposition", "dDiscountFirst"),
            ("iPersonSecondID", "iPersonContract2", "dTax2", "dImposition2", "dDiscountSecond")):
        row = _empty_row()
        row[KIND] = CONTRACT_TYPES[int(contract["iContractType"])]
        row[RETURNED] = YES if contract["bReturn"] == "1" else NO
        levies = float(contract[tax]) + float(contract[duty])
        pays, given = {"0": (commission, float(contract[discount])), "1": (0.0, 0.0)}.get(contract[mark], (None, None))
        row[AMOUNT], row[TAX], row[DISCOUNT] = pays, levies, given
        row[TOTAL] = None if pays is None else pays + levies - given
        row[CODE], row[DATE] = contract["iCode"], text_of_sql(contract["dateContract"])
        parties.fill(row, contract[person])
        parties.fill_document(row, contract)
        yield row


def _line_row(line, parties):
    row = _empty_row()
    if line["sService"] is not None:
        row[SERIAL], row[KIND] = line["iServiceCode"], line["sService"]
    else:
        row[KIND] = line["sDesc"]
    row[RETURNED] = YES if line["iKind"] in ("3", "4") else NO
    amount = float(line["dCount"]) * float(line["dPrice"])
    share = amount / float(line["dSum"])
    row[AMOUNT] = amount
    row[TAX], row[DUTIES], row[DISCOUNT] = (share * float(line[column]) for column in ("dTax", "dImposition", "dDiscount"))
    row[TOTAL] = amount + row[TAX] + row[DUTIES] - row[DISCOUNT]
    row[CODE], row[DATE] = line["iFactorNum"], text_of_sql(line["date"])
    parties.fill(row, line["iPersonID"])
    parties.fill_document(row, line)
    return row


def _sum_row(contracts, returned):
    def summed(*columns):
        return sum(float(contract[column]) for contract in contracts for column in columns)
    row = [""] * len(TITLES)
    row[KIND] = row[FAMILY_NAME] = row[DATE] = " "
    row[RETURNED], row[SMALL] = (YES if returned == "1" else NO), YES
    row[AMOUNT] = 2 * summed("dCommission")
    row[TAX], row[DISCOUNT] = summed("dTax", "dTax2"), summed("dDiscountFirst", "dDiscountSecond")
    row[TOTAL] = row[AMOUNT] + row[TAX] + summed("dImposition", "dImposition2") - row[DISCOUNT]
    row[PERSON_KIND] = row[CODE] = "0"
    row[DUTIES] = 0.0
    return row


def differences(wanted, shown):
    """What differs between the rows and those of a list, each a list of texts; a handful is enough."""
    found = []
    if len(wanted.rows) != len(shown):
        found.append(f"{len(shown)} rows instead of {len(wanted.rows)}")
    for row, cells in zip(wanted.rows, shown):
        for column, (value, cell) in enumerate(zip(row, cells, strict=True)):
            if not _same_cell(column, value, cell):
                found.append(f"row {row[NUMBER]}, {TITLES[column]!r}: {cell!r} instead of {value!r}")
    return found[:8]


def _same_cell(column, value, cell):
    if column not in _MONEY or value is None:
        return cell == (value or "")
    return cell != "" and abs(float(cell.replace(",", "")) - value) <= 0.5
