// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/CDlgAddAutomobilInformation.h"
#include "auto/cars/register/editor/CDlgAddAutomobilInformationBase.h"
#include "auto/cars/register/editor/CarTwins.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/subjects/AutoSearch.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/crm/persons/PersonTwins.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/office/TestOffice.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;

// Another record that says the same of itself: found, told while entering, refused only where the office says so.
class TestCarTwins : public QObject
{
    Q_OBJECT

    using Car = CTblAutomobilInformations;
    using Dialog = CDlgAddAutomobilInformation;

    std::unique_ptr<TestOffice> m_office;
    int m_owner = 0;
    int m_car = 0;

    std::unique_ptr<Dialog> opened(int car, EditorMode mode)
    {
        auto dialog = std::make_unique<Dialog>(car, mode);
        if (!dialog->load())
            return nullptr;
        dialog->show();
        return dialog;
    }
    static KEdit *edit(const Dialog &dialog, const char *column) { return dialog.basePage()->form()->edit(QString::fromLatin1(column)); }
    static QString note(const Dialog &dialog, const char *column) { return FieldNote::of(edit(dialog, column))->text(); }
    static void enter(const Dialog &dialog, const char *column, const QString &text)
    {
        edit(dialog, column)->setText(text);
        Q_EMIT edit(dialog, column)->editingFinished();
    }

private Q_SLOTS:
    void initTestCase()
    {
        AutoSearch::enter();
        m_office = std::make_unique<TestOffice>();
    }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_owner = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        m_car = m_office->addCar([this](Car &car) {
            car.m_iPersonID = m_owner;
            car.m_sVIN = u"1HGCM82633A004352"_s;
            car.m_sNumOfPlates = u"12 ب 345 ایران 67"_s;
            car.m_sChassisNum = u"NAAN01CE8NK551122"_s;
            car.m_sNumOfEngines = u"124K9081726"_s;
        });
    }

    void twinIsFoundInAnySpelling_data()
    {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("found");
        QTest::newRow("plate") << 0 << u"۶۷-۳۴۵ب۱۲"_s << true;
        QTest::newRow("another plate") << 0 << u"12 ب 345 ایران 68"_s << false;
        QTest::newRow("chassis") << 1 << u"naan01ce8nk551122"_s << true;
        QTest::newRow("chassis as an engine") << 2 << u"NAAN01CE8NK551122"_s << false;
        QTest::newRow("engine") << 2 << u"124 K 9081726"_s << true;
        QTest::newRow("VIN") << 3 << u"1hgcm82633a004352"_s << true;
        QTest::newRow("the end of a VIN") << 3 << u"A004352"_s << false;
        QTest::newRow("nothing") << 3 << QString() << false;
    }

    void twinIsFoundInAnySpelling()
    {
        QFETCH(int, field);
        QFETCH(QString, text);
        const std::optional<Twin> twin = CarTwins::find(CarTwins::fields().at(field), text, 0);
        QTEST(twin.has_value(), "found");
        QCOMPARE(twin ? twin->key : m_car, m_car);
        QVERIFY(!CarTwins::find(CarTwins::fields().at(field), text, m_car));
    }

    void itIsToldBesideTheFieldOnceThatIsLeft()
    {
        const int car = m_office->addCar([this](Car &c) { c.m_iPersonID = m_owner; });
        auto dialog = opened(car, EditorMode::Edit);
        edit(*dialog, "sVIN")->setText(u"1HGCM82633A004352"_s);
        QCOMPARE(note(*dialog, "sVIN"), QString());
        Q_EMIT edit(*dialog, "sVIN")->editingFinished();
        QVERIFY2(note(*dialog, "sVIN").contains(u"Ctrl+T"_s), qPrintable(note(*dialog, "sVIN")));
        // What is typed further is another number.
        edit(*dialog, "sVIN")->setText(u"1HGCM"_s);
        QCOMPARE(note(*dialog, "sVIN"), u"شماره VIN هفده نویسه دارد."_s);
    }

    void oneKeyLeadsToIt()
    {
        const int car = m_office->addCar([this](Car &c) { c.m_iPersonID = m_owner; });
        qint32 shown = 0;
        RecordWindows::enter({.table = u"AutomobilInformations"_s, .form = u"AutomobilInformations"_s, .open = [&shown](qint32 key, bool, QWidget *) { shown = key; }});
        auto dialog = opened(car, EditorMode::Edit);
        enter(*dialog, "sChassisNum", u"NAAN01CE8NK551122"_s);
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        edit(*dialog, "sChassisNum")->setFocus();
        QTRY_VERIFY(edit(*dialog, "sChassisNum")->hasFocus());
        QTest::keyClick(edit(*dialog, "sChassisNum"), Qt::Key_T, Qt::ControlModifier);
        RecordWindows::remove(u"AutomobilInformations"_s);
        QCOMPARE(shown, m_car);
    }

    void savingAsksOnceAndRefusesNothing()
    {
        const int car = m_office->addCar([this](Car &c) { c.m_iPersonID = m_owner; });
        auto dialog = opened(car, EditorMode::Edit);
        edit(*dialog, "sNumOfPlates")->setText(u"12ب34567"_s);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(g_pDlgYesNo->takeShown().filter(u"پلاک این خودرو"_s).size(), 1);
        // Who opens it again is not asked anew.
        dialog = opened(car, EditorMode::Edit);
        dialog->accept();
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList());
    }

    // --- Taken only once ---

    void refuseFor(const OfficeSettings::Key &key) const
    {
        CTblProperties::DBWriteSetting(key.section.toString(), key.key.toString(), u"1"_s);
    }
    void forgetRefusals() { m_office->database().run(u"DELETE FROM Properties WHERE sSection='Twins'"_s); }
    std::unique_ptr<Dialog> openedAsClerk(int car)
    {
        m_office->logInAs(u"mina"_s, u"AutomobilInformations"_s, KSecurity::allRights);
        return opened(car, EditorMode::Edit);
    }
    QString stored(int car, const char *column) { return m_office->database().value(u"SELECT IFNULL(%1,'') FROM AutomobilInformations WHERE iID=%2"_s.arg(QLatin1String(column)).arg(car)); }

    void whatTheOfficeTakesOnceIsRefused_data()
    {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("text");
        QTest::newRow("plate") << 0 << u"۱۲ب۳۴۵۶۷"_s;
        QTest::newRow("chassis") << 1 << u"naan01ce8nk551122"_s;
        QTest::newRow("engine") << 2 << u"124 K 9081726"_s;
        QTest::newRow("VIN") << 3 << u"1hgcm82633a004352"_s;
    }

    void whatTheOfficeTakesOnceIsRefused()
    {
        QFETCH(int, field);
        QFETCH(QString, text);
        const CarTwins::Field &twin = CarTwins::fields().at(field);
        const QByteArray column = twin.column.toLatin1();
        const auto clean = qScopeGuard([this] { forgetRefusals(); m_office->logInAsAdmin(); });
        refuseFor(twin.refused);
        const int car = m_office->addCar([this](Car &c) { c.m_iPersonID = m_owner; });
        auto dialog = openedAsClerk(car);
        edit(*dialog, column.constData())->setText(text);
        g_pDlgWarning->takeShown();
        g_pDlgYesNo->takeShown();
        dialog->accept();
        QVERIFY(dialog->isVisible());
        const QStringList told = g_pDlgWarning->takeShown();
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.constFirst().contains(twin.ofCar()) && told.constFirst().contains(u"Ctrl+T"_s), qPrintable(told.constFirst()));
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList());
        QVERIFY(CarTwins::find(twin, edit(*dialog, column.constData())->plainText(), car));
        QCOMPARE(stored(car, column.constData()), QString());
        // The others are warned of, and with another number it is saved.
        edit(*dialog, column.constData())->setText(u"77"_s);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(stored(car, column.constData()), u"77"_s);
    }

    void administratorsAreAskedAndMayGoOn()
    {
        const auto clean = qScopeGuard([this] { forgetRefusals(); });
        refuseFor(TwinSettings::vin);
        const int car = m_office->addCar([this](Car &c) { c.m_iPersonID = m_owner; });
        auto dialog = opened(car, EditorMode::Edit);
        edit(*dialog, "sVIN")->setText(u"1HGCM82633A004352"_s);
        g_pDlgYesNo->takeShown();
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(g_pDlgYesNo->takeShown().filter(u"VIN این خودرو"_s).size(), 1);
        QCOMPARE(stored(car, "sVIN"), u"1HGCM82633A004352"_s);
    }

    void twinsFromBeforeKeepNobodyFromSaving()
    {
        const auto clean = qScopeGuard([this] { forgetRefusals(); m_office->logInAsAdmin(); });
        const int car = m_office->addCar([this](Car &c) { c.m_iPersonID = m_owner; c.m_sVIN = u"1HGCM82633A004352"_s; });
        refuseFor(TwinSettings::vin);
        auto dialog = openedAsClerk(car);
        edit(*dialog, "sDesc")->setText(u"بازدید شد"_s);
        dialog->accept();
        QVERIFY2(!dialog->isVisible(), qPrintable(g_pDlgWarning->takeShown().join(u'|')));
        QCOMPARE(stored(car, "sDesc"), u"بازدید شد"_s);
    }

    // Both desks have looked before either saves: the other one's car comes while this one waits for its turn.
    void ofTwoDesksTheSecondIsRefused()
    {
        const int car = m_office->addCar([this](Car &c) { c.m_iPersonID = m_owner; });
        const int other = m_office->addCar([this](Car &c) { c.m_iPersonID = m_owner; });
        refuseFor(TwinSettings::vin);
        auto dialog = openedAsClerk(car);
        const auto clean = qScopeGuard([this] {
            m_office->database().run(u"DROP TRIGGER IF EXISTS meanwhile"_s);
            forgetRefusals();
            m_office->logInAsAdmin();
        });
        edit(*dialog, "sVIN")->setText(u"WBA00000000000017"_s);
        g_pDlgWarning->takeShown();
        m_office->database().run(u"CREATE TRIGGER meanwhile BEFORE INSERT ON Properties FOR EACH ROW BEGIN IF NEW.sKey='AutomobilInformations' THEN "
                                 "UPDATE AutomobilInformations SET sVIN='WBA00000000000017' WHERE iID=%1; INSERT IGNORE INTO SearchKeys(iKind,sKey,iRecordID) VALUES(3,'wba00000000000017',%1); END IF; END"_s.arg(other));
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown().filter(u"VIN این خودرو"_s).size(), 1);
        QCOMPARE(edit(*dialog, "sVIN")->plainText(), u"WBA00000000000017"_s);
        QCOMPARE(stored(car, "sVIN"), QString());
    }

    void nothingIsLookedUpWhileSomebodyTypes()
    {
        auto dialog = opened(m_car, EditorMode::Edit);
        const ObservedStatements statements({u"SELECT"_s});
        QTest::keyClicks(edit(*dialog, "sVIN"), u"1HGCM82633A004352"_s);
        QCOMPARE(statements.taken(), QStringList());
    }

    void personsWithTheSameNumbersOrNames()
    {
        const int first = m_office->addPerson(u"علی"_s, u"رضایی"_s, [](CTblPersons &person) {
            person.m_sNationalCode = u"0012345679"_s;
            person.m_sMobile = u"09121234567"_s;
            person.m_sFatherName = u"حسن"_s;
        });
        const auto keyOf = [](const std::optional<Twin> &twin) { return twin ? twin->key : 0; };
        QCOMPARE(keyOf(PersonTwins::ofNationalCode(u"۰۰۱۲۳۴۵۶۷۹"_s, 0)), first);
        QCOMPARE(keyOf(PersonTwins::ofMobile(u"+98 912 123 4567"_s, 0)), first);
        QCOMPARE(keyOf(PersonTwins::ofName(u"علي رضايي"_s, u"حسن"_s, 0)), first);
        QCOMPARE(keyOf(PersonTwins::ofName(u"علی رضایی"_s, u"حسین"_s, 0)), 0);
        QCOMPARE(keyOf(PersonTwins::ofName(u"علی رضایی"_s, {}, 0)), 0);
        QCOMPARE(keyOf(PersonTwins::ofMobile(u"09121234567"_s, first)), 0);
    }
};

static const RegisteredTest<TestCarTwins, KApplication> registeredCarTwins;
#include "TestCarTwins.moc"
