// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/CAutoDBSetting.h"

#include "auto/bin/CarRecordParts.h"
#include "auto/schema/SchemaUpgrade.h"
#include "auto/cars/demands/CDlgAutomobilDemands.h"
#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/contracts/cars/CarActions.h"
#include "auto/contracts/overdue/CDlgOverdueInstalments.h"
#include "auto/contracts/receipts/ContractReceiptOwner.h"
#include "auto/contracts/receipts/ReceiptLinking.h"
#include "auto/subjects/AutoFirstSteps.h"
#include "auto/subjects/AutoSearch.h"
#include "auto/subjects/AutoSubjects.h"
#include "auto/subjects/AutoWindows.h"
#include "auto/today/AutoToday.h"
#include "suite/db/connection/CMySQLException.h"
#include "auto/messages/AutoMessages.h"
#include "auto/reports/season/CDlgAutomobilReportSeasons.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"

#include <QLoggingCategory>

#include <new>

namespace {

Q_LOGGING_CATEGORY(lcModule, "tzauto.module")

CAutoDBSetting autoDBSetting;

// Without it older receipts stay on account until the next start; the module works all the same.
void linkReceipts()
{
    try {
        ReceiptLinking::run();
    } catch (const CMySQLException &error) {
        qCWarning(lcModule) << "older receipts were not linked:" << error.what();
    }
}

// Passes the page to the host, which then owns it; the page is null when there was no memory for one.
template <class Page>
void openPage()
{
    Page *page = nullptr;
    try {
        page = new Page;
    } catch (const std::bad_alloc &) {
        page = nullptr;
    }
    GetDBSetting()->AddDialogToTabPage_(page, 1, 0);
}

}

CAutoDBSetting::CAutoDBSetting() = default;

CAutoDBSetting::~CAutoDBSetting() = default;

CAutoDBSetting &CAutoDBSetting::operator=(const CAutoDBSetting &)
{
    return *this;
}

int CAutoDBSetting::IsAClosedDB()
{
    return GetDBSetting()->IsClosedDB() ? 1 : 0;
}

int CAutoDBSetting::UpdateDB(int database, double storedVersion, double &reachedVersion, bool alterFlag)
{
    ContractReceiptOwner::enter();
    AutoSubjects::enter();
    AutoWindows::enter();
    AutoToday::enter();
    AutoFirstSteps::enter();
    AutoSearch::enter();
    CarActions::enter();
    CarRecordParts::enter();
    AutoMessages::enter();
    try {
        SchemaUpgrade::run(database, storedVersion, reachedVersion, alterFlag);
        if (database == 0)
            linkReceipts();
        return 1;
    } catch (const CMySQLException &) {
        g_pDlgWarning->Show(QString::asprintf("عملیات ارتقاء پایگاه داده Auto با خطا مواجه شد\nنسخه برنامه : %f\nارتقاء بدون مشکل تا %f.",
                                              storedVersion, reachedVersion));
        return 0;
    }
}

void CAutoDBSetting::ShowAutomobilInformationsDlg()
{
    openPage<CDlgAutomobilInformations>();
}

void CAutoDBSetting::ShowAutomobilContractDlg()
{
    openPage<CDlgAutomobilContracts>();
}

void CAutoDBSetting::ShowAutomobilDemandsDlg()
{
    openPage<CDlgAutomobilDemands>();
}

void CAutoDBSetting::ShowAutomobilReportSeasonsDlg()
{
    CDlgAutomobilReportSeasons report;
    if (report.CheckAccessSecurity(1))
        report.exec();
}

void CAutoDBSetting::Archives() { }

void CAutoDBSetting::ShowAutomobilPaymentsDlg()
{
    openPage<CDlgOverdueInstalments>();
}

CAutoDBSetting *GetAutoDBSetting()
{
    return &autoDBSetting;
}
