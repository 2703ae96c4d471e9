// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/CDlgSavedFilters.h"

#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/CDlgSaveFilter.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int keptPageWidth = 520;

}

CDlgSavedFilters::CDlgSavedFilters(const QString &list, const QString &form, QWidget *parent)
    : KDialog(parent)
    , m_section(list)
    , m_form(form)
    , m_list(new KExtListCtrl)
{
    setWindowTitle(u"فیلترهای ذخیره شده"_s);
    SetSettingName(u"SavedFilters"_s);
    m_list->setAccessibleName(windowTitle());
    m_list->setColumns({{u"نام"_s, Qt::AlignRight, 160}, {u"برای"_s, Qt::AlignHCenter, 60}});
    auto *page = new CardPage(keptPageWidth, this);
    page->addList(m_list);
    QHBoxLayout *line = page->addLine();
    const auto addCommand = [&](const QString &caption, const QString &icon, const QKeySequence &key, void (CDlgSavedFilters::*run)()) {
        auto *button = new QPushButton(LookIcons::icon(icon), caption);
        button->setAccessibleName(caption);
        button->setAutoDefault(false);
        button->setToolTip(key.toString(QKeySequence::NativeText));
        const auto guarded = [this, run] { KErrorBoundary::guarded(this, [this, run] { (this->*run)(); }); };
        connect(button, &QPushButton::clicked, this, guarded);
        connect(new QShortcut(key, m_list, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this, guarded);
        line->addWidget(button);
        return button;
    };
    m_rename = addCommand(u"تغییر نام"_s, u":/icons/edit.svg"_s, QKeySequence(Qt::Key_F2), &CDlgSavedFilters::rename);
    m_delete = addCommand(u"حذف"_s, u":/icons/delete.svg"_s, QKeySequence(QKeySequence::Delete), &CDlgSavedFilters::remove);
    line->addStretch(1);
    connect(m_list, &KExtListCtrl::currentKeyChanged, this, [this](int key) {
        m_rename->setEnabled(key > 0);
        m_delete->setEnabled(key > 0);
    });
    setContent(page, createButtons({}, u"بازگشت"_s), Content::Fills);
    m_rename->setEnabled(false);
    m_delete->setEnabled(false);
    fill();
    m_list->setFocus();
}

CDlgSavedFilters::~CDlgSavedFilters() = default;

void CDlgSavedFilters::fill()
{
    const int row = m_list->currentRow();
    m_entries = CTblSavedFilters::entries(m_section, GetDBSetting()->GetUserID());
    QVector<KListModel::Row> rows;
    for (const CTblSavedFilters::Entry &entry : std::as_const(m_entries))
        rows.append({entry.key, {{entry.name}, {entry.userID == CTblSavedFilters::shared ? u"همه کاربران"_s : u"خودم"_s}}});
    m_list->setRows(std::move(rows));
    m_list->selectRow(qMax(0, qMin(row, m_list->count() - 1)));
}

CTblSavedFilters::Entry CDlgSavedFilters::chosen() const
{
    return m_entries.value(m_list->listModel()->rowOfKey(m_list->currentKey()));
}

void CDlgSavedFilters::rename()
{
    const CTblSavedFilters::Entry entry = chosen();
    if (entry.key == 0 || !CDlgSaveFilter::mayKeep(m_form, entry, this))
        return;
    CDlgSaveFilter(m_section, m_form, entry, this).exec();
    fill();
    m_list->selectKey(entry.key);
}

void CDlgSavedFilters::remove()
{
    const CTblSavedFilters::Entry entry = chosen();
    if (entry.key == 0 || !CDlgSaveFilter::mayKeep(m_form, entry, this)
        || g_pDlgYesNo->Ask(u"آیا از حذف فیلتر «%1» اطمینان دارید؟"_s.arg(entry.name), this) == KMessageDialog::No)
        return;
    CTblSavedFilters record;
    record.m_iID = entry.key;
    record.begin(m_section, entry);
    try {
        RowDeleting::run(record);
    } catch (const RowDeleting::Refused &refused) {
        g_pDlgWarning->Show(refused.userMessage(), this);
    }
    fill();
}
