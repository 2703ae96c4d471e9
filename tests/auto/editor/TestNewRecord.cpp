// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/editor/NewRecord.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/KApplication.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

class TestNewRecord : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    QString rows() { return m_office->database().value(u"SELECT COUNT(*) FROM AutomobilInformations"_s); }

    // Whether the record was kept, and whether what else goes was taken away.
    std::pair<bool, bool> edited(const std::function<bool()> &edit)
    {
        bool removed = false;
        const bool kept = NewRecord::keptByEditor<CTblAutomobilInformations>(m_key, edit, [&] { removed = true; });
        return {kept, removed};
    }

    int m_key = 0;

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_key = m_office->addCar();
    }

    void confirmedRecordStays()
    {
        QCOMPARE(edited([] { return true; }), std::pair(true, false));
        QCOMPARE(rows(), u"1"_s);
    }

    void cancelledRecordGoesWithWhatBelongsToIt()
    {
        m_office->addCar();
        QCOMPARE(edited([] { return false; }), std::pair(false, true));
        QCOMPARE(rows(), u"1"_s);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM AutomobilInformations WHERE iID=%1"_s.arg(m_key)),
                 u"0"_s);
    }

    void recordGoesAlsoWhenTheEditorFailsAndTheErrorIsPassedOn()
    {
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, edited([]() -> bool { throw std::runtime_error("the editor failed"); }));
        QCOMPARE(rows(), u"0"_s);
    }

    void recordThatSomebodyElseDeletedIsNoTrouble()
    {
        const auto deleting = [this] {
            m_office->database().run(u"DELETE FROM AutomobilInformations"_s);
            return false;
        };
        QCOMPARE(edited(deleting), std::pair(false, false));
    }
};

static const RegisteredTest<TestNewRecord, KApplication> registeredNewRecord;
#include "TestNewRecord.moc"
