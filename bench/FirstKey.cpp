// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// The first key after a login: from a letter that is typed into the search box when the main window has just been painted to its hits. It is the first
// only once in a process, so each time is that of a process of its own, on one office:
//
//     FirstKey --once SETTINGS       logs in, types the key, answers with milliseconds

#include "bench/BenchOffice.h"
#include "bench/SampleReporter.h"
#include "bench/Trial.h"
#include "bench/WorkProcess.h"

#include "auto/CAutoDBSetting.h"
#include "auto/subjects/AutoSearch.h"
#include "auto/subjects/AutoWindows.h"
#include "host/books/BookWindows.h"
#include "host/desk/MainWindow.h"
#include "host/finding/SearchBox.h"
#include "host/finding/SearchPopup.h"
#include "host/frame/HostLook.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/search/OfficeSearch.h"
#include "suite/accounting/search/SearchIndex.h"
#include "suite/crm/subjects/CrmSearch.h"
#include "suite/crm/subjects/CrmWindows.h"
#include "suite/crm/subjects/CrmToday.h"
#include "suite/treasury/subjects/TreasurySearch.h"
#include "suite/treasury/subjects/TreasuryWindows.h"
#include "suite/treasury/subjects/TreasuryToday.h"
#include "suite/utility/values/KSettings.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QSettings>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void enterKinds()
{
    OfficeSearch::enter();
    CrmSearch::enter();
    TreasurySearch::enter();
    AutoSearch::enter();
    CrmWindows::enter();
    CrmToday::enter();
    TreasuryWindows::enter();
    TreasuryToday::enter();
    BookWindows::enter();
    AutoWindows::enter();
}

// Ends the event loop's wait once the window has been painted.
class PaintWatch : public QObject
{
public:
    bool isPainted = false;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        isPainted = isPainted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }
};

double firstKey(MainWindow &window)
{
    auto *box = window.findChild<SearchBox *>();
    PaintWatch watch;
    window.installEventFilter(&watch);
    window.show();
    while (!watch.isPainted)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    bool isAnswered = false;
    QObject::connect(box, &SearchBox::answered, box, [&] {
        box->popup()->repaint();
        isAnswered = true;
    });
    QElapsedTimer clock;
    clock.start();
    box->begin();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, u"ع"_s);
    QCoreApplication::sendEvent(box->edit(), &press);
    while (!isAnswered)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return double(clock.nsecsElapsed()) / 1e6;
}

int once(const QString &settingsFile)
{
    const QSettings written(settingsFile, QSettings::IniFormat);
    KConnectionSettings server;
    server.socketPath = written.value(u"socket"_s).toString();
    server.user = written.value(u"user"_s).toString();
    server.password = written.value(u"password"_s).toString();
    server.database = written.value(u"database"_s).toString();
    KConnection::configure(0, server);
    const QTemporaryDir folder;
    setSettingsFile(folder.filePath(u"user.ini"_s));
    enterKinds();
    CTblUsers user;
    user.SetLimit(1);
    user.Open(true, true, true);
    GetDBSetting()->Login(user.m_iID);
    MainWindow window(DataFolder(folder.path()), GetAutoDBSetting());
    window.resize(1366, 768);
    std::printf("ready\n%.3f\n", firstKey(window));
    std::fflush(stdout);
    GetDBSetting()->Logout();
    return 0;
}

}

int main(int argc, char **argv)
{
    KApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (const qsizetype at = arguments.indexOf(u"--once"_s); at > 0) {
        HostLook::apply(application);
        return once(arguments.value(at + 1));
    }

    const BenchOffice office(Trial::size(1'000));
    SearchIndex::build(true);
    const QTemporaryDir folder; // of this user only
    const QString settingsFile = folder.filePath(u"server.ini"_s);
    const KConnectionSettings server = KConnection::settings(0);
    QSettings written(settingsFile, QSettings::IniFormat);
    written.setValue(u"socket"_s, server.socketPath);
    written.setValue(u"user"_s, server.user);
    written.setValue(u"password"_s, server.password);
    written.setValue(u"database"_s, server.database);
    written.sync();

    SampleReporter reporter;
    for (int round = 0; round < Trial::repetitions(9); ++round) {
        WorkProcess program(QCoreApplication::applicationFilePath(), {u"--once"_s, settingsFile});
        const std::optional<QByteArray> answer = program.ask({});
        bool isNumber = false;
        const double taken = answer.value_or(QByteArray()).toDouble(&isNumber);
        if (!isNumber)
            return 1;
        std::printf("first key after a login: %.1f ms\n", taken);
        reporter.add("firstKey", taken);
    }
    return reporter.finish() ? 0 : 1;
}
