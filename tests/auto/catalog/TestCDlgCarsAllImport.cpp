// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CDlgCarsAll.h"

#include "auto/catalog/CatalogImportDialogs.h"
#include "auto/catalog/CatalogPanel.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestCDlgCarsAllImport : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    QTemporaryDir m_folder;

    QString write(const QByteArray &data)
    {
        const QString path = m_folder.filePath(u"list.tsv"_s);
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(data) == data.size() ? path : QString();
    }
    QString counts()
    {
        return m_office->database().value(u"SELECT CONCAT_WS(',',(SELECT COUNT(*) FROM CarBrands),"
                                          "(SELECT COUNT(*) FROM CarModels),(SELECT COUNT(*) FROM CarClasses))"_s);
    }
    static void choose(const QString &path)
    {
        TestOffice::whenModal("QFileDialog", [path](QWidget *window) {
            auto *dialog = static_cast<QFileDialog *>(window);
            if (path.isEmpty()) {
                dialog->reject();
                return;
            }
            // As it is typed: the window reads its folder in a thread of its own.
            dialog->findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(path);
            static_cast<QDialog *>(dialog)->accept();
        });
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init() { m_office->clear(); }

    void theStartingSetLiesBesideTheModule()
    {
        QFile source(u"" TZ_STARTING_SET ""_s);
        QFile beside(u"" TZ_MODULE_FOLDER "/CarCatalog/car_catalog.tsv"_s);
        QVERIFY(source.open(QIODevice::ReadOnly));
        QVERIFY(beside.open(QIODevice::ReadOnly));
        QCOMPARE(beside.readAll(), source.readAll());
        QVERIFY(CatalogImportDialogs::startingSetFolder().endsWith(u"/CarCatalog"_s));
    }

    void theCatalogStartsEmptyAndIsNotFilledByItself()
    {
        CDlgCarsAll dialog;
        dialog.show();
        QCOMPARE(counts(), u"0,0,0"_s);
    }

    void theButtonAsksForTheFileAndForLeaveAndShowsWhatWasAdded()
    {
        m_office->addBrand(u"Kia"_s);
        CDlgCarsAll dialog;
        dialog.show();
        choose(write("# set\nKia\tRio\tEX\nVolvo\tXC60\nVolvo\n"));
        dialog.importButton()->click();
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{u"در این فایل 1 نوع خودرو، 2 مدل و 1 تیپ تازه هست. به فهرست اضافه شوند؟"_s});
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"1 نوع خودرو، 2 مدل و 1 تیپ اضافه شد."_s});
        QCOMPARE(counts(), u"2,2,1"_s);
        QVERIFY(dialog.isChanged());
        const KExtListCtrl *brands = dialog.panel(CatalogLevel::Brand)->list();
        QCOMPARE(brands->count(), 2);
        QCOMPARE(brands->cellText(brands->currentRow(), 1), u"Kia"_s);
        QCOMPARE(dialog.panel(CatalogLevel::Model)->list()->count(), 1);
    }

    void aRefusalAddsNothing()
    {
        CDlgCarsAll dialog;
        dialog.show();
        choose(write("Volvo\tXC60\n"));
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        dialog.importButton()->click();
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QCOMPARE(counts(), u"0,0,0"_s);
        QVERIFY(!dialog.isChanged());
    }

    void noFileChosenIsNoQuestion()
    {
        CDlgCarsAll dialog;
        dialog.show();
        choose({});
        dialog.importButton()->click();
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QVERIFY(!dialog.isChanged());
    }

    void aSecondImportAddsNothing()
    {
        QVERIFY(CatalogImportDialogs::importFile(u"" TZ_STARTING_SET ""_s, nullptr));
        const QString before = counts();
        g_pDlgYesNo->takeShown();
        g_pDlgMessage->takeShown();
        QVERIFY(!CatalogImportDialogs::importFile(u"" TZ_STARTING_SET ""_s, nullptr));
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QCOMPARE(g_pDlgMessage->takeShown().size(), 1);
        QCOMPARE(counts(), before);
    }

    void aBadFileIsToldWithItsLine_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<int>("line");
        QTest::newRow("a class without a model") << QByteArray("Volvo\tXC60\nVolvo\t\tT5\n") << 2;
        QTest::newRow("no brand") << QByteArray("\n\tXC60\n") << 2;
        QTest::newRow("four columns") << QByteArray("a\tb\tc\td\n") << 1;
        QTest::newRow("a long name") << QByteArray("a\nb\n" + QByteArray(51, 'x')) << 3;
        QTest::newRow("no text") << QByteArray("a\nb\n\xFF\xFE\n") << 3;
        QTest::newRow("too many lines") << QByteArray(20000, '\n') + QByteArray("a") << 20001;
        QTest::newRow("empty") << QByteArray() << 0;
        QTest::newRow("too large") << QByteArray(1024 * 1024 + 1, 'a') << 0;
    }

    void aBadFileIsToldWithItsLine()
    {
        QFETCH(QByteArray, data);
        QFETCH(int, line);
        QVERIFY(!CatalogImportDialogs::importFile(write(data), nullptr));
        const QStringList told = g_pDlgWarning->takeShown();
        QCOMPARE(told.size(), 1);
        QCOMPARE(told.first().contains(u"سطر : "_s), line > 0);
        if (line > 0)
            QVERIFY2(told.first().endsWith(u"سطر : %1"_s.arg(line)), qPrintable(told.first()));
        QCOMPARE(counts(), u"0,0,0"_s);
    }

    void whatIsNoFileIsRefused_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("a folder") << m_folder.path();
        QTest::newRow("not there") << m_folder.filePath(u"none.tsv"_s);
        QTest::newRow("a device") << u"/dev/zero"_s;
    }

    void whatIsNoFileIsRefused()
    {
        QFETCH(QString, path);
        QVERIFY(!CatalogImportDialogs::importFile(path, nullptr));
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }

    void withoutTheRightToAddNoFileIsAskedFor()
    {
        m_office->logInAs(u"looker"_s, u"CarsAll"_s, KSecurity::Access);
        CDlgCarsAll dialog;
        dialog.show();
        dialog.importButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"CarsAll"_s, KSecurity::Write)});
    }
};

static const RegisteredTest<TestCDlgCarsAllImport, KApplication> registeredCDlgCarsAllImport;
#include "TestCDlgCarsAllImport.moc"
