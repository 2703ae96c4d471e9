// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/desk/MainWindow.h"

#include "host/keeping/BackupKeeper.h"
#include "host/desk/BackupBand.h"
#include "host/desk/BackupSign.h"
#include "host/frame/AutoModule.h"
#include "host/frame/HostLook.h"
#include "host/start/DatabaseUpgrade.h"
#include "host/desk/KeyList.h"
#include "host/desk/ReminderBadge.h"
#include "host/today/StartButton.h"
#include "host/desk/TopBar.h"
#include "host/desk/WorkArea.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/crm/reminders/CDlgAlarms.h"
#include "suite/utility/frame/ActionHindrance.h"
#include "suite/utility/frame/KDialogTabPage.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/ElidedLabel.h"
#include "tests/host/HostTestOffice.h"
#include "tests/suite/crm/reminders/Alarms.h"
#include "tests/support/Hand.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

// The main window of an office, with the module.
class MainWindowTest : public QObject
{
protected:
    void loadModule()
    {
        QVERIFY2(m_module.load(u"" TZ_MODULE_DIR ""_s), qPrintable(m_module.errorText()));
    }

    void unloadModule() { m_module.unload(); }

    void begin()
    {
        m_office.fresh();
        DatabaseUpgrade upgrade(m_folder.path(), [](const QString &) {});
        upgrade.upgradeSuite();
        QVERIFY(upgrade.upgradeModule(*m_module.entry()));
    }

    static ReminderBadge *badge(const MainWindow &window) { return window.findChild<ReminderBadge *>(); }

    static QAction *action(const MainWindow &window, const QString &text)
    {
        for (QAction *candidate : window.findChildren<QAction *>())
            if (candidate->iconText() == text && !candidate->menu())
                return candidate;
        return nullptr;
    }

    static QStringList statusTexts(const MainWindow &window)
    {
        QStringList texts;
        for (const QLabel *label : window.statusBar()->findChildren<QLabel *>())
            if (!label->isHidden())
                texts.append(label->text());
        return texts;
    }

    // Those that are shown, in the order of the row.
    static QList<StartButton *> launchers(const MainWindow &window)
    {
        QList<StartButton *> shown;
        for (StartButton *button : window.findChildren<StartButton *>()) {
            if (button->isVisible())
                shown.append(button);
        }
        std::sort(shown.begin(), shown.end(), [](const StartButton *one, const StartButton *other) { return one->x() > other->x(); });
        return shown;
    }

    static void showAt(MainWindow &window, int width)
    {
        // As in the program.
        window.setLayoutDirection(Qt::RightToLeft);
        window.setWindowState(Qt::WindowNoState);
        window.resize(width, 700);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }

    HostTestOffice m_office;
    AutoModule m_module;
    QTemporaryDir m_folder;
};
