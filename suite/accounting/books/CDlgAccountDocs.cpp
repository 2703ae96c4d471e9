// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/CDlgAccountDocs.h"

#include "suite/accounting/books/DocumentRowsPane.h"
#include "suite/accounting/books/DocumentSheet.h"
#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/papers/CDlgPaper.h"
#include "suite/utility/entries/EntryRange.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// No record has these keys.
constexpr int broughtForwardKey = -1;
constexpr int closingKey = -2;

// The form whose rights count: the documents', but for a person's statement that of the receipts where the user has the right there.
KSecurity securityOf(const AccountLedger::Scope &scope, KSecurity::Right right)
{
    const QString receipts = u"Receipts"_s;
    KSecurity security;
    security.SetFormName(scope.isPerson() && KSecurity::IsGranted(receipts, right) ? receipts : u"Documents"_s);
    return security;
}

QString titleOf(const AccountLedger::Scope &scope)
{
    if (!scope.isPerson())
        return u"گردش حساب %1 - %2"_s.arg(scope.code).arg(AccountChart::nameOf(scope.code));
    const AccountLedger::Person person = AccountLedger::person(scope.personID);
    QString title = u"صورتحساب %1 - کد %2"_s.arg(person.name, QString::number(person.code));
    if (!person.nationalCode.isEmpty())
        title += u" - کد ملی "_s + person.nationalCode;
    return title;
}

KListModel::Cell balanceCell(double balance)
{
    return {DToMoney(std::abs(balance)), balance};
}

QString natureOf(double balance)
{
    return AccountBalance{std::max(balance, 0.0), std::max(-balance, 0.0)}.nature();
}

}

CDlgAccountDocs::CDlgAccountDocs(AccountLevel level, int code, const QDateTime &from, const QDateTime &to, QWidget *parent)
    : CDlgAccountDocs(AccountLedger::Scope::account(level, code), from, to, parent)
{
}

CDlgAccountDocs::CDlgAccountDocs(const AccountLedger::Scope &scope, const QDateTime &from, const QDateTime &to, QWidget *parent)
    : KDialog(parent)
    , m_scope(scope)
    , m_from(new KDateEdit)
    , m_to(new KDateEdit)
    , m_list(new KExtListCtrl)
    , m_totals(new QLabel)
{
    setWindowTitle(titleOf(scope));
    SetSettingName(scope.isPerson() ? u"PersonStatement"_s : u"AccountDocs"_s);
    m_from->setDateTime(from);
    m_to->setDateTime(to);
    build();
    // A statement grows with the years; the smallest usual screen has 768 pixels, the title bar included.
    resize(LookSizes::scaled(m_scope.isPerson() ? 1120 : 980), LookSizes::scaled(m_scope.isPerson() ? 720 : 560));
    refill();
    m_list->setFocus();
}

void CDlgAccountDocs::Show(AccountLevel level, int code, const QDateTime &from, const QDateTime &to, QWidget *parent)
{
    const auto scope = AccountLedger::Scope::account(level, code);
    if (securityOf(scope, KSecurity::Read).CheckReadSecurity())
        CDlgAccountDocs(scope, from, to, parent).exec();
}

void CDlgAccountDocs::ShowPerson(int personID, QWidget *parent)
{
    const auto scope = AccountLedger::Scope::person(personID);
    if (scope.isPerson() && securityOf(scope, KSecurity::Read).CheckReadSecurity())
        CDlgAccountDocs(scope, {}, {}, parent).exec();
}

QWidget *CDlgAccountDocs::buildFilter()
{
    auto *search = new QPushButton(LookIcons::icon(u":/icons/search.svg"_s), u"جستجو"_s);
    search->setAccessibleName(search->text());
    connect(search, &QPushButton::clicked, this, &CDlgAccountDocs::refill);
    for (KDateEdit *edit : {m_from, m_to})
        connect(edit, &QLineEdit::returnPressed, search, &QPushButton::click);
    auto *filter = new QWidget(this);
    auto *line = new QHBoxLayout(filter);
    line->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    line->setSpacing(LookSizes::unit);
    addLabelled(line, u"از تاریخ :"_s, m_from);
    line->addSpacing(LookSizes::unit);
    addLabelled(line, u"تا تاریخ :"_s, m_to);
    line->addSpacing(LookSizes::unit);
    line->addWidget(search);
    line->addStretch(1);
    LookMarks::setTall(filter);
    LookMarks::setBar(filter, LookMarks::Bar::Top);
    return filter;
}

// On a person's statement the person needs no column, and what a row is for has one.
QVector<KListModel::Column> CDlgAccountDocs::columns() const
{
    const bool ofPerson = m_scope.isPerson();
    return {
        {u"ردیف"_s, Qt::AlignHCenter, 26, {}},
        {u"شماره سند"_s, Qt::AlignHCenter, 44, {}},
        {u"تاریخ سند"_s, Qt::AlignHCenter, 55, {}, true},
        {ofPerson ? u"بابت"_s : u"شخص"_s, Qt::AlignRight, ofPerson ? 130 : 80, {}},
        {u"شرح"_s, Qt::AlignRight, 110, {}},
        {u"بدهکار"_s, Qt::AlignRight, 66, {}},
        {u"بستانکار"_s, Qt::AlignRight, 66, {}},
        {u"مانده"_s, Qt::AlignRight, 66, {}},
        {u"تشخیص"_s, Qt::AlignHCenter, 35, {}},
    };
}

void CDlgAccountDocs::build()
{
    m_list->setAccessibleName(m_scope.isPerson() ? u"صورتحساب"_s : u"گردش حساب"_s);
    m_list->setColumns(columns());
    m_list->SetSettingName(m_scope.isPerson() ? u"PersonStatement\\List"_s : u"AccountDocs\\List"_s);
    m_empty = new KEmptyState(m_list);
    connect(m_list, &KExtListCtrl::rowActivated, this, &CDlgAccountDocs::showDocument);

    auto *cards = new CardPage(980);
    cards->addList(m_list)->addToFoot(m_totals);
    auto *page = new QWidget(this);
    auto *pageColumn = new QVBoxLayout(page);
    pageColumn->setContentsMargins(0, 0, 0, 0);
    pageColumn->setSpacing(0);
    pageColumn->addWidget(buildFilter());
    pageColumn->addWidget(cards, 1);
    setContent(page, createButtons(QString(), u"بازگشت"_s), Content::Fills);
    if (m_scope.isPerson()) {
        QPushButton *paper = addButton(footer(), u"برگه صورتحساب"_s, u":/icons/document.svg"_s);
        connect(paper, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { showPaper(); }); });
    }
    QPushButton *printButton = addButton(footer(), u"چاپ"_s, u":/icons/print.svg"_s);
    connect(printButton, &QPushButton::clicked, this, &CDlgAccountDocs::print);
    connect(new QShortcut(QKeySequence(QKeySequence::Print), this), &QShortcut::activated, printButton, &QPushButton::click);
}

// As the list stands: of the days that it was read for.
void CDlgAccountDocs::showPaper()
{
    // Who may see it here is told that printing is what he may not.
    const KSecurity security = securityOf(m_scope, KSecurity::PrintList);
    if (!security.CheckPrintListSecurity())
        return;
    const auto make = [this] {
        return QList<PaperSheet>{DocumentSheet::statement(AccountLedger::person(m_scope.personID), m_sheet, m_shownFrom, m_shownTo, GetDBSetting()->GetDBServerDate().date(), OfficeSettings::read().moneyUnitName())};
    };
    CDlgPaper::run(security.FormName(), KSecurity::PrintList, make, {}, this);
}

void CDlgAccountDocs::refill()
{
    if (const auto problem = problemOfDays(m_from, m_to)) {
        g_pDlgWarning->Show(problem->message, this);
        problem->line->setFocus();
        return;
    }
    const KWaitCursor wait;
    m_sheet = AccountLedger::read(m_scope, m_from->dateTime(), m_to->dateTime());
    m_shownFrom = m_from->date();
    m_shownTo = m_to->date();
    QVector<KListModel::Row> rows;
    rows.reserve(m_sheet.rows.size() + 2);
    if (!m_sheet.before.isBalanced())
        rows.append({broughtForwardKey,
                     {{}, {}, {}, {}, {u"مانده از قبل"_s}, {}, {}, balanceCell(m_sheet.before.net()), {m_sheet.before.nature()}}});
    int number = 0;
    for (const AccountLedger::Row &row : std::as_const(m_sheet.rows))
        rows.append(ledgerRow(row, ++number));
    if (m_scope.isPerson() && !rows.isEmpty())
        rows.append(closingRow());
    m_list->setRows(std::move(rows));
    // A statement is read from its end: what is owed.
    m_list->selectRow(m_scope.isPerson() ? m_list->count() - 1 : 0);
    sayWhyEmpty();
    m_totals->setText(totals(number));
}

// The last line of a statement says its sums already.
QString CDlgAccountDocs::totals(int number) const
{
    const QString count = u"تعداد : %1"_s.arg(number);
    if (m_scope.isPerson())
        return count;
    const double last = m_sheet.closing();
    return count
        + u"     جمع بدهکار : %1     جمع بستانکار : %2     مانده : %3 %4"_s.arg(DToMoney(m_sheet.sum.bed), DToMoney(m_sheet.sum.bes),
                                                                                DToMoney(std::abs(last)), natureOf(last));
}

KListModel::Row CDlgAccountDocs::ledgerRow(const AccountLedger::Row &row, int number) const
{
    return {row.id,
            {{QString::number(number), number},
             {QString::number(row.docNum), row.docNum},
             {shamsiText(row.date.date()), row.date},
             {m_scope.isPerson() ? row.purpose() : row.person},
             {row.desc},
             DocumentRowsPane::sideCell(row.bed),
             DocumentRowsPane::sideCell(row.bes),
             balanceCell(row.balance),
             {natureOf(row.balance)}}};
}

// The line that the person is handed the statement for: what is owed, and by whom.
KListModel::Row CDlgAccountDocs::closingRow() const
{
    const double last = m_sheet.closing();
    const QString side = IsEquals(last, 0) ? u"تسویه"_s : last > 0 ? u"بدهکار"_s
                                                                   : u"بستانکار"_s;
    KListModel::Row row{closingKey,
                        {{}, {}, {}, {u"مانده نهایی"_s}, {side}, DocumentRowsPane::sideCell(m_sheet.sum.bed), DocumentRowsPane::sideCell(m_sheet.sum.bes), balanceCell(last), {natureOf(last)}}};
    row.heading = true;
    return row;
}

void CDlgAccountDocs::sayWhyEmpty()
{
    if (m_list->count() > 0)
        return m_empty->dismiss();
    const bool anyDay = !m_from->date().isValid() && !m_to->date().isValid();
    const QString whose = m_scope.isPerson() ? u"این شخص"_s : u"این حساب"_s;
    m_empty->say(u":/icons/document.svg"_s,
                 anyDay ? u"هنوز سندی برای %1 ثبت نشده است."_s.arg(whose) : u"در این تاریخ‌ها سندی برای %1 ثبت نشده است."_s.arg(whose));
}

void CDlgAccountDocs::showDocument(int key)
{
    for (const AccountLedger::Row &row : std::as_const(m_sheet.rows)) {
        if (row.id != key)
            continue;
        // The call may outlive this row: the sheet is read again when the user searches meanwhile.
        const int num = row.docNum;
        const int fiscalYear = row.fiscalYear;
        CDlgShowDocument::Show(num, fiscalYear, this);
        return;
    }
}

void CDlgAccountDocs::print()
{
    if (!securityOf(m_scope, KSecurity::PrintList).CheckPrintListSecurity())
        return;
    CDlgReportGenerator generator(m_scope.isPerson() ? u"PersonStatement"_s : u"AccountDocs"_s, u"List"_s, this);
    generator.SetText(u"Title"_s, windowTitle());
    generator.SetText(u"RightTop"_s, m_from->date().isValid() ? u"از تاریخ : "_s + shamsiText(m_from->date()) : QString());
    generator.SetText(u"RightCenter"_s, m_to->date().isValid() ? u"تا تاریخ : "_s + shamsiText(m_to->date()) : QString());
    generator.SetText(u"LeftTop"_s, u"واحد پول : "_s + GetDBSetting()->MoneyUnitName());
    generator.SetText(u"LeftBottom"_s, u"تاریخ چاپ : "_s + shamsiText(GetDBSetting()->GetDBServerDate().date()));
    generator.SetText(u"Count"_s, totalsText());
    generator.SetTable(u"List"_s, m_list);
    if (!generator.LoadLayout())
        generator.BuildListReport(windowTitle());
    generator.ShowReport();
}

QString CDlgAccountDocs::totalsText() const
{
    return m_totals->text();
}
