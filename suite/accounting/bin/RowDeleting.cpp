// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/bin/RowDeleting.h"

#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/db/records/KMySQL.h"
#include "suite/db/connection/KTransaction.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// What a user knows a row by, and the document that goes with it.
constexpr QStringView identifying[] = {u"iCode", u"iNum", u"sName", u"sTitle", u"sUser", u"iDocNum", u"iFiscalYear"};
constexpr QStringView archiver = u"iArchiveUserID";

bool isSameRow(const KRowValues &asked, const KRowValues &now)
{
    return std::ranges::all_of(identifying, [&](QStringView column) {
        const QString name = column.toString();
        return isSameValue(asked.value(name), now.value(name));
    });
}

RowDeleting::Listener &listener()
{
    static RowDeleting::Listener set;
    return set;
}

void requireAsAsked(KMySQL &record, qint32 key, const KRowValues &asked)
{
    const auto refuse = [&](const QString &text, bool isGone) {
        throw RowDeleting::Refused(text.arg(RowChanged::lastChange(record.GetTableName(), key, record.database())), isGone);
    };
    if (!record.lockRecord(key))
        refuse(u"%1 این ردیف را در این میان حذف کرده است."_s, true);
    const KRowValues now = record.rowValues();
    const QString archived = archiver.toString();
    if (asked.value(archived).toInt() == 0 && now.value(archived).toInt() != 0)
        refuse(u"%1 این ردیف را در این میان بایگانی کرده است. چیزی حذف نشد."_s, false);
    if (!isSameRow(asked, now))
        refuse(u"%1 این ردیف را در این میان تغییر داده است. چیزی حذف نشد؛ لطفا دوباره به آن نگاه کنید."_s, false);
}

}

RowDeleting::Refused::Refused(const QString &userMessage, bool isGone)
    : KAccountingError(userMessage)
    , m_isGone(isGone)
{
}

RowDeleting::Refused::~Refused() = default;

void RowDeleting::run(KMySQL &record, const std::function<void()> &requireDeletable)
{
    const qint32 key = record.value(u"iID").toInt();
    const KRowValues asked = record.rowValues();
    qint32 kept = 0;
    KTransaction::runReplayable(
        [&] {
            // What is deleted may take a document along.
            CTblDocuments::lockBooks(record.database());
            // The question may have been open for long.
            OfficeClosing::requireOpen(record.database());
            requireAsAsked(record, key, asked);
            if (requireDeletable)
                requireDeletable();
            kept = Bin::put(record);
            record.Delete();
        },
        record.database());
    if (kept == 0 || !listener())
        return;
    if (const std::optional<Bin::Entry> entry = Bin::entry(kept, record.database()))
        listener()(*entry);
}

void RowDeleting::setListener(const Listener &told)
{
    listener() = told;
}
