// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformationJoins.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/Day.h"
#include "tests/support/ObservedStatements.h"
#include "tests/office/TestOffice.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

// Cars, and the list of them.
class CarListTest : public QObject
{
protected:
    using Car = CTblAutomobilInformations;
    using Page = CDlgAutomobilInformations;

    static inline const QString section = u"AutomobilInformations"_s;
    static inline const QString rightsForm = u"AutomobilInformations"_s;
    static inline const QString archiveForm = u"AutomobilInformationArchive"_s;
    static constexpr int columnCount = 17;
    static constexpr QStringView chassisIsInPlate = u"plate"; // the hidden column tells the cars of a test apart

    static QStringList cells(const Page &page, QStringView column)
    {
        QStringList texts;
        for (int row = 0; row < page.list()->count(); ++row)
            texts << page.list()->cellText(row, column);
        return texts;
    }

    static QStringList plates(const Page &page)
    {
        return cells(page, chassisIsInPlate);
    }

    static QString headerText(const Page &page, int column)
    {
        return page.list()->model()->headerData(column, Qt::Horizontal).toString();
    }

    static QString headerText(const Page &page, QStringView column)
    {
        return headerText(page, page.list()->columnOf(column));
    }

    static QStringList comboTexts(const QComboBox *combo)
    {
        QStringList texts;
        for (int i = 0; i < combo->count(); ++i)
            texts << combo->itemText(i);
        return texts;
    }

    class KeptPages : public KTabHost
    {
    public:
        void addPage(KDialogTabPage *page) override { pages.emplace_back(page); }
        std::vector<std::unique_ptr<KDialogTabPage>> pages;
    };

    static inline const QStringList rowCommands = {u"edit"_s, u"delete"_s, u"archive"_s, u"show"_s};
    static inline const QStringList changeCommands = rowCommands + QStringList{u"new"_s};

    void makeOffice() { m_office = std::make_unique<TestOffice>(); }
    void dropOffice() { m_office.reset(); }
    void begin() { m_office->clear(); }

    std::unique_ptr<TestOffice> m_office;

    QString value(const QString &statement) { return m_office->database().value(statement); }

    int addNamed(const QString &plate, const std::function<void(Car &)> &set = {})
    {
        return m_office->addCar([&](Car &car) {
            car.m_sNumOfPlates = plate;
            if (set)
                set(car);
        });
    }
};
