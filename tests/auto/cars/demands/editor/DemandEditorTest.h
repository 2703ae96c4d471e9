// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/editor/ArchiveLine.h"
#include "auto/cars/demands/editor/CDlgAddAutomobilDemand.h"
#include "auto/cars/demands/editor/CDlgAddAutomobilDemandBase.h"
#include "auto/cars/demands/editor/DemandReminder.h"
#include "auto/cars/fields/PersonGroup.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/attachments/CDlgFileDocs.h"
#include "suite/accounting/office/CDlgMultiItems.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/CTblMultiItems.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/reminders/CDlgAddAlarm.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KTabPageButtons.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/office/TestOffice.h"
#include "tests/auto/editor/OnGrid.h"
#include "tests/support/NamedWidget.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

// A demand whose editor is open.
class DemandEditorTest : public QObject
{
protected:
    using Demand = CTblAutomobilDemands;
    using Dialog = CDlgAddAutomobilDemand;

    static KEdit *edit(const Dialog &dialog, const char *column)
    {
        return dialog.basePage()->form()->edit(QString::fromLatin1(column));
    }

    void makeOffice() { m_office = std::make_unique<TestOffice>(); }
    void dropOffice() { m_office.reset(); }

    void begin()
    {
        m_office->clear();
        m_person = m_office->addPerson(u"سارا"_s, u"کریمی"_s, [](CTblPersons &person) {
            person.m_sFatherName = u"علی"_s;
            person.m_sTel = u"02188776655"_s;
            person.m_sMobile = u"09121234567"_s;
        });
        m_brand = m_office->addBrand(u"پژو"_s);
        m_white = CTblMultiItems::addValue(CTblItems::typeColor, u"سفید"_s);
        m_black = CTblMultiItems::addValue(CTblItems::typeColor, u"سیاه"_s);
        m_abs = CTblMultiItems::addValue(CTblItems::typeFeature, u"ترمز ABS"_s);
        m_roof = CTblMultiItems::addValue(CTblItems::typeFeature, u"سقف باز شو"_s);
    }

    std::unique_ptr<TestOffice> m_office;
    int m_person = 0;
    int m_brand = 0;
    int m_white = 0;
    int m_black = 0;
    int m_abs = 0;
    int m_roof = 0;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    QString count(const char *table)
    {
        return value(u"SELECT COUNT(*) FROM "_s + QString::fromLatin1(table));
    }

    int addDemand(const std::function<void(Demand &)> &set = {})
    {
        return m_office->addDemand([&](Demand &demand) {
            demand.m_dateCreate = QDateTime(QDate(2026, 5, 1), QTime(9, 0), Qt::UTC);
            demand.m_iPersonID = m_person;
            if (set)
                set(demand);
        });
    }

    static std::unique_ptr<Dialog> opened(int key, EditorMode mode)
    {
        auto dialog = std::make_unique<Dialog>(key, mode);
        if (!dialog->load())
            return nullptr;
        dialog->show();
        return dialog;
    }

    static Demand &load(Demand &demand, int key)
    {
        if (!demand.IsRecordExist(u"iID"_s, key))
            qFatal("the demand is gone");
        return demand;
    }

    // Confirms the reminder's window as it comes up.
    static void confirmReminder()
    {
        TestOffice::whenModal("CDlgAddAlarm", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
    }
    static void cancelReminder()
    {
        TestOffice::whenModal("CDlgAddAlarm", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
    }

    void pick(const Dialog &dialog, const QString &button, const QString &title, const QStringList &names, bool confirm = true)
    {
        TestOffice::whenModal("CDlgMultiItems", [=](QWidget *window) {
            QCOMPARE(window->windowTitle(), title);
            auto *picker = static_cast<CDlgMultiItems *>(window);
            picker->setSelectedNames(names);
            confirm ? picker->accept() : picker->reject();
        });
        named<QPushButton>(dialog, button)->click();
    }
};
