// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/parameters/CDlgAddInputParameter.h"
#include "auto/catalog/parameters/CDlgInputParameters.h"
#include "auto/catalog/parameters/InputParameterValues.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "tests/support/ObservedStatements.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace {

namespace Parameters = InputParameters;

const QString rightsForm = QStringLiteral("InputParameters");
const QString newCaption = QStringLiteral("جديد");
const QString editCaption = QStringLiteral("ويرايش");
const QString deleteCaption = QStringLiteral("حذف");
const QString duplicate = QStringLiteral("این نام قبلا ثبت شده است.");

QStringList names(const CDlgInputParameters &page)
{
    QStringList texts;
    for (int row = 0; row < page.list()->count(); ++row)
        texts << page.list()->cellText(row, 1);
    return texts;
}

QPushButton *pushButton(const QWidget &window, const QString &caption)
{
    for (QPushButton *button : window.findChildren<QPushButton *>()) {
        if (button->text() == caption)
            return button;
    }
    return nullptr;
}

KEdit *nameEdit(const QWidget &editor)
{
    return editor.findChild<KEdit *>();
}

// Types the name into the editor that comes up, and confirms it; one that refuses is cancelled.
void whenEditor(const QString &name)
{
    TestOffice::whenModal("CDlgAddInputParameter", [name](QWidget *window) {
        auto *editor = static_cast<CDlgAddInputParameter *>(window);
        nameEdit(*editor)->setText(name);
        editor->accept();
        if (editor->isVisible())
            editor->reject();
    });
}

}

class TestCDlgInputParameters : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    QString nameOf(int key) { return value(QStringLiteral("SELECT sName FROM Items WHERE iID=%1").arg(key)); }
    QString count() { return value(QStringLiteral("SELECT COUNT(*) FROM Items")); }

    static int add(int option, const QString &name) { return InputParameterValues::add(Parameters::itemType(option), name); }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_office->database().run(QStringLiteral("DELETE FROM Items"));
    }

    // --- What the window shows ---

    void everyLabelAndTitleIsToTheLetter()
    {
        CDlgInputParameters page;
        page.open();
        QCOMPARE(page.title(), QStringLiteral("پارامترهاي ورودي"));
        QCOMPARE(page.findChildren<QRadioButton *>().size(), 13);
        for (int option = 0; option < 13; ++option)
            QCOMPARE(page.optionButton(option)->text(), Parameters::caption(option));
        QStringList captions;
        for (const QPushButton *button : page.findChildren<QPushButton *>())
            captions << button->text();
        QCOMPARE(captions, (QStringList{newCaption, editCaption, deleteCaption}));
        const auto &columns = page.list()->listModel()->columns();
        QCOMPARE(columns.size(), 2);
        QCOMPARE(columns.at(0).title, QStringLiteral("ردیف"));
        QCOMPARE(columns.at(0).alignment, Qt::Alignment(Qt::AlignCenter));
        QCOMPARE(columns.at(0).width, 40);
        QCOMPARE(columns.at(1).title, QStringLiteral("نام"));
        QCOMPARE(columns.at(1).alignment, Qt::Alignment(Qt::AlignRight));
        QCOMPARE(columns.at(1).width, 170);
        QCOMPARE(page.countText(), QStringLiteral("تعداد : 0"));
    }

    void exactlyOneOptionIsChosenAtATime()
    {
        CDlgInputParameters page(Parameters::Color);
        page.open();
        for (const int option : {0, 12, 7, 3}) {
            page.optionButton(option)->click();
            QCOMPARE(page.option(), option);
            int checked = 0;
            for (const QRadioButton *button : page.findChildren<QRadioButton *>())
                checked += button->isChecked() ? 1 : 0;
            QCOMPARE(checked, 1);
        }
    }

    void thereIsNoOrderToChooseAndNoneIsStored()
    {
        add(0, QStringLiteral("b"));
        CDlgInputParameters page;
        page.open();
        for (const int column : {0, 1}) {
            const ObservedStatements observed({QStringLiteral("SELECT")});
            Q_EMIT page.list()->columnClicked(column);
            QVERIFY(observed.taken().isEmpty());
            QVERIFY(!page.list()->model()->headerData(column, Qt::Horizontal).toString().endsWith(u'*'));
        }
        page.OnClosing();
        QCOMPARE(ReadSetting(rightsForm, QStringLiteral("Sort"), QStringLiteral("none")), QStringLiteral("none"));
        QCOMPARE(ReadSetting(rightsForm, QStringLiteral("iLastCol"), -1), -1);
        QCOMPARE(ReadSetting(rightsForm, QStringLiteral("iMaxRows"), -1), -1);
    }

    void layoutIsKeptUnderTheListsName()
    {
        {
            CDlgInputParameters page;
            page.open();
            page.list()->header()->resizeSection(0, 111);
        }
        QVERIFY(!ReadSetting(QStringLiteral("InputParameters\\List"), QStringLiteral("sWidths"), QString()).isEmpty());
        CDlgInputParameters page;
        page.open();
        QCOMPARE(page.list()->header()->sectionSize(0), 111);
    }

    // --- Filling ---

    void switchingTheTypeOptionRefillsTheListWithOnlyThatTypesValues_data()
    {
        QTest::addColumn<int>("option");
        for (int option = 0; option < Parameters::optionCount; ++option)
            QTest::newRow(qPrintable(Parameters::caption(option))) << option;
    }

    void switchingTheTypeOptionRefillsTheListWithOnlyThatTypesValues()
    {
        QFETCH(int, option);
        for (int each = 0; each < Parameters::optionCount; ++each) {
            add(each, QStringLiteral("value %1 a").arg(each));
            add(each, QStringLiteral("value %1 b").arg(each));
        }
        CDlgInputParameters page((option + 1) % Parameters::optionCount);
        page.open();
        const ObservedStatements observed({QStringLiteral("SELECT")});
        page.optionButton(option)->click();
        QCOMPARE(observed.taken().size(), 1);
        QVERIFY(observed.taken().constFirst().contains(
            QStringLiteral(" iType=%1 ").arg(Parameters::itemType(option))));
        QCOMPARE(names(page), (QStringList{QStringLiteral("value %1 a").arg(option), QStringLiteral("value %1 b").arg(option)}));
        QCOMPARE(page.list()->cellText(0, 0), QStringLiteral("1"));
        QCOMPARE(page.list()->cellText(1, 0), QStringLiteral("2"));
        QCOMPARE(page.countText(), QStringLiteral("تعداد : 2"));
        QCOMPARE(value(QStringLiteral("SELECT sName FROM Items WHERE iID=%1").arg(page.list()->listModel()->keyAt(0))),
                 QStringLiteral("value %1 a").arg(option));
    }

    void anOptionOutsideListsNothingAndAddsNothing_data()
    {
        QTest::addColumn<int>("option");
        QTest::newRow("-1") << -1;
        QTest::newRow("13") << 13;
    }

    void anOptionOutsideListsNothingAndAddsNothing()
    {
        QFETCH(int, option);
        add(0, QStringLiteral("a"));
        CDlgInputParameters page(option);
        page.open();
        QCOMPARE(page.option(), -1);
        QCOMPARE(page.list()->count(), 0);
        page.runCommand(newCaption);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(count(), QStringLiteral("1"));
        page.optionButton(0)->click();
        QCOMPARE(names(page), QStringList{QStringLiteral("a")});
    }

    void theSelectionIsRestored()
    {
        add(0, QStringLiteral("a"));
        add(0, QStringLiteral("b"));
        CDlgInputParameters page;
        page.open();
        page.list()->selectRow(1);
        page.refill();
        QCOMPARE(page.list()->currentRow(), 1);
    }

    // --- Adding ---

    void anAddedValueHasTheChosenTypeAndIsSelected()
    {
        add(Parameters::Color, QStringLiteral("آبی"));
        add(Parameters::Color, QStringLiteral("سفید"));
        CDlgInputParameters page(Parameters::Color);
        page.open();
        whenEditor(QStringLiteral("سبز"));
        QVERIFY(page.runCommand(newCaption));
        QCOMPARE(value(QStringLiteral("SELECT iType FROM Items WHERE sName='سبز'")), QStringLiteral("808"));
        QCOMPARE(page.list()->count(), 3);
        QCOMPARE(page.list()->cellText(page.list()->currentRow(), 1), QStringLiteral("سبز"));
        QCOMPARE(QString::number(page.list()->currentKey()), value(QStringLiteral("SELECT iID FROM Items WHERE sName='سبز'")));
    }

    void theEditorOpensEmptyForANewValue()
    {
        add(0, QStringLiteral("a"));
        CDlgInputParameters page;
        page.open();
        QString shown = QStringLiteral("?");
        QString title;
        TestOffice::whenModal("CDlgAddInputParameter", [&](QWidget *editor) {
            shown = nameEdit(*editor)->text();
            title = editor->windowTitle();
            static_cast<QDialog *>(editor)->reject();
        });
        QVERIFY(page.runCommand(newCaption));
        QCOMPARE(shown, QString());
        QCOMPARE(title, QStringLiteral("تعداد سیلندر - جدید"));
        QCOMPARE(count(), QStringLiteral("1"));
    }

    // --- Editing ---

    void anEditedValueIsRenamedAndStaysSelected()
    {
        const int key = add(0, QStringLiteral("a"));
        add(0, QStringLiteral("m"));
        CDlgInputParameters page;
        page.open();
        page.list()->selectKey(key);
        whenEditor(QStringLiteral("z"));
        QVERIFY(page.runCommand(editCaption));
        QCOMPARE(names(page), (QStringList{QStringLiteral("m"), QStringLiteral("z")}));
        QCOMPARE(page.list()->currentKey(), key);
        QCOMPARE(value(QStringLiteral("SELECT iType FROM Items WHERE iID=%1").arg(key)), QStringLiteral("817"));
    }

    void theEditorOpensOnTheSelectedItemAsItIsNow()
    {
        const int key = add(0, QStringLiteral("a"));
        CDlgInputParameters page;
        page.open();
        page.list()->selectKey(key);
        m_office->database().run(QStringLiteral("UPDATE Items SET sName='now'"));
        QString shown;
        QString title;
        TestOffice::whenModal("CDlgAddInputParameter", [&](QWidget *editor) {
            shown = nameEdit(*editor)->text();
            title = editor->windowTitle();
            static_cast<QDialog *>(editor)->reject();
        });
        QVERIFY(page.runCommand(editCaption));
        QCOMPARE(shown, QStringLiteral("now"));
        QCOMPARE(title, QStringLiteral("تعداد سیلندر - ویرایش"));
    }

    void aValueThatVanishedIsNotEdited()
    {
        const int key = add(0, QStringLiteral("a"));
        CDlgInputParameters page;
        page.open();
        page.list()->selectKey(key);
        m_office->database().run(QStringLiteral("DELETE FROM Items"));
        page.runCommand(editCaption);
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void aValueThatVanishesWhileItIsEditedIsNotWrittenAgain()
    {
        const int key = add(0, QStringLiteral("a"));
        CDlgAddInputParameter editor(key, CTblItems::typeCylinderCount, QStringLiteral("a"), QString());
        m_office->database().run(QStringLiteral("DELETE FROM Items"));
        nameEdit(editor)->setText(QStringLiteral("b"));
        editor.accept();
        QCOMPARE(count(), QStringLiteral("0"));
    }

    // --- The name ---

    void anEmptyNameIsRefused_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("empty") << QString();
        QTest::newRow("blanks") << QStringLiteral("   ");
    }

    void anEmptyNameIsRefused()
    {
        QFETCH(QString, name);
        CDlgAddInputParameter editor(0, CTblItems::typeColor, QString(), QStringLiteral("رنگ"));
        editor.show();
        editor.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&editor));
        nameEdit(editor)->setText(name);
        editor.accept();
        QVERIFY(editor.isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("لطفا نام را وارد نماید.")});
        QCOMPARE(editor.focusWidget(), nameEdit(editor));
        QCOMPARE(count(), QStringLiteral("0"));
    }

    void aNameEqualToAnotherItemsNameIsRefused_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("refused");
        const int color = CTblItems::typeColor;
        QTest::newRow("the same name") << QStringLiteral("سفید") << color << QStringLiteral("سفید") << true;
        QTest::newRow("the same name of another type")
            << QStringLiteral("سفید") << int(CTblItems::typeClause) << QStringLiteral("سفید") << true;
        QTest::newRow("of a type that is no input parameter") << QStringLiteral("سفید") << 1 << QStringLiteral("سفید") << true;
        QTest::newRow("with a quote") << QStringLiteral("o'k") << color << QStringLiteral("o'k") << true;
        QTest::newRow("with a backslash") << QStringLiteral("a\\b") << color << QStringLiteral("a\\b") << true;
        QTest::newRow("a part of it") << QStringLiteral("سفید صدفی") << color << QStringLiteral("سفید") << false;
        QTest::newRow("a percent sign is a percent sign") << QStringLiteral("سفید") << color << QStringLiteral("%") << false;
        QTest::newRow("another letter") << QStringLiteral("سفيد") << color << QStringLiteral("سفید") << false;
        QTest::newRow("no condition of its own") << QStringLiteral("a") << color << QStringLiteral("x' OR '1'='1") << false;
    }

    void aNameEqualToAnotherItemsNameIsRefused()
    {
        QFETCH(QString, stored);
        QFETCH(int, type);
        QFETCH(QString, typed);
        QFETCH(bool, refused);
        InputParameterValues::add(type, stored);
        CDlgAddInputParameter editor(0, CTblItems::typeColor, QString(), QStringLiteral("رنگ"));
        editor.show();
        nameEdit(editor)->setText(typed);
        editor.accept();
        QCOMPARE(editor.isVisible(), refused);
        QCOMPARE(g_pDlgWarning->takeShown(), refused ? QStringList{duplicate} : QStringList());
        QCOMPARE(nameEdit(editor)->text(), typed);
        QCOMPARE(count(), refused ? QStringLiteral("1") : QStringLiteral("2"));
        if (!refused)
            QCOMPARE(nameOf(editor.itemID()), typed);
    }

    void itsOwnNameIsNotCountedWhenEditing()
    {
        const int key = add(Parameters::Color, QStringLiteral("سفید"));
        add(Parameters::Color, QStringLiteral("سیاه"));
        CDlgAddInputParameter editor(key, CTblItems::typeColor, QStringLiteral("سفید"), QStringLiteral("رنگ"));
        editor.show();
        editor.accept();
        QVERIFY(!editor.isVisible());
        CDlgAddInputParameter other(key, CTblItems::typeColor, QStringLiteral("سفید"), QStringLiteral("رنگ"));
        other.show();
        nameEdit(other)->setText(QStringLiteral("سیاه"));
        other.accept();
        QVERIFY(other.isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{duplicate});
        QCOMPARE(nameOf(key), QStringLiteral("سفید"));
    }

    void theCheckAsksOverAllItems()
    {
        const int key = add(0, QStringLiteral("a"));
        {
            const ObservedStatements observed({QStringLiteral("SELECT")});
            InputParameterValues::isNameTaken(QStringLiteral("b"), 0);
            QVERIFY2(observed.taken().constFirst().contains(QStringLiteral("WHERE sName='b'")),
                     qPrintable(observed.taken().constFirst()));
        }
        const ObservedStatements observed({QStringLiteral("SELECT")});
        InputParameterValues::isNameTaken(QStringLiteral("b"), key);
        QVERIFY2(observed.taken().constFirst().contains(QStringLiteral("WHERE iID<>%1 AND sName='b'").arg(key)),
                 qPrintable(observed.taken().constFirst()));
    }

    void nameIsLimitedRequiredAndLabelled()
    {
        CDlgAddInputParameter editor(0, CTblItems::typeColor, QString(), QStringLiteral("رنگ"));
        QCOMPARE(nameEdit(editor)->maxLength(), 50);
        QCOMPARE(nameEdit(editor)->accessibleName(), QStringLiteral("نام :"));
        QStringList labels;
        for (const QLabel *label : editor.findChildren<QLabel *>())
            labels << label->text();
        QVERIFY(labels.contains(QStringLiteral("نام :")));
        QVERIFY(labels.contains(QStringLiteral("*")));
        QVERIFY(pushButton(editor, QStringLiteral("تاييد")));
        QVERIFY(pushButton(editor, QStringLiteral("انصراف")));
    }

    // The pickers of several values take longer ones.
    void aLongerStoredNameIsNotCutByOpeningIt()
    {
        const QString longer(200, u'س');
        const int key = add(Parameters::Color, longer);
        CDlgAddInputParameter editor(key, CTblItems::typeColor, longer, QStringLiteral("رنگ"));
        editor.show();
        QCOMPARE(nameEdit(editor)->text(), longer);
        editor.accept();
        QCOMPARE(nameOf(key), longer);
        // It may be made shorter, not longer.
        QCOMPARE(nameEdit(editor)->maxLength(), 200);
    }

    void aDatabaseClosedMeanwhileRefusesAndKeepsWhatWasTyped()
    {
        CDlgAddInputParameter editor(0, CTblItems::typeColor, QString(), QStringLiteral("رنگ"));
        editor.show();
        nameEdit(editor)->setText(QStringLiteral("سفید"));
        GetDBSetting()->SetClosedDB(true);
        QTest::mouseClick(pushButton(editor, QStringLiteral("تاييد")), Qt::LeftButton);
        QVERIFY(editor.isVisible());
        QCOMPARE(nameEdit(editor)->text(), QStringLiteral("سفید"));
        QCOMPARE(count(), QStringLiteral("0"));
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
        const int key = add(0, QStringLiteral("a"));
        add(0, QStringLiteral("b"));
        CDlgInputParameters page;
        page.open();
        page.list()->selectKey(key);
        g_pDlgYesNo->answerNext(static_cast<KMessageDialog::Answer>(answer));
        QVERIFY(page.runCommand(deleteCaption));
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{SuiteMessages::deleteQuestion()});
        QCOMPARE(count(), deleted ? QStringLiteral("1") : QStringLiteral("2"));
        QCOMPARE(page.list()->count(), deleted ? 1 : 2);
        QCOMPARE(page.list()->cellText(0, 0), QStringLiteral("1"));
    }

    // A record keeps the number of a value, and shows a dash for it from then on.
    void aValueInUseIsDeletedAfterTheQuestion()
    {
        const int key = add(Parameters::Color, QStringLiteral("سفید"));
        m_office->database().run(QStringLiteral("INSERT INTO AutomobilInformations(iCode,iColor) VALUES(1,%1)").arg(key));
        CDlgInputParameters page(Parameters::Color);
        page.open();
        QVERIFY(page.runCommand(deleteCaption));
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilInformations"));
        QCOMPARE(count(), QStringLiteral("0"));
    }

    void deletingIsNotOfferedWhileChoosing()
    {
        const int key = add(0, QStringLiteral("a"));
        CDlgInputParameters page;
        page.setSelectMode(true, key);
        page.show();
        QVERIFY(!page.button(deleteCaption)->isVisible());
        QVERIFY(!page.runCommand(deleteCaption));
        page.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        QTest::keyClick(page.list(), Qt::Key_Delete);
        QCOMPARE(count(), QStringLiteral("1"));
        QVERIFY(page.button(newCaption)->isVisible());
        QVERIFY(page.button(editCaption)->isVisible());
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
        const int key = add(0, QStringLiteral("a"));
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, rights);
        CDlgInputParameters page;
        page.open();
        auto run = [&](const QString &caption, KSecurity::Right right, const QString &typed) {
            const bool allowed = rights & right;
            page.list()->selectKey(key);
            if (allowed && !typed.isEmpty())
                whenEditor(typed);
            page.runCommand(caption);
            QCOMPARE(g_pDlgWarning->takeShown(), allowed ? QStringList() : QStringList{KSecurity::refusalText(rightsForm, right)});
        };
        run(newCaption, KSecurity::Write, QStringLiteral("b"));
        QCOMPARE(count(), rights & KSecurity::Write ? QStringLiteral("2") : QStringLiteral("1"));
        run(editCaption, KSecurity::Modify, QStringLiteral("c"));
        QCOMPARE(nameOf(key), rights & KSecurity::Modify ? QStringLiteral("c") : QStringLiteral("a"));
        run(deleteCaption, KSecurity::Delete, QString());
        QCOMPARE(nameOf(key).isEmpty(), bool(rights & KSecurity::Delete));
    }

    void withTheDatabaseClosedNothingIsChanged()
    {
        const int key = add(0, QStringLiteral("a"));
        GetDBSetting()->SetClosedDB(true);
        CDlgInputParameters page;
        page.show();
        page.list()->selectKey(key);
        for (const QString &caption : {newCaption, editCaption, deleteCaption}) {
            QVERIFY(!page.button(caption)->isVisible());
            QVERIFY(!page.runCommand(caption));
        }
        QCOMPARE(nameOf(key), QStringLiteral("a"));
    }

    void aDatabaseClosedBehindTheOpenListChangesNothing()
    {
        const int key = add(0, QStringLiteral("a"));
        CDlgInputParameters page;
        page.open();
        page.list()->selectKey(key);
        GetDBSetting()->SetClosedDB(true);
        for (const QString &caption : {newCaption, editCaption, deleteCaption})
            page.runCommand(caption);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(nameOf(key), QStringLiteral("a"));
        QCOMPARE(count(), QStringLiteral("1"));
    }

    // --- Choosing ---

    void choosingGivesTheSelectedValue()
    {
        add(Parameters::Color, QStringLiteral("آبی"));
        const int key = add(Parameters::Color, QStringLiteral("سفید"));
        int preselected = 0;
        int option = -1;
        bool otherIsOffered = true;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = static_cast<CDlgInputParameters *>(static_cast<KDialogHolder *>(window)->page());
            preselected = page->list()->currentKey();
            option = page->option();
            otherIsOffered = page->optionButton(Parameters::Capacity)->isEnabled();
            pushButton(*window, QStringLiteral("انتخاب"))->click();
        });
        QCOMPARE(CDlgInputParameters::Select(nullptr, Parameters::Color, key), key);
        QCOMPARE(preselected, key);
        QCOMPARE(option, int(Parameters::Color));
        // Who asks for a colour is not to get a capacity.
        QVERIFY(!otherIsOffered);
    }

    void aDoubleClickChoosesInSelectMode()
    {
        const int key = add(Parameters::Color, QStringLiteral("سفید"));
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = static_cast<CDlgInputParameters *>(static_cast<KDialogHolder *>(window)->page());
            Q_EMIT page->list()->rowActivated(key);
        });
        QCOMPARE(CDlgInputParameters::Select(nullptr, Parameters::Color), key);
    }

    void aValueCanBeAddedWhileChoosing()
    {
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = static_cast<CDlgInputParameters *>(static_cast<KDialogHolder *>(window)->page());
            whenEditor(QStringLiteral("سبز"));
            QVERIFY(page->runCommand(newCaption));
            pushButton(*window, QStringLiteral("انتخاب"))->click();
        });
        const int chosen = CDlgInputParameters::Select(nullptr, Parameters::Color);
        QCOMPARE(nameOf(chosen), QStringLiteral("سبز"));
    }

    void cancellingChoosesNothing()
    {
        const int key = add(Parameters::Color, QStringLiteral("سفید"));
        TestOffice::whenModal("KDialogHolder", [](QWidget *window) { pushButton(*window, QStringLiteral("انصراف"))->click(); });
        QCOMPARE(CDlgInputParameters::Select(nullptr, Parameters::Color, key), 0);
    }

    void openedToBeKeptTheConfirmButtonReadsBack()
    {
        bool closed = false;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = static_cast<CDlgInputParameters *>(static_cast<KDialogHolder *>(window)->page());
            QCOMPARE(window->windowTitle(), QStringLiteral("پارامترهاي ورودي"));
            QCOMPARE(page->option(), int(Parameters::Source));
            QVERIFY(page->optionButton(Parameters::Capacity)->isEnabled());
            QVERIFY(!pushButton(*window, QStringLiteral("انتخاب")));
            QVERIFY(pushButton(*window, QStringLiteral("انصراف")));
            pushButton(*window, QStringLiteral("بازگشت"))->click();
            closed = !window->isVisible();
        });
        CDlgInputParameters::Open(nullptr, Parameters::Source);
        QVERIFY(closed);
    }

    void theWindowNeedsTheAccessRight()
    {
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, KSecurity::allRights & ~KSecurity::Access);
        QCOMPARE(CDlgInputParameters::Select(nullptr, Parameters::Color), 0);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(rightsForm, KSecurity::Access)});
        CDlgInputParameters::Open(nullptr);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }

    // --- Keys ---

    void keysWorkOnTheList()
    {
        const int key = add(0, QStringLiteral("a"));
        CDlgInputParameters page;
        page.show();
        auto press = [&page](int pressed) {
            page.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&page));
            page.list()->setFocus();
            QTest::keyClick(page.list(), Qt::Key(pressed));
        };
        whenEditor(QStringLiteral("b"));
        press(Qt::Key_Insert);
        QCOMPARE(names(page), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
        page.list()->selectKey(key);
        whenEditor(QStringLiteral("c"));
        press(Qt::Key_F2);
        QCOMPARE(names(page), (QStringList{QStringLiteral("b"), QStringLiteral("c")}));
        whenEditor(QStringLiteral("d"));
        press(Qt::Key_Return);
        QCOMPARE(names(page), (QStringList{QStringLiteral("b"), QStringLiteral("d")}));
        press(Qt::Key_Delete);
        QCOMPARE(names(page), QStringList{QStringLiteral("b")});
    }
};

static const RegisteredTest<TestCDlgInputParameters, KApplication> registered;

#include "TestCDlgInputParameters.moc"
