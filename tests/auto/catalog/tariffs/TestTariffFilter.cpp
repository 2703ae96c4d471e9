// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/tariffs/TariffFilter.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class TestTariffFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filter_data()
    {
        QTest::addColumn<bool>("withInactive");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("filter");
        QTest::newRow("an empty name field gives no title condition") << false << QString() << u"iStatus=0"_s;
        QTest::newRow("with the choice ticked and no name, the filter is empty") << true << QString() << QString();
        QTest::newRow("a name") << false << u"deed"_s << u"iStatus=0 AND sTitle LIKE '%deed%'"_s;
        QTest::newRow("a name alone") << true << u"deed"_s << u"sTitle LIKE '%deed%'"_s;
        QTest::newRow("a percent sign is placed into the pattern as typed")
            << true << u"d%s"_s << u"sTitle LIKE '%d%s%'"_s;
        QTest::newRow("a quote is placed into the pattern as typed")
            << true << u"o'k"_s << uR"(sTitle LIKE '%o\'k%')"_s;
        QTest::newRow("%s is no place for anything") << false << u"%s"_s << u"iStatus=0 AND sTitle LIKE '%%s%'"_s;
    }

    void filter()
    {
        QFETCH(bool, withInactive);
        QFETCH(QString, name);
        QTEST(KListFilter::condition(tariffFilters(), {{u"inactive"_s, withInactive}, {u"name"_s, name}}, 0).text(), "filter");
    }
};

static const RegisteredTest<TestTariffFilter, QCoreApplication> registeredTariffFilter;
#include "TestTariffFilter.moc"
