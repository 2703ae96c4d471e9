// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/editor/CDlgAddAutomobilContract.h"
#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/reports/CTblReportLayouts.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/accounting/reports/KWndReportGen.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/office/TestOffice.h"
#include "tests/support/Day.h"
#include "tests/support/StoredLayout.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

// Contracts, and the list of them.
class ContractListTest : public QObject
{
protected:
    using Contract = CTblAutomobilContracts;

    static inline const QString section = u"AutomobilContracts"_s;
    static inline const QString rightsForm = u"AutomobilContracts"_s;
    static inline const QString archiveForm = u"AutomobilContractArchive"_s;

    static QStringList explanations(const CDlgAutomobilContracts &page)
    {
        QStringList texts;
        for (int row = 0; row < page.list()->count(); ++row)
            texts << page.list()->cellText(row, u"explanation");
        return texts;
    }

    static QString headerText(const CDlgAutomobilContracts &page, int column)
    {
        return page.list()->model()->headerData(column, Qt::Horizontal).toString();
    }

    static QString headerText(const CDlgAutomobilContracts &page, QStringView column)
    {
        return headerText(page, page.list()->columnOf(column));
    }

    static inline const QStringList rowCommands = {u"edit"_s, u"delete"_s, u"show"_s, u"archive"_s, u"printContract"_s, u"settleSeller"_s, u"settleBuyer"_s};

    void makeOffice() { m_office = std::make_unique<TestOffice>(); }
    void dropOffice() { m_office.reset(); }
    void begin() { m_office->clear(); }

    std::unique_ptr<TestOffice> m_office;

    int addNamed(const QString &explanation, const std::function<void(Contract &)> &set = {})
    {
        return m_office->addContract([&](Contract &contract) {
            contract.m_sExplain = explanation;
            if (set)
                set(contract);
        });
    }
};
