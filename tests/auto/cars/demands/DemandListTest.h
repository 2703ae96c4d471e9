// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/demands/CDlgAutomobilDemands.h"

#include "auto/cars/demands/editor/CDlgAddAutomobilDemand.h"
#include "auto/cars/demands/editor/CDlgAddAutomobilDemandBase.h"
#include "auto/cars/matching/CDlgMatches.h"
#include "auto/cars/fields/PersonGroup.h"
#include "auto/settings/ContractSettings.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/CTblMultiItems.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/Day.h"
#include "tests/support/ObservedStatements.h"
#include "tests/office/TestOffice.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

// Demands of one person, and the list of them.
class DemandListTest : public QObject
{
protected:
    using Demand = CTblAutomobilDemands;
    using Page = CDlgAutomobilDemands;

    static inline const QString section = u"AutomobilDemands"_s;
    static inline const QString rightsForm = u"AutomobilDemands"_s;
    static inline const QString archiveForm = u"AutomobilDemandArchive"_s;
    static inline const QStringList changing = {u"new"_s, u"edit"_s, u"show"_s, u"delete"_s, u"archive"_s};

    static QString headerText(const Page &page, int column)
    {
        return page.list()->model()->headerData(column, Qt::Horizontal).toString();
    }

    static QString headerText(const Page &page, QStringView column)
    {
        return headerText(page, page.list()->columnOf(column));
    }

    static QStringList column(const Page &page, QStringView column)
    {
        QStringList texts;
        for (int row = 0; row < page.list()->count(); ++row)
            texts << page.list()->cellText(row, column);
        return texts;
    }

    // The codes of the listed demands.
    static QStringList codes(const Page &page)
    {
        return column(page, u"code");
    }

    // Takes the pages as the host's tabbed work area does.
    class TabHost : public KTabHost
    {
    public:
        TabHost() { GetDBSetting()->SetTabHost(this); }
        ~TabHost() override
        {
            GetDBSetting()->SetTabHost(nullptr);
            qDeleteAll(m_pages);
        }
        void addPage(KDialogTabPage *page) override { m_pages.append(page); }
        QList<KDialogTabPage *> pages() const { return m_pages; }

    private:
        QList<KDialogTabPage *> m_pages;
    };

    void makeOffice() { m_office = std::make_unique<TestOffice>(); }
    void dropOffice() { m_office.reset(); }
    void begin()
    {
        m_office->clear();
        m_person = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        m_brand = m_office->addBrand(u"پژو"_s);
    }

    std::unique_ptr<TestOffice> m_office;
    int m_person = 0;
    int m_brand = 0;

    QString value(const QString &statement) { return m_office->database().value(statement); }

    int addDemand(const std::function<void(Demand &)> &set = {})
    {
        return m_office->addDemand([&](Demand &demand) {
            demand.m_dateCreate = QDateTime(QDate(2026, 5, 1), QTime(9, 0), Qt::UTC);
            demand.m_iPersonID = m_person;
            if (set)
                set(demand);
        });
    }

    static void archiveDemandsAfter(int days)
    {
        ContractSettings settings;
        settings.archiveDemands = true;
        settings.demandDays = days;
        settings.save();
    }

    int addOldDemand()
    {
        return addDemand([](Demand &demand) { demand.m_dateCreate = day(2019, 3, 21); });
    }
};
