// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/KSettings.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class TestKSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void nothingStoredGivesTheDefault();
    void texts_data();
    void texts();
    void numbers_data();
    void numbers();
    void state();
    void backslashesPartLevels();
    void otherKindGivesTheDefault();
    void whatIsWrittenSurvivesReopening();
    void twoFilesKeepApart();
    void missingFoldersAreMade();
    void anEmptyPathIsTheUsersOwnFile();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestKSettings::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    setSettingsFile(path(u"settings.ini"_s));
}

void TestKSettings::nothingStoredGivesTheDefault()
{
    const QString section = u"AutomobilContracts"_s;
    QCOMPARE(ReadSetting(section, u"Sort"_s, u"iCode"_s), u"iCode"_s);
    QCOMPARE(ReadSetting(section, u"iMaxRows"_s, 1000), 1000);
    QCOMPARE(ReadSetting(section, u"state"_s, QByteArray("x")), QByteArray("x"));
}

void TestKSettings::texts_data()
{
    QTest::addColumn<QString>("value");
    for (const QString &value :
         {u"iCode DESC"_s, QString(QLatin1String("")), u"نام کاربری"_s,
          u"a, b; c"_s, u"@Invalid()"_s, u"\\\\server\\share"_s,
          u"two\nlines"_s, u" blank "_s, u"50%"_s, u"\"quoted\""_s,
          u"12"_s})
        QTest::newRow(qPrintable(value.isEmpty() ? u"empty"_s : value)) << value;
}

void TestKSettings::texts()
{
    QFETCH(QString, value);
    WriteSetting(u"Section"_s, u"Key"_s, value);
    setSettingsFile(path(u"settings.ini"_s));
    QCOMPARE(ReadSetting(u"Section"_s, u"Key"_s, u"default"_s), value);
}

void TestKSettings::numbers_data()
{
    QTest::addColumn<int>("value");
    for (int value : {0, 1, -1, 10000, 2147483647, -2147483647 - 1})
        QTest::addRow("%d", value) << value;
}

void TestKSettings::numbers()
{
    QFETCH(int, value);
    WriteSetting(u"Section"_s, u"Key"_s, value);
    QCOMPARE(ReadSetting(u"Section"_s, u"Key"_s, 5), value);
    setSettingsFile(path(u"settings.ini"_s));
    QCOMPARE(ReadSetting(u"Section"_s, u"Key"_s, 5), value);
}

void TestKSettings::state()
{
    const QByteArray value("\0\xff,=\n@\"state", 12);
    WriteSetting(u"Window"_s, u"state"_s, value);
    setSettingsFile(path(u"settings.ini"_s));
    QCOMPARE(ReadSetting(u"Window"_s, u"state"_s, QByteArray()), value);
}

void TestKSettings::backslashesPartLevels()
{
    const QString key = u"sWidths"_s;
    WriteSetting(u"AutomobilContracts\\List"_s, key, u"40,80"_s);
    WriteSetting(u"AutomobilContracts"_s, key, u"other"_s);
    WriteSetting(u"AutomobilDemands\\List"_s, key, u"third"_s);
    setSettingsFile(path(u"settings.ini"_s));
    QCOMPARE(ReadSetting(u"AutomobilContracts\\List"_s, key, QString()), u"40,80"_s);
    QCOMPARE(ReadSetting(u"AutomobilContracts"_s, u"List\\sWidths"_s, QString()),
             u"40,80"_s);
    QCOMPARE(ReadSetting(u"AutomobilContracts"_s, key, QString()), u"other"_s);
    QCOMPARE(ReadSetting(u"AutomobilDemands\\List"_s, key, QString()), u"third"_s);
}

void TestKSettings::otherKindGivesTheDefault()
{
    const QString section = u"Section"_s;
    WriteSetting(section, u"text"_s, u"abc"_s);
    QCOMPARE(ReadSetting(section, u"text"_s, 7), 7);
    QCOMPARE(ReadSetting(section, u"text"_s, QByteArray("d")), QByteArray("d"));
    WriteSetting(section, u"state"_s, QByteArray("\x01\x02"));
    QCOMPARE(ReadSetting(section, u"state"_s, u"d"_s), u"d"_s);
    WriteSetting(section, u"number"_s, 12);
    QCOMPARE(ReadSetting(section, u"number"_s, u"d"_s), u"12"_s);
}

void TestKSettings::whatIsWrittenSurvivesReopening()
{
    WriteSetting(u"A"_s, u"one"_s, 1);
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("one=1"));
}

void TestKSettings::twoFilesKeepApart()
{
    WriteSetting(u"A"_s, u"key"_s, 1);
    setSettingsFile(path(u"other.ini"_s));
    QCOMPARE(ReadSetting(u"A"_s, u"key"_s, 9), 9);
    WriteSetting(u"A"_s, u"key"_s, 2);
    setSettingsFile(path(u"settings.ini"_s));
    QCOMPARE(ReadSetting(u"A"_s, u"key"_s, 9), 1);
}

void TestKSettings::missingFoldersAreMade()
{
    const QString deep = path(u"not/yet/there.ini"_s);
    setSettingsFile(deep);
    WriteSetting(u"A"_s, u"key"_s, 3);
    QVERIFY(QFileInfo::exists(deep));
}

void TestKSettings::anEmptyPathIsTheUsersOwnFile()
{
    QStandardPaths::setTestModeEnabled(true);
    setSettingsFile(QString());
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    QVERIFY(settingsFile().startsWith(folder));
}

static const RegisteredTest<TestKSettings, QCoreApplication> registeredKSettings;
#include "TestKSettings.moc"
