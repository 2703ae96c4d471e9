// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/ImportFilePage.h"

#include "suite/accounting/importing/ImportMapping.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"

#include <QComboBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

using namespace Qt::StringLiterals;

namespace {

constexpr int filePageWidth = 860;
constexpr qsizetype shownRows = 50;
constexpr qsizetype shownColumns = 40;
constexpr qsizetype longestShown = 80;

}

ImportFilePage::ImportFilePage(const ImportKind &kind, QWidget *parent)
    : CardPage(filePageWidth, parent)
    , m_kind(kind)
    , m_path(new KEdit)
    , m_sheet(new QComboBox)
    , m_titleRow(new QSpinBox)
    , m_rows(new KExtListCtrl)
{
    m_path->setReadOnly(true);
    m_titleRow->setRange(1, 1);
    FormGrid *grid = addForm({}, FormGrid::Extent::Full);
    addLabelled(grid, u"فایل :"_s, m_path, 4);
    addLabelled(grid, u"برگه :"_s, m_sheet, 2);
    addLabelled(grid, u"سطر عنوان‌ها :"_s, m_titleRow);
    QHBoxLayout *line = addLine();
    m_choose = addButton(line, u"انتخاب فایل"_s, u":/icons/attach.svg"_s);
    QPushButton *sample = addButton(line, u"فایل نمونه"_s, u":/icons/save.svg"_s);
    line->addStretch(1);
    QPushButton *earlier = addButton(line, u"ورودهای پیشین"_s, u":/icons/history.svg"_s);
    m_rows->setAccessibleName(u"سطرهای فایل"_s);
    m_rows->setColumns({{u"سطر"_s, Qt::AlignHCenter, 30}});
    addList(m_rows);
    connect(m_choose, &QPushButton::clicked, this, &ImportFilePage::fileWanted);
    connect(earlier, &QPushButton::clicked, this, &ImportFilePage::earlierWanted);
    connect(sample, &QPushButton::clicked, this, &ImportFilePage::sampleWanted);
    connect(m_sheet, &QComboBox::currentIndexChanged, this, &ImportFilePage::sheetChosen);
    connect(m_titleRow, &QSpinBox::valueChanged, this, &ImportFilePage::preview);
}

const Sheet &ImportFilePage::sheet() const
{
    static const Sheet none;
    const int index = m_sheet->currentIndex();
    return index >= 0 && index < m_sheets.size() ? m_sheets.at(index) : none;
}

int ImportFilePage::titleRow() const
{
    return m_titleRow->value() - 1;
}

void ImportFilePage::showFile(const QString &path, const QList<Sheet> &sheets)
{
    m_sheets = sheets;
    // The folder would run the other way; whoever needs it finds it in the tool tip.
    m_path->setText(QFileInfo(path).fileName());
    m_path->setToolTip(path);
    {
        const QSignalBlocker quiet(m_sheet);
        m_sheet->clear();
        for (const Sheet &sheet : sheets)
            m_sheet->addItem(sheet.name.isEmpty() ? u"-"_s : sheet.name);
        m_sheet->setEnabled(sheets.size() > 1);
    }
    sheetChosen();
}

void ImportFilePage::sheetChosen()
{
    {
        const QSignalBlocker quiet(m_titleRow);
        m_titleRow->setRange(1, qMax(1, static_cast<int>(sheet().rows.size())));
        m_titleRow->setValue(ImportMapping::titleRow(sheet(), m_kind.fields()) + 1);
    }
    preview();
}

void ImportFilePage::preview()
{
    const QStringList titles = ImportMapping::titlesIn(sheet(), titleRow()).mid(0, shownColumns);
    QVector<KListModel::Column> columns{{u"سطر"_s, Qt::AlignHCenter, 30}};
    for (const QString &title : titles)
        columns.append({title, Qt::AlignRight, 70});
    m_rows->setColumns(columns);
    QVector<KListModel::Row> rows;
    for (qsizetype row = titleRow() + 1; row < sheet().rows.size() && rows.size() < shownRows; ++row) {
        if (sheet().rows.at(row).isEmpty())
            continue;
        KListModel::Row shown{static_cast<int>(row) + 1, {{QString::number(row + 1)}}};
        for (qsizetype column = 0; column < titles.size(); ++column)
            shown.cells.append({sheet().cell(row, column).text.left(longestShown).simplified()});
        rows.append(shown);
    }
    m_rows->setRows(std::move(rows));
}
