// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/recovery/CDlgBinEntry.h"

#include "suite/accounting/bin/RecordPackage.h"
#include "suite/accounting/bin/RecordWords.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookSizes.h"

#include <QDialogButtonBox>
#include <QLabel>

using namespace Qt::StringLiterals;

CDlgBinEntry::CDlgBinEntry(const Bin::Entry &entry, QWidget *parent)
    : KDialog(parent)
    , m_list(new KExtListCtrl(this))
{
    setWindowTitle(u"%1، حذف شده"_s.arg(entry.name()));
    SetSettingName(u"BinEntry"_s);
    m_list->setAccessibleName(u"جزئیات ردیف حذف شده"_s);
    m_list->setColumns({{u"مشخصه"_s, Qt::AlignRight, 90}, {u"مقدار"_s, Qt::AlignRight, 220}});
    m_list->SetSettingName(u"BinEntry\\List"_s);
    auto *page = new CardPage(680, this);
    KListCard *card = page->addList(m_list);
    card->addToFoot(new QLabel(u"%1 آن را حذف کرده است."_s.arg(RowChanged::user(entry.userID, entry.date)), card));
    setContent(page, createButtons(QString(), u"بازگشت"_s), Content::Fills);
    resize(LookSizes::scaled(680), LookSizes::scaled(560));
    fill(entry);
    m_list->setFocus();
}

void CDlgBinEntry::fill(const Bin::Entry &entry)
{
    QVector<KListModel::Row> rows;
    for (const RecordWords::Line &line : RecordWords::of(RecordPackage::ofBin(entry.id))) {
        KListModel::Row row{static_cast<int>(rows.size()) + 1, {{line.caption}, {line.value}}};
        row.heading = line.isTitle();
        rows.append(row);
    }
    m_list->setRows(std::move(rows));
    m_list->selectRow(0);
}
