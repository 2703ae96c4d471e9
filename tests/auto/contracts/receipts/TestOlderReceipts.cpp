// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/OlderReceipts.h"

#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using OlderReceipts::Claim;
using OlderReceipts::Receipt;

const QString commission = u"بابت کمسیون قرارداد شماره 12"_s;
const QString instalment = u"بابت قسط شماره 3 قرارداد شماره 12"_s;
constexpr int seller = 1;
constexpr int buyer = 2;

const QList<Claim> &known()
{
    static const QList<Claim> claims{{commission, seller, 50, 0, 1, 0, {}},
                                     {commission, buyer, 50, 0, 2, 0, {}},
                                     {instalment, buyer, 50, 7, 2, 112, {}}};
    return claims;
}

// "receipt:contract/payment/side" of each link.
QString text(const QList<OlderReceipts::Link> &links)
{
    QStringList lines;
    for (const OlderReceipts::Link &link : links)
        lines.append(u"%1:%2/%3/%4"_s.arg(link.receiptID).arg(link.claim.contractID).arg(link.claim.paymentID).arg(link.claim.side));
    return lines.join(u' ');
}

}

class TestOlderReceipts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void receiptIsLinkedWhereNothingIsInDoubt_data()
    {
        QTest::addColumn<int>("person");
        QTest::addColumn<double>("amount");
        QTest::addColumn<QString>("desc");
        QTest::addColumn<QString>("links");
        QTest::newRow("commission of the seller") << seller << 500. << commission << u"9:50/0/1"_s;
        QTest::newRow("commission of the buyer") << buyer << 20. << commission << u"9:50/0/2"_s;
        QTest::newRow("an instalment") << buyer << 112. << instalment << u"9:50/7/2"_s;
        QTest::newRow("an instalment of another amount") << buyer << 100. << instalment << QString();
        QTest::newRow("an instalment by the seller") << seller << 112. << instalment << QString();
        QTest::newRow("of somebody else") << 3 << 500. << commission << QString();
        QTest::newRow("a blank more") << seller << 500. << commission + u' ' << QString();
        QTest::newRow("another number") << seller << 500. << commission + u'3' << QString();
        QTest::newRow("another text") << seller << 500. << u"علی الحساب"_s << QString();
        QTest::newRow("no text") << seller << 500. << QString() << QString();
    }

    void receiptIsLinkedWhereNothingIsInDoubt()
    {
        QFETCH(int, person);
        QFETCH(double, amount);
        QFETCH(QString, desc);
        QTEST(text(OlderReceipts::links({{9, person, amount, desc}}, known())), "links");
    }

    void contractsOfOneNumberAreInDoubt()
    {
        QList<Claim> claims = known();
        claims.append({commission, seller, 51, 0, 1, 0, {}});
        QCOMPARE(text(OlderReceipts::links({{9, seller, 500, commission}, {10, buyer, 500, commission}}, claims)), u"10:50/0/2"_s);
    }

    void personWhoIsBothSidesIsInDoubt()
    {
        const QList<Claim> claims{{commission, seller, 50, 0, 1, 0, {}}, {commission, seller, 50, 0, 2, 0, {}}};
        QCOMPARE(text(OlderReceipts::links({{9, seller, 500, commission}}, claims)), QString());
    }

    void commissionIsReceivedInPartsAndAnInstalmentIsNot()
    {
        QCOMPARE(text(OlderReceipts::links({{9, seller, 500, commission}, {10, seller, 300, commission}}, known())), u"9:50/0/1 10:50/0/1"_s);
        QCOMPARE(text(OlderReceipts::links({{9, buyer, 112, instalment}, {10, buyer, 112, instalment}}, known())), QString());
    }

    void nothingIsNothing() { QVERIFY(OlderReceipts::links({}, {}).isEmpty()); }
};

static const RegisteredTest<TestOlderReceipts, QCoreApplication> registeredOlderReceipts;
#include "TestOlderReceipts.moc"
