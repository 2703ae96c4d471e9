// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgDocuments.h"

#include "host/books/CDlgAddDocument.h"
#include "host/books/DocumentFilter.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/DocumentKinds.h"
#include "suite/accounting/books/DocumentPaper.h"
#include "suite/accounting/books/DocumentRowsPane.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/accounting/importing/CDlgImport.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/LookFonts.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

KListColumn::Cell kindCell(const CTblDocuments &document)
{
    const QString name = DocumentKinds::name(document.m_iKind);
    return {document.m_iStatus != 0 ? name + u" (باطل)"_s : name};
}

QList<KListFilter::Choice> fiscalYearChoices()
{
    QList<KListFilter::Choice> choices = {{u"همه"_s, 0}};
    for (const int year : DocumentRows::fiscalYears())
        choices.append({QString::number(year), year});
    return choices;
}

}

CDlgDocuments::CDlgDocuments(QWidget *parent)
    : KListPage(u"اسناد حسابداری"_s, u"Documents"_s, u"Documents"_s, parent)
{
    build();
    buildRowsPane();
    connect(list(), &KExtListCtrl::currentKeyChanged, this, [this](int key) { guarded([&] { showRows(key); }); });
}

QList<KListColumn> CDlgDocuments::columnTable() const
{
    return {
        KListColumn::rowNumber(30),
        {.key = u"number"_s, .title = u"شماره سند"_s, .width = 50, .sortKey = u"iNum"_s, .column = u"iNum"_s},
        {.key = u"year"_s, .title = u"سال مالی"_s, .width = 45, .sortKey = u"iFiscalYear"_s, .column = u"iFiscalYear"_s},
        {.key = u"date"_s, .title = u"تاریخ سند"_s, .width = 55, .sortKey = u"date"_s, .column = u"date"_s},
        {.key = u"kind"_s, .title = u"نوع سند"_s, .width = 60, .alignment = Qt::AlignRight, .sortKey = u"iKind"_s, .cell = KListColumn::of<CTblDocuments>(kindCell)},
        {.key = u"description"_s, .title = u"شرح سند"_s, .width = 200, .alignment = Qt::AlignRight, .sortKey = u"sDesc"_s, .column = u"sDesc"_s},
        // The sum of the document's rows, queried for all documents at once.
        {.key = u"amount"_s, .title = u"مبلغ"_s, .alignment = Qt::AlignRight, .sums = true},
        {.key = u"user"_s, .title = u"کاربر"_s, .width = 60, .alignment = Qt::AlignRight, .sortKey = u"iUserID"_s, .lookup = u"iUserID"_s},
    };
}

QList<KListFilter> CDlgDocuments::filterTable() const
{
    return documentFilters(fiscalYearChoices);
}

KListTraits CDlgDocuments::traits() const
{
    return {.searchColumn = 6, .readsWholeRecords = true, .emptyIcon = u":/icons/document.svg"_s};
}

std::vector<KListCommand> CDlgDocuments::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly;
    return {
        {u"new"_s, u"سند جدید"_s, C::HiddenInReadOnly, [this] { addDocument(); }, QKeySequence(Qt::Key_Insert),
         u":/icons/new.svg"_s, Write},
        {u"edit"_s, u"ویرایش"_s, onRow, [this] { editDocument(); }, QKeySequence(Qt::Key_F2),
         u":/icons/edit.svg"_s, Modify},
        {u"delete"_s, u"حذف"_s, onRow, [this] { deleteDocument(); }, QKeySequence(Qt::Key_Delete),
         u":/icons/delete.svg"_s, Delete},
        {u"printDocument"_s, u"چاپ سند"_s, C::NeedsRow | C::StartsGroup, [this] { printDocument(); }, {}, u":/icons/print.svg"_s, PrintList},
        printCommand(),
        {u"import"_s, u"ورود از فایل"_s, C::HiddenInReadOnly, [this] { importOpening(); }, {}, u":/icons/table.svg"_s, Write},
    };
}

void CDlgDocuments::importOpening()
{
    if (!isChangeBlocked() && CheckWriteSecurity() && CDlgImport::run(u"openings"_s, window()))
        refill();
}

std::unique_ptr<KMySQL> CDlgDocuments::makeRecords() const
{
    return std::make_unique<CTblDocuments>();
}

QString CDlgDocuments::defaultSort() const
{
    return u"iFiscalYear DESC,iNum DESC"_s;
}

void CDlgDocuments::completeRows(QVector<KListModel::Row> &rows)
{
    const int year = list()->columnOf(u"year");
    const int number = list()->columnOf(u"number");
    const int amount = list()->columnOf(u"amount");
    QList<DocumentRows::DocumentKey> keys;
    for (const KListModel::Row &row : rows)
        keys.append({row.cells.at(year).value.toInt(), row.cells.at(number).value.toInt()});
    const QHash<DocumentRows::DocumentKey, double> amounts = DocumentRows::amounts(keys);
    for (qsizetype index = 0; index < rows.size(); ++index)
        rows[index].cells[amount] = KListColumn::money(amounts.value(keys.at(index)));
    // An error above leaves the list and what belongs to it as they were.
    m_keys.clear();
    for (qsizetype index = 0; index < rows.size(); ++index)
        m_keys.insert(rows.at(index).key, keys.at(index));
}

void CDlgDocuments::activated(int key)
{
    showRows(key);
    m_rows->setFocus();
}

void CDlgDocuments::emptyAreaActivated()
{
    runCommand(u"new");
}

KListReport CDlgDocuments::reportSpec() const
{
    return {u"اسناد حسابداری"_s, u"Documents"_s, u"List"_s};
}

void CDlgDocuments::buildRowsPane()
{
    m_rows = new DocumentRowsPane(u"Documents\\Rows"_s, this);
    auto *title = new QLabel(u"ردیف‌های سند انتخاب‌شده"_s, this);
    title->setBuddy(m_rows->list());
    LookFonts::apply(title, LookFonts::Use::Title);
    auto *column = static_cast<QVBoxLayout *>(layout());
    column->addWidget(title);
    column->addWidget(m_rows, 1);
}

void CDlgDocuments::showRows(int key)
{
    const DocumentRows::DocumentKey document = m_keys.value(key);
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
    return m_keys.value(list()->currentKey());
}

void CDlgDocuments::selectDocument(int num, int fiscalYear)
{
    selectListed(m_keys.key(DocumentRows::DocumentKey{fiscalYear, num}));
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

void CDlgDocuments::printDocument()
{
    const auto [fiscalYear, num] = currentDocument();
    DocumentPaper::show(num, fiscalYear, this);
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
    const int key = list()->currentKey();
    if (g_pDlgYesNo->Ask(SuiteMessages::deleteQuestion(), this) == KMessageDialog::No)
        return;
    // What is refused by now, or gone, is told; the list shows it.
    guarded([&] { ManualDocument::remove(num, fiscalYear, key); });
    refill();
}
