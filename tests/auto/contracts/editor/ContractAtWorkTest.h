// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/attachments/CDlgCustomFields.h"
#include "suite/accounting/attachments/CDlgFileDocs.h"
#include "suite/accounting/office/CDlgMultiItems.h"
#include "suite/accounting/attachments/CTblCustomFields.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/CTblMultiItems.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/frame/KTabPageButtons.h"
#include "tests/auto/contracts/editor/ContractEditorTest.h"
#include "tests/support/NamedWidget.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

// A contract of two persons whose editor is open.
class ContractAtWorkTest : public ContractEditorTest
{
protected:
    static int tabOf(const CDlgAddAutomobilContract &dialog, const QString &title)
    {
        for (int i = 0; i < dialog.tabs()->count(); ++i) {
            if (dialog.tabs()->button(i)->text() == title)
                return i;
        }
        return -1;
    }

    void makeOffice() { m_office = std::make_unique<TestOffice>(); }
    void dropOffice() { m_office.reset(); }

    void begin()
    {
        ContractEditorTest::begin([](CTblPersons &person) { person.m_sMobile = u"0912"_s; });
        m_office->database().run(u"DELETE FROM Items"_s);
        m_office->database().run(u"DELETE FROM CustomFields"_s);
    }

    // Ticks these notes in the picker, which has them to offer.
    void pickNotes(Dialog &dialog, const QStringList &notes)
    {
        for (const QString &note : notes)
            CTblMultiItems::addValue(CTblItems::typeClause, note);
        TestOffice::whenModal("CDlgMultiItems", [notes](QWidget *window) {
            QCOMPARE(window->windowTitle(), u"تبصره"_s);
            static_cast<CDlgMultiItems *>(window)->setSelectedNames(notes);
            static_cast<QDialog *>(window)->accept();
        });
        named<QPushButton>(dialog, u"تبصره ها : ..."_s)->click();
    }

    // The entry of the amount is over, and the line has the focus again.
    static void endAmount(Dialog &dialog)
    {
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        edit(dialog, "dCommission")->setFocus();
        edit(dialog, "dAmount")->setFocus();
    }
};
