// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CatalogImport.h"

#include "suite/utility/values/TextStandard.h"
#include "tests/support/RegisteredTest.h"

#include <QFile>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace CatalogImport;

namespace {

QStringList shown(const QVector<Entry> &entries)
{
    QStringList lines;
    for (const Entry &entry : entries)
        lines << entry.brand + u'|' + entry.model + u'|' + entry.carClass;
    return lines;
}

QStringList shown(const QVector<NewEntry> &entries)
{
    QStringList lines;
    for (const NewEntry &entry : entries)
        lines << u"%1 k%2 n%3"_s.arg(entry.name).arg(entry.parentKey).arg(entry.newParent);
    return lines;
}

Entry entry(const char *brand, const char *model = "", const char *carClass = "")
{
    return {QString::fromUtf8(brand), QString::fromUtf8(model), QString::fromUtf8(carClass)};
}

// What a catalog holds after the plan was carried out, with keys from 1 on each level.
Known carriedOut(const Plan &plan)
{
    Known known;
    const auto fill = [](QVector<KnownEntry> *level, const QVector<NewEntry> &entries) {
        for (const NewEntry &added : entries)
            level->append({static_cast<int>(level->size()) + 1, added.newParent + 1, added.name});
    };
    fill(&known.brands, plan.brands);
    fill(&known.models, plan.models);
    fill(&known.classes, plan.classes);
    return known;
}

QByteArray startingSet()
{
    QFile file(u"" TZ_STARTING_SET ""_s);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}

class TestCatalogImport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reads_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<QStringList>("entries");
        const auto row = [](const char *name, const QByteArray &data, const QStringList &entries) {
            QTest::newRow(name) << data << entries;
        };
        row("a brand alone", "Pride\n", {u"Pride||"_s});
        row("brand and model", "Pride\t131", {u"Pride|131|"_s});
        row("brand, model and class", "Pride\t131\tSE\n", {u"Pride|131|SE"_s});
        row("comments and empty lines are passed over", "# one\n\n  \t \nPride\n#two\n", {u"Pride||"_s});
        row("line ends of another system", "Pride\t131\r\nSaina\r\n", {u"Pride|131|"_s, u"Saina||"_s});
        row("a mark at the start of the file", "\xEF\xBB\xBFPride\n", {u"Pride||"_s});
        row("tabs at the end of a line", "Pride\t131\t\t\t\n", {u"Pride|131|"_s});
        row("blanks around a name", "  Pride \t 1  31 \n", {u"Pride|1 31|"_s});
        row("Arabic letters and Persian digits", u"كيا\t۲۰۶\n"_s.toUtf8(), {u"کیا|206|"_s});
        row("the longest name", QByteArray(50, 'a'), {QString(50, u'a') + u"||"_s});
    }

    void reads()
    {
        QFETCH(QByteArray, data);
        const Parsed parsed = parse(data);
        QCOMPARE(parsed.trouble, Trouble::None);
        QTEST(shown(parsed.entries), "entries");
    }

    void refuses_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<int>("trouble");
        QTest::addColumn<int>("line");
        const auto row = [](const char *name, const QByteArray &data, Trouble trouble, int line) {
            QTest::newRow(name) << data << static_cast<int>(trouble) << line;
        };
        row("an empty file", "", Trouble::NoEntries, 0);
        row("nothing but comments", "# one\n# two\n", Trouble::NoEntries, 0);
        row("a file above the bound", QByteArray(maxBytes + 1, 'a'), Trouble::TooLarge, 0);
        row("too many lines", QByteArray(maxLines, '\n') + "Pride", Trouble::TooManyLines, maxLines + 1);
        row("four columns", "Pride\nPride\t131\tSE\tx\n", Trouble::TooManyColumns, 2);
        row("no brand", "# one\nPride\n\t131\n", Trouble::BrandMissing, 3);
        row("a class without a model", "Pride\t\tSE\n", Trouble::ModelMissing, 1);
        row("a name too long", "Pride\nPride\t" + QByteArray(51, 'a'), Trouble::NameTooLong, 2);
        row("not UTF-8", "Pride\n\xC7\xE6\n", Trouble::NotText, 2);
        row("a picture", QByteArray::fromHex("89504e470d0a1a0a0000000d49484452"), Trouble::NotText, 1);
        row("a text in UTF-16", QByteArray::fromHex("fffe5000720069006400"), Trouble::NotText, 1);
        row("a zero byte", QByteArray("Pri\0de", 6), Trouble::NotText, 1);
        row("a character that the tables have no place for", "Pride \xF0\x9F\x9A\x97\n", Trouble::NotText, 1);
    }

    void refuses()
    {
        QFETCH(QByteArray, data);
        const Parsed parsed = parse(data);
        QTEST(static_cast<int>(parsed.trouble), "trouble");
        QTEST(parsed.line, "line");
        QVERIFY(parsed.entries.isEmpty());
    }

    void planOfAnEmptyCatalogIsEverythingOnce()
    {
        const Plan made = plan({entry("A", "1", "x"), entry("A", "1", "y"), entry("A", "2"), entry("B", "1", "x"), entry("A")}, {});
        QCOMPARE(shown(made.brands), (QStringList{u"A k0 n-1"_s, u"B k0 n-1"_s}));
        QCOMPARE(shown(made.models),
                 (QStringList{u"1 k0 n0"_s, u"2 k0 n0"_s, u"1 k0 n1"_s}));
        QCOMPARE(shown(made.classes),
                 (QStringList{u"x k0 n0"_s, u"y k0 n0"_s, u"x k0 n2"_s}));
    }

    void whatIsThereIsLeftAlone()
    {
        Known known;
        known.brands = {{4, 0, u"A"_s}};
        known.models = {{9, 4, u"1"_s}, {10, 5, u"2"_s}};
        known.classes = {{20, 9, u"x"_s}};
        const Plan made = plan({entry("A", "1", "x"), entry("A", "1", "y"), entry("A", "2", "x")}, known);
        QVERIFY(made.brands.isEmpty());
        // The "2" that is there belongs to another brand.
        QCOMPARE(shown(made.models), QStringList{u"2 k4 n-1"_s});
        QCOMPARE(shown(made.classes), (QStringList{u"y k9 n-1"_s, u"x k0 n0"_s}));
    }

    void namesMeetAsAReaderTakesThem_data()
    {
        QTest::addColumn<QString>("known");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("same");
        QTest::newRow("letter by letter") << "پژو"
                                          << "پژو" << true;
        QTest::newRow("Arabic letters") << "كيا"
                                        << "کیا" << true;
        QTest::newRow("Persian digits") << "۲۰۶"
                                        << "206" << true;
        QTest::newRow("a blank or a joiner") << "ایران‌خودرو"
                                             << "ایران خودرو" << true;
        QTest::newRow("upper case") << "mvm"
                                    << "MVM" << true;
        QTest::newRow("accents, as the unique index of brands takes them") << "Citroën"
                                                                           << "Citroen" << true;
        QTest::newRow("alef with madda") << "آریا"
                                         << "اریا" << true;
        QTest::newRow("another name") << "پژو"
                                      << "پژ" << false;
        QTest::newRow("another number") << "206"
                                        << "207" << false;
    }

    void namesMeetAsAReaderTakesThem()
    {
        QFETCH(QString, known);
        QFETCH(QString, name);
        QFETCH(bool, same);
        Known catalog;
        catalog.brands = {{1, 0, known}};
        QCOMPARE(plan({{name, {}, {}}}, catalog).isEmpty(), same);
        catalog.brands = {{1, 0, u"A"_s}};
        catalog.models = {{2, 1, known}};
        QCOMPARE(plan({{u"A"_s, name, {}}}, catalog).isEmpty(), same);
    }

    void ofTwoThatAreThereTheFirstKnownCounts()
    {
        Known known;
        known.brands = {{4, 0, u"A"_s}};
        known.models = {{9, 4, u"1"_s}, {8, 4, u"1"_s}};
        QCOMPARE(shown(plan({entry("A", "1", "x")}, known).classes), QStringList{u"x k9 n-1"_s});
    }

    void aSecondImportAddsNothing()
    {
        const QVector<Entry> entries = parse(startingSet()).entries;
        const Plan first = plan(entries, {});
        QVERIFY(!first.isEmpty());
        QVERIFY(plan(entries, carriedOut(first)).isEmpty());
    }

    void startingSetIsReadAndWellMade()
    {
        const Parsed parsed = parse(startingSet());
        QCOMPARE(parsed.trouble, Trouble::None);
        const Plan made = plan(parsed.entries, {});
        QVERIFY(made.brands.size() >= 30);
        QVERIFY(made.models.size() >= 200);
        QVERIFY(made.classes.size() >= 100);
        // Each line brings one entry of its own: none is written twice, in whatever spelling.
        QSet<QString> lines;
        for (const Entry &line : parsed.entries)
            lines.insert(line.brand + u'/' + line.model + u'/' + line.carClass);
        QCOMPARE(lines.size(), parsed.entries.size());
        QCOMPARE(made.models.size() + made.classes.size(), parsed.entries.size());
        // As it is written, so it is stored.
        for (const QString &line : QString::fromUtf8(startingSet()).split(u'\n', Qt::SkipEmptyParts)) {
            if (line.startsWith(u'#'))
                continue;
            for (const QString &name : line.split(u'\t'))
                QCOMPARE(ConvertToStandard(name), name);
        }
    }
};

static const RegisteredTest<TestCatalogImport> registeredCatalogImport;
#include "TestCatalogImport.moc"
