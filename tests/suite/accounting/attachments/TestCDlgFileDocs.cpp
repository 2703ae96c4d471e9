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
    m_office.database.run(QStringLiteral("DELETE FROM FileDocs"));
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
    QCOMPARE(page(CTblFileDocs::General)->title(), QStringLiteral("پرونده های عمومی"));
    QCOMPARE(page(CTblFileDocs::Personal)->title(), QStringLiteral("پرونده های شخصی"));
}

void TestCDlgFileDocs::addedFileStandsInTheListAndIsSelected()
{
    const auto general = page();
    QVERIFY(general->addFile(write(QStringLiteral("سند.txt"), "متن")));
    auto *list = general->findChild<KExtListCtrl *>();
    QCOMPARE(list->count(), 1);
    QVERIFY(list->currentKey() > 0);
    QCOMPARE(list->cellText(0, 1), QStringLiteral("سند.txt"));
    QCOMPARE(list->cellText(0, 3), QStringLiteral("admin"));
    QCOMPARE(page(CTblFileDocs::Personal)->findChild<KExtListCtrl *>()->count(), 0);
}

void TestCDlgFileDocs::fileTooLargeIsRefusedWithOneMessage()
{
    const auto general = page();
    QVERIFY(!general->addFile(write(QStringLiteral("large"), QByteArray(CTblFileDocs::maxFileBytes + 1, 'x'))));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(general->findChild<KExtListCtrl *>()->count(), 0);
    QVERIFY(!QApplication::overrideCursor());
}

void TestCDlgFileDocs::savedFileIsTheStoredOne()
{
    const auto general = page();
    general->addFile(write(QStringLiteral("a.bin"), QByteArray("\0\1\2", 3)));
    const QString target = m_folder.filePath(QStringLiteral("b.bin"));
    QVERIFY(general->saveFileAs(general->findChild<KExtListCtrl *>()->currentKey(), target));
    QFile saved(target);
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QCOMPARE(saved.readAll(), QByteArray("\0\1\2", 3));
}

void TestCDlgFileDocs::savingWhereNothingCanBeWrittenTellsSo()
{
    const auto general = page();
    general->addFile(write(QStringLiteral("a.bin"), "x"));
    const int id = general->findChild<KExtListCtrl *>()->currentKey();
    QVERIFY(!general->saveFileAs(id, m_folder.filePath(QStringLiteral("missing/b.bin"))));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
}

void TestCDlgFileDocs::openedCopyIsPrivateReadOnlyAndComplete()
{
    const auto general = page();
    general->addFile(write(QStringLiteral("قولنامه.txt"), "text"));
    const int id = general->findChild<KExtListCtrl *>()->currentKey();
    for (int times = 0; times < 2; ++times) {
        const QString path = general->openFile(id);
        QCOMPARE(QFileInfo(path).fileName(), QStringLiteral("قولنامه.txt"));
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
    for (const char *name : {"a.exe", "a.EXE", "invoice.pdf.bat", "a.desktop", "a.sh", "a.lnk"})
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
    general->addFile(write(QStringLiteral("a.txt"), "x"));
    auto *list = general->findChild<KExtListCtrl *>();
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    FormDriver::click(general.get(), QStringLiteral("حذف"));
    QCOMPARE(list->count(), 1);
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    FormDriver::click(general.get(), QStringLiteral("حذف"));
    QCOMPARE(list->count(), 0);
    QCOMPARE(g_pDlgYesNo->takeShown().size(), 2);
    QCOMPARE(m_office.database.value(QStringLiteral("SELECT COUNT(*) FROM FileDocs")), QStringLiteral("0"));
}

void TestCDlgFileDocs::readOnlyPageChangesNothing()
{
    const auto general = page();
    general->addFile(write(QStringLiteral("a.txt"), "x"));
    general->setReadOnly(true);
    const int id = general->findChild<KExtListCtrl *>()->currentKey();
    QVERIFY(!FormDriver::button(general.get(), QStringLiteral("افزودن"))->isVisible());
    QVERIFY(!FormDriver::button(general.get(), QStringLiteral("حذف"))->isVisible());
    QVERIFY(!general->deleteFile(id));
    QVERIFY(!general->addFile(write(QStringLiteral("b.txt"), "x")));
    QVERIFY(general->saveFileAs(id, m_folder.filePath(QStringLiteral("c.txt"))));
}

void TestCDlgFileDocs::closedDatabaseAddsNothing()
{
    const auto general = page();
    GetDBSetting()->SetClosedDB(true);
    QVERIFY(!general->addFile(write(QStringLiteral("a.txt"), "x")));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
}

void TestCDlgFileDocs::buttonsFollowTheSelection()
{
    const auto general = page();
    for (const QString &caption : {QStringLiteral("باز کردن"), QStringLiteral("ذخیره در"), QStringLiteral("حذف")})
        QVERIFY(!FormDriver::button(general.get(), caption)->isEnabled());
    general->addFile(write(QStringLiteral("a.txt"), "x"));
    for (const QString &caption : {QStringLiteral("باز کردن"), QStringLiteral("ذخیره در"), QStringLiteral("حذف")})
        QVERIFY(FormDriver::button(general.get(), caption)->isEnabled());
}

void TestCDlgFileDocs::everyInputHasItsName()
{
    QVERIFY(FormDriver::everyInputHasAName(page().get()));
}

static const RegisteredTest<TestCDlgFileDocs, QApplication> registered;
#include "TestCDlgFileDocs.moc"
