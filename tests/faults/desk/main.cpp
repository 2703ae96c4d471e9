// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/bin/CarRecordParts.h"
#include "auto/subjects/AutoSearch.h"
#include "auto/subjects/AutoSubjects.h"
#include "auto/contracts/receipts/ContractReceiptOwner.h"
#include "host/frame/HostOptions.h"
#include "host/server/DataFolder.h"
#include "host/start/OfficeServer.h"
#include "suite/treasury/receiving/CDlgCashFromPerson.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/history/OfficeSubjects.h"
#include "suite/accounting/search/OfficeSearch.h"
#include "suite/crm/subjects/CrmSearch.h"
#include "suite/crm/subjects/CrmSubjects.h"
#include "suite/treasury/subjects/TreasurySearch.h"
#include "suite/treasury/subjects/TreasurySubjects.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/connection/KConnection.h"
#include "suite/utility/frame/KWaitNotice.h"
#include "suite/utility/values/KSettings.h"
#include "tests/faults/desk/Desk.h"
#include "tests/faults/desk/DeskCommands.h"

#include <cstdio>

// Takes the options of the program itself and connects as it does; the schema must be there.
int main(int argc, char **argv)
{
    KApplication application(argc, argv);
    KApplication::setQuitOnLastWindowClosed(false);
    const HostOptions options = HostOptions::parse(KApplication::arguments().mid(1), false);
    if (!options.error.isEmpty() || !options.connect || options.dataDir.isEmpty()) {
        std::fprintf(stderr, "tzdesk: --connect and --data-dir are needed; %s\n", qUtf8Printable(options.error));
        return 2;
    }
    const DataFolder folder(options.dataDir);
    folder.create();
    setSettingsFile(folder.settingsFile());
    GetDBSetting()->SetReceiptWindow(&CDlgCashFromPerson::receive);
    ContractReceiptOwner::enter();
    CarRecordParts::enter();
    AutoSubjects::enter();
    OfficeSubjects::enter();
    TreasurySubjects::enter();
    CrmSubjects::enter();
    OfficeSearch::enter();
    CrmSearch::enter();
    TreasurySearch::enter();
    AutoSearch::enter();
    const KWaitNotice waits;
    g_pDlgWarning->answerAll(true);
    if (!OfficeServer::connect(options, nullptr)) {
        std::fprintf(stderr, "tzdesk: %s\n", qUtf8Printable(g_pDlgWarning->takeShown().join(QLatin1Char(' '))));
        return 1;
    }
    g_pDlgWarning->answerAll(false);
    return Desk(DeskCommands::all()).run();
}
