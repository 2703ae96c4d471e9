// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/attachments/CDlgCustomFields.h"
#include "suite/accounting/attachments/CTblCustomFieldRecords.h"
#include "suite/accounting/attachments/CTblCustomFields.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/utility/frame/KTabPageButtons.h"
#include "tests/auto/contracts/editor/ContractEditorTest.h"
#include "tests/office/OtherDesk.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

// Two desks with the same contract open: nothing that one saved is undone by the other without having been asked.
class TestContractTwoDesks : public ContractEditorTest
{
    Q_OBJECT

    using Answer = CDlgRowConflict::Answer;

    int m_contract = 0;

    KEdit *line(const Dialog &dialog, const char *name) { return edit(dialog, name); }

    std::unique_ptr<OtherDesk> m_other;

    void savedThere(const std::function<void(Dialog &)> &enter)
    {
        m_other->saves([this] { return opened(m_contract); }, enter);
    }

    void deletedThere()
    {
        m_other->does([this] {
            CTblAutomobilContracts contract;
            QVERIFY(contract.IsRecordExist(u"iID"_s, m_contract));
            contract.Delete();
        });
    }

    QString stored(const char *columns) { return m_other->stored("AutomobilContracts", columns); }

    // Whether there is one document, it balances, and it charges the commission that the contract states.
    void compareBooks()
    {
        QCOMPARE(value(booksAgree(Accounts::documentKindContract)), u"1/0/0"_s);
        QCOMPARE(value(u"SELECT MAX(dBed)=(SELECT dCommission FROM AutomobilContracts) FROM Docs"_s), u"1"_s);
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        begin();
        m_office->database().run(u"DELETE FROM CustomFields"_s);
        m_other = std::make_unique<OtherDesk>(*m_office, u"AutomobilContracts"_s);
        auto first = filledNew();
        first->accept();
        m_contract = first->key();
        g_pDlgMessage->takeShown();
        g_pDlgWarning->takeShown();
    }

    // --- Merging ---

    void whatOnlyOneDeskChangedStays()
    {
        auto mine = opened(m_contract);
        savedThere([this](Dialog &there) {
            line(there, "sExplain")->setText(u"از آن سو"_s);
            there.matterPage()->form()->edit(u"sColor"_s)->setText(u"آبی"_s);
            there.activeBox()->setChecked(false);
        });
        line(*mine, "sDesc")->setText(u"از این سو"_s);
        mine->accept();
        QVERIFY(!mine->isVisible());
        QCOMPARE(stored("sExplain,sDesc,sColor,iStatus"), u"از آن سو/از این سو/آبی/1"_s);
        QVERIFY(CDlgRowConflict::takeShown().isEmpty());
    }

    void amountOfTheOtherDeskStaysAndTheDocumentIsOfIt()
    {
        auto mine = opened(m_contract);
        savedThere([this](Dialog &there) { type(there, "dAmount", "500000"); });
        line(*mine, "sExplain")->setText(u"شرح"_s);
        mine->accept();
        QVERIFY(!mine->isVisible());
        QCOMPARE(stored("dAmount,dCommission,sExplain"), u"500000/10000/شرح"_s);
        compareBooks();
    }

    void savingWithoutAnEntryUndoesNothing()
    {
        auto mine = opened(m_contract);
        savedThere([this](Dialog &there) {
            type(there, "dAmount", "500000");
            line(there, "sPage")->setText(u"12"_s);
        });
        mine->accept();
        QVERIFY(!mine->isVisible());
        QCOMPARE(stored("dAmount,sPage"), u"500000/12"_s);
        compareBooks();
    }

    void whatBothChangedToTheSameIsNoQuestion()
    {
        auto mine = opened(m_contract);
        savedThere([this](Dialog &there) { type(there, "dAmount", "500000"); });
        type(*mine, "dAmount", "500000");
        mine->accept();
        QVERIFY(!mine->isVisible());
        QVERIFY(CDlgRowConflict::takeShown().isEmpty());
        compareBooks();
    }

    // The number of the document comes from the row as it is, never from the line that shows it.
    void contractThatGotItsDocumentMeanwhileKeepsThatOne()
    {
        m_office->database().run(u"DELETE FROM Documents"_s);
        m_office->database().run(u"DELETE FROM Docs"_s);
        m_office->database().run(u"UPDATE AutomobilContracts SET iDocNum=0,iFiscalYear=0"_s);
        auto mine = opened(m_contract);
        savedThere([this](Dialog &there) { line(there, "sCover")->setText(u"3"_s); });
        const QString document = stored("iDocNum,iFiscalYear");
        line(*mine, "sExplain")->setText(u"شرح"_s);
        mine->accept();
        QVERIFY(!mine->isVisible());
        QCOMPARE(stored("iDocNum,iFiscalYear"), document);
        compareBooks();
    }

    void whatIsLeftOfAnInstalmentSaleFollowsFromBothDesks()
    {
        m_office->database().run(u"UPDATE AutomobilContracts SET iContractType=2,dFixAmount=100000,dRemainingAmount=900000"_s);
        auto mine = opened(m_contract);
        savedThere([this](Dialog &there) { type(there, "dAmount", "2000000"); });
        QCOMPARE(stored("dRemainingAmount"), u"1900000"_s);
        mine->matterPage()->form()->edit(u"sBankName"_s)->setText(u"ملی"_s);
        mine->accept();
        QVERIFY(!mine->isVisible());
        QCOMPARE(stored("dAmount,dFixAmount,dRemainingAmount,sBankName"), u"2000000/100000/1900000/ملی"_s);
    }

    // --- The question ---

    void whatBothChangedIsAsked_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("explanation");
        QTest::addColumn<bool>("saved");
        QTest::newRow("theirs") << int(Answer::TakeTheirs) << u"شرح او"_s << true;
        QTest::newRow("mine") << int(Answer::TakeMine) << u"شرح من"_s << true;
        QTest::newRow("back") << int(Answer::GoBack) << u"شرح او"_s << false;
    }

    void whatBothChangedIsAsked()
    {
        QFETCH(int, answer);
        QFETCH(QString, explanation);
        QFETCH(bool, saved);
        auto mine = opened(m_contract);
        savedThere([this](Dialog &there) {
            line(there, "sExplain")->setText(u"شرح او"_s);
            line(there, "sPage")->setText(u"12"_s);
        });
        line(*mine, "sExplain")->setText(u"شرح من"_s);
        line(*mine, "sDesc")->setText(u"توضیح من"_s);
        CDlgRowConflict::answerNext(Answer(answer));
        mine->accept();
        QCOMPARE(CDlgRowConflict::takeShown(), QStringList{u"شرح قرارداد:  | شرح او | شرح من"_s});
        QCOMPARE(mine->isVisible(), !saved);
        QCOMPARE(stored("sExplain,sPage,sDesc"), explanation + u"/12"_s + (saved ? u"/توضیح من"_s : u"/"_s));
        QCOMPARE(line(*mine, "sExplain")->text(), u"شرح من"_s);
        if (!saved)
            QCOMPARE(mine->focusWidget(), line(*mine, "sExplain"));
    }

    void goingBackForgetsNothingAndIsAskedAnew()
    {
        auto mine = opened(m_contract);
        savedThere([this](Dialog &there) { line(there, "sExplain")->setText(u"شرح او"_s); });
        line(*mine, "sExplain")->setText(u"شرح من"_s);
        CDlgRowConflict::answerNext(Answer::GoBack);
        mine->accept();
        QVERIFY(mine->isVisible());
        line(*mine, "sExplain")->setText(u"شرح هر دو"_s);
        CDlgRowConflict::answerNext(Answer::TakeMine);
        mine->accept();
        QVERIFY(!mine->isVisible());
        QCOMPARE(CDlgRowConflict::takeShown(),
                 (QStringList{u"شرح قرارداد:  | شرح او | شرح من"_s, u"شرح قرارداد:  | شرح او | شرح هر دو"_s}));
        QCOMPARE(stored("sExplain"), u"شرح هر دو"_s);
    }

    void answerIsNoneAboutAThirdChange()
    {
        auto mine = opened(m_contract);
        savedThere([this](Dialog &there) { line(there, "sExplain")->setText(u"شرح او"_s); });
        line(*mine, "sExplain")->setText(u"شرح من"_s);
        int questions = 0;
        TestOffice::whenModal("CDlgRowConflict", [&](QWidget *first) {
            ++questions;
            m_office->database().run(u"UPDATE AutomobilContracts SET sExplain='شرح سوم'"_s);
            TestOffice::whenModal("CDlgRowConflict", [&](QWidget *second) {
                ++questions;
                QVERIFY(named<QLabel>(*second, u"شرح قرارداد، تغییر او: شرح سوم"_s));
                named<QPushButton>(*second, u"بازگشت به پنجره"_s)->click();
            });
            named<QPushButton>(*first, u"تغییر من بماند"_s)->click();
        });
        mine->accept();
        QCOMPARE(questions, 2);
        QVERIFY(mine->isVisible());
        QCOMPARE(stored("sExplain"), u"شرح سوم"_s);
    }

    // --- Figures, parties and document are one field ---

    void figuresOfBothDesksAreNeverMixed_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("figures");
        QTest::newRow("theirs") << int(Answer::TakeTheirs) << u"500000/10000/0"_s;
        QTest::newRow("mine") << int(Answer::TakeMine) << u"1000000/20000/500"_s;
        QTest::newRow("back") << int(Answer::GoBack) << u"500000/10000/0"_s;
    }

    void figuresOfBothDesksAreNeverMixed()
    {
        QFETCH(int, answer);
        QFETCH(QString, figures);
        auto mine = opened(m_contract);
        savedThere([this](Dialog &there) { type(there, "dAmount", "500000"); });
        type(*mine, "dDiscountFirst", "500");
        CDlgRowConflict::answerNext(Answer(answer));
        mine->accept();
        const QStringList shown = CDlgRowConflict::takeShown();
        QVERIFY2(shown.contains(u"مبلغ قرارداد: 1,000,000 | 500,000 | 1,000,000"_s), qPrintable(shown.join(u'\n')));
        QVERIFY2(shown.contains(u"تخفيف طرف اول: 0 | 0 | 500"_s), qPrintable(shown.join(u'\n')));
        QCOMPARE(stored("dAmount,dCommission,dDiscountFirst"), figures);
        compareBooks();
    }

    void partyOfOneDeskAndFiguresOfTheOtherAreAsked()
    {
        const int third = m_office->addPerson(u"مریم"_s, u"نوری"_s);
        auto mine = opened(m_contract);
        savedThere([&](Dialog &there) { there.basePage()->firstParty()->takePerson(third); });
        type(*mine, "dAmount", "500000");
        CDlgRowConflict::answerNext(Answer::TakeTheirs);
        mine->accept();
        QVERIFY(CDlgRowConflict::takeShown().contains(u"شخص طرف اول: سارا کریمی | مریم نوری | سارا کریمی"_s));
        QCOMPARE(stored("sName1,dAmount"), u"مریم نوری/1000000"_s);
        compareBooks();
    }

    void notesAreOneField()
    {
        m_office->database().run(u"UPDATE AutomobilContracts SET sNote1='یک',sNote2='دو'"_s);
        auto mine = opened(m_contract);
        m_office->database().run(u"UPDATE AutomobilContracts SET sNote2='سه'"_s);
        line(*mine, "sDesc")->setText(u"توضیح"_s);
        mine->accept();
        QVERIFY(!mine->isVisible());
        QCOMPARE(stored("sNote1,sNote2,sDesc"), u"یک/سه/توضیح"_s);
    }

    // --- Gone, archived, closed ---

    void contractThatIsGoneIsSavedAsANewOne()
    {
        const int field = CTblCustomFields::define(CTblAutomobilContracts::recordKind, u"کارکرد"_s, CTblCustomFields::Text);
        CTblCustomFieldRecords::setValues(CTblAutomobilContracts::recordKind, m_contract, {{field, u"۱۲۰"_s}});
        const QString lost = stored("iCode,iDocNum");
        auto mine = opened(m_contract);
        line(*mine, "sExplain")->setText(u"شرح من"_s);
        deletedThere();
        QCOMPARE(value(u"SELECT COUNT(*) FROM Documents"_s), u"0"_s);
        m_office->addContract();
        g_pDlgYesNo->takeShown();
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        mine->accept();
        OtherDesk::compareTold(g_pDlgYesNo->takeShown(), u"این قرارداد را در این میان حذف کرده است."_s);
        QVERIFY(!mine->isVisible());
        QVERIFY(mine->key() != m_contract);
        const QString row = u"SELECT CONCAT_WS('/',iCode,sExplain,dAmount,iArchiveUserID,iUserID) FROM AutomobilContracts WHERE iID=%1"_s;
        QCOMPARE(value(row.arg(mine->key())), u"2/شرح من/1000000/0/%1"_s.arg(m_office->adminID()));
        QCOMPARE(value(u"SELECT COUNT(*) FROM Documents d JOIN AutomobilContracts c ON c.iDocNum=d.iNum AND c.iFiscalYear=d.iFiscalYear"
                       " WHERE c.iID=%1"_s.arg(mine->key())),
                 u"1"_s);
        QCOMPARE(value(u"SELECT SUM(dBed)=SUM(dBes) AND SUM(dBed)>0 FROM Docs"_s), u"1"_s);
        QCOMPARE(CTblCustomFieldRecords::values(CTblAutomobilContracts::recordKind, mine->key()).value(field), u"۱۲۰"_s);
    }

    void contractThatIsGoneStaysInTheWindowWhenNobodyWantsANewOne()
    {
        auto mine = opened(m_contract);
        line(*mine, "sExplain")->setText(u"شرح من"_s);
        deletedThere();
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        mine->accept();
        QVERIFY(mine->isVisible());
        QCOMPARE(line(*mine, "sExplain")->text(), u"شرح من"_s);
        QCOMPARE(value(u"SELECT (SELECT COUNT(*) FROM AutomobilContracts)+(SELECT COUNT(*) FROM Documents)"_s), u"0"_s);
    }

    void newRowNeedsTheRightToWriteOne()
    {
        deletedThere();
        m_office->addContract();
        m_contract = key();
        m_office->logInAs(u"reza"_s, u"AutomobilContracts"_s, KSecurity::Access | KSecurity::Read | KSecurity::Modify);
        auto mine = opened(m_contract);
        type(*mine, "dAmount", "1000000");
        mine->basePage()->firstParty()->takePerson(m_seller);
        mine->basePage()->secondParty()->takePerson(m_buyer);
        m_office->database().run(u"DELETE FROM AutomobilContracts"_s);
        g_pDlgYesNo->takeShown();
        mine->accept();
        QVERIFY(mine->isVisible());
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{u"کاربر دیگری این قرارداد را در این میان حذف کرده است. چیزی ذخیره نشد."_s});
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"0"_s);
    }

    void newContractWhoseRowIsGoneGivesTheKeyOfTheOneThatWasSaved()
    {
        TestOffice::whenModal("CDlgAddAutomobilContract", [this](QWidget *window) {
            auto &dialog = static_cast<Dialog &>(*window);
            dialog.basePage()->firstParty()->takePerson(m_seller);
            dialog.basePage()->secondParty()->takePerson(m_buyer);
            type(dialog, "dAmount", "1000000");
            fillMatterPage(*dialog.matterPage());
            m_office->database().run(u"DELETE FROM AutomobilContracts WHERE iID=%1"_s.arg(dialog.key()));
            g_pDlgYesNo->answerNext(KMessageDialog::Yes);
            dialog.accept();
        });
        const int added = Dialog::NewContract(nullptr);
        QVERIFY(added > 0);
        QCOMPARE(value(u"SELECT dAmount FROM AutomobilContracts WHERE iID=%1"_s.arg(added)), u"1000000"_s);
    }

    void contractArchivedMeanwhileIsNotSaved()
    {
        auto mine = opened(m_contract);
        line(*mine, "sExplain")->setText(u"شرح من"_s);
        int other = 0;
        m_other->does([&] {
            other = GetDBSetting()->GetUserID();
            CTblAutomobilContracts::archive(1, other);
        });
        mine->accept();
        QVERIFY(mine->isVisible());
        OtherDesk::compareTold(g_pDlgWarning->takeShown(), u"این قرارداد را در این میان بایگانی کرده است."_s);
        QCOMPARE(line(*mine, "sExplain")->text(), u"شرح من"_s);
        QCOMPARE(stored("sExplain,iArchiveUserID"), u"/%1"_s.arg(other));
    }

    void databaseClosedMeanwhileSaysByWhom()
    {
        auto mine = opened(m_contract);
        m_other->does([] {
            GetDBSetting()->SetClosedDB(true);
            KChangeLog::note(u"Properties:Database"_s, 0, KChange::Kind::Changed);
        });
        mine->accept();
        QVERIFY(mine->isVisible());
        OtherDesk::compareTold(g_pDlgWarning->takeShown(), u"این پایگاه داده را بسته است"_s);
    }

    // --- Custom fields ---

    void customFieldsAreMergedOneByOne()
    {
        const int kind = CTblAutomobilContracts::recordKind;
        const int mileage = CTblCustomFields::define(kind, u"کارکرد"_s, CTblCustomFields::Text);
        const int agent = CTblCustomFields::define(kind, u"معرف"_s, CTblCustomFields::Text);
        auto mine = opened(m_contract);
        auto *page = mine->findChild<CDlgCustomFields *>();
        page->load();
        CTblCustomFieldRecords::setValues(kind, m_contract, {{agent, u"علی"_s}});
        named<QLineEdit>(*page, u"کارکرد :"_s)->setText(u"120"_s);
        mine->accept();
        QVERIFY(!mine->isVisible());
        QCOMPARE(CTblCustomFieldRecords::values(kind, m_contract), (QHash<int, QString>{{mileage, u"120"_s}, {agent, u"علی"_s}}));
    }

    void customFieldThatBothChangedIsOneMoreLineOfTheQuestion()
    {
        const int kind = CTblAutomobilContracts::recordKind;
        const int sold = CTblCustomFields::define(kind, u"کارشناسی"_s, CTblCustomFields::Date);
        auto mine = opened(m_contract);
        auto *page = mine->findChild<CDlgCustomFields *>();
        page->load();
        savedThere([this](Dialog &there) { line(there, "sExplain")->setText(u"شرح او"_s); });
        CTblCustomFieldRecords::setValues(kind, m_contract, {{sold, u"2026-03-21"_s}});
        named<QLineEdit>(*page, u"کارشناسی :"_s)->setText(u"1405/01/02"_s);
        line(*mine, "sExplain")->setText(u"شرح من"_s);
        CDlgRowConflict::answerNext(Answer::GoBack);
        mine->accept();
        QCOMPARE(CDlgRowConflict::takeShown(),
                 (QStringList{u"شرح قرارداد:  | شرح او | شرح من"_s, u"کارشناسی:  | 1405/01/01 | 1405/01/02"_s}));
        QCOMPARE(CTblCustomFieldRecords::values(kind, m_contract).value(sold), u"2026-03-21"_s);
        CDlgRowConflict::answerNext(Answer::TakeMine);
        mine->accept();
        QVERIFY(!mine->isVisible());
        QCOMPARE(CTblCustomFieldRecords::values(kind, m_contract).value(sold), u"2026-03-22"_s);
        QCOMPARE(stored("sExplain"), u"شرح من"_s);
    }

    // --- Pressed twice ---

    void pressedTwiceSavesOnce()
    {
        m_office->database().run(u"DELETE FROM Changes"_s);
        auto mine = opened(m_contract);
        line(*mine, "sExplain")->setText(u"شرح"_s);
        mine->accept();
        mine->accept();
        QCOMPARE(value(u"SELECT COUNT(*) FROM Changes WHERE sTable='AutomobilContracts'"_s), u"1"_s);
        QCOMPARE(g_pDlgMessage->takeShown().size(), 1);
    }

    void enterHeldDownSavesOnce()
    {
        m_office->database().run(u"DELETE FROM Changes"_s);
        auto mine = opened(m_contract);
        line(*mine, "sExplain")->setText(u"شرح"_s);
        auto *ok = captioned<QPushButton>(*mine, u"تاييد"_s);
        ok->setFocus();
        for (int i = 0; i < 5; ++i) {
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), i > 0);
            QApplication::sendEvent(ok, &held);
        }
        QVERIFY(!mine->isVisible());
        QCOMPARE(value(u"SELECT COUNT(*) FROM Changes WHERE sTable='AutomobilContracts'"_s), u"1"_s);
        QCOMPARE(g_pDlgMessage->takeShown().size(), 1);
    }

    // The question of a save that is under way is the only way on.
    void pressedAgainWhileTheQuestionIsOpenDoesNothing()
    {
        auto mine = opened(m_contract);
        savedThere([this](Dialog &there) { line(there, "sExplain")->setText(u"شرح او"_s); });
        line(*mine, "sExplain")->setText(u"شرح من"_s);
        int questions = 0;
        TestOffice::whenModal("CDlgRowConflict", [&](QWidget *window) {
            ++questions;
            mine->accept();
            QVERIFY(mine->isVisible());
            named<QPushButton>(*window, u"تغییر من بماند"_s)->click();
        });
        mine->accept();
        QCOMPARE(questions, 1);
        QVERIFY(!mine->isVisible());
        QCOMPARE(stored("sExplain"), u"شرح من"_s);
    }

    // --- Out of the archive ---

    void contractThatAnotherDeskTookOutOfTheArchiveIsSaid()
    {
        m_office->database().run(u"UPDATE AutomobilContracts SET iArchiveUserID=1"_s);
        auto mine = opened(m_contract, Mode::Show);
        m_other->does([this] {
            m_office->database().run(u"UPDATE AutomobilContracts SET iArchiveUserID=0"_s);
            KChangeLog::note(u"AutomobilContracts"_s, m_contract, KChange::Kind::Unarchived);
        });
        mine->unarchiveButton()->click();
        QVERIFY(!mine->isVisible());
        QVERIFY(mine->refreshNeeded());
        OtherDesk::compareTold(g_pDlgWarning->takeShown(), u"این قرارداد را در این میان از بایگانی خارج کرده است."_s);
    }

    void contractThatIsGoneIsNotTakenOutOfTheArchive()
    {
        m_office->database().run(u"UPDATE AutomobilContracts SET iArchiveUserID=1"_s);
        auto mine = opened(m_contract, Mode::Show);
        deletedThere();
        mine->unarchiveButton()->click();
        QVERIFY(!mine->isVisible());
        QVERIFY(mine->refreshNeeded());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }

    void takingOutOfTheArchiveLeavesItsTrace()
    {
        m_office->database().run(u"UPDATE AutomobilContracts SET iArchiveUserID=1"_s);
        auto mine = opened(m_contract, Mode::Show);
        mine->unarchiveButton()->click();
        const auto change = KChangeLog::last(u"AutomobilContracts"_s, m_contract);
        QVERIFY(change);
        QCOMPARE(change->kind, KChange::Kind::Unarchived);
        QCOMPARE(change->userID, m_office->adminID());
    }
};

static const RegisteredTest<TestContractTwoDesks, KApplication> registeredContractTwoDesks;

#include "TestContractTwoDesks.moc"
