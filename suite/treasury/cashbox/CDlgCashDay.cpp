// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cashbox/CDlgCashDay.h"

#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/books/DocumentRowsPane.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/books/chart/CTblHesabMoeen.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/ReceiptMethods.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
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

#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// No record has these keys.
constexpr int openingKey = -1;
constexpr int sumKey = -2;

// Stays in one line on paper.
QString unbroken(QString text)
{
    return text.replace(u' ', QChar::Nbsp);
}

KListModel::Cell runningCell(double balance)
{
    return {DToMoney(balance), balance};
}

KListModel::Row openingRow(double balance)
{
    KListModel::Row row{openingKey, {{}, {}, {}, {}, {u"مانده از قبل"_s}, {}, {}, {}, runningCell(balance)}};
    row.heading = true;
    return row;
}

KListModel::Row sumRow(const AccountLedger::Sheet &sheet)
{
    KListModel::Row row{sumKey,
                        {{}, {}, {}, {}, {u"جمع روز"_s}, {}, DocumentRowsPane::sideCell(sheet.sum.bed), DocumentRowsPane::sideCell(sheet.sum.bes), runningCell(sheet.closing())}};
    row.heading = true;
    return row;
}

KListModel::Row dayRow(const AccountLedger::Row &row, int number)
{
    const QString receiptNumber = row.receiptID > 0 ? QString::number(row.receiptID) : QString();
    const QString what = row.receiptID > 0 && !row.receiptFor.isEmpty() ? row.receiptFor
        : row.receiptID > 0                                             ? u"علی‌الحساب"_s
        : row.desc.isEmpty()                                            ? row.documentFor
                                                                        : row.desc;
    return {row.id,
            {{QString::number(number), number},
             {receiptNumber, row.receiptID},
             {QString::number(row.docNum), row.docNum},
             {row.person},
             {what},
             {ReceiptMethods::name(row.method)},
             DocumentRowsPane::sideCell(row.bed),
             DocumentRowsPane::sideCell(row.bes),
             runningCell(row.balance)}};
}

}

CDlgCashDay::CDlgCashDay(int account, const QDate &day, QWidget *parent)
    : KDialog(parent)
    , m_account(new KDropDown)
    , m_day(new KDateEdit)
    , m_list(new KExtListCtrl)
    , m_totals(new QLabel)
    , m_counted(new KEdit(KEdit::Kind::Money))
    , m_difference(new QLabel)
{
    setWindowTitle(u"برگه روزانه صندوق"_s);
    SetSettingName(u"CashDay"_s);
    m_day->setDate(day);
    build(account);
    resize(LookSizes::scaled(980), LookSizes::scaled(600));
    refill();
    m_list->setFocus();
}

CDlgCashDay::~CDlgCashDay() = default;

void CDlgCashDay::build(int account)
{
    m_list->setAccessibleName(u"برگه روزانه صندوق"_s);
    m_list->setColumns({
        {u"ردیف"_s, Qt::AlignHCenter, 26, {}},
        {u"شماره رسید"_s, Qt::AlignHCenter, 44, {}},
        {u"شماره سند"_s, Qt::AlignHCenter, 44, {}},
        {u"شخص"_s, Qt::AlignRight, 90, {}},
        {u"بابت"_s, Qt::AlignRight, 130, {}},
        {u"روش"_s, Qt::AlignHCenter, 42, {}},
        {u"دریافت"_s, Qt::AlignRight, 66, {}},
        {u"پرداخت"_s, Qt::AlignRight, 66, {}},
        {u"مانده"_s, Qt::AlignRight, 66, {}},
    });
    m_list->SetSettingName(u"CashDay\\List"_s);
    connect(m_list, &KExtListCtrl::rowActivated, this, [this](int key) {
        for (const AccountLedger::Row &row : std::as_const(m_sheet.rows)) {
            if (row.id == key)
                return CDlgShowDocument::Show(int(row.docNum), int(row.fiscalYear), this);
        }
    });
    auto *cards = new CardPage(980);
    cards->addList(m_list)->addToFoot(m_totals);
    FormGrid *grid = cards->addForm({}, FormGrid::Extent::Full);
    addLabelled(grid, u"موجودی شمارش‌شده :"_s, m_counted, 2);
    m_difference->setObjectName(u"difference"_s);
    grid->addCell(m_difference, 3);
    connect(m_counted, &KEdit::textChanged, this, &CDlgCashDay::showDifference);

    auto *page = new QWidget(this);
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(buildHead(account));
    column->addWidget(cards, 1);
    QDialogButtonBox *buttons = createButtons(QString(), u"بازگشت"_s);
    m_back = qobject_cast<QPushButton *>(buttons->buttons().constFirst());
    // Return after the count must not close the window over it.
    m_back->setAutoDefault(false);
    setContent(page, buttons, Content::Fills);
    QPushButton *printButton = addButton(footer(), u"چاپ"_s, u":/icons/print.svg"_s);
    connect(printButton, &QPushButton::clicked, this, &CDlgCashDay::print);
    connect(new QShortcut(QKeySequence(QKeySequence::Print), this), &QShortcut::activated, printButton, &QPushButton::click);
}

QWidget *CDlgCashDay::buildHead(int account)
{
    CTblHesabMoeen set;
    set.m_filter = KSql::formatted("iHesabKolCode IN (%1,%2) AND (iStatus=0 OR iCode=%3)", int(Accounts::cashKol), int(Accounts::bankKol), account);
    set.m_sort = "iCode";
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        m_account->addItem(set.m_sName, set.m_iCode);
    m_account->setCurrentIndex(m_account->findData(account));
    connect(m_account, &QComboBox::currentIndexChanged, this, &CDlgCashDay::refill);
    connect(m_day, &KDateEdit::dateEdited, this, &CDlgCashDay::refill);
    connect(m_day, &KDateEdit::editingFinished, this, &CDlgCashDay::dayLeft);

    auto *head = new QWidget(this);
    auto *line = new QHBoxLayout(head);
    line->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    line->setSpacing(LookSizes::unit);
    addLabelled(line, u"حساب :"_s, m_account);
    line->addSpacing(LookSizes::unit);
    addLabelled(line, u"روز :"_s, m_day);
    addStep(line, u"روز قبل"_s, Qt::Key_PageUp, -1);
    m_nextDay = addStep(line, u"روز بعد"_s, Qt::Key_PageDown, 1);
    line->addStretch(1);
    LookMarks::setTall(head);
    LookMarks::setBar(head, LookMarks::Bar::Top);
    return head;
}

QPushButton *CDlgCashDay::addStep(QHBoxLayout *line, const QString &caption, int key, int days)
{
    QPushButton *button = addButton(line, caption);
    const QKeySequence keys(Qt::CTRL | Qt::Key(key));
    button->setToolTip(keys.toString(QKeySequence::NativeText));
    connect(button, &QPushButton::clicked, this, [this, days] { step(days); });
    connect(new QShortcut(keys, this), &QShortcut::activated, button, &QPushButton::click);
    return button;
}

bool CDlgCashDay::requireDay()
{
    if (m_day->date().isValid())
        return true;
    const QString error = m_day->entryError();
    g_pDlgWarning->Show(m_day->accessibleName() + u' ' + (error.isEmpty() ? u"لطفا تاریخ را وارد نمایید."_s : error), this);
    m_day->setFocus();
    m_day->selectAll();
    return false;
}

// Told once the focus has arrived: Return says twice that the line is left, and whoever goes back needs no day.
void CDlgCashDay::dayLeft()
{
    if (m_day->date().isValid() || std::exchange(m_dayCheckPending, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (isVisible() && focusWidget() != m_back)
                requireDay();
            m_dayCheckPending = false;
        },
        Qt::QueuedConnection);
}

void CDlgCashDay::step(int days)
{
    if (!requireDay())
        return;
    m_day->setDate(m_day->date().addDays(days));
    refill();
}

void CDlgCashDay::refill()
{
    if (!m_day->date().isValid() || !m_account->currentData().isValid())
        return;
    KErrorBoundary::guarded(this, [this] {
        const KWaitCursor wait;
        const QDateTime day(m_day->date(), QTime(0, 0), Qt::UTC);
        const int account = m_account->currentData().toInt();
        m_sheet = AccountLedger::read(AccountLevel::Moeen, account, day, day);
        QVector<KListModel::Row> rows{openingRow(m_sheet.before.net())};
        int number = 0;
        for (const AccountLedger::Row &row : std::as_const(m_sheet.rows))
            rows.append(dayRow(row, ++number));
        rows.append(sumRow(m_sheet));
        m_list->setRows(std::move(rows));
        m_list->selectRow(0);
        showTotals();
        showCount(account, day.date());
        m_nextDay->setEnabled(day.date() < GetDBSetting()->GetDBServerDate().date());
    });
}

// What was counted on one day says nothing about another one.
void CDlgCashDay::showCount(int account, const QDate &day)
{
    const std::pair next(account, day);
    if (next != m_shown) {
        m_counts.insert(m_shown, m_counted->text());
        m_shown = next;
        m_counted->setText(m_counts.value(next));
    }
    showDifference();
}

void CDlgCashDay::showTotals()
{
    m_totals->setText(u"مانده از قبل : %1     دریافت : %2     پرداخت : %3     مانده پایان روز : %4"_s
                          .arg(DToMoney(m_sheet.before.net()), DToMoney(m_sheet.sum.bed), DToMoney(m_sheet.sum.bes), DToMoney(m_sheet.closing())));
}

// Nothing is said before something is counted: an empty line is no empty cash box.
void CDlgCashDay::showDifference()
{
    if (m_counted->text().isEmpty() || !m_counted->isEntryValid())
        return m_difference->clear();
    const double difference = m_counted->number() - m_sheet.closing();
    if (IsEquals(difference, 0))
        m_difference->setText(u"اختلاف : ندارد"_s);
    else
        m_difference->setText((difference < 0 ? u"کسری صندوق : "_s : u"اضافه صندوق : "_s) + DToMoney(std::abs(difference)));
}

ListReport CDlgCashDay::report() const
{
    ListReport report(u"CashDay"_s, u"List"_s);
    const QString dots(24, u'.');
    const QString title = u"برگه روزانه "_s + m_account->currentText();
    report.setText(u"Title"_s, title);
    report.setText(u"RightTop"_s, CompanyDetails::read().name());
    report.setText(u"RightCenter"_s, u"تاریخ : "_s + shamsiText(m_shown.second));
    report.setText(u"LeftTop"_s, u"واحد پول : "_s + GetDBSetting()->MoneyUnitName());
    report.setText(u"LeftBottom"_s, u"تاریخ چاپ : "_s + shamsiText(GetDBSetting()->GetDBServerDate().date()));
    report.setText(u"Totals"_s, totalsText());
    const QString counted = m_counted->text().isEmpty() ? dots : m_counted->text();
    const QString difference = differenceText().isEmpty() ? u"اختلاف : "_s + dots : differenceText();
    report.setText(u"Counted"_s, unbroken(u"موجودی شمارش‌شده : "_s + counted));
    report.setText(u"Difference"_s, unbroken(difference));
    for (const QString &signer : {u"صندوقدار"_s, u"حسابدار"_s, u"مدیر"_s})
        report.setText(u"Signature "_s + signer, unbroken(u"امضای "_s + signer + u" : "_s + dots));
    report.setTable(u"List"_s, m_list);
    if (!report.loadLayout())
        report.buildStandard(title);
    return report;
}

void CDlgCashDay::print()
{
    KSecurity security;
    security.SetFormName(u"Receipts"_s);
    if (!security.CheckPrintListSecurity() || !requireDay())
        return;
    KErrorBoundary::guarded(this, [this] {
        CDlgReportGenerator generator(report(), this);
        generator.ShowReport();
    });
}

QString CDlgCashDay::totalsText() const
{
    return m_totals->text();
}

QString CDlgCashDay::differenceText() const
{
    return m_difference->text();
}
