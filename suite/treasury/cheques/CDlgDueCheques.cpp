// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/CDlgDueCheques.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/treasury/cheques/CDlgCheques.h"
#include "suite/treasury/cheques/CDlgShowCheque.h"
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

using namespace Qt::StringLiterals;

namespace {

// Positions of columns.
constexpr int dueColumn = 2;
constexpr int daysColumn = 3;
constexpr int amountColumn = 9;

KSecurity chequeSecurity()
{
    KSecurity security;
    security.SetFormName(u"Cheques"_s);
    return security;
}

KListModel::Row dueRow(const ChequesDue::Row &cheque, int number)
{
    KListModel::Row row{cheque.id,
                        {{QString::number(number), number},
                         {cheque.kind == CTblReceipts::paid ? u"پرداختی"_s : u"دریافتی"_s},
                         {shamsiText(cheque.due.date()), cheque.due},
                         {QString::number(cheque.daysOverdue), cheque.daysOverdue},
                         {cheque.person},
                         {cheque.mobile},
                         {cheque.bank},
                         {cheque.number},
                         {cheque.sayad},
                         {DToMoney(cheque.amount), cheque.amount},
                         {ChequeStates::name(cheque.state, cheque.kind == CTblReceipts::paid)},
                         {cheque.purpose.isEmpty() ? u"علی‌الحساب"_s : cheque.purpose}}};
    // What is late stands out in the figures that say so.
    for (const int column : {dueColumn, daysColumn, amountColumn})
        row.cells[column].warning = cheque.daysOverdue > 0;
    return row;
}

}

CDlgDueCheques::CDlgDueCheques(const QDate &upTo, QWidget *parent)
    : KDialog(parent)
    , m_upTo(new KDateEdit)
    , m_list(new KExtListCtrl)
    , m_totals(new QLabel)
{
    setWindowTitle(u"چک‌های سررسید"_s);
    SetSettingName(u"DueCheques"_s);
    m_upTo->setDate(upTo);
    build();
    resize(LookSizes::scaled(1240), LookSizes::scaled(560));
    refill();
    m_list->setFocus();
}

CDlgDueCheques::~CDlgDueCheques() = default;

void CDlgDueCheques::Show(QWidget *parent)
{
    if (chequeSecurity().CheckAccessSecurity())
        CDlgDueCheques(GetDBSetting()->GetDBServerDate().date(), parent).exec();
}

QWidget *CDlgDueCheques::buildFilter()
{
    auto *search = new QPushButton(LookIcons::icon(u":/icons/search.svg"_s), u"جستجو"_s);
    search->setAccessibleName(search->text());
    connect(search, &QPushButton::clicked, this, &CDlgDueCheques::refill);
    connect(m_upTo, &QLineEdit::returnPressed, search, &QPushButton::click);
    auto *filter = new QWidget(this);
    auto *line = new QHBoxLayout(filter);
    line->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    line->setSpacing(LookSizes::unit);
    addLabelled(line, u"سررسید تا :"_s, m_upTo);
    line->addWidget(search);
    line->addStretch(1);
    LookMarks::setTall(filter);
    LookMarks::setBar(filter, LookMarks::Bar::Top);
    return filter;
}

void CDlgDueCheques::build()
{
    m_list->setAccessibleName(windowTitle());
    m_list->setColumns({
        {u"ردیف"_s, Qt::AlignHCenter, 26, {}},
        {u"نوع"_s, Qt::AlignHCenter, 45, {}},
        {u"سررسید"_s, Qt::AlignHCenter, 55, {}, true},
        {u"روز تأخیر"_s, Qt::AlignHCenter, 40, {}},
        {u"شخص"_s, Qt::AlignRight, 90, {}},
        {u"موبایل"_s, Qt::AlignHCenter, 60, {}},
        {u"بانک"_s, Qt::AlignRight, 50, {}},
        {u"شماره چک"_s, Qt::AlignHCenter, 50, {}, false, true},
        {u"شناسه صیادی"_s, Qt::AlignHCenter, 80, {}, false, true},
        {u"مبلغ"_s, Qt::AlignRight, 70, {}},
        {u"وضعیت"_s, Qt::AlignHCenter, 68, {}},
        {u"بابت"_s, Qt::AlignRight, 100, {}},
    });
    m_list->SetSettingName(u"DueCheques\\List"_s);
    m_empty = new KEmptyState(m_list);
    connect(m_list, &KExtListCtrl::rowActivated, this, &CDlgDueCheques::showCheque);

    auto *cards = new CardPage(1240);
    cards->addList(m_list)->addToFoot(m_totals);
    auto *page = new QWidget(this);
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(buildFilter());
    column->addWidget(cards, 1);
    setContent(page, createButtons(QString(), u"بازگشت"_s), Content::Fills);
    const auto addCommand = [this](const QString &caption, const QString &icon, void (CDlgDueCheques::*command)()) {
        QPushButton *button = addButton(footer(), caption, icon);
        connect(button, &QPushButton::clicked, this, command);
        return button;
    };
    m_onRow = {addCommand(u"نمایش چک"_s, u":/icons/show.svg"_s, &CDlgDueCheques::showCheque),
               addCommand(u"دفتر چک‌ها"_s, u":/icons/table.svg"_s, &CDlgDueCheques::openRegister)};
    QPushButton *printButton = addCommand(u"چاپ"_s, u":/icons/print.svg"_s, &CDlgDueCheques::print);
    connect(new QShortcut(QKeySequence(QKeySequence::Print), this), &QShortcut::activated, printButton, &QPushButton::click);
}

void CDlgDueCheques::refill()
{
    if (!m_upTo->isEntryValid()) {
        g_pDlgWarning->Show(m_upTo->entryError(), this);
        m_upTo->setFocus();
        return;
    }
    const KWaitCursor wait;
    const QList<ChequesDue::Row> due = ChequesDue::open(GetDBSetting()->GetDBServerDate().date(), m_upTo->date());
    QVector<KListModel::Row> rows;
    rows.reserve(due.size());
    for (const ChequesDue::Row &cheque : due)
        rows.append(dueRow(cheque, static_cast<int>(rows.size()) + 1));
    m_list->setRows(std::move(rows));
    m_list->selectRow(0);
    if (due.isEmpty())
        m_empty->say(u":/icons/check.svg"_s, u"تا این روز چکی سررسید نشده است."_s);
    else
        m_empty->dismiss();
    for (QPushButton *button : std::as_const(m_onRow))
        button->setEnabled(!due.isEmpty());
    showTotals(due);
}

void CDlgDueCheques::showTotals(const QList<ChequesDue::Row> &due)
{
    double received = 0;
    double given = 0;
    for (const ChequesDue::Row &cheque : due)
        (cheque.kind == CTblReceipts::paid ? given : received) += cheque.amount;
    m_totals->setText(u"تعداد : %1     جمع دریافتی : %2     جمع پرداختی : %3"_s
                          .arg(QString::number(due.size()), DToMoney(received), DToMoney(given)));
}

void CDlgDueCheques::showCheque()
{
    if (const int cheque = m_list->currentKey(); cheque > 0)
        CDlgShowCheque::Show(cheque, this);
}

// The register is a page of the main window, which this window stands before.
void CDlgDueCheques::openRegister()
{
    const int cheque = m_list->currentKey();
    if (cheque == 0)
        return;
    cancel();
    CDlgCheques::showCheque(cheque);
}

void CDlgDueCheques::print()
{
    if (!chequeSecurity().CheckPrintListSecurity())
        return;
    CDlgReportGenerator generator(u"DueCheques"_s, u"List"_s, this);
    generator.SetText(u"Title"_s, windowTitle());
    generator.SetText(u"RightTop"_s, m_upTo->date().isValid() ? u"سررسید تا : "_s + shamsiText(m_upTo->date()) : QString());
    generator.SetText(u"LeftBottom"_s, u"تاریخ چاپ : "_s + shamsiText(QDate::currentDate()));
    generator.SetText(u"Count"_s, totalsText());
    generator.SetTable(u"List"_s, m_list);
    if (!generator.LoadLayout())
        generator.BuildListReport(windowTitle());
    generator.ShowReport();
}

QString CDlgDueCheques::totalsText() const
{
    return m_totals->text();
}
