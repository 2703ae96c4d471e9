# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""What must be true of an office's data, whatever was killed: statements on the tables alone, past the program's own code.

Each statement returns a row per fault. Contracts are taken to be between two persons of the list, as the tests make them.
"""

CONTRACT = 69
CAR = 68
CONTRACT_DOCUMENT = 28
RECEIPT_DOCUMENT = 3
PERSONS_ACCOUNT = 110301

# A row that was begun and never saved has no document, and may be there until somebody removes it.
_BEGUN = ("EXISTS(SELECT 1 FROM Placeholders p WHERE p.sTable='{table}' AND p.iRecordID={alias}.iID)")
_CONTRACT_BEGUN = _BEGUN.format(table="AutomobilContracts", alias="c")

_OWNERS = {CONTRACT: "AutomobilContracts", CAR: "AutomobilInformations"}


def _charged(person, tax, duty, discount):
    """Where the rows of a person do not say what the contract says."""
    return (f"SELECT c.iID, {tax}, SUM(d.dBed) AS bed, SUM(d.dBes) AS bes FROM AutomobilContracts c "
            f"JOIN Docs d ON d.iDocNum=c.iDocNum AND d.iFiscalYear=c.iFiscalYear AND d.iPersonID=c.{person} "
            f"AND d.iHesabMoeenCode={PERSONS_ACCOUNT} "
            f"WHERE c.{person}<>0 AND c.iPersonFirstID<>c.iPersonSecondID GROUP BY c.iID "
            f"HAVING ABS(bed-MAX(c.dCommission+c.{tax}+c.{duty}))>=0.0001 OR ABS(bes-MAX(c.{discount}))>=0.0001")


CHECKS = [
    ("a document does not balance",
     "SELECT iDocNum, iFiscalYear, SUM(dBed), SUM(dBes) FROM Docs GROUP BY iDocNum, iFiscalYear "
     "HAVING ABS(SUM(dBed)-SUM(dBes))>=0.0001"),
    ("rows stand under no header",
     "SELECT d.iID, d.iDocNum FROM Docs d LEFT JOIN Documents h ON h.iNum=d.iDocNum AND h.iFiscalYear=d.iFiscalYear "
     "WHERE h.iID IS NULL"),
    ("a contract has no document",
     f"SELECT c.iID, c.iDocNum FROM AutomobilContracts c LEFT JOIN Documents h ON h.iNum=c.iDocNum "
     f"AND h.iFiscalYear=c.iFiscalYear AND h.iKind={CONTRACT_DOCUMENT} WHERE h.iID IS NULL AND NOT {_CONTRACT_BEGUN}"),
    ("two contracts share a document",
     "SELECT iDocNum, iFiscalYear, COUNT(*) FROM AutomobilContracts WHERE iDocNum<>0 GROUP BY iDocNum, iFiscalYear "
     "HAVING COUNT(*)>1"),
    ("a contract's document has no contract",
     f"SELECT h.iNum, h.iFiscalYear FROM Documents h LEFT JOIN AutomobilContracts c ON c.iDocNum=h.iNum "
     f"AND c.iFiscalYear=h.iFiscalYear WHERE h.iKind={CONTRACT_DOCUMENT} AND c.iID IS NULL"),
    ("contract and document disagree about the first party",
     _charged("iPersonFirstID", "dTax", "dImposition", "dDiscountFirst")),
    ("contract and document disagree about the second party",
     _charged("iPersonSecondID", "dTax2", "dImposition2", "dDiscountSecond")),
    ("contract and document disagree about the day",
     "SELECT c.iID, c.dateContract, h.date FROM AutomobilContracts c JOIN Documents h ON h.iNum=c.iDocNum "
     "AND h.iFiscalYear=c.iFiscalYear WHERE DATE(c.dateContract)<>DATE(h.date)"),
    ("a receipt has no document",
     f"SELECT r.iID, r.iDocNum FROM Receipts r LEFT JOIN Documents h ON h.iNum=r.iDocNum "
     f"AND h.iFiscalYear=r.iFiscalYear AND h.iKind={RECEIPT_DOCUMENT} WHERE h.iID IS NULL"),
    ("a receipt's document has no receipt",
     f"SELECT h.iNum FROM Documents h LEFT JOIN Receipts r ON r.iDocNum=h.iNum AND r.iFiscalYear=h.iFiscalYear "
     f"WHERE h.iKind={RECEIPT_DOCUMENT} AND r.iID IS NULL"),
    ("a receipt and its document differ in the amount",
     "SELECT r.iID, r.dAmount, SUM(d.dBed) AS bed FROM Receipts r JOIN Docs d ON d.iDocNum=r.iDocNum "
     "AND d.iFiscalYear=r.iFiscalYear GROUP BY r.iID HAVING ABS(MAX(r.dAmount)-bed)>=0.0001"),
    ("an instalment has no contract",
     "SELECT p.iID FROM AutomobilPayments p LEFT JOIN AutomobilContracts c ON c.iID=p.iAutomobilContractID "
     "WHERE c.iID IS NULL"),
    *[(f"{what} without a record in {owner}",
       f"SELECT f.iID FROM {table} f LEFT JOIN {owner} o ON o.iID=f.iRecordID WHERE f.iTable={kind} AND o.iID IS NULL")
      for kind, owner in _OWNERS.items()
      for what, table in (("a file", "FileDocs"), ("a custom value", "CustomFieldRecords"), ("a reminder", "Alarms"))],
    *[(f"two rows of {table} share a code",
       f"SELECT iCode, COUNT(*) FROM {table} WHERE iCode<>0 GROUP BY iCode HAVING COUNT(*)>1")
      for table in ("AutomobilContracts", "AutomobilInformations", "AutomobilDemands", "Persons")],
    *[(f"a placeholder of {table} has no row",
       f"SELECT p.iID FROM Placeholders p LEFT JOIN {table} o ON o.iID=p.iRecordID WHERE p.sTable='{table}' "
       "AND o.iID IS NULL")
      for table in ("AutomobilContracts", "AutomobilInformations", "AutomobilDemands")],
]

# Income as the documents of contracts that exist give it, in credit.
INCOME = (f"SELECT IFNULL(SUM(d.dBes-d.dBed),0) AS income FROM Docs d JOIN AutomobilContracts c ON c.iDocNum=d.iDocNum "
          f"AND c.iFiscalYear=d.iFiscalYear WHERE d.iHesabMoeenCode=410202")


def faults(database, checks=None):
    """What is not so, a line each; empty when all is well. One statement asks for all of it."""
    asked = CHECKS if checks is None else checks
    parts = [f"SELECT {number} AS fault, (SELECT COUNT(*) FROM ({statement}) AS f{number}) AS found"
             for number, (_, statement) in enumerate(asked)]
    rows = database.rows(" UNION ALL ".join(parts))
    return [f"{asked[int(row['fault'])][0]}: {row['found']}" for row in rows if row["found"] != "0"]


def check(database, after=""):
    """Raises with all that is wrong."""
    wrong = faults(database)
    if wrong:
        raise AssertionError(f"{after}: " + "; ".join(wrong))
