// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/attachments/CDlgCustomFields.h"
#include "suite/accounting/attachments/CDlgFileDocs.h"
#include "suite/accounting/office/CDlgMultiItems.h"
#include "suite/accounting/attachments/CTblCustomFields.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/CTblMultiItems.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/frame/KTabPageButtons.h"
#include "tests/auto/contracts/editor/ContractEditorTest.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace {

int tabOf(const CDlgAddAutomobilContract &dialog, const QString &title)
{
    for (int i = 0; i < dialog.tabs()->count(); ++i) {
        if (dialog.tabs()->button(i)->text() == title)
            return i;
    }
    return -1;
}

}

// The contract editor as its users meet it: where the focus is, what a refusal says and where it leads, what stays.
class TestContractEditorAtWork : public ContractEditorTest
{
    Q_OBJECT

    // Ticks these notes in the picker, which has them to offer.
    void pickNotes(Dialog &dialog, const QStringList &notes)
    {
        for (const QString &note : notes)
            CTblMultiItems::addValue(CTblItems::typeClause, note);
        TestOffice::whenModal("CDlgMultiItems", [notes](QWidget *window) {
            QCOMPARE(window->windowTitle(), QStringLiteral("تبصره"));
            static_cast<CDlgMultiItems *>(window)->setSelectedNames(notes);
            static_cast<QDialog *>(window)->accept();
        });
        named<QPushButton>(dialog, QStringLiteral("تبصره ها : ..."))->click();
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        begin([](CTblPersons &person) { person.m_sMobile = QStringLiteral("0912"); });
        m_office->database().run(QStringLiteral("DELETE FROM Items"));
        m_office->database().run(QStringLiteral("DELETE FROM CustomFields"));
    }

    // --- Texts ---

    void everyLabelIsToTheLetter()
    {
        const int archived = m_office->addContract([](auto &contract) { contract.m_iArchiveUserID = 1; });
        auto dialog = opened(archived, Mode::Show);
        QStringList texts;
        for (const QLabel *label : dialog->basePage()->findChildren<QLabel *>())
            texts << label->text();
        for (const QString &text :
             {QStringLiteral("مبلغ قرارداد :"), QStringLiteral("حق کميسيون :"),
              QStringLiteral("کميسيون دريافتي از هر طرفين :"), QStringLiteral("ماليات :"), QStringLiteral("عوارض :"),
              QStringLiteral("تخفيف :"), QStringLiteral("پرداختي :"), QStringLiteral("کد قرارداد :"),
              QStringLiteral("شماره سند :"), QStringLiteral("تاريخ عقد :"), QStringLiteral("تاريخ انقضاء :"),
              QStringLiteral("تاريخ تمديد :"), QStringLiteral("حوزه ثبتي :"), QStringLiteral("مشاور خودرو شماره :"),
              QStringLiteral("تعهدات مربوط به طرف اول :"), QStringLiteral("تعهدات مربوط به طرف دوم :"),
              QStringLiteral("مورد معامله :"), QStringLiteral("شرح قرارداد :"), QStringLiteral("توضيحات :"),
              QStringLiteral("تبصره ها :"), QStringLiteral("خلاصه اين قرارداد در صفحه :"), QStringLiteral("جلد :"),
              QStringLiteral("شماره :"), QStringLiteral("و تاريخ :"), QStringLiteral("ثبت گرديده است."),
              QStringLiteral("کاربر بايگاني کننده :"), QStringLiteral("تاريخ بايگاني :"), QStringLiteral("شخص قرارداد :"),
              QStringLiteral("بموجب :"), QStringLiteral("از طرف :"), QStringLiteral("نام و نام خانوادگي :"),
              QStringLiteral("نام پدر :"), QStringLiteral("تاريخ تولد :"), QStringLiteral("محل صدور :"),
              QStringLiteral("شماره شناسنامه :"), QStringLiteral("کد ملي :"), QStringLiteral("آدرس :"),
              QStringLiteral("تلفن :"), QStringLiteral("موبايل :"), QStringLiteral("%")})
            QVERIFY2(texts.contains(text), qPrintable(text));
        const auto *kinds = dialog->basePage()->form()->comboBox(column("iPersonContract2"));
        QStringList kindTexts;
        for (int i = 0; i < kinds->count(); ++i)
            kindTexts << kinds->itemText(i);
        QCOMPARE(kindTexts, (QStringList{QStringLiteral("عادی"), QStringLiteral("نمایشگاه"), QStringLiteral("متفرقه")}));
        QCOMPARE(dialog->activeBox()->text(), QStringLiteral("فعال"));
        QCOMPARE(dialog->unarchiveButton()->text(), QStringLiteral("برگشت از بايگاني"));
        QCOMPARE(dialog->carButton()->text(), QStringLiteral("گالري اتومبيل"));
    }

    void fieldsThatAreNotDisplayedKeepTheirValues()
    {
        const QDateTime extension(QDate(2027, 1, 1), QTime(0, 0), Qt::UTC);
        const int contract = m_office->addContract([&](auto &row) {
            row.m_dateExtension = extension;
            row.m_sName1 = QStringLiteral("a");
            row.m_sName2 = QStringLiteral("b");
            row.m_dAmount = 5;
            row.m_dCommissionEveryPerson = 77;
        });
        auto dialog = opened(contract, Mode::Edit);
        QVERIFY(!dialog->basePage()->form()->control(column("dateExtension"))->isVisible());
        QVERIFY(!edit(*dialog, "dCommissionEveryPerson")->isVisible());
        fillMatterPage(*dialog->matterPage());
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        CTblAutomobilContracts row;
        QVERIFY(row.IsRecordExist(QStringLiteral("iID"), contract));
        QCOMPARE(row.m_dateExtension, extension);
        QCOMPARE(row.m_dCommissionEveryPerson, 77.0);
    }

    // --- Focus ---

    void newContractBeginsAtItsAmountAndAnOldOneAtItsFirstField()
    {
        auto created = opened(Dialog::addPlaceholder(), Mode::New);
        QCOMPARE(created->focusWidget(), edit(*created, "dAmount"));
        auto old = opened(m_office->addContract(), Mode::Edit);
        QCOMPARE(old->focusWidget(), edit(*old, "iCode"));
    }

    void typingAtOnceIntoANewContractGivesTheAmount()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        QTest::keyClicks(dialog->focusWidget(), QStringLiteral("1000000"));
        QCOMPARE(shown(*dialog, "dAmount"), 1000000.0);
        QCOMPARE(shown(*dialog, "dCommission"), 20000.0);
    }

    void refusalShowsThePageThatItIsAbout()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        dialog->tabs()->setCurrentIndex(tabOf(*dialog, QStringLiteral("پرونده های عمومی")));
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("لطفا مبلغ قرارداد را وارد نمایید.")});
        QCOMPARE(dialog->tabs()->currentIndex(), 0);
        QCOMPARE(dialog->focusWidget(), edit(*dialog, "dAmount"));
    }

    void refusedCustomFieldShowsItsPage()
    {
        CTblCustomFields::define(CTblAutomobilContracts::recordKind, QStringLiteral("کارکرد"), CTblCustomFields::Number);
        auto dialog = filledNew();
        const int tab = tabOf(*dialog, dialog->findChild<CDlgCustomFields *>()->title());
        dialog->tabs()->setCurrentIndex(tab);
        // The fields are read and laid out now.
        QCoreApplication::processEvents();
        auto *field = named<QLineEdit>(*dialog, QStringLiteral("کارکرد :"));
        QVERIFY(field);
        field->setText(QStringLiteral("99999999999999999999"));
        dialog->tabs()->setCurrentIndex(0);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(dialog->tabs()->currentIndex(), tab);
        QCOMPARE(dialog->focusWidget(), field);
        field->setText(QStringLiteral("120"));
        dialog->tabs()->setCurrentIndex(0);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(value(QStringLiteral("SELECT sValue FROM CustomFieldRecords WHERE iTable=69 AND iRecordID=%1").arg(key())),
                 QStringLiteral("120"));
    }

    void savedContractLeavesTheTabsAsTheyWere()
    {
        auto dialog = filledNew();
        const int files = tabOf(*dialog, QStringLiteral("پرونده های شخصی"));
        dialog->tabs()->setCurrentIndex(files);
        m_office->database().run(QStringLiteral("RENAME TABLE Docs TO DocsAway"));
        dialog->accept();
        m_office->database().run(QStringLiteral("RENAME TABLE DocsAway TO Docs"));
        QVERIFY(dialog->isVisible());
        QCOMPARE(dialog->tabs()->currentIndex(), files);
    }

    void pickerOfAMissingPartyLeavesTheFocusOnItsName()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        type(*dialog, "dAmount", "100");
        dialog->basePage()->firstParty()->takePerson(m_seller);
        TestOffice::whenModal("KDialogHolder", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("لطفا شخص دوم را انتخاب نمایید.")});
        QCOMPARE(dialog->focusWidget(), dialog->basePage()->secondParty()->personField()->nameEdit());
    }

    void refusedDateHasTheFocus()
    {
        auto dialog = filledNew();
        KDateEdit *date = dialog->basePage()->form()->dateEdit(column("dateContract"));
        date->setDate(QDate(2019, 12, 31));
        dialog->accept();
        QCOMPARE(dialog->focusWidget(), date);
        QCOMPARE(date->date(), QDate(2019, 12, 31));
    }

    // --- Refusals ---

    void requiredEntriesAreAskedForBeforeAnythingElseIsFoundWrong()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        dialog->basePage()->form()->dateEdit(column("dateExpiration"))->setText(QStringLiteral("1405/13/40"));
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("لطفا مبلغ قرارداد را وارد نمایید.")});
    }

    void refusedEntryIsNamed()
    {
        auto dialog = filledNew();
        dialog->basePage()->form()->dateEdit(column("dateExpiration"))->setText(QStringLiteral("1405/13/40"));
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{QStringLiteral("تاريخ انقضاء : تاریخ نادرست است. نمونه : 1405/08/29")});
        QCOMPARE(dialog->focusWidget(), dialog->basePage()->form()->dateEdit(column("dateExpiration")));
    }

    void contractDateThatIsNoDateIsToldAsSuch()
    {
        auto dialog = filledNew();
        dialog->basePage()->form()->dateEdit(column("dateContract"))->setText(QStringLiteral("1405/13/40"));
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{QStringLiteral("تاريخ عقد : تاریخ نادرست است. نمونه : 1405/08/29")});
        dialog->basePage()->form()->dateEdit(column("dateContract"))->clear();
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("لطفا تاریخ عقد را وارد نمایید.")});
        QVERIFY(dialog->isVisible());
    }

    void nameOfBlanksIsNoName()
    {
        auto dialog = filledNew();
        dialog->basePage()->secondParty()->setKind(PartyKind::Other);
        dialog->basePage()->secondParty()->personField()->nameEdit()->setText(QStringLiteral("   "));
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("لطفا شخص دوم را انتخاب نمایید.")});
    }

    void discountAboveWhatThePartyOwesIsRefused_data()
    {
        QTest::addColumn<QByteArray>("discount");
        QTest::addColumn<QByteArray>("pays");
        QTest::addColumn<QString>("message");
        QTest::newRow("first party") << QByteArray("dDiscountFirst") << QByteArray("dPayFirst")
                                     << QStringLiteral("تخفیف طرف اول بیشتر از مبلغی است که باید بپردازد.");
        QTest::newRow("second party") << QByteArray("dDiscountSecond") << QByteArray("dPaySecond")
                                      << QStringLiteral("تخفیف طرف دوم بیشتر از مبلغی است که باید بپردازد.");
    }

    void discountAboveWhatThePartyOwesIsRefused()
    {
        QFETCH(QByteArray, discount);
        QFETCH(QByteArray, pays);
        QFETCH(QString, message);
        auto dialog = filledNew();
        type(*dialog, discount.constData(), "21801");
        QCOMPARE(shown(*dialog, pays.constData()), -1.0);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{message});
        QCOMPARE(dialog->focusWidget(), edit(*dialog, discount.constData()));
        type(*dialog, discount.constData(), "21800");
        QCOMPARE(shown(*dialog, pays.constData()), 0.0);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(value(QStringLiteral("SELECT SUM(dBed)=SUM(dBes) FROM Docs")), QStringLiteral("1"));
    }

    // --- Notes ---

    void notesArePickedKeptOnePerColumnAndShownAgain()
    {
        auto dialog = filledNew();
        const QStringList notes{QStringLiteral("الف"), QStringLiteral("ب")};
        pickNotes(*dialog, notes);
        QCOMPARE(dialog->basePage()->notes(), notes);
        QCOMPARE(named<KEdit>(*dialog, QStringLiteral("تبصره ها :"))->text(), QStringLiteral("الف، ب"));
        dialog->accept();
        QCOMPARE(value(QStringLiteral("SELECT CONCAT_WS('|',sNote1,sNote2,sNote3) FROM AutomobilContracts")),
                 QStringLiteral("الف|ب"));
        QCOMPARE(opened(key(), Mode::Edit)->basePage()->notes(), notes);
    }

    void noteOfTwentyCharactersIsSavedAndALongerOneRefused_data()
    {
        QTest::addColumn<int>("length");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("20") << 20 << true;
        QTest::newRow("21") << 21 << false;
    }

    void noteOfTwentyCharactersIsSavedAndALongerOneRefused()
    {
        QFETCH(int, length);
        QFETCH(bool, accepted);
        auto dialog = filledNew();
        const QString note(length, u'ت');
        pickNotes(*dialog, {QStringLiteral("الف"), note});
        dialog->accept();
        QCOMPARE(!dialog->isVisible(), accepted);
        const QStringList told = g_pDlgWarning->takeShown();
        if (accepted) {
            QVERIFY(told.isEmpty());
            return;
        }
        QCOMPARE(told, QStringList{QStringLiteral("هر تبصره حداکثر 20 نویسه است و این تبصره بلندتر است : ") + note});
        QCOMPARE(dialog->focusWidget(), named<QPushButton>(*dialog, QStringLiteral("تبصره ها : ...")));
        QCOMPARE(dialog->basePage()->notes().size(), 2);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM Documents")), QStringLiteral("0"));
    }

    void eleventhNoteIsRefused()
    {
        auto dialog = filledNew();
        QStringList notes;
        for (int i = 11; i <= 21; ++i)
            notes << QString::number(i);
        pickNotes(*dialog, notes);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("حداکثر 10 تبصره قابل ثبت است.")});
        QCOMPARE(dialog->focusWidget(), named<QPushButton>(*dialog, QStringLiteral("تبصره ها : ...")));
    }

    // --- Figures ---

    void commissionAboveTheLastTierIsTypedByHand()
    {
        auto dialog = filledNew();
        type(*dialog, "dAmount", "9000000");
        const double before = shown(*dialog, "dCommission");
        type(*dialog, "dAmount", "9000001");
        QCOMPARE(shown(*dialog, "dCommission"), before);
        type(*dialog, "dCommission", "100000");
        QCOMPARE(shown(*dialog, "dTax"), 6000.0);
        QCOMPARE(shown(*dialog, "dImposition2"), 3000.0);
        QCOMPARE(shown(*dialog, "dPayFirst"), 109000.0);
        dialog->accept();
        QCOMPARE(value(QStringLiteral("SELECT CONCAT_WS('|',dAmount,dCommission) FROM AutomobilContracts")),
                 QStringLiteral("9000001|100000"));
    }

    void percentOfZeroMakesTheDiscountExactlyZero()
    {
        auto dialog = filledNew();
        QCOMPARE(shown(*dialog, "dDiscountSecond"), 2000.0);
        type(*dialog, "dPercentDiscount2", "0");
        QCOMPARE(shown(*dialog, "dDiscountSecond"), 0.0);
        QCOMPARE(shown(*dialog, "dPaySecond"), 21800.0);
        type(*dialog, "dPercentDiscount2", "100");
        QCOMPARE(shown(*dialog, "dDiscountSecond"), 20000.0);
        QCOMPARE(shown(*dialog, "dPaySecond"), 1800.0);
    }

    void switchingTheKindThereAndBackEmptiesThePersonAndGivesTheDiscountBackToTheHand()
    {
        auto dialog = filledNew();
        ContractPartyGroup *party = dialog->basePage()->secondParty();
        party->setKind(PartyKind::Showroom);
        QVERIFY(edit(*dialog, "dPercentDiscount2")->isReadOnly());
        party->setKind(PartyKind::Other);
        QVERIFY(party->name().isEmpty());
        QVERIFY(!edit(*dialog, "dPercentDiscount2")->isReadOnly());
        QVERIFY(!edit(*dialog, "sTel2")->isReadOnly());
        QCOMPARE(shown(*dialog, "dPaySecond"), 21800.0);
        const QString name = QStringLiteral("نام و نام خانوادگي : طرف دوم");
        QVERIFY(!named<QPushButton>(*party, name + QStringLiteral(" ..."))->isEnabled());
        QVERIFY(!named<QPushButton>(*party, name + QStringLiteral(" حذف"))->isEnabled());
        party->setKind(PartyKind::Ordinary);
        QVERIFY(edit(*dialog, "sTel2")->isReadOnly());
        QVERIFY(party->personField()->nameEdit()->isReadOnly());
        QVERIFY(named<QPushButton>(*party, name + QStringLiteral(" ..."))->isEnabled());
        QCOMPARE(party->personField()->personID(), 0);
        // The other party keeps all it had.
        QCOMPARE(dialog->basePage()->firstParty()->name(), QStringLiteral("سارا کریمی"));
        QCOMPARE(edit(*dialog, "sMobile1")->text(), QStringLiteral("0912"));
        party->takePerson(m_buyer);
        QCOMPARE(shown(*dialog, "dPercentDiscount2"), 10.0);
        QCOMPARE(shown(*dialog, "dPaySecond"), 19800.0);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(value(QStringLiteral("SELECT CONCAT_WS('|',iPersonContract2,iPersonSecondID) FROM AutomobilContracts")),
                 QStringLiteral("0|%1").arg(m_buyer));
    }

    // --- The type ---

    void matterTabFollowsTheType()
    {
        auto dialog = opened(m_office->addContract(), Mode::Edit);
        QComboBox *types = dialog->basePage()->form()->comboBox(column("iContractType"));
        auto matterIsShown = [&] {
            const int tab = tabOf(*dialog, QStringLiteral("مشخصات فروش"));
            return tab >= 0 && !dialog->tabs()->button(tab)->isHidden();
        };
        QVERIFY(matterIsShown());
        types->setCurrentIndex(3);
        QVERIFY(!matterIsShown());
        types->setCurrentIndex(2);
        QVERIFY(matterIsShown());
        auto letter = opened(m_office->addContract([](auto &contract) { contract.m_iContractType = 3; }), Mode::Edit);
        QVERIFY(tabOf(*letter, QStringLiteral("مشخصات فروش")) < 0
                || letter->tabs()->button(tabOf(*letter, QStringLiteral("مشخصات فروش")))->isHidden());
        letter->basePage()->form()->comboBox(column("iContractType"))->setCurrentIndex(0);
        QVERIFY(!letter->tabs()->button(tabOf(*letter, QStringLiteral("مشخصات فروش")))->isHidden());
    }

    // --- Closed database ---

    void closedDatabaseRefusesNewAndEdit()
    {
        const int contract = m_office->addContract();
        GetDBSetting()->SetClosedDB(true);
        QVERIFY_THROWS_EXCEPTION(KAccountingError, Dialog::NewContract(nullptr));
        QVERIFY_THROWS_EXCEPTION(KAccountingError, Dialog::EditContract(contract, false, nullptr));
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilContracts")), QStringLiteral("1"));
    }

    void databaseClosedMeanwhileKeepsWhatWasTypedAndSavesNothing()
    {
        auto dialog = filledNew();
        GetDBSetting()->SetClosedDB(true);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{QStringLiteral("این پایگاه داده بسته شده است و تغییر آن ممکن نیست.")});
        QCOMPARE(shown(*dialog, "dAmount"), 1000000.0);
        QCOMPARE(value(QStringLiteral("SELECT dAmount FROM AutomobilContracts")), QStringLiteral("0"));
    }

    void archivedContractOfAClosedDatabaseStaysInTheArchive()
    {
        const int contract = m_office->addContract([](auto &row) { row.m_iArchiveUserID = 1; });
        auto dialog = opened(contract, Mode::Show);
        GetDBSetting()->SetClosedDB(true);
        dialog->unarchiveButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{QStringLiteral("این پایگاه داده بسته شده است و تغییر آن ممکن نیست.")});
        QVERIFY(dialog->isVisible());
        QVERIFY(!dialog->refreshNeeded());
        QCOMPARE(value(QStringLiteral("SELECT iArchiveUserID FROM AutomobilContracts")), QStringLiteral("1"));
        QVERIFY(opened(contract, Mode::Show)->unarchiveButton()->isHidden());
    }

    void shownContractGivesItsFieldsAndFilesToReadOnly()
    {
        CTblCustomFields::define(CTblAutomobilContracts::recordKind, QStringLiteral("کارکرد"), CTblCustomFields::Text);
        auto dialog = opened(m_office->addContract(), Mode::Show);
        auto *fields = dialog->findChild<CDlgCustomFields *>();
        dialog->tabs()->setCurrentIndex(tabOf(*dialog, fields->title()));
        QVERIFY(named<QLineEdit>(*fields, QStringLiteral("کارکرد :"))->isReadOnly());
        QVERIFY(named<QPushButton>(*fields, QStringLiteral("تعریف فیلدها"))->isHidden());
        const QList<CDlgFileDocs *> filePages = dialog->findChildren<CDlgFileDocs *>();
        QCOMPARE(filePages.size(), 2);
        for (const CDlgFileDocs *files : filePages) {
            QVERIFY(named<QPushButton>(*files, QStringLiteral("افزودن"))->isHidden());
            QVERIFY(named<QPushButton>(*files, QStringLiteral("حذف"))->isHidden());
        }
    }

    // --- Saving ---

    void contractWithoutAUserGetsTheOneWhoSavesIt_data()
    {
        QTest::addColumn<int>("stored");
        QTest::newRow("none") << 0;
        QTest::newRow("another user") << 4711;
    }

    void contractWithoutAUserGetsTheOneWhoSavesIt()
    {
        QFETCH(int, stored);
        const int contract = m_office->addContract([stored](auto &row) {
            row.m_iUserID = stored;
            row.m_sName1 = QStringLiteral("a");
            row.m_sName2 = QStringLiteral("b");
            row.m_dAmount = 5;
        });
        auto dialog = opened(contract, Mode::Edit);
        fillMatterPage(*dialog->matterPage());
        dialog->accept();
        QCOMPARE(value(QStringLiteral("SELECT iUserID FROM AutomobilContracts")).toInt(),
                 stored == 0 ? m_office->adminID() : stored);
    }

    // A wait for a lock that was in vain, once, when the document has its number already.
    void saveThatMeetsALockConflictRunsAgainAndGivesOneDocument()
    {
        TestDatabase &database = m_office->database();
        database.run(QStringLiteral("CREATE TRIGGER Conflict BEFORE INSERT ON Docs FOR EACH ROW BEGIN "
                                    "SET @inserts = IFNULL(@inserts, 0) + 1; IF @inserts = 3 THEN "
                                    "SIGNAL SQLSTATE 'HY000' SET MYSQL_ERRNO = 1205; END IF; END"));
        auto dialog = filledNew();
        dialog->accept();
        database.run(QStringLiteral("DROP TRIGGER Conflict"));
        QVERIFY2(!dialog->isVisible(), qPrintable(g_pDlgWarning->takeShown().join(u'|')));
        QVERIFY(value(QStringLiteral("SELECT @inserts")).toInt() > 3);
        const QString number = value(QStringLiteral("SELECT GROUP_CONCAT(iNum) FROM Documents"));
        QCOMPARE(value(QStringLiteral("SELECT iDocNum FROM AutomobilContracts")), number);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*)=0 FROM Docs WHERE iDocNum<>%1").arg(number)), QStringLiteral("1"));
        QCOMPARE(value(QStringLiteral("SELECT SUM(dBed)=SUM(dBes) FROM Docs")), QStringLiteral("1"));
        QCOMPARE(g_pDlgMessage->takeShown().size(), 1);
    }
};

static const RegisteredTest<TestContractEditorAtWork, KApplication> registered;

#include "TestContractEditorAtWork.moc"
