// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/look/Showing.h"

#include "auto/contracts/editor/CDlgAddAutomobilContract.h"
#include "auto/contracts/editor/CDlgAddAutomobilContractBase.h"
#include "auto/reports/season/CDlgAutomobilReportSeasons.h"
#include "host/finding/SearchBox.h"
#include "host/today/StartPage.h"
#include "host/finding/SearchPopup.h"
#include "host/start/SplashWindow.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/reports/ReportProgressWindow.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/frame/CommandMenu.h"
#include "suite/utility/frame/KTabPageButtons.h"
#include "suite/utility/frame/KWaitNotice.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/look/LookOffice.h"
#include "tests/support/Hand.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QTest>
#include <QTimer>

#include <chrono>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int contractTypeCount = 4;

// Each page that the window's tabs lead to, or the window as it is.
void lookAtViews(QWidget &window, const Showing::Look &look, const QString &first = {})
{
    auto *tabs = window.findChild<KTabPageButtons *>();
    if (!tabs || tabs->count() < 2) {
        Showing::settle(window);
        look(window, first);
        return;
    }
    for (int tab = 0; tab < tabs->count(); ++tab) {
        if (!tabs->button(tab)->isEnabled())
            continue;
        tabs->setCurrentIndex(tab);
        Showing::settle(window);
        look(window, first + u"tab"_s + QString::number(tab + 1));
    }
    tabs->setCurrentIndex(0);
}

// Looks at the menu or pop-up that comes up while the caller waits for it.
void lookAtPopup(QWidget &window, const Showing::Look &look)
{
    QTimer::singleShot(0, &window, [look] {
        QWidget *popup = QApplication::activePopupWidget();
        QVERIFY(popup);
        look(*popup, {});
        popup->close();
    });
}

}

namespace Showing {

void settle(QWidget &window)
{
    if (const auto *report = qobject_cast<CDlgAutomobilReportSeasons *>(&window))
        QTRY_VERIFY_WITH_TIMEOUT(!report->isBusy(), 20'000);
    // A text that wraps tells its height only when its width is known, and its page lays itself out once more then.
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

Show modal(const Open &open, const Prepare &prepare)
{
    return [open, prepare](const Look &look) {
        const auto isWaiting = std::make_shared<bool>(true);
        Hand::inNextWindow([look, prepare, waits = std::weak_ptr(isWaiting)](QDialog *dialog) {
            if (waits.expired())
                return;
            QVERIFY(QTest::qWaitForWindowExposed(dialog));
            if (prepare)
                prepare(*dialog);
            lookAtViews(*dialog, look);
        });
        open();
    };
}

Show startPage(LookOffice &office)
{
    return [&office](const Look &look) {
        office.clear();
        auto *page = office.window().findChild<StartPage *>();
        QTRY_VERIFY(!page->isReading());
        page->refresh();
        QTRY_VERIFY(!page->isReading());
        settle(office.window());
        look(office.window(), {});
    };
}

Show search(LookOffice &office, const QString &typed, int steps)
{
    return [&office, typed, steps](const Look &look) {
        office.clear();
        auto *box = office.window().findChild<SearchBox *>();
        box->begin();
        Hand::typeInto(*box->edit(), typed);
        // Each letter is asked for; the hits of an earlier one may be other records.
        QTRY_COMPARE_WITH_TIMEOUT(box->shown(), typed, 20'000);
        for (int step = 0; step < steps; ++step)
            box->popup()->step(1);
        if (const SearchHit *hit = box->popup()->chosen(); hit && hit->kind == SearchKinds::Cars)
            QTRY_VERIFY_WITH_TIMEOUT(office.window().findChild<QLabel *>(u"searchFacts"_s)->isVisible(), 20'000);
        settle(office.window());
        look(office.window(), {});
        box->close();
    };
}

Show page(LookOffice &office, const QString &entry, const std::function<void(KListPage &)> &prepare)
{
    return [&office, entry, prepare](const Look &look) {
        office.clear();
        KListPage *list = office.list(entry);
        if (prepare)
            prepare(*list);
        settle(office.window());
        look(office.window(), {});
        office.clear();
    };
}

Show command(LookOffice &office, const QString &entry, const QString &id, const Prepare &prepare)
{
    return modal([&office, entry, id] { QVERIFY(office.list(entry)->runCommand(id)); }, prepare);
}

Show menuEntry(LookOffice &office, const QString &entry)
{
    return modal([&office, entry] { office.entry(entry)->trigger(); });
}

Show contractTypes(LookOffice &office, const QString &entry)
{
    return [&office, entry](const Look &look) {
        Hand::inNextWindow([look](QDialog *dialog) {
            const auto *editor = qobject_cast<CDlgAddAutomobilContract *>(dialog);
            QVERIFY(editor);
            QComboBox *type = editor->basePage()->form()->comboBox(u"iContractType"_s);
            QCOMPARE(type->count(), contractTypeCount);
            for (int index = 0; index < contractTypeCount; ++index) {
                editor->tabs()->setCurrentIndex(0);
                type->setCurrentIndex(index);
                lookAtViews(*dialog, look, u"type%1-"_s.arg(index + 1));
            }
        });
        QVERIFY(office.list(entry)->runCommand(u"new"));
    };
}

Show messageBox(KMessageDialog &dialog, const Open &open)
{
    return [&dialog, open](const Look &look) {
        dialog.answerAll(false);
        modal(open)(look);
        dialog.takeShown();
        dialog.answerAll(true);
    };
}

Show menus(LookOffice &office)
{
    return [&office](const Look &look) {
        int number = 0;
        for (CommandMenu *menu : office.window().findChildren<CommandMenu *>()) {
            menu->popup(office.window().mapToGlobal(QPoint(200, 60)));
            QVERIFY(QTest::qWaitForWindowExposed(menu));
            look(*menu, QString::number(++number));
            menu->close();
        }
        QVERIFY(number > 0);
    };
}

Show month(LookOffice &office, const QString &entry, const QString &id, const QString &label)
{
    return [=, &office](const Look &look) {
        Hand::inNextWindow([look, label](QDialog *dialog) {
            auto *date = Hand::named<KDateEdit>(dialog, label);
            QVERIFY(date);
            date->setDate(ConvertToMiladi(1405, 8, 29));
            date->showPopup();
            QWidget *popup = QApplication::activePopupWidget();
            QVERIFY(popup);
            look(*popup, {});
            popup->close();
        });
        QVERIFY(office.list(entry)->runCommand(id));
    };
}

Show commandMenu(LookOffice &office, const QString &entry, const QString &id)
{
    return [=, &office](const Look &look) {
        KListPage *list = office.list(entry);
        lookAtPopup(office.window(), look);
        QVERIFY(list->runCommand(id));
    };
}

Show splash(bool mayGiveUp)
{
    return [mayGiveUp](const Look &look) {
        SplashWindow window;
        if (mayGiveUp)
            QVERIFY(window.showWaitingOrGiveUp(u"برنامه دیگری پایگاه داده را ارتقا می‌دهد"_s));
        else
            window.showWaiting(u"راه‌اندازی پایگاه داده"_s);
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        look(window, {});
    };
}

Show waitNotice()
{
    return [](const Look &look) {
        KWaitNotice notice;
        QVERIFY(notice.goOn(std::chrono::seconds(2)));
        QTRY_VERIFY(QApplication::activeModalWidget());
        look(*QApplication::activeModalWidget(), {});
        notice.ended();
    };
}

Show progress()
{
    return [](const Look &look) {
        ReportProgressWindow window(u"ساختن گزارش..."_s, nullptr, 0);
        QVERIFY(window.callback()(40, 100));
        QTRY_VERIFY(QApplication::activeModalWidget());
        look(*QApplication::activeModalWidget(), {});
    };
}

}
