// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/HostProgram.h"
#include "host/backup/BackupFiles.h"
#include "host/start/CDlgFirstStart.h"
#include "host/start/CDlgLogin.h"
#include "host/frame/HostLog.h"
#include "host/desk/MainWindow.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/support/NamedWidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

// The program in this process, so that its windows can be driven, on a folder and a server of its own.
class HostProgramTest : public QObject
{
protected:
    static constexpr int longestRunMilliseconds = 120000;

    void begin()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_options = HostOptions();
        m_drivesEarlyLogin = false;
        m_options.dataDir = m_folder->filePath(u"office"_s);
        m_options.moduleDir = u"" TZ_MODULE_DIR ""_s;
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
            dialog->answerAll(true);
    }

    void end()
    {
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
            dialog->answerAll(false);
        QVERIFY(!serverRuns());
        m_folder.reset();
    }

    static QWidget *inputWindow()
    {
        if (QWidget *modal = QApplication::activeModalWidget())
            return modal;
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows)
            if (window->isVisible() && qobject_cast<MainWindow *>(window))
                return window;
        return nullptr;
    }

    // Runs the program and calls step every few milliseconds with the window that takes input, until the program ends.
    int drive(const std::function<void(QWidget *)> &step)
    {
        QElapsedTimer running;
        running.start();
        QTimer timer;
        timer.setInterval(15);
        connect(&timer, &QTimer::timeout, this, [&] {
            QWidget *window = inputWindow();
            if (const auto *login = qobject_cast<CDlgLogin *>(window); login && login->isBeforeDatabase() && !m_drivesEarlyLogin)
                return;
            if (running.elapsed() > longestRunMilliseconds && window)
                window->close();
            else if (window)
                step(window);
        });
        timer.start();
        StartupClock clock;
        HostLog::collect();
        const int result = HostProgram(m_options, clock).run();
        HostLog::stop();
        return result;
    }

    static void fillFirstStart(const CDlgFirstStart &dialog)
    {
        named<KEdit>(dialog, u"نام کاربری :"_s)->setText(u"sara"_s);
        named<KEdit>(dialog, u"کلمه عبور :"_s)->setText(u"gallery7"_s);
        named<KEdit>(dialog, u"تکرار کلمه عبور :"_s)->setText(u"gallery7"_s);
        named<KEdit>(dialog, u"نام نمایشگاه :"_s)->setText(u"نمایشگاه آریا"_s);
    }

    static void logIn(const CDlgLogin &dialog, const QString &user, const QString &password)
    {
        named<KEdit>(dialog, u"نام کاربری :"_s)->setText(user);
        named<KEdit>(dialog, u"کلمه عبور :"_s)->setText(password);
    }

    void makeOffice()
    {
        QCOMPARE(drive([](QWidget *window) {
                     if (auto *first = qobject_cast<CDlgFirstStart *>(window)) {
                         fillFirstStart(*first);
                         first->accept();
                     } else {
                         window->close();
                     }
                 }),
                 0);
    }

    QString logText() const
    {
        QFile file(HostLog::fileName(DataFolder(m_options.dataDir).logsPath()));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    bool serverRuns() const
    {
        return QFile::exists(DataFolder(m_options.dataDir).databasePath() + u"/server.pid"_s);
    }

    // Empties the file of the database, or removes a table's definition.
    void harm(const QString &file) const
    {
        QFile damaged(m_options.dataDir + u"/database/"_s + file);
        QVERIFY(file.endsWith(u"frm"_s) ? damaged.remove() : damaged.resize(0));
    }

    QList<BackupFile> backups() const
    {
        return BackupFiles::in(DataFolder(m_options.dataDir).backupsPath(), u"tzauto"_s);
    }

    // Logs in, works and closes the program.
    int workOnce(const std::function<void(MainWindow *)> &work = {})
    {
        return drive([&](QWidget *window) {
            if (auto *login = qobject_cast<CDlgLogin *>(window)) {
                logIn(*login, u"sara"_s, u"gallery7"_s);
                login->accept();
            } else if (auto *main = qobject_cast<MainWindow *>(window)) {
                if (work)
                    work(main);
                main->close();
            }
        });
    }

    static void addUser(const QString &name)
    {
        CTblUsers::create(name, u"gallery7"_s, {}, false);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    HostOptions m_options;
    // Whether step is also given the login that the database does not answer yet.
    bool m_drivesEarlyLogin = false;
};
