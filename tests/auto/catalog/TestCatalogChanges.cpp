// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/catalog/CatalogWindowTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

// Names that are added, changed and deleted in the catalog, and by whom.
class TestCatalogChanges : public CatalogWindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    // --- Adding and editing ---

    void newBrandByInsertKey()
    {
        CDlgCarsAll dialog;
        show(dialog);
        QString title;
        typeName(u" Benz "_s, &title);
        dialog.panel(brandLevel)->list()->setFocus();
        QTest::keyClick(dialog.panel(brandLevel)->list(), Qt::Key_Insert);
        QCOMPARE(title, u"نوع خودرو - جدید"_s);
        QCOMPARE(names(dialog, brandLevel), (QStringList{u"Benz"_s, u"Kia"_s, u"Peugeot"_s}));
        QCOMPARE(selected(dialog, brandLevel), value(u"SELECT iID FROM CarBrands WHERE sName='Benz'"_s).toInt());
        QCOMPARE(value(u"SELECT iUserID FROM CarBrands WHERE sName='Benz'"_s).toInt(), m_office->adminID());
        QVERIFY(!dialog.isChanged());
    }

    void newModelAndClassBelongToWhatIsSelected()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        QString title;
        typeName(u"405"_s, &title);
        dialog.panel(modelLevel)->addButton()->click();
        QCOMPARE(title, u"مدل خودرو - جدید"_s);
        QCOMPARE(value(u"SELECT iClassID FROM CarModels WHERE sName='405'"_s).toInt(), m_peugeot);
        QCOMPARE(selected(dialog, brandLevel), m_peugeot);
        QVERIFY(!dialog.isChanged());
        const int model = selected(dialog, modelLevel);
        QCOMPARE(value(u"SELECT iID FROM CarModels WHERE sName='405'"_s).toInt(), model);
        typeName(u"GLX"_s, &title);
        dialog.panel(classLevel)->addButton()->click();
        QCOMPARE(title, u"تیپ خودرو - جدید"_s);
        QCOMPARE(value(u"SELECT iBrandID FROM CarClasses WHERE sName='GLX'"_s).toInt(), model);
        QCOMPARE(names(dialog, classLevel), QStringList{u"GLX"_s});
        QVERIFY(dialog.isChanged());
    }

    void aNewNameThatTheFilterHidesIsShownAllTheSame()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->filter()->setText(u"Kia"_s);
        typeName(u"Benz"_s);
        dialog.panel(brandLevel)->addButton()->click();
        QVERIFY(dialog.panel(brandLevel)->filter()->text().isEmpty());
        QCOMPARE(names(dialog, brandLevel).size(), 3);
        QCOMPARE(dialog.panel(brandLevel)->list()->cellText(dialog.panel(brandLevel)->list()->currentRow(), 1), u"Benz"_s);
    }

    void aCancelledNameAddsNothing()
    {
        CDlgCarsAll dialog;
        show(dialog);
        TestOffice::whenModal("CDlgAddCar", [](QWidget *window) {
            window->findChild<KEdit *>()->setText(u"Benz"_s);
            QTest::keyClick(window, Qt::Key_Escape);
        });
        dialog.panel(brandLevel)->addButton()->click();
        QCOMPARE(counts(), u"2,3,2"_s);
        QCOMPARE(selected(dialog, brandLevel), m_kia);
    }

    void aSecondBrandOfTheSameNameIsToldOnceAndTheListsKeepTheirRows()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        dialog.panel(modelLevel)->list()->selectKey(m_model206);
        QStringList told;
        TestOffice::whenModal("CDlgAddCar", [&](QWidget *window) {
            auto *editor = static_cast<CDlgAddCar *>(window);
            editor->findChild<KEdit *>()->setText(u"kia"_s);
            editor->accept();
            told = g_pDlgWarning->takeShown();
            QVERIFY(editor->isVisible());
            QCOMPARE(editor->name(), u"kia"_s);
            editor->reject();
        });
        dialog.panel(brandLevel)->addButton()->click();
        QCOMPARE(told.size(), 1);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QVERIFY(dialog.isVisible());
        QCOMPARE(names(dialog, brandLevel).size(), 2);
        QCOMPARE(selected(dialog, modelLevel), m_model206);
        QCOMPARE(names(dialog, classLevel).size(), 2);
        QCOMPARE(counts(), u"2,3,2"_s);
    }

    void addingAModelWithNoBrandSelectedIsNotOffered()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->filter()->setText(u"e"_s);
        QCOMPARE(selected(dialog, brandLevel), 0);
        QVERIFY(!dialog.panel(modelLevel)->addButton()->isEnabled());
        doubleClick(dialog.panel(modelLevel)->list(), -1);
        doubleClick(dialog.panel(classLevel)->list(), -1);
        dialog.panel(modelLevel)->list()->setFocus();
        QTest::keyClick(dialog.panel(modelLevel)->list(), Qt::Key_Insert);
        dialog.addEntry(modelLevel);
        dialog.addEntry(classLevel);
        QCOMPARE(counts(), u"2,3,2"_s);
    }

    void doubleClickEditsWhatIsSelectedOrAddsWhereThereIsAParent()
    {
        CDlgCarsAll dialog;
        show(dialog);
        QString title;
        typeName(u"Kia Motors"_s, &title);
        doubleClick(dialog.panel(brandLevel)->list(), 0);
        QCOMPARE(title, u"نوع خودرو - ویرایش"_s);
        QCOMPARE(value(u"SELECT sName FROM CarBrands WHERE iID=%1"_s.arg(m_kia)), u"Kia Motors"_s);
        typeName(u"Sorento"_s, &title);
        doubleClick(dialog.panel(modelLevel)->list(), -1);
        QCOMPARE(title, u"مدل خودرو - جدید"_s);
        typeName(u"EX"_s, &title);
        doubleClick(dialog.panel(classLevel)->list(), -1);
        QCOMPARE(title, u"تیپ خودرو - جدید"_s);
        dialog.panel(brandLevel)->filter()->setText(u"o"_s);
        typeName(u"Volvo"_s, &title);
        doubleClick(dialog.panel(brandLevel)->list(), -1);
        QCOMPARE(title, u"نوع خودرو - جدید"_s);
        QCOMPARE(counts(), u"3,4,3"_s);
    }

    void editKeepsWhatIsSelectedBelow()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        dialog.panel(modelLevel)->list()->selectKey(m_model206);
        dialog.panel(classLevel)->list()->selectKey(m_type5);
        QString title;
        typeName(u"A Peugeot"_s, &title);
        dialog.panel(brandLevel)->list()->setFocus();
        QTest::keyClick(dialog.panel(brandLevel)->list(), Qt::Key_F2);
        QCOMPARE(title, u"نوع خودرو - ویرایش"_s);
        QCOMPARE(names(dialog, brandLevel), (QStringList{u"A Peugeot"_s, u"Kia"_s}));
        QCOMPARE(selected(dialog, brandLevel), m_peugeot);
        QCOMPARE(selected(dialog, classLevel), m_type5);
        typeName(u"207"_s, &title);
        dialog.panel(modelLevel)->editButton()->click();
        QCOMPARE(title, u"مدل خودرو - ویرایش"_s);
        QCOMPARE(selected(dialog, modelLevel), m_model206);
        QCOMPARE(selected(dialog, classLevel), m_type5);
        typeName(u"Type 6"_s, &title);
        dialog.panel(classLevel)->editButton()->click();
        QCOMPARE(names(dialog, classLevel), (QStringList{u"Type 2"_s, u"Type 6"_s}));
        QCOMPARE(counts(), u"2,3,2"_s);
    }

    void renamingABrandToANameThatIsThereIsRefused()
    {
        CDlgCarsAll dialog;
        show(dialog);
        TestOffice::whenModal("CDlgAddCar", [](QWidget *window) {
            auto *editor = static_cast<CDlgAddCar *>(window);
            QCOMPARE(editor->name(), u"Kia"_s);
            editor->findChild<KEdit *>()->setText(u"Peugeot"_s);
            editor->accept();
            editor->reject();
        });
        dialog.panel(brandLevel)->editButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(names(dialog, brandLevel), (QStringList{u"Kia"_s, u"Peugeot"_s}));
    }

    void aRenameOfTwoDesksIsAskedAbout_data()
    {
        QTest::addColumn<QString>("theirs");
        QTest::addColumn<int>("answer"); // below 0: nothing is asked
        QTest::addColumn<QString>("stored");
        constexpr int none = -1;
        constexpr int takeTheirs = static_cast<int>(CDlgRowConflict::Answer::TakeTheirs);
        constexpr int takeMine = static_cast<int>(CDlgRowConflict::Answer::TakeMine);
        QTest::newRow("merged") << u"UPDATE CarModels SET iYearFrom=1390"_s << none << u"mine/1390"_s;
        QTest::newRow("theirs") << u"UPDATE CarModels SET sName='theirs'"_s << takeTheirs << u"theirs/0"_s;
        QTest::newRow("mine") << u"UPDATE CarModels SET sName='theirs'"_s << takeMine << u"mine/0"_s;
        QTest::newRow("gone: saved as a new one") << u"DELETE FROM CarModels"_s << none << u"mine/0"_s;
    }

    void aRenameOfTwoDesksIsAskedAbout()
    {
        QFETCH(QString, theirs);
        QFETCH(int, answer);
        m_office->database().run(u"DELETE FROM CarModels WHERE iID<>%1"_s.arg(m_model206));
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        dialog.panel(modelLevel)->list()->selectKey(m_model206);
        TestOffice::whenModal("CDlgAddCar", [&](QWidget *window) {
            auto *editor = static_cast<CDlgAddCar *>(window);
            editor->findChild<KEdit *>()->setText(u"mine"_s);
            m_office->database().run(theirs);
            if (answer >= 0)
                CDlgRowConflict::answerNext(static_cast<CDlgRowConflict::Answer>(answer));
            editor->accept();
            editor->accept();
        });
        dialog.panel(modelLevel)->editButton()->click();
        QCOMPARE(CDlgRowConflict::takeShown().size(), answer >= 0 ? 1 : 0);
        QTEST(value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',sName,IFNULL(iYearFrom,0))) FROM CarModels"_s), "stored");
        QCOMPARE(value(u"SELECT iClassID FROM CarModels"_s), QString::number(m_peugeot));
        QCOMPARE(selected(dialog, modelLevel), value(u"SELECT iID FROM CarModels"_s).toInt());
    }

    void aNameThatAnotherDeskAddsMeanwhileIsAskedAbout()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        const int models = dialog.panel(modelLevel)->list()->count();
        TestOffice::whenModal("CDlgAddCar", [&](QWidget *window) {
            auto *editor = static_cast<CDlgAddCar *>(window);
            editor->findChild<KEdit *>()->setText(u"405"_s);
            m_office->addModel(m_peugeot, u"405"_s);
            g_pDlgYesNo->answerNext(KMessageDialog::No);
            editor->accept();
            QVERIFY(editor->isVisible());
            editor->reject();
        });
        dialog.panel(modelLevel)->addButton()->click();
        const QStringList asked = g_pDlgYesNo->takeShown();
        QVERIFY2(asked.size() >= 1 && asked.constFirst().contains(u"«405» را در این میان ثبت کرده است"_s), qPrintable(asked.join(u'\n')));
        QCOMPARE(value(u"SELECT COUNT(*) FROM CarModels WHERE iClassID=%1"_s.arg(m_peugeot)).toInt(), models + 1);
    }

    void anEntryThatHasVanishedIsNeitherEditedNorDeleted()
    {
        CDlgCarsAll dialog;
        show(dialog);
        m_office->database().run(u"DELETE FROM CarBrands WHERE iID=%1"_s.arg(m_kia));
        dialog.editEntry(brandLevel);
        dialog.deleteEntry(brandLevel);
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void nothingIsAddedBelowAnEntryThatHasVanished()
    {
        CDlgCarsAll dialog;
        show(dialog);
        QCOMPARE(selected(dialog, brandLevel), m_kia);
        m_office->database().run(u"DELETE FROM CarBrands WHERE iID=%1"_s.arg(m_kia));
        typeName(u"Sorento"_s);
        dialog.addEntry(modelLevel);
        QCOMPARE(value(u"SELECT COUNT(*) FROM CarModels WHERE sName='Sorento'"_s), u"0"_s);
        // The lists show what is there.
        QCOMPARE(dialog.panel(brandLevel)->list()->count(), 1);
        QCOMPARE(selected(dialog, brandLevel), m_peugeot);
        dialog.panel(modelLevel)->list()->selectKey(m_model206);
        m_office->database().run(u"DELETE FROM CarModels WHERE iID=%1"_s.arg(m_model206));
        typeName(u"Type 9"_s);
        dialog.addEntry(classLevel);
        QCOMPARE(value(u"SELECT COUNT(*) FROM CarClasses WHERE sName='Type 9'"_s), u"0"_s);
        QVERIFY(!dialog.isChanged());
        QCOMPARE(selected(dialog, brandLevel), m_peugeot);
        QVERIFY(!dialog.panel(modelLevel)->list()->selectKey(m_model206));
    }

    // --- Deleting ---

    void aBrandUsedByAnyCarRecordCannotBeDeletedAndTheWarningNamesTheCarGallery()
    {
        usedEntryStays(
            brandLevel, [this](CTblAutomobilInformations &car) { car.m_iAutomobilType = m_peugeot; },
            u"شما نمی توانید این نوع خودرو را حذف نمایید زیرا استفاده شده است در گالری اتومبیل."_s);
    }

    void aUsedModelStays()
    {
        usedEntryStays(
            modelLevel, [this](CTblAutomobilInformations &car) { car.m_iModel = m_model206; },
            u"نمی توانید این مدل را حذف نمایید زیرا استفاده شده است."_s);
    }

    void aUsedClassStays()
    {
        usedEntryStays(
            classLevel, [this](CTblAutomobilInformations &car) { car.m_iBrigade = m_type5; },
            u"نمی توانید این تیپ را حذف نمایید زیرا در گالری اتومبیل استفاده شده است."_s);
    }

    void deletionIsAskedFor()
    {
        CDlgCarsAll dialog;
        show(dialog);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        dialog.panel(brandLevel)->deleteButton()->click();
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{SuiteMessages::deleteQuestion()});
        QCOMPARE(counts(), u"2,3,2"_s);
        QCOMPARE(selected(dialog, brandLevel), m_kia);
        // Any other answer goes on.
        g_pDlgYesNo->answerNext(KMessageDialog::Cancel);
        dialog.panel(brandLevel)->deleteButton()->click();
        QCOMPARE(names(dialog, brandLevel), QStringList{u"Peugeot"_s});
        QCOMPARE(selected(dialog, brandLevel), m_peugeot);
        QCOMPARE(names(dialog, modelLevel).size(), 2);
    }

    void deletingABrandWhoseModelsHaveClassesTakesThemAlong()
    {
        m_office->database().run(u"DELETE FROM CarModels WHERE iID=%1"_s.arg(m_pars));
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        dialog.panel(brandLevel)->list()->setFocus();
        QTest::keyClick(dialog.panel(brandLevel)->list(), Qt::Key_Delete);
        QCOMPARE(counts(), u"1,1,0"_s);
        QCOMPARE(names(dialog, brandLevel), QStringList{u"Kia"_s});
        QCOMPARE(selected(dialog, brandLevel), m_kia);
    }

    void deletingAModelAndAClass()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        dialog.panel(modelLevel)->list()->selectKey(m_model206);
        dialog.panel(classLevel)->list()->selectKey(m_type2);
        dialog.panel(classLevel)->deleteButton()->click();
        QCOMPARE(names(dialog, classLevel), QStringList{u"Type 5"_s});
        QCOMPARE(selected(dialog, classLevel), m_type5);
        QCOMPARE(counts(), u"2,3,1"_s);
        dialog.panel(modelLevel)->deleteButton()->click();
        QCOMPARE(counts(), u"2,2,0"_s);
        QCOMPARE(names(dialog, modelLevel), QStringList{u"Pars"_s});
        QCOMPARE(countText(dialog, classLevel), SuiteMessages::count(0));
        dialog.panel(modelLevel)->deleteButton()->click();
        QCOMPARE(counts(), u"2,1,0"_s);
        QCOMPARE(names(dialog, modelLevel), QStringList());
        QCOMPARE(countText(dialog, classLevel), QString());
    }

    void deleteKeyInAFilterIsTheFiltersOwn()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_kia);
        QTest::keyClick(dialog.panel(brandLevel)->filter(), Qt::Key_Delete);
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QCOMPARE(counts(), u"2,3,2"_s);
    }

    // --- Rights ---

    void refusedRightsDoNothingAndAreTold_data()
    {
        QTest::addColumn<int>("rights");
        QTest::addColumn<int>("told");
        QTest::newRow("only to look") << int(KSecurity::Access) << 3;
        QTest::newRow("to add") << int(KSecurity::Access | KSecurity::Write) << 2;
        QTest::newRow("to change") << int(KSecurity::Access | KSecurity::Modify) << 2;
        QTest::newRow("to delete") << int(KSecurity::Access | KSecurity::Delete) << 2;
    }

    void refusedRightsDoNothingAndAreTold()
    {
        QFETCH(int, rights);
        m_office->logInAs(u"clerk"_s, rightsForm, rights);
        CDlgCarsAll dialog;
        show(dialog);
        if (rights & KSecurity::Write)
            typeName(u"Benz"_s);
        dialog.panel(brandLevel)->addButton()->click();
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        if (rights & KSecurity::Modify)
            typeName(u"Renamed"_s);
        dialog.panel(brandLevel)->editButton()->click();
        dialog.panel(modelLevel)->list()->selectKey(m_pars);
        dialog.panel(modelLevel)->deleteButton()->click();
        QTEST(int(g_pDlgWarning->takeShown().size()), "told");
        QCOMPARE(counts(), u"%1,%2,2"_s.arg(rights & KSecurity::Write ? 3 : 2).arg(rights & KSecurity::Delete ? 2 : 3));
        QCOMPARE(value(u"SELECT COUNT(*) FROM CarBrands WHERE sName='Renamed'"_s),
                 rights & KSecurity::Modify ? u"1"_s : u"0"_s);
    }

    void withoutTheAccessRightNothingIsShown()
    {
        m_office->logInAs(u"stranger"_s, rightsForm, 0);
        CDlgCarsAll dialog;
        QCOMPARE(dialog.exec(), int(QDialog::Rejected));
        QVERIFY(!dialog.isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(rightsForm, KSecurity::Access)});
        int brand = 4;
        int model = 5;
        int carClass = 6;
        QVERIFY(!CDlgCarsAll::Pick(nullptr, brand, model, carClass));
        QCOMPARE(brand + model + carClass, 15);
    }

    void whereNothingMayBeChangedNothingIsOfferedOrDone_data()
    {
        QTest::addColumn<bool>("closed");
        QTest::newRow("a closed database") << true;
        QTest::newRow("a locked catalog") << false;
    }

    void whereNothingMayBeChangedNothingIsOfferedOrDone()
    {
        QFETCH(bool, closed);
        if (closed)
            GetDBSetting()->SetClosedDB(true);
        else
            GetDBSetting()->SetCatalogLocked(true);
        CDlgCarsAll dialog;
        show(dialog);
        for (const CatalogLevel level : {brandLevel, modelLevel, classLevel}) {
            QVERIFY(!dialog.panel(level)->addButton()->isVisible());
            QVERIFY(!dialog.panel(level)->editButton()->isVisible());
            QVERIFY(!dialog.panel(level)->deleteButton()->isVisible());
        }
        QVERIFY(!dialog.importButton()->isVisible());
        QCOMPARE(names(dialog, brandLevel).size(), 2);
        dialog.addEntry(brandLevel);
        dialog.editEntry(brandLevel);
        dialog.deleteEntry(brandLevel);
        dialog.importEntries();
        doubleClick(dialog.panel(brandLevel)->list(), 0);
        dialog.panel(brandLevel)->list()->setFocus();
        QTest::keyClick(dialog.panel(brandLevel)->list(), Qt::Key_Delete);
        QTest::keyClick(dialog.panel(brandLevel)->list(), Qt::Key_Insert);
        QCOMPARE(counts(), u"2,3,2"_s);
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }
};

static const RegisteredTest<TestCatalogChanges, KApplication> registeredCatalogChanges;

#include "TestCatalogChanges.moc"
