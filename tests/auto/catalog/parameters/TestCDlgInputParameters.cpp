// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/catalog/parameters/InputParametersTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

class TestCDlgInputParameters : public InputParametersTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    // --- What the window shows ---

    void everyLabelAndTitleIsToTheLetter()
    {
        CDlgInputParameters page;
        page.open();
        QCOMPARE(page.title(), u"پارامترهاي ورودي"_s);
        QCOMPARE(page.findChildren<QRadioButton *>().size(), 13);
        for (int option = 0; option < 13; ++option)
            QCOMPARE(page.optionButton(option)->text(), InputParameters::caption(option));
        QStringList captions;
        for (const QPushButton *button : page.findChildren<QPushButton *>()) {
            if (!button->isHidden())
                captions << button->text();
        }
        QVERIFY(captions.removeOne(u"ستون‌ها"_s));
        QCOMPARE(captions, (QStringList{newCaption, editCaption, deleteCaption}));
        const auto &columns = page.list()->listModel()->columns();
        QCOMPARE(columns.size(), 2);
        QCOMPARE(columns.at(0).title, u"ردیف"_s);
        QCOMPARE(columns.at(0).alignment, Qt::Alignment(Qt::AlignCenter));
        QCOMPARE(columns.at(0).width, 40);
        QCOMPARE(columns.at(1).title, u"نام"_s);
        QCOMPARE(columns.at(1).alignment, Qt::Alignment(Qt::AlignRight));
        QCOMPARE(columns.at(1).width, 170);
        QCOMPARE(page.countText(), u"تعداد : 0"_s);
    }

    void exactlyOneOptionIsChosenAtATime()
    {
        CDlgInputParameters page(InputParameters::Color);
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
        add(0, u"b"_s);
        CDlgInputParameters page;
        page.open();
        for (const int column : {0, 1}) {
            const ObservedStatements observed({u"SELECT"_s});
            Q_EMIT page.list()->columnClicked(column);
            QVERIFY(observed.taken().isEmpty());
            QVERIFY(!page.list()->model()->headerData(column, Qt::Horizontal).toString().endsWith(u'*'));
        }
        page.OnClosing();
        QCOMPARE(ReadSetting(rightsForm, u"Sort"_s, u"none"_s), u"none"_s);
        QCOMPARE(ReadSetting(rightsForm, u"iLastCol"_s, -1), -1);
        QCOMPARE(ReadSetting(rightsForm, u"iMaxRows"_s, -1), -1);
    }

    void layoutIsKeptUnderTheListsName()
    {
        {
            CDlgInputParameters page;
            page.open();
            page.list()->header()->resizeSection(page.list()->columnOf(u"row"), 111);
        }
        QVERIFY(!ReadSetting(u"InputParameters\\List\\Users\\"_s + GetDBSetting()->GetUserName(), u"sWidths"_s, QString()).isEmpty());
        CDlgInputParameters page;
        page.open();
        QCOMPARE(page.list()->header()->sectionSize(page.list()->columnOf(u"row")), 111);
    }

    // --- Filling ---

    void switchingTheTypeOptionRefillsTheListWithOnlyThatTypesValues_data()
    {
        QTest::addColumn<int>("option");
        for (int option = 0; option < InputParameters::optionCount; ++option)
            QTest::newRow(qPrintable(InputParameters::caption(option))) << option;
    }

    void switchingTheTypeOptionRefillsTheListWithOnlyThatTypesValues()
    {
        QFETCH(int, option);
        for (int each = 0; each < InputParameters::optionCount; ++each) {
            add(each, u"value %1 a"_s.arg(each));
            add(each, u"value %1 b"_s.arg(each));
        }
        CDlgInputParameters page((option + 1) % InputParameters::optionCount);
        page.open();
        const ObservedStatements observed({u"SELECT"_s});
        page.optionButton(option)->click();
        QCOMPARE(observed.taken().size(), 1);
        QVERIFY(observed.taken().constFirst().contains(
            u" iType=%1 "_s.arg(InputParameters::itemType(option))));
        QCOMPARE(names(page), (QStringList{u"value %1 a"_s.arg(option), u"value %1 b"_s.arg(option)}));
        QCOMPARE(page.list()->cellText(0, u"row"), u"1"_s);
        QCOMPARE(page.list()->cellText(1, u"row"), u"2"_s);
        QCOMPARE(page.countText(), u"تعداد : 2"_s);
        QCOMPARE(value(u"SELECT sName FROM Items WHERE iID=%1"_s.arg(page.list()->listModel()->keyAt(0))),
                 u"value %1 a"_s.arg(option));
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
        add(0, u"a"_s);
        CDlgInputParameters page(option);
        page.open();
        QCOMPARE(page.option(), -1);
        QCOMPARE(page.list()->count(), 0);
        page.runCommand(u"new");
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(count(), u"1"_s);
        page.optionButton(0)->click();
        QCOMPARE(names(page), QStringList{u"a"_s});
    }

    void theSelectionIsRestored()
    {
        add(0, u"a"_s);
        add(0, u"b"_s);
        CDlgInputParameters page;
        page.open();
        page.list()->selectRow(1);
        page.refill();
        QCOMPARE(page.list()->currentRow(), 1);
    }

    // --- Choosing ---

    void choosingGivesTheSelectedValue()
    {
        add(InputParameters::Color, u"آبی"_s);
        const int key = add(InputParameters::Color, u"سفید"_s);
        int preselected = 0;
        int option = -1;
        bool otherIsOffered = true;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = static_cast<CDlgInputParameters *>(static_cast<KDialogHolder *>(window)->page());
            preselected = page->list()->currentKey();
            option = page->option();
            otherIsOffered = page->optionButton(InputParameters::Capacity)->isEnabled();
            pushButton(*window, u"انتخاب"_s)->click();
        });
        QCOMPARE(CDlgInputParameters::Select(nullptr, InputParameters::Color, key), key);
        QCOMPARE(preselected, key);
        QCOMPARE(option, int(InputParameters::Color));
        // Who asks for a colour is not to get a capacity.
        QVERIFY(!otherIsOffered);
    }

    void aDoubleClickChoosesInSelectMode()
    {
        const int key = add(InputParameters::Color, u"سفید"_s);
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = static_cast<CDlgInputParameters *>(static_cast<KDialogHolder *>(window)->page());
            Q_EMIT page->list()->rowActivated(key);
        });
        QCOMPARE(CDlgInputParameters::Select(nullptr, InputParameters::Color), key);
    }

    void aValueCanBeAddedWhileChoosing()
    {
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = static_cast<CDlgInputParameters *>(static_cast<KDialogHolder *>(window)->page());
            whenEditor(u"سبز"_s);
            QVERIFY(page->runCommand(u"new"));
            pushButton(*window, u"انتخاب"_s)->click();
        });
        const int chosen = CDlgInputParameters::Select(nullptr, InputParameters::Color);
        QCOMPARE(nameOf(chosen), u"سبز"_s);
    }

    void cancellingChoosesNothing()
    {
        const int key = add(InputParameters::Color, u"سفید"_s);
        TestOffice::whenModal("KDialogHolder", [](QWidget *window) { pushButton(*window, u"انصراف"_s)->click(); });
        QCOMPARE(CDlgInputParameters::Select(nullptr, InputParameters::Color, key), 0);
    }

    void openedToBeKeptTheConfirmButtonReadsBack()
    {
        bool closed = false;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = static_cast<CDlgInputParameters *>(static_cast<KDialogHolder *>(window)->page());
            QCOMPARE(window->windowTitle(), u"پارامترهاي ورودي"_s);
            QCOMPARE(page->option(), int(InputParameters::Source));
            QVERIFY(page->optionButton(InputParameters::Capacity)->isEnabled());
            QVERIFY(!pushButton(*window, u"انتخاب"_s));
            QVERIFY(pushButton(*window, u"انصراف"_s));
            // New values are what this window is for.
            QStringList filled;
            for (const QPushButton *button : window->findChildren<QPushButton *>()) {
                if (LookMarks::button(button) == LookMarks::Button::Primary)
                    filled.append(button->text());
            }
            QCOMPARE(filled, QStringList{newCaption});
            pushButton(*window, u"بازگشت"_s)->click();
            closed = !window->isVisible();
        });
        CDlgInputParameters::Open(nullptr, InputParameters::Source);
        QVERIFY(closed);
    }

    void theWindowNeedsTheAccessRight()
    {
        m_office->logInAs(u"clerk"_s, rightsForm, KSecurity::allRights & ~KSecurity::Access);
        QCOMPARE(CDlgInputParameters::Select(nullptr, InputParameters::Color), 0);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(rightsForm, KSecurity::Access)});
        CDlgInputParameters::Open(nullptr);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }

    // --- Keys ---

    void keysWorkOnTheList()
    {
        const int key = add(0, u"a"_s);
        CDlgInputParameters page;
        page.show();
        auto press = [&page](int pressed) {
            page.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&page));
            page.list()->setFocus();
            QTest::keyClick(page.list(), Qt::Key(pressed));
        };
        whenEditor(u"b"_s);
        press(Qt::Key_Insert);
        QCOMPARE(names(page), (QStringList{u"a"_s, u"b"_s}));
        page.list()->selectKey(key);
        whenEditor(u"c"_s);
        press(Qt::Key_F2);
        QCOMPARE(names(page), (QStringList{u"b"_s, u"c"_s}));
        whenEditor(u"d"_s);
        press(Qt::Key_Return);
        QCOMPARE(names(page), (QStringList{u"b"_s, u"d"_s}));
        press(Qt::Key_Delete);
        QCOMPARE(names(page), QStringList{u"b"_s});
    }
};

static const RegisteredTest<TestCDlgInputParameters, KApplication> registeredCDlgInputParameters;

#include "TestCDlgInputParameters.moc"
