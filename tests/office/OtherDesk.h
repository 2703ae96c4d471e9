// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/CDlgRowConflict.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "tests/office/TestOffice.h"

#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

// The second of two desks at one office, where the user "sima" works with all rights on a form.
class OtherDesk
{
public:
    OtherDesk(TestOffice &office, const QString &form)
        : m_office(office)
        , m_form(form)
    {
        m_office.database().run(u"DELETE FROM Changes"_s);
        CDlgRowConflict::takeShown();
    }

    // Does the work there; then the administrator is back at the first desk.
    void does(const std::function<void()> &work) const
    {
        m_office.logInAs(u"sima"_s, m_form, KSecurity::allRights);
        work();
        m_office.logInAsAdmin();
    }

    // Opens the editor there, enters what is passed, and saves it.
    template <class Open, class Enter>
    void saves(const Open &open, const Enter &enter) const
    {
        does([&] {
            auto there = open();
            enter(*there);
            there->accept();
            QVERIFY2(!there->isVisible(), qPrintable(g_pDlgWarning->takeShown().join(u'|')));
        });
        g_pDlgMessage->takeShown();
    }

    // The columns of the table's only row, joined by strokes.
    QString stored(const char *table, const char *columns) const
    {
        return m_office.database().value(u"SELECT CONCAT_WS('/',IFNULL(%1,'')) FROM %2"_s.arg(
            QString::fromLatin1(columns).replace(u","_s, u",''),IFNULL("_s), QLatin1String(table)));
    }

    // What the user was told begins with who did it, and says what.
    static void compareTold(const QStringList &told, const QString &what)
    {
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.constFirst().startsWith(u"کاربر «sima» در "_s) && told.constFirst().contains(what), qPrintable(told.constFirst()));
    }

private:
    TestOffice &m_office;
    QString m_form;
};
