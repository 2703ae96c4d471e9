// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/recovery/CDlgRecordDifferences.h"

#include "suite/utility/frame/CardPage.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookSizes.h"

#include <QDialogButtonBox>
#include <QLabel>

using namespace Qt::StringLiterals;

CDlgRecordDifferences::CDlgRecordDifferences(const QString &title, const QList<BackupRecords::Difference> &differences, QWidget *parent)
    : KDialog(parent)
{
    setWindowTitle(u"تفاوت‌های %1"_s.arg(title));
    SetSettingName(u"RecordDifferences"_s);
    auto *list = new KExtListCtrl(this);
    list->setAccessibleName(u"تفاوت‌ها"_s);
    list->setColumns({{u"مشخصه"_s, Qt::AlignRight, 90}, {u"در پشتیبان"_s, Qt::AlignRight, 150}, {u"در برنامه"_s, Qt::AlignRight, 150}});
    list->SetSettingName(u"RecordDifferences\\List"_s);
    QVector<KListModel::Row> rows;
    const auto cell = [](const QString &text) { return KListModel::Cell{text.isEmpty() ? u"-"_s : text}; };
    for (const BackupRecords::Difference &one : differences)
        rows.append({static_cast<int>(rows.size()) + 1, {{one.caption}, cell(one.then), cell(one.now)}});
    list->setRows(std::move(rows));
    list->selectRow(0);
    auto *page = new CardPage(760, this);
    KListCard *card = page->addList(list);
    if (differences.isEmpty())
        card->addToFoot(new QLabel(u"فرقی نیست."_s, card));
    setContent(page, createButtons(QString(), u"بازگشت"_s), Content::Fills);
    resize(LookSizes::scaled(760), LookSizes::scaled(480));
    list->setFocus();
}
