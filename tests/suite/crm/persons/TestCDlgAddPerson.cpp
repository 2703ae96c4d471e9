// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/CDlgAddPerson.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/support/Hand.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TwoDesks.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

class TestCDlgAddPerson : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    void init() { m_office.reset(); }
    void savesEveryField();
    void taxNumbersReadAsWords_data();
    void taxNumbersReadAsWords();
    void anotherProvinceHasItsOwnCities();
    void provinceOfNumberZeroNeedsItsCity();
    void nameIsRequired();
    void wrongNationalCodeAndMobileGetAHintAndAreSaved();
    void hintGoesWhenTheEntryIsRight();
    void hintStandsBesideTheLabelAndMovesNothing();
    void fieldsOfAllCardsBeginOnTheSameLines();
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
    void twoDesks_data() { TwoDesks::addCases(true); }
    void twoDesks();
    void conflictIsShownInTheWordsOfTheWindow();
    void codesOfTwoDesksDiffer();
    void renewedPersonKeepsWhatTheWindowDoesNotShow();
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
    return m_stored->IsRecordExist(u"iID"_s, id) ? m_stored.get() : nullptr;
}

void TestCDlgAddPerson::savesEveryField()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    const QList<QPair<QString, QString>> texts{
        {u"کد شخص :"_s, u"۴۲"_s},
        {u"نام :"_s, u"مریم"_s},
        {u"نام خانوادگی :"_s, u"كريمي"_s},
        {u"کد ملی :"_s, u"۰۰۷۶۲۲۹۶۴۵"_s},
        {u"نام پدر :"_s, u"رضا"_s},
        {u"محل تولد :"_s, u"یزد"_s},
        {u"شماره شناسنامه :"_s, u"123"_s},
        {u"محل صدور :"_s, u"قم"_s},
        {u"موبایل :"_s, u"09121234567"_s},
        {u"پیش شماره :"_s, u"021"_s},
        {u"تلفن :"_s, u"88776655"_s},
        {u"کد پستی :"_s, u"1234567890"_s},
        {u"آدرس :"_s, u"تهران"_s},
        {u"کد اقتصادی :"_s, u"411"_s},
        {u"حوزه مالیاتی :"_s, u"7"_s},
        {u"درصد تخفیف :"_s, u"12.5"_s},
    };
    for (const auto &[name, text] : texts) {
        QVERIFY2(edit(dialog, name), qPrintable(name));
        edit(dialog, name)->setText(text);
    }
    combo(dialog, u"جنسیت :"_s)->setCurrentIndex(1);
    combo(dialog, u"نوع مودی :"_s)->setCurrentIndex(2);
    combo(dialog, u"استان :"_s)->setCurrentText(u"تهران"_s);
    combo(dialog, u"شهر :"_s)->setCurrentText(u"ورامین"_s);
    Hand::named<KDateEdit>(&dialog, u"تاریخ تولد :"_s)->setText(u"13640101"_s);
    Hand::named<QCheckBox>(&dialog, u"غیر فعال"_s)->setChecked(true);
    dialog.accept();
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
    const CTblPersons *person = stored(dialog.personID());
    QVERIFY(person);
    QCOMPARE(person->m_iCode, 42);
    QCOMPARE(person->m_sName2, u"مریم کریمی"_s);
    QCOMPARE(person->m_sNationalCode, u"0076229645"_s);
    QCOMPARE(person->m_sFatherName, u"رضا"_s);
    QCOMPARE(person->m_sBirthCity, u"یزد"_s);
    QCOMPARE(person->m_sIdentityNum, u"123"_s);
    QCOMPARE(person->m_sIdentityCity, u"قم"_s);
    QCOMPARE(person->m_sMobile, u"09121234567"_s);
    QCOMPARE(person->m_sAreaCode, u"021"_s);
    QCOMPARE(person->m_sTel, u"88776655"_s);
    QCOMPARE(person->m_sPostalCode, u"1234567890"_s);
    QCOMPARE(person->m_sAddress, u"تهران"_s);
    QCOMPARE(person->m_sEconomicCode, u"411"_s);
    QCOMPARE(person->m_iTaxZone, 7);
    QCOMPARE(person->m_iProvinceCode, 23);
    QCOMPARE(person->m_iCityCode, 2306);
    QCOMPARE(person->m_dPercentDiscount, 12.5);
    QCOMPARE(person->m_iSex, CTblPersons::sexWoman);
    QCOMPARE(person->m_iTaxKind, 6);
    QCOMPARE(person->m_dateBirth, QDateTime(QDate(1985, 3, 21), QTime(0, 0), Qt::UTC));
    QCOMPARE(person->m_iStatus, CTblPersons::statusInactive);
    QCOMPARE(person->m_bNatural, 1);
}

void TestCDlgAddPerson::taxNumbersReadAsWords_data()
{
    QTest::addColumn<QList<int>>("numbers"); // kind, province, city
    QTest::addColumn<QStringList>("words");
    QTest::newRow("none") << QList<int>{0, 0, 0} << QStringList{u"-"_s, u"-"_s, u"-"_s};
    QTest::newRow("known") << QList<int>{8, 3, 303} << QStringList{u"مصرف کننده نهایی"_s, u"آذربایجان شرقی"_s, u"تبریز"_s};
    QTest::newRow("province 0") << QList<int>{5, 0, 1}
                                << QStringList{u"مودی مشمول ثبت نام در نظام مالیاتی"_s, u"مرکزی"_s, u"اراک"_s};
    QTest::newRow("numbers that have no word") << QList<int>{2, 77, 9} << QStringList{u"2"_s, u"77"_s, u"9"_s};
}

void TestCDlgAddPerson::taxNumbersReadAsWords()
{
    QFETCH(QList<int>, numbers);
    m_office.db.run(u"INSERT INTO Persons(iID,iCode,sName,sName2,iTaxKind,iProvinceCode,iCityCode) VALUES(7,7,'ع','ع',%1,%2,%3)"_s
                        .arg(numbers.at(0))
                        .arg(numbers.at(1))
                        .arg(numbers.at(2)));
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Edit, 7);
    dialog.show();
    QTEST((QStringList{combo(dialog, u"نوع مودی :"_s)->currentText(), combo(dialog, u"استان :"_s)->currentText(),
                       combo(dialog, u"شهر :"_s)->currentText()}),
          "words");
    QVERIFY(dialog.OnOK());
    const CTblPersons *person = stored(7);
    QCOMPARE((QList<int>{person->m_iTaxKind, person->m_iProvinceCode, person->m_iCityCode}), numbers);
}

void TestCDlgAddPerson::anotherProvinceHasItsOwnCities()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    QComboBox *province = combo(dialog, u"استان :"_s);
    QComboBox *city = combo(dialog, u"شهر :"_s);
    QCOMPARE(city->count(), 1);
    province->setCurrentText(u"یزد"_s);
    city->setCurrentText(u"میبد"_s);
    province->setCurrentText(u"فارس"_s);
    QCOMPARE(city->currentText(), u"-"_s);
    QVERIFY(city->findText(u"شیراز"_s) > 0);
    QCOMPARE(city->findText(u"میبد"_s), -1);
}

void TestCDlgAddPerson::provinceOfNumberZeroNeedsItsCity()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    edit(dialog, u"نام :"_s)->setText(u"علی"_s);
    combo(dialog, u"استان :"_s)->setCurrentText(u"مرکزی"_s);
    dialog.accept();
    QVERIFY(dialog.isVisible());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(dialog.focusWidget(), combo(dialog, u"شهر :"_s));
    combo(dialog, u"شهر :"_s)->setCurrentText(u"ساوه"_s);
    QVERIFY(dialog.OnOK());
    QCOMPARE(stored(dialog.personID())->m_iCityCode, 6);
}

void TestCDlgAddPerson::nameIsRequired()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    edit(dialog, u"نام :"_s)->setText(u"   "_s);
    QVERIFY(!dialog.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا نام شخص را وارد نمایید."_s});
    QCOMPARE(m_office.db.value(u"SELECT COUNT(*) FROM Persons"_s), u"0"_s);
    edit(dialog, u"نام خانوادگی :"_s)->setText(u"رضایی"_s);
    QVERIFY(dialog.OnOK());
}

void TestCDlgAddPerson::wrongNationalCodeAndMobileGetAHintAndAreSaved()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    edit(dialog, u"نام :"_s)->setText(u"علی"_s);
    edit(dialog, u"کد ملی :"_s)->setText(u"0076229646"_s);
    edit(dialog, u"موبایل :"_s)->setText(u"0912"_s);
    QVERIFY(edit(dialog, u"کد ملی :"_s)->accessibleDescription().contains(u"کنترل"_s));
    QVERIFY(edit(dialog, u"موبایل :"_s)->accessibleDescription().contains(u"موبایل"_s));
    int shown = 0;
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        shown += !label->text().isEmpty() && hints(dialog).contains(label->text()) && label->isVisible() ? 1 : 0;
    QCOMPARE(shown, 2);
    QVERIFY(dialog.OnOK());
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    QCOMPARE(stored(dialog.personID())->m_sNationalCode, u"0076229646"_s);
    QCOMPARE(m_stored->m_sMobile, u"0912"_s);
}

void TestCDlgAddPerson::hintGoesWhenTheEntryIsRight()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    edit(dialog, u"کد ملی :"_s)->setText(u"007"_s);
    QVERIFY(!hints(dialog).isEmpty());
    edit(dialog, u"کد ملی :"_s)->setText(u"0076229645"_s);
    QVERIFY(hints(dialog).isEmpty());
    combo(dialog, u"نوع شخص :"_s)->setCurrentIndex(CTblPersons::kindLegal);
    QVERIFY(hints(dialog).contains(u"یازده"_s));
}

void TestCDlgAddPerson::hintStandsBesideTheLabelAndMovesNothing()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const auto places = [&dialog] {
        QMap<QString, QRect> places;
        for (const KEdit *field : dialog.findChildren<KEdit *>())
            places.insert(field->accessibleName(), {field->mapTo(&dialog, QPoint()), field->size()});
        return places;
    };
    const QMap<QString, QRect> before = places();
    KEdit *code = edit(dialog, u"کد ملی :"_s);
    code->setText(u"0076229646"_s);
    QCoreApplication::processEvents();
    QCOMPARE(places(), before);
    const FieldNote *note = FieldNote::of(code);
    QVERIFY(note->isVisible());
    QVERIFY(!note->isCut());
    QCOMPARE(note->text(), code->accessibleDescription());
    // In the line of the label: above the control, within its edges.
    const QRect shown(note->mapTo(&dialog, QPoint()), note->size());
    const QRect field(code->mapTo(&dialog, QPoint()), code->size());
    QVERIFY(shown.bottom() < field.top());
    QVERIFY(shown.left() >= field.left() && shown.right() < field.right());
}

void TestCDlgAddPerson::fieldsOfAllCardsBeginOnTheSameLines()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QSet<int> lines;
    for (const KEdit *field : dialog.findChildren<KEdit *>())
        lines.insert(field->mapTo(&dialog, QPoint(field->width(), 0)).x());
    QVERIFY2(lines.size() <= 4, qPrintable(QString::number(lines.size())));
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
    Office::addPerson(u"علی"_s, u"رضایی"_s, [](CTblPersons &person) {
        person.m_sNationalCode = u"0076229645"_s;
    });
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    edit(dialog, u"نام :"_s)->setText(u"حسن"_s);
    edit(dialog, u"کد ملی :"_s)->setText(u"۰۰۷۶۲۲۹۶۴۵"_s);
    g_pDlgYesNo->answerNext(static_cast<KMessageDialog::Answer>(answer));
    QCOMPARE(dialog.OnOK(), saved);
    const QStringList asked = g_pDlgYesNo->takeShown();
    QCOMPARE(asked.size(), 1);
    QVERIFY(asked.front().contains(u"علی رضایی"_s));
    QVERIFY(asked.front().contains(u"0076229645"_s));
    QCOMPARE(m_office.db.value(u"SELECT COUNT(*) FROM Persons"_s), saved ? u"2"_s : u"1"_s);
}

void TestCDlgAddPerson::ownNationalCodeIsNoDuplicate()
{
    const int id = Office::addPerson(u"علی"_s, {}, [](CTblPersons &person) {
        person.m_sNationalCode = u"0076229645"_s;
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
    edit(dialog, u"نام :"_s)->setText(u"شرکت"_s);
    edit(dialog, u"نام خانوادگی :"_s)->setText(u"البرز"_s);
    combo(dialog, u"نوع شخص :"_s)->setCurrentIndex(CTblPersons::kindLegal);
    QVERIFY(edit(dialog, u"نام شرکت :"_s));
    QVERIFY(edit(dialog, u"شناسه ملی :"_s));
    QVERIFY(edit(dialog, u"شماره ثبت :"_s));
    QVERIFY(Hand::named<KDateEdit>(&dialog, u"تاریخ تاسیس :"_s));
    QVERIFY(!edit(dialog, u"نام خانوادگی :"_s));
    QVERIFY(!edit(dialog, u"نام پدر :"_s));
    QVERIFY(!combo(dialog, u"جنسیت :"_s));
    QVERIFY(dialog.OnOK());
    const CTblPersons *person = stored(dialog.personID());
    // What had been typed as a family name is not lost.
    QCOMPARE(person->m_sName, u"شرکت البرز"_s);
    QCOMPARE(person->m_sFamily, QString());
    QCOMPARE(person->m_sName2, u"شرکت البرز"_s);
    QCOMPARE(person->m_iKind, CTblPersons::kindLegal);
    QCOMPARE(person->m_bNatural, 0);
}

void TestCDlgAddPerson::companyOfAnotherKindKeepsIt()
{
    const int id = Office::addPerson(u"اتحادیه"_s, {}, [](CTblPersons &person) { person.m_iKind = 5; });
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Edit, id);
    dialog.show();
    QCOMPARE(combo(dialog, u"نوع شخص :"_s)->currentIndex(), CTblPersons::kindLegal);
    edit(dialog, u"تلفن :"_s)->setText(u"1"_s);
    QVERIFY(dialog.OnOK());
    QCOMPARE(stored(id)->m_iKind, 5);
}

void TestCDlgAddPerson::proposedCodeGivesWayWhenTakenMeanwhile()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    QCOMPARE(edit(dialog, u"کد شخص :"_s)->integer(), 1);
    Office::addPerson(u"زودتر"_s, {});
    edit(dialog, u"نام :"_s)->setText(u"علی"_s);
    QVERIFY(dialog.OnOK());
    QCOMPARE(stored(dialog.personID())->m_iCode, 2);
}

void TestCDlgAddPerson::chosenCodeOfAnotherPersonIsRefused()
{
    Office::addPerson(u"الف"_s, {});
    const int id = Office::addPerson(u"ب"_s, {});
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Edit, id);
    dialog.show();
    edit(dialog, u"کد شخص :"_s)->setText(u"1"_s);
    QVERIFY(!dialog.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(stored(id)->m_iCode, 2);
}

void TestCDlgAddPerson::discountAboveAHundredIsRefused()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    edit(dialog, u"نام :"_s)->setText(u"علی"_s);
    edit(dialog, u"درصد تخفیف :"_s)->setText(u"101"_s);
    QVERIFY(!dialog.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    edit(dialog, u"درصد تخفیف :"_s)->setText(u"100"_s);
    QVERIFY(dialog.OnOK());
    QCOMPARE(stored(dialog.personID())->m_dPercentDiscount, 100.0);
}

void TestCDlgAddPerson::cancelWritesNothing()
{
    Hand::inNextWindow([](QDialog *window) {
        Hand::named<KEdit>(window, u"نام :"_s)->setText(u"علی"_s);
        Hand::press(Qt::Key_Escape);
    });
    QCOMPARE(CDlgAddPerson::Add(nullptr), 0);
    QCOMPARE(m_office.db.value(u"SELECT COUNT(*) FROM Persons"_s), u"0"_s);
}

void TestCDlgAddPerson::editWritesOnlyWhatChanged()
{
    const int id = Office::addPerson(u"علی"_s, u"رضایی"_s);
    QStringList updates;
    Hand::inNextWindow([&updates](QDialog *window) {
        Hand::named<KEdit>(window, u"موبایل :"_s)->setText(u"09121234567"_s);
        KConnection::setStatementObserver([&updates](const QString &statement) {
            if (statement.startsWith(u"UPDATE"_s))
                updates.append(statement);
        });
        Hand::press(Qt::Key_Return, Qt::ControlModifier);
    });
    QVERIFY(CDlgAddPerson::Edit(nullptr, id));
    KConnection::setStatementObserver(nullptr);
    QCOMPARE(updates.size(), 1);
    QCOMPARE(updates.front().count(u'='), 2); // sMobile and iID
    QVERIFY(updates.front().contains(u"sMobile"_s));
}

void TestCDlgAddPerson::twoDesks()
{
    QFETCH(TwoDesks::Case, what);
    int id = 0;
    const auto other = [&](const QString &set) { m_office.db.run(u"UPDATE Persons SET %1 WHERE iID=%2"_s.arg(set).arg(id)); };
    TwoDesks({
                 .reset =
                     [&] {
                         m_office.db.run(u"DELETE FROM Persons"_s);
                         id = Office::addPerson(u"علی"_s, u"رضایی"_s, [](CTblPersons &person) { person.m_sMobile = u"0912"_s; });
                     },
                 .open = [&] { return std::make_unique<CDlgAddPerson>(CDlgAddPerson::Mode::Edit, id); },
                 .enter = [](KDialog &window) { edit(window, u"نام خانوادگی :"_s)->setText(u"رضوی"_s); },
                 .changeOther = [&] { other(u"sMobile='0935'"_s); },
                 .changeSame = [&] { other(u"sFamily='کریمی',sName2='علی کریمی'"_s); },
                 .remove = [&] { m_office.db.run(u"DELETE FROM Persons"_s); },
                 .stored =
                     [&] { return m_office.db.value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',iCode,sName2,sMobile)) FROM Persons"_s); },
                 .merged = u"1/علی رضوی/0935"_s,
                 .theirs = u"1/علی کریمی/0912"_s,
                 .mine = u"1/علی رضوی/0912"_s,
                 .renewed = u"1/علی رضوی/0912"_s,
             })
        .check(what);
}

void TestCDlgAddPerson::conflictIsShownInTheWordsOfTheWindow()
{
    const int id = Office::addPerson(u"علی"_s, {});
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Edit, id);
    dialog.show();
    combo(dialog, u"جنسیت :"_s)->setCurrentIndex(CTblPersons::sexWoman);
    combo(dialog, u"استان :"_s)->setCurrentText(u"یزد"_s);
    combo(dialog, u"شهر :"_s)->setCurrentText(u"میبد"_s);
    m_office.db.run(u"UPDATE Persons SET iSex=7,iProvinceCode=23,iCityCode=2306"_s);
    CDlgRowConflict::answerNext(CDlgRowConflict::Answer::GoBack);
    QVERIFY(!dialog.OnOK());
    const QStringList shown = CDlgRowConflict::takeShown();
    QCOMPARE(shown.size(), 3);
    QVERIFY2(shown.filter(u"جنسیت: مرد | 7 | زن"_s).size() == 1, qPrintable(shown.join(u'\n')));
    QVERIFY2(shown.filter(u" | تهران | یزد"_s).size() == 1, qPrintable(shown.join(u'\n')));
}

// Both windows propose the same code; both are saved.
void TestCDlgAddPerson::codesOfTwoDesksDiffer()
{
    CDlgAddPerson first(CDlgAddPerson::Mode::Add, 0);
    CDlgAddPerson second(CDlgAddPerson::Mode::Add, 0);
    for (CDlgAddPerson *dialog : {&first, &second}) {
        dialog->show();
        edit(*dialog, u"نام :"_s)->setText(u"علی"_s);
    }
    QVERIFY(first.OnOK());
    QVERIFY(second.OnOK());
    // Pressed once more: the same person, with the code that it was given.
    QVERIFY(second.OnOK());
    QCOMPARE(m_office.db.value(u"SELECT GROUP_CONCAT(iCode ORDER BY iID) FROM Persons"_s), u"1,2"_s);
}

void TestCDlgAddPerson::renewedPersonKeepsWhatTheWindowDoesNotShow()
{
    const int id = Office::addPerson(u"اتحادیه"_s, {}, [](CTblPersons &person) { person.m_iKind = 5; });
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Edit, id);
    dialog.show();
    m_office.db.run(u"DELETE FROM Persons"_s);
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    QVERIFY(dialog.OnOK());
    QVERIFY(dialog.personID() != id);
    QCOMPARE(stored(dialog.personID())->m_iKind, 5);
}

void TestCDlgAddPerson::editOfAnUnknownPersonDoesNothing()
{
    QVERIFY(!CDlgAddPerson::Edit(nullptr, 999999));
    CDlgAddPerson::Show(nullptr, 999999);
    QVERIFY(!QApplication::activeModalWidget());
}

void TestCDlgAddPerson::showModeIsReadOnlyThroughout()
{
    const int id = Office::addPerson(u"علی"_s, {});
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
    QCOMPARE(captions, QStringList{u"بستن"_s});
}

void TestCDlgAddPerson::closedDatabaseRefuses()
{
    CDlgAddPerson dialog(CDlgAddPerson::Mode::Add, 0);
    dialog.show();
    edit(dialog, u"نام :"_s)->setText(u"علی"_s);
    GetDBSetting()->SetClosedDB(true);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, dialog.OnOK());
    QCOMPARE(m_office.db.value(u"SELECT COUNT(*) FROM Persons"_s), u"0"_s);
}

void TestCDlgAddPerson::searchedTextGoesToItsField_data()
{
    QTest::addColumn<QString>("searched");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    QTest::newRow("mobile") << u"۰۹۱۲۱۲۳۴۵۶۷"_s << u"موبایل :"_s << u"09121234567"_s;
    QTest::newRow("national code") << u"0076229645"_s << u"کد ملی :"_s << u"0076229645"_s;
    QTest::newRow("short number") << u"77"_s << u"کد ملی :"_s << QString();
    QTest::newRow("first name") << u"علي رضا زاده"_s << u"نام :"_s << u"علی"_s;
    QTest::newRow("family name") << u"علي رضا زاده"_s << u"نام خانوادگی :"_s << u"رضا زاده"_s;
    QTest::newRow("nothing") << QString() << u"نام :"_s << QString();
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
        if (walked.size() == 1 + walked.indexOf(u"غیر فعال"_s))
            break;
    }
    const QStringList expected{
        u"نام :"_s, u"نام خانوادگی :"_s, u"کد ملی :"_s, u"جنسیت :"_s,
        u"نام پدر :"_s, u"تاریخ تولد :"_s, u"محل تولد :"_s,
        u"شماره شناسنامه :"_s, u"محل صدور :"_s, u"موبایل :"_s,
        u"پیش شماره :"_s, u"تلفن :"_s, u"کد پستی :"_s, u"آدرس :"_s,
        u"کد اقتصادی :"_s, u"حوزه مالیاتی :"_s, u"نوع مودی :"_s,
        u"استان :"_s, u"شهر :"_s, u"درصد تخفیف :"_s, u"غیر فعال"_s};
    QCOMPARE(walked, expected);
}

static const RegisteredTest<TestCDlgAddPerson, QApplication> registeredCDlgAddPerson;
#include "TestCDlgAddPerson.moc"
