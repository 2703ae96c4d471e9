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
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
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
    return edit ? edit->text() : QStringLiteral("there is no ") + label;
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
        WriteSetting(QStringLiteral("DlgAutomobilReportSeasons"), QStringLiteral("dMinAmount"), QStringLiteral("5000"));
        Window window;
        window.show();
        waitUntilIdle(window);
        const ShamsiDate today = GetShamsi(GetDBSetting()->GetDBServerDate().date());
        QCOMPARE(window.windowTitle(), QStringLiteral("گزارش فصلي"));
        QCOMPARE(window.year()->integer(), today.year);
        QCOMPARE(window.seasons()->checkedId(), qMax(0, today.month / 3 - 1));
        QCOMPARE(window.kinds()->checkedId(), 0);
        // Over the stored one.
        QCOMPARE(window.minimumAmount()->number(), 16'400'000.0);
        QCOMPARE(window.list()->count(), 3);
        QCOMPARE(total(window, QStringLiteral("مبلغ :")), QStringLiteral("40,000,200"));
        QCOMPARE(total(window, QStringLiteral("جمع :")), QStringLiteral("40,000,200"));
        QCOMPARE(total(window, QStringLiteral("تخفيف :")), QStringLiteral("0"));
        QCOMPARE(total(window, QStringLiteral("ارزش افزوده :")), QStringLiteral("0"));
    }

    void totalsBelowZeroAreNoWrongEntries()
    {
        addContract(20'000'000, [](Contract &contract) { contract.m_dDiscountFirst = 50'000'000; });
        Window window;
        window.show();
        waitUntilIdle(window);
        QCOMPARE(total(window, QStringLiteral("جمع :")), QStringLiteral("-10,000,000"));
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
        QCOMPARE(options, (QStringList{QStringLiteral("بهار"), QStringLiteral("تابستان"), QStringLiteral("پاييز"), QStringLiteral("زمستان"), QStringLiteral("فروش"), QStringLiteral("خريد")}));
        QStringList labels;
        for (const QLabel *label : window.findChildren<QLabel *>())
            labels.append(label->text());
        for (const char *label : {"سال :", "مبالغ کمتر از ", "ريال مجموعاً در يک رديف بيايند", "مبلغ :", "ارزش افزوده :", "تخفيف :", "جمع :"})
            QVERIFY2(labels.contains(QString::fromUtf8(label)), label);
        // The duties exist and are hidden.
        QCOMPARE(total(window, QStringLiteral("عوارض :")), QStringLiteral("0"));
        for (const QLabel *label : window.findChildren<QLabel *>())
            QCOMPARE(label->text() == QStringLiteral("عوارض :"), label->text() == QStringLiteral("عوارض :") && label->isHidden());
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
        QCOMPARE(window.list()->listModel()->headerData(11, Qt::Horizontal).toString(), QStringLiteral("نام خریدار"));
        const QVector<KListModel::Column> purchases = seasonalColumns(SeasonalGathering::Kind::Purchases);
        QCOMPARE(purchases.at(1).title, QStringLiteral("کد خدمت"));
        QCOMPARE(purchases.at(2).title, QStringLiteral("نام خدمت"));
        QCOMPARE(purchases.at(11).title, QStringLiteral("نام فروشنده"));
        QCOMPARE(purchases.at(15).title, QStringLiteral("نوع فروشنده"));
    }

    void whileBusyTheWindowCannotBeClosed()
    {
        addContract(20'000'000);
        Window window;
        window.show();
        waitUntilIdle(window);
        const QSignalSpy idle(&window, &Window::idle);
        QPushButton *show = button(window, QStringLiteral("نمایش"));
        window.refresh();
        QVERIFY(window.isBusy());
        QCOMPARE(show->text(), QStringLiteral("لطفا صبر کنید..."));
        QVERIFY(!show->isEnabled());
        QVERIFY(!button(window, QStringLiteral("چاپ"))->isEnabled());
        QVERIFY(!button(window, QStringLiteral("بازگشت"))->isEnabled());
        window.reject();
        window.close();
        QVERIFY(window.isVisible());
        window.refresh(); // a second one does not start
        waitUntilIdle(window);
        QCOMPARE(idle.count(), 1);
        QCOMPARE(show->text(), QStringLiteral("نمایش"));
        for (const QString &caption : {QStringLiteral("نمایش"), QStringLiteral("چاپ"), QStringLiteral("بازگشت")})
            QVERIFY(button(window, caption)->isEnabled());
        QCOMPARE(window.list()->count(), 2);
        window.reject();
        QVERIFY(!window.isVisible());
    }

    void aStoppedGatheringLeavesNoPartOfASeason()
    {
        for (int i = 0; i < 6000; ++i) {
            m_office.database().run(QStringLiteral("INSERT INTO AutomobilContracts SET dateContract='%1', iCode=%2, dCommission=20000000")
                                        .arg(thisSeason().date().toString(Qt::ISODate))
                                        .arg(i));
        }
        Window window;
        window.show();
        QVERIFY(window.isBusy());
        button(window, QStringLiteral("توقف"))->click();
        waitUntilIdle(window);
        QCOMPARE(window.list()->count(), 0);
        // Nor is it exported as a season without rows, unless somebody wants that.
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
        m_office.database().run(QStringLiteral("RENAME TABLE FactorStuffs TO Away, Factors TO AwayToo"));
        window.refresh();
        waitUntilIdle(window);
        m_office.database().run(QStringLiteral("RENAME TABLE Away TO FactorStuffs, AwayToo TO Factors"));
        QCOMPARE((g_pDlgWarning->takeShown() + g_pDlgMessage->takeShown()).size(), 1);
        QVERIFY(button(window, QStringLiteral("نمایش"))->isEnabled());
        window.refresh();
        waitUntilIdle(window);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void tooLongAddressesAreToldAndMarked()
    {
        const int person = m_office.addPerson(QStringLiteral("علی"), QStringLiteral("رضایی"), [](CTblPersons &record) {
            record.m_sAddress = QString(81, u'ن');
        });
        addContract(20'000'000, [person](Contract &contract) { contract.m_iPersonSecondID = person; });
        Window window;
        window.show();
        waitUntilIdle(window);
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{QStringLiteral("1 آدرس دارای طول بیش از 80 کاراکتر می باشند، لطفا اصلاح بفرمایید.")});
        const KListModel *model = window.list()->listModel();
        QCOMPARE(model->index(1, 10).data(Qt::BackgroundRole).value<QBrush>().color(), QColor(200, 0, 0));
        QCOMPARE(model->index(1, 10).data(Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::white));
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
        const int person = m_office.addPerson(QStringLiteral("علی"), QStringLiteral("رضایی"),
                                              [](CTblPersons &record) { record.m_sAddress = QString(90, u'ن'); });
        addContract(20'000'000, [person](Contract &contract) { contract.m_iPersonFirstID = contract.m_iPersonSecondID = person; });
        Window window;
        window.show();
        waitUntilIdle(window);
        TestOffice::whenModal("CDlgAddPerson", [](QWidget *editor) {
            const QList<QLineEdit *> edits = editor->findChildren<QLineEdit *>();
            for (QLineEdit *edit : edits) {
                if (edit->text().size() == 90)
                    edit->setText(QStringLiteral("تهران"));
            }
            static_cast<QDialog *>(editor)->accept();
        });
        Q_EMIT window.list()->rowActivated(1);
        for (const int row : {0, 1}) {
            QCOMPARE(window.list()->cellText(row, 10), QStringLiteral("تهران"));
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
        const int person = m_office.addPerson(QStringLiteral("علی"), QStringLiteral("رضایی"));
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
        QVERIFY2(title.contains(QStringLiteral("نمایش")), qPrintable(title));
    }

    void whoMayNotSeePersonsIsToldSo()
    {
        const int person = m_office.addPerson(QStringLiteral("علی"), QStringLiteral("رضایی"));
        addContract(20'000'000, [person](Contract &contract) { contract.m_iPersonFirstID = person; });
        m_office.logInAs(QStringLiteral("sara"), QStringLiteral("AutomobilReportSeasons"), KSecurity::allRights);
        Window window;
        window.show();
        waitUntilIdle(window);
        Q_EMIT window.list()->rowActivated(1);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(QStringLiteral("Persons"), KSecurity::Read)});
    }

    // The row that is activated is the one that is seen, and the file has the rows as they are seen.
    void activatingARowOfASortedListMendsThatRowsParty()
    {
        const int first = m_office.addPerson(QStringLiteral("علی"), QStringLiteral("رضایی"));
        const int second = m_office.addPerson(QStringLiteral("مریم"), QStringLiteral("کاظمی"));
        addContract(20'000'000, [first](Contract &contract) { contract.m_iPersonFirstID = contract.m_iPersonSecondID = first; });
        addContract(90'000'000, [second](Contract &contract) { contract.m_iPersonFirstID = contract.m_iPersonSecondID = second; });
        Window window;
        window.show();
        waitUntilIdle(window);
        Q_EMIT window.list()->columnClicked(4);
        Q_EMIT window.list()->columnClicked(4);
        QCOMPARE(window.list()->cellText(0, 11), QStringLiteral("مریم"));
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
        QVERIFY2(family.contains(QStringLiteral("کاظمی")), qPrintable(family));
    }

    void aPersonDeletedMeanwhileLeavesTheCells()
    {
        const int person = m_office.addPerson(QStringLiteral("علی"), QStringLiteral("رضایی"));
        addContract(20'000'000, [person](Contract &contract) { contract.m_iPersonFirstID = person; });
        Window window;
        window.show();
        waitUntilIdle(window);
        m_office.database().run(QStringLiteral("DELETE FROM Persons"));
        Q_EMIT window.list()->rowActivated(1);
        QCOMPARE(window.list()->cellText(0, 11), QStringLiteral("علی"));
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
        const QStringList up{QStringLiteral("20,000,000"), QStringLiteral("100,000,000"), QStringLiteral("3,000,000,000")};
        Q_EMIT window.list()->columnClicked(4);
        QCOMPARE(amounts(), up);
        QCOMPARE(window.list()->listModel()->headerData(4, Qt::Horizontal).toString(), QStringLiteral("مبلغ*"));
        Q_EMIT window.list()->columnClicked(4);
        QCOMPARE(amounts(), QStringList(up.crbegin(), up.crend()));
        Q_EMIT window.list()->columnClicked(11);
        QCOMPARE(window.list()->listModel()->headerData(4, Qt::Horizontal).toString(), QStringLiteral("مبلغ"));
        window.refresh();
        waitUntilIdle(window);
        QCOMPARE(window.list()->listModel()->headerData(11, Qt::Horizontal).toString(), QStringLiteral("نام خریدار"));
    }

    void theYearIsTypedInDigitsOfAnyScriptAndSteppedByKeys()
    {
        Window window;
        window.show();
        waitUntilIdle(window);
        window.year()->selectAll();
        for (const QChar digit : QStringLiteral("۱۴۰۳")) {
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
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("سال : مقدار باید بین 1206 و 1498 باشد.")});
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
        window.minimumAmount()->setText(QStringLiteral("16400001"));
        window.refresh();
        QVERIFY(!window.isBusy());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("مبالغ کمتر از : مقدار باید بین 0 و 16,400,000 باشد.")});
        QCOMPARE(window.focusWidget(), window.minimumAmount());
        window.minimumAmount()->setText(QStringLiteral("7000"));
        window.reject();
        QCOMPARE(ReadSetting(QStringLiteral("DlgAutomobilReportSeasons"), QStringLiteral("dMinAmount"), QString()), QStringLiteral("7000"));
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
        window.minimumAmount()->setText(QStringLiteral("16400001"));
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
        button(window, QStringLiteral("نمایش"))->setFocus();
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
            sales = total(*dialog, QStringLiteral("جمع فروش :"));
            dialog->close();
        });
        button(window, QStringLiteral("مبلغ قابل پرداخت"))->click();
        QCOMPARE(sales, QStringLiteral("1,000"));
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
        button(window, QStringLiteral("مشخصات شرکت/فروشگاه"))->click();
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
        QCOMPARE(report.shownTitle(), QStringLiteral("گزارشات"));
        QVERIFY(report.text(QStringLiteral("RightCenter")).endsWith(QStringLiteral(" سال : %1").arg(window.year()->integer())));
        QVERIFY(report.text(QStringLiteral("LeftBottom")).startsWith(QStringLiteral("تاریخ چاپ : ")));
        QCOMPARE(report.text(QStringLiteral("Count")), QStringLiteral("تعداد ردیف : 2"));
        QCOMPARE(report.text(QStringLiteral("Amount")), QStringLiteral("مبلغ : 40,000,000"));
        QCOMPARE(report.text(QStringLiteral("Tax")), QStringLiteral("مالیات : 5"));
        QCOMPARE(report.text(QStringLiteral("Discount")), QStringLiteral("تخفیف : 7"));
        QCOMPARE(report.text(QStringLiteral("FinalAmount")), QStringLiteral("جمع : 39,999,998"));
        QCOMPARE(report.rows().size(), 2 + 2);
        const QVector<KListModel::Cell> titles = report.rows().at(2).cells;
        const QVector<KListModel::Cell> sums = report.rows().at(3).cells;
        QCOMPARE(titles.at(4).text, QStringLiteral("جمع مبلغ"));
        QCOMPARE(titles.at(5).text, QStringLiteral("جمع مالیات"));
        QCOMPARE(titles.at(20).text, QStringLiteral("جمع تخفیف"));
        QCOMPARE(titles.at(21).text, QStringLiteral("جمع کل"));
        QCOMPARE(sums.at(21).text, QStringLiteral("39,999,998"));
    }

    // Amounts, codes and dates must not be parted by the edge of their column, nor one row fill a page.
    void thirtyColumnsStayReadableOnPaper()
    {
        const int person = m_office.addPerson(QStringLiteral("علی"), QStringLiteral("رضایی"), [](CTblPersons &record) {
            record.m_sPostalCode = QStringLiteral("1234567890");
            record.m_sAreaCode = QStringLiteral("021");
            record.m_sTel = QStringLiteral("22334455");
            record.m_sNationalCode = QStringLiteral("0012345679");
            record.m_sEconomicCode = QStringLiteral("411122223333");
            record.m_sAddress = QStringLiteral("تهران، خیابان ولی عصر، بالاتر از میدان ونک، کوچه گل، پلاک ۱۲، طبقه سوم");
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
        m_office.logInAs(QStringLiteral("reza"), QStringLiteral("AutomobilContracts"), KSecurity::allRights);
        GetAutoDBSetting()->ShowAutomobilReportSeasonsDlg();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(QStringLiteral("AutomobilReportSeasons"), KSecurity::Access)});
        QVERIFY(!QApplication::activeModalWidget());
    }

    void printingNeedsItsRight()
    {
        m_office.logInAs(QStringLiteral("reza"), QStringLiteral("AutomobilReportSeasons"), KSecurity::Access);
        Window window;
        window.show();
        waitUntilIdle(window);
        window.print();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(QStringLiteral("AutomobilReportSeasons"), KSecurity::PrintList)});
    }
};

static const RegisteredTest<TestCDlgAutomobilReportSeasons, KApplication> registered;

#include "TestCDlgAutomobilReportSeasons.moc"
