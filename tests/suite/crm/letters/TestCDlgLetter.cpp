// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/CDlgFileDocs.h"
#include "suite/accounting/attachments/CDlgRecordFiles.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/papers/CDlgPaper.h"
#include "suite/crm/letters/CDlgEarlierLetters.h"
#include "suite/crm/letters/CDlgLetter.h"
#include "suite/crm/letters/LetterFiling.h"
#include "suite/crm/persons/CDlgPersons.h"
#include "suite/crm/persons/PersonAddress.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/Hand.h"
#include "tests/support/PaperProof.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QItemSelectionModel>
#include <QLabel>

class TestCDlgLetter : public QObject
{
    Q_OBJECT

    Office m_office;
    QList<qint32> m_persons;

    QString value(const QString &sql) { return m_office.db.value(sql); }
    std::unique_ptr<CDlgLetter> open(const QList<qint32> &persons)
    {
        auto window = std::make_unique<CDlgLetter>(persons, &PersonAddress::read);
        window->show();
        return window;
    }
    static void enter(CDlgLetter &window, const QString &subject, const QString &body)
    {
        window.findChild<KTextArea *>()->setText(body);
        Hand::named<KEdit>(&window, u"موضوع :"_s)->setText(subject);
    }
    // Presses the window's button and acts on the paper.
    static void onPaper(CDlgLetter &window, const std::function<void(CDlgPaper &)> &act)
    {
        bool seen = false;
        Hand::inNextWindow([&](QDialog *dialog) {
            if (auto *paper = qobject_cast<CDlgPaper *>(dialog)) {
                seen = true;
                act(*paper);
            }
        });
        window.accept();
        QVERIFY(seen);
        QVERIFY(window.isVisible());
    }

private Q_SLOTS:
    void initTestCase() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    void init()
    {
        m_office.reset();
        g_pDlgMessage->answerAll(true);
        for (const char *table : {"FiledPapers", "FileDocs", "UserRights"})
            m_office.db.run(u"DELETE FROM "_s + QLatin1String(table));
        KSecurity::forgetRights();
        m_persons = {Office::addPerson(u"علی"_s, u"رضایی"_s),
                     Office::addPerson(u"مریم"_s, u"احمدی"_s, [](CTblPersons &person) { person.m_iSex = CTblPersons::sexWoman; }),
                     Office::addPerson(u"شرکت آریا"_s, {}, [](CTblPersons &person) { person.m_iKind = CTblPersons::kindLegal; })};
        g_pDlgWarning->takeShown();
        g_pDlgMessage->takeShown();
        g_pDlgYesNo->takeShown();
    }

    void eachHasASheetOfItsOwn()
    {
        const auto window = open(m_persons);
        QCOMPARE(Hand::named<QLabel>(window.get(), u"گیرنده :"_s)->text(), u"جناب آقای علی رضایی، سرکار خانم مریم احمدی، شرکت آریا"_s);
        enter(*window, u"تعطیلی"_s, u"نمایشگاه در روزهای پایان سال باز است."_s);
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"letters.pdf"_s);
        onPaper(*window, [&](CDlgPaper &paper) { paper.savePdf(path); });
        const QStringList names{u"رضایی"_s, u"احمدی"_s, u"شرکت"_s};
        for (int page = 1; page <= 3; ++page) {
            const QString text = PaperProof::textOf(path, page);
            QVERIFY2(text.contains(names.at(page - 1)) && text.contains(u"تعطیلی"_s) && text.contains(u"احترام"_s), qPrintable(text));
        }
        // What was handed out is not asked about.
        QVERIFY(!window->holdsTypedWork());
    }

    void filedWithEachPersonOnce()
    {
        const auto window = open(m_persons);
        enter(*window, u"تعطیلی"_s, u"باز است."_s);
        for (int times = 0; times < 2; ++times) {
            onPaper(*window, [](CDlgPaper &paper) {
                paper.fileSheets();
                paper.fileSheets();
            });
            QCOMPARE(value(u"SELECT CONCAT(COUNT(*),' ',COUNT(DISTINCT iRecordID)) FROM FiledPapers"_s), u"3 3"_s);
        }
        QCOMPARE(value(u"SELECT COUNT(*) FROM FileDocs WHERE oData LIKE '%PDF-1%'"_s), u"3"_s);
        QCOMPARE(g_pDlgMessage->takeShown().constFirst(), u"3 نامه با پرونده‌های شخص بایگانی شد."_s);
        // Other words are another letter.
        enter(*window, u"تعطیلی"_s, u"بسته است."_s);
        onPaper(*window, [](CDlgPaper &paper) { paper.fileSheets(); });
        QCOMPARE(value(u"SELECT COUNT(*) FROM FiledPapers"_s), u"6"_s);
    }

    // While the paper is looked at, another desk deletes one of them.
    void oneWhoIsGoneKeepsNoOtherBack()
    {
        const auto window = open(m_persons);
        enter(*window, u"تعطیلی"_s, u"باز است."_s);
        onPaper(*window, [this](CDlgPaper &paper) {
            m_office.db.run(u"DELETE FROM Persons WHERE iID=%1"_s.arg(m_persons.at(1)));
            paper.fileSheets();
            QVERIFY(!paper.isHandedOut());
        });
        QCOMPARE(value(u"SELECT COUNT(*) FROM FiledPapers"_s), u"2"_s);
        const QStringList told = g_pDlgWarning->takeShown();
        QCOMPARE(told.size(), 1);
        QVERIFY(told.constFirst().contains(u"مریم احمدی"_s));
        // Looked at again, it is left out, and the others are filed already.
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        onPaper(*window, [](CDlgPaper &paper) { paper.fileSheets(); });
        QVERIFY(g_pDlgYesNo->takeShown().constFirst().contains(u"حذف شده‌اند و نامه ندارند: مریم احمدی"_s));
        QCOMPARE(value(u"SELECT COUNT(*) FROM FiledPapers"_s), u"2"_s);
    }

    void inactiveMeanwhileIsAskedAbout()
    {
        const auto window = open({m_persons.at(0)});
        enter(*window, {}, u"باز است."_s);
        m_office.db.run(u"UPDATE Persons SET iStatus=1"_s);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        window->accept();
        QVERIFY(g_pDlgYesNo->takeShown().constFirst().contains(u"غیر فعال شده‌اند: علی رضایی"_s));
        QVERIFY(window->holdsTypedWork());
    }

    void allGoneIsToldAndTheWordsStay()
    {
        const auto window = open({m_persons.at(0)});
        enter(*window, {}, u"باز است."_s);
        m_office.db.run(u"DELETE FROM Persons"_s);
        window->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این شخص در این میان حذف شده است. متن نامه در پنجره می‌ماند."_s});
        QCOMPARE(window->letter().body, u"باز است."_s);
        QVERIFY(window->isVisible());
    }

    void wrongEntriesAreToldAtTheirFields()
    {
        const auto window = open({m_persons.at(0)});
        window->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا متن نامه را وارد نمایید."_s});
        QCOMPARE(window->focusWidget(), window->findChild<KTextArea *>());
        window->findChild<KTextArea *>()->setText(QString(Letter::longestBody + 1, u'a'));
        window->accept();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        window->findChild<KDateEdit *>()->setDate({});
        window->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا تاریخ نامه را وارد نمایید."_s});
    }

    void wordsOfAnEarlierLetter()
    {
        LetterFiling::file(PersonAddress::read({m_persons.at(1)}).constFirst(), {QDate(2026, 11, 20), u"1405/3"_s, u"بیمه"_s, u"بیمه خودرو تمام شده است."_s}, u"m"_s, "%PDF-1.6\n%%EOF\n");
        const auto window = open({m_persons.at(0)});
        QCOMPARE(Hand::named<KEdit>(window.get(), u"شماره :"_s)->text(), u"1405/4"_s);
        enter(*window, {}, u"متن من"_s);
        const CDlgEarlierLetters list(LetterFiling::newest(200));
        QVERIFY(list.chosen());
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        window->takeWords(*list.chosen());
        QCOMPARE(window->letter().body, u"متن من"_s);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        window->takeWords(*list.chosen());
        QCOMPARE(window->letter().body, u"بیمه خودرو تمام شده است."_s);
        QCOMPARE(window->letter().subject, u"بیمه"_s);
        QCOMPARE(window->letter().number, u"1405/4"_s);
    }

    void rights_data()
    {
        QTest::addColumn<int>("rights");
        QTest::addColumn<int>("missing");
        QTest::newRow("none") << int(KSecurity::Access) << int(KSecurity::Read);
        QTest::newRow("reads") << int(KSecurity::Access | KSecurity::Read) << int(KSecurity::PrintList);
    }
    void rights()
    {
        QFETCH(int, rights);
        QFETCH(int, missing);
        m_office.loginClerk();
        KSecurity::setRights(m_office.clerk(), u"Persons"_s, rights);
        KSecurity::forgetRights();
        CDlgLetter::write(m_persons, &PersonAddress::read, nullptr);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Persons"_s, static_cast<KSecurity::Right>(missing))});
    }

    void whoMayNotChangePersonsFilesNothing()
    {
        m_office.loginClerk();
        KSecurity::setRights(m_office.clerk(), u"Persons"_s, KSecurity::Access | KSecurity::Read | KSecurity::PrintList);
        KSecurity::forgetRights();
        const auto window = open({m_persons.at(0)});
        enter(*window, {}, u"باز است."_s);
        onPaper(*window, [](CDlgPaper &paper) {
            paper.fileSheets();
            QVERIFY(!paper.isHandedOut());
        });
        QCOMPARE(value(u"SELECT COUNT(*) FROM FiledPapers"_s), u"0"_s);
    }

    void listWritesToAllWhoAreMarked()
    {
        CDlgPersons page;
        page.show();
        page.list()->selectAll();
        QString to;
        Hand::inNextWindow([&](QDialog *dialog) { to = Hand::named<QLabel>(dialog, u"گیرنده :"_s)->text(); });
        page.runCommand(u"letter"_s);
        for (const QString &name : {u"جناب آقای علی رضایی"_s, u"سرکار خانم مریم احمدی"_s, u"شرکت آریا"_s})
            QVERIFY2(to.contains(name), qPrintable(to));
    }

    void listShowsThePersonsFiles()
    {
        LetterFiling::file(PersonAddress::read({m_persons.at(0)}).constFirst(), {QDate(2026, 11, 20), u"3"_s, u"بیمه"_s, u"متن"_s}, u"m"_s, "%PDF-1.6\n%%EOF\n");
        CDlgPersons page;
        page.show();
        QVERIFY(page.list()->selectKey(m_persons.at(0)));
        QString file;
        Hand::inNextWindow([&](QDialog *dialog) {
            if (auto *files = qobject_cast<CDlgRecordFiles *>(dialog))
                file = files->general()->findChild<KExtListCtrl *>()->cellText(0, 1);
        });
        page.runCommand(u"files"_s);
        QCOMPARE(file, u"نامه 3 بیمه.pdf"_s);
    }
};

static const RegisteredTest<TestCDlgLetter, QApplication> registeredCDlgLetter;
#include "TestCDlgLetter.moc"
