// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/CDlgFileDocs.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/accounting/FormDriver.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

using namespace Qt::StringLiterals;

class TestCDlgFileDocs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void titlesOfThePages();
    void addedFileStandsInTheListAndIsSelected();
    void fileTooLargeIsRefusedWithOneMessage();
    void savedFileIsTheStoredOne();
    void savingWhereNothingCanBeWrittenTellsSo();
    void openedCopyIsPrivateReadOnlyAndComplete();
    void programIsNotOpened_data();
    void programIsNotOpened();
    void deleteAsksFirst();
    void readOnlyPageChangesNothing();
    void closedDatabaseAddsNothing();
    void buttonsFollowTheSelection();
    void everyInputHasItsName();

private:
    QString write(const QString &name, const QByteArray &data);
    std::unique_ptr<CDlgFileDocs> page(CTblFileDocs::Scope scope = CTblFileDocs::General);

    TestOffice m_office;
    QTemporaryDir m_folder;
};

void TestCDlgFileDocs::initTestCase()
{
    // Nothing on the tester's desktop is to be started.
    qputenv("PATH", "/nonexistent");
}

void TestCDlgFileDocs::init()
{
    GetDBSetting()->SetClosedDB(false);
    m_office.database.run(u"DELETE FROM FileDocs"_s);
    g_pDlgWarning->takeShown();
    g_pDlgYesNo->takeShown();
}

QString TestCDlgFileDocs::write(const QString &name, const QByteArray &data)
{
    const QString path = m_folder.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
        return {};
    return path;
}

std::unique_ptr<CDlgFileDocs> TestCDlgFileDocs::page(CTblFileDocs::Scope scope)
{
    auto made = std::make_unique<CDlgFileDocs>(scope);
    made->bind(69, 1);
    made->show();
    return made;
}

void TestCDlgFileDocs::titlesOfThePages()
{
    QCOMPARE(page(CTblFileDocs::General)->title(), u"پرونده های عمومی"_s);
    QCOMPARE(page(CTblFileDocs::Personal)->title(), u"پرونده های شخصی"_s);
}

void TestCDlgFileDocs::addedFileStandsInTheListAndIsSelected()
{
    const auto general = page();
    QVERIFY(general->addFile(write(u"سند.txt"_s, "متن")));
    auto *list = general->findChild<KExtListCtrl *>();
    QCOMPARE(list->count(), 1);
    QVERIFY(list->currentKey() > 0);
    QCOMPARE(list->cellText(0, 1), u"سند.txt"_s);
    QCOMPARE(list->cellText(0, 3), u"admin"_s);
    QCOMPARE(page(CTblFileDocs::Personal)->findChild<KExtListCtrl *>()->count(), 0);
}

void TestCDlgFileDocs::fileTooLargeIsRefusedWithOneMessage()
{
    const auto general = page();
    QVERIFY(!general->addFile(write(u"large"_s, QByteArray(CTblFileDocs::maxFileBytes + 1, 'x'))));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(general->findChild<KExtListCtrl *>()->count(), 0);
    QVERIFY(!QApplication::overrideCursor());
}

void TestCDlgFileDocs::savedFileIsTheStoredOne()
{
    const auto general = page();
    general->addFile(write(u"a.bin"_s, QByteArray("\0\1\2", 3)));
    const QString target = m_folder.filePath(u"b.bin"_s);
    QVERIFY(general->saveFileAs(general->findChild<KExtListCtrl *>()->currentKey(), target));
    QFile saved(target);
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QCOMPARE(saved.readAll(), QByteArray("\0\1\2", 3));
}

void TestCDlgFileDocs::savingWhereNothingCanBeWrittenTellsSo()
{
    const auto general = page();
    general->addFile(write(u"a.bin"_s, "x"));
    const int id = general->findChild<KExtListCtrl *>()->currentKey();
    QVERIFY(!general->saveFileAs(id, m_folder.filePath(u"missing/b.bin"_s)));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
}

void TestCDlgFileDocs::openedCopyIsPrivateReadOnlyAndComplete()
{
    const auto general = page();
    general->addFile(write(u"قولنامه.txt"_s, "text"));
    const int id = general->findChild<KExtListCtrl *>()->currentKey();
    for (int times = 0; times < 2; ++times) {
        const QString path = general->openFile(id);
        QCOMPARE(QFileInfo(path).fileName(), u"قولنامه.txt"_s);
        QCOMPARE(QFile::permissions(path) & (QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther | QFile::ExeOwner),
                 QFile::Permissions());
        const QFile::Permissions folder = QFile::permissions(QFileInfo(QFileInfo(path).path()).path());
        QCOMPARE(folder & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
        QFile copy(path);
        QVERIFY(copy.open(QIODevice::ReadOnly));
        QCOMPARE(copy.readAll(), QByteArray("text"));
    }
    QVERIFY(general->openFile(id + 1).isEmpty());
}

void TestCDlgFileDocs::programIsNotOpened_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"a.exe", "a.EXE", "invoice.pdf.bat", "a.desktop", "a.sh", "a.lnk", "a.jnlp", "a.pyc", "a.docm", "a.DOTM",
                             "a.xlsm", "a.pptm", "a.xll", "a.class", "a.flatpakref", "a.url", "a.webloc", "a.service", "a.chm", "a.lua"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestCDlgFileDocs::programIsNotOpened()
{
    QFETCH(QString, name);
    const auto general = page();
    QVERIFY(general->addFile(write(name, "x")));
    QVERIFY(general->openFile(general->findChild<KExtListCtrl *>()->currentKey()).isEmpty());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
}

void TestCDlgFileDocs::deleteAsksFirst()
{
    const auto general = page();
    general->addFile(write(u"a.txt"_s, "x"));
    auto *list = general->findChild<KExtListCtrl *>();
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    FormDriver::click(general.get(), u"حذف"_s);
    QCOMPARE(list->count(), 1);
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    FormDriver::click(general.get(), u"حذف"_s);
    QCOMPARE(list->count(), 0);
    QCOMPARE(g_pDlgYesNo->takeShown().size(), 2);
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM FileDocs"_s), u"0"_s);
}

void TestCDlgFileDocs::readOnlyPageChangesNothing()
{
    const auto general = page();
    general->addFile(write(u"a.txt"_s, "x"));
    general->setReadOnly(true);
    const int id = general->findChild<KExtListCtrl *>()->currentKey();
    QVERIFY(!FormDriver::button(general.get(), u"افزودن"_s)->isVisible());
    QVERIFY(!FormDriver::button(general.get(), u"حذف"_s)->isVisible());
    QVERIFY(!general->deleteFile(id));
    QVERIFY(!general->addFile(write(u"b.txt"_s, "x")));
    QVERIFY(general->saveFileAs(id, m_folder.filePath(u"c.txt"_s)));
}

void TestCDlgFileDocs::closedDatabaseAddsNothing()
{
    const auto general = page();
    GetDBSetting()->SetClosedDB(true);
    QVERIFY(!general->addFile(write(u"a.txt"_s, "x")));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
}

void TestCDlgFileDocs::buttonsFollowTheSelection()
{
    const auto general = page();
    for (const QString &caption : {u"باز کردن"_s, u"ذخیره در"_s, u"حذف"_s})
        QVERIFY(!FormDriver::button(general.get(), caption)->isEnabled());
    general->addFile(write(u"a.txt"_s, "x"));
    for (const QString &caption : {u"باز کردن"_s, u"ذخیره در"_s, u"حذف"_s})
        QVERIFY(FormDriver::button(general.get(), caption)->isEnabled());
}

void TestCDlgFileDocs::everyInputHasItsName()
{
    QVERIFY(FormDriver::everyInputHasAName(page().get()));
}

static const RegisteredTest<TestCDlgFileDocs, QApplication> registeredCDlgFileDocs;
#include "TestCDlgFileDocs.moc"
