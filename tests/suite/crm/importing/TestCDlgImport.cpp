// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/CDlgImport.h"
#include "suite/accounting/importing/ImportCheckPage.h"
#include "suite/accounting/importing/ImportColumnsPage.h"
#include "suite/accounting/importing/ImportFilePage.h"
#include "suite/accounting/importing/ImportSample.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/crm/importing/CrmImports.h"
#include "suite/crm/importing/PersonImport.h"
#include "suite/crm/persons/CDlgPersons.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString wayBack = u"\nاگر نادرست بود، «ورود از فایل» را باز کنید و با «ورودهای پیشین» آن را یکجا برگردانید."_s;

}

// The window of an import, from the file to what was written.
class TestCDlgImport : public QObject
{
    Q_OBJECT

    Office m_office;
    QTemporaryDir m_folder;

    QString file(const QString &csv, const QString &name = u"persons.csv"_s)
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("no file");
        file.write(csv.toUtf8());
        return file.fileName();
    }
    QString persons() { return m_office.db.value(u"SELECT GROUP_CONCAT(sName2 ORDER BY iID SEPARATOR '/') FROM Persons"_s); }
    static QStringList lines(const CDlgImport &window)
    {
        QStringList lines;
        const KExtListCtrl *list = window.checkPage()->list();
        for (int row = 0; row < list->count(); ++row)
            lines.append(list->cellText(row, 0) + u' ' + list->cellText(row, 1));
        return lines;
    }

private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setLayoutDirection(Qt::RightToLeft);
        CrmImports::enter();
    }
    void init()
    {
        m_office.reset();
        for (const QString &table : {u"ImportedFiles"_s, u"ImportMappings"_s})
            m_office.db.run(u"DELETE FROM "_s + table);
        g_pDlgWarning->takeShown();
        g_pDlgMessage->answerAll(true);
        g_pDlgMessage->takeShown();
        g_pDlgYesNo->takeShown();
    }

    void threeSteps()
    {
        CDlgImport window(PersonImport::kindId());
        window.show();
        QVERIFY(!window.OnOK());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا فایل را انتخاب نمایید."_s});
        QVERIFY(window.openFile(file(u"گزارش\n\nنام,فامیل,معرف\nعلی,رضایی,x\nزهرا,احمدی,y\n"_s)));
        QCOMPARE(window.filePage()->titleRow(), 2);
        QVERIFY(!window.OnOK());
        QCOMPARE(window.step(), CDlgImport::Columns);
        QCOMPARE(window.columnsPage()->columns(), (ImportMapping::Columns{{u"sName"_s, 0}, {u"sFamily"_s, 1}}));
        // By hand: the column leaves the field that it was in.
        window.columnsPage()->choice(u"sFatherName"_s)->setCurrentIndex(2);
        QCOMPARE(window.columnsPage()->columns(), (ImportMapping::Columns{{u"sName"_s, 0}, {u"sFatherName"_s, 1}}));
        window.columnsPage()->choice(u"sFamily"_s)->setCurrentIndex(2);
        QVERIFY(!window.OnOK());
        QCOMPARE(window.step(), CDlgImport::Check);
        QCOMPARE(lines(window), (QStringList{u"4 وارد می‌شود"_s, u"5 وارد می‌شود"_s}));
        QVERIFY(window.OnOK());
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"2 ردیف وارد شد."_s + wayBack});
        QCOMPARE(persons(), u"علی رضایی/زهرا احمدی"_s);
    }

    void aBadRowKeepsTheWholeFileOut()
    {
        CDlgImport window(PersonImport::kindId());
        QVERIFY(window.openFile(file(u"نام,موبایل\nعلی,09121234567\nزهرا,12\n"_s)));
        window.OnOK();
        window.OnOK();
        QCOMPARE(lines(window), QStringList{u"3 خطا"_s});
        QVERIFY(!window.OnOK());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(persons(), QString());
        // Mended and read again.
        QVERIFY(window.openFile(file(u"نام,موبایل\nعلی,09121234567\nزهرا,09121234568\n"_s)));
        window.OnOK();
        window.OnOK();
        QVERIFY(window.OnOK());
        QCOMPARE(persons(), u"علی/زهرا"_s);
    }

    void twinsAreLeftOutOrTaken()
    {
        Office::addPerson(u"علی"_s, {}, [](CTblPersons &person) { person.m_sMobile = u"09121234567"_s; });
        const QString path = file(u"نام,موبایل\nیک,09121234567\nدو,09121234567\nسه,\n"_s);
        CDlgImport window(PersonImport::kindId());
        QVERIFY(window.openFile(path));
        window.OnOK();
        window.OnOK();
        QCOMPARE(lines(window), (QStringList{u"2 تکراری، کنار می‌ماند"_s, u"3 تکراری، کنار می‌ماند"_s}));
        window.checkPage()->list()->selectKey(3);
        QTest::keyClick(window.checkPage()->list(), Qt::Key_Space);
        QCOMPARE(lines(window), (QStringList{u"2 تکراری، کنار می‌ماند"_s, u"3 تکراری، وارد می‌شود"_s}));
        QVERIFY(window.OnOK());
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"2 ردیف وارد شد.\n1 سطر تکراری کنار گذاشته شد."_s + wayBack});
        QCOMPARE(persons(), u"علی/دو/سه"_s);
    }

    void theSameFileIsAskedAbout()
    {
        const QString path = file(u"نام\nعلی\n"_s);
        for (int round = 0; round < 2; ++round) {
            CDlgImport window(PersonImport::kindId());
            QVERIFY(window.openFile(path));
            window.OnOK();
            window.OnOK();
            g_pDlgYesNo->answerNext(KMessageDialog::No);
            QCOMPARE(window.OnOK(), round == 0);
            QCOMPARE(g_pDlgYesNo->takeShown().size(), round);
            if (round == 0)
                g_pDlgYesNo->answerAll(false); // drops the answer that nobody asked for
            g_pDlgYesNo->answerAll(true);
        }
        QCOMPARE(persons(), u"علی"_s);
    }

    void columnsAreRemembered()
    {
        const QString path = file(u"ستون یک,ستون دو\nعلی,رضایی\n"_s);
        {
            CDlgImport window(PersonImport::kindId());
            window.show();
            QVERIFY(window.openFile(path));
            window.OnOK();
            QVERIFY(window.columnsPage()->columns().isEmpty());
            QVERIFY(!window.OnOK());
            QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
            window.columnsPage()->choice(u"sName"_s)->setCurrentIndex(1);
            window.columnsPage()->choice(u"sFamily"_s)->setCurrentIndex(2);
            auto *keep = Hand::named<QPushButton>(&window, u"ذخیره ستون‌ها"_s);
            QVERIFY(keep);
            keep->click();
            QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا نام ستون‌ها را وارد نمایید."_s});
            window.columnsPage()->keepEdit()->setText(u"فایل همکار"_s);
            keep->click();
            keep->click(); // twice is once
        }
        QCOMPARE(m_office.db.value(u"SELECT COUNT(*) FROM ImportMappings"_s), u"1"_s);
        CDlgImport window(PersonImport::kindId());
        QVERIFY(window.openFile(path));
        window.OnOK();
        QCOMPARE(window.columnsPage()->columns(), (ImportMapping::Columns{{u"sName"_s, 0}, {u"sFamily"_s, 1}}));
    }

    void whatIsNoFile_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("says");
        QTest::newRow("nothing") << QByteArray() << u"در این فایل چیزی نیست."_s;
        QTest::newRow("a picture") << QByteArray("\x89PNG\r\n\x1a\n\0\0", 10) << u"صفحه گسترده (xlsx) یا متن (csv) نیست"_s;
        QTest::newRow("an old spreadsheet") << QByteArray("\xD0\xCF\x11\xE0\xA1\xB1", 6) << u"xls"_s;
        QTest::newRow("a broken one") << QByteArray("PK\x03\x04 broken") << u"آسیب دیده"_s;
    }
    void whatIsNoFile()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, says);
        QFile bad(m_folder.filePath(u"bad.xlsx"_s));
        QVERIFY(bad.open(QIODevice::WriteOnly));
        bad.write(content);
        bad.close();
        CDlgImport window(PersonImport::kindId());
        QVERIFY(!window.openFile(bad.fileName()));
        const QStringList shown = g_pDlgWarning->takeShown();
        QCOMPARE(shown.size(), 1);
        QVERIFY2(shown.constFirst().contains(says), qPrintable(shown.constFirst()));
        QVERIFY(!window.openFile(m_folder.path()));
        QVERIFY(!window.openFile(m_folder.filePath(u"gone"_s)));
        QCOMPARE(g_pDlgWarning->takeShown().size(), 2);
    }

    void theExampleAndTheListComeBack()
    {
        const PersonImport kind;
        const QString path = m_folder.filePath(u"sample.xlsx"_s);
        QVERIFY(ImportSample::write(kind, path));
        QVERIFY(!ImportSample::write(kind, m_folder.filePath(u"no/folder.xlsx"_s)));
        CDlgImport window(PersonImport::kindId());
        QVERIFY(window.openFile(path));
        window.OnOK();
        QCOMPARE(window.columnsPage()->columns().size(), kind.fields().size());
        window.OnOK();
        QVERIFY(window.OnOK());
        QCOMPARE(persons(), u"علی رضایی"_s);

        CDlgPersons page;
        page.open();
        ListReport report(u"Persons"_s, u"List"_s);
        report.setTable(u"Table"_s, page.list());
        report.buildStandard(u"اشخاص"_s);
        const QString list = m_folder.filePath(u"list.xlsx"_s);
        QVERIFY(CDlgReportGenerator::saveSpreadsheet(report, list, nullptr));
        const QString columns = u"SELECT CONCAT_WS('|',iCode,sName2,sFatherName,sNationalCode,sMobile,sTel,iKind,iStatus) FROM Persons"_s;
        const QString before = m_office.db.value(columns);
        m_office.db.run(u"DELETE FROM Persons"_s);
        QVERIFY(window.openFile(list));
        window.OnOK();
        window.OnOK();
        QVERIFY(window.OnOK());
        QCOMPARE(m_office.db.value(columns), before);
    }

    void onlyWhoMayAdd()
    {
        m_office.loginClerk();
        QVERIFY(!CDlgImport::run(PersonImport::kindId(), nullptr));
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        m_office.loginAdmin();
    }
};

static const RegisteredTest<TestCDlgImport, QApplication> registeredImport;
#include "TestCDlgImport.moc"
