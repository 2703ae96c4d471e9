// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/attachments/CDlgFileDocs.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "tests/auto/contracts/editor/ContractEditorTest.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QTemporaryFile>
#include <QTest>

using namespace Qt::StringLiterals;

// The contract editor's first page: which field keeps which column, and a contract that is opened again.
class TestContractBasePage : public ContractEditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init() { begin(); }

    // --- Fields and columns ---

    void fieldKeepsItsColumn_data()
    {
        QTest::addColumn<QString>("label");
        const auto row = [](const char *name, const char *label) { QTest::newRow(name) << QString::fromUtf8(label); };
        row("iCode", "کد قرارداد :");
        row("iDocNum", "شماره سند :");
        row("iContractType", "نوع قرارداد :");
        row("dateContract", "تاريخ عقد :");
        row("dateExpiration", "تاريخ انقضاء :");
        row("dateExtension", "تاريخ تمديد :");
        row("sDomainRegister", "حوزه ثبتي :");
        row("sNoAdvice", "مشاور خودرو شماره :");
        row("dAmount", "مبلغ قرارداد :");
        row("dCommission", "حق کميسيون :");
        row("dCommissionEveryPerson", "کميسيون دريافتي از هر طرفين :");
        row("sCommitmentFirstHand", "تعهدات مربوط به طرف اول :");
        row("sCommitmentsSecondHand", "تعهدات مربوط به طرف دوم :");
        row("sDeal", "مورد معامله :");
        row("sExplain", "شرح قرارداد :");
        row("sDesc", "توضيحات :");
        row("sPage", "خلاصه اين قرارداد در صفحه :");
        row("sCover", "جلد :");
        row("iNum", "شماره :");
        row("dateSummary", "و تاريخ :");
        for (const char *name : {"iPersonContract1", "iPersonContract2"})
            row(name, "شخص قرارداد :");
        for (const char *name : {"sByVirtueFirst", "sByVirtueSecond"})
            row(name, "بموجب :");
        for (const char *name : {"sFromFirst", "sFromSecond"})
            row(name, "از طرف :");
        for (const char *name : {"sNationalId1", "sNationalId2"})
            row(name, "کد ملي :");
        for (const char *name : {"sAddress1", "sAddress2"})
            row(name, "آدرس :");
        for (const char *name : {"sTel1", "sTel2"})
            row(name, "تلفن :");
        for (const char *name : {"sMobile1", "sMobile2"})
            row(name, "موبايل :");
        for (const char *name : {"dPercentTax", "dTax", "dPercentTax2", "dTax2"})
            row(name, "ماليات :");
        for (const char *name : {"dPercentImpsition", "dImposition", "dPercentImposition2", "dImposition2"})
            row(name, "عوارض :");
        for (const char *name : {"dPercentDiscount", "dDiscountFirst", "dPercentDiscount2", "dDiscountSecond"})
            row(name, "تخفيف :");
        for (const char *name : {"dPayFirst", "dPaySecond"})
            row(name, "پرداختي :");
    }

    void fieldKeepsItsColumn()
    {
        QFETCH(QString, label);
        auto dialog = opened(m_office->addContract(), Mode::Edit);
        const KForm *form = dialog->basePage()->form();
        QCOMPARE(form->label(QString::fromLatin1(QTest::currentDataTag()))->text(), label);
    }

    void everyFieldIsStoredAndShownAgain()
    {
        auto dialog = opened(m_office->addContract(), Mode::Edit);
        CDlgAddAutomobilContractBase *base = dialog->basePage();
        base->firstParty()->setKind(PartyKind::Other);
        base->secondParty()->setKind(PartyKind::Other);
        base->firstParty()->personField()->nameEdit()->setText(u"نام یک"_s);
        base->secondParty()->personField()->nameEdit()->setText(u"نام دو"_s);
        QHash<QString, QVariant> expected;
        int number = 0;
        for (const KFormField &field : base->form()->fields()) {
            ++number;
            QWidget *control = base->form()->control(field.column);
            if (field.column == column("iDocNum"))
                continue;
            if (auto *date = qobject_cast<KDateEdit *>(control)) {
                date->setDate(QDate(2026, 1, 1).addDays(number));
                expected.insert(field.column, date->dateTime());
            } else if (auto *combo = qobject_cast<QComboBox *>(control)) {
                const QSignalBlocker blocker(combo);
                combo->setCurrentIndex(2);
                expected.insert(field.column, 2);
            } else if (auto *box = qobject_cast<QCheckBox *>(control)) {
                box->setChecked(true);
                expected.insert(field.column, 1);
            } else if (field.kind == KFormField::Kind::Text) {
                base->form()->edit(field.column)->setText(u"متن %1"_s.arg(number));
                expected.insert(field.column, u"متن %1"_s.arg(number));
            } else {
                base->form()->edit(field.column)->setNumber(number);
                expected.insert(field.column, number);
            }
        }
        fillMatterPage(*dialog->matterPage());
        dialog->accept();
        QVERIFY2(!dialog->isVisible(), qPrintable(g_pDlgWarning->takeShown().join(u'|')));
        CTblAutomobilContracts row;
        QVERIFY(row.IsRecordExist(u"iID"_s, key()));
        for (auto it = expected.cbegin(); it != expected.cend(); ++it)
            QVERIFY2(row.value(it.key()) == it.value(), qPrintable(it.key()));
        QCOMPARE(row.m_sName1, u"نام یک"_s);
        QCOMPARE(row.m_sName2, u"نام دو"_s);
        QCOMPARE(row.m_iPersonFirstID, 0);
        QVERIFY(row.m_iDocNum > 0);

        auto again = opened(key(), Mode::Edit);
        for (const KFormField &field : again->basePage()->form()->fields()) {
            const QWidget *control = again->basePage()->form()->control(field.column);
            if (const auto *line = qobject_cast<const KEdit *>(control); line && field.kind == KFormField::Kind::Text)
                QCOMPARE(line->text(), expected.value(field.column).toString());
            else if (const auto *date = qobject_cast<const KDateEdit *>(control))
                QCOMPARE(date->dateTime(), expected.value(field.column).toDateTime());
            else if (const auto *combo = qobject_cast<const QComboBox *>(control))
                QCOMPARE(combo->currentIndex(), 2);
        }
        QCOMPARE(edit(*again, "iDocNum")->integer(), row.m_iDocNum);
        QVERIFY(edit(*again, "iDocNum")->isReadOnly());
    }

    void percentagesGoFromZeroToHundred_data()
    {
        QTest::addColumn<QString>("column");
        for (const char *name : {"dPercentTax", "dPercentImpsition", "dPercentDiscount", "dPercentTax2",
                                 "dPercentImposition2", "dPercentDiscount2"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void percentagesGoFromZeroToHundred()
    {
        QFETCH(QString, column);
        auto dialog = filledNew();
        KEdit *percent = dialog->basePage()->form()->edit(column);
        QCOMPARE(percent->minimum(), 0.0);
        QCOMPARE(percent->maximum(), 100.0);
        percent->setText(u"100.5"_s);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(dialog->focusWidget(), percent);
        QCOMPARE(percent->text(), u"100.5"_s);
    }

    void shownArchivedContractTellsWhoArchivedItAndWhen()
    {
        const int contract = m_office->addContract([this](auto &row) {
            row.m_iArchiveUserID = m_office->adminID();
            row.m_dateArchive = QDateTime(QDate(2026, 3, 21), QTime(9, 0), Qt::UTC);
        });
        QStringList texts;
        auto dialog = opened(contract, Mode::Show);
        for (const QLabel *label : dialog->basePage()->findChildren<QLabel *>()) {
            if (label->isVisible())
                texts << label->text();
        }
        QVERIFY(texts.contains(u"مدیر"_s));
        QVERIFY(texts.contains(u"1405/01/01"_s));
        auto edited = opened(m_office->addContract(), Mode::Edit);
        for (const QLabel *label : edited->basePage()->findChildren<QLabel *>())
            QVERIFY(label->text() != u"تاريخ بايگاني :"_s || !label->isVisible());
    }

    // --- A contract that is opened again ---

    void figuresOfAnOpenedContractFollowEachOther()
    {
        filledNew()->accept();
        auto dialog = opened(key(), Mode::Edit);
        type(*dialog, "dPercentTax", "10");
        QCOMPARE(shown(*dialog, "dTax"), 2000.0);
        QCOMPARE(shown(*dialog, "dPayFirst"), 22600.0);
        type(*dialog, "dPercentDiscount2", "50");
        QCOMPARE(shown(*dialog, "dDiscountSecond"), 10000.0);
    }

    void openedContractWithTheDealershipStaysWithItsRule()
    {
        auto created = filledNew();
        CompanyDetails company;
        company.name1 = u"نمایشگاه"_s;
        company.name2 = u"آریا"_s;
        company.address = u"میدان ونک"_s;
        company.mobile = u"0935"_s;
        company.write();
        created->basePage()->secondParty()->setKind(PartyKind::Showroom);
        QCOMPARE(edit(*created, "sAddress2")->text(), u"میدان ونک"_s);
        QCOMPARE(edit(*created, "sMobile2")->text(), u"0935"_s);
        created->accept();
        auto dialog = opened(key(), Mode::Edit);
        QCOMPARE(dialog->basePage()->secondParty()->name(), u"نمایشگاه آریا"_s);
        QVERIFY(edit(*dialog, "dPercentDiscount2")->isReadOnly());
        QVERIFY(!edit(*dialog, "dPercentDiscount")->isReadOnly());
        type(*dialog, "dAmount", "500000");
        QCOMPARE(shown(*dialog, "dPaySecond"), 900.0);
        QCOMPARE(shown(*dialog, "dPayFirst"), 10900.0);
    }

    void openedContractThatTheDealershipSellsStaysWithItsRule()
    {
        auto created = filledNew();
        created->basePage()->firstParty()->setKind(PartyKind::Showroom);
        created->basePage()->firstParty()->personField()->nameEdit()->setText(u"نمایشگاه"_s);
        created->accept();
        auto dialog = opened(key(), Mode::Edit);
        type(*dialog, "dAmount", "500000");
        QCOMPARE(shown(*dialog, "dPayFirst"), 900.0);
    }

    // Only a new contract is dated by itself; an old one without a date is not dated behind the user's back.
    void openedContractWithoutADateStaysWithoutOne()
    {
        auto dialog = opened(m_office->addContract([](auto &row) { row.m_dateContract = QDateTime(); }), Mode::Edit);
        QVERIFY(!dialog->basePage()->form()->dateEdit(column("dateContract"))->dateTime().isValid());
    }

    void openedContractShowsItsPersonsFromTheListOfPersons()
    {
        filledNew()->accept();
        auto dialog = opened(key(), Mode::Edit);
        QCOMPARE(named<QLineEdit>(*dialog, u"نام پدر : طرف اول"_s)->text(), u"حسن"_s);
        QCOMPARE(named<QLineEdit>(*dialog, u"تاريخ تولد : طرف اول"_s)->text(), u"1364/01/01"_s);
    }

    // They come from the person record, unless the party is typed by hand.
    void personFieldsAreEditableOnlyForAPartyTypedByHand_data()
    {
        QTest::addColumn<QString>("label");
        for (const char *label : {"نام و نام خانوادگي :", "نام پدر :", "تاريخ تولد :", "محل صدور :", "شماره شناسنامه :",
                                  "کد ملي :", "آدرس :", "تلفن :", "موبايل :"})
            QTest::newRow(label) << QString::fromUtf8(label) + u" طرف دوم"_s;
    }

    void personFieldsAreEditableOnlyForAPartyTypedByHand()
    {
        QFETCH(QString, label);
        auto dialog = filledNew();
        ContractPartyGroup *party = dialog->basePage()->secondParty();
        QVERIFY(named<QLineEdit>(*party, label) && named<QLineEdit>(*party, label)->isReadOnly());
        party->setKind(PartyKind::Other);
        QVERIFY(!named<QLineEdit>(*party, label)->isReadOnly());
        party->setKind(PartyKind::Showroom);
        QVERIFY(named<QLineEdit>(*party, label)->isReadOnly());
        party->setKind(PartyKind::Ordinary);
        QVERIFY(named<QLineEdit>(*party, label)->isReadOnly());
    }

    void personWhoIsGoneKeepsTheNameInTheContract()
    {
        filledNew()->accept();
        m_office->database().run(u"DELETE FROM Persons WHERE iID=%1"_s.arg(m_seller));
        auto dialog = opened(key(), Mode::Edit);
        QCOMPARE(dialog->basePage()->firstParty()->name(), u"سارا کریمی"_s);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(value(u"SELECT CONCAT_WS('|',iPersonFirstID,sName1) FROM AutomobilContracts"_s),
                 u"%1|سارا کریمی"_s.arg(m_seller));
    }

    void personWhoDoesNotExistIsNotTaken()
    {
        auto dialog = filledNew();
        dialog->basePage()->secondParty()->takePerson(999999);
        QCOMPARE(dialog->basePage()->secondParty()->name(), u"رضا احمدی"_s);
        QCOMPARE(dialog->basePage()->secondParty()->personField()->personID(), m_buyer);
        QCOMPARE(shown(*dialog, "dPercentDiscount2"), 10.0);
    }

    void anotherPersonBringsTheOwnDiscountAlsoWhenItIsNone()
    {
        const int third = m_office->addPerson(u"مینا"_s, u"راد"_s);
        auto dialog = filledNew();
        dialog->basePage()->secondParty()->takePerson(third);
        QCOMPARE(shown(*dialog, "dPercentDiscount2"), 0.0);
        QCOMPARE(shown(*dialog, "dDiscountSecond"), 0.0);
        QCOMPARE(shown(*dialog, "dPaySecond"), 21800.0);
    }

    void filesBelongToTheContract()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write("text");
        file.flush();
        auto dialog = opened(m_office->addContract(), Mode::Edit);
        const QList<CDlgFileDocs *> pages = dialog->findChildren<CDlgFileDocs *>();
        QCOMPARE(pages.size(), 2);
        for (CDlgFileDocs *page : pages)
            QVERIFY(page->addFile(file.fileName()));
        QCOMPARE(value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',iTable,iRecordID,iScope) ORDER BY iScope) FROM FileDocs"_s),
                 u"69/%1/0,69/%1/1"_s.arg(key()));
    }
};

static const RegisteredTest<TestContractBasePage, KApplication> registeredContractBasePage;

#include "TestContractBasePage.moc"
