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
    setSettingsFile(path(QStringLiteral("settings.ini")));
}

void TestKSettings::nothingStoredGivesTheDefault()
{
    const QString section = QStringLiteral("AutomobilContracts");
    QCOMPARE(ReadSetting(section, QStringLiteral("Sort"), QStringLiteral("iCode")), QStringLiteral("iCode"));
    QCOMPARE(ReadSetting(section, QStringLiteral("iMaxRows"), 1000), 1000);
    QCOMPARE(ReadSetting(section, QStringLiteral("state"), QByteArray("x")), QByteArray("x"));
}

void TestKSettings::texts_data()
{
    QTest::addColumn<QString>("value");
    for (const QString &value :
         {QStringLiteral("iCode DESC"), QString(QLatin1String("")), QStringLiteral("نام کاربری"),
          QStringLiteral("a, b; c"), QStringLiteral("@Invalid()"), QStringLiteral("\\\\server\\share"),
          QStringLiteral("two\nlines"), QStringLiteral(" blank "), QStringLiteral("50%"), QStringLiteral("\"quoted\""),
          QStringLiteral("12")})
        QTest::newRow(qPrintable(value.isEmpty() ? QStringLiteral("empty") : value)) << value;
}

void TestKSettings::texts()
{
    QFETCH(QString, value);
    WriteSetting(QStringLiteral("Section"), QStringLiteral("Key"), value);
    setSettingsFile(path(QStringLiteral("settings.ini")));
    QCOMPARE(ReadSetting(QStringLiteral("Section"), QStringLiteral("Key"), QStringLiteral("default")), value);
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
    WriteSetting(QStringLiteral("Section"), QStringLiteral("Key"), value);
    QCOMPARE(ReadSetting(QStringLiteral("Section"), QStringLiteral("Key"), 5), value);
    setSettingsFile(path(QStringLiteral("settings.ini")));
    QCOMPARE(ReadSetting(QStringLiteral("Section"), QStringLiteral("Key"), 5), value);
}

void TestKSettings::state()
{
    const QByteArray value("\0\xff,=\n@\"state", 12);
    WriteSetting(QStringLiteral("Window"), QStringLiteral("state"), value);
    setSettingsFile(path(QStringLiteral("settings.ini")));
    QCOMPARE(ReadSetting(QStringLiteral("Window"), QStringLiteral("state"), QByteArray()), value);
}

void TestKSettings::backslashesPartLevels()
{
    const QString key = QStringLiteral("sWidths");
    WriteSetting(QStringLiteral("AutomobilContracts\\List"), key, QStringLiteral("40,80"));
    WriteSetting(QStringLiteral("AutomobilContracts"), key, QStringLiteral("other"));
    WriteSetting(QStringLiteral("AutomobilDemands\\List"), key, QStringLiteral("third"));
    setSettingsFile(path(QStringLiteral("settings.ini")));
    QCOMPARE(ReadSetting(QStringLiteral("AutomobilContracts\\List"), key, QString()), QStringLiteral("40,80"));
    QCOMPARE(ReadSetting(QStringLiteral("AutomobilContracts"), QStringLiteral("List\\sWidths"), QString()),
             QStringLiteral("40,80"));
    QCOMPARE(ReadSetting(QStringLiteral("AutomobilContracts"), key, QString()), QStringLiteral("other"));
    QCOMPARE(ReadSetting(QStringLiteral("AutomobilDemands\\List"), key, QString()), QStringLiteral("third"));
}

void TestKSettings::otherKindGivesTheDefault()
{
    const QString section = QStringLiteral("Section");
    WriteSetting(section, QStringLiteral("text"), QStringLiteral("abc"));
    QCOMPARE(ReadSetting(section, QStringLiteral("text"), 7), 7);
    QCOMPARE(ReadSetting(section, QStringLiteral("text"), QByteArray("d")), QByteArray("d"));
    WriteSetting(section, QStringLiteral("state"), QByteArray("\x01\x02"));
    QCOMPARE(ReadSetting(section, QStringLiteral("state"), QStringLiteral("d")), QStringLiteral("d"));
    WriteSetting(section, QStringLiteral("number"), 12);
    QCOMPARE(ReadSetting(section, QStringLiteral("number"), QStringLiteral("d")), QStringLiteral("12"));
}

void TestKSettings::whatIsWrittenSurvivesReopening()
{
    WriteSetting(QStringLiteral("A"), QStringLiteral("one"), 1);
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("one=1"));
}

void TestKSettings::twoFilesKeepApart()
{
    WriteSetting(QStringLiteral("A"), QStringLiteral("key"), 1);
    setSettingsFile(path(QStringLiteral("other.ini")));
    QCOMPARE(ReadSetting(QStringLiteral("A"), QStringLiteral("key"), 9), 9);
    WriteSetting(QStringLiteral("A"), QStringLiteral("key"), 2);
    setSettingsFile(path(QStringLiteral("settings.ini")));
    QCOMPARE(ReadSetting(QStringLiteral("A"), QStringLiteral("key"), 9), 1);
}

void TestKSettings::missingFoldersAreMade()
{
    const QString deep = path(QStringLiteral("not/yet/there.ini"));
    setSettingsFile(deep);
    WriteSetting(QStringLiteral("A"), QStringLiteral("key"), 3);
    QVERIFY(QFileInfo::exists(deep));
}

void TestKSettings::anEmptyPathIsTheUsersOwnFile()
{
    QStandardPaths::setTestModeEnabled(true);
    setSettingsFile(QString());
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    QVERIFY(settingsFile().startsWith(folder));
}

static const RegisteredTest<TestKSettings, QCoreApplication> registered;
#include "TestKSettings.moc"
