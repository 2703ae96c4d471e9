// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/AutoModule.h"

#include "suite/accounting/frame/KExtensionModules.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestAutoModule : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QVERIFY(KExtensionModules::names().isEmpty()); }
    void moduleIsLoadedAndUnloaded();
    void missingModuleIsToldInOneSentence();
    void refusedModuleIsToldInOneSentence();
    void fileThatIsNoLibraryIsToldInOneSentence();
};

namespace {

QString libraryIn(const QTemporaryDir &folder)
{
    return folder.filePath(u"libTzAuto.so"_s);
}

}

void TestAutoModule::moduleIsLoadedAndUnloaded()
{
    AutoModule module;
    QVERIFY(!module.entry());
    QVERIFY2(module.load(u"" TZ_MODULE_DIR ""_s), qPrintable(module.errorText()));
    QVERIFY(module.entry());
    QCOMPARE(KExtensionModules::names(), QStringList{u"TzAuto"_s});
    module.unload();
    QVERIFY(!module.entry());
}

void TestAutoModule::missingModuleIsToldInOneSentence()
{
    const QTemporaryDir empty;
    AutoModule module;
    QVERIFY(!module.load(empty.path()));
    QVERIFY(!module.entry());
    QVERIFY(module.errorText().contains(u"TzAuto"_s));
}

void TestAutoModule::refusedModuleIsToldInOneSentence()
{
    const QTemporaryDir folder;
    QVERIFY(QFile::copy(u"" TZ_OUTDATED_MODULE ""_s, libraryIn(folder)));
    AutoModule module;
    QVERIFY(!module.load(folder.path()));
    QVERIFY(!module.entry());
    QVERIFY(!module.errorText().isEmpty());
}

void TestAutoModule::fileThatIsNoLibraryIsToldInOneSentence()
{
    const QTemporaryDir folder;
    QFile file(libraryIn(folder));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("words");
    file.close();
    AutoModule module;
    QVERIFY(!module.load(folder.path()));
    QVERIFY(!module.errorText().isEmpty());
}

static const RegisteredTest<TestAutoModule, QCoreApplication> registeredAutoModule;
#include "TestAutoModule.moc"
