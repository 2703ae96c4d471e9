// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CDlgAddPerson.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/support/Hand.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

class TestCDlgAddPerson : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    void init() { m_office.reset(); }
    void savesEveryField();
    void nameIsRequired();
    void wrongNationalCodeAndMobileGetAHintAndAreSaved();
    void hintGoesWhenTheEntryIsRight();
    void duplicateNationalCodeAsks_data();
    void duplicateNationalCodeAsks();
    void ownNationalCodeIsNoDuplicate();
    void companyHasOtherLabelsAndNoFamilyName();
    void companyOfAnotherKindKeepsIt();
    void proposedCodeGivesWayWhenTakenMeanwhile();
    void chosenCodeOfAnotherPersonIsRefused();
    void discountAboveAHundredIsRefused();
    void cancelWritesNothing();
    void editWritesOnlyWhatChanged();
    void editOfAVanishedPersonSaysSo();
    void editOfAnUnknownPersonDoesNothing();
    void showModeIsReadOnlyThroughout();
    void closedDatabaseRefuses();
    void searchedTextGoesToItsField_data();
    void searchedTextGoesToItsField();
    void enterWalksThroughTheForm();

private:
    static KEdit *edit(QWidget &window, const QString &name) { return Hand::named<KEdit>(&window, name); }
    static QComboBox *combo(QWidget &window, const QString &name) { return Hand::named<QComboBox>(&window, name); }
    static QString hints(QWidget &window);
    CTblPersons *stored(int id);

    Office m_office;
    std::unique_ptr<CTblPersons> m_stored;
};

QString TestCDlgAddPerson::hints(QWidget &window)
{
    QString text;
    for (const KEdit *edit : window.findChildren<KEdit *>())
        text += edit->accessibleDescription();
    return text;
}

CTblPersons *TestCDlgAddPerson::stored(int id)
{
    m_stored = std::make_unique<CTblPersons>();
    return m_stored->IsRecordExist(QStringLiteral("iID"), id) ? m_stored.get() : nullptr;
}

void TestCDlgAddPerson::savesEveryField()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    const QList<QPair<QString, QString>> texts{
        {QStringLiteral("کد شخص :"), QStringLiteral("۴۲")},
        {QStringLiteral("نام :"), QStringLiteral("مریم")},
        {QStringLiteral("نام خانوادگی :"), QStringLiteral("كريمي")},
        {QStringLiteral("کد ملی :"), QStringLiteral("۰۰۷۶۲۲۹۶۴۵")},
        {QStringLiteral("نام پدر :"), QStringLiteral("رضا")},
        {QStringLiteral("محل تولد :"), QStringLiteral("یزد")},
        {QStringLiteral("شماره شناسنامه :"), QStringLiteral("123")},
        {QStringLiteral("محل صدور :"), QStringLiteral("قم")},
        {QStringLiteral("موبایل :"), QStringLiteral("09121234567")},
        {QStringLiteral("پیش شماره :"), QStringLiteral("021")},
        {QStringLiteral("تلفن :"), QStringLiteral("88776655")},
        {QStringLiteral("کد پستی :"), QStringLiteral("1234567890")},
        {QStringLiteral("آدرس :"), QStringLiteral("تهران")},
        {QStringLiteral("کد اقتصادی :"), QStringLiteral("411")},
        {QStringLiteral("حوزه مالیاتی :"), QStringLiteral("7")},
        {QStringLiteral("کد استان :"), QStringLiteral("8")},
        {QStringLiteral("کد شهر :"), QStringLiteral("9")},
        {QStringLiteral("درصد تخفیف :"), QStringLiteral("12.5")},
    };
    for (const auto &[name, text] : texts) {
        QVERIFY2(edit(dialog, name), qPrintable(name));
        edit(dialog, name)->setText(text);
    }
    combo(dialog, QStringLiteral("جنسیت :"))->setCurrentIndex(1);
    combo(dialog, QStringLiteral("کد نوع مودی :"))->setCurrentIndex(2);
    Hand::named<KDateEdit>(&dialog, QStringLiteral("تاریخ تولد :"))->setText(QStringLiteral("13640101"));
    Hand::named<QCheckBox>(&dialog, QStringLiteral("غیر فعال"))->setChecked(true);
    dialog.accept();
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
    const CTblPersons *person = stored(dialog.personID());
    QVERIFY(person);
    QCOMPARE(person->m_iCode, 42);
    QCOMPARE(person->m_sName2, QStringLiteral("مریم کریمی"));
    QCOMPARE(person->m_sNationalCode, QStringLiteral("0076229645"));
    QCOMPARE(person->m_sFatherName, QStringLiteral("رضا"));
    QCOMPARE(person->m_sBirthCity, QStringLiteral("یزد"));
    QCOMPARE(person->m_sIdentityNum, QStringLiteral("123"));
    QCOMPARE(person->m_sIdentityCity, QStringLiteral("قم"));
    QCOMPARE(person->m_sMobile, QStringLiteral("09121234567"));
    QCOMPARE(person->m_sAreaCode, QStringLiteral("021"));
    QCOMPARE(person->m_sTel, QStringLiteral("88776655"));
    QCOMPARE(person->m_sPostalCode, QStringLiteral("1234567890"));
    QCOMPARE(person->m_sAddress, QStringLiteral("تهران"));
    QCOMPARE(person->m_sEconomicCode, QStringLiteral("411"));
    QCOMPARE(person->m_iTaxZone, 7);
    QCOMPARE(person->m_iProvinceCode, 8);
    QCOMPARE(person->m_iCityCode, 9);
    QCOMPARE(person->m_dPercentDiscount, 12.5);
    QCOMPARE(person->m_iSex, CTblPersons::sexWoman);
    QCOMPARE(person->m_iTaxKind, 6);
    QCOMPARE(person->m_dateBirth, QDateTime(QDate(1985, 3, 21), QTime(0, 0), Qt::UTC));
    QCOMPARE(person->m_iStatus, CTblPersons::statusInactive);
    QCOMPARE(person->m_bNatural, 1);
}

void TestCDlgAddPerson::nameIsRequired()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    edit(dialog, QStringLiteral("نام :"))->setText(QStringLiteral("   "));
    QVERIFY(!dialog.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("لطفا نام شخص را وارد نمایید.")});
    QCOMPARE(m_office.db.value(QStringLiteral("SELECT COUNT(*) FROM Persons")), QStringLiteral("0"));
    edit(dialog, QStringLiteral("نام خانوادگی :"))->setText(QStringLiteral("رضایی"));
    QVERIFY(dialog.OnOK());
}

void TestCDlgAddPerson::wrongNationalCodeAndMobileGetAHintAndAreSaved()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    edit(dialog, QStringLiteral("نام :"))->setText(QStringLiteral("علی"));
    edit(dialog, QStringLiteral("کد ملی :"))->setText(QStringLiteral("0076229646"));
    edit(dialog, QStringLiteral("موبایل :"))->setText(QStringLiteral("0912"));
    QVERIFY(edit(dialog, QStringLiteral("کد ملی :"))->accessibleDescription().contains(QStringLiteral("کنترل")));
    QVERIFY(edit(dialog, QStringLiteral("موبایل :"))->accessibleDescription().contains(QStringLiteral("موبایل")));
    int shown = 0;
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        shown += !label->text().isEmpty() && hints(dialog).contains(label->text()) && label->isVisible() ? 1 : 0;
    QCOMPARE(shown, 2);
    QVERIFY(dialog.OnOK());
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    QCOMPARE(stored(dialog.personID())->m_sNationalCode, QStringLiteral("0076229646"));
    QCOMPARE(m_stored->m_sMobile, QStringLiteral("0912"));
}

void TestCDlgAddPerson::hintGoesWhenTheEntryIsRight()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    edit(dialog, QStringLiteral("کد ملی :"))->setText(QStringLiteral("007"));
    QVERIFY(!hints(dialog).isEmpty());
    edit(dialog, QStringLiteral("کد ملی :"))->setText(QStringLiteral("0076229645"));
    QVERIFY(hints(dialog).isEmpty());
    combo(dialog, QStringLiteral("نوع شخص :"))->setCurrentIndex(CTblPersons::kindLegal);
    QVERIFY(hints(dialog).contains(QStringLiteral("یازده")));
}

void TestCDlgAddPerson::duplicateNationalCodeAsks_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("saved");
    QTest::newRow("no keeps the window") << static_cast<int>(KMessageDialog::No) << false;
    QTest::newRow("yes saves") << static_cast<int>(KMessageDialog::Yes) << true;
    QTest::newRow("any answer but no saves") << static_cast<int>(KMessageDialog::Cancel) << true;
}

void TestCDlgAddPerson::duplicateNationalCodeAsks()
{
    QFETCH(int, answer);
    QFETCH(bool, saved);
    Office::addPerson(QStringLiteral("علی"), QStringLiteral("رضایی"), [](CTblPersons &person) {
        person.m_sNationalCode = QStringLiteral("0076229645");
    });
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    edit(dialog, QStringLiteral("نام :"))->setText(QStringLiteral("حسن"));
    edit(dialog, QStringLiteral("کد ملی :"))->setText(QStringLiteral("۰۰۷۶۲۲۹۶۴۵"));
    g_pDlgYesNo->answerNext(static_cast<KMessageDialog::Answer>(answer));
    QCOMPARE(dialog.OnOK(), saved);
    const QStringList asked = g_pDlgYesNo->takeShown();
    QCOMPARE(asked.size(), 1);
    QVERIFY(asked.front().contains(QStringLiteral("علی رضایی")));
    QVERIFY(asked.front().contains(QStringLiteral("0076229645")));
    QCOMPARE(m_office.db.value(QStringLiteral("SELECT COUNT(*) FROM Persons")), saved ? QStringLiteral("2") : QStringLiteral("1"));
}

void TestCDlgAddPerson::ownNationalCodeIsNoDuplicate()
{
    const int id = Office::addPerson(QStringLiteral("علی"), {}, [](CTblPersons &person) {
        person.m_sNationalCode = QStringLiteral("0076229645");
    });
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Edit, id);
    dialog.show();
    QVERIFY(dialog.OnOK());
    QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
}

void TestCDlgAddPerson::companyHasOtherLabelsAndNoFamilyName()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    edit(dialog, QStringLiteral("نام :"))->setText(QStringLiteral("شرکت"));
    edit(dialog, QStringLiteral("نام خانوادگی :"))->setText(QStringLiteral("البرز"));
    combo(dialog, QStringLiteral("نوع شخص :"))->setCurrentIndex(CTblPersons::kindLegal);
    QVERIFY(edit(dialog, QStringLiteral("نام شرکت :")));
    QVERIFY(edit(dialog, QStringLiteral("شناسه ملی :")));
    QVERIFY(edit(dialog, QStringLiteral("شماره ثبت :")));
    QVERIFY(Hand::named<KDateEdit>(&dialog, QStringLiteral("تاریخ تاسیس :")));
    QVERIFY(!edit(dialog, QStringLiteral("نام خانوادگی :")));
    QVERIFY(!edit(dialog, QStringLiteral("نام پدر :")));
    QVERIFY(!combo(dialog, QStringLiteral("جنسیت :")));
    QVERIFY(dialog.OnOK());
    const CTblPersons *person = stored(dialog.personID());
    // What had been typed as a family name is not lost.
    QCOMPARE(person->m_sName, QStringLiteral("شرکت البرز"));
    QCOMPARE(person->m_sFamily, QString());
    QCOMPARE(person->m_sName2, QStringLiteral("شرکت البرز"));
    QCOMPARE(person->m_iKind, CTblPersons::kindLegal);
    QCOMPARE(person->m_bNatural, 0);
}

void TestCDlgAddPerson::companyOfAnotherKindKeepsIt()
{
    const int id = Office::addPerson(QStringLiteral("اتحادیه"), {}, [](CTblPersons &person) { person.m_iKind = 5; });
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Edit, id);
    dialog.show();
    QCOMPARE(combo(dialog, QStringLiteral("نوع شخص :"))->currentIndex(), CTblPersons::kindLegal);
    edit(dialog, QStringLiteral("تلفن :"))->setText(QStringLiteral("1"));
    QVERIFY(dialog.OnOK());
    QCOMPARE(stored(id)->m_iKind, 5);
}

void TestCDlgAddPerson::proposedCodeGivesWayWhenTakenMeanwhile()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    QCOMPARE(edit(dialog, QStringLiteral("کد شخص :"))->integer(), 1);
    Office::addPerson(QStringLiteral("زودتر"), {});
    edit(dialog, QStringLiteral("نام :"))->setText(QStringLiteral("علی"));
    QVERIFY(dialog.OnOK());
    QCOMPARE(stored(dialog.personID())->m_iCode, 2);
}

void TestCDlgAddPerson::chosenCodeOfAnotherPersonIsRefused()
{
    Office::addPerson(QStringLiteral("الف"), {});
    const int id = Office::addPerson(QStringLiteral("ب"), {});
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Edit, id);
    dialog.show();
    edit(dialog, QStringLiteral("کد شخص :"))->setText(QStringLiteral("1"));
    QVERIFY(!dialog.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(stored(id)->m_iCode, 2);
}

void TestCDlgAddPerson::discountAboveAHundredIsRefused()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    edit(dialog, QStringLiteral("نام :"))->setText(QStringLiteral("علی"));
    edit(dialog, QStringLiteral("درصد تخفیف :"))->setText(QStringLiteral("101"));
    QVERIFY(!dialog.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    edit(dialog, QStringLiteral("درصد تخفیف :"))->setText(QStringLiteral("100"));
    QVERIFY(dialog.OnOK());
    QCOMPARE(stored(dialog.personID())->m_dPercentDiscount, 100.0);
}

void TestCDlgAddPerson::cancelWritesNothing()
{
    Hand::inNextWindow([](QDialog *window) {
        Hand::named<KEdit>(window, QStringLiteral("نام :"))->setText(QStringLiteral("علی"));
        Hand::press(Qt::Key_Escape);
    });
    QCOMPARE(CDlgAddPerson::Add(nullptr), 0);
    QCOMPARE(m_office.db.value(QStringLiteral("SELECT COUNT(*) FROM Persons")), QStringLiteral("0"));
}

void TestCDlgAddPerson::editWritesOnlyWhatChanged()
{
    const int id = Office::addPerson(QStringLiteral("علی"), QStringLiteral("رضایی"));
    QStringList updates;
    Hand::inNextWindow([&updates](QDialog *window) {
        Hand::named<KEdit>(window, QStringLiteral("موبایل :"))->setText(QStringLiteral("09121234567"));
        KConnection::setStatementObserver([&updates](const QString &statement) {
            if (statement.startsWith(QStringLiteral("UPDATE")))
                updates.append(statement);
        });
        Hand::press(Qt::Key_Return, Qt::ControlModifier);
    });
    QVERIFY(CDlgAddPerson::Edit(nullptr, id));
    KConnection::setStatementObserver(nullptr);
    QCOMPARE(updates.size(), 1);
    QCOMPARE(updates.front().count(u'='), 2); // sMobile and iID
    QVERIFY(updates.front().contains(QStringLiteral("sMobile")));
}

void TestCDlgAddPerson::editOfAVanishedPersonSaysSo()
{
    const int id = Office::addPerson(QStringLiteral("علی"), {});
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Edit, id);
    dialog.show();
    m_office.db.run(QStringLiteral("DELETE FROM Persons"));
    QVERIFY(!dialog.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(edit(dialog, QStringLiteral("نام :"))->text(), QStringLiteral("علی"));
}

void TestCDlgAddPerson::editOfAnUnknownPersonDoesNothing()
{
    QVERIFY(!CDlgAddPerson::Edit(nullptr, 999999));
    CDlgAddPerson::Show(nullptr, 999999);
    QVERIFY(!QApplication::activeModalWidget());
}

void TestCDlgAddPerson::showModeIsReadOnlyThroughout()
{
    const int id = Office::addPerson(QStringLiteral("علی"), {});
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Show, id);
    dialog.show();
    const QList<KEdit *> edits = dialog.findChildren<KEdit *>();
    QVERIFY(edits.size() > 10);
    for (const KEdit *edit : edits)
        QVERIFY2(edit->isReadOnly(), qPrintable(edit->accessibleName()));
    for (const QComboBox *combo : dialog.findChildren<QComboBox *>())
        QVERIFY2(!combo->isEnabled(), qPrintable(combo->accessibleName()));
    QStringList captions;
    for (const QPushButton *button : dialog.findChildren<QPushButton *>())
        captions.append(button->text());
    QCOMPARE(captions, QStringList{QStringLiteral("بستن")});
}

void TestCDlgAddPerson::closedDatabaseRefuses()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    edit(dialog, QStringLiteral("نام :"))->setText(QStringLiteral("علی"));
    GetDBSetting()->SetClosedDB(true);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, dialog.OnOK());
    QCOMPARE(m_office.db.value(QStringLiteral("SELECT COUNT(*) FROM Persons")), QStringLiteral("0"));
}

void TestCDlgAddPerson::searchedTextGoesToItsField_data()
{
    QTest::addColumn<QString>("searched");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    QTest::newRow("mobile") << QStringLiteral("۰۹۱۲۱۲۳۴۵۶۷") << QStringLiteral("موبایل :") << QStringLiteral("09121234567");
    QTest::newRow("national code") << QStringLiteral("0076229645") << QStringLiteral("کد ملی :") << QStringLiteral("0076229645");
    QTest::newRow("short number") << QStringLiteral("77") << QStringLiteral("کد ملی :") << QString();
    QTest::newRow("first name") << QStringLiteral("علي رضا زاده") << QStringLiteral("نام :") << QStringLiteral("علی");
    QTest::newRow("family name") << QStringLiteral("علي رضا زاده") << QStringLiteral("نام خانوادگی :") << QStringLiteral("رضا زاده");
    QTest::newRow("nothing") << QString() << QStringLiteral("نام :") << QString();
}

void TestCDlgAddPerson::searchedTextGoesToItsField()
{
    QFETCH(QString, searched);
    QFETCH(QString, field);
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    dialog.prefill(searched);
    QTEST(edit(dialog, field)->text(), "text");
}

void TestCDlgAddPerson::enterWalksThroughTheForm()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QStringList walked{Hand::focus()->accessibleName()};
    for (int i = 0; i < 30 && dialog.isVisible(); ++i) {
        Hand::press(Qt::Key_Return);
        if (dialog.isVisible() && Hand::focus())
            walked.append(Hand::focus()->accessibleName());
        if (walked.size() == 1 + walked.indexOf(QStringLiteral("غیر فعال")))
            break;
    }
    const QStringList expected{
        QStringLiteral("نام :"), QStringLiteral("نام خانوادگی :"), QStringLiteral("کد ملی :"), QStringLiteral("جنسیت :"),
        QStringLiteral("نام پدر :"), QStringLiteral("تاریخ تولد :"), QStringLiteral("محل تولد :"),
        QStringLiteral("شماره شناسنامه :"), QStringLiteral("محل صدور :"), QStringLiteral("موبایل :"),
        QStringLiteral("پیش شماره :"), QStringLiteral("تلفن :"), QStringLiteral("کد پستی :"), QStringLiteral("آدرس :"),
        QStringLiteral("کد اقتصادی :"), QStringLiteral("کد نوع مودی :"), QStringLiteral("حوزه مالیاتی :"),
        QStringLiteral("کد استان :"), QStringLiteral("کد شهر :"), QStringLiteral("درصد تخفیف :"), QStringLiteral("غیر فعال")};
    QCOMPARE(walked, expected);
}

static const RegisteredTest<TestCDlgAddPerson, QApplication> registered;
#include "TestCDlgAddPerson.moc"
