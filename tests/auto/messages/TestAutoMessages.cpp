// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/messages/AutoMessages.h"

#include "auto/cars/demands/editor/CDlgMatchingDemands.h"
#include "auto/cars/matching/CDlgMatches.h"
#include "auto/cars/register/editor/CDlgMatchingCars.h"
#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/contracts/instalments/CDlgCalcPayment.h"
#include "auto/contracts/overdue/CDlgOverdueInstalments.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/messages/CDlgMessageToPerson.h"
#include "suite/crm/messages/MessageFilling.h"
#include "suite/crm/messages/MessageKinds.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/db/connection/KConnection.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/auto/contracts/PlannedContract.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

// What the module's messages say of its records, who may write them, and where they are opened.
class TestAutoMessages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        AutoMessages::enter();
        m_office = std::make_unique<TestOffice>();
    }
    void cleanupTestCase() { m_office.reset(); }
    void init();
    void suppliedTextsNameKnownFields();
    void everyFieldIsFilledByItsKind();
    void instalmentSaysWhatIsOpen();
    void buyerTypedByHandIsWrittenTo();
    void noteIsAFollowUpOfTheInstalment();
    void noteOnAPlanThatWasReplacedIsRefused();
    void contractIsForBothParties();
    void foundCarIsForTheDemand();
    void noteOnADeletedDemandIsRefused();
    void whoMayNotAddIsOfferedNoNote();
    void recordsThatAreGoneAreLeftOut();
    void brokenAtCommitIsNotedOnce_data();
    void brokenAtCommitIsNotedOnce();
    void opensFromEachList_data();
    void opensFromEachList();

private:
    static QList<PersonMessage> read(const QString &kind, const MessageAbout &about) { return MessageKinds::read(*MessageKinds::of(kind), {about}); }
    static QString filled(const QString &kind, const PersonMessage &message) { return MessageFilling::filled(MessageKinds::of(kind)->suppliedText, message.values); }
    QString value(const QString &query) { return m_office->database().value(query); }
    PlannedContract plan()
    {
        return PlannedContract(*m_office, false, [](CTblAutomobilContracts &contract) {
            contract.m_sAutomobilName = u"پژو 206"_s;
            contract.m_sMobile2 = u"09351112233"_s;
        });
    }
    MessageAbout demandAndCar();

    std::unique_ptr<TestOffice> m_office;
};

void TestAutoMessages::init()
{
    m_office->clear();
    m_office->logInAsAdmin();
    for (const char *table : {"FollowUps", "AutomobilPayments", "MessageTexts"})
        m_office->database().run(u"DELETE FROM "_s + QLatin1String(table));
    g_pDlgWarning->takeShown();
    g_pDlgMessage->takeShown();
}

MessageAbout TestAutoMessages::demandAndCar()
{
    const int brand = m_office->addBrand(u"پژو"_s);
    const int model = m_office->addModel(brand, u"206"_s);
    const int car = m_office->addCar([=](CTblAutomobilInformations &row) {
        row.m_iAutomobilType = brand;
        row.m_iModel = model;
        row.m_iYear = 1400;
        row.m_dAmount = 850'000'000;
    });
    const int person = m_office->addPerson(u"مینا"_s, u"کریمی"_s, [](CTblPersons &row) {
        row.m_iSex = CTblPersons::sexWoman;
        row.m_sMobile = u"09121234567"_s;
    });
    const int demand = m_office->addDemand([=](CTblAutomobilDemands &row) {
        row.m_iPersonID = person;
        row.m_iAutomobilType = brand;
    });
    return {demand, car};
}

void TestAutoMessages::suppliedTextsNameKnownFields()
{
    QCOMPARE(MessageKinds::all().size(), 3);
    for (const MessageKind *kind : MessageKinds::all()) {
        QVERIFY2(MessageFilling::wrong(kind->suppliedText, kind->fieldNames()).isEmpty(), qPrintable(kind->id));
        QCOMPARE(kind->fieldNames().removeDuplicates(), 0);
    }
}

// A field that the kind offers and does not know would stay in the text as it was typed.
void TestAutoMessages::everyFieldIsFilledByItsKind()
{
    const PlannedContract contract = plan();
    const QHash<QString, MessageAbout> about{{u"instalment"_s, {contract.row(1).id}}, {u"contract"_s, {contract.key}}, {u"carFound"_s, demandAndCar()}};
    for (const MessageKind *kind : MessageKinds::all()) {
        const QList<PersonMessage> messages = read(kind->id, about.value(kind->id));
        QVERIFY2(!messages.isEmpty(), qPrintable(kind->id));
        for (const QString &field : kind->fieldNames())
            QVERIFY2(messages.constFirst().values.contains(field), qPrintable(kind->id + u' ' + field));
        const MessageAbout sample = kind->sample(0);
        QVERIFY2(!read(kind->id, sample).isEmpty(), qPrintable(kind->id));
    }
}

void TestAutoMessages::instalmentSaysWhatIsOpen()
{
    const PlannedContract contract = plan();
    contract.receive(1, 12);
    const int first = contract.row(1).id;
    const int second = contract.row(2).id;
    m_office->database().run(u"UPDATE AutomobilPayments SET date=DATE(NOW())-INTERVAL 5 DAY WHERE iID=%1"_s.arg(first));
    m_office->database().run(u"UPDATE AutomobilPayments SET date=DATE(NOW())+INTERVAL 5 DAY WHERE iID=%1"_s.arg(second));
    const QList<PersonMessage> late = read(u"instalment"_s, {first});
    QCOMPARE(late.size(), 1);
    QCOMPARE(late.constFirst().person, u"مریم کریمی"_s);
    QCOMPARE(late.constFirst().numbers, QStringList{u"09351112233"_s});
    QVERIFY(late.constFirst().values.value(u"مبلغ"_s).startsWith(u"100"_s));
    QVERIFY(late.constFirst().values.value(u"مبلغ قسط"_s).startsWith(u"112"_s));
    QCOMPARE(late.constFirst().values.value(u"روز دیرکرد"_s), u"5"_s);
    const QString text = filled(u"instalment"_s, late.constFirst());
    QVERIFY2(text.contains(u"(پژو ۲۰۶) به مبلغ ۱۰۰ "_s) && text.contains(u"۵ روز از آن گذشته"_s), qPrintable(text));
    const QString soon = filled(u"instalment"_s, read(u"instalment"_s, {second}).constFirst());
    QVERIFY2(soon.contains(u"۱۱۲"_s) && !soon.contains(u"گذشته"_s) && !soon.contains(u'[') && !soon.contains(u'{'), qPrintable(soon));
}

void TestAutoMessages::buyerTypedByHandIsWrittenTo()
{
    const PlannedContract contract = plan();
    m_office->database().run(u"UPDATE AutomobilPayments SET iPersonID=0"_s);
    const PersonMessage message = read(u"instalment"_s, {contract.row(1).id}).constFirst();
    QCOMPARE(message.person, u"مریم کریمی"_s);
    QCOMPARE(message.values.value(u"نام"_s), u"مریم کریمی"_s);
    QCOMPARE(message.numbers, QStringList{u"09351112233"_s});
}

void TestAutoMessages::noteIsAFollowUpOfTheInstalment()
{
    const PlannedContract contract = plan();
    const int payment = contract.row(3).id;
    read(u"instalment"_s, {payment}).constFirst().note(u"پیام فرستاده شد"_s);
    QCOMPARE(value(u"SELECT GROUP_CONCAT(CONCAT_WS('|',iTable,iRecordID,iPaymentID,iKind,sNote)) FROM FollowUps"_s), u"69|%1|%2|0|پیام فرستاده شد"_s.arg(contract.key).arg(payment));
}

void TestAutoMessages::noteOnAPlanThatWasReplacedIsRefused()
{
    const PlannedContract contract = plan();
    const PersonMessage message = read(u"instalment"_s, {contract.row(1).id}).constFirst();
    m_office->database().run(u"DELETE FROM AutomobilPayments"_s);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, message.note(u"پیام"_s));
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps"_s), u"0"_s);
}

void TestAutoMessages::contractIsForBothParties()
{
    const PlannedContract contract = plan();
    const QList<PersonMessage> messages = read(u"contract"_s, {contract.key});
    QCOMPARE(messages.size(), 2);
    QCOMPARE(messages.at(0).person, u"مریم کریمی"_s);
    QCOMPARE(messages.at(0).values.value(u"طرف دیگر"_s), u"رضا احمدی"_s);
    QCOMPARE(messages.at(1).person, u"رضا احمدی"_s);
    QCOMPARE(messages.at(1).numbers, QStringList());
    QVERIFY(filled(u"contract"_s, messages.at(0)).contains(u"(پژو ۲۰۶) آماده است"_s));
    messages.at(1).note(u"پیام"_s);
    QCOMPARE(value(u"SELECT CONCAT_WS('|',iTable,iRecordID,iKind) FROM FollowUps"_s), u"69|%1|1"_s.arg(contract.key));
    // A party without a name has nobody to be written to.
    m_office->database().run(u"UPDATE AutomobilContracts SET iPersonFirstID=0,sName1=''"_s);
    QCOMPARE(read(u"contract"_s, {contract.key}).size(), 1);
}

void TestAutoMessages::foundCarIsForTheDemand()
{
    const MessageAbout about = demandAndCar();
    const QList<PersonMessage> messages = read(u"carFound"_s, about);
    QCOMPARE(messages.size(), 1);
    QCOMPARE(messages.constFirst().numbers, QStringList{u"09121234567"_s});
    const QString text = filled(u"carFound"_s, messages.constFirst());
    QVERIFY2(text.startsWith(u"خانم مینا کریمی"_s) && text.contains(u"پژو ۲۰۶، سال ۱۴۰۰، قیمت ۸۵۰,۰۰۰,۰۰۰ "_s), qPrintable(text));
    messages.constFirst().note(u"پیام"_s);
    QCOMPARE(value(u"SELECT CONCAT_WS('|',iTable,iRecordID,iKind) FROM FollowUps"_s), u"70|%1|1"_s.arg(about.key));
    m_office->database().run(u"UPDATE AutomobilInformations SET bSold=1"_s);
    QVERIFY(read(u"carFound"_s, about).constFirst().about.contains(u"فروخته شده"_s));
}

void TestAutoMessages::noteOnADeletedDemandIsRefused()
{
    const MessageAbout about = demandAndCar();
    const PersonMessage message = read(u"carFound"_s, about).constFirst();
    m_office->database().run(u"DELETE FROM AutomobilDemands"_s);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, message.note(u"پیام"_s));
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps"_s), u"0"_s);
}

void TestAutoMessages::whoMayNotAddIsOfferedNoNote()
{
    const PlannedContract contract = plan();
    const int user = m_office->logInAs(u"reader"_s, u"AutomobilPayments"_s, KSecurity::Access | KSecurity::Read);
    const PersonMessage message = read(u"instalment"_s, {contract.row(1).id}).constFirst();
    QVERIFY(!message.note);
    QCOMPARE(message.numbers, QStringList());
    KSecurity::setRights(user, u"AutomobilPayments"_s, KSecurity::Access | KSecurity::Read | KSecurity::Write);
    QVERIFY(static_cast<bool>(read(u"instalment"_s, {contract.row(1).id}).constFirst().note));
    // A right that is gone when the note is written.
    const PersonMessage held = read(u"instalment"_s, {contract.row(1).id}).constFirst();
    KSecurity::setRights(user, u"AutomobilPayments"_s, KSecurity::Access | KSecurity::Read);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, held.note(u"پیام"_s));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, read(u"contract"_s, {contract.key}));
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps"_s), u"0"_s);
}

void TestAutoMessages::recordsThatAreGoneAreLeftOut()
{
    for (const MessageKind *kind : MessageKinds::all()) {
        QCOMPARE(read(kind->id, {987654, 987654}).size(), 0);
        QCOMPARE(kind->sample(0).key, 0);
    }
}

void TestAutoMessages::brokenAtCommitIsNotedOnce_data()
{
    QTest::addColumn<FaultProxy::Fault>("fault");
    QTest::addColumn<bool>("reachable"); // afterwards
    QTest::addColumn<int>("afterFirst");
    QTest::newRow("before the server had it") << FaultProxy::Fault::CutBeforeCommit << true << 0;
    QTest::newRow("after the server had it") << FaultProxy::Fault::CutAfterCommit << true << 1;
    QTest::newRow("before, and no server answers") << FaultProxy::Fault::CutBeforeCommit << false << 0;
    QTest::newRow("after, and no server answers") << FaultProxy::Fault::CutAfterCommit << false << 1;
}

// However the line breaks while the follow-up is saved, and however often it is pressed then, there is one.
void TestAutoMessages::brokenAtCommitIsNotedOnce()
{
    QFETCH(FaultProxy::Fault, fault);
    QFETCH(bool, reachable);
    QFETCH(int, afterFirst);
    const PlannedContract contract = plan();
    CDlgMessageToPerson window(*MessageKinds::of(u"instalment"_s), read(u"instalment"_s, {contract.row(1).id}));
    window.show();
    window.copy();
    FaultProxy proxy(m_office->database().settings());
    KConnection::configure(0, proxy.settings());
    proxy.failAtCommit(fault, reachable);
    window.noteFollowUp();
    KConnection::configure(0, m_office->database().settings());
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps"_s).toInt(), afterFirst);
    window.noteFollowUp();
    window.noteFollowUp();
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps"_s), u"1"_s);
    QVERIFY(window.statusText().contains(u"نوشته شد"_s));
}

void TestAutoMessages::opensFromEachList_data()
{
    QTest::addColumn<QString>("list");
    for (const char *list : {"overdue", "plan", "contracts", "cars for a demand", "demands for a car"})
        QTest::newRow(list) << QString::fromLatin1(list);
}

void TestAutoMessages::opensFromEachList()
{
    QFETCH(QString, list);
    const PlannedContract contract = plan();
    const MessageAbout pair = demandAndCar();
    QString text;
    Hand::inNextWindow([&text](QDialog *dialog) {
        auto *window = qobject_cast<CDlgMessageToPerson *>(dialog);
        QVERIFY(window);
        text = window->text()->text();
    });
    if (list == u"overdue") {
        CDlgOverdueInstalments page;
        page.filters().set(u"span", 0);
        page.show();
        page.list()->selectRow(0);
        QTest::keyClick(page.list(), Qt::Key_Down, Qt::ShiftModifier);
        QVERIFY(page.runCommand(u"message"));
        QVERIFY2(text.contains(u"مریم کریمی"_s) && text.contains(u"قسط ۱"_s), qPrintable(text));
    } else if (list == u"plan") {
        CDlgCalcPayment window(contract.key, contract.buyer, 0);
        window.show();
        window.list()->selectRow(1);
        window.button(u"متن پیام"_s)->click();
        QVERIFY2(text.contains(u"قسط ۲"_s), qPrintable(text));
    } else if (list == u"contracts") {
        CDlgAutomobilContracts page;
        page.show();
        page.list()->selectRow(0);
        QVERIFY(page.runCommand(u"message"));
        QVERIFY2(text.contains(u"آماده است"_s), qPrintable(text));
    } else {
        CDlgMatches window(list == u"cars for a demand" ? CDlgMatchingCars::table(pair.key) : CDlgMatchingDemands::table(pair.other));
        QVERIFY(window.load());
        window.show();
        window.writeMessages();
        QVERIFY2(text.startsWith(u"خانم مینا کریمی"_s), qPrintable(text));
    }
}

static const RegisteredTest<TestAutoMessages, QApplication> registeredAutoMessages;

#include "TestAutoMessages.moc"
