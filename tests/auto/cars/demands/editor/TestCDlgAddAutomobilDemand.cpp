// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/editor/ArchiveLine.h"
#include "auto/cars/demands/editor/CDlgAddAutomobilDemand.h"
#include "auto/cars/demands/editor/CDlgAddAutomobilDemandBase.h"
#include "auto/cars/demands/editor/DemandReminder.h"
#include "auto/cars/fields/PersonGroup.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/attachments/CDlgFileDocs.h"
#include "suite/accounting/office/CDlgMultiItems.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/CTblMultiItems.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/reminders/CDlgAddAlarm.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KTabPageButtons.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/office/TestOffice.h"
#include "tests/auto/editor/OnGrid.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Demand = CTblAutomobilDemands;
using Dialog = CDlgAddAutomobilDemand;

KEdit *edit(const Dialog &dialog, const char *column)
{
    return dialog.basePage()->form()->edit(QString::fromLatin1(column));
}

}

class TestCDlgAddAutomobilDemand : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    int m_person = 0;
    int m_brand = 0;
    int m_white = 0;
    int m_black = 0;
    int m_abs = 0;
    int m_roof = 0;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    QString count(const char *table)
    {
        return value(u"SELECT COUNT(*) FROM "_s + QString::fromLatin1(table));
    }

    int addDemand(const std::function<void(Demand &)> &set = {})
    {
        return m_office->addDemand([&](Demand &demand) {
            demand.m_dateCreate = QDateTime(QDate(2026, 5, 1), QTime(9, 0), Qt::UTC);
            demand.m_iPersonID = m_person;
            if (set)
                set(demand);
        });
    }

    static std::unique_ptr<Dialog> opened(int key, EditorMode mode)
    {
        auto dialog = std::make_unique<Dialog>(key, mode);
        if (!dialog->load())
            return nullptr;
        dialog->show();
        return dialog;
    }

    static Demand &load(Demand &demand, int key)
    {
        if (!demand.IsRecordExist(u"iID"_s, key))
            qFatal("the demand is gone");
        return demand;
    }

    // Confirms the reminder's window as it comes up.
    static void confirmReminder()
    {
        TestOffice::whenModal("CDlgAddAlarm", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
    }
    static void cancelReminder()
    {
        TestOffice::whenModal("CDlgAddAlarm", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
    }

    void pick(const Dialog &dialog, const QString &button, const QString &title, const QStringList &names, bool confirm = true)
    {
        TestOffice::whenModal("CDlgMultiItems", [=](QWidget *window) {
            QCOMPARE(window->windowTitle(), title);
            auto *picker = static_cast<CDlgMultiItems *>(window);
            picker->setSelectedNames(names);
            confirm ? picker->accept() : picker->reject();
        });
        named<QPushButton>(dialog, button)->click();
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        m_office->clear();
        m_person = m_office->addPerson(u"سارا"_s, u"کریمی"_s, [](CTblPersons &person) {
            person.m_sFatherName = u"علی"_s;
            person.m_sTel = u"02188776655"_s;
            person.m_sMobile = u"09121234567"_s;
        });
        m_brand = m_office->addBrand(u"پژو"_s);
        m_white = CTblMultiItems::addValue(CTblItems::typeColor, u"سفید"_s);
        m_black = CTblMultiItems::addValue(CTblItems::typeColor, u"سیاه"_s);
        m_abs = CTblMultiItems::addValue(CTblItems::typeFeature, u"ترمز ABS"_s);
        m_roof = CTblMultiItems::addValue(CTblItems::typeFeature, u"سقف باز شو"_s);
    }

    // --- Texts ---

    void everyLabelIsToTheLetter()
    {
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        QStringList labels;
        for (const QLabel *label : dialog->basePage()->findChildren<QLabel *>())
            labels << label->text();
        for (const QString &text :
             {u"کد تقاضا :"_s, u"تاريخ ايجاد :"_s, u"کد شخص :"_s,
              u"نام و نام خانوادگي :"_s, u"تلفن :"_s, u"نام پدر :"_s,
              u"موبايل :"_s, u"نحوه آشنايي :"_s, u"خودرو درخواستي :"_s,
              u"مبلغ از :"_s, u"تا مبلغ :"_s, u"سال توليد از :"_s, u"تا :"_s,
              u"امکانات :"_s, u"رنگ :"_s, u"تاريخ مراجعه :"_s,
              u"تاريخ حداکثر زمان نياز :"_s, u"توضيحات :"_s, u"توضيحات ويژه :"_s,
              u"کاربر بايگاني کننده :"_s, u"تاريخ بايگاني :"_s})
            QVERIFY2(labels.contains(text), qPrintable(text));
        QCOMPARE(dialog->basePage()->person()->title(), u"مشخصات شخص متقاضي"_s);
        QCOMPARE(dialog->basePage()->reminder()->title(), u"يادآوري"_s);
        QCOMPARE(dialog->basePage()->reminder()->remindBox()->text(), u"يادآوري شود"_s);
        QCOMPARE(dialog->basePage()->reminder()->settingsButton()->text(), u"تنظيمات "_s);
        QStringList pages;
        for (int i = 0; i < dialog->tabs()->count(); ++i)
            pages << dialog->tabs()->button(i)->text();
        QCOMPARE(pages, (QStringList{u"اطلاعات پایه"_s, u"پرونده های عمومی"_s, u"پرونده های شخصی"_s}));
    }

    void titleFollowsTheMode_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("title");
        QTest::newRow("new") << int(EditorMode::New) << u"تقاضا - جدید"_s;
        QTest::newRow("edit") << int(EditorMode::Edit) << u"تقاضا - ویرایش"_s;
        QTest::newRow("show") << int(EditorMode::Show) << u"تقاضا - نمایش"_s;
    }

    void titleFollowsTheMode()
    {
        QFETCH(int, mode);
        const auto dialog = opened(addDemand(), EditorMode(mode));
        QTEST(dialog->windowTitle(), "title");
    }

    void noTwoControlsHaveOneName()
    {
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        QSet<QString> names;
        for (const QWidget *widget : dialog->basePage()->findChildren<QWidget *>()) {
            if (widget->accessibleName().isEmpty() || !(widget->focusPolicy() & Qt::TabFocus) || widget->focusProxy())
                continue;
            QVERIFY2(!names.contains(widget->accessibleName()), qPrintable(widget->accessibleName()));
            names.insert(widget->accessibleName());
        }
        QVERIFY(names.size() > 15);
    }

    // --- Opening ---

    void aDemandIsShownAsItIsStored()
    {
        const int key = addDemand([this](Demand &d) {
            d.m_iCode = 12;
            d.m_iUserID = m_office->adminID();
            d.m_sAcquaintances = u"آشنا"_s;
            d.m_iAutomobilType = m_brand;
            d.m_iColor = m_black;
            d.m_iFacilities = m_roof;
            d.m_iModelFrom = 1390;
            d.m_iModelUpTo = 1395;
            d.m_dAmountFrom = 4e9;
            d.m_dAmountUpTo = 5e9;
            d.m_dateReference = QDateTime(QDate(2026, 3, 21), QTime(0, 0), Qt::UTC);
            d.m_sDesc = u"یک\nدو"_s;
            d.m_sDescSpecial = u"فوری"_s;
        });
        const auto dialog = opened(key, EditorMode::Edit);
        const KForm *form = dialog->basePage()->form();
        QCOMPARE(edit(*dialog, "iCode")->integer(), 12);
        QVERIFY(edit(*dialog, "iCode")->isReadOnly());
        QCOMPARE(named<KEdit>(*dialog, u"تاريخ ايجاد :"_s)->text(), u"1405/02/11"_s);
        QCOMPARE(named<KEdit>(*dialog, u"کاربر :"_s)->text(), u"مدیر"_s);
        QCOMPARE(named<KEdit>(*dialog, u"کد شخص :"_s)->text(), u"1"_s);
        QCOMPARE(named<KEdit>(*dialog, u"نام و نام خانوادگي :"_s)->text(), u"سارا کریمی"_s);
        QCOMPARE(named<KEdit>(*dialog, u"نام پدر :"_s)->text(), u"علی"_s);
        QCOMPARE(named<KEdit>(*dialog, u"تلفن :"_s)->text(), u"02188776655"_s);
        QCOMPARE(named<KEdit>(*dialog, u"موبايل :"_s)->text(), u"09121234567"_s);
        QCOMPARE(form->comboBox(u"iAutomobilType"_s)->currentText(), u"پژو"_s);
        QCOMPARE(form->comboBox(u"iColor"_s)->currentText(), u"سیاه"_s);
        QCOMPARE(form->comboBox(u"iFacilities"_s)->currentText(), u"سقف باز شو"_s);
        QCOMPARE(form->dateEdit(u"dateReference"_s)->text(), u"1405/01/01"_s);
        QCOMPARE(form->longText(u"sDesc"_s)->toPlainText(), u"یک\nدو"_s);
        QVERIFY(dialog->basePage()->archiveLine()->isHidden());
        QVERIFY(dialog->unarchiveButton()->isHidden());
    }

    void showModeIsReadOnlyThroughoutAndItsPickersAreDisabled()
    {
        const auto dialog = opened(addDemand(), EditorMode::Show);
        const KForm *form = dialog->basePage()->form();
        for (const KFormField &field : form->fields()) {
            QWidget *control = form->control(field.column);
            auto *line = qobject_cast<QLineEdit *>(control);
            auto *text = qobject_cast<KTextArea *>(control);
            QVERIFY2(line ? line->isReadOnly() : text ? text->isReadOnly()
                                                      : !control->isEnabled(),
                     qPrintable(field.column));
        }
        for (const QString &name : {u"رنگ : ..."_s, u"امکانات : ..."_s, u"کد شخص : ..."_s})
            QVERIFY2(!named<QPushButton>(*dialog, name)->isEnabled(), qPrintable(name));
        QVERIFY(!dialog->activeBox()->isEnabled());
        QVERIFY(dialog->basePage()->reminder()->isHidden());
        dialog->basePage()->person()->pick(); // would hang on the picker
        QCOMPARE(dialog->basePage()->person()->personID(), m_person);
    }

    void aDemandThatIsGoneIsNotOpened()
    {
        QVERIFY(!opened(4711, EditorMode::Edit));
        bool changed = true;
        QVERIFY(!Dialog::EditDemand(4711, changed, nullptr));
        QVERIFY(!changed);
        Dialog::ShowDemand(0, changed, nullptr);
        Dialog::ShowDemand(4711, changed, nullptr);
        QVERIFY(!changed);
    }

    void aNewDemandStartsWithTodayAsTheDayOfTheVisit()
    {
        const auto dialog = opened(Dialog::addPlaceholder(), EditorMode::New);
        QCOMPARE(dialog->basePage()->form()->dateEdit(u"dateReference"_s)->date(),
                 GetDBSetting()->GetDBServerDate().date());
        QVERIFY(!dialog->basePage()->form()->dateEdit(u"dateMaxTimeNeed"_s)->date().isValid());
        QCOMPARE(named<KEdit>(*dialog, u"کاربر :"_s)->text(), u"مدیر"_s);
    }

    void pageStandsOnTheGrid_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("columns");
        QTest::newRow("wide") << 1366 << 8;
        QTest::newRow("middle") << 960 << 4;
        QTest::newRow("narrow") << 560 << 2;
    }

    void pageStandsOnTheGrid()
    {
        QFETCH(int, width);
        QFETCH(int, columns);
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        QCOMPARE(OnGrid::problem(*dialog, *dialog->basePage(), width, columns), QString());
    }

    // --- Keyboard ---

    void tabGoesThroughThePageAsItIsLaidOut()
    {
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        QCOMPARE(dialog->focusWidget(), dialog->basePage()->person()->codeEdit());
        QStringList met;
        for (int i = 0; i < 40 && !met.contains(u"يادآوري شود"_s); ++i) {
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
            met << dialog->focusWidget()->accessibleName();
        }
        const QStringList expected = {u"خودرو درخواستي :"_s, u"سال توليد از :"_s, u"سال توليد تا :"_s, u"رنگ :"_s, u"رنگ : ..."_s, u"مبلغ از :"_s, u"تا مبلغ :"_s, u"امکانات :"_s, u"امکانات : ..."_s, u"تاريخ مراجعه :"_s, u"تاريخ حداکثر زمان نياز :"_s, u"نحوه آشنايي :"_s, u"توضيحات ويژه :"_s, u"توضيحات :"_s, u"يادآوري شود"_s};
        QStringList order;
        for (const QString &name : std::as_const(met)) {
            if (expected.contains(name))
                order << name;
        }
        QVERIFY2(order == expected, qPrintable(met.join(u" | "_s)));
    }

    void personIsPickedFromTheKeyboard()
    {
        const auto dialog = opened(Dialog::addPlaceholder(), EditorMode::New);
        bool came = false;
        TestOffice::whenModal("KDialogHolder", [&came](QWidget *window) {
            came = true;
            static_cast<QDialog *>(window)->reject();
        });
        QTest::keyClick(dialog->basePage()->person()->codeEdit(), Qt::Key_F4);
        QVERIFY(came);
    }

    // --- Validation ---

    void aDemandWithoutAPersonCannotBeSavedAndThePickerOpensAtOnce()
    {
        const int key = Dialog::addPlaceholder();
        const auto dialog = opened(key, EditorMode::New);
        bool pickerCame = false;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            pickerCame = true;
            static_cast<QDialog *>(window)->reject();
        });
        dialog->accept();
        QVERIFY(pickerCame);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا نام متقاضی را وارد نمایید."_s});
        QVERIFY(dialog->isVisible());
        QCOMPARE(value(u"SELECT iPersonID FROM AutomobilDemands"_s), u"0"_s);
    }

    void aDemandOfAPersonWhoIsGoneCannotBeSaved()
    {
        const int key = addDemand([](Demand &d) { d.m_iPersonID = 999999; });
        const auto dialog = opened(key, EditorMode::Edit);
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }

    void years_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("upTo");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("years 0 and 0 are accepted") << "0"
                                                    << "0" << true;
        QTest::newRow("no years are accepted") << ""
                                               << "" << true;
        QTest::newRow("1399 and 0 are refused") << "1399"
                                                << "0" << false;
        QTest::newRow("999 is refused") << "999"
                                        << "1399" << false;
        QTest::newRow("3000 is accepted") << "1399"
                                          << "3000" << true;
        QTest::newRow("3001 is refused") << "1399"
                                         << "3001" << false;
    }

    void years()
    {
        QFETCH(QString, from);
        QFETCH(QString, upTo);
        QFETCH(bool, accepted);
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        edit(*dialog, "iModelFrom")->setText(from);
        edit(*dialog, "iModelUpTo")->setText(upTo);
        dialog->accept();
        QCOMPARE(dialog->result() == QDialog::Accepted, accepted);
        QCOMPARE(g_pDlgWarning->takeShown(),
                 accepted ? QStringList() : QStringList{u"لطفا مدل سال بزرگتر از 1000 تا 3000 وارد کنید."_s});
        if (accepted)
            QCOMPARE(value(u"SELECT iModelUpTo FROM AutomobilDemands"_s).toInt(), upTo.toInt());
        else
            QCOMPARE(dialog->focusWidget(), edit(*dialog, "iModelFrom"));
    }

    void rangeThatEndsBeforeItBeginsIsRefused_data()
    {
        QTest::addColumn<QByteArray>("fromColumn");
        QTest::addColumn<QByteArray>("upToColumn");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("upTo");
        QTest::addColumn<QString>("message");
        QTest::newRow("years") << QByteArray("iModelFrom") << QByteArray("iModelUpTo") << u"1400"_s << u"1395"_s
                               << u"«سال توليد از» بزرگتر از «سال توليد تا» است. لطفا اصلاح نمایید."_s;
        QTest::newRow("amounts") << QByteArray("dAmountFrom") << QByteArray("dAmountUpTo") << u"5000000"_s << u"4000000"_s
                                 << u"«مبلغ از» بزرگتر از «تا مبلغ» است. لطفا اصلاح نمایید."_s;
        QTest::newRow("no upper year or amount") << QByteArray("dAmountFrom") << QByteArray("dAmountUpTo") << u"5000000"_s
                                                 << QString() << QString();
        QTest::newRow("one year") << QByteArray("iModelFrom") << QByteArray("iModelUpTo") << u"1400"_s << u"1400"_s << QString();
    }

    void rangeThatEndsBeforeItBeginsIsRefused()
    {
        QFETCH(QByteArray, fromColumn);
        QFETCH(QByteArray, upToColumn);
        QFETCH(QString, from);
        QFETCH(QString, upTo);
        QFETCH(QString, message);
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        edit(*dialog, fromColumn.constData())->setText(from);
        edit(*dialog, upToColumn.constData())->setText(upTo);
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown().join(u'|'), message);
        QCOMPARE(dialog->result() == QDialog::Accepted, message.isEmpty());
        if (!message.isEmpty())
            QCOMPARE(dialog->focusWidget(), edit(*dialog, fromColumn.constData()));
    }

    void aDateThatIsNoneIsRefusedAndKept()
    {
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        KDateEdit *date = dialog->basePage()->form()->dateEdit(u"dateMaxTimeNeed"_s);
        date->setText(u"1404/12/30"_s);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QVERIFY(g_pDlgWarning->takeShown().value(0).startsWith(u"تاريخ حداکثر زمان نياز :"_s));
        QCOMPARE(dialog->focusWidget(), date);
        QCOMPARE(date->text(), u"1404/12/30"_s);
    }

    // By the label that the window shows, which the column's own caption is not.
    void aTextThatTheDatabaseDoesNotHoldIsRefusedByItsLabel()
    {
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        edit(*dialog, "sDescSpecial")->setText(u"فوری 🚗"_s);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"توضيحات ويژه : نویسه‌ای دارد که قابل ذخیره نیست."_s});
        QCOMPARE(dialog->focusWidget(), edit(*dialog, "sDescSpecial"));
    }

    // --- Saving ---

    void everythingThatIsEnteredIsSaved()
    {
        const int key = addDemand();
        const auto dialog = opened(key, EditorMode::Edit);
        KForm *form = dialog->basePage()->form();
        edit(*dialog, "sAcquaintances")->setText(u"روزنامه"_s);
        form->setKey(u"iAutomobilType"_s, m_brand);
        form->setKey(u"iColor"_s, m_white);
        form->setKey(u"iFacilities"_s, m_abs);
        edit(*dialog, "dAmountFrom")->setText(u"4,000,000,000"_s);
        edit(*dialog, "dAmountUpTo")->setText(u"5000000000"_s);
        edit(*dialog, "iModelFrom")->setText(u"۱۳۹۵"_s);
        edit(*dialog, "iModelUpTo")->setText(u"1400"_s);
        form->dateEdit(u"dateReference"_s)->setText(u"1405/01/01"_s);
        form->dateEdit(u"dateMaxTimeNeed"_s)->setText(u"1405/02/01"_s);
        form->longText(u"sDesc"_s)->setPlainText(u"الف\nب"_s);
        edit(*dialog, "sDescSpecial")->setText(u"فوری"_s);
        dialog->accept();
        QCOMPARE(dialog->result(), int(QDialog::Accepted));
        Demand demand;
        load(demand, key);
        QCOMPARE(demand.m_iPersonID, m_person);
        QCOMPARE(demand.m_sAcquaintances, u"روزنامه"_s);
        QCOMPARE(demand.m_iAutomobilType, m_brand);
        QCOMPARE(demand.m_iColor, m_white);
        QCOMPARE(demand.m_iFacilities, m_abs);
        QCOMPARE(demand.m_dAmountFrom, 4e9);
        QCOMPARE(demand.m_dAmountUpTo, 5e9);
        QCOMPARE(demand.m_iModelFrom, 1395);
        QCOMPARE(demand.m_iModelUpTo, 1400);
        QCOMPARE(demand.m_dateReference.date(), QDate(2026, 3, 21));
        QCOMPARE(demand.m_dateMaxTimeNeed.date(), QDate(2026, 4, 21));
        QCOMPARE(demand.m_sDesc, u"الف\nب"_s);
        QCOMPARE(demand.m_sDescSpecial, u"فوری"_s);
        QCOMPARE(demand.m_iStatus, 0);
    }

    void savingAnOldDemandWithoutAUserStampsTheCurrentOneAndOneThatHasAUserKeepsIt()
    {
        const int without = addDemand();
        const int with = addDemand([](Demand &d) { d.m_iUserID = 77; });
        opened(without, EditorMode::Edit)->accept();
        opened(with, EditorMode::Edit)->accept();
        Demand demand;
        QCOMPARE(load(demand, without).m_iUserID, m_office->adminID());
        QCOMPARE(load(demand, with).m_iUserID, 77);
    }

    void aColourThatWasDeletedSinceIsKept()
    {
        const int key = addDemand([this](Demand &d) { d.m_iColor = m_black; });
        CTblMultiItems::deleteValue(m_black);
        const auto dialog = opened(key, EditorMode::Edit);
        edit(*dialog, "sDescSpecial")->setText(u"x"_s);
        dialog->accept();
        Demand demand;
        QCOMPARE(load(demand, key).m_iColor, m_black);
        QCOMPARE(demand.m_sDescSpecial, u"x"_s);
    }

    void aDemandIsMadeInactive()
    {
        const int key = addDemand();
        const auto dialog = opened(key, EditorMode::Edit);
        QVERIFY(dialog->activeBox()->isChecked());
        dialog->activeBox()->setChecked(false);
        dialog->accept();
        Demand demand;
        QCOMPARE(load(demand, key).m_iStatus, 1);
    }

    // --- Pickers of values ---

    void pickerOfColoursGivesTheOneThatWasTicked()
    {
        const auto dialog = opened(addDemand([this](Demand &d) { d.m_iColor = m_white; }), EditorMode::Edit);
        pick(*dialog, u"رنگ : ..."_s, u"رنگ"_s, {u"سیاه"_s});
        QCOMPARE(dialog->basePage()->form()->key(u"iColor"_s), m_black);
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
    }

    void pickerOfFacilitiesKeepsOneOfSeveralAndSaysWhich()
    {
        const auto dialog = opened(addDemand([this](Demand &d) { d.m_iFacilities = m_abs; }), EditorMode::Edit);
        pick(*dialog, u"امکانات : ..."_s, u"امکانات"_s, {u"ترمز ABS"_s, u"سقف باز شو"_s});
        QCOMPARE(dialog->basePage()->form()->key(u"iFacilities"_s), m_roof);
        QVERIFY(g_pDlgMessage->takeShown().value(0).contains(u"سقف باز شو"_s));
    }

    void cancelledPickerLeavesTheValue()
    {
        const auto dialog = opened(addDemand([this](Demand &d) { d.m_iColor = m_white; }), EditorMode::Edit);
        pick(*dialog, u"رنگ : ..."_s, u"رنگ"_s, {u"سیاه"_s}, false);
        QCOMPARE(dialog->basePage()->form()->key(u"iColor"_s), m_white);
    }

    // --- Reminder ---

    void reminderGroupIsHiddenUntilTheDemandMayBeChanged()
    {
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        const DemandReminder *reminder = dialog->basePage()->reminder();
        QVERIFY(reminder->isVisible());
        QVERIFY(!reminder->remindBox()->isChecked());
        QVERIFY(!reminder->settingsButton()->isEnabled());
        CDlgAddAutomobilDemandBase unfilled(EditorMode::Edit);
        QVERIFY(unfilled.reminder()->isHidden());
    }

    void reminderIsAddedUnderTheDemandAndShown()
    {
        const int key = addDemand([this](Demand &d) { d.m_iAutomobilType = m_brand; });
        const auto dialog = opened(key, EditorMode::Edit);
        const DemandReminder *reminder = dialog->basePage()->reminder();
        confirmReminder();
        reminder->remindBox()->click();
        QCOMPARE(value(u"SELECT CONCAT_WS(',',iTable,iRecordID,iRecordID2) FROM Alarms"_s),
                 u"70,%1,1"_s.arg(key));
        const QString description = value(u"SELECT sDesc FROM Alarms"_s);
        QVERIFY(description.contains(u"سارا کریمی"_s));
        QVERIFY(description.contains(u"پژو"_s));
        QVERIFY(reminder->remindBox()->isChecked());
        QVERIFY(reminder->settingsButton()->isEnabled());
        QVERIFY(reminder->description().endsWith(description));
        Demand demand;
        QCOMPARE(load(demand, key).m_iAlarmID, reminder->alarmID());
        QVERIFY(reminder->alarmID() > 0);
        dialog->accept();
        QCOMPARE(load(demand, key).m_iAlarmID, reminder->alarmID());
    }

    void aReminderIsProposedWithWhatIsKnownOfTheDemand()
    {
        const auto dialog = opened(Dialog::addPlaceholder(), EditorMode::New);
        const auto proposed = [&dialog] {
            QString description;
            TestOffice::whenModal("CDlgAddAlarm", [&description](QWidget *window) {
                description = named<KEdit>(*window, u"شرح :"_s)->text();
                static_cast<QDialog *>(window)->reject();
            });
            dialog->basePage()->reminder()->remindBox()->click();
            return description;
        };
        QCOMPARE(proposed(), u"تقاضای 1"_s);
        dialog->basePage()->form()->setKey(u"iAutomobilType"_s, m_brand);
        QCOMPARE(proposed(), u"تقاضای 1 - پژو"_s);
        dialog->basePage()->person()->setPersonID(m_person);
        QCOMPARE(proposed(), u"تقاضای 1 - سارا کریمی، پژو"_s);
    }

    // As a screen reader ticks it: without a click.
    void aBoxThatIsToggledAsksForTheReminderToo()
    {
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        confirmReminder();
        dialog->basePage()->reminder()->remindBox()->toggle();
        QVERIFY(dialog->basePage()->reminder()->alarmID() > 0);
        QVERIFY(dialog->basePage()->reminder()->remindBox()->isChecked());
    }

    void cancelledReminderLeavesNone()
    {
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        cancelReminder();
        dialog->basePage()->reminder()->remindBox()->click();
        QVERIFY(!dialog->basePage()->reminder()->remindBox()->isChecked());
        QCOMPARE(count("Alarms"), u"0"_s);
    }

    void aReminderThatIsThereIsChangedByBothControls()
    {
        const int key = addDemand();
        const auto dialog = opened(key, EditorMode::Edit);
        DemandReminder *reminder = dialog->basePage()->reminder();
        confirmReminder();
        reminder->remindBox()->click();
        for (QAbstractButton *control : {static_cast<QAbstractButton *>(reminder->remindBox()),
                                         static_cast<QAbstractButton *>(reminder->settingsButton())}) {
            const QString text = control->text();
            TestOffice::whenModal("CDlgAddAlarm", [&](QWidget *window) {
                QVERIFY(window->windowTitle().contains(u"ویرایش"_s));
                named<KEdit>(*window, u"شرح :"_s)->setText(text);
                static_cast<QDialog *>(window)->accept();
            });
            control->click();
            QVERIFY(reminder->description().contains(text.trimmed()));
            QVERIFY(reminder->remindBox()->isChecked());
        }
        QCOMPARE(count("Alarms"), u"1"_s);
    }

    void aReminderThatWasDeletedElsewhereIsAddedAnew()
    {
        const int key = addDemand([](Demand &d) { d.m_iAlarmID = 4711; });
        const auto dialog = opened(key, EditorMode::Edit);
        QVERIFY(!dialog->basePage()->reminder()->remindBox()->isChecked());
        confirmReminder();
        dialog->basePage()->reminder()->remindBox()->click();
        Demand demand;
        QCOMPARE(QString::number(load(demand, key).m_iAlarmID), value(u"SELECT iID FROM Alarms"_s));
    }

    void aReminderDeletedWhileItsDemandIsOpenIsAddedAnewToo()
    {
        const int key = addDemand();
        const auto dialog = opened(key, EditorMode::Edit);
        confirmReminder();
        dialog->basePage()->reminder()->remindBox()->click();
        m_office->database().run(u"DELETE FROM Alarms"_s);
        bool isNew = false;
        TestOffice::whenModal("CDlgAddAlarm", [&isNew](QWidget *window) {
            isNew = window->windowTitle().endsWith(u"جدید"_s);
            static_cast<QDialog *>(window)->accept();
        });
        dialog->basePage()->reminder()->settingsButton()->click();
        QVERIFY(isNew);
        Demand demand;
        QCOMPARE(QString::number(load(demand, key).m_iAlarmID), value(u"SELECT iID FROM Alarms"_s));
    }

    void cancelledEditLeavesTheReminderWithItsDemandAndNoneWithout()
    {
        const int key = addDemand();
        {
            const auto dialog = opened(key, EditorMode::Edit);
            confirmReminder();
            dialog->basePage()->reminder()->remindBox()->click();
            dialog->reject();
        }
        QCOMPARE(value(u"SELECT COUNT(*) FROM Alarms a JOIN AutomobilDemands d ON d.iAlarmID=a.iID"_s),
                 u"1"_s);
        QCOMPARE(count("Alarms"), u"1"_s);
    }

    void shownDemandShowsItsReminder()
    {
        const int key = addDemand();
        {
            const auto dialog = opened(key, EditorMode::Edit);
            confirmReminder();
            dialog->basePage()->reminder()->remindBox()->click();
        }
        const auto dialog = opened(key, EditorMode::Show);
        const DemandReminder *reminder = dialog->basePage()->reminder();
        QVERIFY(reminder->isVisible());
        QVERIFY(!reminder->description().isEmpty());
        QVERIFY(!reminder->remindBox()->isEnabled());
        QVERIFY(reminder->settingsButton()->isHidden());
    }

    // --- New ---

    void placeholderHasTheNextCodeAndIsOtherwiseEmpty()
    {
        addDemand([](Demand &d) { d.m_iCode = 41; });
        Demand demand;
        load(demand, Dialog::addPlaceholder());
        QCOMPARE(demand.m_iCode, 42);
        QCOMPARE(demand.m_dateCreate.date(), GetDBSetting()->GetDBServerDate().date());
        QCOMPARE(demand.m_iUserID, 0);
        QCOMPARE(demand.m_iPersonID, 0);
        QVERIFY(!demand.m_dateReference.isValid());
    }

    void confirmedNewDemandKeepsItsCodeAndIsTheCurrentUsers()
    {
        TestOffice::whenModal("CDlgAddAutomobilDemand", [this](QWidget *window) {
            auto *dialog = static_cast<Dialog *>(window);
            dialog->basePage()->person()->setPersonID(m_person);
            dialog->accept();
        });
        const int key = Dialog::NewDemand(nullptr);
        Demand demand;
        load(demand, key);
        QCOMPARE(demand.m_iCode, 1);
        QCOMPARE(demand.m_iPersonID, m_person);
        QCOMPARE(demand.m_iUserID, m_office->adminID());
    }

    void aNewDemandThatCannotBeOpenedLeavesNoRowAndItsError()
    {
        m_office->database().run(u"RENAME TABLE CarBrands TO CarBrandsAway"_s);
        bool thrown = false;
        try {
            Dialog::NewDemand(nullptr);
        } catch (const CMySQLException &) {
            thrown = true;
        }
        m_office->database().run(u"RENAME TABLE CarBrandsAway TO CarBrands"_s);
        QVERIFY(thrown);
        QCOMPARE(count("AutomobilDemands"), u"0"_s);
    }

    void cancelledNewDemandLeavesNoRowFileOrReminder()
    {
        const int other = addDemand();
        m_office->database().run(u"INSERT INTO Alarms (iTable,iRecordID,sDesc) VALUES (70,%1,'a')"_s.arg(other));
        TestOffice::whenModal("CDlgAddAutomobilDemand", [this](QWidget *window) {
            auto *dialog = static_cast<Dialog *>(window);
            m_office->database().run(
                u"INSERT INTO FileDocs (iTable,iRecordID,sName) VALUES (70,%1,'a')"_s.arg(dialog->key()));
            confirmReminder();
            dialog->basePage()->reminder()->remindBox()->click();
            QCOMPARE(count("Alarms"), u"2"_s);
            dialog->reject();
        });
        QCOMPARE(Dialog::NewDemand(nullptr), 0);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iID) FROM AutomobilDemands"_s), QString::number(other));
        QCOMPARE(count("FileDocs"), u"0"_s);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iRecordID) FROM Alarms"_s), QString::number(other));
    }

    void noneIsAddedOrChangedInAClosedDatabase()
    {
        const int key = addDemand([](Demand &d) { d.m_iArchiveUserID = 3; });
        const auto dialog = opened(key, EditorMode::Show);
        GetDBSetting()->SetClosedDB(true);
        bool changed = false;
        QVERIFY_THROWS_EXCEPTION(KAccountingError, Dialog::NewDemand(nullptr));
        QVERIFY_THROWS_EXCEPTION(KAccountingError, Dialog::EditDemand(key, changed, nullptr));
        dialog->unarchiveButton()->click();
        GetDBSetting()->SetClosedDB(false);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QVERIFY(dialog->isVisible());
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iArchiveUserID) FROM AutomobilDemands"_s), u"3"_s);
    }

    void filePagesAreBoundToTheDemand()
    {
        const int key = addDemand();
        const auto dialog = opened(key, EditorMode::Edit);
        QTemporaryDir folder;
        QFile file(folder.filePath(u"a.txt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("a");
        file.close();
        const QList<CDlgFileDocs *> pages = dialog->findChildren<CDlgFileDocs *>();
        QCOMPARE(pages.size(), 2);
        for (CDlgFileDocs *page : pages)
            QVERIFY(page->addFile(file.fileName()));
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iTable,',',iRecordID,',',iScope ORDER BY iScope SEPARATOR ' ') FROM FileDocs"_s),
                 u"70,%1,0 70,%1,1"_s.arg(key));
    }

    // --- Archive ---

    void unarchivingSetsTheArchiveUserToZeroByTheCodeNotTheKey()
    {
        const int key = addDemand([](Demand &d) { d.m_iCode = 50; d.m_iArchiveUserID = 3; });
        // A demand whose code is the other's key stays in the archive.
        const int other = addDemand([key](Demand &d) { d.m_iCode = key; d.m_iArchiveUserID = 3; });
        const auto dialog = opened(key, EditorMode::Show);
        QVERIFY(dialog->unarchiveButton()->isVisible());
        QVERIFY(dialog->basePage()->archiveLine()->isVisible());
        dialog->unarchiveButton()->click();
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"این نامه از حالت بایگانی خارج شد."_s});
        QVERIFY(dialog->refreshNeeded());
        QVERIFY(!dialog->isVisible());
        Demand demand;
        QCOMPARE(load(demand, key).m_iArchiveUserID, 0);
        QVERIFY(demand.m_dateArchive.isValid());
        QCOMPARE(load(demand, other).m_iArchiveUserID, 3);
    }

    void unarchivingNeedsItsRight()
    {
        const int key = addDemand([](Demand &d) { d.m_iArchiveUserID = 3; });
        m_office->logInAs(u"clerk"_s, u"AutomobilDemands"_s, KSecurity::allRights);
        const auto dialog = opened(key, EditorMode::Show);
        dialog->unarchiveButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"شما اجازه تغییر دادن ندارید."_s});
        QVERIFY(dialog->isVisible());
        Demand demand;
        QCOMPARE(load(demand, key).m_iArchiveUserID, 3);
    }
};

static const RegisteredTest<TestCDlgAddAutomobilDemand, KApplication> registeredCDlgAddAutomobilDemand;
#include "TestCDlgAddAutomobilDemand.moc"
