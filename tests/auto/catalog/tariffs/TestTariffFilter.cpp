// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/tariffs/TariffFilter.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

class TestTariffFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filter_data()
    {
        QTest::addColumn<bool>("withInactive");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("filter");
        QTest::newRow("an empty name field gives no title condition") << false << QString() << QStringLiteral("iStatus=0");
        QTest::newRow("with the choice ticked and no name, the filter is empty") << true << QString() << QString();
        QTest::newRow("a name") << false << QStringLiteral("سند") << QStringLiteral("iStatus=0 AND sTitle LIKE '%سند%'");
        QTest::newRow("a name alone") << true << QStringLiteral("سند") << QStringLiteral("sTitle LIKE '%سند%'");
        QTest::newRow("a percent sign is placed into the pattern as typed")
            << true << QStringLiteral("5%s") << QStringLiteral("sTitle LIKE '%5%s%'");
        QTest::newRow("a quote is placed into the pattern as typed")
            << true << QStringLiteral("o'k") << QStringLiteral("sTitle LIKE '%o'k%'");
        QTest::newRow("blanks stay") << true << QStringLiteral(" a ") << QStringLiteral("sTitle LIKE '% a %'");
        QTest::newRow("%1 is no place for anything")
            << false << QStringLiteral("%1") << QStringLiteral("iStatus=0 AND sTitle LIKE '%%1%'");
    }

    void filter()
    {
        QFETCH(bool, withInactive);
        QFETCH(QString, name);
        QTEST(tariffFilter({withInactive, name}), "filter");
    }
};

static const RegisteredTest<TestTariffFilter, QCoreApplication> registered;
#include "TestTariffFilter.moc"
