// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/ImportColumnsPage.h"

#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/ScrolledPage.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestTitle = 40;

}

ImportColumnsPage::ImportColumnsPage(const QList<ImportField> &fields, QWidget *parent)
    : QWidget(parent)
    , m_fields(fields)
    , m_kept(new QComboBox)
    , m_name(new KEdit)
    , m_unused(new QLabel)
{
    build();
}

void ImportColumnsPage::build()
{
    auto *content = new QWidget(this);
    auto *cards = new CardStack(content);
    auto *keptCard = new QGroupBox(content);
    auto *keptGrid = new FormGrid(keptCard);
    addLabelled(keptGrid, u"ستون‌های ذخیره‌شده :"_s, m_kept, 2);
    m_name->setMaxLength(CTblImportMappings::longestName);
    addLabelled(keptGrid, u"نام برای ذخیره :"_s, m_name, 2);
    auto *commands = new QHBoxLayout;
    m_keep = addButton(commands, u"ذخیره ستون‌ها"_s, u":/icons/save.svg"_s);
    m_drop = addButton(commands, u"حذف ستون‌ها"_s, u":/icons/delete.svg"_s);
    commands->addStretch(1);
    keptGrid->addCell(commands, 4);
    m_unused->setWordWrap(true);
    keptGrid->addLine(m_unused);
    cards->addCard(keptCard);

    auto *card = new QGroupBox(u"ستون فایل برای هر فیلد"_s, content);
    auto *grid = new FormGrid(card);
    for (const ImportField &field : std::as_const(m_fields)) {
        auto *choice = new QComboBox;
        choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        choice->setMinimumContentsLength(8);
        addLabelled(grid, (field.isRequired ? field.title + u" *"_s : field.title) + u" :"_s, choice, 2);
        m_choices.insert(field.key, choice);
        connect(choice, &QComboBox::currentIndexChanged, this, [this, key = field.key] { chosen(key); });
    }
    cards->addCard(card);
    fillWithScrolled(this, content);
    connect(m_kept, &QComboBox::currentIndexChanged, this, &ImportColumnsPage::keptChosen);
    connect(m_keep, &QPushButton::clicked, this, &ImportColumnsPage::keepWanted);
    connect(m_drop, &QPushButton::clicked, this, [this] { Q_EMIT dropWanted(m_entries.value(m_kept->currentIndex() - 1)); });
    showKept({}, {});
}

void ImportColumnsPage::showSheet(const Sheet &sheet, int titleRow, const QList<CTblImportMappings::Entry> &kept)
{
    m_titles = ImportMapping::titlesIn(sheet, titleRow);
    m_examples.clear();
    for (qsizetype column = 0; column < m_titles.size(); ++column)
        m_examples.append(sheet.cell(titleRow + 1, column).text.simplified().left(longestTitle));
    for (QComboBox *choice : std::as_const(m_choices)) {
        const QScopedValueRollback filling(m_filling, true);
        choice->clear();
        choice->addItem(u"-"_s, -1);
        for (int column = 0; column < m_titles.size(); ++column) {
            const QString title = m_titles.at(column).left(longestTitle);
            choice->addItem(title.isEmpty() ? u"ستون %1"_s.arg(column + 1) : title, column);
        }
    }
    // Kept for files of these very titles.
    QString fitting;
    ImportMapping::Columns columns = ImportMapping::matched(m_fields, m_titles);
    for (const CTblImportMappings::Entry &entry : kept) {
        const ImportMapping::Columns found = ImportMapping::fromText(entry.mapping, m_titles);
        if (found.size() >= columns.size() && !found.isEmpty()) {
            columns = found;
            fitting = entry.name;
        }
    }
    showKept(kept, fitting);
    choose(columns);
}

void ImportColumnsPage::showKept(const QList<CTblImportMappings::Entry> &kept, const QString &current)
{
    const QScopedValueRollback filling(m_filling, true);
    m_entries = kept;
    m_kept->clear();
    m_kept->addItem(u"از روی عنوان‌ها"_s);
    for (const CTblImportMappings::Entry &entry : kept)
        m_kept->addItem(entry.name);
    m_kept->setCurrentIndex(qMax(0, m_kept->findText(current)));
    m_drop->setEnabled(m_kept->currentIndex() > 0);
}

void ImportColumnsPage::keptChosen()
{
    m_drop->setEnabled(m_kept->currentIndex() > 0);
    if (m_filling)
        return;
    const int entry = m_kept->currentIndex() - 1;
    choose(entry < 0 ? ImportMapping::matched(m_fields, m_titles) : ImportMapping::fromText(m_entries.at(entry).mapping, m_titles));
    m_name->setText(entry < 0 ? QString() : m_entries.at(entry).name);
}

void ImportColumnsPage::choose(const ImportMapping::Columns &columns)
{
    {
        const QScopedValueRollback filling(m_filling, true);
        for (const ImportField &field : std::as_const(m_fields))
            m_choices.value(field.key)->setCurrentIndex(columns.value(field.key, -1) + 1);
    }
    tell();
}

// A column fills one field: the one that it was chosen for last.
void ImportColumnsPage::chosen(const QString &key)
{
    if (m_filling)
        return;
    const int column = m_choices.value(key)->currentData().toInt();
    {
        const QScopedValueRollback filling(m_filling, true);
        for (auto choice = m_choices.cbegin(); choice != m_choices.cend(); ++choice) {
            if (choice.key() != key && column >= 0 && choice.value()->currentData().toInt() == column)
                choice.value()->setCurrentIndex(0);
        }
    }
    tell();
}

void ImportColumnsPage::tell()
{
    const ImportMapping::Columns chosen = columns();
    for (const ImportField &field : std::as_const(m_fields)) {
        if (FieldNote *note = FieldNote::of(m_choices.value(field.key)))
            note->setOwnText(chosen.contains(field.key) ? m_examples.value(chosen.value(field.key)) : QString());
    }
    QStringList unused;
    for (int column = 0; column < m_titles.size(); ++column) {
        if (!m_titles.at(column).isEmpty() && !chosen.values().contains(column))
            unused.append(m_titles.at(column).left(longestTitle));
    }
    m_unused->setText(unused.isEmpty() ? u"همه ستون‌های فایل به کار می‌روند."_s : u"ستون‌هایی که خوانده نمی‌شوند: %1"_s.arg(unused.join(u"، "_s)));
}

ImportMapping::Columns ImportColumnsPage::columns() const
{
    ImportMapping::Columns columns;
    for (auto choice = m_choices.cbegin(); choice != m_choices.cend(); ++choice) {
        if (choice.value()->currentIndex() > 0)
            columns.insert(choice.key(), choice.value()->currentData().toInt());
    }
    return columns;
}

QString ImportColumnsPage::keepName() const
{
    return m_name->text();
}

const ImportField *ImportColumnsPage::missing() const
{
    const ImportMapping::Columns chosen = columns();
    for (const ImportField &field : m_fields) {
        if (field.isRequired && !chosen.contains(field.key))
            return &field;
    }
    return nullptr;
}
