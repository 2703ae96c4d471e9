// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/editor/CDlgAddAutomobilDemand.h"

#include "auto/editor/NewRecord.h"
#include "auto/cars/demands/editor/CDlgAddAutomobilDemandBase.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/KExpectedRow.h"
#include "suite/utility/frame/KTabPageButtons.h"

using namespace Qt::StringLiterals;

namespace {

QString titleOf(EditorMode mode)
{
    switch (mode) {
    case EditorMode::New:
        return u"تقاضا - جدید"_s;
    case EditorMode::Edit:
        return u"تقاضا - ویرایش"_s;
    case EditorMode::Show:
        break;
    }
    return u"تقاضا - نمایش"_s;
}

}

int CDlgAddAutomobilDemand::addPlaceholder(const QDateTime &now)
{
    return NewRecord::add<CTblAutomobilDemands>([&now](CTblAutomobilDemands &demand) { demand.m_dateCreate = now; });
}

int CDlgAddAutomobilDemand::NewDemand(QWidget *parent)
{
    const KReadAhead reading;
    const OfficeSettings settings = OfficeSettings::read();
    settings.requireOpen();
    CDlgAddAutomobilDemandBase::expectBuild();
    expectRow<CTblUsers>(GetDBSetting()->GetUserID());
    const int key = addPlaceholder(settings.serverTime());
    int saved = 0;
    const bool confirmed = NewRecord::keptByEditor<CTblAutomobilDemands>(key, [&] {
        CDlgAddAutomobilDemand dialog(key, EditorMode::New, parent);
        saved = dialog.load() && dialog.exec() == QDialog::Accepted ? dialog.key() : 0;
        return saved != 0;
    });
    return confirmed ? saved : 0;
}

void CDlgAddAutomobilDemand::expectEdit(int demandID)
{
    for (int time = 0; time < 2; ++time)
        OfficeSettings::expect();
    CDlgAddAutomobilDemandBase::expectBuild();
    expectRow<CTblAutomobilDemands>(demandID);
}

bool CDlgAddAutomobilDemand::EditDemand(int demandID, bool &refresh, QWidget *parent)
{
    refresh = false;
    const KReadAhead reading;
    GetDBSetting()->RequireOpenDB();
    CDlgAddAutomobilDemand dialog(demandID, EditorMode::Edit, parent);
    if (!dialog.load())
        return false;
    const bool confirmed = dialog.exec() == QDialog::Accepted;
    refresh = dialog.refreshNeeded();
    return confirmed;
}

void CDlgAddAutomobilDemand::ShowDemand(int demandID, bool &refresh, QWidget *parent)
{
    refresh = false;
    if (demandID < 1)
        return;
    CDlgAddAutomobilDemand dialog(demandID, EditorMode::Show, parent);
    if (!dialog.load())
        return;
    dialog.exec();
    refresh = dialog.refreshNeeded();
}

CDlgAddAutomobilDemand::CDlgAddAutomobilDemand(int demandID, EditorMode mode, QWidget *parent)
    : CDlgRecordEditor(demandID, mode, parent)
{
    SetSettingName(u"AutomobilDemands\\Editor"_s);
    setWindowTitle(titleOf(mode));
}

CDlgAddAutomobilDemand::~CDlgAddAutomobilDemand() = default;

bool CDlgAddAutomobilDemand::load()
{
    CTblAutomobilDemands demand;
    if (!loadRecord(demand))
        return false;
    m_base = new CDlgAddAutomobilDemandBase(mode(), tabs());
    addPage(m_base, m_base->title());
    addFilesPage(CTblFileDocs::General, CTblAutomobilDemands::recordKind, u"پرونده های عمومی"_s);
    addFilesPage(CTblFileDocs::Personal, CTblAutomobilDemands::recordKind, u"پرونده های شخصی"_s);
    tabs()->setCurrentIndex(0);
    if (isShowMode())
        leaveOnlyWayBack();
    m_base->expectFill(demand);
    m_base->fill(demand);
    showState(demand.m_iStatus, demand.m_iArchiveUserID);
    remember(demand, pages());
    return true;
}

bool CDlgAddAutomobilDemand::validatePages()
{
    return m_base->validate();
}

QList<EditorPage<CTblAutomobilDemands> *> CDlgAddAutomobilDemand::pages() const
{
    return {m_base};
}

void CDlgAddAutomobilDemand::save()
{
    saveRecord(pages());
}

int CDlgAddAutomobilDemand::saveAsNew()
{
    return addRecord(pages());
}

QString CDlgAddAutomobilDemand::recordName() const
{
    return u"تقاضا"_s;
}

QString CDlgAddAutomobilDemand::rightsForm() const
{
    return u"AutomobilDemands"_s;
}

bool CDlgAddAutomobilDemand::takeOutOfArchive()
{
    if (!KSecurity::IsGranted(u"AutomobilDemandArchive"_s, KSecurity::Access)) {
        g_pDlgWarning->Show(u"شما اجازه تغییر دادن ندارید."_s, this);
        return false;
    }
    RecordArchiving::takeOut<CTblAutomobilDemands>(key());
    g_pDlgMessage->Show(u"این نامه از حالت بایگانی خارج شد."_s, this);
    return true;
}
