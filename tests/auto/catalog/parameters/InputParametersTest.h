// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/catalog/parameters/CDlgAddInputParameter.h"
#include "auto/catalog/parameters/CDlgInputParameters.h"
#include "auto/catalog/parameters/InputParameterValues.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/values/KSettings.h"
#include "tests/support/ObservedStatements.h"
#include "tests/office/TestOffice.h"
#include "tests/support/AddItem.h"
#include "tests/support/TwoDesks.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

using namespace Qt::StringLiterals;

// Values of several kinds, and the window that lists them.
class InputParametersTest : public QObject
{
protected:
    static inline const QString rightsForm = u"InputParameters"_s;
    static inline const QString newCaption = u"جديد"_s;
    static inline const QString editCaption = u"ويرايش"_s;
    static inline const QString deleteCaption = u"حذف"_s;
    static inline const QString duplicate = u"این نام قبلا ثبت شده است."_s;

    static QStringList names(const CDlgInputParameters &page)
    {
        QStringList texts;
        for (int row = 0; row < page.list()->count(); ++row)
            texts << page.list()->cellText(row, u"name");
        return texts;
    }

    static QPushButton *pushButton(const QWidget &window, const QString &caption)
    {
        for (QPushButton *button : window.findChildren<QPushButton *>()) {
            if (button->text() == caption)
                return button;
        }
        return nullptr;
    }

    static KEdit *nameEdit(const QWidget &editor)
    {
        return editor.findChild<KEdit *>();
    }

    // Types the name into the editor that comes up, and confirms it; one that refuses is cancelled.
    static void whenEditor(const QString &name)
    {
        TestOffice::whenModal("CDlgAddInputParameter", [name](QWidget *window) {
            auto *editor = static_cast<CDlgAddInputParameter *>(window);
            nameEdit(*editor)->setText(name);
            editor->accept();
            if (editor->isVisible())
                editor->reject();
        });
    }

    void makeOffice() { m_office = std::make_unique<TestOffice>(); }
    void dropOffice() { m_office.reset(); }
    void begin()
    {
        m_office->clear();
        m_office->database().run(u"DELETE FROM Items"_s);
    }

    std::unique_ptr<TestOffice> m_office;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    QString nameOf(int key) { return value(u"SELECT sName FROM Items WHERE iID=%1"_s.arg(key)); }
    QString count() { return value(u"SELECT COUNT(*) FROM Items"_s); }

    static int add(int option, const QString &name) { return addItem(InputParameters::itemType(option), name); }
};
