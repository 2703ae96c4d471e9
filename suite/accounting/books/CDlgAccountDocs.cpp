// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/CDlgAccountDocs.h"

#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace {

constexpr int broughtForwardKey = -1; // no record has it

KSecurity documentSecurity()
{
    KSecurity security;
    security.SetFormName(QStringLiteral("Documents"));
    return security;
}

KListModel::Cell sideCell(double amount)
{
    return {IsEquals(amount, 0) ? QString() : DToMoney(amount), amount};
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
    : KDialog(parent)
    , m_level(level)
    , m_code(code)
    , m_from(new KDateEdit)
    , m_to(new KDateEdit)
    , m_list(new KExtListCtrl)
    , m_totals(new QLabel)
{
    setWindowTitle(QStringLiteral("گردش حساب %1 - %2").arg(code).arg(AccountChart::nameOf(code)));
    SetSettingName(QStringLiteral("AccountDocs"));
    m_from->setDateTime(from);
    m_to->setDateTime(to);
    build();
    resize(QSize(980, 560));
    refill();
    m_list->setFocus();
}

void CDlgAccountDocs::Show(AccountLevel level, int code, const QDateTime &from, const QDateTime &to, QWidget *parent)
{
    if (documentSecurity().CheckReadSecurity())
        CDlgAccountDocs(level, code, from, to, parent).exec();
}

void CDlgAccountDocs::build()
{
    auto *search = new QPushButton(QIcon(QStringLiteral(":/icons/search.svg")), QStringLiteral("جستجو"));
    search->setAccessibleName(search->text());
    connect(search, &QPushButton::clicked, this, &CDlgAccountDocs::refill);
    for (KDateEdit *edit : {m_from, m_to})
        connect(edit, &QLineEdit::returnPressed, search, &QPushButton::click);
    auto *filter = new QHBoxLayout;
    addLabelled(filter, QStringLiteral("از تاریخ :"), m_from);
    addLabelled(filter, QStringLiteral("تا تاریخ :"), m_to);
    filter->addWidget(search);
    filter->addStretch(1);

    m_list->setAccessibleName(QStringLiteral("گردش حساب"));
    m_list->setColumns({
        {QStringLiteral("ردیف"), Qt::AlignHCenter, 26, {}},
        {QStringLiteral("شماره سند"), Qt::AlignHCenter, 44, {}},
        {QStringLiteral("تاریخ سند"), Qt::AlignHCenter, 55, {}, true},
        {QStringLiteral("شخص"), Qt::AlignRight, 80, {}},
        {QStringLiteral("شرح"), Qt::AlignRight, 110, {}},
        {QStringLiteral("بدهکار"), Qt::AlignRight, 66, {}},
        {QStringLiteral("بستانکار"), Qt::AlignRight, 66, {}},
        {QStringLiteral("مانده"), Qt::AlignRight, 66, {}},
        {QStringLiteral("تشخیص"), Qt::AlignHCenter, 35, {}},
    });
    m_list->SetSettingName(QStringLiteral("AccountDocs\\List"));
    connect(m_list, &KExtListCtrl::rowActivated, this, &CDlgAccountDocs::showDocument);

    auto *printButton = new QPushButton(QIcon(QStringLiteral(":/icons/print.svg")), QStringLiteral("چاپ"));
    printButton->setAccessibleName(printButton->text());
    printButton->setAutoDefault(false);
    connect(printButton, &QPushButton::clicked, this, &CDlgAccountDocs::print);
    connect(new QShortcut(QKeySequence(QKeySequence::Print), this), &QShortcut::activated, printButton, &QPushButton::click);
    auto *foot = new QHBoxLayout;
    foot->addWidget(printButton);
    foot->addStretch(1);
    foot->addWidget(createButtons(QString(), QStringLiteral("بازگشت")));

    auto *column = new QVBoxLayout(this);
    column->addLayout(filter);
    column->addWidget(m_list, 1);
    column->addWidget(m_totals);
    column->addLayout(foot);
}

void CDlgAccountDocs::refill()
{
    for (KDateEdit *edit : {m_from, m_to}) {
        if (edit->isEntryValid())
            continue;
        g_pDlgWarning->Show(edit->accessibleName() + u' ' + edit->entryError(), this);
        edit->setFocus();
        return;
    }
    const KWaitCursor wait;
    m_sheet = AccountLedger::read(m_level, m_code, m_from->dateTime(), m_to->dateTime());
    QVector<KListModel::Row> rows;
    rows.reserve(m_sheet.rows.size() + 1);
    if (!m_sheet.before.isBalanced())
        rows.append({broughtForwardKey,
                     {{}, {}, {}, {}, {QStringLiteral("مانده از قبل")}, {}, {}, balanceCell(m_sheet.before.net()), {m_sheet.before.nature()}}});
    int number = 0;
    for (const AccountLedger::Row &row : std::as_const(m_sheet.rows)) {
        ++number;
        rows.append({row.id,
                     {{QString::number(number), number},
                      {QString::number(row.docNum), row.docNum},
                      {shamsiText(row.date.date()), row.date},
                      {row.person},
                      {row.desc},
                      sideCell(row.bed),
                      sideCell(row.bes),
                      balanceCell(row.balance),
                      {natureOf(row.balance)}}});
    }
    m_list->setRows(std::move(rows));
    m_list->selectRow(0);
    const double last = m_sheet.before.net() + m_sheet.sum.net();
    m_totals->setText(QStringLiteral("تعداد : %1     جمع بدهکار : %2     جمع بستانکار : %3     مانده : %4 %5")
                          .arg(QString::number(number), DToMoney(m_sheet.sum.bed), DToMoney(m_sheet.sum.bes),
                               DToMoney(std::abs(last)), natureOf(last)));
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
    if (!documentSecurity().CheckPrintListSecurity())
        return;
    CDlgReportGenerator generator(QStringLiteral("AccountDocs"), QStringLiteral("List"), this);
    generator.SetText(QStringLiteral("Title"), windowTitle());
    generator.SetText(QStringLiteral("RightTop"), m_from->date().isValid() ? QStringLiteral("از تاریخ : ") + shamsiText(m_from->date()) : QString());
    generator.SetText(QStringLiteral("RightCenter"), m_to->date().isValid() ? QStringLiteral("تا تاریخ : ") + shamsiText(m_to->date()) : QString());
    generator.SetText(QStringLiteral("LeftBottom"), QStringLiteral("تاریخ چاپ : ") + shamsiText(QDate::currentDate()));
    generator.SetText(QStringLiteral("Count"), totalsText());
    generator.SetTable(QStringLiteral("List"), m_list);
    if (!generator.LoadLayout())
        generator.BuildListReport(windowTitle());
    generator.ShowReport();
}

QString CDlgAccountDocs::totalsText() const
{
    return m_totals->text();
}
