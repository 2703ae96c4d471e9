// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QPushButton>
#include <QStyle>
#include <QTimer>
#include <QtTest>

#include <new>
#include <stdexcept>
#include <thread>

class TestKErrorBoundary : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void eachErrorGivesOneMessage_data();
    void eachErrorGivesOneMessage();
    void guardedWorkThatThrowsIsReportedAndHasNotSucceeded();
    void slotThatThrowsLeavesTheProgramRunning();
    void failedStatementReachesTheBoundaryWithItsCategory();
    void secondErrorDuringTheMessageIsLoggedOnly();
    void errorOfAnotherThreadShowsNothing();
    void noErrorShowsNothing();
    void logHoldsNoValues_data();
    void logHoldsNoValues();
    void serverMessageHoldsNoValues_data();
    void serverMessageHoldsNoValues();
    void applicationIsRightToLeftAndFusion();
};

void TestKErrorBoundary::init()
{
    g_pDlgWarning->answerAll(false);
    g_pDlgWarning->answerAll(true);
}

void TestKErrorBoundary::eachErrorGivesOneMessage_data()
{
    QTest::addColumn<std::exception_ptr>("error");
    QTest::addColumn<QString>("message");
    const CMySQLException lost(CMySQLException::Category::ConnectionLost, 2006, QStringLiteral("server has gone away"));
    QTest::newRow("connection lost") << std::make_exception_ptr(lost) << lost.userMessage();
    const CMySQLException conflict(CMySQLException::Category::LockConflict, 1213, QStringLiteral("Deadlock"));
    QTest::newRow("lock conflict") << std::make_exception_ptr(conflict) << conflict.userMessage();
    QTest::newRow("rule of the books") << std::make_exception_ptr(KAccountingError(QStringLiteral("سند تراز نیست.")))
                                       << QStringLiteral("سند تراز نیست.");
    QTest::newRow("memory") << std::make_exception_ptr(std::bad_alloc()) << QString();
    QTest::newRow("program") << std::make_exception_ptr(std::logic_error("index 7 of 3")) << QString();
    QTest::newRow("unknown kind") << std::make_exception_ptr(42) << QString();
}

void TestKErrorBoundary::eachErrorGivesOneMessage()
{
    QFETCH(std::exception_ptr, error);
    QFETCH(QString, message);
    KErrorBoundary::report(error, nullptr);
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    if (!message.isEmpty())
        QCOMPARE(shown.constFirst(), message);
    // The message is for a person: Persian, without the technical words.
    QVERIFY(!shown.constFirst().contains(QRegularExpression(QStringLiteral("[A-Za-z]{3}"))));
}

void TestKErrorBoundary::guardedWorkThatThrowsIsReportedAndHasNotSucceeded()
{
    int steps = 0;
    QVERIFY(KErrorBoundary::guarded(nullptr, [&] { ++steps; }));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    QVERIFY(!KErrorBoundary::guarded(nullptr, [&] {
        ++steps;
        throw KAccountingError(QStringLiteral("سند تراز نیست."));
    }));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("سند تراز نیست.")});
    QCOMPARE(steps, 2);
}

void TestKErrorBoundary::slotThatThrowsLeavesTheProgramRunning()
{
    QPushButton button;
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&clicks] {
        ++clicks;
        throw KAccountingError(QStringLiteral("نشد"));
    });
    button.show();
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(clicks, 2);
    QCOMPARE(g_pDlgWarning->takeShown(), (QStringList{QStringLiteral("نشد"), QStringLiteral("نشد")}));
}

void TestKErrorBoundary::failedStatementReachesTheBoundaryWithItsCategory()
{
    TestDatabase database;
    QTimer::singleShot(0, [&database] { database.run(QStringLiteral("SELECT noSuchColumn FROM noSuchTable")); });
    QStringList shown;
    QTRY_VERIFY(!(shown += g_pDlgWarning->takeShown()).isEmpty());
    QCOMPARE(shown.size(), 1);
}

void TestKErrorBoundary::secondErrorDuringTheMessageIsLoggedOnly()
{
    g_pDlgWarning->answerAll(false);
    int boxes = 0;
    QTimer::singleShot(50, [&boxes] {
        QWidget *box = QApplication::activeModalWidget();
        KErrorBoundary::report(std::make_exception_ptr(KAccountingError(QStringLiteral("دومی"))), nullptr);
        for (QWidget *widget : QApplication::topLevelWidgets())
            boxes += widget->inherits("QMessageBox") ? 1 : 0;
        if (box)
            box->close();
    });
    KErrorBoundary::report(std::make_exception_ptr(KAccountingError(QStringLiteral("اولی"))), nullptr);
    QCOMPARE(boxes, 1);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("اولی")});
    g_pDlgWarning->answerAll(true);
    KErrorBoundary::report(std::make_exception_ptr(KAccountingError(QStringLiteral("سومی"))), nullptr);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("سومی")});
}

void TestKErrorBoundary::errorOfAnotherThreadShowsNothing()
{
    std::thread([] {
        KErrorBoundary::report(std::make_exception_ptr(KAccountingError(QStringLiteral("از نخ دیگر"))), nullptr);
    }).join();
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestKErrorBoundary::noErrorShowsNothing()
{
    KErrorBoundary::report(nullptr, nullptr);
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestKErrorBoundary::logHoldsNoValues_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QString>("masked");
    const auto row = [](const char *name, const char *statement, const char *masked) {
        QTest::newRow(name) << QString::fromUtf8(statement) << QString::fromUtf8(masked);
    };
    row("insert", "INSERT INTO Users(sUser,sPasswordHash) VALUES('ali','$argon2id$abc')",
        "INSERT INTO Users(sUser,sPasswordHash) VALUES(?,?)");
    row("escaped quote", "UPDATE T SET s='a\\'b', d=12.5 WHERE iID=7", "UPDATE T SET s=?, d=? WHERE iID=?");
    row("doubled quote", "SELECT 'it''s' FROM T", "SELECT ? FROM T");
    row("double quotes", "SELECT \"secret\" FROM T", "SELECT ? FROM T");
    row("never closed", "SELECT 'secret", "SELECT ?");
    row("apostrophe in a value", "INSERT INTO T VALUES('a\\'secret\\'')", "INSERT INTO T VALUES(?)");
    row("columns with digits", "SELECT sName1 FROM T2 LIMIT 10", "SELECT sName1 FROM T2 LIMIT ?");
}

void TestKErrorBoundary::logHoldsNoValues()
{
    QFETCH(QString, statement);
    QFETCH(QString, masked);
    QCOMPARE(KErrorText::maskedStatement(statement), masked);
    const CMySQLException error(CMySQLException::Category::DuplicateKey, 1062, QStringLiteral("Duplicate entry 'ali'"), statement);
    const QString log = KErrorText::logText(std::make_exception_ptr(error));
    QVERIFY(log.contains(masked));
    QVERIFY(log.contains(QStringLiteral("1062")));
    QVERIFY(!log.contains(QStringLiteral("ali'")));
    QVERIFY(!log.contains(QStringLiteral("secret")));
}

void TestKErrorBoundary::serverMessageHoldsNoValues_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("masked");
    QTest::newRow("duplicate") << QStringLiteral("Duplicate entry 'ali' for key 'user'") << QStringLiteral("Duplicate entry ?");
    QTest::newRow("apostrophe in a word") << QStringLiteral("Table 'a.b' doesn't exist")
                                          << QStringLiteral("Table ? doesn't exist");
    QTest::newRow("apostrophe in the value") << QStringLiteral("Duplicate entry 'o'neil secret' for key 'user'")
                                             << QStringLiteral("Duplicate entry ?");
    QTest::newRow("no value") << QStringLiteral("Lost connection to server") << QStringLiteral("Lost connection to server");
}

void TestKErrorBoundary::serverMessageHoldsNoValues()
{
    QFETCH(QString, message);
    QFETCH(QString, masked);
    const CMySQLException error(CMySQLException::Category::Other, 1, message);
    QCOMPARE(KErrorText::logText(std::make_exception_ptr(error)), QStringLiteral("database, other (1): ") + masked);
}

void TestKErrorBoundary::applicationIsRightToLeftAndFusion()
{
    QCOMPARE(QGuiApplication::layoutDirection(), Qt::RightToLeft);
    QCOMPARE(QApplication::style()->objectName().toLower(), QStringLiteral("fusion"));
}

// The program's own application class is what is tested.
static const RegisteredTest<TestKErrorBoundary, KApplication> registered;
#include "TestKErrorBoundary.moc"
