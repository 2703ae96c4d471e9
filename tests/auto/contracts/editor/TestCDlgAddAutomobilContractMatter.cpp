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
        return field.column == QStringLiteral("sModel") ? QStringLiteral("1402") : QStringLiteral("متن %1").arg(number);
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
            contract.m_sName1 = QStringLiteral("سارا کریمی");
            contract.m_sName2 = QStringLiteral("رضا احمدی");
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
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilPayments"));
    }

    void labelsAreThoseOfTheForm_data()
    {
        QTest::addColumn<QString>("label");
        QTest::newRow("sAutomobilName") << QStringLiteral("نام اتومبيل :");
        QTest::newRow("sColor") << QStringLiteral("رنگ :");
        QTest::newRow("sAutomobilType") << QStringLiteral("نوع اتومبيل :");
        QTest::newRow("sSystem") << QStringLiteral("سيستم :");
        QTest::newRow("sModel") << QStringLiteral("سال توليد :");
        QTest::newRow("sBrigade") << QStringLiteral("تيپ :");
        QTest::newRow("sNumOfEngines") << QStringLiteral("شماره موتور :");
        QTest::newRow("sFuel") << QStringLiteral("نوع سوخت :");
        QTest::newRow("sNumOFAxles") << QStringLiteral("تعداد محور :");
        QTest::newRow("sVIN") << QStringLiteral("VIN :");
        QTest::newRow("sNumOfPlates") << QStringLiteral("شماره پلاک :");
        QTest::newRow("sChassisNum") << QStringLiteral("شماره شاسي :");
        QTest::newRow("sNumOfWheels") << QStringLiteral("تعداد چرخ :");
        QTest::newRow("sDengue") << QStringLiteral("دانگ :");
        QTest::newRow("sDescMatter") << QStringLiteral("توضيحات :");
        QTest::newRow("sDocumentsDelivered") << QStringLiteral("لوازم تحويلي :");
        QTest::newRow("sRegistryNum") << QStringLiteral("شماره دفتر خانه :");
        QTest::newRow("sRightTahrir") << QStringLiteral("حق تحرير :");
        QTest::newRow("dateDeal") << QStringLiteral("تاريخ معامله :");
        QTest::newRow("dateOffice") << QStringLiteral("تاريخ تنظيم سند در دفتر اسناد رسمي :");
        QTest::newRow("dateDocument") << QStringLiteral("تاريخ تنظيم سند طبق قرارداد :");
        QTest::newRow("sSampleDescOne") << QStringLiteral("توضيحات نمونه :");
        QTest::newRow("sSampleDescTwo") << QStringLiteral("توضيحات نمونه :");
        QTest::newRow("sAddressSample") << QStringLiteral("آدرس مشاور نمونه :");
        QTest::newRow("dFixAmount") << QStringLiteral("پرداخت به صورت نقدي :");
        QTest::newRow("sCheckCount") << QStringLiteral("پرداخت به صورت چکي : تعداد :");
        QTest::newRow("dAgreeAmount") << QStringLiteral("فقره چک، که مجموع مبالغ آنها :");
        QTest::newRow("sCheckNum") << QStringLiteral("شماره چک :");
        QTest::newRow("sBankName") << QStringLiteral("نام بانک :");
        QTest::newRow("sBranchName") << QStringLiteral("نام شعبه :");
        QTest::newRow("sBranchCode") << QStringLiteral("کد شعبه :");
        QTest::newRow("dRemainingAmount") << QStringLiteral("الباقي :");
        QTest::newRow("sDescRemainingAmount") << QStringLiteral("شرح الباقي مبلغ :");
        QTest::newRow("dDamageAmount") << QStringLiteral("خسارت تخلف :");
        QTest::newRow("dCompenseAmount") << QStringLiteral("مبلغ جبران خسارت :");
        QTest::newRow("sBillNumOne") << QStringLiteral("قبض شماره يک :");
        QTest::newRow("sBillNumTwo") << QStringLiteral("قيض شماره دو :");
        QTest::newRow("dateTradeUnit") << QStringLiteral("تاريخ قرارداد در واحد صنفي :");
        QTest::newRow("dEveryHandDealAmount") << QStringLiteral("منطبق با تعرفه از هر طرف معامله مبلغ :");
        QTest::newRow("sCity") << QStringLiteral("شهرستان :");
        QTest::newRow("sState") << QStringLiteral("استان :");
        QTest::newRow("sLicense") << QStringLiteral("پروانه :");
        QTest::newRow("dAmountRent") << QStringLiteral("مبلغ مال الاجاره :");
        QTest::newRow("sRentTime") << QStringLiteral("مدت اجاره :");
        QTest::newRow("dateRent") << QStringLiteral("تاريخ اجاره :");
        QTest::newRow("dateRentExpire") << QStringLiteral("تاريخ انقضاء اجاره :");
        QTest::newRow("sNumOfMonths") << QStringLiteral("تعداد ماه :");
        QTest::newRow("sNumOfInstallment") << QStringLiteral("تعداد اقساط :");
        QTest::newRow("sUsanceNum") << QStringLiteral("شماره هاي سر رسيد :");
        QTest::newRow("sDescCheck") << QStringLiteral("شرح چک/ سفته :");
        QTest::newRow("dDelayAmount") << QStringLiteral("مبلغ تاخير :");
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
        QCOMPARE(matterTab(*dialog)->text(), QStringLiteral("مشخصات فروش"));
        QStringList titles;
        for (const QGroupBox *box : dialog->matterPage()->findChildren<QGroupBox *>())
            titles << box->title();
        QVERIFY(titles.contains(QStringLiteral("موضوع مشخصات مورد معامله")));
        for (const QPushButton *button : dialog->matterPage()->findChildren<QPushButton *>())
            QVERIFY(button->text() != QStringLiteral("دريافت تجميعي"));
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
        const std::pair<QString, QString> period[] = {{column("sRentTime"), QStringLiteral("مدت معامله :")},
                                                      {column("dateRent"), QStringLiteral("از تاریخ :")},
                                                      {column("dateRentExpire"), QStringLiteral("لغایت :")}};
        for (const auto &[name, label] : period) {
            QCOMPARE(form(*dialog).label(name)->text(), label);
            QCOMPARE(form(*dialog).control(name)->accessibleName(), label);
        }
        setType(*dialog, rent);
        QCOMPARE(form(*dialog).label(column("sRentTime"))->text(), QStringLiteral("مدت اجاره :"));
        QCOMPARE(form(*dialog).control(column("dateRent"))->accessibleName(), QStringLiteral("تاريخ اجاره :"));
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
        form(*dialog).edit(column("sRentTime"))->setText(QStringLiteral("دو سال"));
        form(*dialog).edit(column("sColor"))->setText(QStringLiteral("نقره ای"));
        const auto before = stored(key);
        setType(*dialog, sale);
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        const auto after = stored(key);
        QCOMPARE(after->m_iContractType, sale);
        QCOMPARE(after->m_sColor, QStringLiteral("نقره ای"));
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
        form(*dialog).dateEdit(column("dateRent"))->setText(QStringLiteral("1405/13/01"));
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
        QTest::newRow("car name, before all others") << QStringLiteral("sAutomobilName sModel sColor sNumOfPlates")
                                                     << QStringLiteral("لطفا نام اتومبیل را مشخص کنید.") << QStringLiteral("sAutomobilName");
        QTest::newRow("year") << QStringLiteral("sModel sColor sNumOfPlates") << QStringLiteral("لطفا سال را بزرگتر از سال 1000 وارد کنید.") << QStringLiteral("sModel");
        QTest::newRow("colour") << QStringLiteral("sColor sNumOfPlates") << QStringLiteral("لطفا رنگ خودرو را مشخص کنید.") << QStringLiteral("sColor");
        QTest::newRow("an empty plate is refused only after name, year and colour pass")
            << QStringLiteral("sNumOfPlates") << QStringLiteral("لطفا شماره پلاک را وارد کنید.") << QStringLiteral("sNumOfPlates");
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
            form(*dialog).edit(name)->setText(QStringLiteral(" "));
        form(*dialog).edit(column("sVIN"))->setText(QStringLiteral("IR1"));
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{message});
        QCOMPARE(dialog->tabs()->currentPage(), dialog->matterPage());
        QCOMPARE(dialog->focusWidget(), form(*dialog).control(focus));
        QVERIFY(stored(key)->m_sVIN != QStringLiteral("IR1"));
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM Documents")), QStringLiteral("0"));
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
        const QString plate = QStringLiteral("12 ب 345 ایران 67");
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

    void yearOf999Or3001IsRefused1000And3000AreAccepted_data()
    {
        QTest::addColumn<QString>("year");
        QTest::addColumn<QString>("storedYear");
        QTest::newRow("999") << QStringLiteral("999") << QString();
        QTest::newRow("3001") << QStringLiteral("3001") << QString();
        QTest::newRow("1000") << QStringLiteral("1000") << QStringLiteral("1000");
        QTest::newRow("3000") << QStringLiteral("3000") << QStringLiteral("3000");
        QTest::newRow("Persian digits are stored as ASCII digits") << QStringLiteral("۱۴۰۲") << QStringLiteral("1402");
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
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("لطفا سال را بزرگتر از سال 1000 وارد کنید.")});
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
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("لطفا مبلغ قرارداد را وارد نمایید.")});
        QCOMPARE(dialog->tabs()->currentPage(), dialog->basePage());
    }

    void contractOfTypeLetterNeverShowsThisPageAndNeverValidatesIt()
    {
        const int key = fullContract(letter);
        m_office->database().run(QStringLiteral("UPDATE AutomobilContracts SET sAutomobilName='', sModel='', sColor='', sNumOfPlates=''"));
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
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("لطفا رنگ خودرو را مشخص کنید.")});
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
        form(*dialog).edit(column("sColor"))->setText(QStringLiteral("نقره ای"));
        dialog->basePage()->form()->edit(column("sExplain"))->setText(QStringLiteral("شرح"));
        m_office->database().run(QStringLiteral("RENAME TABLE Docs TO DocsAway"));
        dialog->accept();
        m_office->database().run(QStringLiteral("RENAME TABLE DocsAway TO Docs"));
        QVERIFY(dialog->isVisible());
        QVERIFY(stored(key)->m_sColor != QStringLiteral("نقره ای"));
        QCOMPARE(form(*dialog).edit(column("sColor"))->text(), QStringLiteral("نقره ای"));
        g_pDlgWarning->takeShown();
        dialog->accept();
        QCOMPARE(stored(key)->m_sColor, QStringLiteral("نقره ای"));
        QCOMPARE(stored(key)->m_sExplain, QStringLiteral("شرح"));
    }

    void showModeChangesNothingAndNeverValidates()
    {
        const int key = fullContract(instalments);
        m_office->database().run(QStringLiteral("UPDATE AutomobilContracts SET sAutomobilName=''"));
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
        province->setCurrentText(QStringLiteral("فارس"));
        QCOMPARE(city->itemText(0), QStringLiteral("شیراز"));
        city->setCurrentText(QStringLiteral("جهرم"));
        // Another province: a city that lies elsewhere goes, one that is typed by hand stays.
        province->setCurrentText(QStringLiteral("البرز"));
        QCOMPARE(city->currentText(), QString());
        QVERIFY(city->findText(QStringLiteral("کرج")) >= 0);
        city->setEditText(QStringLiteral("روستای بالا"));
        province->setEditText(QStringLiteral("قم"));
        QCOMPARE(city->currentText(), QStringLiteral("روستای بالا"));
        province->setEditText(QStringLiteral("ناکجا"));
        QCOMPARE(city->count(), 0);
        QCOMPARE(city->currentText(), QStringLiteral("روستای بالا"));
    }

    void storedPlacesAreShownAsTheyAreAndTypedOnesAreLimitedToTheirColumns()
    {
        const int key = m_office->addContract([](auto &contract) {
            contract.m_sState = QStringLiteral("فارس");
            contract.m_sCity = QStringLiteral("کرج");
        });
        auto dialog = opened(key, Mode::Edit);
        QComboBox *city = form(*dialog).comboBox(column("sCity"));
        QCOMPARE(city->currentText(), QStringLiteral("کرج"));
        QCOMPARE(city->itemText(0), QStringLiteral("شیراز"));
        QCOMPARE(city->lineEdit()->maxLength(), 50);
        QCOMPARE(form(*dialog).comboBox(column("sState"))->currentIndex(),
                 form(*dialog).comboBox(column("sState"))->findText(QStringLiteral("فارس")));
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
        QVERIFY(labels.contains(QStringLiteral("دو میلیون")));
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
        m_office->database().run(QStringLiteral("UPDATE AutomobilContracts SET dFixAmount=0, dAgreeAmount=3000000"));
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
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM AutomobilPayments WHERE iAutomobilContractID=%1 "
                                                           "AND iPersonID=%2")
                                                .arg(key)
                                                .arg(m_buyer)),
                 show ? QStringLiteral("0") : QStringLiteral("3"));
    }

    void cancellingANewContractLeavesNoPlanBehind()
    {
        TestOffice::whenModal("CDlgAddAutomobilContract", [this](QWidget *window) {
            const int key = m_office->database().value(QStringLiteral("SELECT iID FROM AutomobilContracts")).toInt();
            InstalmentTerms terms;
            terms.principal = 1200;
            terms.count = 2;
            terms.interval = 1;
            terms.start = QDate(2026, 5, 1);
            StoredInstalments::save(key, 1, m_buyer, terms, instalmentPlan(terms));
            QCOMPARE(m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM AutomobilPayments")), QStringLiteral("2"));
            static_cast<QDialog *>(window)->reject();
        });
        QCOMPARE(Dialog::NewContract(nullptr), 0);
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM AutomobilPayments")), QStringLiteral("0"));
    }
};

static const RegisteredTest<TestCDlgAddAutomobilContractMatter, KApplication> registered;

#include "TestCDlgAddAutomobilContractMatter.moc"
