// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractMergeFields.h"
#include "auto/contracts/printing/TemplateCheck.h"
#include "tests/suite/utility/documents/DocxMaker.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

using D = DocxMaker;

namespace {

QByteArray fields(const QByteArray &names)
{
    QByteArray body;
    for (const QByteArray &name : names.split(' '))
        body += D::complex("MERGEFIELD " + name, "x");
    return DocxMaker(D::paragraph(body)).zip();
}

}

class TestTemplateCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void faultsAreNamed_data();
    void faultsAreNamed();
    void missingFieldsAreThoseThatTheTypeShows();
    void everyNameStandsOnce();
    void fileThatIsNoTemplateIsRefused();
};

void TestTemplateCheck::faultsAreNamed_data()
{
    QTest::addColumn<QByteArray>("names");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("unknown");
    QTest::addColumn<QString>("hidden");
    QTest::addColumn<QString>("unpaired");
    QTest::newRow("nothing to say") << QByteArray("Name Family NC N p Amount AmountWords Dealership Logo Logo_25 VIN PlanNum PlanTotal") << 0 << QString() << QString() << QString();
    QTest::newRow("a name that differs in case alone") << QByteArray("amount NAME") << 0 << QString() << QString() << QString();
    QTest::newRow("unknown") << QByteArray("Nam Amount Nam Logo_x") << 0 << u"Nam Logo_x"_s << QString() << QString();
    QTest::newRow("unknown to a mark") << QByteArray("If_Amount_Amout Amount EndIf") << 0 << u"Amout"_s << QString() << QString();
    QTest::newRow("hidden in a sale") << QByteArray("FixAmount DelayAmount DamageAmount DelayAmountWords RentTime") << 0 << QString() << u"FixAmount DelayAmount DelayAmountWords RentTime"_s << QString();
    QTest::newRow("shown in an instalment sale") << QByteArray("DelayAmount RentTime") << 2 << QString() << QString() << QString();
    QTest::newRow("hidden in an instalment sale") << QByteArray("RemainingAmount AmountRent") << 2 << QString() << u"RemainingAmount AmountRent"_s << QString();
    QTest::newRow("everything of the vehicle in a letter") << QByteArray("ChassisNum Name Deal") << 3 << QString() << u"ChassisNum"_s << QString();
    QTest::newRow("hidden, and left out by its mark") << QByteArray("If_DelayAmount DelayAmount EndIf If_FixAmount_Amount FixAmount EndIf") << 0 << QString() << u"FixAmount"_s << QString();
    QTest::newRow("a mark without its end") << QByteArray("If_Amount Amount") << 0 << QString() << QString() << u"If_Amount"_s;
    QTest::newRow("an end without its mark") << QByteArray("Amount EndIf") << 0 << QString() << QString() << u"EndIf"_s;
}

void TestTemplateCheck::faultsAreNamed()
{
    QFETCH(QByteArray, names);
    QFETCH(int, type);
    const TemplateCheck check = TemplateCheck::of(fields(names), type);
    QVERIFY2(check.isUsable(), qUtf8Printable(check.refusal));
    QTEST(check.unknown.join(u' '), "unknown");
    QTEST(check.hidden.join(u' '), "hidden");
    QTEST(check.unpaired.join(u' '), "unpaired");
    QCOMPARE(check.isClean(), check.unknown.isEmpty() && check.hidden.isEmpty() && check.unpaired.isEmpty());
}

void TestTemplateCheck::missingFieldsAreThoseThatTheTypeShows()
{
    const QStringList all = statedMergeFields();
    QCOMPARE(all.size(), 78); // of 87 in the batches nine stand twice
    const auto missing = [](const QByteArray &names, int type) { return TemplateCheck::of(fields(names), type).missing; };
    const QByteArray everything = all.join(u' ').toLatin1();
    QCOMPARE(missing(everything, 0), QStringList());
    QCOMPARE(missing("Name", 0).size(), 78 - 1 - 2); // no cash payment, no delay
    QCOMPARE(missing("Name", 2).size(), 78 - 1 - 2); // no cash payment, no rest
    QVERIFY(missing("Name", 0).contains(u"RemainingAmount"_s) && !missing("Name", 2).contains(u"RemainingAmount"_s));
    QVERIFY(!missing("Name", 3).contains(u"ChassisNum"_s) && missing("Name", 3).contains(u"sDesc"_s));
}

void TestTemplateCheck::everyNameStandsOnce()
{
    QStringList known = TemplateCheck::knownFields();
    QStringList folded;
    for (const QString &name : std::as_const(known)) {
        QVERIFY2(!folded.contains(name.toLower()), qPrintable(name));
        folded.append(name.toLower());
        QCOMPARE(int(PartMark::of(name).kind), int(PartMark::None));
        QVERIFY2(!name.contains(u'_'), qPrintable(name)); // a mark parts its names by it
    }
    QVERIFY(known.contains(u"Dealership"_s) && known.contains(u"PlanAmount"_s) && known.contains(u"Logo"_s) && known.contains(u"dateRentExpire"_s));
}

void TestTemplateCheck::fileThatIsNoTemplateIsRefused()
{
    for (const QByteArray &file : {QByteArray(), QByteArray("text"), DocxMaker().setPart("word/vbaProject.bin", "x").zip()}) {
        const TemplateCheck check = TemplateCheck::of(file, 0);
        QVERIFY(!check.isUsable() && !check.isClean());
        QVERIFY(check.missing.isEmpty());
    }
}

static const RegisteredTest<TestTemplateCheck, QCoreApplication> registeredTemplateCheck;
#include "TestTemplateCheck.moc"
