// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/catalog/tariffs/CDlgAddAutomobilTariff.h"
#include "auto/catalog/tariffs/CDlgAutomobilTariffs.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/reports/KWndReportGen.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/ObservedStatements.h"
#include "tests/office/TestOffice.h"
#include "tests/support/NamedWidget.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

// A few tariffs, and the window that lists them.
class TariffListTest : public QObject
{
protected:
    static inline const QString rightsForm = u"AutomobilTariffs"_s;
    static inline const QString section = u"AutomobilTariff"_s;
    static inline const QString newCaption = u"جديد"_s;
    static inline const QString editCaption = u"ويرايش"_s;
    static inline const QString deleteCaption = u"حذف"_s;

    static QString headerText(const CDlgAutomobilTariffs &page, int column)
    {
        return page.list()->model()->headerData(column, Qt::Horizontal).toString();
    }

    static QString headerText(const CDlgAutomobilTariffs &page, QStringView column)
    {
        return headerText(page, page.list()->columnOf(column));
    }

    static QStringList titles(const CDlgAutomobilTariffs &page)
    {
        QStringList texts;
        for (int row = 0; row < page.list()->count(); ++row)
            texts << page.list()->cellText(row, u"title");
        return texts;
    }

    static KForm *formOf(QWidget *editor)
    {
        return editor->findChild<KForm *>();
    }

    // Types a name and an amount into the editor that comes up, and confirms it.
    static void whenEditor(const QString &title, const QString &amount)
    {
        TestOffice::whenModal("CDlgAddAutomobilTariff", [title, amount](QWidget *editor) {
            formOf(editor)->edit(u"sTitle"_s)->setText(title);
            formOf(editor)->edit(u"dAmount"_s)->setText(amount);
            static_cast<CDlgAddAutomobilTariff *>(editor)->accept();
        });
    }

    void makeOffice() { m_office = std::make_unique<TestOffice>(); }
    void dropOffice() { m_office.reset(); }
    void begin()
    {
        m_office->clear();
        m_office->database().run(u"DELETE FROM AutomobilTariffs"_s);
    }

    std::unique_ptr<TestOffice> m_office;

    QString value(const QString &statement) { return m_office->database().value(statement); }

    int addTariff(const QString &title, double amount = 0, int status = 0, const QString &description = {})
    {
        CTblAutomobilTariffs tariff;
        tariff.Open(false, false, true);
        tariff.AddNew();
        tariff.m_sTitle = title;
        tariff.m_dAmount = amount;
        tariff.m_iStatus = status;
        tariff.m_sDesc = description;
        tariff.Update(true);
        return static_cast<int>(tariff.GetLastInsertedID());
    }
};
