// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgDocuments.h"

#include "suite/db/KLookup.h"
#include "host/books/DocumentFilter.h"
#include "host/books/CDlgAddDocument.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/DocumentKinds.h"
#include "suite/accounting/books/DocumentRowsPane.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

enum ListColumn {
    NumberColumn,
    DocumentColumn,
    YearColumn,
    DateColumn,
    KindColumn,
    DescriptionColumn,
    AmountColumn,
    UserColumn
};

KListModel::Cell numberCell(int value)
{
    return {QString::number(value), value};
}

KListModel::Cell moneyCell(double amount)
{
    return {DToMoney(amount), amount};
}

}

CDlgDocuments::CDlgDocuments(QWidget *parent)
    : KListPage(QStringLiteral("اسناد حسابداری"), QStringLiteral("Documents"), QStringLiteral("Documents"), parent)
{
    build();
    buildRowsPane();
    connect(list(), &KExtListCtrl::currentKeyChanged, this, [this](int key) { guarded([&] { showRows(key); }); });
}

QVector<KListModel::Column> CDlgDocuments::listColumns() const
{
    return {
        {QStringLiteral("ردیف"), Qt::AlignHCenter, 30, {}},
        {QStringLiteral("شماره سند"), Qt::AlignHCenter, 50, QStringLiteral("iNum")},
        {QStringLiteral("سال مالی"), Qt::AlignHCenter, 45, QStringLiteral("iFiscalYear")},
        {QStringLiteral("تاریخ سند"), Qt::AlignHCenter, 55, QStringLiteral("date"), true},
        {QStringLiteral("نوع سند"), Qt::AlignRight, 60, QStringLiteral("iKind")},
        {QStringLiteral("شرح سند"), Qt::AlignRight, 200, QStringLiteral("sDesc")},
        {QStringLiteral("مبلغ"), Qt::AlignRight, 80, {}},
        {QStringLiteral("کاربر"), Qt::AlignRight, 60, QStringLiteral("iUserID")},
    };
}

std::vector<KListCommand> CDlgDocuments::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly;
    return {
        {QStringLiteral("new"), QStringLiteral("سند جدید"), C::HiddenInReadOnly, [this] { addDocument(); }, QKeySequence(Qt::Key_Insert),
         QStringLiteral(":/icons/new.svg")},
        {QStringLiteral("edit"), QStringLiteral("ویرایش"), onRow, [this] { editDocument(); }, QKeySequence(Qt::Key_F2),
         QStringLiteral(":/icons/edit.svg")},
        {QStringLiteral("delete"), QStringLiteral("حذف"), onRow, [this] { deleteDocument(); }, QKeySequence(Qt::Key_Delete),
         QStringLiteral(":/icons/delete.svg")},
        printCommand(C::StartsGroup),
    };
}

void CDlgDocuments::buildFilters(QGridLayout *grid)
{
    m_year = new QComboBox(this);
    m_year->addItem(QStringLiteral("همه"), 0);
    for (int year : DocumentRows::fiscalYears())
        m_year->addItem(QString::number(year), year);
    m_number = new KEdit(KEdit::Kind::Integer, this);
    m_text = new KEdit(KEdit::Kind::QueryText, this);
    m_from = new KDateEdit(this);
    m_to = new KDateEdit(this);
    addFilter(grid, 0, 0, QStringLiteral("سال مالی :"), m_year);
    addFilter(grid, 0, 2, QStringLiteral("شماره سند :"), m_number);
    addFilter(grid, 0, 4, QStringLiteral("از تاریخ :"), m_from);
    addFilter(grid, 0, 6, QStringLiteral("تا تاریخ :"), m_to);
    addFilter(grid, 1, 0, QStringLiteral("شرح سند :"), m_text, 7);
}

std::unique_ptr<KMySQL> CDlgDocuments::makeRecords() const
{
    return std::make_unique<CTblDocuments>();
}

QString CDlgDocuments::filterClauses() const
{
    return documentFilter({m_year->currentData().toInt(), m_number->integer(), m_from->dateTime(), m_to->dateTime(),
                           m_text->queryText()});
}

QString CDlgDocuments::defaultSort() const
{
    return QStringLiteral("iFiscalYear DESC,iNum DESC");
}

void CDlgDocuments::beginRows()
{
    m_keys.clear();
    m_userIDs.clear();
}

KListModel::Row CDlgDocuments::makeRow(KMySQL &record, int number)
{
    const auto &document = static_cast<const CTblDocuments &>(record);
    const bool voided = document.m_iStatus != 0;
    m_keys.append({document.m_iFiscalYear, document.m_iNum});
    m_userIDs.append(document.m_iUserID);
    return {document.m_iID,
            {
                numberCell(number),
                numberCell(document.m_iNum),
                numberCell(document.m_iFiscalYear),
                {shamsiText(document.m_date.date()), document.m_date},
                {voided ? DocumentKinds::name(document.m_iKind) + QStringLiteral(" (باطل)")
                        : DocumentKinds::name(document.m_iKind)},
                {document.m_sDesc},
                {},
                {},
            }};
}

void CDlgDocuments::completeRows(QVector<KListModel::Row> &rows)
{
    const QHash<DocumentRows::DocumentKey, double> amounts = DocumentRows::amounts(m_keys);
    const QHash<int, QString> users = KLookup::names(QStringLiteral("Users"), QStringLiteral("iID"), QStringLiteral("sUser"),
                                                     m_userIDs);
    for (qsizetype index = 0; index < rows.size(); ++index) {
        rows[index].cells[AmountColumn] = moneyCell(amounts.value(m_keys.at(index)));
        rows[index].cells[UserColumn] = {users.value(m_userIDs.at(index))};
    }
}

void CDlgDocuments::activated(int key)
{
    showRows(key);
    m_rows->setFocus();
}

void CDlgDocuments::emptyAreaActivated()
{
    runCommand(QStringLiteral("سند جدید"));
}

KListReport CDlgDocuments::reportSpec() const
{
    return {QStringLiteral("اسناد حسابداری"), QStringLiteral("Documents"), QStringLiteral("List")};
}

QWidget *CDlgDocuments::firstFilterControl() const
{
    return m_year;
}

void CDlgDocuments::buildRowsPane()
{
    m_rows = new DocumentRowsPane(QStringLiteral("Documents\\Rows"), this);
    auto *title = new QLabel(QStringLiteral("ردیف‌های سند انتخاب‌شده"), this);
    title->setBuddy(m_rows->list());
    auto *column = static_cast<QVBoxLayout *>(layout());
    column->addWidget(title);
    column->addWidget(m_rows, 1);
}

void CDlgDocuments::showRows(int key)
{
    const DocumentRows::DocumentKey document = m_keys.value(list()->listModel()->rowOfKey(key));
    m_rows->showDocument(document.second, document.first);
}

KExtListCtrl *CDlgDocuments::rowsList() const
{
    return m_rows->list();
}

QString CDlgDocuments::totalsText() const
{
    return m_rows->totalsText();
}

DocumentRows::DocumentKey CDlgDocuments::currentDocument() const
{
    return m_keys.value(list()->currentRow());
}

void CDlgDocuments::selectDocument(int num, int fiscalYear)
{
    const qsizetype row = m_keys.indexOf(DocumentRows::DocumentKey{fiscalYear, num});
    if (row >= 0)
        list()->selectRow(static_cast<int>(row));
}

void CDlgDocuments::addDocument()
{
    if (isChangeBlocked() || !CheckWriteSecurity())
        return;
    CDlgAddDocument dialog({}, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    refill();
    selectDocument(dialog.num(), dialog.fiscalYear());
}

void CDlgDocuments::editDocument()
{
    const auto [fiscalYear, num] = currentDocument();
    if (isChangeBlocked() || !CheckModifySecurity())
        return;
    const QString refusal = ManualDocument::changeRefusal(num, fiscalYear);
    if (!refusal.isEmpty()) {
        g_pDlgWarning->Show(refusal, this);
        return;
    }
    CDlgAddDocument dialog(ManualDocument::load(num, fiscalYear), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    refill();
    selectDocument(num, fiscalYear);
    m_rows->showDocument(num, fiscalYear);
}

void CDlgDocuments::deleteDocument()
{
    const auto [fiscalYear, num] = currentDocument();
    if (isChangeBlocked() || !CheckDeletionSecurity())
        return;
    const QString refusal = ManualDocument::changeRefusal(num, fiscalYear);
    if (!refusal.isEmpty()) {
        g_pDlgWarning->Show(refusal, this);
        return;
    }
    if (g_pDlgYesNo->Ask(SuiteMessages::deleteQuestion(), this) == KMessageDialog::No)
        return;
    ManualDocument::remove(num, fiscalYear);
    refill();
}
