// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/importing/OpeningImport.h"

#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/ManualDocument.h"
#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/importing/ImportParsers.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/crm/importing/PersonFinder.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

const QString accountKey = u"account"_s;
const QString personKey = u"person"_s;
const QString debitKey = u"debit"_s;
const QString creditKey = u"credit"_s;
const QString descriptionKey = u"description"_s;
constexpr auto openingWords = u"سند افتتاحیه";

class OpeningRun : public ImportRun
{
public:
    explicit OpeningRun(int database);

    void check(ImportRow &row) override;
    QString fileProblem(const QList<ImportRow> &rows) override;
    QString question() override;
    qint32 write(const ImportRow &row) override;
    qint32 finish() override;

private:
    void settleAccount(ImportRow &row) const;
    static DocumentRow documentRow(const ImportRow &row);

    int m_database;
    OfficeSettings m_settings;
    PersonFinder m_persons;
    QHash<QString, QList<int>> m_accounts; // by code and by name
    ManualDocument m_document;
};

OpeningRun::OpeningRun(int database)
    : m_database(database)
    , m_settings(OfficeSettings::read({}, database))
    , m_persons(database)
{
    for (const AccountChart::Account &account : AccountChart::postable(database)) {
        m_accounts[QString::number(account.code)].append(account.code);
        m_accounts[searchKey(account.name)].append(account.code);
    }
    m_document.date = m_settings.fiscalYearOpeningDate();
    m_document.desc = u"%1 سال %2"_s.arg(openingWords).arg(m_settings.fiscalYear());
}

// A person's balance stands on the account of the persons, also where the file does not say so.
void OpeningRun::settleAccount(ImportRow &row) const
{
    const QString text = row.text(accountKey);
    if (text.isEmpty() && row.has(personKey)) {
        row.values.insert(accountKey, Accounts::persons);
        return;
    }
    const QList<int> found = m_accounts.value(searchKey(text));
    if (text.isEmpty())
        row.refuse(u"حساب"_s, u"حساب خالی است. کد حساب را بنویسید."_s);
    else if (found.isEmpty())
        row.refuse(u"حساب"_s, u"حساب «%1» نیست، یا حسابی است که ردیف نمی‌گیرد. کد حساب معین یا تفصیلی را بنویسید."_s.arg(text));
    else if (found.size() > 1)
        row.refuse(u"حساب"_s, u"%1 حساب «%2» هست. کد حساب را بنویسید."_s.arg(found.size()).arg(text));
    else
        row.values.insert(accountKey, found.constFirst());
}

void OpeningRun::check(ImportRow &row)
{
    m_persons.settle(row, personKey, u"شخص"_s);
    settleAccount(row);
    if (!row.problems.isEmpty())
        return;
    const DocumentRow entry = documentRow(row);
    if (entry.account == Accounts::persons && entry.personID == 0)
        row.refuse(u"شخص"_s, u"شخص خالی است. این حساب حساب اشخاص است: کد شخص را بنویسید."_s);
    if (entry.account != Accounts::persons && entry.personID != 0)
        row.refuse(u"شخص"_s, u"تنها حساب اشخاص (%1) شخص می‌گیرد. شخص را بردارید یا حساب را اصلاح کنید."_s.arg(Accounts::persons));
    if (entry.debit > 0 && entry.credit > 0)
        row.refuse(u"بدهکار"_s, u"هم بدهکار است و هم بستانکار. یکی را بنویسید."_s);
    if (IsEquals(entry.debit, 0) && IsEquals(entry.credit, 0))
        row.refuse(u"بدهکار"_s, u"مبلغی ندارد. بدهکار یا بستانکار را بنویسید."_s);
}

DocumentRow OpeningRun::documentRow(const ImportRow &row)
{
    const auto amount = [&](const QString &key) { return roundToDecimals(row.values.value(key).toDouble(), defaultMoneyDecimals()); };
    return {row.values.value(accountKey).toInt(), row.values.value(personKey).toInt(), amount(debitKey), amount(creditKey), row.text(descriptionKey)};
}

QString OpeningRun::fileProblem(const QList<ImportRow> &rows)
{
    QList<DocumentRow> entries;
    for (const ImportRow &row : rows) {
        if (!row.problems.isEmpty())
            return {}; // they come first
        entries.append(documentRow(row));
    }
    const AccountBalance sum = documentSum(entries);
    if (sum.isBalanced())
        return {};
    return u"فایل تراز نیست: بدهکار %1، بستانکار %2، تفاوت %3."_s.arg(DToMoney(sum.bed), DToMoney(sum.bes), DToMoney(qAbs(sum.net())));
}

QString OpeningRun::question()
{
    CTblTemp query(m_database);
    query.Open(false, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT iNum FROM Documents WHERE iFiscalYear=%1 AND iStatus=0 AND LEFT(sDesc,%2)=%3 ORDER BY iNum LIMIT 1", m_settings.fiscalYear(),
                                       static_cast<int>(std::char_traits<char16_t>::length(openingWords)), KSql::quoted(QString::fromUtf16(openingWords))));
    if (!query.HasResultRow())
        return {};
    return u"سال %1 سند افتتاحیه دارد (سند %2). سند افتتاحیه دیگری هم ثبت شود؟"_s.arg(m_settings.fiscalYear()).arg(query.GetLongFieldValue(0));
}

qint32 OpeningRun::write(const ImportRow &row)
{
    m_document.rows.append(documentRow(row));
    return 0;
}

qint32 OpeningRun::finish()
{
    if (m_document.rows.isEmpty())
        return 0;
    m_document.save(m_database);
    CTblDocuments header(m_database);
    header.IsRecordExist(u"iNum"_s, m_document.num, 0, KSql::formatted(" AND iFiscalYear=%1", m_document.fiscalYear));
    return header.m_iID;
}

}

QString OpeningImport::kindId()
{
    return u"openings"_s;
}

QString OpeningImport::title() const
{
    return u"مانده‌های آغاز سال"_s;
}

QString OpeningImport::form() const
{
    return u"Documents"_s;
}

QString OpeningImport::table() const
{
    return u"Documents"_s;
}

QString OpeningImport::keptBecause(qint32 key, int database) const
{
    CTblDocuments header(database);
    return header.IsRecordExist(u"iID"_s, key) ? ManualDocument::changeRefusal(header.m_iNum, header.m_iFiscalYear, database) : QString();
}

void OpeningImport::takeBack(qint32 key, int database) const
{
    CTblDocuments header(database);
    if (!header.IsRecordExist(u"iID"_s, key))
        throw RowChanged(RowChanged::Kind::Gone, header, key);
    ManualDocument::remove(header.m_iNum, header.m_iFiscalYear, key, database);
}

std::unique_ptr<ImportRun> OpeningImport::begin(int database) const
{
    return std::make_unique<OpeningRun>(database);
}

QList<ImportField> OpeningImport::fields() const
{
    using namespace ImportParsers;
    return {
        {.key = accountKey, .title = u"حساب"_s, .words = {u"کد حساب"_s, u"نام حساب"_s, u"سرفصل"_s, u"account code"_s}, .parse = text(), .example = QString::number(Accounts::persons)},
        {.key = personKey, .title = u"شخص"_s, .words = {u"کد شخص"_s, u"نام شخص"_s, u"کد ملی"_s, u"طرف حساب"_s}, .parse = text(), .example = u"1"_s},
        {.key = debitKey, .title = u"بدهکار"_s, .words = {u"مانده بدهکار"_s, u"بد"_s}, .parse = money(), .example = u"1,500,000"_s},
        {.key = creditKey, .title = u"بستانکار"_s, .words = {u"مانده بستانکار"_s, u"بس"_s}, .parse = money()},
        {.key = descriptionKey, .title = u"شرح"_s, .words = {u"توضیحات"_s}, .parse = text(), .example = u"مانده از سال پیش"_s},
    };
}
