// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/cheques/ChequeChanging.h"
#include "suite/treasury/records/ReceiptOwners.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/KSecurity.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/BooksAgree.h"

#include <functional>

// An office with a giver of cheques, somebody to endorse them to, and records of a kind that keep count of what was received for them.
class ChequeOffice
{
public:
    static constexpr int recordKind = 901;
    static constexpr int recordID = 31;

    // What the owner of the records was asked to do, in order.
    class Owner final : public ReceiptOwner
    {
    public:
        QList<OpenItem> openItems(int, CTblReceipts::Kind kind) const override { return kind == CTblReceipts::paid ? toPay : QList<OpenItem>(); }
        void lock(int record, bool mustExist) const override
        {
            asked.append(u"lock %1"_s.arg(record));
            if (mustExist && isGone)
                throw KAccountingError(u"این پرونده دیگر وجود ندارد."_s);
        }
        void recount(const CTblReceipts &receipt) const override
        {
            asked.append(u"recount %1 status %2"_s.arg(receipt.m_iRecordID).arg(receipt.m_iStatus));
        }
        mutable QStringList asked;
        QList<OpenItem> toPay; // of everybody
        bool isGone = false;
    };

    ChequeOffice()
    {
        ReceiptOwners::enter(recordKind, owner);
        giver = office.addPerson(u"رضا احمدی"_s);
        endorsee = office.addPerson(u"پارس خودرو"_s);
        GetDBSetting()->SetFiscalYear(1405);
        GetDBSetting()->SetFiscalYearOpeningDate(date(3, 21));
        GetDBSetting()->SetFiscalYearClosingDate(QDateTime(QDate(2027, 3, 20), QTime(0, 0), Qt::UTC));
    }
    ~ChequeOffice() { ReceiptOwners::remove(recordKind); }

    static QDateTime date(int month, int day) { return QDateTime(QDate(2026, month, day), QTime(0, 0), Qt::UTC); }

    void clear()
    {
        GetDBSetting()->SetClosedDB(false);
        GetDBSetting()->SetFiscalYear(1405);
        GetDBSetting()->Login(office.admin);
        KSecurity::forgetRights();
        for (const char *table : {"Receipts", "Cheques", "ChequeChanges", "Documents", "Docs", "Changes"})
            office.database.run(u"DELETE FROM "_s + QLatin1String(table));
        owner.asked.clear();
        owner.toPay.clear();
        owner.isGone = false;
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
            dialog->takeShown();
    }

    ReceiptPosting::Handover handover(const QString &sayad = u"1234567890123456"_s, CTblReceipts::Kind kind = CTblReceipts::received) const
    {
        return {.kind = kind,
                .personID = giver,
                .date = date(5, 1),
                .method = CTblReceipts::cheque,
                .cheque = Cheque{sayad, u"77"_s, u"ملت"_s, u"ونک"_s, u"6510"_s, date(6, 1), {}},
                .parts = {{1500, u"چک اول"_s, {}}}};
    }
    // Key of a cheque that came in, or went out, by that.
    static int enter(const ReceiptPosting::Handover &handover) { return ReceiptPosting::save(handover).constFirst().chequeID; }
    int received() const { return enter(handover()); }
    int given() const { return enter(handover(u"6543210987654321"_s, CTblReceipts::paid)); }

    ChequeChanging::Change step(int cheque, ChequeState to, int month = 5, int day = 10) const
    {
        return {.seen = ChequeChanging::seen(cheque), .to = to, .date = date(month, day), .account = Accounts::bank, .endorsedID = endorsee};
    }
    static ReceiptPurpose claim(int paymentID = 0)
    {
        return {.recordKind = recordKind, .recordID = recordID, .paymentID = paymentID, .what = ReceiptPurpose::Price, .text = u"بهای خودرو"_s};
    }
    ChequeChanging::Changed bring(int cheque, ChequeState to) const { return ChequeChanging::change(step(cheque, to)); }

    QString value(const QString &statement) { return office.database.value(statement); }
    // What an account holds, by valid documents; of a person where one is passed.
    double balance(int account, int person = 0)
    {
        return value(u"SELECT IFNULL(SUM(d.dBed-d.dBes),0) FROM Docs d JOIN Documents h ON h.iNum=d.iDocNum AND h.iFiscalYear=d.iFiscalYear "
                     "WHERE h.iStatus=0 AND d.iHesabMoeenCode=%1 AND (%2=0 OR d.iPersonID=%2)"_s.arg(account)
                         .arg(person))
            .toDouble();
    }
    static QString refusalOf(const std::function<void()> &work)
    {
        try {
            work();
        } catch (const KAccountingError &error) {
            return error.userMessage();
        }
        return {};
    }

    TestOffice office;
    Owner owner;
    int giver = 0;
    int endorsee = 0;
};
