// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/frame/KTabPageButtons.h"
#include "tests/auto/contracts/editor/ContractEditorTest.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCDlgAddAutomobilContract : public ContractEditorTest
{
    Q_OBJECT

    int contracts() { return value(u"SELECT COUNT(*) FROM AutomobilContracts"_s).toInt(); }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init() { begin(); }

    void newContractStartsWithTheNextCodeAndTheSettingsPercentages()
    {
        const int key = Dialog::addPlaceholder();
        CTblAutomobilContracts contract;
        QVERIFY(contract.IsRecordExist(u"iID"_s, key));
        QCOMPARE(contract.m_iCode, 1);
        QCOMPARE(contract.m_iContractType, 0);
        QCOMPARE(contract.m_dPercentTax, 6.0);
        QCOMPARE(contract.m_dPercentTax2, 6.0);
        QCOMPARE(contract.m_dPercentImpsition, 3.0);
        QCOMPARE(contract.m_dPercentImposition2, 3.0);
        QCOMPARE(contract.m_iUserID, m_office->adminID());
        QVERIFY(contract.m_dateCreate.isValid());
        CTblAutomobilContracts second;
        second.IsRecordExist(u"iID"_s, Dialog::addPlaceholder());
        QCOMPARE(second.m_iCode, 2);
    }

    void cancellingANewContractLeavesNoRowBehind()
    {
        TestOffice::whenModal("CDlgAddAutomobilContract", [this](QWidget *window) {
            QCOMPARE(contracts(), 1);
            QCOMPARE(window->windowTitle(), u"قرارداد مبایعه نامه- جدید"_s);
            static_cast<QDialog *>(window)->reject();
        });
        QCOMPARE(Dialog::NewContract(nullptr), 0);
        QCOMPARE(contracts(), 0);
    }

    void confirmedNewContractGivesItsKey()
    {
        TestOffice::whenModal("CDlgAddAutomobilContract", [this](QWidget *window) {
            auto &dialog = static_cast<Dialog &>(*window);
            dialog.basePage()->firstParty()->takePerson(m_seller);
            dialog.basePage()->secondParty()->takePerson(m_buyer);
            type(dialog, "dAmount", "1000000");
            fillMatterPage(*dialog.matterPage());
            dialog.accept();
            if (dialog.isVisible()) {
                QTest::qFail(qPrintable(g_pDlgWarning->takeShown().join(u'|')), __FILE__, __LINE__);
                dialog.reject();
            }
        });
        const int key = Dialog::NewContract(nullptr);
        QVERIFY(key > 0);
        QCOMPARE(value(u"SELECT iID FROM AutomobilContracts"_s).toInt(), key);
    }

    void amountBringsCommissionTaxDutyDiscountAndBothPayments()
    {
        auto dialog = filledNew();
        // 2 percent of 1,000,000; 6 percent tax and 3 percent duty on that; the buyer's record keeps 10 percent discount.
        QCOMPARE(shown(*dialog, "dCommission"), 20000.0);
        QCOMPARE(shown(*dialog, "dTax"), 1200.0);
        QCOMPARE(shown(*dialog, "dImposition"), 600.0);
        QCOMPARE(shown(*dialog, "dTax2"), 1200.0);
        QCOMPARE(shown(*dialog, "dImposition2"), 600.0);
        QCOMPARE(shown(*dialog, "dCommissionEveryPerson"), 21800.0);
        QCOMPARE(shown(*dialog, "dDiscountFirst"), 0.0);
        QCOMPARE(shown(*dialog, "dPayFirst"), 21800.0);
        QCOMPARE(shown(*dialog, "dPercentDiscount2"), 10.0);
        QCOMPARE(shown(*dialog, "dDiscountSecond"), 2000.0);
        QCOMPARE(shown(*dialog, "dPaySecond"), 19800.0);
    }

    void savedContractHoldsWhatThePageShowedAndOneBalancedDocument()
    {
        auto dialog = filledNew();
        dialog->basePage()->form()->edit(column("sExplain"))->setText(u"فروش پراید"_s);
        dialog->accept();
        QCOMPARE(dialog->result(), int(QDialog::Accepted));
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        CTblAutomobilContracts contract;
        contract.Open(true, true, true);
        QCOMPARE(contract.GetRecordsCount(), 1);
        QCOMPARE(contract.m_iPersonFirstID, m_seller);
        QCOMPARE(contract.m_iPersonSecondID, m_buyer);
        QCOMPARE(contract.m_sName1, u"سارا کریمی"_s);
        QCOMPARE(contract.m_sName2, u"رضا احمدی"_s);
        QCOMPARE(contract.m_sNationalId1, u"0012345679"_s);
        QCOMPARE(contract.m_sMobile1, u"09121234567"_s);
        QCOMPARE(contract.m_dAmount, 1000000.0);
        QCOMPARE(contract.m_dCommission, 20000.0);
        QCOMPARE(contract.m_dPaySecond, 19800.0);
        QCOMPARE(contract.m_sExplain, u"فروش پراید"_s);
        QVERIFY(contract.m_iDocNum > 0);
        QCOMPARE(contract.m_iFiscalYear, GetDBSetting()->FiscalYear());
        QCOMPARE(value(u"SELECT COUNT(*) FROM Documents WHERE iKind=28"_s), u"1"_s);
        QCOMPARE(value(u"SELECT SUM(dBed)=SUM(dBes) AND SUM(dBed)>0 FROM Docs WHERE iDocNum=%1"_s.arg(contract.m_iDocNum)),
                 u"1"_s);
        QVERIFY(!g_pDlgMessage->takeShown().isEmpty());
    }

    void editingAContractKeepsItsDocumentNumberAndWritesItsRowsAnew()
    {
        filledNew()->accept();
        const QString number = value(u"SELECT iDocNum FROM AutomobilContracts"_s);
        const int key = value(u"SELECT iID FROM AutomobilContracts"_s).toInt();
        const QString before = value(u"SELECT SUM(dBed) FROM Docs"_s);
        auto dialog = opened(key, Mode::Edit);
        type(*dialog, "dAmount", "500000");
        dialog->accept();
        QCOMPARE(value(u"SELECT iDocNum FROM AutomobilContracts"_s), number);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Documents"_s), u"1"_s);
        QVERIFY(value(u"SELECT SUM(dBed) FROM Docs"_s) != before);
        QCOMPARE(value(u"SELECT SUM(dBed)=SUM(dBes) FROM Docs"_s), u"1"_s);
        QCOMPARE(value(u"SELECT dCommission FROM AutomobilContracts"_s).toDouble(), 10000.0);
    }

    void reopenedContractShowsWhatWasSavedAndSavingItAgainChangesNothing()
    {
        auto first = filledNew();
        type(*first, "dDiscountFirst", "500");
        first->accept();
        const int key = value(u"SELECT iID FROM AutomobilContracts"_s).toInt();
        const QString sums = u"SELECT CONCAT_WS('|',dAmount,dCommission,dTax,dImposition,dTax2,dImposition2,dDiscountFirst,dDiscountSecond,"
                             "dPayFirst,dPaySecond,dCommissionEveryPerson,sName1,sName2,iPersonFirstID,iPersonSecondID) FROM AutomobilContracts"_s;
        const QString before = value(sums);
        auto dialog = opened(key, Mode::Edit);
        QCOMPARE(shown(*dialog, "dDiscountFirst"), 500.0);
        QCOMPARE(dialog->basePage()->firstParty()->name(), u"سارا کریمی"_s);
        dialog->accept();
        QCOMPARE(value(sums), before);
    }

    void contractThatDoesNotExistRefusesToOpen()
    {
        QVERIFY(!opened(4711, Mode::Edit));
        QVERIFY(!Dialog::EditContract(4711, false, nullptr));
        bool refresh = true;
        Dialog::ShowContract(0, refresh, nullptr);
        QVERIFY(!refresh);
        Dialog::ShowContract(4711, refresh, nullptr);
        QVERIFY(!refresh);
    }

    void failedSaveKeepsTheWindowTheRowAndTheBooksAsTheyWere()
    {
        auto dialog = filledNew();
        dialog->show();
        m_office->database().run(u"RENAME TABLE Docs TO DocsAway"_s);
        dialog->accept();
        m_office->database().run(u"RENAME TABLE DocsAway TO Docs"_s);
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(shown(*dialog, "dAmount"), 1000000.0);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Documents"_s), u"0"_s);
        QCOMPARE(value(u"SELECT dAmount FROM AutomobilContracts"_s), u"0"_s);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(value(u"SELECT dAmount FROM AutomobilContracts"_s).toDouble(), 1000000.0);
    }

    void uncheckingActiveAndSavingMakesTheContractVoid()
    {
        auto dialog = filledNew();
        QVERIFY(dialog->activeBox()->isChecked());
        dialog->activeBox()->setChecked(false);
        dialog->accept();
        QCOMPARE(value(u"SELECT iStatus FROM AutomobilContracts"_s), u"1"_s);
        auto again = opened(value(u"SELECT iID FROM AutomobilContracts"_s).toInt(), Mode::Edit);
        QVERIFY(!again->activeBox()->isChecked());
    }

    void contractOfTypeLetterShowsNoMatterTab_data()
    {
        QTest::addColumn<int>("contractType");
        QTest::addColumn<bool>("matter");
        QTest::newRow("مبایعه نامه") << 0 << true;
        QTest::newRow("قرارداد اجاره") << 1 << true;
        QTest::newRow("فروش اقساطی") << 2 << true;
        QTest::newRow("قرارداد نامه") << 3 << false;
    }

    void contractOfTypeLetterShowsNoMatterTab()
    {
        QFETCH(int, contractType);
        QFETCH(bool, matter);
        const int key = m_office->addContract([contractType](auto &contract) { contract.m_iContractType = contractType; });
        auto dialog = opened(key, Mode::Edit);
        QStringList tabs;
        for (int i = 0; i < dialog->tabs()->count(); ++i) {
            if (!dialog->tabs()->button(i)->isHidden())
                tabs << dialog->tabs()->button(i)->text();
        }
        QCOMPARE(tabs.contains(u"مشخصات فروش"_s), matter);
        QCOMPARE(tabs.first(), u"اطلاعات پایه"_s);
        QCOMPARE(tabs.mid(tabs.size() - 2), (QStringList{u"پرونده های عمومی"_s, u"پرونده های شخصی"_s}));
        QCOMPARE(dialog->tabs()->currentIndex(), 0);
    }

    void groupTitlesFollowTheType()
    {
        auto dialog = opened(m_office->addContract(), Mode::Edit);
        QCOMPARE(dialog->basePage()->firstParty()->title(), u"فروشنده/طرف اول"_s);
        QCOMPARE(dialog->basePage()->secondParty()->title(), u"خریدار/طرف دوم"_s);
        dialog->basePage()->form()->comboBox(column("iContractType"))->setCurrentIndex(1);
        QCOMPARE(dialog->basePage()->firstParty()->title(), u"اطلاعات موجر"_s);
        QCOMPARE(dialog->basePage()->secondParty()->title(), u"اطلاعات مستاجر"_s);
        QCOMPARE(dialog->windowTitle(), u"قرارداد اجاره- ویرایش"_s);
    }

    void showModeChangesNothing()
    {
        const int key = m_office->addContract([](auto &contract) {
            contract.m_iArchiveUserID = 1;
            contract.m_dateArchive = QDateTime(QDate(2026, 3, 21), QTime(9, 0), Qt::UTC);
        });
        auto dialog = opened(key, Mode::Show);
        const auto *buttons = dialog->findChild<QDialogButtonBox *>();
        QStringList captions;
        for (const QAbstractButton *button : buttons->buttons()) {
            if (!button->isHidden())
                captions << button->text();
        }
        QCOMPARE(captions, QStringList{u"بازگشت"_s});
        QVERIFY(!dialog->activeBox()->isEnabled());
        QVERIFY(dialog->carButton()->isHidden());
        QVERIFY(!dialog->unarchiveButton()->isHidden());
        for (const KFormField &field : dialog->basePage()->form()->fields()) {
            QWidget *control = dialog->basePage()->form()->control(field.column);
            const auto *line = qobject_cast<QLineEdit *>(control);
            QVERIFY2(line ? line->isReadOnly() : !control->isEnabled(), qPrintable(field.column));
        }
        for (QAbstractButton *button : dialog->basePage()->findChildren<QPushButton *>())
            QVERIFY2(button->isHidden(), qPrintable(button->accessibleName()));
        QStringList labels;
        for (const QLabel *label : dialog->basePage()->findChildren<QLabel *>())
            labels << label->text();
        QVERIFY(labels.contains(u"1405/01/01"_s));
        dialog->show();
        dialog->accept();
        QVERIFY(dialog->isVisible());
    }

    void returnedBoxIsShownOnlyWhenTheContractIsNotNew()
    {
        auto created = opened(Dialog::addPlaceholder(), Mode::New);
        QVERIFY(created->basePage()->form()->checkBox(column("bReturn"))->isHidden());
        auto edited = opened(m_office->addContract(), Mode::Edit);
        QCheckBox *box = edited->basePage()->form()->checkBox(column("bReturn"));
        QVERIFY(!box->isHidden());
        QCOMPARE(box->text(), u"برگشتي"_s);
    }

    void unarchivingInShowModeClosesTheWindowAndMakesTheListRefill()
    {
        const int key = m_office->addContract([](auto &contract) { contract.m_iArchiveUserID = 1; });
        bool refresh = false;
        TestOffice::whenModal("CDlgAddAutomobilContract",
                              [](QWidget *window) { static_cast<Dialog *>(window)->unarchiveButton()->click(); });
        Dialog::ShowContract(key, refresh, nullptr);
        QVERIFY(refresh);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این قرارداد از حالت بایگانی خارج شد."_s});
        QCOMPARE(value(u"SELECT iArchiveUserID FROM AutomobilContracts"_s), u"0"_s);
        QVERIFY(!value(u"SELECT dateArchive FROM AutomobilContracts"_s).isEmpty());
    }

    void unarchivingNeedsTheArchiveRight()
    {
        const int key = m_office->addContract([](auto &contract) { contract.m_iArchiveUserID = 1; });
        m_office->logInAs(u"clerk"_s, u"AutomobilContracts"_s, KSecurity::allRights);
        auto dialog = opened(key, Mode::Show);
        dialog->show();
        dialog->unarchiveButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"شما اجازه تغییر دادن ندارید."_s});
        QVERIFY(dialog->isVisible());
        QVERIFY(!dialog->refreshNeeded());
        QCOMPARE(value(u"SELECT iArchiveUserID FROM AutomobilContracts"_s), u"1"_s);
    }

    void unarchiveButtonIsShownOnlyForAnArchivedContract()
    {
        auto dialog = opened(m_office->addContract(), Mode::Show);
        QVERIFY(dialog->unarchiveButton()->isHidden());
    }

    void validationRefusesInItsOrder_data()
    {
        QTest::addColumn<int>("upTo");
        QTest::addColumn<QString>("message");
        QTest::newRow("amount zero") << 0 << u"لطفا مبلغ قرارداد را وارد نمایید."_s;
        QTest::newRow("party 1 name empty") << 1 << u"لطفا شخص اول را انتخاب نمایید."_s;
        QTest::newRow("party 2 name empty") << 2 << u"لطفا شخص دوم را انتخاب نمایید."_s;
        QTest::newRow("same person on both sides") << 3 << u"دو طرف معامله نمی تواند یک شخص باشد."_s;
        QTest::newRow("dated before the fiscal opening date") << 4
                                                              << u"تاریخ عقدقرارداد کوچکتر از تاریخ افتتاحیه می باشد."_s;
    }

    void validationRefusesInItsOrder()
    {
        QFETCH(int, upTo);
        QFETCH(QString, message);
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        dialog->show();
        CDlgAddAutomobilContractBase *base = dialog->basePage();
        base->form()->dateEdit(column("dateContract"))->setDate(QDate(2019, 12, 31));
        // Typed by hand, so that no picker opens for an empty name.
        base->firstParty()->setKind(PartyKind::Other);
        base->secondParty()->setKind(PartyKind::Other);
        if (upTo > 0)
            type(*dialog, "dAmount", "100");
        if (upTo > 1)
            base->firstParty()->personField()->nameEdit()->setText(u"علی"_s);
        if (upTo > 2)
            base->secondParty()->personField()->nameEdit()->setText(u"علی"_s);
        if (upTo > 3)
            base->secondParty()->personField()->nameEdit()->setText(u"رضا"_s);
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{message});
        QVERIFY(dialog->isVisible());
        QCOMPARE(value(u"SELECT dAmount FROM AutomobilContracts"_s), u"0"_s);
    }

    void emptyNameOfAnOrdinaryPartyOpensItsPicker()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        dialog->show();
        type(*dialog, "dAmount", "100");
        bool pickerOpened = false;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            pickerOpened = true;
            static_cast<QDialog *>(window)->reject();
        });
        dialog->accept();
        QVERIFY(pickerOpened);
        QVERIFY(dialog->isVisible());
    }

    void twoPersonsWithIdenticalNamesAreRefused()
    {
        const int namesake = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        auto dialog = filledNew();
        dialog->show();
        dialog->basePage()->secondParty()->takePerson(namesake);
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"دو طرف معامله نمی تواند یک شخص باشد."_s});
        QVERIFY(dialog->isVisible());
    }

    void contractDatedOnTheOpeningDateIsAcceptedAndOneDayBeforeRefused_data()
    {
        QTest::addColumn<QDate>("date");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("one day before") << QDate(2019, 12, 31) << false;
        QTest::newRow("on it") << QDate(2020, 1, 1) << true;
    }

    void contractDatedOnTheOpeningDateIsAcceptedAndOneDayBeforeRefused()
    {
        QFETCH(QDate, date);
        QFETCH(bool, accepted);
        auto dialog = filledNew();
        dialog->show();
        dialog->basePage()->form()->dateEdit(column("dateContract"))->setDate(date);
        dialog->accept();
        QCOMPARE(!dialog->isVisible(), accepted);
        QCOMPARE(g_pDlgWarning->takeShown().isEmpty(), accepted);
    }

    void newContractIsDatedTodayUntilAnotherDateIsTyped()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        QCOMPARE(dialog->basePage()->form()->dateEdit(column("dateContract"))->date(),
                 GetDBSetting()->GetDBServerDate().date());
    }

    void pickedPersonFillsTheGroupAndClearingEmptiesIt()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        ContractPartyGroup *party = dialog->basePage()->firstParty();
        party->takePerson(m_seller);
        auto shownIn = [party](const QString &name) {
            for (const QLineEdit *edit : party->findChildren<QLineEdit *>()) {
                if (edit->accessibleName() == name)
                    return edit->text();
            }
            return u"no such field"_s;
        };
        const QList<std::pair<QString, QString>> expected = {
            {u"نام پدر : طرف اول"_s, u"حسن"_s},
            {u"محل صدور : طرف اول"_s, u"تهران"_s},
            {u"شماره شناسنامه : طرف اول"_s, u"1234"_s},
            {u"تاريخ تولد : طرف اول"_s, u"1364/01/01"_s},
            {u"کد ملي : طرف اول"_s, u"0012345679"_s},
            {u"تلفن : طرف اول"_s, u"02188776655"_s},
            {u"موبايل : طرف اول"_s, u"09121234567"_s},
            {u"آدرس : طرف اول"_s, u"تهران، خیابان آزادی"_s},
        };
        for (const auto &[field, text] : expected)
            QCOMPARE(shownIn(field), text);
        QCOMPARE(party->name(), u"سارا کریمی"_s);
        Q_EMIT party->personField()->changed(0);
        for (const auto &[field, text] : expected)
            QCOMPARE(shownIn(field), QString());
    }

    void partyThatIsTheDealershipPaysOnlyTaxAndDuty()
    {
        CompanyDetails company;
        company.name1 = u"نمایشگاه"_s;
        company.name2 = u"آریا"_s;
        company.telephone = u"02144556677"_s;
        company.nationalCode = u"10101234567"_s;
        company.write();
        auto dialog = filledNew();
        ContractPartyGroup *party = dialog->basePage()->secondParty();
        party->setKind(PartyKind::Showroom);
        QCOMPARE(party->name(), u"نمایشگاه آریا"_s);
        QCOMPARE(dialog->basePage()->form()->edit(column("sTel2"))->text(), u"02144556677"_s);
        QCOMPARE(dialog->basePage()->form()->edit(column("sNationalId2"))->text(), u"10101234567"_s);
        QCOMPARE(shown(*dialog, "dPercentDiscount2"), 0.0);
        QCOMPARE(shown(*dialog, "dDiscountSecond"), 0.0);
        QCOMPARE(shown(*dialog, "dPaySecond"), 1800.0);
        QVERIFY(dialog->basePage()->form()->edit(column("dDiscountSecond"))->isReadOnly());
        QVERIFY(dialog->basePage()->form()->edit(column("sTel2"))->isReadOnly());
        type(*dialog, "dAmount", "500000");
        QCOMPARE(shown(*dialog, "dPaySecond"), 900.0);
        dialog->accept();
        QCOMPARE(value(u"SELECT iPersonContract2 FROM AutomobilContracts"_s), u"1"_s);
        QCOMPARE(value(u"SELECT iPersonSecondID FROM AutomobilContracts"_s), u"0"_s);
        QCOMPARE(value(u"SELECT SUM(dBed)=SUM(dBes) FROM Docs"_s), u"1"_s);
        QVERIFY(value(u"SELECT COUNT(*) FROM Docs WHERE iHesabMoeenCode IN (610502,610503)"_s).toInt() >= 2);
    }

    void partyTypedByHandIsEditableAndKeptInTheContract()
    {
        auto dialog = filledNew();
        ContractPartyGroup *party = dialog->basePage()->firstParty();
        party->setKind(PartyKind::Other);
        QVERIFY(party->name().isEmpty());
        KEdit *mobile = dialog->basePage()->form()->edit(column("sMobile1"));
        QVERIFY(!mobile->isReadOnly());
        QVERIFY(!party->personField()->nameEdit()->isReadOnly());
        party->personField()->nameEdit()->setText(u"غریبه"_s);
        mobile->setText(u"0935"_s);
        dialog->accept();
        auto again = opened(value(u"SELECT iID FROM AutomobilContracts"_s).toInt(), Mode::Edit);
        QCOMPARE(again->basePage()->firstParty()->name(), u"غریبه"_s);
        QCOMPARE(again->basePage()->form()->edit(column("sMobile1"))->text(), u"0935"_s);
        QCOMPARE(again->basePage()->firstParty()->kind(), PartyKind::Other);
        QVERIFY(!again->basePage()->form()->edit(column("sMobile1"))->isReadOnly());
    }

    void amountsStandInWordsBelowTheirFields()
    {
        auto dialog = filledNew();
        QStringList labels;
        for (const QLabel *label : dialog->basePage()->findChildren<QLabel *>())
            labels << label->text();
        QVERIFY(labels.contains(u"یک میلیون"_s));
        QVERIFY(labels.contains(u"بیست هزار"_s));
        QVERIFY(labels.contains(u"بیست و یک هزار و هشتصد"_s));
        QVERIFY(labels.contains(u"نوزده هزار و هشتصد"_s));
    }

    void textLongerThanItsColumnCannotBeTyped()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        QCOMPARE(dialog->basePage()->form()->edit(column("sExplain"))->maxLength(), 250);
        QCOMPARE(dialog->basePage()->form()->edit(column("sPage"))->maxLength(), 20);
        QCOMPARE(dialog->basePage()->form()->edit(column("sMobile1"))->maxLength(), 20);
        QCOMPARE(dialog->basePage()->firstParty()->personField()->nameEdit()->maxLength(), 100);
    }
};

static const RegisteredTest<TestCDlgAddAutomobilContract, KApplication> registeredCDlgAddAutomobilContract;

#include "TestCDlgAddAutomobilContract.moc"
