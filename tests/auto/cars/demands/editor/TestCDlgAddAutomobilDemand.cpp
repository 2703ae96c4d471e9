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
        return value(QStringLiteral("SELECT COUNT(*) FROM ") + QString::fromLatin1(table));
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
        if (!demand.IsRecordExist(QStringLiteral("iID"), key))
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
        m_person = m_office->addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"), [](CTblPersons &person) {
            person.m_sFatherName = QStringLiteral("علی");
            person.m_sTel = QStringLiteral("02188776655");
            person.m_sMobile = QStringLiteral("09121234567");
        });
        m_brand = m_office->addBrand(QStringLiteral("پژو"));
        m_white = CTblMultiItems::addValue(CTblItems::typeColor, QStringLiteral("سفید"));
        m_black = CTblMultiItems::addValue(CTblItems::typeColor, QStringLiteral("سیاه"));
        m_abs = CTblMultiItems::addValue(CTblItems::typeFeature, QStringLiteral("ترمز ABS"));
        m_roof = CTblMultiItems::addValue(CTblItems::typeFeature, QStringLiteral("سقف باز شو"));
    }

    // --- Texts ---

    void everyLabelIsToTheLetter()
    {
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        QStringList labels;
        for (const QLabel *label : dialog->basePage()->findChildren<QLabel *>())
            labels << label->text();
        for (const QString &text :
             {QStringLiteral("کد تقاضا :"), QStringLiteral("تاريخ ايجاد :"), QStringLiteral("کد شخص :"),
              QStringLiteral("نام و نام خانوادگي :"), QStringLiteral("تلفن :"), QStringLiteral("نام پدر :"),
              QStringLiteral("موبايل :"), QStringLiteral("نحوه آشنايي :"), QStringLiteral("خودرو درخواستي :"),
              QStringLiteral("مبلغ از :"), QStringLiteral("تا مبلغ :"), QStringLiteral("سال توليد از :"), QStringLiteral("تا :"),
              QStringLiteral("امکانات :"), QStringLiteral("رنگ :"), QStringLiteral("تاريخ مراجعه :"),
              QStringLiteral("تاريخ حداکثر زمان نياز :"), QStringLiteral("توضيحات :"), QStringLiteral("توضيحات ويژه :"),
              QStringLiteral("کاربر بايگاني کننده :"), QStringLiteral("تاريخ بايگاني :")})
            QVERIFY2(labels.contains(text), qPrintable(text));
        QCOMPARE(dialog->basePage()->person()->title(), QStringLiteral("مشخصات شخص متقاضي"));
        QCOMPARE(dialog->basePage()->reminder()->title(), QStringLiteral("يادآوري"));
        QCOMPARE(dialog->basePage()->reminder()->remindBox()->text(), QStringLiteral("يادآوري شود"));
        QCOMPARE(dialog->basePage()->reminder()->settingsButton()->text(), QStringLiteral("تنظيمات "));
        QStringList pages;
        for (int i = 0; i < dialog->tabs()->count(); ++i)
            pages << dialog->tabs()->button(i)->text();
        QCOMPARE(pages, (QStringList{QStringLiteral("اطلاعات پایه"), QStringLiteral("پرونده های عمومی"), QStringLiteral("پرونده های شخصی")}));
    }

    void titleFollowsTheMode_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("title");
        QTest::newRow("new") << int(EditorMode::New) << QStringLiteral("تقاضا - جدید");
        QTest::newRow("edit") << int(EditorMode::Edit) << QStringLiteral("تقاضا - ویرایش");
        QTest::newRow("show") << int(EditorMode::Show) << QStringLiteral("تقاضا - نمایش");
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
            d.m_sAcquaintances = QStringLiteral("آشنا");
            d.m_iAutomobilType = m_brand;
            d.m_iColor = m_black;
            d.m_iFacilities = m_roof;
            d.m_iModelFrom = 1390;
            d.m_iModelUpTo = 1395;
            d.m_dAmountFrom = 4e9;
            d.m_dAmountUpTo = 5e9;
            d.m_dateReference = QDateTime(QDate(2026, 3, 21), QTime(0, 0), Qt::UTC);
            d.m_sDesc = QStringLiteral("یک\nدو");
            d.m_sDescSpecial = QStringLiteral("فوری");
        });
        const auto dialog = opened(key, EditorMode::Edit);
        const KForm *form = dialog->basePage()->form();
        QCOMPARE(edit(*dialog, "iCode")->integer(), 12);
        QVERIFY(edit(*dialog, "iCode")->isReadOnly());
        QCOMPARE(named<KEdit>(*dialog, QStringLiteral("تاريخ ايجاد :"))->text(), QStringLiteral("1405/02/11"));
        QCOMPARE(named<KEdit>(*dialog, QStringLiteral("کاربر :"))->text(), QStringLiteral("مدیر"));
        QCOMPARE(named<KEdit>(*dialog, QStringLiteral("کد شخص :"))->text(), QStringLiteral("1"));
        QCOMPARE(named<KEdit>(*dialog, QStringLiteral("نام و نام خانوادگي :"))->text(), QStringLiteral("سارا کریمی"));
        QCOMPARE(named<KEdit>(*dialog, QStringLiteral("نام پدر :"))->text(), QStringLiteral("علی"));
        QCOMPARE(named<KEdit>(*dialog, QStringLiteral("تلفن :"))->text(), QStringLiteral("02188776655"));
        QCOMPARE(named<KEdit>(*dialog, QStringLiteral("موبايل :"))->text(), QStringLiteral("09121234567"));
        QCOMPARE(form->comboBox(QStringLiteral("iAutomobilType"))->currentText(), QStringLiteral("پژو"));
        QCOMPARE(form->comboBox(QStringLiteral("iColor"))->currentText(), QStringLiteral("سیاه"));
        QCOMPARE(form->comboBox(QStringLiteral("iFacilities"))->currentText(), QStringLiteral("سقف باز شو"));
        QCOMPARE(form->dateEdit(QStringLiteral("dateReference"))->text(), QStringLiteral("1405/01/01"));
        QCOMPARE(form->longText(QStringLiteral("sDesc"))->toPlainText(), QStringLiteral("یک\nدو"));
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
        for (const QString &name : {QStringLiteral("رنگ : ..."), QStringLiteral("امکانات : ..."), QStringLiteral("کد شخص : ...")})
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
        QCOMPARE(dialog->basePage()->form()->dateEdit(QStringLiteral("dateReference"))->date(),
                 GetDBSetting()->GetDBServerDate().date());
        QVERIFY(!dialog->basePage()->form()->dateEdit(QStringLiteral("dateMaxTimeNeed"))->date().isValid());
        QCOMPARE(named<KEdit>(*dialog, QStringLiteral("کاربر :"))->text(), QStringLiteral("مدیر"));
    }

    // --- Keyboard ---

    void tabGoesThroughThePageAsItIsLaidOut()
    {
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        QCOMPARE(dialog->focusWidget(), dialog->basePage()->person()->codeEdit());
        QStringList met;
        for (int i = 0; i < 40 && !met.contains(QStringLiteral("يادآوري شود")); ++i) {
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
            met << dialog->focusWidget()->accessibleName();
        }
        const QStringList expected = {QStringLiteral("خودرو درخواستي :"), QStringLiteral("سال توليد از :"), QStringLiteral("سال توليد تا :"), QStringLiteral("رنگ :"), QStringLiteral("رنگ : ..."), QStringLiteral("مبلغ از :"), QStringLiteral("تا مبلغ :"), QStringLiteral("امکانات :"), QStringLiteral("امکانات : ..."), QStringLiteral("تاريخ مراجعه :"), QStringLiteral("تاريخ حداکثر زمان نياز :"), QStringLiteral("نحوه آشنايي :"), QStringLiteral("توضيحات ويژه :"), QStringLiteral("توضيحات :"), QStringLiteral("يادآوري شود")};
        QStringList order;
        for (const QString &name : std::as_const(met)) {
            if (expected.contains(name))
                order << name;
        }
        QVERIFY2(order == expected, qPrintable(met.join(QStringLiteral(" | "))));
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
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("لطفا نام متقاضی را وارد نمایید.")});
        QVERIFY(dialog->isVisible());
        QCOMPARE(value(QStringLiteral("SELECT iPersonID FROM AutomobilDemands")), QStringLiteral("0"));
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
                 accepted ? QStringList() : QStringList{QStringLiteral("لطفا مدل سال بزرگتر از 1000 تا 3000 وارد کنید.")});
        if (accepted)
            QCOMPARE(value(QStringLiteral("SELECT iModelUpTo FROM AutomobilDemands")).toInt(), upTo.toInt());
        else
            QCOMPARE(dialog->focusWidget(), edit(*dialog, "iModelFrom"));
    }

    void aDateThatIsNoneIsRefusedAndKept()
    {
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        KDateEdit *date = dialog->basePage()->form()->dateEdit(QStringLiteral("dateMaxTimeNeed"));
        date->setText(QStringLiteral("1404/12/30"));
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QVERIFY(g_pDlgWarning->takeShown().value(0).startsWith(QStringLiteral("تاريخ حداکثر زمان نياز :")));
        QCOMPARE(dialog->focusWidget(), date);
        QCOMPARE(date->text(), QStringLiteral("1404/12/30"));
    }

    // --- Saving ---

    void everythingThatIsEnteredIsSaved()
    {
        const int key = addDemand();
        const auto dialog = opened(key, EditorMode::Edit);
        KForm *form = dialog->basePage()->form();
        edit(*dialog, "sAcquaintances")->setText(QStringLiteral("روزنامه"));
        form->setKey(QStringLiteral("iAutomobilType"), m_brand);
        form->setKey(QStringLiteral("iColor"), m_white);
        form->setKey(QStringLiteral("iFacilities"), m_abs);
        edit(*dialog, "dAmountFrom")->setText(QStringLiteral("4,000,000,000"));
        edit(*dialog, "dAmountUpTo")->setText(QStringLiteral("5000000000"));
        edit(*dialog, "iModelFrom")->setText(QStringLiteral("۱۳۹۵"));
        edit(*dialog, "iModelUpTo")->setText(QStringLiteral("1400"));
        form->dateEdit(QStringLiteral("dateReference"))->setText(QStringLiteral("1405/01/01"));
        form->dateEdit(QStringLiteral("dateMaxTimeNeed"))->setText(QStringLiteral("1405/02/01"));
        form->longText(QStringLiteral("sDesc"))->setPlainText(QStringLiteral("الف\nب"));
        edit(*dialog, "sDescSpecial")->setText(QStringLiteral("فوری"));
        dialog->accept();
        QCOMPARE(dialog->result(), int(QDialog::Accepted));
        Demand demand;
        load(demand, key);
        QCOMPARE(demand.m_iPersonID, m_person);
        QCOMPARE(demand.m_sAcquaintances, QStringLiteral("روزنامه"));
        QCOMPARE(demand.m_iAutomobilType, m_brand);
        QCOMPARE(demand.m_iColor, m_white);
        QCOMPARE(demand.m_iFacilities, m_abs);
        QCOMPARE(demand.m_dAmountFrom, 4e9);
        QCOMPARE(demand.m_dAmountUpTo, 5e9);
        QCOMPARE(demand.m_iModelFrom, 1395);
        QCOMPARE(demand.m_iModelUpTo, 1400);
        QCOMPARE(demand.m_dateReference.date(), QDate(2026, 3, 21));
        QCOMPARE(demand.m_dateMaxTimeNeed.date(), QDate(2026, 4, 21));
        QCOMPARE(demand.m_sDesc, QStringLiteral("الف\nب"));
        QCOMPARE(demand.m_sDescSpecial, QStringLiteral("فوری"));
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

    void aVanishedRowMakesTheSaveDoNothing()
    {
        const int key = addDemand();
        const auto dialog = opened(key, EditorMode::Edit);
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilDemands"));
        dialog->accept();
        QCOMPARE(count("AutomobilDemands"), QStringLiteral("0"));
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void aColourThatWasDeletedSinceIsKept()
    {
        const int key = addDemand([this](Demand &d) { d.m_iColor = m_black; });
        CTblMultiItems::deleteValue(m_black);
        const auto dialog = opened(key, EditorMode::Edit);
        edit(*dialog, "sDescSpecial")->setText(QStringLiteral("x"));
        dialog->accept();
        Demand demand;
        QCOMPARE(load(demand, key).m_iColor, m_black);
        QCOMPARE(demand.m_sDescSpecial, QStringLiteral("x"));
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
        pick(*dialog, QStringLiteral("رنگ : ..."), QStringLiteral("رنگ"), {QStringLiteral("سیاه")});
        QCOMPARE(dialog->basePage()->form()->key(QStringLiteral("iColor")), m_black);
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
    }

    void pickerOfFacilitiesKeepsOneOfSeveralAndSaysWhich()
    {
        const auto dialog = opened(addDemand([this](Demand &d) { d.m_iFacilities = m_abs; }), EditorMode::Edit);
        pick(*dialog, QStringLiteral("امکانات : ..."), QStringLiteral("امکانات"), {QStringLiteral("ترمز ABS"), QStringLiteral("سقف باز شو")});
        QCOMPARE(dialog->basePage()->form()->key(QStringLiteral("iFacilities")), m_roof);
        QVERIFY(g_pDlgMessage->takeShown().value(0).contains(QStringLiteral("سقف باز شو")));
    }

    void cancelledPickerLeavesTheValue()
    {
        const auto dialog = opened(addDemand([this](Demand &d) { d.m_iColor = m_white; }), EditorMode::Edit);
        pick(*dialog, QStringLiteral("رنگ : ..."), QStringLiteral("رنگ"), {QStringLiteral("سیاه")}, false);
        QCOMPARE(dialog->basePage()->form()->key(QStringLiteral("iColor")), m_white);
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
        QCOMPARE(value(QStringLiteral("SELECT CONCAT_WS(',',iTable,iRecordID,iRecordID2) FROM Alarms")),
                 QStringLiteral("70,%1,1").arg(key));
        const QString description = value(QStringLiteral("SELECT sDesc FROM Alarms"));
        QVERIFY(description.contains(QStringLiteral("سارا کریمی")));
        QVERIFY(description.contains(QStringLiteral("پژو")));
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
                description = named<KEdit>(*window, QStringLiteral("شرح :"))->text();
                static_cast<QDialog *>(window)->reject();
            });
            dialog->basePage()->reminder()->remindBox()->click();
            return description;
        };
        QCOMPARE(proposed(), QStringLiteral("تقاضای 1"));
        dialog->basePage()->form()->setKey(QStringLiteral("iAutomobilType"), m_brand);
        QCOMPARE(proposed(), QStringLiteral("تقاضای 1 - پژو"));
        dialog->basePage()->person()->setPersonID(m_person);
        QCOMPARE(proposed(), QStringLiteral("تقاضای 1 - سارا کریمی، پژو"));
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
        QCOMPARE(count("Alarms"), QStringLiteral("0"));
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
                QVERIFY(window->windowTitle().contains(QStringLiteral("ویرایش")));
                named<KEdit>(*window, QStringLiteral("شرح :"))->setText(text);
                static_cast<QDialog *>(window)->accept();
            });
            control->click();
            QVERIFY(reminder->description().contains(text.trimmed()));
            QVERIFY(reminder->remindBox()->isChecked());
        }
        QCOMPARE(count("Alarms"), QStringLiteral("1"));
    }

    void aReminderThatWasDeletedElsewhereIsAddedAnew()
    {
        const int key = addDemand([](Demand &d) { d.m_iAlarmID = 4711; });
        const auto dialog = opened(key, EditorMode::Edit);
        QVERIFY(!dialog->basePage()->reminder()->remindBox()->isChecked());
        confirmReminder();
        dialog->basePage()->reminder()->remindBox()->click();
        Demand demand;
        QCOMPARE(QString::number(load(demand, key).m_iAlarmID), value(QStringLiteral("SELECT iID FROM Alarms")));
    }

    void aReminderDeletedWhileItsDemandIsOpenIsAddedAnewToo()
    {
        const int key = addDemand();
        const auto dialog = opened(key, EditorMode::Edit);
        confirmReminder();
        dialog->basePage()->reminder()->remindBox()->click();
        m_office->database().run(QStringLiteral("DELETE FROM Alarms"));
        bool isNew = false;
        TestOffice::whenModal("CDlgAddAlarm", [&isNew](QWidget *window) {
            isNew = window->windowTitle().endsWith(QStringLiteral("جدید"));
            static_cast<QDialog *>(window)->accept();
        });
        dialog->basePage()->reminder()->settingsButton()->click();
        QVERIFY(isNew);
        Demand demand;
        QCOMPARE(QString::number(load(demand, key).m_iAlarmID), value(QStringLiteral("SELECT iID FROM Alarms")));
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
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM Alarms a JOIN AutomobilDemands d ON d.iAlarmID=a.iID")),
                 QStringLiteral("1"));
        QCOMPARE(count("Alarms"), QStringLiteral("1"));
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
        m_office->database().run(QStringLiteral("RENAME TABLE CarBrands TO CarBrandsAway"));
        bool thrown = false;
        try {
            Dialog::NewDemand(nullptr);
        } catch (const CMySQLException &) {
            thrown = true;
        }
        m_office->database().run(QStringLiteral("RENAME TABLE CarBrandsAway TO CarBrands"));
        QVERIFY(thrown);
        QCOMPARE(count("AutomobilDemands"), QStringLiteral("0"));
    }

    void cancelledNewDemandLeavesNoRowFileOrReminder()
    {
        const int other = addDemand();
        m_office->database().run(QStringLiteral("INSERT INTO Alarms (iTable,iRecordID,sDesc) VALUES (70,%1,'a')").arg(other));
        TestOffice::whenModal("CDlgAddAutomobilDemand", [this](QWidget *window) {
            auto *dialog = static_cast<Dialog *>(window);
            m_office->database().run(
                QStringLiteral("INSERT INTO FileDocs (iTable,iRecordID,sName) VALUES (70,%1,'a')").arg(dialog->key()));
            confirmReminder();
            dialog->basePage()->reminder()->remindBox()->click();
            QCOMPARE(count("Alarms"), QStringLiteral("2"));
            dialog->reject();
        });
        QCOMPARE(Dialog::NewDemand(nullptr), 0);
        QCOMPARE(value(QStringLiteral("SELECT GROUP_CONCAT(iID) FROM AutomobilDemands")), QString::number(other));
        QCOMPARE(count("FileDocs"), QStringLiteral("0"));
        QCOMPARE(value(QStringLiteral("SELECT GROUP_CONCAT(iRecordID) FROM Alarms")), QString::number(other));
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
        QCOMPARE(value(QStringLiteral("SELECT GROUP_CONCAT(iArchiveUserID) FROM AutomobilDemands")), QStringLiteral("3"));
    }

    void filePagesAreBoundToTheDemand()
    {
        const int key = addDemand();
        const auto dialog = opened(key, EditorMode::Edit);
        QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("a.txt")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("a");
        file.close();
        const QList<CDlgFileDocs *> pages = dialog->findChildren<CDlgFileDocs *>();
        QCOMPARE(pages.size(), 2);
        for (CDlgFileDocs *page : pages)
            QVERIFY(page->addFile(file.fileName()));
        QCOMPARE(value(QStringLiteral("SELECT GROUP_CONCAT(iTable,',',iRecordID,',',iScope ORDER BY iScope SEPARATOR ' ') FROM FileDocs")),
                 QStringLiteral("70,%1,0 70,%1,1").arg(key));
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
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{QStringLiteral("این نامه از حالت بایگانی خارج شد.")});
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
        m_office->logInAs(QStringLiteral("clerk"), QStringLiteral("AutomobilDemands"), KSecurity::allRights);
        const auto dialog = opened(key, EditorMode::Show);
        dialog->unarchiveButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("شما اجازه تغییر دادن ندارید.")});
        QVERIFY(dialog->isVisible());
        Demand demand;
        QCOMPARE(load(demand, key).m_iArchiveUserID, 3);
    }
};

static const RegisteredTest<TestCDlgAddAutomobilDemand, KApplication> registered;
#include "TestCDlgAddAutomobilDemand.moc"
