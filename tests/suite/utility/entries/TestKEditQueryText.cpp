// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KEdit.h"

#include <QApplication>
#include <QTest>

#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

using namespace Qt::StringLiterals;

// How the server interprets a database query field, asked of the server itself.
class TestKEditQueryText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void findsExactlyWhatWasTyped_data();
    void findsExactlyWhatWasTyped();

private:
    TestDatabase m_database;
};

// Each text by its bytes, so that putting it there needs no escaping of any kind.
void TestKEditQueryText::initTestCase()
{
    m_database.run(u"CREATE TABLE Texts (sText VARCHAR(100)) ENGINE = InnoDB CHARSET=utf8"_s);
    for (const char *text : {"plain", "O'Neil", "100%", "100 percent", "a_b", "axb", R"(c:\d)", R"(c:\\d)", R"(\')", R"(\%)",
                             R"(\)", "پژو 206", R"("quoted")", "' OR 1=1 -- "}) {
        m_database.run(
            u"INSERT INTO Texts VALUES (X'%1')"_s.arg(QString::fromLatin1(QByteArray(text).toHex())));
    }
}

void TestKEditQueryText::findsExactlyWhatWasTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("found");
    const auto row = [](const char *typed, const char *found) {
        QTest::newRow(typed) << QString::fromUtf8(typed) << QString::fromUtf8(found);
    };
    row("plain", "plain");
    row("O'Neil", "O'Neil");
    row("100%", "100%");
    row("a_b", "a_b");
    row(R"(c:\d)", R"(c:\d)");
    row(R"(\\)", R"(c:\\d)");
    row(R"(\')", R"(\')");
    row(R"(\%)", R"(\%)");
    row("پژو", "پژو 206");
    row(R"("quoted")", R"("quoted")");
    row("' OR 1=1 -- ", "' OR 1=1 -- ");
    row("nothing like it", "");
}

void TestKEditQueryText::findsExactlyWhatWasTyped()
{
    QFETCH(QString, typed);
    KEdit edit(KEdit::Kind::QueryText);
    edit.setText(typed);
    const QString pattern = QLatin1Char('%') + edit.queryText() + QLatin1Char('%');
    QTEST(m_database.value(u"SELECT GROUP_CONCAT(sText) FROM Texts WHERE sText LIKE '"_s + pattern
                           + QLatin1Char('\'')),
          "found");
}

static const RegisteredTest<TestKEditQueryText, QApplication> registeredKEditQueryText;
#include "TestKEditQueryText.moc"
