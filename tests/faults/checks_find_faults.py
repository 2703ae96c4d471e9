#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later
"""Each check of the books finds the fault that it is named after: a list that finds nothing would prove nothing."""

import rig  # noqa: F401 - finds the library of the journeys
from lib.sound_books import BINNED, CHECKS, SOUGHT, faults
from rig.fault import check, run

# What makes each check find something, beside a sound contract (:c) and its document (:d); others may find it too.
# What a row cannot be without.
FURTHER = {"Documents": ",iFiscalYear=:y"}
SPOILED = {
    **{f"a key of the search leads to no row of {table}": f"INSERT INTO SearchKeys VALUES ({kind},'9',80)" for kind, table, _, _ in SOUGHT},
    **{f"a row of {table} is not found by its number": f"INSERT INTO {table} SET {numbers[-1]}=79{FURTHER.get(table, '')}"
       for _, table, numbers, _ in SOUGHT if numbers},
    **{f"a row of {table} is not known by its person": f"INSERT INTO {table}({persons[-1]}) VALUES (78)" for _, table, _, persons in SOUGHT if persons},
    **{f"a row of {table} is known by a person whom it does not name":
       f"INSERT INTO {table}(iID) VALUES (80); INSERT INTO SearchKeys VALUES ({kind},'@77',80)" for kind, table, _, persons in SOUGHT if persons},
    "a record is not found by the name of its person": "INSERT INTO SearchKeys SELECT 1,'newname',iPersonFirstID FROM AutomobilContracts LIMIT 1",
    "a person is found by a name of before":
        "INSERT INTO SearchKeys SELECT 1,CONCAT('oldname',seq),iPersonFirstID FROM AutomobilContracts JOIN seq_1_to_9 LIMIT 9",
    "a document does not balance": "INSERT INTO Docs(iDocNum,iFiscalYear,dBed) VALUES (:d,:y,5)",
    "a kept sum of an account is not what its documents say": "UPDATE Documents SET bSummed=1",
    "rows stand under no header": "INSERT INTO Docs(iDocNum,iFiscalYear) VALUES (99,:y)",
    "a contract has no document": "UPDATE AutomobilContracts SET iDocNum=98",
    "two contracts share a document": "INSERT INTO AutomobilContracts(iCode,iDocNum,iFiscalYear) VALUES (7,:d,:y)",
    "a contract's document has no contract": "INSERT INTO Documents(iNum,iFiscalYear,iKind) VALUES (97,:y,28)",
    "contract and document disagree about the first party": "UPDATE AutomobilContracts SET dTax=dTax+5",
    "contract and document disagree about the second party": "UPDATE AutomobilContracts SET dDiscountSecond=5",
    "contract and document disagree about the day": "UPDATE AutomobilContracts SET dateContract='2000-01-01'",
    "a receipt has no document": "INSERT INTO Receipts(dAmount,iDocNum,iFiscalYear) VALUES (5,96,:y)",
    "a receipt's document has no receipt": "INSERT INTO Documents(iNum,iFiscalYear,iKind) VALUES (95,:y,3)",
    "a receipt and its document differ":
        "INSERT INTO Receipts(dAmount,iDocNum,iFiscalYear,iPersonID) SELECT 5,:d,:y,iPersonFirstID FROM AutomobilContracts ORDER BY iID LIMIT 1",
    "a receipt that stands has an empty document": "INSERT INTO Receipts(dAmount,iDocNum,iFiscalYear) VALUES (5,89,:y)",
    "a void receipt has not been taken back":
        "INSERT INTO Receipts(dAmount,iDocNum,iFiscalYear,iStatus,iVoidUserID,sVoidReason) VALUES (5,:d,:y,1,1,'x')",
    "an instalment's state is not what was received for it":
        "INSERT INTO AutomobilPayments(iID,iAutomobilContractID,dAmount,iStatus) VALUES (88,87,5000,1); "
        "INSERT INTO Receipts(iTable,iRecordID,iPaymentID,dAmount) VALUES (69,87,88,10)",
    "a cheque and its receipts differ in the sum": "INSERT INTO Cheques(dAmount) VALUES (5)",
    "a cheque is not in the state that its changes led to": "INSERT INTO Cheques(dAmount,iState) VALUES (5,1)",
    "a receipt counts though its cheque does not, or the other way round":
        "INSERT INTO Cheques(iID,dAmount,iState) VALUES (86,5,3); INSERT INTO Receipts(iChequeID,dAmount) VALUES (86,5)",
    "a change of a cheque has no document": "INSERT INTO ChequeChanges(iChequeID,iDocNum,iFiscalYear) VALUES (85,84,:y)",
    "cheques in hand and their account differ": "INSERT INTO Cheques(dAmount) VALUES (5)",
    "deposited cheques and their account differ": "INSERT INTO Cheques(dAmount,iState) VALUES (5,1)",
    "cheques payable and their account differ": "INSERT INTO Cheques(iKind,dAmount) VALUES (1,5)",
    "an instalment has no contract": "INSERT INTO AutomobilPayments(iAutomobilContractID) VALUES (94)",
    "a file without a record in AutomobilContracts": "INSERT INTO FileDocs(iTable,iRecordID) VALUES (69,93)",
    "a custom value without a record in AutomobilContracts":
        "INSERT INTO CustomFieldRecords(iFieldID,iTable,iRecordID) VALUES (1,69,92)",
    "a reminder without a record in AutomobilContracts": "INSERT INTO Alarms(iTable,iRecordID) VALUES (69,91)",
    "a file without a record in AutomobilInformations": "INSERT INTO FileDocs(iTable,iRecordID) VALUES (68,93)",
    "a custom value without a record in AutomobilInformations":
        "INSERT INTO CustomFieldRecords(iFieldID,iTable,iRecordID) VALUES (1,68,92)",
    "a reminder without a record in AutomobilInformations": "INSERT INTO Alarms(iTable,iRecordID) VALUES (68,91)",
    **{f"two rows of {table} share a code": f"INSERT INTO {table}(iCode) VALUES (77),(77)"
       for table in ("AutomobilContracts", "AutomobilInformations", "AutomobilDemands", "Persons")},
    **{f"a placeholder of {table} has no row": f"INSERT INTO Placeholders(sTable,iRecordID,sSession) VALUES ('{table}',90,'s')"
       for table in ("AutomobilContracts", "AutomobilInformations", "AutomobilDemands")},
    "an entry of the bin holds no row of its record": "INSERT INTO Bin(sTable,iRecordID,date) VALUES ('Persons',83,NOW())",
    "a row in the bin belongs to no entry": "INSERT INTO BinRows(iBinID,sTable,iRecordID,oRow) VALUES (82,'Persons',83,'')",
    **{f"a row of {table} is there and in the bin":
       f"INSERT INTO {table}(iID) VALUES (81); INSERT INTO Bin(sTable,iRecordID,date) VALUES ('{table}',81,NOW())" for table in BINNED},
    "a secret stands in the history":
        "INSERT INTO Changes(sTable,date,sValues) SELECT 'Users',NOW(),CONCAT('[[\"x\",null,\"',sPasswordHash,'\"]]') FROM Users LIMIT 1",
}


def checks_find_faults(office):
    office.open_office()
    key = office.desk().add_contract(office.persons(), 100_000_000)
    office.check_books("a sound contract")
    contract = office.database.row(f"SELECT iDocNum, iFiscalYear FROM AutomobilContracts WHERE iID={key}")
    check(set(SPOILED) == {name for name, _ in CHECKS}, "each check is tried")
    for name, statement in CHECKS:
        spoil = SPOILED[name].replace(":d", contract["iDocNum"]).replace(":y", contract["iFiscalYear"])
        rows = office.database.rows(f"START TRANSACTION; {spoil}; SELECT COUNT(*) AS found FROM ({statement}) AS f; ROLLBACK")
        check(int(rows[0]["found"]) > 0, f"the check finds it: {name}")
    check(faults(office.database) == [], "all was taken back")
    return f"all {len(CHECKS)} checks find their fault"


if __name__ == "__main__":
    run(checks_find_faults, __doc__)
