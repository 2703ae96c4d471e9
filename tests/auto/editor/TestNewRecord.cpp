// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/editor/NewRecord.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/RecordSaving.h"
#include "suite/accounting/frame/KApplication.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QScopeGuard>
#include <QTest>

#include <stdexcept>

using namespace Qt::StringLiterals;

class TestNewRecord : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    QString rows() { return m_office->database().value(u"SELECT COUNT(*) FROM AutomobilInformations"_s); }

    QString placeholders() { return m_office->database().value(u"SELECT COUNT(*) FROM Placeholders"_s); }

    static bool kept(int key, const std::function<bool()> &edit) { return NewRecord::keptByEditor<CTblAutomobilInformations>(key, edit); }

    int m_key = 0;

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_key = NewRecord::add<CTblAutomobilInformations>([](CTblAutomobilInformations &car) { car.m_iYear = 1405; });
    }

    void newRecordIsAPlaceholderWithTheNextCode()
    {
        QCOMPARE(m_office->database().value(u"SELECT CONCAT_WS('/',iID,iCode,iYear) FROM AutomobilInformations"_s), u"%1/1/1405"_s.arg(m_key));
        QVERIFY(Placeholders::contains({u"AutomobilInformations"_s, m_key}));
        QVERIFY(Placeholders::left().isEmpty());
    }

    void recordAndPlaceholderAreAddedTogetherOrNotAtAll()
    {
        m_office->database().run(u"CREATE TRIGGER full BEFORE INSERT ON Placeholders FOR EACH ROW SIGNAL SQLSTATE '45000'"_s);
        const auto drop = qScopeGuard([this] { m_office->database().run(u"DROP TRIGGER full"_s); });
        QVERIFY_THROWS_EXCEPTION(CMySQLException, NewRecord::add<CTblAutomobilInformations>([](CTblAutomobilInformations &) {}));
        QCOMPARE(rows(), u"1"_s);
    }

    void confirmedRecordStays()
    {
        QVERIFY(kept(m_key, [] { return true; }));
        QCOMPARE(rows(), u"1"_s);
    }

    void savedRecordIsNoPlaceholderAnyMore()
    {
        const auto save = [this] {
            RecordSaving::save<CTblAutomobilInformations>({m_key, 0, [](CTblAutomobilInformations &car) { car.m_dAmount = 5; }});
            return true;
        };
        QVERIFY(kept(m_key, save));
        QCOMPARE(placeholders(), u"0"_s);
    }

    void cancelledRecordGoesWithWhatBelongsToIt()
    {
        m_office->addCar();
        m_office->database().run(u"INSERT INTO FileDocs(iTable,iRecordID) VALUES(68,%1)"_s.arg(m_key));
        QVERIFY(!kept(m_key, [] { return false; }));
        QCOMPARE(rows(), u"1"_s);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM AutomobilInformations WHERE iID=%1"_s.arg(m_key)),
                 u"0"_s);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM FileDocs"_s), u"0"_s);
        QCOMPARE(placeholders(), u"0"_s);
    }

    // The answer to a save can be lost on its way, and the user then gives the window up.
    void recordThatWasSavedStaysWhateverItsWindowSays()
    {
        const auto saveAndForget = [this] {
            (void)RecordSaving::save<CTblAutomobilInformations>({m_key, 0, [](CTblAutomobilInformations &) {}});
            return false;
        };
        QVERIFY(!kept(m_key, saveAndForget));
        QCOMPARE(rows(), u"1"_s);
    }

    void recordGoesAlsoWhenTheEditorFailsAndTheErrorIsPassedOn()
    {
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, kept(m_key, []() -> bool { throw std::runtime_error("the editor failed"); }));
        QCOMPARE(rows(), u"0"_s);
    }

    void recordThatSomebodyElseDeletedIsNoTrouble()
    {
        const auto deleting = [this] {
            m_office->database().run(u"DELETE FROM AutomobilInformations"_s);
            return false;
        };
        QVERIFY(!kept(m_key, deleting));
        QCOMPARE(placeholders(), u"0"_s);
    }
};

static const RegisteredTest<TestNewRecord, KApplication> registeredNewRecord;
#include "TestNewRecord.moc"
