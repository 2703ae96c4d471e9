// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/CAutoDBSetting.h"
#include "auto/contracts/document/ContractSaving.h"
#include "auto/editor/NewRecord.h"
#include "host/demo/DemoData.h"
#include "host/desk/MainWindow.h"
#include "host/desk/WorkArea.h"
#include "host/start/CDlgLogin.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KNextRows.h"
#include "suite/utility/values/KSettings.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/Hand.h"

#include <QAction>
#include <QElapsedTimer>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>

#include <mysql.h>
#include <netinet/in.h>
#include <sys/socket.h>

using namespace Qt::StringLiterals;

// A clerk's day at a demo office behind a line that counts and can be slowed: logs in, opens lists and editors by the menu and the
// commands, saves. What each of it may cost in round trips stands beside it.
class DeskAtWork
{
public:
    struct Cost
    {
        int trips = 0; // of the desk's own connection, one after the other
        int beside = 0; // of threads at the same time, such as what counts a list or reads the first page
        qint64 milliseconds = 0;
    };

    struct Operation
    {
        QString name;
        int most; // trips, also the first time
        std::function<std::optional<Cost>(DeskAtWork &)> run; // none: it could not be done
    };

    explicit DeskAtWork(int contracts)
    {
        CTblUsers::setHashCost(CTblUsers::leastCost());
        prepareModuleTables(m_database);
        DemoData::fill(contracts);
        setSettingsFile(m_folder.filePath(u"settings.ini"_s));
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
            dialog->answerAll(true);
        m_line = std::make_unique<FaultProxy>(m_database.settings());
        // So long that what is sent in one go arrives before the first answer.
        m_line->setDelay(2);
        KConnection::configure(0, m_line->settings());
    }
    ~DeskAtWork()
    {
        m_window.reset();
        KConnection::configure(0, m_database.settings());
    }
    DeskAtWork(const DeskAtWork &) = delete;
    DeskAtWork &operator=(const DeskAtWork &) = delete;

    FaultProxy &line() { return *m_line; }
    // As another desk reads and writes it.
    TestDatabase &database() { return m_database; }
    MainWindow *window() const { return m_window.get(); }

    // Everything that is held to a bound, in the order of a day.
    static QList<Operation> operations()
    {
        constexpr int mostOfList = 6;
        constexpr int mostOfEditor = 4;
        constexpr int mostOfSave = 12;
        constexpr int mostOfLogin = 15;
        constexpr int mostOfRow = 5;
        QList<Operation> all{{u"login to start page"_s, mostOfLogin, [](DeskAtWork &desk) { return desk.logIn(); }}};
        for (const Place &place : places()) {
            all.append({u"list of "_s + place.name, mostOfList, [=](DeskAtWork &desk) { return desk.list(place.entry); }});
            if (place.isLimited)
                all.append({u"list of "_s + place.name + u", not all"_s, mostOfList, [=](DeskAtWork &desk) { return desk.cutList(place.entry); }});
            for (const QString &command : place.editors)
                all.append({place.name + u", "_s + command, mostOfEditor, [=](DeskAtWork &desk) { return desk.editor(place.entry, command); }});
            if (place.isChanged)
                all.append({place.name + u", saved"_s, mostOfSave, [=](DeskAtWork &desk) { return desk.save(place.entry); }});
        }
        // A list in a window of its own.
        all.append({u"list of parameters"_s, mostOfList, [](DeskAtWork &desk) { return desk.editor(u"گالري اتومبيل"_s, u"inputParameters"_s); }});
        all.append({u"contract, saved first"_s, mostOfSave, [](DeskAtWork &desk) { return desk.newContract(); }});
        all.append({u"row person"_s, mostOfRow, [](DeskAtWork &desk) { return desk.newPerson(); }});
        all.append({u"row item"_s, mostOfRow, [](DeskAtWork &desk) { return desk.newItem(); }});
        return all;
    }

private:
    struct Place
    {
        QString name;
        QString entry; // of the menu
        QStringList editors = {};
        bool isChanged = false; // one of its rows is changed and saved
        bool isLimited = true;  // the user says how many rows are read
    };

    static QList<Place> places()
    {
        const QStringList both{u"new"_s, u"edit"_s};
        return {{u"contracts"_s, u"قرارداد"_s, both, true},
                {u"cars"_s, u"گالري اتومبيل"_s, both, true},
                {u"demands"_s, u"تقاضا"_s, both, true},
                {u"persons"_s, u"اشخاص"_s, both, true},
                {u"documents"_s, u"اسناد حسابداری"_s, {u"new"_s}},
                {u"invoices"_s, u"فاکتورها"_s, {u"newSale"_s}},
                {u"services"_s, u"خدمات"_s, both},
                {u"chart of accounts"_s, u"سرفصل حساب‌ها"_s, {}, false, false},
                {u"reminders"_s, u"یادآوری ها"_s},
                {u"users"_s, u"کاربران و دسترسی‌ها"_s},
                {u"open instalments"_s, u"اقساط و سررسیدها"_s, {}, false, false},
                {u"receipts"_s, u"دریافت‌ها و پرداخت‌ها"_s},
                {u"cheques"_s, u"چک‌ها"_s},
                {u"cash and bank"_s, u"صندوق و بانک"_s, {}, false, false},
                {u"changes"_s, u"تاریخچه"_s},
                // Nothing is in these.
                {u"texts of messages"_s, u"متن پیام‌ها"_s, {}, false, false},
                {u"bin"_s, u"سطل بازیافت"_s, {}, false, false}};
    }

    // What threads beside the last operation ask is no part of the next one.
    void waitUntilQuiet()
    {
        constexpr int quiet = 60; // milliseconds
        for (int before = -1; before != m_line->trips();) {
            before = m_line->trips();
            QTest::qWait(quiet);
        }
    }

    // The port from which this thread's connection speaks, which is made if there is none.
    static quint16 ownPort()
    {
        sockaddr_in address{};
        socklen_t size = sizeof(address);
        if (getsockname(mysql_get_socket(KConnection::forThread().handle()), reinterpret_cast<sockaddr *>(&address), &size) != 0)
            qFatal("the connection has no address");
        return ntohs(address.sin_port);
    }

    struct Count
    {
        quint16 port;
        int own;
        int all;
        QElapsedTimer clock;
    };
    Count begun() const
    {
        const quint16 port = ownPort();
        Count count{port, m_line->tripsFrom(port), m_line->trips(), {}};
        count.clock.start();
        return count;
    }
    // A connection that was made anew meanwhile counts whole.
    Cost since(const Count &before) const
    {
        const qint64 milliseconds = before.clock.elapsed();
        const quint16 port = ownPort();
        const int own = m_line->tripsFrom(before.port) - before.own + (port == before.port ? 0 : m_line->tripsFrom(port));
        return {own, m_line->trips() - before.all - own, milliseconds};
    }

    Cost measured(const std::function<void()> &work) const
    {
        const Count before = begun();
        work();
        return since(before);
    }

    std::optional<Cost> logIn()
    {
        m_window.reset();
        waitUntilQuiet();
        CDlgLogin dialog(u"نمایشگاه"_s);
        for (KEdit *entry : dialog.findChildren<KEdit *>())
            entry->setText(u"demo"_s);
        bool isIn = false;
        const Cost cost = measured([&] {
            dialog.accept();
            isIn = GetDBSetting()->Login(dialog.userID());
            m_window = std::make_unique<MainWindow>(DataFolder(m_folder.path()), GetAutoDBSetting());
            m_window->show();
            isIn = QTest::qWaitForWindowExposed(m_window.get()) && isIn;
            QCoreApplication::processEvents();
        });
        GetDBSetting()->SetTabHost(m_window->workArea());
        return isIn ? std::optional(cost) : std::nullopt;
    }

    QAction *action(const QString &text) const
    {
        for (QAction *candidate : m_window->findChildren<QAction *>()) {
            if (candidate->iconText() == text && !candidate->menu())
                return candidate;
        }
        return nullptr;
    }

    std::optional<Cost> list(const QString &entry)
    {
        m_window->workArea()->closeAll();
        QAction *const command = action(entry);
        if (!command)
            return std::nullopt;
        waitUntilQuiet();
        const Cost cost = measured([&] {
            command->trigger();
            QCoreApplication::processEvents();
        });
        return m_window->workArea()->currentPage() ? std::optional(cost) : std::nullopt;
    }

    // Where there are more rows than are read. The limit is kept with the page, and put back afterwards.
    std::optional<Cost> cutList(const QString &entry)
    {
        const auto page = [this] { return qobject_cast<KListPage *>(m_window->workArea()->currentPage()); };
        if (!list(entry) || !page())
            return std::nullopt;
        const int limit = page()->rowLimit();
        page()->setRowLimit(1);
        const std::optional<Cost> cost = list(entry);
        const bool isCut = cost && page()->list()->count() == 1 && page()->nextRows()->isVisible();
        page()->setRowLimit(limit);
        return isCut ? cost : std::nullopt;
    }

    KListPage *openedList(const QString &entry)
    {
        if (!list(entry))
            return nullptr;
        auto *page = qobject_cast<KListPage *>(m_window->workArea()->currentPage());
        // Another one each time, as a clerk does.
        if (page)
            page->list()->selectRow(m_row++ % page->list()->model()->rowCount());
        waitUntilQuiet();
        return page;
    }

    // From the command to the painted window, which is left without a change.
    std::optional<Cost> editor(const QString &entry, const QString &command)
    {
        KListPage *page = openedList(entry);
        if (!page)
            return std::nullopt;
        std::optional<Cost> cost;
        const Count before = begun();
        inNextWindow([&](QDialog *dialog) {
            if (!QTest::qWaitForWindowExposed(dialog))
                return;
            QCoreApplication::processEvents();
            cost = since(before);
        });
        page->runCommand(command);
        return cost;
    }

    // The last row, which is of the open fiscal year, is opened, one of its texts is changed, and OK pressed.
    std::optional<Cost> save(const QString &entry)
    {
        KListPage *page = openedList(entry);
        if (!page)
            return std::nullopt;
        page->list()->selectRow(page->list()->model()->rowCount() - 1);
        std::optional<Cost> cost;
        inNextWindow([&](QDialog *dialog) {
            if (!QTest::qWaitForWindowExposed(dialog) || !changeText(dialog))
                return;
            waitUntilQuiet();
            const Cost saved = measured([&] { dialog->accept(); });
            if (!dialog->isVisible())
                cost = saved;
        });
        page->runCommand(u"edit"_s);
        return cost;
    }

    // An explanation, which every record has and nothing else follows.
    bool changeText(QDialog *dialog)
    {
        for (const QString &name : {u"sExplain"_s, u"sDesc"_s, u"sAddress"_s}) {
            for (QWidget *widget : dialog->findChildren<QWidget *>(name)) {
                const QString text = u"متن %1"_s.arg(++m_texts);
                if (auto *line = qobject_cast<QLineEdit *>(widget); line && !line->isReadOnly())
                    return line->setText(text), true;
                if (auto *lines = qobject_cast<QPlainTextEdit *>(widget); lines && !lines->isReadOnly())
                    return lines->setPlainText(text), true;
                if (auto *rich = qobject_cast<QTextEdit *>(widget); rich && !rich->isReadOnly())
                    return rich->setPlainText(text), true;
            }
        }
        return false;
    }

    std::optional<Cost> newPerson()
    {
        waitUntilQuiet();
        return measured([this] {
            CTblPersons person;
            person.AddNew();
            person.m_sName2 = u"شخص %1"_s.arg(++m_texts);
            person.Update(true);
        });
    }

    // What stands behind OK in the window of a new one.
    std::optional<Cost> newContract()
    {
        const int key = NewRecord::add<CTblAutomobilContracts>([](CTblAutomobilContracts &contract) { contract.m_iContractType = 1; });
        const auto write = [](CTblAutomobilContracts &contract) {
            contract.m_dateContract = QDateTime::currentDateTimeUtc();
            contract.m_iPersonFirstID = 1;
            contract.m_iPersonSecondID = 2;
            contract.m_sName1 = u"علی"_s;
            contract.m_sName2 = u"رضا"_s;
            contract.m_dAmount = 5000;
            contract.m_dCommission = 1000;
        };
        waitUntilQuiet();
        int document = 0;
        const Cost cost = measured([&] { document = ContractSaving::save({key, 0, write}).docNum; });
        return document > 0 ? std::optional(cost) : std::nullopt;
    }

    std::optional<Cost> newItem()
    {
        waitUntilQuiet();
        return measured([this] {
            CTblItems item;
            item.AddNew();
            item.m_iType = CTblItems::typeColor;
            item.m_sName = u"رنگ %1"_s.arg(++m_texts);
            item.Update(true);
        });
    }

    // The helper waits for a while when no window opens.
    static void inNextWindow(const std::function<void(QDialog *)> &act)
    {
        Hand::inNextWindow(act);
    }

    TestDatabase m_database;
    QTemporaryDir m_folder;
    std::unique_ptr<FaultProxy> m_line;
    std::unique_ptr<MainWindow> m_window;
    int m_texts = 0;
    int m_row = 0;
};
