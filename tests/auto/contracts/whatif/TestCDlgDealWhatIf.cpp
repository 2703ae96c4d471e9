// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/whatif/CDlgDealWhatIf.h"

#include "auto/db/CTblAutomobilInformations.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestCDlgDealWhatIf : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    static double shown(const CDlgDealWhatIf &dialog, const char *name) { return dialog.edit(QString::fromLatin1(name))->number(); }
    static void type(const CDlgDealWhatIf &dialog, const char *name, const char *text)
    {
        KEdit *edit = dialog.edit(QString::fromLatin1(name));
        edit->selectAll();
        QTest::keyClicks(edit, QString::fromLatin1(text));
    }
    static QString textOf(const ListReport &sheet)
    {
        QString text;
        for (const KListModel::Row &row : sheet.rows())
            text += row.cells.at(0).text + u'=' + row.cells.at(1).text + u'\n';
        return text;
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        ContractSettings settings;
        settings.taxPercent = 9;
        settings.dutyPercent = 1;
        settings.tiers.ceilings = {1'000'000, 5'000'000, 0};
        settings.tiers.percents = {2, 1, 0};
        settings.save();
    }

    void marginFollowsThePriceAsItIsTyped()
    {
        CDlgDealWhatIf dialog({.car = u"پژو"_s, .price = 500'000, .purchase = 400'000});
        dialog.show();
        QCOMPARE(shown(dialog, "commission"), 10'000.0);
        QCOMPARE(shown(dialog, "margin"), 120'000.0);
        type(dialog, "price", "600000");
        QCOMPARE(shown(dialog, "commission"), 12'000.0);
        QCOMPARE(shown(dialog, "margin"), 224'000.0);
        QCOMPARE(shown(dialog, "buyerPays"), 613'200.0);
    }

    void commissionIsEnteredWhereNoTierSaysIt()
    {
        CDlgDealWhatIf dialog({.car = {}, .price = 500'000});
        dialog.show();
        QVERIFY(dialog.edit(u"commission"_s)->isReadOnly());
        type(dialog, "price", "9000000");
        QVERIFY(!dialog.edit(u"commission"_s)->isReadOnly());
        type(dialog, "commission", "70000");
        QCOMPARE(shown(dialog, "commissionMargin"), 140'000.0);
    }

    void theCustomersSheetSaysNothingOfTheMargin()
    {
        CDlgDealWhatIf dialog({.car = u"پژو 206"_s, .price = 1'000'000, .purchase = 777'000, .expenses = 11'000});
        dialog.show();
        type(dialog, "atOnce", "400000");
        type(dialog, "count", "6");
        const QString sheet = textOf(dialog.sheet());
        QVERIFY(sheet.contains(u"خودرو=پژو 206"_s));
        QVERIFY2(sheet.contains(u"قیمت=1,000,000"_s), qPrintable(sheet));
        QVERIFY2(sheet.contains(u"مبلغ هر قسط=100,000"_s), qPrintable(sheet));
        for (const QString &own : {u"777"_s, u"سود"_s, u"مخارج"_s, u"11,000"_s})
            QVERIFY2(!sheet.contains(own), qPrintable(sheet));
    }

    void aCarOfTheRegisterBringsItsAmounts()
    {
        const int car = m_office->addCar([](CTblAutomobilInformations &c) {
            c.m_dAmount = 900'000;
            c.m_dPurchasePriceOfOwner = 800'000;
            c.m_dAutomobilExpenses = 5'000;
        });
        double price = 0;
        double purchase = 0;
        double expenses = 0;
        TestOffice::whenModal("CDlgDealWhatIf", [&](QWidget *window) {
            auto *dialog = static_cast<CDlgDealWhatIf *>(window);
            price = shown(*dialog, "price");
            purchase = shown(*dialog, "purchase");
            expenses = shown(*dialog, "expenses");
            dialog->reject();
        });
        CDlgDealWhatIf::ShowCar(car, 0, nullptr);
        QCOMPARE(price, 900'000.0);
        QCOMPARE(purchase, 800'000.0);
        QCOMPARE(expenses, 5'000.0);
    }
};

static const RegisteredTest<TestCDlgDealWhatIf, KApplication> registeredCDlgDealWhatIf;
#include "TestCDlgDealWhatIf.moc"
