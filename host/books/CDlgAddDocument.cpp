// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgAddDocument.h"

#include "suite/accounting/changes/HistoryButton.h"
#include "suite/db/records/KLookup.h"
#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/CDlgPersons.h"
#include "suite/crm/persons/CTblPersonsMini.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/lists/KLinesView.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

enum RowColumn {
    AccountColumn,
    PersonColumn,
    DescColumn,
    DebitColumn,
    CreditColumn
};

constexpr int longestDocumentText = 500;

QVector<KLinesModel::Choice> accounts()
{
    QVector<KLinesModel::Choice> choices;
    for (const AccountChart::Account &account : AccountChart::postable())
        choices.append({account.code, u"%1 %2"_s.arg(account.code).arg(account.name)});
    return choices;
}

QVector<KLinesModel::Column> rowColumns()
{
    using Kind = KLinesModel::Kind;
    return {
        {u"حساب"_s, Kind::Choice, 130, 0, accounts()},
        {u"شخص"_s, Kind::Pick, 110},
        {u"شرح"_s, Kind::Text, 150, longestDocumentText},
        {u"بدهکار"_s, Kind::Money, 80},
        {u"بستانکار"_s, Kind::Money, 80},
    };
}

}

CDlgAddDocument::CDlgAddDocument(const ManualDocument &document, QWidget *parent)
    : KDialog(parent)
    , m_num(document.num)
    , m_fiscalYear(document.fiscalYear)
{
    setWindowTitle(m_num == 0 ? u"سند جدید"_s
                              : u"سند شماره %1 سال مالی %2"_s.arg(m_num).arg(m_fiscalYear));
    SetSettingName(u"AddDocument"_s);
    build();
    load(document);
    remember(document);
    resize(LookSizes::scaled(900), LookSizes::scaled(520));
    m_date->setFocus();
}

CDlgAddDocument::~CDlgAddDocument() = default;

void CDlgAddDocument::build()
{
    m_rows = new KLinesModel(rowColumns(), this);
    for (const KLinesModel::Choice &choice : m_rows->columns().at(AccountColumn).choices)
        m_accounts.insert(choice.key);
    m_rowsView = new KLinesView(m_rows, this);
    m_rowsView->setAccessibleName(u"ردیف‌های سند"_s);
    m_totals = new QLabel(this);
    m_totals->setObjectName(u"totals"_s);
    connect(m_rows, &KLinesModel::edited, this, &CDlgAddDocument::showTotals);
    connect(m_rowsView, &KLinesView::pickRequested, this, &CDlgAddDocument::pickPerson);

    auto *page = new CardPage(900, this);
    placeHead(page->addForm());
    page->addList(m_rowsView)->addToFoot(m_totals);
    fillRowCommands(page->addLine());
    setContent(page, createButtons(), Content::Fills);
    CTblDocuments header;
    if (m_num != 0 && header.IsRecordExist(u"iNum"_s, m_num, 0, KSql::formatted(" AND iFiscalYear=%1", m_fiscalYear)))
        HistoryButton::addTo(this, footer(), header.GetTableName(), header.m_iID);
}

void CDlgAddDocument::placeHead(FormGrid *grid)
{
    m_date = new KDateEdit(this);
    m_desc = new KEdit(this);
    m_desc->setMaxLength(CTblDocuments().textLength(u"sDesc"));
    addLabelled(grid, u"تاریخ :"_s, m_date);
    addLabelled(grid, u"شرح سند :"_s, m_desc, 3);
}

void CDlgAddDocument::fillRowCommands(QHBoxLayout *row)
{
    const auto add = [&](const QString &caption, const QString &icon, const QString &hint) {
        QPushButton *button = addButton(row, caption, u":/icons/%1.svg"_s.arg(icon));
        button->setToolTip(hint);
        return button;
    };
    connect(add(u"ردیف جدید"_s, u"new"_s, u"Insert"_s), &QPushButton::clicked, m_rowsView,
            &KLinesView::addLine);
    connect(add(u"حذف ردیف"_s, u"delete"_s, u"Delete"_s), &QPushButton::clicked,
            m_rowsView, &KLinesView::removeCurrentLine);
    connect(add(u"تراز در این ردیف"_s, u"money"_s,
                u"اختلاف دو طرف را در ردیف انتخاب‌شده می‌گذارد."_s),
            &QPushButton::clicked, this, &CDlgAddDocument::balanceHere);
    row->addStretch(1);
}

void CDlgAddDocument::load(const ManualDocument &document)
{
    m_date->setDateTime(document.date.isValid() ? document.date
                                                : QDateTime(GetDBSetting()->GetDBServerDate().date(), QTime(0, 0), Qt::UTC));
    m_desc->setText(document.desc);
    QList<int> persons;
    for (const DocumentRow &entry : document.rows)
        persons.append(entry.personID);
    const QHash<int, QString> names = KLookup::names<CTblDocs>(u"iPersonID", persons);
    QVector<KLinesModel::Line> lines;
    for (const DocumentRow &entry : document.rows) {
        KLinesModel::Line line = m_rows->emptyLine();
        // An account that no longer takes rows keeps its code, marked.
        if (entry.account != 0)
            line[AccountColumn] = m_rows->choiceFor(AccountColumn, QString::number(entry.account));
        line[PersonColumn] = {names.value(entry.personID), 0, entry.personID};
        line[DescColumn].text = entry.description;
        line[DebitColumn].number = entry.debit;
        line[CreditColumn].number = entry.credit;
        lines.append(line);
    }
    // A document has at least two sides.
    while (lines.size() < 2)
        lines.append(m_rows->emptyLine());
    m_rows->setLines(lines);
    showTotals();
}

void CDlgAddDocument::pickPerson(int row, int column)
{
    const int chosen = CDlgPersons::SelectPerson(this, CDlgPersons::modePickOne, m_rows->line(row).at(column).key);
    if (chosen > 0)
        m_rows->setCell(row, column, {CTblPersonsMini::GetName(chosen), 0, chosen});
    m_rowsView->goTo(row, column);
}

void CDlgAddDocument::balanceHere()
{
    m_rowsView->finishEntry();
    const QModelIndex current = m_rowsView->currentIndex();
    if (!current.isValid())
        return;
    const KLinesModel::Line &line = m_rows->line(current.row());
    const AccountBalance shown = documentSum(document().rows);
    // Without the row's own current amount.
    const double missing = shown.bes - line.at(CreditColumn).number - shown.bed + line.at(DebitColumn).number;
    m_rows->setCell(current.row(), DebitColumn, {{}, missing > 0 ? missing : 0});
    m_rows->setCell(current.row(), CreditColumn, {{}, missing < 0 ? -missing : 0});
    m_rowsView->goTo(current.row(), missing < 0 ? CreditColumn : DebitColumn);
}

void CDlgAddDocument::showTotals()
{
    const AccountBalance shown = documentSum(document().rows);
    m_totals->setText(u"جمع بدهکار : %1     جمع بستانکار : %2     %3"_s
                          .arg(DToMoney(shown.bed), DToMoney(shown.bes),
                               shown.isBalanced() ? u"تراز"_s
                                                  : u"اختلاف : "_s + DToMoney(std::abs(shown.net()))));
}

QString CDlgAddDocument::totalsText() const
{
    return m_totals->text();
}

ManualDocument CDlgAddDocument::document() const
{
    ManualDocument document;
    document.num = m_num;
    document.fiscalYear = m_fiscalYear;
    document.date = m_date->dateTime();
    document.desc = m_desc->text();
    for (const KLinesModel::Line &line : m_rows->lines())
        document.rows.append({line.at(AccountColumn).key, line.at(PersonColumn).key, line.at(DebitColumn).number,
                              line.at(CreditColumn).number, line.at(DescColumn).text});
    return document;
}

bool CDlgAddDocument::refuseInvalidEntry()
{
    if (!m_date->isEntryValid()) {
        g_pDlgWarning->Show(m_date->entryError(), this);
        m_date->setFocus();
        return false;
    }
    QVector<int> positions;
    const QVector<KLinesModel::Line> lines = m_rows->lines(&positions);
    for (int index = 0; index < lines.size(); ++index) {
        const KLinesModel::Cell &account = lines.at(index).at(AccountColumn);
        if (account.key != 0 || account.text.isEmpty())
            continue;
        g_pDlgWarning->Show(u"حساب «%1» در لیست حساب‌ها نیست."_s.arg(account.text), this);
        m_rowsView->goTo(positions.at(index), AccountColumn);
        return false;
    }
    return true;
}

void CDlgAddDocument::goTo(const ManualDocument::Problem &problem)
{
    using What = ManualDocument::Problem::What;
    QVector<int> positions;
    m_rows->lines(&positions);
    const int row = positions.value(problem.row, 0);
    switch (problem.what) {
    case What::NoDate:
        return m_date->setFocus();
    case What::NoRows:
    case What::NoAccount:
        return m_rowsView->goTo(row, AccountColumn);
    case What::NoPerson:
    case What::NeedlessPerson:
        return m_rowsView->goTo(row, PersonColumn);
    case What::NoAmount:
    case What::AmountTooLarge:
        return m_rowsView->goTo(row, DebitColumn);
    case What::BothSides:
        return m_rowsView->goTo(row, CreditColumn);
    case What::NotBalanced:
        return m_rowsView->goTo(positions.isEmpty() ? 0 : positions.constLast(), DebitColumn);
    }
}

bool CDlgAddDocument::OnOK()
{
    m_rowsView->finishEntry();
    if (!refuseInvalidEntry())
        return false;
    const ManualDocument wanted = document();
    const QList<ManualDocument::Problem> problems = wanted.problems(m_accounts);
    if (!problems.isEmpty()) {
        g_pDlgWarning->Show(wanted.message(problems.constFirst()), this);
        goTo(problems.constFirst());
        return false;
    }
    return save(wanted);
}

void CDlgAddDocument::remember(const ManualDocument &read)
{
    if (m_num == 0)
        return;
    CTblDocuments header;
    const bool known = header.IsRecordExist(u"iNum"_s, m_num, 0, KSql::formatted(" AND iFiscalYear=%1", m_fiscalYear));
    const qint32 key = known ? header.m_iID : 0;
    m_values.set(read.content(), key);
    m_opened = OpenedRow(m_values, {}, [this, key] { m_values.set(document().content(), key); });
}

bool CDlgAddDocument::save(const ManualDocument &wanted)
{
    ManualDocument edited = wanted;
    const auto attempt = [&] {
        edited.save(m_opened);
        m_num = edited.num;
        m_fiscalYear = edited.fiscalYear;
    };
    const auto becomeNew = [&] {
        edited.num = 0;
        // Also for another try: the number may be another document's by then.
        m_num = 0;
        m_opened = {};
    };
    try {
        return RowQuestions::save(this, m_opened, m_values, {.format = DocumentValues::shown}, attempt, becomeNew)
            == RowQuestions::Outcome::Saved;
    } catch (const KAccountingError &error) {
        g_pDlgWarning->Show(error.userMessage(), this);
        m_date->setFocus();
        return false;
    }
}
