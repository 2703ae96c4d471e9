// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/AccessMapping.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "tests/support/RegisteredTest.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

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
        const QString path = m_folder.filePath(QStringLiteral("TTMS.mapping.json"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("not written");
        return path;
    }

private Q_SLOTS:
    void tablesAndFieldsKeepTheirOrder()
    {
        const AccessMapping mapping = AccessMapping::read(written(good));
        const AccessMapping::Table &table = mapping.table(QStringLiteral("Foroush"));
        QCOMPARE(table.name, QStringLiteral("جدول"));
        QCOMPARE(table.fields.size(), 2);
        QCOMPARE(table.fields.at(0).value, QStringLiteral("guid"));
        QCOMPARE(table.fields.at(1).name, QStringLiteral("فصل"));
        QCOMPARE(mapping.table(QStringLiteral("Kharid")).name, QStringLiteral("Buy"));
        QVERIFY_THROWS_EXCEPTION(KAccountingError, mapping.table(QStringLiteral("foroush")));
    }

    void theBuiltOneHasTheFiveTables()
    {
        const AccessMapping mapping = AccessMapping::read(QStringLiteral(TZ_BUILT_MODULES "/TTMS.mapping.json"));
        for (const char *role : {"Moshakhasat", "Foroush", "Foroush_Detail", "Kharid", "Kharid_Detail"})
            QVERIFY(!mapping.table(QString::fromLatin1(role)).fields.isEmpty());
    }

    void whatIsWrongIsSaid_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("words");
        const QString structure = QStringLiteral("ساختار آن درست نیست");
        QTest::newRow("empty") << QByteArray() << structure;
        QTest::newRow("no JSON") << good.chopped(1) << structure;
        QTest::newRow("larger than any mapping") << good + QByteArray(2 << 20, ' ') << structure;
        QTest::newRow("no role") << QByteArray(good).replace("\"Foroush\"", "\"\"") << QStringLiteral("«role»");
        QTest::newRow("number for a name") << QByteArray(good).replace("\"Buy\"", "5") << QStringLiteral("«name»");
        QTest::newRow("no name of a field") << QByteArray(good).replace("\"ID\"", "null") << QStringLiteral("«name»");
        QTest::newRow("role twice") << QByteArray(good).replace("\"Kharid\"", "\"Foroush\"") << QStringLiteral("«Foroush»");
        QTest::newRow("value twice") << QByteArray(good).replace("\"season\"", "\"guid\"") << QStringLiteral("«guid»");
        QTest::newRow("field twice, in another case") << QByteArray(good).replace("فصل", "id") << QStringLiteral("«id»");
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
        QVERIFY2(message.contains(words) && message.contains(QStringLiteral("TTMS.mapping.json")), qPrintable(message));
    }

    void missingFileIsNamed()
    {
        QVERIFY_THROWS_EXCEPTION(KAccountingError, AccessMapping::read(m_folder.filePath(QStringLiteral("none.json"))));
    }
};

static const RegisteredTest<TestAccessMapping> registered;
#include "TestAccessMapping.moc"
