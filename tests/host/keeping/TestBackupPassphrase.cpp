// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/keeping/BackupPassphrase.h"

#include "host/keeping/CDlgBackupPassphrase.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QDirIterator>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

// The passphrase of the backups, and the window that sets it.
class TestBackupPassphrase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { silence(false); }
    void isTaken_data();
    void isTaken();
    void strength_data();
    void strength();
    void isForTheUserAlone();
    void readableForOthersItIsNotUsed();
    void windowSetsAndRemovesIt();

private:
    DataFolder folder() const { return DataFolder(m_folder->filePath(u"office"_s)); }
    static void silence(bool on)
    {
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgYesNo})
            dialog->answerAll(on);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestBackupPassphrase::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    folder().create();
    silence(true);
}

void TestBackupPassphrase::isTaken_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("repeated");
    QTest::addColumn<bool>("taken");
    QTest::newRow("good") << "چهار واژه بی ربط"
                          << "چهار واژه بی ربط" << true;
    QTest::newRow("short") << "1234567"
                           << "1234567" << false;
    QTest::newRow("none") << ""
                          << "" << false;
    QTest::newRow("blank before") << " 12345678"
                                  << " 12345678" << false;
    QTest::newRow("typed otherwise") << "12345678"
                                     << "12345679" << false;
}

void TestBackupPassphrase::isTaken()
{
    QFETCH(QString, first);
    QFETCH(QString, repeated);
    QFETCH(bool, taken);
    QCOMPARE(BackupPassphrase::problem(first, repeated).isEmpty(), taken);
}

void TestBackupPassphrase::strength_data()
{
    QTest::addColumn<QString>("passphrase");
    QTest::addColumn<QString>("begins");
    QTest::newRow("none") << ""
                          << "";
    QTest::newRow("short") << "aB3$"
                           << "ضعیف";
    QTest::newRow("one letter") << "aaaaaaaaaaaaaaaaaaaa"
                                << "ضعیف";
    QTest::newRow("digits") << "09121234567"
                            << "ضعیف";
    QTest::newRow("mixed") << "Tehran-1405"
                           << "متوسط";
    QTest::newRow("words") << "کوه سبز پنجره هفت دریا"
                           << "قوی";
}

void TestBackupPassphrase::strength()
{
    QFETCH(QString, passphrase);
    QFETCH(QString, begins);
    const QString words = BackupPassphrase::strength(passphrase);
    QVERIFY2(begins.isEmpty() ? words.isEmpty() : words.startsWith(begins), qPrintable(words));
}

void TestBackupPassphrase::isForTheUserAlone()
{
    const BackupPassphrase passphrase(folder());
    QVERIFY(!passphrase.isSet());
    QVERIFY(passphrase.read().isEmpty());
    passphrase.store(u"کوه سبز پنجره"_s);
    QCOMPARE(passphrase.read(), u"کوه سبز پنجره"_s);
    QCOMPARE(QFile::permissions(passphrase.file()) & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
             QFile::Permissions());
    passphrase.remove();
    QVERIFY(!passphrase.isSet());
    passphrase.remove();
}

void TestBackupPassphrase::readableForOthersItIsNotUsed()
{
    const BackupPassphrase passphrase(folder());
    passphrase.store(u"کوه سبز پنجره"_s);
    QVERIFY(QFile::setPermissions(passphrase.file(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
    QVERIFY(passphrase.read().isEmpty());
}

void TestBackupPassphrase::windowSetsAndRemovesIt()
{
    const QString text = u"کوه سبز پنجره هفت"_s;
    CDlgBackupPassphrase set(folder());
    auto *first = named<KEdit>(set, u"رمز پشتیبان‌ها :"_s);
    auto *repeated = named<KEdit>(set, u"تکرار رمز :"_s);
    first->setText(text);
    QVERIFY(!FieldNote::of(first)->text().isEmpty());
    repeated->setText(u"چیز دیگر"_s);
    set.accept();
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(first->text(), text);
    QVERIFY(!BackupPassphrase(folder()).isSet());
    repeated->setText(text);
    set.accept();
    QCOMPARE(set.result(), int(QDialog::Accepted));
    QCOMPARE(BackupPassphrase(folder()).read(), text);
    // Nothing but that file holds it.
    QDirIterator files(m_folder->path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll().contains(text.toUtf8()), file.fileName() == BackupPassphrase(folder()).file());
    }

    CDlgBackupPassphrase removing(folder());
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    named<QPushButton>(removing, u"برداشتن رمز"_s)->click();
    QVERIFY(BackupPassphrase(folder()).isSet());
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    named<QPushButton>(removing, u"برداشتن رمز"_s)->click();
    QVERIFY(!BackupPassphrase(folder()).isSet());
}

static const RegisteredTest<TestBackupPassphrase, QApplication> registeredBackupPassphrase;
#include "TestBackupPassphrase.moc"
