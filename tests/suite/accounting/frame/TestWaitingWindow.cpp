// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/frame/KWaitNotice.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

#include <future>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

// A window as an editor is: a field, and an OK button that saves it in a unit of work.
class NameWindow : public KDialog
{
public:
    NameWindow()
    {
        auto *column = new QVBoxLayout(this);
        column->addWidget(&m_name);
        m_buttons = createButtons();
        column->addWidget(m_buttons);
    }
    QLineEdit m_name;
    QDialogButtonBox *m_buttons = nullptr;

protected:
    bool OnOK() override
    {
        KTransaction::runReplayable([this] {
            KConnection::forThread().run("UPDATE Names SET sName=" + KSql::quoted(m_name.text()) + " WHERE iID=1");
        });
        return true;
    }
};

void press(const NameWindow &window)
{
    for (QAbstractButton *button : window.m_buttons->buttons()) {
        if (window.m_buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
            return QTest::mouseClick(button, Qt::LeftButton);
    }
    QFAIL("no OK button");
}

}

// What whoever sits before a window sees and keeps when the database does not answer.
class TestWaitingWindow : public QObject
{
    Q_OBJECT

    TestDatabase m_database;

    // Presses Esc in the notice as soon as it is shown; events that came up in its place are counted as none.
    static void giveUpWhenAsked(bool *asked)
    {
        // Timers of others are put off while the notice is shown, so the key comes from an event filter.
        class Watch : public QObject
        {
        public:
            explicit Watch(bool *asked)
                : QObject(qApp)
                , m_asked(asked)
            {
            }
            bool eventFilter(QObject *receiver, QEvent *event) override
            {
                auto *window = qobject_cast<QDialog *>(receiver);
                if (event->type() != QEvent::Paint || !window || !window->findChild<QLabel *>()
                    || !window->findChild<QLabel *>()->text().startsWith(u"در انتظار پاسخ پایگاه داده"_s))
                    return false;
                qApp->removeEventFilter(this);
                deleteLater();
                *m_asked = true;
                QMetaObject::invokeMethod(window, &QDialog::reject, Qt::QueuedConnection);
                return false;
            }
            bool *m_asked;
        };
        *asked = false;
        qApp->installEventFilter(new Watch(asked));
    }

private Q_SLOTS:
    void init()
    {
        KConnection::configure(0, m_database.settings());
        m_database.run(u"CREATE OR REPLACE TABLE Names(iID INT PRIMARY KEY,sName VARCHAR(50)) ENGINE=InnoDB CHARSET=utf8"_s);
        m_database.run(u"INSERT INTO Names VALUES(1,'پیش از آن')"_s);
        g_pDlgWarning->answerAll(false);
        g_pDlgWarning->answerAll(true);
    }
    void cleanup()
    {
        KConnection::configure(0, m_database.settings());
        g_pDlgWarning->answerAll(false);
    }

    void lockedRowIsGivenUpAndWhatWasTypedStays()
    {
        std::promise<void> holds;
        std::promise<void> released;
        std::thread holder([&] {
            KTransaction transaction;
            KConnection::forThread().run(QByteArrayLiteral("UPDATE Names SET sName='او' WHERE iID=1"));
            holds.set_value();
            released.get_future().wait();
        });
        holds.get_future().wait();
        const KWaitNotice waits;
        NameWindow window;
        window.show();
        window.m_name.setText(u"تازه"_s);
        bool asked = false;
        giveUpWhenAsked(&asked);
        // As a click does: the error ends at the boundary of the application.
        press(window);
        released.set_value();
        holder.join();
        QVERIFY(asked);
        QVERIFY(window.isVisible());
        QCOMPARE(window.m_name.text(), u"تازه"_s);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{CMySQLException(CMySQLException::Category::GivenUp, 0, {}).userMessage()});
        QCOMPARE(m_database.value(u"SELECT sName FROM Names"_s), u"پیش از آن"_s);
        // Nothing is left of it: the same press saves.
        press(window);
        QVERIFY(!window.isVisible());
        QCOMPARE(m_database.value(u"SELECT sName FROM Names"_s), u"تازه"_s);
    }

    void silentServerIsGivenUp()
    {
        FaultProxy proxy(m_database.settings());
        KConnection::configure(0, proxy.settings());
        KConnection::forThread().run(QByteArrayLiteral("SELECT 1"));
        proxy.setSilent(true);
        const KWaitNotice waits;
        NameWindow window;
        window.show();
        window.m_name.setText(u"تازه"_s);
        bool asked = false;
        giveUpWhenAsked(&asked);
        press(window);
        proxy.setSilent(false);
        QVERIFY(asked);
        QVERIFY(window.isVisible());
        QCOMPARE(window.m_name.text(), u"تازه"_s);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }

    void answerThatComesLateClosesTheNoticeAndGoesOn()
    {
        const KWaitNotice waits;
        KConnection::forThread().run(QByteArrayLiteral("SELECT SLEEP(1.3)"));
        QTRY_VERIFY(!QApplication::activeModalWidget());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    // Behind a slow line each answer is there within the second, and the operation takes several.
    void anOperationOfManyAnswersCanBeGivenUp()
    {
        FaultProxy line(m_database.settings());
        KConnection::configure(0, line.settings());
        const KWaitNotice waits;
        NameWindow window;
        window.show();
        window.m_name.setText(u"تازه"_s);
        KConnection::forThread().run(QByteArrayLiteral("SELECT 1"));
        QTRY_VERIFY(!QGuiApplication::overrideCursor());
        line.setDelay(150);
        bool asked = false;
        giveUpWhenAsked(&asked);
        int answered = 0;
        bool isSlowShown = false;
        const auto operation = [&] {
            for (; answered < 30; ++answered) {
                KConnection::forThread().run(QByteArrayLiteral("SELECT 1"));
                isSlowShown = isSlowShown || QGuiApplication::overrideCursor();
            }
        };
        QVERIFY_THROWS_EXCEPTION(CMySQLException, operation());
        QVERIFY(asked);
        QVERIFY(isSlowShown);
        QVERIFY(answered > 1);
        QVERIFY(answered < 30);
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(window.isVisible());
        QCOMPARE(window.m_name.text(), u"تازه"_s);
        // The same pressed again, on the line as it was.
        line.setDelay(0);
        press(window);
        QVERIFY(!window.isVisible());
        QCOMPARE(m_database.value(u"SELECT sName FROM Names"_s), u"تازه"_s);
    }

    // The notice stays from its first moment to the operation's end, and comes to no harm where a window is opened meanwhile.
    void theNoticeEndsBeforeAMessageOfTheOperation()
    {
        const KWaitNotice waits;
        KConnection::forThread().run(QByteArrayLiteral("SELECT SLEEP(1.2)"));
        QVERIFY(QApplication::activeModalWidget());
        g_pDlgWarning->answerAll(false);
        QPointer<QWidget> shown;
        QTimer::singleShot(0, this, [&shown] {
            shown = QApplication::activeModalWidget();
            shown->close();
        });
        g_pDlgWarning->Show(u"پیام"_s, nullptr);
        g_pDlgWarning->answerAll(true);
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(!QGuiApplication::overrideCursor());
    }
};

static const RegisteredTest<TestWaitingWindow, KApplication> registeredWaitingWindow;
#include "TestWaitingWindow.moc"
