// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/CDlgCustomFieldDefinitions.h"

#include "suite/accounting/attachments/CTblCustomFields.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

enum Column {
    NumberColumn,
    NameColumn,
    TypeColumn
};

}

CDlgCustomFieldDefinitions::CDlgCustomFieldDefinitions(int table, QWidget *parent)
    : KDialog(parent)
    , m_table(table)
    , m_name(new KEdit)
    , m_type(new KDropDown)
    , m_list(new KExtListCtrl)
{
    setWindowTitle(u"تعریف فیلدهای اضافی"_s);
    SetSettingName(u"CustomFields"_s);
    resize(LookSizes::scaled(600), LookSizes::scaled(480));
    build();
    fill(0);
}

CDlgCustomFieldDefinitions::~CDlgCustomFieldDefinitions() = default;

void CDlgCustomFieldDefinitions::build()
{
    m_name->setMaxLength(100);
    m_type->addItems(CTblCustomFields::typeNames());
    auto *page = new CardPage(600, this);
    FormGrid *grid = page->addForm();
    addLabelled(grid, u"نام :"_s, m_name);
    addLabelled(grid, u"نوع :"_s, m_type);

    auto *commands = new QHBoxLayout;
    QPushButton *add = addButton(commands, u"افزودن"_s);
    m_renameButton = addButton(commands, u"تغییر نام"_s);
    m_deleteButton = addButton(commands, u"حذف"_s);
    commands->addStretch();

    m_list->setAccessibleName(u"فیلدها"_s);
    m_list->setColumns({{u"ردیف"_s, Qt::AlignHCenter, 40},
                        {u"نام"_s, Qt::AlignRight, 150},
                        {u"نوع"_s, Qt::AlignRight, 80}});
    m_list->SetSettingName(u"CustomFields\\List"_s);

    grid->startRow();
    grid->addCell(commands, 4);
    page->addList(m_list);
    setContent(page, createButtons(QString(), u"بازگشت"_s), Content::Fills);
    LookMarks::setButton(add, LookMarks::Button::Primary);
    connect(add, &QPushButton::clicked, this, &CDlgCustomFieldDefinitions::addField);
    connect(m_renameButton, &QPushButton::clicked, this, &CDlgCustomFieldDefinitions::renameField);
    connect(m_deleteButton, &QPushButton::clicked, this, &CDlgCustomFieldDefinitions::deleteField);
    connect(m_list, &KExtListCtrl::currentKeyChanged, this, &CDlgCustomFieldDefinitions::showSelected);
}

void CDlgCustomFieldDefinitions::fill(int selectedID)
{
    CTblCustomFields set;
    set.m_filter = KSql::formatted("iTable=%1", m_table);
    set.m_sort = "iID";
    QVector<KListModel::Row> rows;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext()) {
        const int number = static_cast<int>(rows.size()) + 1;
        rows.append({set.m_iID,
                     {{QString::number(number), number}, {set.m_sName}, {CTblCustomFields::typeNames().value(set.m_iType)}}});
    }
    m_list->setRows(std::move(rows));
    m_list->selectKey(selectedID);
    showSelected(m_list->currentKey());
}

void CDlgCustomFieldDefinitions::showSelected(int fieldID)
{
    m_renameButton->setEnabled(fieldID > 0);
    m_deleteButton->setEnabled(fieldID > 0);
    if (fieldID > 0)
        m_name->setText(m_list->cellText(m_list->currentRow(), NameColumn));
}

void CDlgCustomFieldDefinitions::addField()
{
    try {
        fill(CTblCustomFields::define(m_table, m_name->text(), CTblCustomFields::Type(m_type->currentIndex())));
    } catch (const KAccountingError &error) {
        g_pDlgWarning->Show(error.userMessage(), this);
        m_name->setFocus();
    }
}

void CDlgCustomFieldDefinitions::renameField()
{
    const int fieldID = m_list->currentKey();
    if (fieldID < 1)
        return;
    CTblCustomFields field;
    field.m_iTable = m_table;
    // As the list showed it when the user chose it.
    field.m_sName = m_list->cellText(m_list->currentRow(), NameColumn);
    RowEdit edit(field, fieldID);
    edit.remember([] {});
    const auto outcome = RowQuestions::save(
        this, edit, {.goTo = [this](const QString &) { m_name->setFocus(); }, .offersNewRow = false},
        [&] { field.m_sName = m_name->text(); }, [&] { field.settle(edit.key()); });
    if (outcome != RowQuestions::Outcome::Back)
        fill(fieldID);
}

void CDlgCustomFieldDefinitions::deleteField()
{
    const int fieldID = m_list->currentKey();
    if (fieldID < 1
        || g_pDlgYesNo->Ask(u"با حذف این فیلد، مقدار آن در همه رکوردها هم حذف می شود. آیا اطمینان دارید؟"_s, this)
            == KMessageDialog::No)
        return;
    // One that is gone by now is told; the list shows it.
    KErrorBoundary::guarded(this, [&] { CTblCustomFields::remove(fieldID); });
    fill(0);
}
