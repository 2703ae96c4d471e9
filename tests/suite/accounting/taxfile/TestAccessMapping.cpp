// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/AccessMapping.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "tests/support/RegisteredTest.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QByteArray good = R"({"tables": [
    {"role": "Foroush", "name": "جدول", "fields": [
        {"value": "guid", "name": "ID", "type": "text", "length": 38},
        {"value": "season", "name": "فصل"}]},
    {"role": "Kharid", "name": "Buy", "fields": []}]})";

}

class TestAccessMapping : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    QString written(const QByteArray &content)
    {
        const QString path = m_folder.filePath(u"TTMS.mapping.json"_s);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("not written");
        return path;
    }

private Q_SLOTS:
    void tablesAndFieldsKeepTheirOrder()
    {
        const AccessMapping mapping = AccessMapping::read(written(good));
        const AccessMapping::Table &table = mapping.table(u"Foroush"_s);
        QCOMPARE(table.name, u"جدول"_s);
        QCOMPARE(table.fields.size(), 2);
        QCOMPARE(table.fields.at(0).value, u"guid"_s);
        QCOMPARE(table.fields.at(1).name, u"فصل"_s);
        QCOMPARE(mapping.table(u"Kharid"_s).name, u"Buy"_s);
        QVERIFY_THROWS_EXCEPTION(KAccountingError, mapping.table(u"foroush"_s));
    }

    void theBuiltOneHasTheFiveTables()
    {
        const AccessMapping mapping = AccessMapping::read(u"" TZ_BUILT_MODULES "/TTMS.mapping.json"_s);
        for (const char *role : {"Moshakhasat", "Foroush", "Foroush_Detail", "Kharid", "Kharid_Detail"})
            QVERIFY(!mapping.table(QString::fromLatin1(role)).fields.isEmpty());
    }

    void whatIsWrongIsSaid_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("words");
        const QString structure = u"ساختار آن درست نیست"_s;
        QTest::newRow("empty") << QByteArray() << structure;
        QTest::newRow("no JSON") << good.chopped(1) << structure;
        QTest::newRow("larger than any mapping") << good + QByteArray(2 << 20, ' ') << structure;
        QTest::newRow("no role") << QByteArray(good).replace("\"Foroush\"", "\"\"") << u"«role»"_s;
        QTest::newRow("number for a name") << QByteArray(good).replace("\"Buy\"", "5") << u"«name»"_s;
        QTest::newRow("no name of a field") << QByteArray(good).replace("\"ID\"", "null") << u"«name»"_s;
        QTest::newRow("role twice") << QByteArray(good).replace("\"Kharid\"", "\"Foroush\"") << u"«Foroush»"_s;
        QTest::newRow("value twice") << QByteArray(good).replace("\"season\"", "\"guid\"") << u"«guid»"_s;
        QTest::newRow("field twice, in another case") << QByteArray(good).replace("فصل", "id") << u"«id»"_s;
    }

    void whatIsWrongIsSaid()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, words);
        QString message;
        try {
            AccessMapping::read(written(content));
        } catch (const KAccountingError &error) {
            message = error.userMessage();
        }
        QVERIFY2(message.contains(words) && message.contains(u"TTMS.mapping.json"_s), qPrintable(message));
    }

    void missingFileIsNamed()
    {
        QVERIFY_THROWS_EXCEPTION(KAccountingError, AccessMapping::read(m_folder.filePath(u"none.json"_s)));
    }
};

static const RegisteredTest<TestAccessMapping> registeredAccessMapping;
#include "TestAccessMapping.moc"
