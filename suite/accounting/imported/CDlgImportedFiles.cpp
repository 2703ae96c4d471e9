// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/imported/CDlgImportedFiles.h"

#include "suite/accounting/bin/RecordParts.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/waiting/LongWaiting.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr int importedPageWidth = 720;
constexpr int filesHeight = 170;

}

CDlgImportedFiles::CDlgImportedFiles(const ImportedKind &kind, QWidget *parent)
    : KDialog(parent)
    , m_kind(kind)
    , m_files(new KExtListCtrl)
    , m_staying(new KExtListCtrl)
    , m_outcome(new QLabel)
{
    setWindowTitle(u"ورودهای پیشین، %1"_s.arg(kind.title()));
    SetSettingName(u"ImportedFiles"_s);
    m_files->setAccessibleName(u"ورودهای پیشین"_s);
    m_files->setColumns({{u"فایل"_s, Qt::AlignRight, 150}, {u"تاریخ"_s, Qt::AlignHCenter, 60}, {u"ساعت"_s, Qt::AlignHCenter, 40}, {u"کاربر"_s, Qt::AlignRight, 70}, {u"ردیف‌ها"_s, Qt::AlignHCenter, 45}, {u"برگردانده شده"_s, Qt::AlignHCenter, 60}});
    m_staying->setAccessibleName(u"ردیف‌هایی که می‌مانند"_s);
    m_staying->setColumns({{u"ردیفی که می‌ماند"_s, Qt::AlignRight, 150}, {u"علت"_s, Qt::AlignRight, 270}});
    auto *page = new CardPage(importedPageWidth, this);
    // What stays gets the room that is left.
    auto *files = new KListCard(m_files, page);
    files->setFixedHeight(LookSizes::scaled(filesHeight));
    page->cards()->addCard(files);
    KListCard *card = page->addList(m_staying);
    card->addToFoot(m_outcome, true);
    QDialogButtonBox *buttons = createButtons(u"برگرداندن ورود"_s, u"بازگشت"_s);
    for (QAbstractButton *button : buttons->buttons()) {
        if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
            m_return = button;
    }
    setContent(page, buttons, Content::Fills);
    setAsksBeforeDropping(false); // nothing is entered here
    resize(LookSizes::scaled(760), LookSizes::scaled(560));
    connect(m_files, &KExtListCtrl::currentKeyChanged, this, [this] { KErrorBoundary::guarded(this, [this] { showPlan(); }); });
    fill();
    m_files->setFocus();
}

CDlgImportedFiles::~CDlgImportedFiles() = default;

bool CDlgImportedFiles::run(const ImportedKind &kind, QWidget *parent)
{
    CDlgImportedFiles dialog(kind, parent);
    dialog.exec();
    return dialog.m_tookBack;
}

void CDlgImportedFiles::fill()
{
    const int current = m_files->currentKey();
    m_entries = CTblImportedFiles::entries(m_kind.id());
    QVector<KListModel::Row> rows;
    for (const CTblImportedFiles::Entry &entry : std::as_const(m_entries))
        rows.append({entry.key, {{entry.file}, {shamsiText(entry.when.date())}, {entry.when.time().toString(u"HH:mm"_s)}, {CTblUsers::GetName(entry.userID)}, {QString::number(entry.rows)}, {entry.takenBack > 0 ? QString::number(entry.takenBack) : QString()}}});
    m_files->setRows(std::move(rows));
    if (!m_files->selectKey(current))
        m_files->selectRow(0);
    showPlan();
}

CTblImportedFiles::Entry CDlgImportedFiles::chosen() const
{
    return m_entries.value(m_files->listModel()->rowOfKey(m_files->currentKey()));
}

void CDlgImportedFiles::showPlan()
{
    const KWaitCursor wait;
    const CTblImportedFiles::Entry entry = chosen();
    take(entry.key > 0 ? ImportReturn::plan(m_kind, entry.key) : ImportReturn::Plan());
}

void CDlgImportedFiles::take(const ImportReturn::Plan &plan)
{
    m_plan = plan;
    QVector<KListModel::Row> rows;
    for (const ImportReturn::Staying &one : plan.staying)
        rows.append({one.key, {{one.name}, {one.why}}});
    m_staying->setRows(std::move(rows));
    m_outcome->setText(outcome());
    m_return->setEnabled(!plan.going.isEmpty());
}

QString CDlgImportedFiles::outcome() const
{
    if (m_plan.file == 0)
        return u"فایلی وارد نشده است."_s;
    if (!m_plan.isKnown)
        return u"این فایل با نسخه پیشین برنامه وارد شده است و یکجا برنمی‌گردد."_s;
    if (m_plan.going.isEmpty() && m_plan.staying.isEmpty())
        return u"از ردیف‌های این فایل چیزی نمانده است."_s;
    return u"%1 ردیف برمی‌گردد، %2 ردیف می‌ماند"_s.arg(m_plan.going.size()).arg(m_plan.staying.size());
}

QString CDlgImportedFiles::question() const
{
    const QString going = u"%1 ردیفی که با فایل «%2» وارد شده است حذف می‌شود."_s.arg(m_plan.going.size()).arg(chosen().file);
    const QString staying = m_plan.staying.isEmpty() ? QString() : u"\n%1 ردیف که پس از ورود تغییر کرده یا به کار رفته است می‌ماند."_s.arg(m_plan.staying.size());
    return going + staying + u"\nاین ورود برگردانده شود؟"_s;
}

bool CDlgImportedFiles::refuse(const QString &message)
{
    g_pDlgWarning->Show(message, this);
    m_files->setFocus();
    return false;
}

bool CDlgImportedFiles::OnOK()
{
    if (m_plan.going.isEmpty())
        return refuse(outcome());
    if (!KSecurity::IsGranted(m_kind.form(), KSecurity::Delete))
        return refuse(KSecurity::refusalText(m_kind.form(), KSecurity::Delete));
    if (g_pDlgYesNo->Ask(question(), this) != KMessageDialog::Yes)
        return false;
    int taken = 0;
    try {
        LongWaiting::run(u"ورود برگردانده می‌شود."_s, this, [&](const LongTask::Progress &progress) { taken = ImportReturn::run(m_kind, m_plan, progress); });
    } catch (const LongTask::Stopped &) {
        return refuse(u"برگرداندن متوقف شد و چیزی حذف نشد."_s);
    } catch (const ImportReturn::Changed &changed) {
        take(changed.now);
        return refuse(u"در این میان چیزی در برنامه تغییر کرده است و چیزی برگردانده نشد. فهرست تازه را ببینید."_s);
    }
    m_tookBack = true;
    fill();
    const QString where = BinnedRecords::of(m_kind.table()) ? u"\nآن‌ها در «سطل بازیافت» هستند."_s : QString();
    g_pDlgMessage->Show(u"%1 ردیف برگردانده شد."_s.arg(taken) + where, this);
    return false;
}
