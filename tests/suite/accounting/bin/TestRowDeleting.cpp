// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/records/KMySQL.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

// A thing that users know by code, name and document, and that can be archived.
class Thing : public KMySQL
{
public:
    qint32 m_iID = 0;
    qint32 m_iCode = 0;
    QString m_sName;
    double m_dAmount = 0;
    qint32 m_iDocNum = 0;
    qint32 m_iArchiveUserID = 0;

    QString GetTableName() const override { return u"Things"_s; }

protected:
    bool isLogged() const override { return true; }
    void DoFieldExchange() override
    {
        RFX_Long(u"iID", m_iID, u"");
        RFX_Long(u"iCode", m_iCode, u"");
        RFX_Text(u"sName", m_sName, u"");
        RFX_Double(u"dAmount", m_dAmount, u"");
        RFX_Long(u"iDocNum", m_iDocNum, u"");
        RFX_Long(u"iArchiveUserID", m_iArchiveUserID, u"");
    }
};

}

// A deletion acts on the row that the user was asked about.
class TestRowDeleting : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    QString rows() { return m_office->database.value(u"SELECT COUNT(*) FROM Things"_s); }

private Q_SLOTS:
    void initTestCase()
    {
        m_office = std::make_unique<TestOffice>();
        m_office->database.run(u"CREATE TABLE Things (iID INT NOT NULL AUTO_INCREMENT PRIMARY KEY, iCode INT DEFAULT 0, sName VARCHAR(50)"
                               ", dAmount DOUBLE DEFAULT 0, iDocNum INT DEFAULT 0, iArchiveUserID INT DEFAULT 0) ENGINE=InnoDB"_s);
    }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->database.run(u"DELETE FROM Things"_s);
        m_office->database.run(u"INSERT INTO Things(iID,iCode,sName,iDocNum) VALUES(1,7,'a',12),(2,8,'b',13)"_s);
    }

    // The question may have been open while somebody closed the books.
    void nothingGoesFromAClosedDatabase()
    {
        Thing asked;
        QVERIFY(asked.IsRecordExist(u"iID"_s, 1));
        GetDBSetting()->SetClosedDB(true);
        QString told;
        try {
            RowDeleting::run(asked);
        } catch (const KAccountingError &error) {
            told = error.userMessage();
        }
        GetDBSetting()->SetClosedDB(false);
        QVERIFY(!told.isEmpty());
        QCOMPARE(rows(), u"2"_s);
    }

    void theOneThatWasAskedAboutGoes()
    {
        Thing asked;
        QVERIFY(asked.IsRecordExist(u"iID"_s, 1));
        RowDeleting::run(asked);
        QCOMPARE(m_office->database.value(u"SELECT GROUP_CONCAT(iID) FROM Things"_s), u"2"_s);
    }

    void whatAnotherDidWhileTheUserWasAskedKeepsIt_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("said"); // empty: it is deleted all the same
        QTest::newRow("another code") << u"UPDATE Things SET iCode=9 WHERE iID=1"_s << u"تغییر داده است"_s;
        QTest::newRow("another name") << u"UPDATE Things SET sName='c' WHERE iID=1"_s << u"تغییر داده است"_s;
        QTest::newRow("another document") << u"UPDATE Things SET iDocNum=14 WHERE iID=1"_s << u"تغییر داده است"_s;
        QTest::newRow("no document any more") << u"UPDATE Things SET iDocNum=0 WHERE iID=1"_s << u"تغییر داده است"_s;
        QTest::newRow("archived") << u"UPDATE Things SET iArchiveUserID=4 WHERE iID=1"_s << u"بایگانی کرده است"_s;
        QTest::newRow("another amount") << u"UPDATE Things SET dAmount=5 WHERE iID=1"_s << QString();
        QTest::newRow("another row") << u"UPDATE Things SET iCode=9 WHERE iID=2"_s << QString();
    }

    void whatAnotherDidWhileTheUserWasAskedKeepsIt()
    {
        QFETCH(QString, statement);
        QFETCH(QString, said);
        Thing asked;
        QVERIFY(asked.IsRecordExist(u"iID"_s, 1));
        m_office->database.run(statement);
        QString told;
        try {
            RowDeleting::run(asked);
        } catch (const RowDeleting::Refused &refused) {
            QVERIFY(!refused.isGone());
            told = refused.userMessage();
        }
        QVERIFY2(told.contains(said) && told.isEmpty() == said.isEmpty(), qPrintable(told));
        QCOMPARE(rows(), said.isEmpty() ? u"1"_s : u"2"_s);
    }

    void oneThatIsGoneIsSaidWithWhoDidIt()
    {
        Thing asked;
        QVERIFY(asked.IsRecordExist(u"iID"_s, 1));
        {
            Thing other;
            QVERIFY(other.IsRecordExist(u"iID"_s, 1));
            other.Delete();
        }
        QString told;
        try {
            RowDeleting::run(asked);
        } catch (const RowDeleting::Refused &refused) {
            QVERIFY(refused.isGone());
            told = refused.userMessage();
        }
        QVERIFY2(told.startsWith(u"کاربر «admin» "_s), qPrintable(told));
        QVERIFY2(told.endsWith(u" این ردیف را در این میان حذف کرده است."_s), qPrintable(told));
        QCOMPARE(rows(), u"1"_s);
    }

    void whatIsRequiredSeesTheLockedRowAndKeepsIt()
    {
        Thing asked;
        QVERIFY(asked.IsRecordExist(u"iID"_s, 1));
        m_office->database.run(u"UPDATE Things SET dAmount=5 WHERE iID=1"_s);
        double seen = 0;
        const auto refuse = [&] {
            seen = asked.m_dAmount;
            throw std::runtime_error("not to be deleted");
        };
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, RowDeleting::run(asked, refuse));
        QCOMPARE(seen, 5.0);
        QCOMPARE(rows(), u"2"_s);
    }
};

static const RegisteredTest<TestRowDeleting, QCoreApplication> registeredRowDeleting;
#include "TestRowDeleting.moc"
