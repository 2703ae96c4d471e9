// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/catalog/CatalogWindowTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

class TestCDlgCarsAll : public CatalogWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    // --- What is shown ---

    void columnsAreAsEveryOfficeKnowsThem()
    {
        CDlgCarsAll dialog;
        const QStringList headings{u"نوع خودرو"_s, u"مدل خودرو"_s, u"تیپ خودرو"_s};
        for (const CatalogLevel level : {brandLevel, modelLevel, classLevel}) {
            const QVector<KListModel::Column> columns = dialog.panel(level)->list()->listModel()->columns();
            QCOMPARE(columns.size(), 2);
            QCOMPARE(columns[0].title, u"ردیف"_s);
            QCOMPARE(columns[0].alignment, Qt::Alignment(Qt::AlignHCenter));
            QCOMPARE(columns[0].width, 40);
            QCOMPARE(columns[1].title, headings[int(level)]);
            QCOMPARE(columns[1].alignment, Qt::Alignment(Qt::AlignRight));
            QCOMPARE(columns[1].width, 170);
            QCOMPARE(dialog.panel(level)->filter()->maxLength(), 50);
        }
    }

    void eachListKeepsItsColumnsUnderItsOwnKey()
    {
        {
            CDlgCarsAll dialog;
            show(dialog);
            int width = 80;
            for (const CatalogLevel level : {brandLevel, modelLevel, classLevel})
                dialog.panel(level)->list()->header()->resizeSection(0, width += 7);
        }
        QVERIFY(ReadSetting(u"DlgCarsAll\\List"_s, u"sWidths"_s, QString()).startsWith(u"87,"_s));
        QVERIFY(ReadSetting(u"DlgCarsAll\\List2"_s, u"sWidths"_s, QString()).startsWith(u"94,"_s));
        QVERIFY(ReadSetting(u"DlgCarsAll\\List3"_s, u"sWidths"_s, QString()).startsWith(u"101,"_s));
    }

    void controlsHaveNamesOfTheirOwn()
    {
        CDlgCarsAll dialog;
        show(dialog);
        QSet<QString> seen;
        for (const QWidget *control : dialog.findChildren<QWidget *>()) {
            if (!qobject_cast<const QPushButton *>(control) && !qobject_cast<const KEdit *>(control)
                && !qobject_cast<const KExtListCtrl *>(control))
                continue;
            const auto *button = qobject_cast<const QPushButton *>(control);
            const QString name = button && control->accessibleName().isEmpty() ? button->text() : control->accessibleName();
            QVERIFY(!name.isEmpty());
            QVERIFY2(!seen.contains(name), qPrintable(name));
            seen.insert(name);
        }
        QVERIFY(seen.contains(u"جديد مدل خودرو"_s));
    }

    void browsingBeginsAtTheFirstBrandInTheOrderOfNames()
    {
        CDlgCarsAll dialog;
        show(dialog);
        QCOMPARE(names(dialog, brandLevel), (QStringList{u"Kia"_s, u"Peugeot"_s}));
        QCOMPARE(dialog.panel(brandLevel)->list()->cellText(1, 0), u"2"_s);
        QCOMPARE(selected(dialog, brandLevel), m_kia);
        QCOMPARE(names(dialog, modelLevel), QStringList{u"Rio"_s});
        QCOMPARE(countText(dialog, brandLevel), SuiteMessages::count(2));
        QCOMPARE(countText(dialog, modelLevel), SuiteMessages::count(1));
        QCOMPARE(countText(dialog, classLevel), QString());
    }

    void selectingFillsTheNextListAndEmptiesTheOneAfter()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        QCOMPARE(names(dialog, modelLevel), (QStringList{u"206"_s, u"Pars"_s}));
        QCOMPARE(selected(dialog, modelLevel), 0);
        QVERIFY(!dialog.panel(classLevel)->addButton()->isEnabled());
        QVERIFY(!dialog.panel(modelLevel)->editButton()->isEnabled());
        dialog.panel(modelLevel)->list()->selectKey(m_model206);
        QCOMPARE(names(dialog, classLevel), (QStringList{u"Type 2"_s, u"Type 5"_s}));
        QCOMPARE(countText(dialog, classLevel), SuiteMessages::count(2));
        QVERIFY(dialog.panel(classLevel)->addButton()->isEnabled());
        dialog.panel(brandLevel)->list()->selectKey(m_kia);
        QCOMPARE(names(dialog, classLevel), QStringList());
        QCOMPARE(countText(dialog, classLevel), QString());
        QVERIFY(!dialog.panel(classLevel)->addButton()->isEnabled());
    }

    void anEmptyCatalogOffersANewBrandOnly()
    {
        m_office->clear();
        CDlgCarsAll dialog;
        show(dialog);
        QCOMPARE(countText(dialog, brandLevel), SuiteMessages::count(0));
        QVERIFY(dialog.panel(brandLevel)->addButton()->isEnabled());
        QVERIFY(!dialog.panel(brandLevel)->editButton()->isEnabled());
        QVERIFY(!dialog.panel(brandLevel)->deleteButton()->isEnabled());
        QVERIFY(!dialog.panel(modelLevel)->addButton()->isEnabled());
    }

    void filteringBrandsByAPartOfANameShowsAllBrandsWhoseNameContainsItAndEmptiesTheOtherLists()
    {
        m_office->addBrand(u"Skia"_s);
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        dialog.panel(modelLevel)->list()->selectKey(m_model206);
        dialog.panel(brandLevel)->filter()->setText(u"kia"_s);
        QCOMPARE(names(dialog, brandLevel), (QStringList{u"Kia"_s, u"Skia"_s}));
        QCOMPARE(countText(dialog, brandLevel), SuiteMessages::count(2));
        QCOMPARE(selected(dialog, brandLevel), 0);
        QCOMPARE(names(dialog, modelLevel), QStringList());
        QCOMPARE(names(dialog, classLevel), QStringList());
        QCOMPARE(countText(dialog, modelLevel), QString());
        dialog.panel(brandLevel)->list()->selectKey(m_kia);
        QCOMPARE(names(dialog, modelLevel), QStringList{u"Rio"_s});
        dialog.panel(brandLevel)->filter()->clear();
        QCOMPARE(names(dialog, brandLevel).size(), 3);
    }

    void theOtherFiltersRefillTheirOwnListAndStayForTheNextParent()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(modelLevel)->filter()->setText(u"ar"_s);
        QCOMPARE(names(dialog, modelLevel), QStringList());
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        QCOMPARE(names(dialog, modelLevel), QStringList{u"Pars"_s});
        dialog.panel(modelLevel)->filter()->setText(u"2"_s);
        dialog.panel(modelLevel)->list()->selectKey(m_model206);
        dialog.panel(classLevel)->filter()->setText(u"5"_s);
        QCOMPARE(names(dialog, classLevel), QStringList{u"Type 5"_s});
        QCOMPARE(selected(dialog, modelLevel), m_model206);
    }

    void aFilterWithoutAParentAsksNothing()
    {
        m_office->clear();
        m_office->addModel(0, u"Nobody's"_s);
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(modelLevel)->filter()->setText(u"N"_s);
        QCOMPARE(names(dialog, modelLevel), QStringList());
        QVERIFY(!dialog.panel(modelLevel)->addButton()->isEnabled());
    }

    void quotesAndPlaceholdersInAFilterStandForThemselves_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("found");
        QTest::newRow("quote") << "'" << QStringList{u"O'Neil"_s};
        QTest::newRow("percent") << "%" << QStringList{u"100%"_s};
        QTest::newRow("underscore") << "_" << QStringList();
        QTest::newRow("Arabic letters") << "كيا" << QStringList{u"کیا"_s};
        QTest::newRow("only a blank") << " "
                                      << QStringList{u"100%"_s, u"Kia"_s, u"O'Neil"_s,
                                                     u"Peugeot"_s, u"کیا"_s};
    }

    void quotesAndPlaceholdersInAFilterStandForThemselves()
    {
        QFETCH(QString, typed);
        for (const char *name : {"O'Neil", "100%", "کیا"})
            m_office->addBrand(QString::fromUtf8(name));
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->filter()->setText(typed);
        QTEST(names(dialog, brandLevel), "found");
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void fromTheFilterUpAndDownMoveInTheList()
    {
        CDlgCarsAll dialog;
        show(dialog);
        KEdit *filter = dialog.panel(brandLevel)->filter();
        filter->setFocus();
        QTest::keyClicks(filter, u"eu"_s);
        QTest::keyClick(filter, Qt::Key_Down);
        QCOMPARE(selected(dialog, brandLevel), m_peugeot);
        QCOMPARE(dialog.focusWidget(), filter);
    }

    // --- Choosing ---

    void browsingHasItsButtonsWithIconsAndNoAcceptButton()
    {
        CDlgCarsAll dialog;
        show(dialog);
        for (const CatalogLevel level : {brandLevel, modelLevel, classLevel}) {
            const CatalogPanel *panel = dialog.panel(level);
            for (const QPushButton *button : {panel->addButton(), panel->editButton(), panel->deleteButton()}) {
                QVERIFY(button->isVisible());
                QVERIFY(!button->icon().isNull());
            }
        }
        QVERIFY(dialog.importButton()->isVisible());
        QVERIFY(!buttonOf(dialog, u"انتخاب"_s)->isVisible());
        QVERIFY(buttonOf(dialog, u"بازگشت"_s)->isVisible());
        buttonOf(dialog, u"بازگشت"_s)->click();
        QVERIFY(!dialog.isVisible());
    }

    void pickModeOffersChoosingAndEditingOnly()
    {
        CDlgCarsAll dialog;
        dialog.setPickMode(true);
        show(dialog);
        for (const CatalogLevel level : {brandLevel, modelLevel, classLevel}) {
            QVERIFY(!dialog.panel(level)->addButton()->isVisible());
            QVERIFY(!dialog.panel(level)->deleteButton()->isVisible());
            QVERIFY(dialog.panel(level)->editButton()->isVisible());
        }
        QVERIFY(!dialog.importButton()->isVisible());
        QVERIFY(buttonOf(dialog, u"انتخاب"_s)->isVisible());
        QVERIFY(!buttonOf(dialog, u"بازگشت"_s));
        dialog.deleteEntry(brandLevel);
        dialog.panel(brandLevel)->list()->setFocus();
        QTest::keyClick(dialog.panel(brandLevel)->list(), Qt::Key_Insert);
        QTest::keyClick(dialog.panel(brandLevel)->list(), Qt::Key_Delete);
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QCOMPARE(counts(), u"2,3,2"_s);
    }

    void pickingBeginsAtWhatWasChosen_data()
    {
        QTest::addColumn<QList<int>>("wanted");
        QTest::addColumn<QList<int>>("selectedKeys");
        // Positions: 1 the brand, 2 the model, 3 the class, 9 a key that is gone, 0 none.
        QTest::newRow("brand, model and class") << QList<int>{1, 2, 3} << QList<int>{1, 2, 3};
        QTest::newRow("brand and model") << QList<int>{1, 2, 0} << QList<int>{1, 2, 0};
        QTest::newRow("brand alone") << QList<int>{1, 0, 0} << QList<int>{1, 0, 0};
        QTest::newRow("a class without its model") << QList<int>{1, 0, 3} << QList<int>{1, 0, 0};
        QTest::newRow("a model that is gone") << QList<int>{1, 9, 3} << QList<int>{1, 0, 0};
        QTest::newRow("a brand that is gone") << QList<int>{9, 2, 3} << QList<int>{0, 0, 0};
        QTest::newRow("nothing: the first brand") << QList<int>{0, 0, 0} << QList<int>{-1, 0, 0};
    }

    void pickingBeginsAtWhatWasChosen()
    {
        QFETCH(QList<int>, wanted);
        QFETCH(QList<int>, selectedKeys);
        const auto key = [this](int position) {
            const QHash<int, int> keys{{1, m_peugeot}, {2, m_model206}, {3, m_type5}, {9, 99999}, {0, 0}, {-1, m_kia}};
            return keys.value(position);
        };
        CDlgCarsAll dialog;
        dialog.setPickMode(true);
        dialog.setChosen(key(wanted[0]), key(wanted[1]), key(wanted[2]));
        show(dialog);
        QCOMPARE(selected(dialog, brandLevel), key(selectedKeys[0]));
        QCOMPARE(selected(dialog, modelLevel), key(selectedKeys[1]));
        QCOMPARE(selected(dialog, classLevel), key(selectedKeys[2]));
        QCOMPARE(buttonOf(dialog, u"انتخاب"_s)->isEnabled(), key(selectedKeys[0]) != 0);
    }

    void theAcceptButtonPicksWhatIsSelected()
    {
        int brand = 0;
        int model = 0;
        int carClass = 0;
        TestOffice::whenModal("CDlgCarsAll", [this](QWidget *window) {
            auto *dialog = static_cast<CDlgCarsAll *>(window);
            dialog->panel(brandLevel)->list()->selectKey(m_peugeot);
            dialog->panel(modelLevel)->list()->selectKey(m_pars);
            buttonOf(*dialog, u"انتخاب"_s)->click();
        });
        QVERIFY(CDlgCarsAll::Pick(nullptr, brand, model, carClass));
        QCOMPARE(brand, m_peugeot);
        QCOMPARE(model, m_pars);
        QCOMPARE(carClass, 0);
    }

    void aDoubleClickAndEnterPick_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("double click") << false;
        QTest::newRow("Enter") << true;
    }

    void aDoubleClickAndEnterPick()
    {
        QFETCH(bool, byKey);
        int brand = m_peugeot;
        int model = m_model206;
        int carClass = m_type2;
        TestOffice::whenModal("CDlgCarsAll", [&](QWidget *window) {
            auto *list = static_cast<CDlgCarsAll *>(window)->panel(classLevel)->list();
            if (byKey) {
                list->setFocus();
                QTest::keyClick(list, Qt::Key_Down);
                QTest::keyClick(list, Qt::Key_Return);
            } else {
                doubleClick(list, 1);
            }
        });
        QVERIFY(CDlgCarsAll::Pick(nullptr, brand, model, carClass));
        QCOMPARE(brand, m_peugeot);
        QCOMPARE(model, m_model206);
        QCOMPARE(carClass, m_type5);
    }

    void nothingIsPickedWhereNothingIsSelected()
    {
        m_office->clear();
        CDlgCarsAll dialog;
        dialog.setPickMode(true);
        show(dialog);
        for (const CatalogLevel level : {brandLevel, modelLevel, classLevel})
            doubleClick(dialog.panel(level)->list(), -1);
        QVERIFY(dialog.isVisible());
        QCOMPARE(counts(), u"0,0,0"_s);
    }

    void aCancelledPickLeavesTheKeysAsTheyWere()
    {
        int brand = m_peugeot;
        int model = m_model206;
        int carClass = m_type2;
        TestOffice::whenModal("CDlgCarsAll", [this](QWidget *window) {
            static_cast<CDlgCarsAll *>(window)->panel(brandLevel)->list()->selectKey(m_kia);
            QTest::keyClick(window, Qt::Key_Escape);
        });
        QVERIFY(!CDlgCarsAll::Pick(nullptr, brand, model, carClass));
        QCOMPARE(brand, m_peugeot);
        QCOMPARE(model, m_model206);
        QCOMPARE(carClass, m_type2);
    }

    void browseTellsWhetherItChangedTheCatalog()
    {
        TestOffice::whenModal("CDlgCarsAll", [](QWidget *window) { QTest::keyClick(window, Qt::Key_Escape); });
        QVERIFY(!CDlgCarsAll::Browse(nullptr));
        TestOffice::whenModal("CDlgCarsAll", [this](QWidget *window) {
            auto *dialog = static_cast<CDlgCarsAll *>(window);
            dialog->panel(brandLevel)->list()->selectKey(m_peugeot);
            dialog->panel(modelLevel)->list()->selectKey(m_pars);
            typeName(u"ELX"_s);
            dialog->addEntry(classLevel);
            QTest::keyClick(window, Qt::Key_Escape);
        });
        QVERIFY(CDlgCarsAll::Browse(nullptr));
    }

    // --- Errors ---

    void anErrorOfTheDatabaseIsToldOnceAndNothingOfAnotherBrandStays()
    {
        CDlgCarsAll dialog;
        show(dialog);
        m_office->database().run(u"RENAME TABLE CarModels TO CarModelsAway"_s);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        m_office->database().run(u"RENAME TABLE CarModelsAway TO CarModels"_s);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QVERIFY(dialog.isVisible());
        QCOMPARE(names(dialog, brandLevel).size(), 2);
        QCOMPARE(names(dialog, modelLevel), QStringList());
        QVERIFY(!dialog.panel(modelLevel)->addButton()->isEnabled());
    }
};

static const RegisteredTest<TestCDlgCarsAll, KApplication> registeredCDlgCarsAll;

#include "TestCDlgCarsAll.moc"
