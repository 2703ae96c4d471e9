// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/CDlgAddAutomobilContractMatter.h"
#include "auto/contracts/instalments/CDlgCalcPayment.h"
#include "auto/contracts/instalments/InstalmentPlan.h"
#include "auto/contracts/editor/MatterFields.h"
#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/frame/KTabPageButtons.h"
#include "tests/auto/contracts/editor/ContractEditorTest.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int sale = 0;
constexpr int rent = 1;
constexpr int instalments = 2;
constexpr int letter = 3;

QDateTime at(const QDate &date, const QTime &time = QTime(0, 0))
{
    return QDateTime(date, time, Qt::UTC);
}

// A value of the column's own that fits it.
QVariant sampleValue(const KFormField &field, int number)
{
    switch (field.kind) {
    case KFormField::Kind::Money:
        return 1000.0 * number;
    case KFormField::Kind::Date:
        return at(QDate(2026, 1, 1).addDays(number), QTime(14, 30));
    default:
        return field.column == u"sModel"_s ? u"1402"_s : u"متن %1"_s.arg(number);
    }
}

}

class TestCDlgAddAutomobilContractMatter : public ContractEditorTest
{
    Q_OBJECT

    // A saved contract of the type with both parties, whose matter columns all hold a value of their own.
    int fullContract(int contractType)
    {
        return m_office->addContract([&](CTblAutomobilContracts &contract) {
            contract.m_iContractType = contractType;
            contract.m_dAmount = 9'000'000;
            contract.m_iPersonFirstID = m_seller;
            contract.m_iPersonSecondID = m_buyer;
            contract.m_sName1 = u"سارا کریمی"_s;
            contract.m_sName2 = u"رضا احمدی"_s;
            int number = 0;
            for (const KFormField &field : matterFields())
                contract.setValue(field.column, sampleValue(field, ++number));
        });
    }

    static KForm &form(const Dialog &dialog) { return *dialog.matterPage()->form(); }

    static void setType(Dialog &dialog, int contractType)
    {
        dialog.basePage()->form()->comboBox(column("iContractType"))->setCurrentIndex(contractType);
    }

    static QAbstractButton *matterTab(const Dialog &dialog) { return dialog.tabs()->button(1); }

    static std::unique_ptr<CTblAutomobilContracts> stored(int key)
    {
        auto contract = std::make_unique<CTblAutomobilContracts>();
        if (!contract->IsRecordExist(column("iID"), key))
            qFatal("the contract is gone");
        return contract;
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        begin();
        m_office->database().run(u"DELETE FROM AutomobilPayments"_s);
    }

    void labelsAreThoseOfTheForm_data()
    {
        QTest::addColumn<QString>("label");
        QTest::newRow("sAutomobilName") << u"نام اتومبيل :"_s;
        QTest::newRow("sColor") << u"رنگ :"_s;
        QTest::newRow("sAutomobilType") << u"نوع اتومبيل :"_s;
        QTest::newRow("sSystem") << u"سيستم :"_s;
        QTest::newRow("sModel") << u"سال توليد :"_s;
        QTest::newRow("sBrigade") << u"تيپ :"_s;
        QTest::newRow("sNumOfEngines") << u"شماره موتور :"_s;
        QTest::newRow("sFuel") << u"نوع سوخت :"_s;
        QTest::newRow("sNumOFAxles") << u"تعداد محور :"_s;
        QTest::newRow("sVIN") << u"VIN :"_s;
        QTest::newRow("sNumOfPlates") << u"شماره پلاک :"_s;
        QTest::newRow("sChassisNum") << u"شماره شاسي :"_s;
        QTest::newRow("sNumOfWheels") << u"تعداد چرخ :"_s;
        QTest::newRow("sDengue") << u"دانگ :"_s;
        QTest::newRow("sDescMatter") << u"توضيحات :"_s;
        QTest::newRow("sDocumentsDelivered") << u"لوازم تحويلي :"_s;
        QTest::newRow("sRegistryNum") << u"شماره دفتر خانه :"_s;
        QTest::newRow("sRightTahrir") << u"حق تحرير :"_s;
        QTest::newRow("dateDeal") << u"تاريخ معامله :"_s;
        QTest::newRow("dateOffice") << u"تاريخ تنظيم سند در دفتر اسناد رسمي :"_s;
        QTest::newRow("dateDocument") << u"تاريخ تنظيم سند طبق قرارداد :"_s;
        QTest::newRow("sSampleDescOne") << u"توضيحات نمونه :"_s;
        QTest::newRow("sSampleDescTwo") << u"توضيحات نمونه :"_s;
        QTest::newRow("sAddressSample") << u"آدرس مشاور نمونه :"_s;
        QTest::newRow("dFixAmount") << u"پرداخت به صورت نقدي :"_s;
        QTest::newRow("sCheckCount") << u"پرداخت به صورت چکي : تعداد :"_s;
        QTest::newRow("dAgreeAmount") << u"فقره چک، که مجموع مبالغ آنها :"_s;
        QTest::newRow("sCheckNum") << u"شماره چک :"_s;
        QTest::newRow("sBankName") << u"نام بانک :"_s;
        QTest::newRow("sBranchName") << u"نام شعبه :"_s;
        QTest::newRow("sBranchCode") << u"کد شعبه :"_s;
        QTest::newRow("dRemainingAmount") << u"الباقي :"_s;
        QTest::newRow("sDescRemainingAmount") << u"شرح الباقي مبلغ :"_s;
        QTest::newRow("dDamageAmount") << u"خسارت تخلف :"_s;
        QTest::newRow("dCompenseAmount") << u"مبلغ جبران خسارت :"_s;
        QTest::newRow("sBillNumOne") << u"قبض شماره يک :"_s;
        QTest::newRow("sBillNumTwo") << u"قيض شماره دو :"_s;
        QTest::newRow("dateTradeUnit") << u"تاريخ قرارداد در واحد صنفي :"_s;
        QTest::newRow("dEveryHandDealAmount") << u"منطبق با تعرفه از هر طرف معامله مبلغ :"_s;
        QTest::newRow("sCity") << u"شهرستان :"_s;
        QTest::newRow("sState") << u"استان :"_s;
        QTest::newRow("sLicense") << u"پروانه :"_s;
        QTest::newRow("dAmountRent") << u"مبلغ مال الاجاره :"_s;
        QTest::newRow("sRentTime") << u"مدت اجاره :"_s;
        QTest::newRow("dateRent") << u"تاريخ اجاره :"_s;
        QTest::newRow("dateRentExpire") << u"تاريخ انقضاء اجاره :"_s;
        QTest::newRow("sNumOfMonths") << u"تعداد ماه :"_s;
        QTest::newRow("sNumOfInstallment") << u"تعداد اقساط :"_s;
        QTest::newRow("sUsanceNum") << u"شماره هاي سر رسيد :"_s;
        QTest::newRow("sDescCheck") << u"شرح چک/ سفته :"_s;
        QTest::newRow("dDelayAmount") << u"مبلغ تاخير :"_s;
    }

    void labelsAreThoseOfTheForm()
    {
        QFETCH(QString, label);
        // Sale and rent show every label as it stands in the table of fields.
        auto dialog = opened(fullContract(rent), Mode::Edit);
        // A mark of direction, which nobody sees, is no part of the words.
        QString shown = form(*dialog).label(QString::fromLatin1(QTest::currentDataTag()))->text();
        QCOMPARE(shown.remove(QChar(0x200F)), label);
    }

    void pageHasItsHeadingAndItsTab()
    {
        auto dialog = opened(fullContract(sale), Mode::Edit);
        QCOMPARE(matterTab(*dialog)->text(), u"مشخصات فروش"_s);
        QStringList titles;
        for (const QGroupBox *box : dialog->matterPage()->findChildren<QGroupBox *>())
            titles << box->title();
        QVERIFY(titles.contains(u"موضوع مشخصات مورد معامله"_s));
        for (const QPushButton *button : dialog->matterPage()->findChildren<QPushButton *>())
            QVERIFY(button->text() != u"دريافت تجميعي"_s);
    }

    void eachTypeShowsItsFields_data()
    {
        QTest::addColumn<int>("contractType");
        QTest::addColumn<QStringList>("hidden");
        QTest::addColumn<bool>("terms");
        QTest::addColumn<bool>("plan");
        const auto list = [](const char *text) { return QString::fromLatin1(text).split(u' '); };
        QTest::newRow("sale")
            << sale
            << list("dFixAmount dAmountRent sRentTime dateRent dateRentExpire sNumOfMonths sNumOfInstallment sUsanceNum dDelayAmount")
            << false << false;
        QTest::newRow("rent") << rent << list("dFixAmount sNumOfInstallment sUsanceNum dDelayAmount") << true << false;
        QTest::newRow("instalment sale") << instalments
                                         << list("dFixAmount dateDocument dateOffice sNumOfMonths sDescCheck dRemainingAmount "
                                                 "sDescRemainingAmount dAmountRent")
                                         << true << true;
    }

    void eachTypeShowsItsFields()
    {
        QFETCH(int, contractType);
        QFETCH(QStringList, hidden);
        QFETCH(bool, terms);
        QFETCH(bool, plan);
        auto dialog = opened(fullContract(contractType), Mode::Edit);
        for (const KFormField &field : form(*dialog).fields()) {
            const bool isHidden = hidden.contains(field.column);
            QVERIFY2(form(*dialog).control(field.column)->isHidden() == isHidden, qPrintable(field.column));
            QVERIFY2(form(*dialog).label(field.column)->isHidden() == isHidden, qPrintable(field.column));
        }
        QCOMPARE(!form(*dialog).control(column("sRentTime"))->parentWidget()->isHidden(), terms);
        QCOMPARE(!dialog->matterPage()->instalmentsButton()->isHidden(), plan);
    }

    void instalmentSaleNamesItsPeriodInItsOwnWords()
    {
        auto dialog = opened(fullContract(instalments), Mode::Edit);
        const std::pair<QString, QString> period[] = {{column("sRentTime"), u"مدت معامله :"_s},
                                                      {column("dateRent"), u"از تاریخ :"_s},
                                                      {column("dateRentExpire"), u"لغایت :"_s}};
        for (const auto &[name, label] : period) {
            QCOMPARE(form(*dialog).label(name)->text(), label);
            QCOMPARE(form(*dialog).control(name)->accessibleName(), label);
        }
        setType(*dialog, rent);
        QCOMPARE(form(*dialog).label(column("sRentTime"))->text(), u"مدت اجاره :"_s);
        QCOMPARE(form(*dialog).control(column("dateRent"))->accessibleName(), u"تاريخ اجاره :"_s);
    }

    void everyFieldShowsWhatIsStoredAndSavingChangesNothing_data()
    {
        QTest::addColumn<int>("contractType");
        QTest::newRow("sale") << sale;
        QTest::newRow("rent") << rent;
        QTest::newRow("instalment sale") << instalments;
    }

    void everyFieldShowsWhatIsStoredAndSavingChangesNothing()
    {
        QFETCH(int, contractType);
        const int key = fullContract(contractType);
        auto dialog = opened(key, Mode::Edit);
        QCOMPARE(form(*dialog).edit(column("sVIN"))->plainText(), stored(key)->m_sVIN);
        QCOMPARE(form(*dialog).comboBox(column("sCity"))->currentText(), stored(key)->m_sCity);
        QCOMPARE(form(*dialog).edit(column("dDamageAmount"))->number(), stored(key)->m_dDamageAmount);
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        const auto after = stored(key);
        int number = 0;
        for (const KFormField &field : matterFields()) {
            ++number;
            // An instalment sale works this one out.
            if (contractType != instalments || field.column != column("dRemainingAmount"))
                QVERIFY2(after->value(field.column) == sampleValue(field, number), qPrintable(field.column));
        }
        QVERIFY(after->m_iDocNum > 0);
    }

    void everyShownFieldGoesToItsColumn()
    {
        const int key = fullContract(rent);
        auto dialog = opened(key, Mode::Edit);
        int number = 100;
        for (const KFormField &field : matterFields()) {
            const QVariant value = sampleValue(field, ++number);
            QWidget *control = form(*dialog).control(field.column);
            if (field.kind == KFormField::Kind::Money)
                qobject_cast<KEdit *>(control)->setText(QString::number(value.toDouble(), 'f', 0));
            else if (field.kind == KFormField::Kind::Date)
                qobject_cast<KDateEdit *>(control)->setDate(value.toDate());
            else if (field.kind == KFormField::Kind::EditableChoice)
                qobject_cast<QComboBox *>(control)->setEditText(value.toString());
            else
                qobject_cast<KEdit *>(control)->setText(value.toString());
        }
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        const auto after = stored(key);
        number = 100;
        for (const KFormField &field : matterFields()) {
            QVariant wanted = sampleValue(field, ++number);
            if (field.kind == KFormField::Kind::Date)
                wanted = at(wanted.toDate());
            if (form(*dialog).isUsed(field.column))
                QVERIFY2(after->value(field.column) == wanted, qPrintable(field.column));
        }
    }

    void fieldsThatTheTypeDoesNotShowKeepWhatIsStored()
    {
        const int key = fullContract(rent);
        auto dialog = opened(key, Mode::Edit);
        form(*dialog).edit(column("sRentTime"))->setText(u"دو سال"_s);
        form(*dialog).edit(column("sColor"))->setText(u"نقره ای"_s);
        const auto before = stored(key);
        setType(*dialog, sale);
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        const auto after = stored(key);
        QCOMPARE(after->m_iContractType, sale);
        QCOMPARE(after->m_sColor, u"نقره ای"_s);
        QCOMPARE(after->m_sRentTime, before->m_sRentTime);
        QCOMPARE(after->m_dAmountRent, before->m_dAmountRent);
        QCOMPARE(after->m_dFixAmount, before->m_dFixAmount);
        QCOMPARE(after->m_sNumOfInstallment, before->m_sNumOfInstallment);
    }

    void instalmentSaleStatesWhatIsLeftToPay()
    {
        const int key = fullContract(instalments);
        auto dialog = opened(key, Mode::Edit);
        dialog->basePage()->form()->edit(column("dAmount"))->setNumber(900'000'000);
        form(*dialog).edit(column("dAgreeAmount"))->setNumber(300'000'000);
        const double cash = form(*dialog).edit(column("dFixAmount"))->number();
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        QCOMPARE(stored(key)->m_dRemainingAmount, 600'000'000 - cash);
    }

    void invalidEntryInAFieldThatTheTypeDoesNotShowHindersNoSave()
    {
        auto dialog = opened(fullContract(rent), Mode::Edit);
        dialog->show();
        form(*dialog).dateEdit(column("dateRent"))->setText(u"1405/13/01"_s);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        setType(*dialog, sale);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
    }

    void validationRefusesInItsOrderAndGoesToTheField_data()
    {
        QTest::addColumn<QString>("emptied");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("focus");
        QTest::newRow("car name, before all others") << u"sAutomobilName sModel sColor sNumOfPlates"_s
                                                     << u"لطفا نام اتومبیل را مشخص کنید."_s << u"sAutomobilName"_s;
        QTest::newRow("year") << u"sModel sColor sNumOfPlates"_s << u"لطفا سال را بزرگتر از سال 1000 وارد کنید."_s << u"sModel"_s;
        QTest::newRow("colour") << u"sColor sNumOfPlates"_s << u"لطفا رنگ خودرو را مشخص کنید."_s << u"sColor"_s;
        QTest::newRow("an empty plate is refused only after name, year and colour pass")
            << u"sNumOfPlates"_s << u"لطفا شماره پلاک را وارد کنید."_s << u"sNumOfPlates"_s;
    }

    void validationRefusesInItsOrderAndGoesToTheField()
    {
        QFETCH(QString, emptied);
        QFETCH(QString, message);
        QFETCH(QString, focus);
        const int key = fullContract(sale);
        auto dialog = opened(key, Mode::Edit);
        dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        for (const QString &name : emptied.split(u' '))
            form(*dialog).edit(name)->setText(u" "_s);
        form(*dialog).edit(column("sVIN"))->setText(u"IR1"_s);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{message});
        QCOMPARE(dialog->tabs()->currentPage(), dialog->matterPage());
        QCOMPARE(dialog->focusWidget(), form(*dialog).control(focus));
        QVERIFY(stored(key)->m_sVIN != u"IR1"_s);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM Documents"_s), u"0"_s);
    }

    void numbersOfTheVehicleReadFromTheLeft_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"sNumOfPlates", "sVIN", "sChassisNum", "sNumOfEngines"})
            QTest::newRow(name) << column(name);
    }

    void numbersOfTheVehicleReadFromTheLeft()
    {
        QFETCH(QString, name);
        const QString plate = u"12 ب 345 ایران 67"_s;
        const int key = fullContract(sale);
        auto dialog = opened(key, Mode::Edit);
        KEdit *edit = form(*dialog).edit(name);
        edit->setText(plate);
        QCOMPARE(edit->layoutDirection(), Qt::LeftToRight);
        QVERIFY(!edit->text().isRightToLeft());
        dialog->accept();
        QVERIFY2(!dialog->isVisible(), qPrintable(g_pDlgWarning->takeShown().join(u'|')));
        QCOMPARE(stored(key)->value(name).toString(), plate);
    }

    void unusualVehicleIsAskedAboutOnce_data()
    {
        QTest::addColumn<QString>("year");
        QTest::addColumn<QString>("wheels");
        QTest::addColumn<QString>("question");
        QTest::addColumn<QString>("field");
        const QString sure = u"\nمطمئن هستید؟"_s;
        QTest::newRow("year") << u"1000"_s << u"4"_s << u"سال تولید 1000 معمول نیست."_s + sure << u"sModel"_s;
        QTest::newRow("wheels") << u"1402"_s << u"۴۵ چرخ"_s << u"تعداد چرخ 45 معمول نیست."_s + sure << u"sNumOfWheels"_s;
        QTest::newRow("both") << u"3000"_s << u"13"_s << u"سال تولید 3000 معمول نیست.\nتعداد چرخ 13 معمول نیست."_s + sure << u"sModel"_s;
    }

    void unusualVehicleIsAskedAboutOnce()
    {
        QFETCH(QString, year);
        QFETCH(QString, wheels);
        QFETCH(QString, question);
        QFETCH(QString, field);
        const int key = fullContract(sale);
        auto dialog = opened(key);
        form(*dialog).edit(column("sModel"))->setText(year);
        form(*dialog).edit(column("sNumOfWheels"))->setText(wheels);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{question});
        QCOMPARE(dialog->focusWidget(), form(*dialog).edit(field));
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{question});
        QCOMPARE(stored(key)->m_sModel, year);
    }

    void yearOf999Or3001IsRefused1000And3000AreAccepted_data()
    {
        QTest::addColumn<QString>("year");
        QTest::addColumn<QString>("storedYear");
        QTest::newRow("999") << u"999"_s << QString();
        QTest::newRow("3001") << u"3001"_s << QString();
        QTest::newRow("1000") << u"1000"_s << u"1000"_s;
        QTest::newRow("3000") << u"3000"_s << u"3000"_s;
        QTest::newRow("Persian digits are stored as ASCII digits") << u"۱۴۰۲"_s << u"1402"_s;
    }

    void yearOf999Or3001IsRefused1000And3000AreAccepted()
    {
        QFETCH(QString, year);
        QFETCH(QString, storedYear);
        const int key = fullContract(sale);
        auto dialog = opened(key, Mode::Edit);
        dialog->show();
        form(*dialog).edit(column("sModel"))->setText(year);
        dialog->accept();
        QCOMPARE(!dialog->isVisible(), !storedYear.isEmpty());
        if (!storedYear.isEmpty()) {
            QCOMPARE(stored(key)->m_sModel, storedYear);
            return;
        }
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا سال را بزرگتر از سال 1000 وارد کنید."_s});
        QCOMPARE(form(*dialog).edit(column("sModel"))->selectedText(), year);
    }

    void basePageIsValidatedBeforeTheMatterAndComesToTheFront()
    {
        auto dialog = opened(fullContract(sale), Mode::Edit);
        dialog->show();
        dialog->tabs()->setCurrentIndex(1);
        form(*dialog).edit(column("sAutomobilName"))->clear();
        dialog->basePage()->form()->edit(column("dAmount"))->setText(QString());
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا مبلغ قرارداد را وارد نمایید."_s});
        QCOMPARE(dialog->tabs()->currentPage(), dialog->basePage());
    }

    void contractOfTypeLetterNeverShowsThisPageAndNeverValidatesIt()
    {
        const int key = fullContract(letter);
        m_office->database().run(u"UPDATE AutomobilContracts SET sAutomobilName='', sModel='', sColor='', sNumOfPlates=''"_s);
        auto dialog = opened(key, Mode::Edit);
        dialog->show();
        QVERIFY(matterTab(*dialog)->isHidden());
        dialog->tabs()->setCurrentIndex(1);
        QCOMPARE(dialog->tabs()->currentPage(), dialog->basePage());
        dialog->tabs()->nextPage();
        QVERIFY(dialog->tabs()->currentPage() != dialog->matterPage());
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        const auto after = stored(key);
        QCOMPARE(after->m_sAutomobilName, QString());
        QVERIFY(!after->m_sVIN.isEmpty());
    }

    void tabComesAndGoesWithTheTypeThatIsChosen()
    {
        const int key = fullContract(letter);
        auto dialog = opened(key, Mode::Edit);
        dialog->show();
        setType(*dialog, instalments);
        QVERIFY(!matterTab(*dialog)->isHidden());
        QVERIFY(matterTab(*dialog)->isEnabled());
        form(*dialog).edit(column("sColor"))->clear();
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا رنگ خودرو را مشخص کنید."_s});
        setType(*dialog, letter);
        QVERIFY(matterTab(*dialog)->isHidden());
        QCOMPARE(dialog->tabs()->currentPage() == dialog->matterPage(), false);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QVERIFY(!stored(key)->m_sColor.isEmpty());
    }

    void failedSaveWritesNeitherPage()
    {
        const int key = fullContract(sale);
        auto dialog = opened(key, Mode::Edit);
        dialog->show();
        form(*dialog).edit(column("sColor"))->setText(u"نقره ای"_s);
        dialog->basePage()->form()->edit(column("sExplain"))->setText(u"شرح"_s);
        m_office->database().run(u"RENAME TABLE Docs TO DocsAway"_s);
        dialog->accept();
        m_office->database().run(u"RENAME TABLE DocsAway TO Docs"_s);
        QVERIFY(dialog->isVisible());
        QVERIFY(stored(key)->m_sColor != u"نقره ای"_s);
        QCOMPARE(form(*dialog).edit(column("sColor"))->text(), u"نقره ای"_s);
        g_pDlgWarning->takeShown();
        dialog->accept();
        QCOMPARE(stored(key)->m_sColor, u"نقره ای"_s);
        QCOMPARE(stored(key)->m_sExplain, u"شرح"_s);
    }

    void showModeChangesNothingAndNeverValidates()
    {
        const int key = fullContract(instalments);
        m_office->database().run(u"UPDATE AutomobilContracts SET sAutomobilName=''"_s);
        auto dialog = opened(key, Mode::Show);
        dialog->show();
        dialog->tabs()->setCurrentIndex(1);
        QCOMPARE(dialog->tabs()->currentPage(), dialog->matterPage());
        for (const KFormField &field : form(*dialog).fields()) {
            QWidget *control = form(*dialog).control(field.column);
            const auto *line = qobject_cast<QLineEdit *>(control);
            QVERIFY2(line ? line->isReadOnly() : !control->isEnabled(), qPrintable(field.column));
        }
        QVERIFY(dialog->matterPage()->validate());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    }

    void cityListFollowsTheProvince()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        QComboBox *province = form(*dialog).comboBox(column("sState"));
        QComboBox *city = form(*dialog).comboBox(column("sCity"));
        QCOMPARE(province->count(), 31);
        QCOMPARE(city->count(), 0);
        province->setCurrentText(u"فارس"_s);
        QCOMPARE(city->itemText(0), u"شیراز"_s);
        city->setCurrentText(u"جهرم"_s);
        // Another province: a city of another province is cleared, one typed by hand stays.
        province->setCurrentText(u"البرز"_s);
        QCOMPARE(city->currentText(), QString());
        QVERIFY(city->findText(u"کرج"_s) >= 0);
        city->setEditText(u"روستای بالا"_s);
        province->setEditText(u"قم"_s);
        QCOMPARE(city->currentText(), u"روستای بالا"_s);
        province->setEditText(u"ناکجا"_s);
        QCOMPARE(city->count(), 0);
        QCOMPARE(city->currentText(), u"روستای بالا"_s);
    }

    void storedPlacesAreShownAsTheyAreAndTypedOnesAreLimitedToTheirColumns()
    {
        const int key = m_office->addContract([](auto &contract) {
            contract.m_sState = u"فارس"_s;
            contract.m_sCity = u"کرج"_s;
        });
        auto dialog = opened(key, Mode::Edit);
        QComboBox *city = form(*dialog).comboBox(column("sCity"));
        QCOMPARE(city->currentText(), u"کرج"_s);
        QCOMPARE(city->itemText(0), u"شیراز"_s);
        QCOMPARE(city->lineEdit()->maxLength(), 50);
        QCOMPARE(form(*dialog).comboBox(column("sState"))->currentIndex(),
                 form(*dialog).comboBox(column("sState"))->findText(u"فارس"_s));
        QCOMPARE(form(*dialog).edit(column("sRentTime"))->maxLength(), 20);
        QCOMPARE(form(*dialog).edit(column("sDescMatter"))->maxLength(), 255);
    }

    void amountsStandInWordsBelowTheirFields()
    {
        auto dialog = opened(fullContract(sale), Mode::Edit);
        form(*dialog).edit(column("dDamageAmount"))->setNumber(2'000'000);
        QStringList labels;
        for (const QLabel *label : dialog->matterPage()->findChildren<QLabel *>()) {
            if (!label->isHidden())
                labels << label->text();
        }
        QVERIFY(labels.contains(u"دو میلیون"_s));
    }

    void tabGoesThroughTheFieldsAsTheyStand()
    {
        auto dialog = opened(fullContract(sale), Mode::Edit);
        dialog->show();
        dialog->tabs()->setCurrentIndex(1);
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        form(*dialog).control(column("sAutomobilName"))->setFocus();
        for (const char *next : {"sAutomobilType", "sSystem", "sBrigade", "sModel", "sColor", "sNumOfPlates"}) {
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
            QCOMPARE(dialog->focusWidget(), form(*dialog).control(column(next)));
        }
    }

    void planIsProposedForWhatIsNotPaidByCheque()
    {
        auto dialog = opened(fullContract(instalments), Mode::Edit);
        form(*dialog).edit(column("dFixAmount"))->setNumber(0);
        form(*dialog).edit(column("dAgreeAmount"))->setNumber(4'000'000);
        QCOMPARE(dialog->matterPage()->amountLeftOf(9'000'000), 5'000'000.0);
        QCOMPARE(dialog->matterPage()->amountLeftOf(3'000'000), 0.0);
    }

    void instalmentsButtonOpensTheCalculatorForTheContractAndItsBuyer_data()
    {
        QTest::addColumn<bool>("show");
        QTest::newRow("while editing") << false;
        QTest::newRow("read-only in show mode") << true;
    }

    void instalmentsButtonOpensTheCalculatorForTheContractAndItsBuyer()
    {
        QFETCH(bool, show);
        const int key = fullContract(instalments);
        m_office->database().run(u"UPDATE AutomobilContracts SET dFixAmount=0, dAgreeAmount=3000000"_s);
        auto dialog = opened(key, show ? Mode::Show : Mode::Edit);
        dialog->show();
        dialog->tabs()->setCurrentIndex(1);
        bool came = false;
        TestOffice::whenModal("CDlgCalcPayment", [&](QWidget *window) {
            auto &calculator = static_cast<CDlgCalcPayment &>(*window);
            came = true;
            QCOMPARE(calculator.terms().principal, 6'000'000.0);
            InstalmentTerms terms = calculator.terms();
            terms.count = 3;
            terms.interval = 1;
            terms.start = QDate(2026, 5, 1);
            calculator.setTerms(terms);
            calculator.calculate();
            calculator.savePlan();
            calculator.reject();
        });
        dialog->matterPage()->instalmentsButton()->click();
        QVERIFY(came);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM AutomobilPayments WHERE iAutomobilContractID=%1 "
                                            "AND iPersonID=%2"_s
                                                .arg(key)
                                                .arg(m_buyer)),
                 show ? u"0"_s : u"3"_s);
    }

    void cancellingANewContractLeavesNoPlanBehind()
    {
        TestOffice::whenModal("CDlgAddAutomobilContract", [this](QWidget *window) {
            const int key = m_office->database().value(u"SELECT iID FROM AutomobilContracts"_s).toInt();
            InstalmentTerms terms;
            terms.principal = 1200;
            terms.count = 2;
            terms.interval = 1;
            terms.start = QDate(2026, 5, 1);
            StoredInstalments::save({key, 1, m_buyer}, {}, terms, instalmentPlan(terms));
            QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM AutomobilPayments"_s), u"2"_s);
            static_cast<QDialog *>(window)->reject();
        });
        QCOMPARE(Dialog::NewContract(nullptr), 0);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM AutomobilPayments"_s), u"0"_s);
    }
};

static const RegisteredTest<TestCDlgAddAutomobilContractMatter, KApplication> registeredCDlgAddAutomobilContractMatter;

#include "TestCDlgAddAutomobilContractMatter.moc"
