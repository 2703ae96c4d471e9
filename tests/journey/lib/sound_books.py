# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""What must be true of an office's data, whatever was killed: statements on the tables alone, past the program's own code.

Each statement returns a row per fault. Contracts are taken to be between two persons of the list, as the tests make them.
"""

CONTRACT = 69
CAR = 68
CONTRACT_DOCUMENT = 28
RECEIPT_DOCUMENT = 3
PAYMENT_DOCUMENT = 4
CHEQUE_DOCUMENT = 5
PERSONS_ACCOUNT = 110301
CHEQUES_IN_HAND = 110481
CHEQUES_DEPOSITED = 110482
CHEQUES_PAYABLE = 210281
CAR_SALE_CLEARING = 210681

# A row that was begun and never saved has no document, and may be there until somebody removes it.
_BEGUN = ("EXISTS(SELECT 1 FROM Placeholders p WHERE p.sTable='{table}' AND p.iRecordID={alias}.iID)")
_CONTRACT_BEGUN = _BEGUN.format(table="AutomobilContracts", alias="c")

# What is put into the bin when it is deleted.
BINNED = ("AutomobilContracts", "AutomobilInformations", "AutomobilDemands", "Persons", "CarBrands", "CarModels", "CarClasses")

_OWNERS = {CONTRACT: "AutomobilContracts", CAR: "AutomobilInformations"}


# Each figure of a contract is booked in whole units of money, and at most five of them are added up.
ROUNDED = 2.51

# What an instalment sale owes beside its commission, once the books hold it: the price, and the interest of its plan.
_POSTED = (f"EXISTS(SELECT 1 FROM Docs s WHERE s.iDocNum=c.iDocNum AND s.iFiscalYear=c.iFiscalYear "
           f"AND s.iHesabMoeenCode={CAR_SALE_CLEARING})")
_PRICE = f"IF({_POSTED},c.dAmount,0)"
_INTEREST = f"IF({_POSTED},(SELECT IFNULL(SUM(i.dExtra),0) FROM AutomobilPayments i WHERE i.iAutomobilContractID=c.iID),0)"


def _charged(person, tax, duty, discount, debt="0", credit="0"):
    """Where the rows of a person do not say what the contract says."""
    return (f"SELECT c.iID, {tax}, SUM(d.dBed) AS bed, SUM(d.dBes) AS bes FROM AutomobilContracts c "
            f"JOIN Docs d ON d.iDocNum=c.iDocNum AND d.iFiscalYear=c.iFiscalYear AND d.iPersonID=c.{person} "
            f"AND d.iHesabMoeenCode={PERSONS_ACCOUNT} "
            f"WHERE c.{person}<>0 AND c.iPersonFirstID<>c.iPersonSecondID GROUP BY c.iID "
            f"HAVING ABS(bed-MAX(c.dCommission+c.{tax}+c.{duty}+{debt}))>={ROUNDED} OR ABS(bes-MAX(c.{discount}+{credit}))>={ROUNDED}")


def _register(account, kind, state, side):
    """Where an account of cheques is not the sum of the cheques that stand on it."""
    return (f"SELECT books, register FROM (SELECT IFNULL((SELECT SUM({side}) FROM Docs d JOIN Documents h ON h.iNum=d.iDocNum "
            f"AND h.iFiscalYear=d.iFiscalYear WHERE h.iStatus=0 AND d.iHesabMoeenCode={account}),0) AS books, "
            f"IFNULL((SELECT SUM(dAmount) FROM Cheques WHERE iKind={kind} AND iState={state}),0) AS register) AS sums "
            f"WHERE ABS(books-register)>=0.01")


# What was taken out of the kept sums since, and the documents in them the other way round, each by its day and by its month.
_TO_BE_COMPARED = "".join(
    f"UNION ALL SELECT iMonth, {day}, iHesabMoeenCode, iHesabTafsilyCode, dBed, dBes FROM AccountTotalChanges "
    f"UNION ALL SELECT YEAR(h.date)*100+MONTH(h.date), {of_row}, d.iHesabMoeenCode, d.iHesabTafsilyCode, -d.dBed, -d.dBes FROM Documents h "
    f"JOIN Docs d ON d.iDocNum=h.iNum AND d.iFiscalYear=h.iFiscalYear WHERE h.bSummed=1 AND h.iStatus=0 "
    for day, of_row in (("iDay", "DAY(h.date)"), ("0", "0")))

# What counts as received for a row: valid receipts less valid payments.
_SIGNED = "IF(r.iKind=0,r.dAmount,-r.dAmount)"


# What the search finds records by: the number of the kind among the keys, its table, its columns of numbers that are a key, and of persons.
SOUGHT = [(1, "Persons", ("iCode",), ()),
          (2, "AutomobilContracts", ("iCode", "iNum"), ("iPersonFirstID", "iPersonSecondID")),
          (3, "AutomobilInformations", ("iCode",), ("iPersonID", "iPersonBuyerID")),
          (4, "AutomobilDemands", ("iCode",), ("iPersonID",)),
          (5, "Cheques", (), ("iPersonID",)),
          (6, "Documents", ("iNum",), ()),
          (7, "Factors", ("iID",), ("iPersonID",)),
          (8, "Receipts", ("iID",), ("iPersonID",))]

# An office from before gets its keys beside the work, and lacks some until then.
_SOUGHT_ALL = "EXISTS(SELECT 1 FROM Properties WHERE sSection='Search' AND sKey='Built' AND sValue LIKE '%/all/%')"
# Neither a number, nor one from its end, nor a word of an explanation, nor a person's key.
_IS_NAME = "{key} REGEXP '^[^0-9<~@]'"
_WORDS = "TRIM(REGEXP_REPLACE(IFNULL(p.sName2,''),'[^\\\\p{L}\\\\p{N}\\\\p{M}\\\\x{200c}]+',' '))"


def _sought(kind, table, numbers, persons):
    """Where the keys of a table are not those of its rows: what is left over, and what is missing."""
    def has(key):
        return f"EXISTS(SELECT 1 FROM SearchKeys k WHERE k.iKind={kind} AND k.iRecordID=o.iID AND k.sKey={key})"
    yield (f"a key of the search leads to no row of {table}",
           f"SELECT k.iRecordID FROM SearchKeys k LEFT JOIN {table} o ON o.iID=k.iRecordID WHERE k.iKind={kind} AND o.iID IS NULL")
    if numbers:
        lacks = " OR ".join(f"o.{column}<>0 AND NOT {has(f'CAST(o.{column} AS CHAR)')}" for column in numbers)
        yield (f"a row of {table} is not found by its number", f"SELECT o.iID FROM {table} o WHERE {_SOUGHT_ALL} AND ({lacks})")
    if persons:
        references = ["CONCAT('@',o.%s)" % column for column in persons]
        lacks = " OR ".join(f"o.{column}>0 AND NOT {has(key)}" for column, key in zip(persons, references))
        yield (f"a row of {table} is not known by its person", f"SELECT o.iID FROM {table} o WHERE {_SOUGHT_ALL} AND ({lacks})")
        yield (f"a row of {table} is known by a person whom it does not name",
               f"SELECT o.iID FROM SearchKeys k JOIN {table} o ON o.iID=k.iRecordID WHERE k.iKind={kind} AND k.sKey LIKE '@%' "
               f"AND k.sKey NOT IN ({','.join(references)})")


CHECKS = [
    *[check for row in SOUGHT for check in _sought(*row)],
    ("a record is not found by the name of its person",
     f"SELECT r.iKind, r.iRecordID FROM SearchKeys r JOIN SearchKeys n ON n.iKind=1 AND n.iRecordID=CAST(SUBSTR(r.sKey,2) AS INT) "
     f"LEFT JOIN SearchKeys k ON k.iKind=r.iKind AND k.sKey=n.sKey AND k.iRecordID=r.iRecordID WHERE {_SOUGHT_ALL} AND r.iKind<>1 "
     f"AND r.sKey LIKE '@%' AND {_IS_NAME.format(key='n.sKey')} AND k.iRecordID IS NULL"),
    ("a person is found by a name of before",
     f"SELECT p.iID, COUNT(*) AS found FROM Persons p JOIN SearchKeys k ON k.iKind=1 AND k.iRecordID=p.iID AND {_IS_NAME.format(key='k.sKey')} "
     f"GROUP BY p.iID HAVING found>MAX(CHAR_LENGTH({_WORDS})-CHAR_LENGTH(REPLACE({_WORDS},' ',''))+1)"),
    ("a document does not balance",
     "SELECT iDocNum, iFiscalYear, SUM(dBed), SUM(dBes) FROM Docs GROUP BY iDocNum, iFiscalYear "
     "HAVING ABS(SUM(dBed)-SUM(dBes))>=0.0001"),
    ("a kept sum of an account is not what its documents say",
     f"SELECT 1 FROM (SELECT iMonth AS m, iDay AS d, iHesabMoeenCode AS a, iHesabTafsilyCode AS t, dBed, dBes FROM AccountTotals {_TO_BE_COMPARED}) AS both_sides "
     "GROUP BY m, d, a, t HAVING ABS(SUM(dBed))>=0.0001 OR ABS(SUM(dBes))>=0.0001"),
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
     _charged("iPersonFirstID", "dTax", "dImposition", "dDiscountFirst", credit=_PRICE)),
    ("contract and document disagree about the second party",
     _charged("iPersonSecondID", "dTax2", "dImposition2", "dDiscountSecond", debt=f"{_PRICE}+{_INTEREST}")),
    ("contract and document disagree about the day",
     "SELECT c.iID, c.dateContract, h.date FROM AutomobilContracts c JOIN Documents h ON h.iNum=c.iDocNum "
     "AND h.iFiscalYear=c.iFiscalYear WHERE DATE(c.dateContract)<>DATE(h.date)"),
    ("a receipt has no document",
     f"SELECT r.iID, r.iDocNum FROM Receipts r LEFT JOIN Documents h ON h.iNum=r.iDocNum AND h.iFiscalYear=r.iFiscalYear "
     f"AND (h.iKind=IF(r.iKind=0,{RECEIPT_DOCUMENT},{PAYMENT_DOCUMENT}) OR r.iChequeID<>0 AND r.iKind=1 AND h.iKind={CHEQUE_DOCUMENT}) "
     "WHERE h.iID IS NULL"),
    ("a receipt's document has no receipt",
     f"SELECT h.iNum FROM Documents h LEFT JOIN Receipts r ON r.iDocNum=h.iNum AND r.iFiscalYear=h.iFiscalYear "
     f"WHERE h.iKind IN ({RECEIPT_DOCUMENT},{PAYMENT_DOCUMENT}) AND r.iID IS NULL"),
    # What an endorsed cheque pays may be several payments on the one document of the endorsement.
    ("a receipt and its document differ",
     f"SELECT r.iDocNum, r.iPersonID, r.got, SUM(d.dBes-d.dBed) AS credited FROM (SELECT iDocNum, iFiscalYear, iPersonID, "
     f"SUM({_SIGNED}) AS got FROM Receipts r WHERE r.iStatus<>1 GROUP BY iDocNum, iFiscalYear, iPersonID) AS r JOIN Docs d ON "
     f"d.iDocNum=r.iDocNum AND d.iFiscalYear=r.iFiscalYear AND d.iPersonID=r.iPersonID AND d.iHesabMoeenCode={PERSONS_ACCOUNT} "
     "GROUP BY r.iDocNum, r.iFiscalYear, r.iPersonID HAVING ABS(MAX(r.got)-credited)>=0.0001"),
    ("a receipt that stands has an empty document",
     "SELECT r.iID FROM Receipts r WHERE r.iStatus<>1 AND NOT EXISTS(SELECT 1 FROM Docs d WHERE d.iDocNum=r.iDocNum "
     "AND d.iFiscalYear=r.iFiscalYear)"),
    ("a void receipt has not been taken back",
     "SELECT r.iID FROM Receipts r JOIN Documents h ON h.iNum=r.iDocNum AND h.iFiscalYear=r.iFiscalYear WHERE r.iStatus=1 "
     "AND (r.iVoidUserID=0 OR IFNULL(r.sVoidReason,'')='' OR IF(r.iVoidDocNum=0, h.iStatus<>1 OR EXISTS(SELECT 1 FROM Docs d "
     "WHERE d.iDocNum=r.iDocNum AND d.iFiscalYear=r.iFiscalYear), NOT EXISTS(SELECT 1 FROM Docs d WHERE d.iDocNum=r.iVoidDocNum "
     "AND d.iFiscalYear=r.iVoidFiscalYear)))"),
    ("an instalment's state is not what was received for it",
     f"SELECT p.iID, p.iStatus, p.dAmount, SUM(IF(r.iStatus=0,{_SIGNED},0)) AS got FROM AutomobilPayments p JOIN Receipts r "
     f"ON r.iTable={CONTRACT} AND r.iRecordID=p.iAutomobilContractID AND r.iPaymentID=p.iID GROUP BY p.iID "
     "HAVING p.iStatus<>(got>=p.dAmount-100) AND ABS(got-p.dAmount)>=100 OR p.iStatus=1 AND got<=0"),
    ("a cheque and its receipts differ in the sum",
     "SELECT q.iID, q.dAmount, SUM(r.dAmount) AS got FROM Cheques q LEFT JOIN Receipts r ON r.iChequeID=q.iID AND r.iKind=q.iKind "
     "GROUP BY q.iID HAVING got IS NULL OR ABS(q.dAmount-got)>=0.0001"),
    ("a cheque is not in the state that its changes led to",
     "SELECT q.iID, q.iState FROM Cheques q LEFT JOIN ChequeChanges g ON g.iID=(SELECT MAX(l.iID) FROM ChequeChanges l "
     "WHERE l.iChequeID=q.iID AND l.iStatus=0) WHERE q.iState<>IFNULL(g.iToState,0) AND NOT (q.iState=6 AND g.iID IS NULL)"),
    ("a receipt counts though its cheque does not, or the other way round",
     "SELECT r.iID, r.iStatus, q.iState FROM Receipts r JOIN Cheques q ON q.iID=r.iChequeID AND q.iKind=r.iKind "
     "WHERE r.iStatus<>CASE WHEN q.iState IN (3,4) THEN 2 WHEN q.iState=6 THEN 1 ELSE 0 END"),
    ("a change of a cheque has no document",
     "SELECT g.iID FROM ChequeChanges g LEFT JOIN Documents h ON h.iNum=g.iDocNum AND h.iFiscalYear=g.iFiscalYear "
     "WHERE g.iDocNum<>0 AND h.iID IS NULL"),
    ("cheques in hand and their account differ", _register(CHEQUES_IN_HAND, 0, 0, "d.dBed-d.dBes")),
    ("deposited cheques and their account differ", _register(CHEQUES_DEPOSITED, 0, 1, "d.dBed-d.dBes")),
    ("cheques payable and their account differ", _register(CHEQUES_PAYABLE, 1, 0, "d.dBes-d.dBed")),
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
    ("an entry of the bin holds no row of its record",
     "SELECT b.iID FROM Bin b LEFT JOIN BinRows r ON r.iBinID=b.iID AND r.sTable=b.sTable AND r.iRecordID=b.iRecordID WHERE r.iID IS NULL"),
    ("a row in the bin belongs to no entry", "SELECT r.iID FROM BinRows r LEFT JOIN Bin b ON b.iID=r.iBinID WHERE b.iID IS NULL"),
    *[(f"a row of {table} is there and in the bin",
       f"SELECT o.iID FROM Bin b JOIN {table} o ON o.iID=b.iRecordID WHERE b.sTable='{table}'")
      for table in BINNED],
    ("a secret stands in the history", "SELECT iID FROM Changes WHERE sValues LIKE '%$argon2%'"),
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
