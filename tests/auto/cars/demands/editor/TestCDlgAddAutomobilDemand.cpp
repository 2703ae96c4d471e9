// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/cars/demands/editor/DemandEditorTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

class TestCDlgAddAutomobilDemand : public DemandEditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

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
};

static const RegisteredTest<TestCDlgAddAutomobilDemand, KApplication> registeredCDlgAddAutomobilDemand;

#include "TestCDlgAddAutomobilDemand.moc"
