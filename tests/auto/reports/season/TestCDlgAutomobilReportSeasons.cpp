// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/CAutoDBSetting.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/reports/season/CDlgAutomobilReportSeasons.h"
#include "auto/reports/season/SeasonalColumns.h"
#include "auto/reports/season/SeasonalList.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/reports/ReportPainter.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/lists/KNextRows.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/office/TestOffice.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

using Contract = CTblAutomobilContracts;
using Window = CDlgAutomobilReportSeasons;

namespace {

constexpr int waitMilliseconds = 20'000;

QPushButton *button(const QWidget &window, const QString &caption)
{
    const QList<QPushButton *> buttons = window.findChildren<QPushButton *>();
    const auto found =
        std::find_if(buttons.cbegin(), buttons.cend(), [&](const QPushButton *candidate) { return candidate->text() == caption; });
    return found == buttons.cend() ? nullptr : *found;
}

QString total(const QWidget &window, const QString &label)
{
    const KEdit *edit = named<KEdit>(window, label);
    return edit ? edit->text() : u"there is no "_s + label;
}

void waitUntilIdle(Window &window)
{
    QTRY_VERIFY_WITH_TIMEOUT(!window.isBusy(), waitMilliseconds);
}

}

class TestCDlgAutomobilReportSeasons : public QObject
{
    Q_OBJECT

    TestOffice m_office;

    // In the season and the year that the window opens on.
    static QDateTime thisSeason()
    {
        const ShamsiDate today = GetShamsi(GetDBSetting()->GetDBServerDate().date());
        const int season = qMax(0, today.month / 3 - 1);
        return QDateTime(ConvertToMiladi(today.year, season * 3 + 1, 5), QTime(10, 0), Qt::UTC);
    }

    void addContract(double commission, const std::function<void(Contract &)> &set = {})
    {
        m_office.addContract([&](Contract &contract) {
            contract.m_dateContract = thisSeason();
            contract.m_dCommission = commission;
            if (set)
                set(contract);
        });
    }

private Q_SLOTS:
    void init() { m_office.clear(); }

    void opensOnTodayAndGathersOnce()
    {
        addContract(20'000'000);
        addContract(100);
        WriteSetting(u"DlgAutomobilReportSeasons"_s, u"dMinAmount"_s, u"5000"_s);
        Window window;
        window.show();
        waitUntilIdle(window);
        const ShamsiDate today = GetShamsi(GetDBSetting()->GetDBServerDate().date());
        QCOMPARE(window.windowTitle(), u"گزارش فصلي"_s);
        QCOMPARE(window.year()->integer(), today.year);
        QCOMPARE(window.seasons()->checkedId(), qMax(0, today.month / 3 - 1));
        QCOMPARE(window.kinds()->checkedId(), 0);
        // Over the stored one.
        QCOMPARE(window.minimumAmount()->number(), 16'400'000.0);
        QCOMPARE(window.list()->count(), 3);
        QCOMPARE(total(window, u"مبلغ :"_s), u"40,000,200"_s);
        QCOMPARE(total(window, u"جمع :"_s), u"40,000,200"_s);
        QCOMPARE(total(window, u"تخفيف :"_s), u"0"_s);
        QCOMPARE(total(window, u"ارزش افزوده :"_s), u"0"_s);
    }

    void totalsBelowZeroAreNoWrongEntries()
    {
        addContract(20'000'000, [](Contract &contract) { contract.m_dDiscountFirst = 50'000'000; });
        Window window;
        window.show();
        waitUntilIdle(window);
        QCOMPARE(total(window, u"جمع :"_s), u"-10,000,000"_s);
        const QList<KEdit *> edits = window.findChildren<KEdit *>();
        for (const KEdit *edit : edits)
            QVERIFY2(edit->isEntryValid(), qPrintable(edit->accessibleName()));
    }

    void captionsOfTheControls()
    {
        Window window;
        window.show();
        waitUntilIdle(window);
        for (const char *caption : {"مشخصات شرکت/فروشگاه", "تهيه فايل خروجي اداره ماليات", "چاپ", "مبلغ قابل پرداخت", "بازگشت", "نمایش"})
            QVERIFY2(button(window, QString::fromUtf8(caption)), caption);
        QStringList options;
        for (const QButtonGroup *group : {window.seasons(), window.kinds()}) {
            for (const QAbstractButton *option : group->buttons())
                options.append(option->text());
        }
        QCOMPARE(options, (QStringList{u"بهار"_s, u"تابستان"_s, u"پاييز"_s, u"زمستان"_s, u"فروش"_s, u"خريد"_s}));
        QStringList labels;
        for (const QLabel *label : window.findChildren<QLabel *>())
            labels.append(label->text());
        for (const char *label : {"سال :", "مبالغ کمتر از ", "ريال مجموعاً در يک رديف بيايند", "مبلغ :", "ارزش افزوده :", "تخفيف :", "جمع :"})
            QVERIFY2(labels.contains(QString::fromUtf8(label)), label);
        // The duties exist and are hidden.
        QCOMPARE(total(window, u"عوارض :"_s), u"0"_s);
        for (const QLabel *label : window.findChildren<QLabel *>())
            QCOMPARE(label->text() == u"عوارض :"_s, label->text() == u"عوارض :"_s && label->isHidden());
    }

    void titlesStayThoseOfTheKindThatTheWindowOpenedWith()
    {
        Window window;
        window.show();
        waitUntilIdle(window);
        QCOMPARE(window.list()->listModel()->columnCount(), 30);
        window.kinds()->button(1)->setChecked(true);
        window.refresh();
        waitUntilIdle(window);
        QCOMPARE(window.list()->listModel()->headerData(11, Qt::Horizontal).toString(), u"نام خریدار"_s);
        const QVector<KListModel::Column> purchases = seasonalColumns(SeasonalGathering::Kind::Purchases);
        QCOMPARE(purchases.at(1).title, u"کد خدمت"_s);
        QCOMPARE(purchases.at(2).title, u"نام خدمت"_s);
        QCOMPARE(purchases.at(11).title, u"نام فروشنده"_s);
        QCOMPARE(purchases.at(15).title, u"نوع فروشنده"_s);
    }

    void whileBusyTheWindowCannotBeClosed()
    {
        addContract(20'000'000);
        Window window;
        window.show();
        waitUntilIdle(window);
        const QSignalSpy idle(&window, &Window::idle);
        QPushButton *show = button(window, u"نمایش"_s);
        window.refresh();
        QVERIFY(window.isBusy());
        QCOMPARE(show->text(), u"لطفا صبر کنید..."_s);
        QVERIFY(!show->isEnabled());
        QVERIFY(!button(window, u"چاپ"_s)->isEnabled());
        QVERIFY(!button(window, u"بازگشت"_s)->isEnabled());
        window.reject();
        window.close();
        QVERIFY(window.isVisible());
        window.refresh(); // a second one does not start
        waitUntilIdle(window);
        QCOMPARE(idle.count(), 1);
        QCOMPARE(show->text(), u"نمایش"_s);
        for (const QString &caption : {u"نمایش"_s, u"چاپ"_s, u"بازگشت"_s})
            QVERIFY(button(window, caption)->isEnabled());
        QCOMPARE(window.list()->count(), 2);
        window.reject();
        QVERIFY(!window.isVisible());
    }

    void aStoppedGatheringLeavesNoPartOfASeason()
    {
        for (int i = 0; i < 6000; ++i) {
            m_office.database().run(u"INSERT INTO AutomobilContracts SET dateContract='%1', iCode=%2, dCommission=20000000"_s
                                        .arg(thisSeason().date().toString(Qt::ISODate))
                                        .arg(i));
        }
        Window window;
        window.show();
        QVERIFY(window.isBusy());
        button(window, u"توقف"_s)->click();
        waitUntilIdle(window);
        QCOMPARE(window.list()->count(), 0);
        // Nor is it exported as a season without rows, unless the user wants that.
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        window.exportSeason();
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        window.refresh();
        waitUntilIdle(window);
        QCOMPARE(window.list()->count(), 12'000);
    }

    void anErrorOfTheDatabaseIsToldOnce()
    {
        Window window;
        window.show();
        waitUntilIdle(window);
        m_office.database().run(u"RENAME TABLE FactorStuffs TO Away, Factors TO AwayToo"_s);
        window.refresh();
        waitUntilIdle(window);
        m_office.database().run(u"RENAME TABLE Away TO FactorStuffs, AwayToo TO Factors"_s);
        QCOMPARE((g_pDlgWarning->takeShown() + g_pDlgMessage->takeShown()).size(), 1);
        QVERIFY(button(window, u"نمایش"_s)->isEnabled());
        window.refresh();
        waitUntilIdle(window);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void tooLongAddressesAreToldAndMarked()
    {
        const int person = m_office.addPerson(u"علی"_s, u"رضایی"_s, [](CTblPersons &record) {
            record.m_sAddress = QString(81, u'ن');
        });
        addContract(20'000'000, [person](Contract &contract) { contract.m_iPersonSecondID = person; });
        Window window;
        window.show();
        waitUntilIdle(window);
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{u"1 آدرس دارای طول بیش از 80 کاراکتر می باشند، لطفا اصلاح بفرمایید."_s});
        const KListModel *model = window.list()->listModel();
        using namespace HostColors;
        QCOMPARE(model->index(1, 10).data(Qt::BackgroundRole).value<QBrush>().color(), of(Role::DangerSoft));
        QCOMPARE(model->index(1, 10).data(Qt::ForegroundRole).value<QBrush>().color(), of(Role::Danger));
        QVERIFY(!model->index(0, 10).data(Qt::BackgroundRole).isValid());
        // It is where the user is taken, though its column lies beyond the window's edge.
        QCOMPARE(window.list()->currentRow(), 1);
        const QRect cell = window.list()->visualRect(model->index(1, 10));
        QVERIFY(window.list()->viewport()->rect().contains(cell));
    }

    void theFirstTooLongAddressFollowsTheOrder()
    {
        SeasonalList list;
        QCOMPARE(list.firstTooLongAddress(), -1);
        QVector<SeasonalRow> rows(3);
        for (int i = 0; i < rows.size(); ++i) {
            TaxParty party;
            party.address = QString(i == 0 ? 80 : 81, u'ن');
            rows[i].number = i + 1;
            rows[i].party = std::make_shared<const TaxParty>(party);
        }
        list.append(rows);
        QCOMPARE(list.firstTooLongAddress(), 1);
        list.sort(SeasonalRow::RowNumber, true);
        QCOMPARE(list.firstTooLongAddress(), 0);
    }

    void activatingARowMendsItsParty()
    {
        const int person = m_office.addPerson(u"علی"_s, u"رضایی"_s,
                                              [](CTblPersons &record) { record.m_sAddress = QString(90, u'ن'); });
        addContract(20'000'000, [person](Contract &contract) { contract.m_iPersonFirstID = contract.m_iPersonSecondID = person; });
        Window window;
        window.show();
        waitUntilIdle(window);
        TestOffice::whenModal("CDlgAddPerson", [](QWidget *editor) {
            const QList<QLineEdit *> edits = editor->findChildren<QLineEdit *>();
            for (QLineEdit *edit : edits) {
                if (edit->text().size() == 90)
                    edit->setText(u"تهران"_s);
            }
            static_cast<QDialog *>(editor)->accept();
        });
        Q_EMIT window.list()->rowActivated(1);
        for (const int row : {0, 1}) {
            QCOMPARE(window.list()->cellText(row, 10), u"تهران"_s);
            QVERIFY(!window.list()->listModel()->index(row, 10).data(Qt::BackgroundRole).isValid());
        }
    }

    void activatingARowOfNobodyOpensNothing()
    {
        addContract(20'000'000);
        addContract(1);
        Window window;
        window.show();
        waitUntilIdle(window);
        for (int key = 1; key <= 3; ++key)
            Q_EMIT window.list()->rowActivated(key);
        QVERIFY(!QApplication::activeModalWidget());
    }

    void aClosedDatabaseOnlyShowsTheParty()
    {
        const int person = m_office.addPerson(u"علی"_s, u"رضایی"_s);
        addContract(20'000'000, [person](Contract &contract) { contract.m_iPersonFirstID = person; });
        Window window;
        window.show();
        waitUntilIdle(window);
        GetDBSetting()->SetClosedDB(true);
        QString title;
        TestOffice::whenModal("CDlgAddPerson", [&title](QWidget *editor) {
            title = editor->windowTitle();
            editor->close();
        });
        Q_EMIT window.list()->rowActivated(1);
        GetDBSetting()->SetClosedDB(false);
        QVERIFY2(title.contains(u"نمایش"_s), qPrintable(title));
    }

    void whoMayNotSeePersonsIsToldSo()
    {
        const int person = m_office.addPerson(u"علی"_s, u"رضایی"_s);
        addContract(20'000'000, [person](Contract &contract) { contract.m_iPersonFirstID = person; });
        m_office.logInAs(u"sara"_s, u"AutomobilReportSeasons"_s, KSecurity::allRights);
        Window window;
        window.show();
        waitUntilIdle(window);
        Q_EMIT window.list()->rowActivated(1);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Persons"_s, KSecurity::Read)});
    }

    // The row that is activated is the one that is seen, and the file has the rows as they are seen.
    void activatingARowOfASortedListMendsThatRowsParty()
    {
        const int first = m_office.addPerson(u"علی"_s, u"رضایی"_s);
        const int second = m_office.addPerson(u"مریم"_s, u"کاظمی"_s);
        addContract(20'000'000, [first](Contract &contract) { contract.m_iPersonFirstID = contract.m_iPersonSecondID = first; });
        addContract(90'000'000, [second](Contract &contract) { contract.m_iPersonFirstID = contract.m_iPersonSecondID = second; });
        Window window;
        window.show();
        waitUntilIdle(window);
        Q_EMIT window.list()->columnClicked(4);
        Q_EMIT window.list()->columnClicked(4);
        QCOMPARE(window.list()->cellText(0, 11), u"مریم"_s);
        QString family;
        TestOffice::whenModal("CDlgAddPerson", [&family](QWidget *editor) {
            const QList<QLineEdit *> edits = editor->findChildren<QLineEdit *>();
            for (const QLineEdit *edit : edits)
                family += edit->text() + u'|';
            editor->close();
        });
        const QModelIndex index = window.list()->model()->index(0, 11);
        window.list()->scrollTo(index);
        const QPoint place = window.list()->visualRect(index).center();
        QTest::mouseClick(window.list()->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(window.list()->viewport(), Qt::LeftButton, {}, place);
        QVERIFY2(family.contains(u"کاظمی"_s), qPrintable(family));
    }

    void aPersonDeletedMeanwhileLeavesTheCells()
    {
        const int person = m_office.addPerson(u"علی"_s, u"رضایی"_s);
        addContract(20'000'000, [person](Contract &contract) { contract.m_iPersonFirstID = person; });
        Window window;
        window.show();
        waitUntilIdle(window);
        m_office.database().run(u"DELETE FROM Persons"_s);
        Q_EMIT window.list()->rowActivated(1);
        QCOMPARE(window.list()->cellText(0, 11), u"علی"_s);
    }

    void columnsOfNumbersSortAsNumbers()
    {
        for (const double commission : {20'000'000., 100'000'000., 3'000'000'000.})
            addContract(commission);
        Window window;
        window.show();
        waitUntilIdle(window);
        const auto amounts = [&window] {
            QStringList texts;
            for (int row = 0; row < window.list()->count(); row += 2)
                texts.append(window.list()->cellText(row, 4));
            return texts;
        };
        const QStringList up{u"20,000,000"_s, u"100,000,000"_s, u"3,000,000,000"_s};
        Q_EMIT window.list()->columnClicked(4);
        QCOMPARE(amounts(), up);
        QCOMPARE(window.list()->listModel()->headerData(4, Qt::Horizontal).toString(), u"مبلغ*"_s);
        Q_EMIT window.list()->columnClicked(4);
        QCOMPARE(amounts(), QStringList(up.crbegin(), up.crend()));
        Q_EMIT window.list()->columnClicked(11);
        QCOMPARE(window.list()->listModel()->headerData(4, Qt::Horizontal).toString(), u"مبلغ"_s);
        window.refresh();
        waitUntilIdle(window);
        QCOMPARE(window.list()->listModel()->headerData(11, Qt::Horizontal).toString(), u"نام خریدار"_s);
    }

    // A view lays out anew all that it shows; what it does not show yet belongs to the report all the same.
    void aLongSeasonIsShownStepByStep()
    {
        const int person = m_office.addPerson(u"علی"_s, u"رضایی"_s, [](CTblPersons &record) { record.m_sAddress = QString(81, u'ن'); });
        for (int contract = 1; contract <= 4; ++contract)
            addContract(20'000'000 + contract, [&](Contract &record) { record.m_iPersonSecondID = contract == 4 ? person : 0; });
        Window window;
        window.list()->listModel()->setStep(3);
        window.show();
        waitUntilIdle(window);
        // The one that has to be mended is among the last, and comes into sight with those before it.
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(window.list()->count(), 8);
        QCOMPARE(window.list()->currentRow(), 7);
        QVERIFY(!window.nextRows()->isVisible());
        m_office.database().run(u"UPDATE Persons SET sAddress='' WHERE iID=%1"_s.arg(person));
        window.refresh();
        waitUntilIdle(window);
        QCOMPARE(window.list()->count(), 3);
        QCOMPARE(window.nextRows()->text(), u"نمایش 3 ردیف بعدی"_s);
        const auto onPaper = window.listReport().rows().size();
        QVERIFY(onPaper >= 8);
        Q_EMIT window.list()->columnClicked(4);
        Q_EMIT window.list()->columnClicked(4);
        QCOMPARE(window.list()->cellText(0, 4), u"20,000,004"_s); // of all rows the highest
        window.nextRows()->click();
        QCOMPARE(window.list()->count(), 6);
        QCOMPARE(window.list()->currentRow(), 3);
        QCOMPARE(window.nextRows()->text(), u"نمایش 2 ردیف بعدی"_s);
        window.nextRows()->click();
        QCOMPARE(window.list()->count(), 8);
        QVERIFY(!window.nextRows()->isVisible());
        QCOMPARE(window.listReport().rows().size(), onPaper);
    }

    void theYearIsTypedInDigitsOfAnyScriptAndSteppedByKeys()
    {
        Window window;
        window.show();
        waitUntilIdle(window);
        window.year()->selectAll();
        for (const QChar digit : u"۱۴۰۳"_s) {
            QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString(digit));
            QCoreApplication::sendEvent(window.year(), &key);
        }
        QCOMPARE(window.query().shamsiYear, 1403);
        QTest::keyClick(window.year(), Qt::Key_Up);
        QCOMPARE(window.query().shamsiYear, 1404);
        QTest::keyClick(window.year(), Qt::Key_Down);
        QCOMPARE(window.query().shamsiYear, 1403);
    }

    void aYearThatIsNoneIsRefusedAndStays_data()
    {
        QTest::addColumn<QString>("typed");
        for (const char *typed : {"", "9", "14", "1205", "1499", "14044"})
            QTest::addRow("'%s'", typed) << QString::fromLatin1(typed);
    }

    void aYearThatIsNoneIsRefusedAndStays()
    {
        QFETCH(QString, typed);
        Window window;
        window.show();
        waitUntilIdle(window);
        window.year()->setText(typed);
        window.refresh();
        QVERIFY(!window.isBusy());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"سال : مقدار باید بین 1206 و 1498 باشد."_s});
        QCOMPARE(window.year()->text(), typed);
        QCOMPARE(window.focusWidget(), window.year());
        // Neither does it go anywhere else.
        window.showPayable();
        window.exportSeason();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 2);
    }

    void aMinimumAmountAboveTheHighestIsRefused()
    {
        Window window;
        window.show();
        waitUntilIdle(window);
        window.minimumAmount()->setText(u"16400001"_s);
        window.refresh();
        QVERIFY(!window.isBusy());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"مبالغ کمتر از : مقدار باید بین 0 و 16,400,000 باشد."_s});
        QCOMPARE(window.focusWidget(), window.minimumAmount());
        window.minimumAmount()->setText(u"7000"_s);
        window.reject();
        QCOMPARE(ReadSetting(u"DlgAutomobilReportSeasons"_s, u"dMinAmount"_s, QString()), u"7000"_s);
    }

    void enterInTheMinimumAmountGathers()
    {
        addContract(20'000'000);
        Window window;
        window.show();
        waitUntilIdle(window);
        addContract(30'000'000);
        window.minimumAmount()->setFocus();
        QTest::keyClick(window.minimumAmount(), Qt::Key_Return);
        QTRY_COMPARE_WITH_TIMEOUT(window.list()->count(), 4, waitMilliseconds);
        QCOMPARE(window.focusWidget(), window.list());
        waitUntilIdle(window);
        window.minimumAmount()->setText(u"16400001"_s);
        window.minimumAmount()->setFocus();
        QTest::keyClick(window.minimumAmount(), Qt::Key_Return);
        QTRY_COMPARE(window.focusWidget(), window.minimumAmount());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }

    void whoTypesWhileItGathersKeepsTheFocus()
    {
        addContract(20'000'000);
        Window window;
        window.show();
        QVERIFY(window.isBusy());
        window.year()->setFocus();
        waitUntilIdle(window);
        QCOMPARE(window.focusWidget(), window.year());
        button(window, u"نمایش"_s)->setFocus();
        window.refresh();
        QVERIFY(window.isBusy());
        waitUntilIdle(window);
        QCOMPARE(window.focusWidget(), window.list());
    }

    void payableAmountIsOfTheChosenSeason()
    {
        Window window;
        window.show();
        waitUntilIdle(window);
        addContract(500);
        QString sales;
        TestOffice::whenModal("CDlgPaymentAmount", [&sales](QWidget *dialog) {
            sales = total(*dialog, u"جمع فروش :"_s);
            dialog->close();
        });
        button(window, u"مبلغ قابل پرداخت"_s)->click();
        QCOMPARE(sales, u"1,000"_s);
    }

    void companyDetailsOpen()
    {
        Window window;
        window.show();
        waitUntilIdle(window);
        bool opened = false;
        TestOffice::whenModal("CDlgAddCompanyProps", [&opened](QWidget *dialog) {
            opened = true;
            dialog->close();
        });
        button(window, u"مشخصات شرکت/فروشگاه"_s)->click();
        QVERIFY(opened);
    }

    void reportOnPaper()
    {
        addContract(20'000'000, [](Contract &contract) {
            contract.m_dTax = 5;
            contract.m_dDiscountFirst = 7;
        });
        Window window;
        window.show();
        waitUntilIdle(window);
        const ListReport report = window.listReport();
        QCOMPARE(report.shownTitle(), u"گزارشات"_s);
        QVERIFY(report.text(u"RightCenter"_s).endsWith(u" سال : %1"_s.arg(window.year()->integer())));
        QVERIFY(report.text(u"LeftBottom"_s).startsWith(u"تاریخ چاپ : "_s));
        QCOMPARE(report.text(u"Count"_s), u"تعداد ردیف : 2"_s);
        QCOMPARE(report.text(u"Amount"_s), u"مبلغ : 40,000,000"_s);
        QCOMPARE(report.text(u"Tax"_s), u"مالیات : 5"_s);
        QCOMPARE(report.text(u"Discount"_s), u"تخفیف : 7"_s);
        QCOMPARE(report.text(u"FinalAmount"_s), u"جمع : 39,999,998"_s);
        QCOMPARE(report.rows().size(), 2 + 2);
        const QVector<KListModel::Cell> titles = report.rows().at(2).cells;
        const QVector<KListModel::Cell> sums = report.rows().at(3).cells;
        QCOMPARE(titles.at(4).text, u"جمع مبلغ"_s);
        QCOMPARE(titles.at(5).text, u"جمع مالیات"_s);
        QCOMPARE(titles.at(20).text, u"جمع تخفیف"_s);
        QCOMPARE(titles.at(21).text, u"جمع کل"_s);
        QCOMPARE(sums.at(21).text, u"39,999,998"_s);
        const std::pair<int, double> figures[] = {{4, 40'000'000}, {5, 5}, {20, 7}, {21, 39'999'998}};
        for (const auto &[column, sum] : figures)
            QCOMPARE(sums.at(column).value, QVariant(sum));
    }

    // Amounts, codes and dates must not be parted by the edge of their column, nor one row fill a page.
    void thirtyColumnsStayReadableOnPaper()
    {
        const int person = m_office.addPerson(u"علی"_s, u"رضایی"_s, [](CTblPersons &record) {
            record.m_sPostalCode = u"1234567890"_s;
            record.m_sAreaCode = u"021"_s;
            record.m_sTel = u"22334455"_s;
            record.m_sNationalCode = u"0012345679"_s;
            record.m_sEconomicCode = u"411122223333"_s;
            record.m_sAddress = u"تهران، خیابان ولی عصر، بالاتر از میدان ونک، کوچه گل، پلاک ۱۲، طبقه سوم"_s;
            record.m_iTaxKind = 6;
        });
        for (int i = 0; i < 10; ++i)
            addContract(345'678'901, [person](Contract &contract) { contract.m_iPersonFirstID = contract.m_iPersonSecondID = person; });
        Window window;
        window.show();
        waitUntilIdle(window);
        const ListReport report = window.listReport();
        QCOMPARE(report.shownColumns().size(), 30);
        ReportPainter painter(report);
        QVERIFY(painter.layOut());
        QVERIFY2(painter.pageCount() * 2 < report.rows().size(), qPrintable(QString::number(painter.pageCount())));
        QFont font = QApplication::font();
        font.setPixelSize(qRound(report.layout().fontSize * ReportPainter::resolution / 72));
        const QFontMetricsF metrics(font);
        for (const int column : {4, 5, 7, 8, 9, 13, 14, 15, 20, 21, 22, 23}) {
            const QString text = report.rows().constFirst().cells.at(column).text;
            QVERIFY(!text.isEmpty());
            QVERIFY2(painter.columnWidths().at(std::size_t(column)) > metrics.horizontalAdvance(text), qPrintable(text));
        }
    }

    void exportAsksWhenTheFieldsAreNotThoseOfTheRows()
    {
        Window window;
        window.show();
        waitUntilIdle(window);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        window.kinds()->button(1)->setChecked(true);
        window.exportSeason();
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        window.kinds()->button(0)->setChecked(true);
        // Without the dealership's own details the export goes no further; the question is not asked.
        window.exportSeason();
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 0);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }

    void entryOpensItModallyForWhoMay()
    {
        bool opened = false;
        TestOffice::whenModal("CDlgAutomobilReportSeasons", [&opened](QWidget *widget) {
            auto *window = static_cast<Window *>(widget);
            waitUntilIdle(*window);
            opened = true;
            window->reject();
        });
        GetAutoDBSetting()->ShowAutomobilReportSeasonsDlg();
        QVERIFY(opened);
    }

    void withoutAccessNothingOpens()
    {
        m_office.logInAs(u"reza"_s, u"AutomobilContracts"_s, KSecurity::allRights);
        GetAutoDBSetting()->ShowAutomobilReportSeasonsDlg();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"AutomobilReportSeasons"_s, KSecurity::Access)});
        QVERIFY(!QApplication::activeModalWidget());
    }

    void printingNeedsItsRight()
    {
        m_office.logInAs(u"reza"_s, u"AutomobilReportSeasons"_s, KSecurity::Access);
        Window window;
        window.show();
        waitUntilIdle(window);
        window.print();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"AutomobilReportSeasons"_s, KSecurity::PrintList)});
    }
};

static const RegisteredTest<TestCDlgAutomobilReportSeasons, KApplication> registeredCDlgAutomobilReportSeasons;

#include "TestCDlgAutomobilReportSeasons.moc"
