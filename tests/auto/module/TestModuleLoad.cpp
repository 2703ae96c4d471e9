// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/CAutoDBSetting.h"
#include "suite/accounting/frame/KExtensionModules.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/KModuleLoader.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

// The module as the host meets it: nothing of it is linked here.
class TestModuleLoad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void goodLoadEntersTheModuleOnce();
    void entryGivesTheSameAddressOnEveryCall();
    void entryWorksThroughItsAddressAlone();
    void unloadTakesTheModuleOff();
    void moduleCanBeLoadedAgain();
    void initialisationThatFailsMakesTheLoadFail();
    void libraryThatIsNoModuleIsRefused();
    void missingFileIsRefused();
    void moduleThatLacksAFunctionIsRefused();
    void secondModuleOfTheSameNameIsRefused();
    void afterAFailedLoadTheHostGoesOn();
    void nothingButTheEntryIsExported();
};

namespace {

const QString modulePath = u"" TZ_MODULE ""_s;
const QString moduleName = u"TzAuto"_s;

CAutoDBSetting *entryOf(KModuleLoader &loader)
{
    using Entry = CAutoDBSetting *(*)();
    const auto entry = reinterpret_cast<Entry>(loader.resolve("GetAutoDBSetting"));
    return entry ? entry() : nullptr;
}

}

void TestModuleLoad::cleanup()
{
    QVERIFY(KExtensionModules::names().isEmpty());
}

void TestModuleLoad::goodLoadEntersTheModuleOnce()
{
    KModuleLoader loader(moduleName);
    QVERIFY(!loader.isLoaded());
    QVERIFY2(loader.load(modulePath), qPrintable(loader.errorText() + loader.technicalText()));
    QVERIFY(loader.isLoaded());
    QVERIFY(loader.errorText().isEmpty());
    QCOMPARE(KExtensionModules::names(), QStringList(moduleName));
    QVERIFY(loader.load(modulePath));
    QCOMPARE(KExtensionModules::names(), QStringList(moduleName));
    QVERIFY(loader.unload());
}

void TestModuleLoad::entryGivesTheSameAddressOnEveryCall()
{
    KModuleLoader loader(moduleName);
    QVERIFY(loader.load(modulePath));
    CAutoDBSetting *const first = entryOf(loader);
    QVERIFY(first);
    QCOMPARE(entryOf(loader), first);
    QVERIFY(loader.resolve("GetAnythingElse") == nullptr);
    QVERIFY(loader.unload());
}

void TestModuleLoad::entryWorksThroughItsAddressAlone()
{
    TestDatabase database;
    KModuleLoader loader(moduleName);
    QVERIFY(loader.load(modulePath));
    CAutoDBSetting *const entry = entryOf(loader);
    QVERIFY(entry);
    entry->Archives();
    double reached = 0;
    QCOMPARE(entry->UpdateDB(0, 0, reached, true), 1);
    QCOMPARE(reached, 6.211);
    QCOMPARE(database.value(u"SELECT COUNT(*) FROM information_schema.TABLES WHERE TABLE_SCHEMA=DATABASE()"_s),
             u"9"_s);
    QVERIFY(loader.unload());
}

void TestModuleLoad::unloadTakesTheModuleOff()
{
    KModuleLoader loader(moduleName);
    QVERIFY(!loader.unload());
    QVERIFY(loader.load(modulePath));
    QVERIFY(KExtensionModules::isAttached(moduleName));
    QVERIFY(loader.unload());
    QVERIFY(!loader.isLoaded());
    QVERIFY(!KExtensionModules::isAttached(moduleName));
    QVERIFY(loader.resolve("GetAutoDBSetting") == nullptr);
}

void TestModuleLoad::moduleCanBeLoadedAgain()
{
    KModuleLoader loader(moduleName);
    for (int round = 0; round < 3; ++round) {
        QVERIFY(loader.load(modulePath));
        QVERIFY(entryOf(loader));
        QVERIFY(loader.unload());
        QVERIFY(!KExtensionModules::isAttached(moduleName));
    }
}

void TestModuleLoad::initialisationThatFailsMakesTheLoadFail()
{
    KModuleLoader loader(u"Outdated"_s);
    QVERIFY(!loader.load(u"" TZ_OUTDATED_MODULE ""_s));
    QVERIFY(!loader.isLoaded());
    QVERIFY(loader.errorText().contains(u"Outdated"_s));
    QVERIFY(loader.errorText().contains(u"نسخه"_s));
    QVERIFY(loader.resolve("isAttached") == nullptr);
}

void TestModuleLoad::libraryThatIsNoModuleIsRefused()
{
    KModuleLoader loader(u"Silent"_s);
    QVERIFY(!loader.load(u"" TZ_SILENT_MODULE ""_s));
    QVERIFY(!loader.errorText().isEmpty());
    QVERIFY(loader.resolve("silent") == nullptr);
}

void TestModuleLoad::missingFileIsRefused()
{
    KModuleLoader loader(moduleName);
    QVERIFY(!loader.load(u"/nowhere/libTzAuto.so"_s));
    QVERIFY(loader.errorText().contains(moduleName));
    QVERIFY(!loader.technicalText().isEmpty());
}

void TestModuleLoad::moduleThatLacksAFunctionIsRefused()
{
    KModuleLoader loader(u"Unresolved"_s);
    QVERIFY(!loader.load(u"" TZ_UNRESOLVED_MODULE ""_s));
    QVERIFY(loader.technicalText().contains(QLatin1String("functionOfALibraryThatIsNotThere")));
}

void TestModuleLoad::secondModuleOfTheSameNameIsRefused()
{
    QVERIFY(KExtensionModules::attach(u"Twice"_s, KExtensionModules::frameworkVersion));
    QVERIFY(!KExtensionModules::attach(u"Twice"_s, KExtensionModules::frameworkVersion));
    QVERIFY(KExtensionModules::refusal().contains(u"Twice"_s));
    QVERIFY(!KExtensionModules::attach(QString(), KExtensionModules::frameworkVersion));
    KExtensionModules::detach(u"NotThere"_s);
    QCOMPARE(KExtensionModules::names(), QStringList(u"Twice"_s));
    KExtensionModules::detach(u"Twice"_s);
}

void TestModuleLoad::afterAFailedLoadTheHostGoesOn()
{
    KModuleLoader outdated(u"Outdated"_s);
    QVERIFY(!outdated.load(u"" TZ_OUTDATED_MODULE ""_s));
    KModuleLoader loader(moduleName);
    QVERIFY2(loader.load(modulePath), qPrintable(loader.errorText()));
    QVERIFY(entryOf(loader));
    QVERIFY(loader.unload());
}

void TestModuleLoad::nothingButTheEntryIsExported()
{
    QProcess nm;
    nm.start(u"" TZ_NM ""_s, {u"-D"_s, u"-C"_s, u"--defined-only"_s, u"--format=posix"_s, modulePath});
    QVERIFY(nm.waitForFinished());
    QCOMPARE(nm.exitCode(), 0);
    const QString output = QString::fromUtf8(nm.readAllStandardOutput());
    QStringList names = output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString &name : names)
        name = name.left(name.lastIndexOf(QRegularExpression(u" [A-Za-z] [0-9a-f]+"_s)));

    QVERIFY(names.removeOne(u"GetAutoDBSetting"_s));
    for (const char *operation : {"IsAClosedDB()", "UpdateDB(int, double, double&, bool)", "ShowAutomobilInformationsDlg()",
                                  "ShowAutomobilContractDlg()", "ShowAutomobilDemandsDlg()",
                                  "ShowAutomobilReportSeasonsDlg()", "Archives()"})
        QVERIFY2(names.contains(QLatin1String("CAutoDBSetting::") + QLatin1String(operation)), operation);
    for (const QString &name : std::as_const(names)) {
        static const QRegularExpression own(u"^(CAutoDBSetting::|(vtable|typeinfo|typeinfo name) for CAutoDBSetting$)"_s);
        QVERIFY2(own.match(name).hasMatch(), qPrintable(name));
    }
}

static const RegisteredTest<TestModuleLoad, QCoreApplication> registeredModuleLoad;
#include "TestModuleLoad.moc"
