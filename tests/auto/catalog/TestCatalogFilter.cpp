// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CatalogFilter.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

class TestCatalogFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entries_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<int>("parent");
        QTest::addColumn<QString>("namePart");
        QTest::addColumn<QString>("filter");
        const auto row = [](const char *name, CatalogLevel level, int parent, const char *namePart, const char *filter) {
            QTest::newRow(name) << static_cast<int>(level) << parent << QString::fromUtf8(namePart) << QString::fromUtf8(filter);
        };
        row("brands, nothing typed", CatalogLevel::Brand, 0, "", "");
        row("brands, a part of a name", CatalogLevel::Brand, 0, "Pe", " sName LIKE '%Pe%'");
        row("brands have no parent", CatalogLevel::Brand, 7, "", "");
        row("models of a brand", CatalogLevel::Model, 12, "", "iClassID=12");
        row("models, a part of a name", CatalogLevel::Model, 12, "GLX", "iClassID=12 AND sName LIKE '%GLX%'");
        row("classes of a model", CatalogLevel::Class, 5, "", "iBrandID=5");
        row("classes, a part of a name", CatalogLevel::Class, 5, "LX", "iBrandID=5 AND sName LIKE '%LX%'");
        row("what is typed is no format", CatalogLevel::Model, 3, "%d%s", R"(iClassID=3 AND sName LIKE '%\\%d\\%s%')");
        row("what is typed stands for itself", CatalogLevel::Brand, 0, "a'b\\%_", R"( sName LIKE '%a\'b\\\\\\%\\_%')");
    }

    void entries()
    {
        QFETCH(int, level);
        QFETCH(int, parent);
        QFETCH(QString, namePart);
        QTEST(CatalogFilter::entries(static_cast<CatalogLevel>(level), parent, namePart).text(), "filter");
    }

    void sameName_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("parent");
        QTest::addColumn<QString>("filter");
        QTest::newRow("new") << 0 << 4 << "sName='206' AND iID=4";
        QTest::newRow("edited") << 9 << 4 << "iID<>9 AND sName='206' AND iID=4";
        QTest::newRow("no parent") << 0 << 0 << "sName='206' AND iID=0";
    }

    void sameName()
    {
        QFETCH(int, key);
        QFETCH(int, parent);
        QTEST(CatalogFilter::sameName(key, QString::fromLatin1("206"), parent).text(), "filter");
    }
};

static const RegisteredTest<TestCatalogFilter> registeredCatalogFilter;
#include "TestCatalogFilter.moc"
