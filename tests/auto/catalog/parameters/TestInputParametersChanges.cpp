// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/catalog/parameters/InputParametersTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

// Values that are added, renamed and deleted, by whom that may be done, and what another desk did.
class TestInputParametersChanges : public InputParametersTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    // --- Adding ---

    void anAddedValueHasTheChosenTypeAndIsSelected()
    {
        add(InputParameters::Color, u"آبی"_s);
        add(InputParameters::Color, u"سفید"_s);
        CDlgInputParameters page(InputParameters::Color);
        page.open();
        whenEditor(u"سبز"_s);
        QVERIFY(page.runCommand(u"new"));
        QCOMPARE(value(u"SELECT iType FROM Items WHERE sName='سبز'"_s), u"808"_s);
        QCOMPARE(page.list()->count(), 3);
        QCOMPARE(page.list()->cellText(page.list()->currentRow(), u"name"), u"سبز"_s);
        QCOMPARE(QString::number(page.list()->currentKey()), value(u"SELECT iID FROM Items WHERE sName='سبز'"_s));
    }

    void theEditorOpensEmptyForANewValue()
    {
        add(0, u"a"_s);
        CDlgInputParameters page;
        page.open();
        QString shown = u"?"_s;
        QString title;
        TestOffice::whenModal("CDlgAddInputParameter", [&](QWidget *editor) {
            shown = nameEdit(*editor)->text();
            title = editor->windowTitle();
            static_cast<QDialog *>(editor)->reject();
        });
        QVERIFY(page.runCommand(u"new"));
        QCOMPARE(shown, QString());
        QCOMPARE(title, u"تعداد سیلندر - جدید"_s);
        QCOMPARE(count(), u"1"_s);
    }

    // --- Editing ---

    void anEditedValueIsRenamedAndStaysSelected()
    {
        const int key = add(0, u"a"_s);
        add(0, u"m"_s);
        CDlgInputParameters page;
        page.open();
        page.list()->selectKey(key);
        whenEditor(u"z"_s);
        QVERIFY(page.runCommand(u"edit"));
        QCOMPARE(names(page), (QStringList{u"m"_s, u"z"_s}));
        QCOMPARE(page.list()->currentKey(), key);
        QCOMPARE(value(u"SELECT iType FROM Items WHERE iID=%1"_s.arg(key)), u"817"_s);
    }

    void theEditorOpensOnTheSelectedItemAsItIsNow()
    {
        const int key = add(0, u"a"_s);
        CDlgInputParameters page;
        page.open();
        page.list()->selectKey(key);
        m_office->database().run(u"UPDATE Items SET sName='now'"_s);
        QString shown;
        QString title;
        TestOffice::whenModal("CDlgAddInputParameter", [&](QWidget *editor) {
            shown = nameEdit(*editor)->text();
            title = editor->windowTitle();
            static_cast<QDialog *>(editor)->reject();
        });
        QVERIFY(page.runCommand(u"edit"));
        QCOMPARE(shown, u"now"_s);
        QCOMPARE(title, u"تعداد سیلندر - ویرایش"_s);
    }

    void aValueThatVanishedIsNotEdited()
    {
        const int key = add(0, u"a"_s);
        CDlgInputParameters page;
        page.open();
        page.list()->selectKey(key);
        m_office->database().run(u"DELETE FROM Items"_s);
        page.runCommand(u"edit");
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void twoDesks_data() { TwoDesks::addCases(true); }

    void twoDesks()
    {
        QFETCH(TwoDesks::Case, what);
        int key = 0;
        const auto run = [this](const QString &statement) { m_office->database().run(statement); };
        TwoDesks({
                     .reset =
                         [&] {
                             run(u"DELETE FROM Items"_s);
                             key = add(0, u"a"_s);
                         },
                     .open = [&] { return std::make_unique<CDlgAddInputParameter>(key, CTblItems::typeCylinderCount, u"a"_s, QString()); },
                     .enter = [](KDialog &window) { nameEdit(window)->setText(u"mine"_s); },
                     .changeOther = [&] { run(u"UPDATE Items SET sTitle='title'"_s); },
                     .changeSame = [&] { run(u"UPDATE Items SET sName='theirs'"_s); },
                     .remove = [&] { run(u"DELETE FROM Items"_s); },
                     .stored = [&] { return value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',iType,sName,sTitle)) FROM Items"_s); },
                     .merged = u"817/mine/title"_s,
                     .theirs = u"817/theirs"_s,
                     .mine = u"817/mine"_s,
                     .renewed = u"817/mine"_s,
                 })
            .check(what);
    }

    void ofTwoDesksWithOneNewNameOneIsTold()
    {
        CDlgAddInputParameter first(0, CTblItems::typeColor, QString(), u"رنگ"_s);
        CDlgAddInputParameter second(0, CTblItems::typeColor, QString(), u"رنگ"_s);
        for (CDlgAddInputParameter *editor : {&first, &second}) {
            editor->show();
            nameEdit(*editor)->setText(u"نقره‌ای"_s);
            editor->accept();
        }
        QVERIFY(!first.isVisible());
        QVERIFY(second.isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این نام قبلا ثبت شده است."_s});
        QCOMPARE(count(), u"1"_s);
    }

    // --- The name ---

    void anEmptyNameIsRefused_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("empty") << QString();
        QTest::newRow("blanks") << u"   "_s;
    }

    void anEmptyNameIsRefused()
    {
        QFETCH(QString, name);
        CDlgAddInputParameter editor(0, CTblItems::typeColor, QString(), u"رنگ"_s);
        editor.show();
        editor.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&editor));
        nameEdit(editor)->setText(name);
        editor.accept();
        QVERIFY(editor.isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا نام را وارد نماید."_s});
        QCOMPARE(editor.focusWidget(), nameEdit(editor));
        QCOMPARE(count(), u"0"_s);
    }

    void aNameThatTheTableDoesNotHoldIsRefused()
    {
        const int key = add(InputParameters::Color, u"سفید"_s);
        for (const int edited : {0, key}) {
            CDlgAddInputParameter editor(edited, CTblItems::typeColor, QString(), u"رنگ"_s);
            editor.show();
            editor.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&editor));
            nameEdit(editor)->setText(u"سفید 🚗"_s);
            editor.accept();
            QVERIFY(editor.isVisible());
            QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"متن «نام» نویسه‌ای دارد که قابل ذخیره نیست."_s});
            QCOMPARE(editor.focusWidget(), nameEdit(editor));
            QCOMPARE(nameEdit(editor)->text(), u"سفید 🚗"_s);
        }
        QCOMPARE(count(), u"1"_s);
        QCOMPARE(nameOf(key), u"سفید"_s);
    }

    void aNameEqualToAnotherItemsNameIsRefused_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("refused");
        const int color = CTblItems::typeColor;
        QTest::newRow("the same name") << u"سفید"_s << color << u"سفید"_s << true;
        QTest::newRow("the same name of another type")
            << u"سفید"_s << int(CTblItems::typeClause) << u"سفید"_s << true;
        QTest::newRow("of a type that is no input parameter") << u"سفید"_s << 1 << u"سفید"_s << true;
        QTest::newRow("with a quote") << u"o'k"_s << color << u"o'k"_s << true;
        QTest::newRow("with a backslash") << u"a\\b"_s << color << u"a\\b"_s << true;
        QTest::newRow("a part of it") << u"سفید صدفی"_s << color << u"سفید"_s << false;
        QTest::newRow("a percent sign is a percent sign") << u"سفید"_s << color << u"%"_s << false;
        QTest::newRow("in another way of writing") << u"سفيد"_s << color << u"سفید"_s << true;
        QTest::newRow("another letter") << u"سپید"_s << color << u"سفید"_s << false;
        QTest::newRow("no condition of its own") << u"a"_s << color << u"x' OR '1'='1"_s << false;
    }

    void aNameEqualToAnotherItemsNameIsRefused()
    {
        QFETCH(QString, stored);
        QFETCH(int, type);
        QFETCH(QString, typed);
        QFETCH(bool, refused);
        addItem(type, stored);
        CDlgAddInputParameter editor(0, CTblItems::typeColor, QString(), u"رنگ"_s);
        editor.show();
        nameEdit(editor)->setText(typed);
        editor.accept();
        QCOMPARE(editor.isVisible(), refused);
        QCOMPARE(g_pDlgWarning->takeShown(), refused ? QStringList{duplicate} : QStringList());
        QCOMPARE(nameEdit(editor)->text(), typed);
        QCOMPARE(count(), refused ? u"1"_s : u"2"_s);
        if (!refused)
            QCOMPARE(nameOf(editor.itemID()), typed);
    }

    void itsOwnNameIsNotCountedWhenEditing()
    {
        const int key = add(InputParameters::Color, u"سفید"_s);
        add(InputParameters::Color, u"سیاه"_s);
        CDlgAddInputParameter editor(key, CTblItems::typeColor, u"سفید"_s, u"رنگ"_s);
        editor.show();
        editor.accept();
        QVERIFY(!editor.isVisible());
        CDlgAddInputParameter other(key, CTblItems::typeColor, u"سفید"_s, u"رنگ"_s);
        other.show();
        nameEdit(other)->setText(u"سیاه"_s);
        other.accept();
        QVERIFY(other.isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{duplicate});
        QCOMPARE(nameOf(key), u"سفید"_s);
    }

    void theCheckAsksOverAllItems()
    {
        const int key = add(0, u"a"_s);
        {
            const ObservedStatements observed({u"SELECT"_s});
            InputParameterValues::isNameTaken(u"b"_s, 0);
            QVERIFY2(observed.taken().constFirst().contains(u"WHERE sName='b'"_s),
                     qPrintable(observed.taken().constFirst()));
        }
        const ObservedStatements observed({u"SELECT"_s});
        InputParameterValues::isNameTaken(u"b"_s, key);
        QVERIFY2(observed.taken().constFirst().contains(u"WHERE iID<>%1 AND sName='b'"_s.arg(key)),
                 qPrintable(observed.taken().constFirst()));
    }

    void nameIsLimitedRequiredAndLabelled()
    {
        CDlgAddInputParameter editor(0, CTblItems::typeColor, QString(), u"رنگ"_s);
        QCOMPARE(nameEdit(editor)->maxLength(), 50);
        QCOMPARE(nameEdit(editor)->accessibleName(), u"نام :"_s);
        QStringList labels;
        for (const QLabel *label : editor.findChildren<QLabel *>())
            labels << label->text();
        QVERIFY(labels.contains(u"نام :"_s));
        QVERIFY(labels.contains(u"*"_s));
        QVERIFY(pushButton(editor, u"تاييد"_s));
        QVERIFY(pushButton(editor, u"انصراف"_s));
    }

    // The pickers of several values take longer ones.
    void aLongerStoredNameIsNotCutByOpeningIt()
    {
        const QString longer(200, u'س');
        const int key = add(InputParameters::Color, longer);
        CDlgAddInputParameter editor(key, CTblItems::typeColor, longer, u"رنگ"_s);
        editor.show();
        QCOMPARE(nameEdit(editor)->text(), longer);
        editor.accept();
        QCOMPARE(nameOf(key), longer);
        // It may be made shorter, not longer.
        QCOMPARE(nameEdit(editor)->maxLength(), 200);
    }

    void aDatabaseClosedMeanwhileRefusesAndKeepsWhatWasTyped()
    {
        CDlgAddInputParameter editor(0, CTblItems::typeColor, QString(), u"رنگ"_s);
        editor.show();
        nameEdit(editor)->setText(u"سفید"_s);
        GetDBSetting()->SetClosedDB(true);
        QTest::mouseClick(pushButton(editor, u"تاييد"_s), Qt::LeftButton);
        QVERIFY(editor.isVisible());
        QCOMPARE(nameEdit(editor)->text(), u"سفید"_s);
        QCOMPARE(count(), u"0"_s);
    }

    // --- Deleting ---

    void anyAnswerButNoDeletes_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("deleted");
        QTest::newRow("yes") << int(KMessageDialog::Yes) << true;
        QTest::newRow("cancel") << int(KMessageDialog::Cancel) << true;
        QTest::newRow("no") << int(KMessageDialog::No) << false;
    }

    void anyAnswerButNoDeletes()
    {
        QFETCH(int, answer);
        QFETCH(bool, deleted);
        const int key = add(0, u"a"_s);
        add(0, u"b"_s);
        CDlgInputParameters page;
        page.open();
        page.list()->selectKey(key);
        g_pDlgYesNo->answerNext(static_cast<KMessageDialog::Answer>(answer));
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{SuiteMessages::deleteQuestion()});
        QCOMPARE(count(), deleted ? u"1"_s : u"2"_s);
        QCOMPARE(page.list()->count(), deleted ? 1 : 2);
        QCOMPARE(page.list()->cellText(0, u"row"), u"1"_s);
    }

    // A record keeps the number of a value, and shows a dash for it from then on.
    void aValueInUseIsDeletedAfterTheQuestion()
    {
        const int key = add(InputParameters::Color, u"سفید"_s);
        m_office->database().run(u"INSERT INTO AutomobilInformations(iCode,iColor) VALUES(1,%1)"_s.arg(key));
        CDlgInputParameters page(InputParameters::Color);
        page.open();
        QVERIFY(page.runCommand(u"delete"));
        m_office->database().run(u"DELETE FROM AutomobilInformations"_s);
        QCOMPARE(count(), u"0"_s);
    }

    void deletingIsNotOfferedWhileChoosing()
    {
        const int key = add(0, u"a"_s);
        CDlgInputParameters page;
        page.setSelectMode(true, key);
        page.show();
        QVERIFY(!page.button(u"delete")->isVisible());
        QVERIFY(!page.runCommand(u"delete"));
        page.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        QTest::keyClick(page.list(), Qt::Key_Delete);
        QCOMPARE(count(), u"1"_s);
        QVERIFY(page.button(u"new")->isVisible());
        QVERIFY(page.button(u"edit")->isVisible());
    }

    // --- Rights and the closed database ---

    void eachCommandNeedsItsRight_data()
    {
        QTest::addColumn<int>("rights");
        QTest::newRow("access alone") << int(KSecurity::Access);
        QTest::newRow("write") << int(KSecurity::Access | KSecurity::Write);
        QTest::newRow("modify") << int(KSecurity::Access | KSecurity::Modify);
        QTest::newRow("delete") << int(KSecurity::Access | KSecurity::Delete);
        QTest::newRow("all") << int(KSecurity::allRights);
    }

    void eachCommandNeedsItsRight()
    {
        QFETCH(int, rights);
        const int key = add(0, u"a"_s);
        m_office->logInAs(u"clerk"_s, rightsForm, rights);
        CDlgInputParameters page;
        page.open();
        auto run = [&](const QString &command, KSecurity::Right right, const QString &typed) {
            const bool allowed = rights & right;
            page.list()->selectKey(key);
            if (allowed && !typed.isEmpty())
                whenEditor(typed);
            page.runCommand(command);
            QCOMPARE(g_pDlgWarning->takeShown(), allowed ? QStringList() : QStringList{KSecurity::refusalText(rightsForm, right)});
        };
        run(u"new"_s, KSecurity::Write, u"b"_s);
        QCOMPARE(count(), rights & KSecurity::Write ? u"2"_s : u"1"_s);
        run(u"edit"_s, KSecurity::Modify, u"c"_s);
        QCOMPARE(nameOf(key), rights & KSecurity::Modify ? u"c"_s : u"a"_s);
        run(u"delete"_s, KSecurity::Delete, QString());
        QCOMPARE(nameOf(key).isEmpty(), bool(rights & KSecurity::Delete));
    }

    void withTheDatabaseClosedNothingIsChanged()
    {
        const int key = add(0, u"a"_s);
        GetDBSetting()->SetClosedDB(true);
        CDlgInputParameters page;
        page.show();
        page.list()->selectKey(key);
        for (const QString &command : {u"new"_s, u"edit"_s, u"delete"_s}) {
            QVERIFY(!page.button(command)->isVisible());
            QVERIFY(!page.runCommand(command));
        }
        QCOMPARE(nameOf(key), u"a"_s);
    }

    void aDatabaseClosedBehindTheOpenListChangesNothing()
    {
        const int key = add(0, u"a"_s);
        CDlgInputParameters page;
        page.open();
        page.list()->selectKey(key);
        GetDBSetting()->SetClosedDB(true);
        for (const QString &command : {u"new"_s, u"edit"_s, u"delete"_s})
            page.runCommand(command);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(nameOf(key), u"a"_s);
        QCOMPARE(count(), u"1"_s);
    }
};

static const RegisteredTest<TestInputParametersChanges, KApplication> registeredInputParametersChanges;

#include "TestInputParametersChanges.moc"
