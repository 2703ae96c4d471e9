// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/recovery/CDlgRestoreRecords.h"

#include "suite/accounting/bin/RecordParts.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/accounting/recovery/CDlgRecordDifferences.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookSizes.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using State = BackupRecords::State;

// Long enough not to search for every letter of a word typed at speed.
constexpr int searchPauseMs = 250;

QString stateText(State state)
{
    switch (state) {
    case State::Same:
        return u"همان است"_s;
    case State::Changed:
        return u"فرق دارد"_s;
    case State::Missing:
        return u"نیست"_s;
    case State::Binned:
        break;
    }
    return u"در سطل بازیافت"_s;
}

}

CDlgRestoreRecords::CDlgRestoreRecords(int backup, QWidget *parent)
    : KDialog(parent)
    , m_backup(backup)
    , m_kind(new QComboBox(this))
    , m_search(new KEdit(this))
    , m_list(new KExtListCtrl(this))
{
    setWindowTitle(u"بازگرداندن ردیف از پشتیبان"_s);
    SetSettingName(u"RestoreRecords"_s);
    build();
    resize(LookSizes::scaled(820), LookSizes::scaled(560));
    m_typing.setSingleShot(true);
    m_typing.setInterval(searchPauseMs);
    connect(&m_typing, &QTimer::timeout, this, [this] { KErrorBoundary::guarded(this, [this] { search(); }); });
    connect(m_search, &KEdit::textChanged, &m_typing, qOverload<>(&QTimer::start));
    connect(m_kind, &QComboBox::currentIndexChanged, &m_typing, [this] { KErrorBoundary::guarded(this, [this] { search(); }); });
    connect(m_list, &KExtListCtrl::currentKeyChanged, this, [this] { updateButtons(); });
    connect(m_list, &KExtListCtrl::rowActivated, this, [this] { KErrorBoundary::guarded(this, [this] { showSelected(); }); });
    search();
    m_search->setFocus();
}

void CDlgRestoreRecords::build()
{
    for (const RecordParts *parts : BinnedRecords::all()) {
        if (const RecordSubject *subject = RecordSubjects::of(parts->table))
            m_kind->addItem(subject->kind, parts->table);
    }
    m_kind->setProperty(followsSelection, true);
    m_search->setProperty(followsSelection, true);
    m_search->setPlaceholderText(u"کد، نام، شماره، پلاک"_s);
    m_search->setMaxLength(100);
    m_search->setClearButtonEnabled(true);
    m_list->setAccessibleName(u"ردیف‌های پشتیبان"_s);
    m_list->setColumns({{u"عنوان"_s, Qt::AlignRight, 220}, {u"در برنامه امروز"_s, Qt::AlignRight, 80}});
    m_list->SetSettingName(u"RestoreRecords\\List"_s);
    auto *page = new CardPage(820, this);
    FormGrid *grid = page->addForm();
    addLabelled(grid, u"نوع :"_s, m_kind);
    addLabelled(grid, u"جستجو :"_s, m_search, 2);
    KListCard *card = page->addList(m_list);
    m_count = new QLabel(card);
    card->addToFoot(m_count);
    setContent(page, createButtons(QString(), u"بازگشت"_s), Content::Fills);
    m_restore = addButton(footer(), u"بازگردانی"_s, u":/icons/refresh.svg"_s);
    connect(m_restore, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { restoreSelected(); }); });
    m_differences = addButton(footer(), u"تفاوت‌ها"_s, u":/icons/show.svg"_s);
    connect(m_differences, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { showSelected(); }); });
}

QString CDlgRestoreRecords::table() const
{
    return m_kind->currentData().toString();
}

const BackupRecords::Found *CDlgRestoreRecords::selected() const
{
    const auto found = std::ranges::find_if(m_found, [this](const BackupRecords::Found &one) { return one.key == m_list->currentKey(); });
    return found == m_found.cend() ? nullptr : &*found;
}

void CDlgRestoreRecords::search()
{
    searchSelecting(m_list->currentKey());
}

void CDlgRestoreRecords::searchSelecting(qint32 key)
{
    const KWaitCursor wait;
    m_typing.stop();
    m_found = BackupRecords::find(table(), m_search->text(), m_backup);
    QVector<KListModel::Row> rows;
    for (const BackupRecords::Found &found : std::as_const(m_found)) {
        KListModel::Row row{found.key, {{found.title}, {stateText(found.state)}}};
        row.cells[1].warning = found.state == State::Missing;
        rows.append(row);
    }
    m_list->setRows(std::move(rows));
    if (!m_list->selectKey(key))
        m_list->selectRow(0);
    m_count->setText(m_found.size() < BackupRecords::mostFound ? SuiteMessages::count(m_found.size())
                                                               : u"همه در فهرست جا نشدند؛ جستجو را کامل تر کنید."_s);
    updateButtons();
}

void CDlgRestoreRecords::updateButtons()
{
    const BackupRecords::Found *found = selected();
    m_restore->setEnabled(found != nullptr);
    m_differences->setEnabled(found != nullptr);
}

void CDlgRestoreRecords::restoreSelected()
{
    const BackupRecords::Found *found = selected();
    if (!found)
        return;
    // As it is now, and not as it was when it was listed.
    const qint32 key = found->key;
    const State state = BackupRecords::stateOf(table(), key, m_backup);
    if (state == State::Same) {
        g_pDlgMessage->Show(u"این ردیف در برنامه همان است که در پشتیبان است."_s, this);
        return searchSelecting(key);
    }
    if (state == State::Changed
        && g_pDlgYesNo->Ask(u"«%1» در برنامه هست و با پشتیبان فرق دارد. آنچه در برنامه است می‌ماند و ردیف پشتیبان به عنوان ردیف تازه‌ای اضافه می‌شود. اضافه شود؟"_s.arg(found->title), this)
            != KMessageDialog::Yes)
        return;
    const BinRestoring::Restored restored = BackupRecords::restore(table(), key, m_backup, state == State::Changed);
    g_pDlgMessage->Show(restored.message, this);
    searchSelecting(key);
}

void CDlgRestoreRecords::showSelected()
{
    if (const BackupRecords::Found *found = selected())
        CDlgRecordDifferences(found->title, BackupRecords::differences(table(), found->key, m_backup), this).exec();
}
