// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/cars/register/editor/CarBasePageTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

// What the first page of a car offers to choose from: its owner, the catalog, the values of the office.
class TestCarBaseChoices : public CarBasePageTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }
    void cleanup() { end(); }

    // --- Owner ---

    void ownerIsShownFromThePersons()
    {
        open();
        const PersonGroup &owner = *m_dialog->basePage()->owner();
        const auto text = [&owner](const QString &label) {
            return named<KEdit>(owner, label + u" مالک"_s)->plainText();
        };
        QCOMPARE(text(u"کد شخص :"_s), u"1"_s);
        QCOMPARE(text(u"نام و نام خانوادگي :"_s), u"سارا کریمی"_s);
        QCOMPARE(text(u"تلفن :"_s), u"02188776655"_s);
        QCOMPARE(text(u"موبايل :"_s), u"09121234567"_s);
        QCOMPARE(text(u"کد ملي :"_s), u"0012345679"_s);
        QCOMPARE(owner.nationalCodeEdit()->layoutDirection(), Qt::LeftToRight);
    }

    void wrongNationalCodeGivesAHintAndNoRefusal()
    {
        const int wrong = m_office->addPerson(u"علی"_s, u"رضایی"_s,
                                              [](CTblPersons &person) { person.m_sNationalCode = u"0012345678"_s; });
        open();
        PersonGroup *owner = m_dialog->basePage()->owner();
        QCOMPARE(owner->nationalCodeEdit()->accessibleDescription(), QString());
        owner->setPersonID(wrong);
        QCOMPARE(owner->nationalCodeEdit()->accessibleDescription(), u"رقم کنترل درست نیست."_s);
        Car car;
        QCOMPARE(saved(car).m_iPersonID, wrong);
    }

    void secondButtonEmptiesTheOwnerAndDisablesItself()
    {
        open();
        PersonGroup *owner = m_dialog->basePage()->owner();
        QList<QPushButton *> buttons = owner->findChildren<QPushButton *>();
        QCOMPARE(buttons.size(), 2);
        for (const QPushButton *button : std::as_const(buttons))
            QCOMPARE(button->text(), u"..."_s);
        QPushButton *clear = named<QPushButton>(*owner, u"کد شخص : حذف مالک"_s);
        QVERIFY(clear->isEnabled());
        clear->click();
        QVERIFY(!clear->isEnabled());
        QCOMPARE(owner->personID(), 0);
        QCOMPARE(owner->name(), QString());
    }

    void deleteEmptiesTheOwnerFromTheKeyboard()
    {
        open();
        PersonGroup *owner = m_dialog->basePage()->owner();
        owner->setReadOnly(true);
        QTest::keyClick(owner->codeEdit(), Qt::Key_Delete);
        QCOMPARE(owner->personID(), m_office->owner);
        owner->setReadOnly(false);
        QTest::keyClick(owner->codeEdit(), Qt::Key_Delete);
        QCOMPARE(owner->personID(), 0);
        QCOMPARE(owner->name(), QString());
    }

    // In the list of persons one can be changed and deleted, too.
    void ownerChangedOrDeletedInThePickerIsShownSoThoughNobodyWasPicked_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("name");
        QTest::newRow("changed") << u"UPDATE Persons SET sName2='سارا رستمی' WHERE iID=%1"_s << u"سارا رستمی"_s;
        QTest::newRow("deleted") << u"DELETE FROM Persons WHERE iID=%1"_s << QString();
    }

    void ownerChangedOrDeletedInThePickerIsShownSoThoughNobodyWasPicked()
    {
        QFETCH(QString, statement);
        QFETCH(QString, name);
        open();
        PersonGroup *owner = m_dialog->basePage()->owner();
        QSignalSpy changed(owner, &PersonGroup::changed);
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            m_office->database().run(statement.arg(m_office->owner));
            static_cast<QDialog *>(window)->reject();
        });
        owner->pick();
        QCOMPARE(owner->name(), name);
        QCOMPARE(owner->personID(), m_office->owner);
        QVERIFY(changed.isEmpty());
    }

    // --- Catalog ---

    void storedCarIsShownInTheCatalogsLists()
    {
        open([this](Car &car) {
            car.m_iAutomobilType = m_office->peugeot;
            car.m_iModel = m_office->model206;
            car.m_iBrigade = m_office->type5;
        });
        QCOMPARE(form().comboBox(brand)->currentText(), u"پژو"_s);
        QCOMPARE(form().comboBox(model)->currentText(), u"206"_s);
        QCOMPARE(form().comboBox(carClass)->currentText(), u"تیپ 5"_s);
        QCOMPARE(offered(brand), (QStringList{dash, u"پژو"_s, u"سایپا"_s}));
        QCOMPARE(offered(model), (QStringList{dash, u"206"_s, u"پارس"_s}));
        QCOMPARE(offered(carClass), (QStringList{dash, u"تیپ 2"_s, u"تیپ 5"_s}));
    }

    void choosingABrandNarrowsTheModelsAndAModelTheClasses()
    {
        open();
        QCOMPARE(offered(model), QStringList{dash});
        QCOMPARE(offered(carClass), QStringList{dash});
        form().setKey(brand, m_office->peugeot);
        QCOMPARE(offered(model), (QStringList{dash, u"206"_s, u"پارس"_s}));
        QCOMPARE(offered(carClass), QStringList{dash});
        form().setKey(model, m_office->model206);
        QCOMPARE(offered(carClass), (QStringList{dash, u"تیپ 2"_s, u"تیپ 5"_s}));
        form().setKey(carClass, m_office->type2);
        form().setKey(model, m_office->modelPars);
        QCOMPARE(offered(carClass), QStringList{dash});
        QCOMPARE(form().key(carClass), 0);
        // Another brand takes the class along as well.
        form().setKey(model, m_office->model206);
        form().setKey(carClass, m_office->type2);
        form().setKey(brand, m_office->saipa);
        QCOMPARE(offered(carClass), QStringList{dash});
        QCOMPARE(offered(model), (QStringList{dash, u"پراید"_s}));
        QCOMPARE(form().key(model), 0);
        Car car;
        saved(car);
        QCOMPARE(car.m_iAutomobilType, m_office->saipa);
        QCOMPARE(car.m_iModel, 0);
        QCOMPARE(car.m_iBrigade, 0);
    }

    void choiceCanBeTakenBack()
    {
        open([this](Car &car) {
            car.m_iAutomobilType = m_office->peugeot;
            car.m_iModel = m_office->model206;
        });
        form().comboBox(brand)->setCurrentIndex(0);
        Car car;
        saved(car);
        QCOMPARE(car.m_iAutomobilType, 0);
        QCOMPARE(car.m_iModel, 0);
    }

    void keyWhoseRowIsGoneStaysUntilSomethingElseIsChosen_data()
    {
        QTest::addColumn<QString>("column");
        for (const QString &column : {brand, model, carClass, color, country, u"iSystem"_s, u"iSource"_s,
                                      u"iBodyStatus"_s, u"iVolumCylinders"_s})
            QTest::newRow(qPrintable(column)) << column;
    }

    void keyWhoseRowIsGoneStaysUntilSomethingElseIsChosen()
    {
        QFETCH(QString, column);
        open([&](Car &car) {
            car.m_iAutomobilType = m_office->peugeot;
            car.m_iModel = m_office->model206;
            car.setValue(column, 4711);
        });
        Car car;
        QCOMPARE(saved(car).value(column).toInt(), 4711);
        m_dialog = m_office->opened(m_dialog->key());
        QCOMPARE(form().comboBox(column)->currentText(), u"حذف شده"_s);
        form().comboBox(column)->setCurrentIndex(0);
        QCOMPARE(saved(car).value(column).toInt(), 0);
    }

    void everyCatalogButtonOpensTheCatalogAtWhatIsChosenAndTakesTheChoice_data()
    {
        QTest::addColumn<QString>("column");
        for (const QString &column : {brand, model, carClass})
            QTest::newRow(qPrintable(column)) << column;
    }

    void everyCatalogButtonOpensTheCatalogAtWhatIsChosenAndTakesTheChoice()
    {
        QFETCH(QString, column);
        open([this](Car &car) {
            car.m_iAutomobilType = m_office->peugeot;
            car.m_iModel = m_office->model206;
            car.m_iBrigade = m_office->type2;
        });
        QList<int> preselected;
        inCatalog(column, [&](CDlgCarsAll &catalog) {
            for (const CatalogLevel level : {CatalogLevel::Brand, CatalogLevel::Model, CatalogLevel::Class})
                preselected << catalog.panel(level)->list()->currentKey();
            catalog.panel(CatalogLevel::Brand)->list()->selectKey(m_office->saipa);
            catalog.panel(CatalogLevel::Model)->list()->selectKey(m_office->pride);
            catalog.accept();
        });
        QCOMPARE(preselected, (QList<int>{m_office->peugeot, m_office->model206, m_office->type2}));
        QCOMPARE(form().comboBox(brand)->currentText(), u"سایپا"_s);
        QCOMPARE(form().comboBox(model)->currentText(), u"پراید"_s);
        QCOMPARE(form().key(carClass), 0);
    }

    void cancelledCatalogKeepsTheChoiceUnderItsNewName()
    {
        open([this](Car &car) {
            car.m_iAutomobilType = m_office->peugeot;
            car.m_iModel = m_office->model206;
            car.m_iBrigade = m_office->type2;
        });
        inCatalog(model, [this](CDlgCarsAll &catalog) {
            m_office->database().run(u"UPDATE CarModels SET sName='206 جدید' WHERE iID=%1"_s.arg(m_office->model206));
            catalog.reject();
        });
        QCOMPARE(form().key(brand), m_office->peugeot);
        QCOMPARE(form().comboBox(model)->currentText(), u"206 جدید"_s);
        QCOMPARE(form().comboBox(carClass)->currentText(), u"تیپ 2"_s);
    }

    // --- Input parameters ---

    void everyListButtonOpensItsKindOfParameters_data()
    {
        QTest::addColumn<QString>("column");
        QTest::addColumn<int>("option");
        QTest::newRow("system") << u"iSystem"_s << int(Parameters::System);
        QTest::newRow("volume") << u"iVolumCylinders"_s << int(Parameters::EngineVolume);
        QTest::newRow("body") << u"iBodyStatus"_s << int(Parameters::BodyStatus);
        QTest::newRow("colour") << color << int(Parameters::Color);
        QTest::newRow("source") << u"iSource"_s << int(Parameters::Source);
    }

    void everyListButtonOpensItsKindOfParameters()
    {
        QFETCH(QString, column);
        QFETCH(int, option);
        const int one = m_office->addItem(InputParameters::itemType(option), u"یک"_s);
        const int two = m_office->addItem(InputParameters::itemType(option), u"دو"_s);
        m_office->addItem(999, u"بیگانه"_s);
        open([&](Car &car) { car.setValue(column, one); });
        QCOMPARE(form().comboBox(column)->currentText(), u"یک"_s);
        QCOMPARE(offered(column), (QStringList{dash, u"دو"_s, u"یک"_s}));
        int shown = -1;
        int preselected = 0;
        inParameters(column, u"انتخاب"_s, [&](CDlgInputParameters &page) {
            shown = page.option();
            preselected = page.list()->currentKey();
            page.list()->selectKey(two);
        });
        QCOMPARE(shown, option);
        QCOMPARE(preselected, one);
        QCOMPARE(form().key(column), two);
        Car car;
        QCOMPARE(saved(car).value(column).toInt(), two);
    }

    void valueAddedInTheParametersIsOfferedThoughNoneWasChosen()
    {
        open();
        inParameters(color, u"انصراف"_s,
                     [this](CDlgInputParameters &) { m_office->addItem(CTblItems::typeColor, u"نقره ای"_s); });
        QCOMPARE(offered(color), (QStringList{dash, u"نقره ای"_s}));
        QCOMPARE(form().key(color), 0);
    }

    void numberButtonTakesTheNumberOfTheValue_data()
    {
        QTest::addColumn<QString>("column");
        QTest::addColumn<int>("option");
        QTest::newRow("wheels") << u"iNumOfWheels"_s << int(Parameters::WheelCount);
        QTest::newRow("cylinders") << u"iNumOfCylinders"_s << int(Parameters::CylinderCount);
        QTest::newRow("capacity") << u"iCapacity"_s << int(Parameters::Capacity);
    }

    void numberButtonTakesTheNumberOfTheValue()
    {
        QFETCH(QString, column);
        QFETCH(int, option);
        const int six = m_office->addItem(InputParameters::itemType(option), u"6 عدد"_s);
        const int many = m_office->addItem(InputParameters::itemType(option), u"چند"_s);
        open();
        int shown = -1;
        inParameters(column, u"انتخاب"_s, [&](CDlgInputParameters &page) {
            shown = page.option();
            page.list()->selectKey(six);
        });
        QCOMPARE(shown, option);
        QCOMPARE(form().edit(column)->integer(), 6);
        // A value without a number is reported and changes nothing.
        inParameters(column, u"انتخاب"_s, [&](CDlgInputParameters &page) { page.list()->selectKey(many); });
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        Car car;
        QCOMPARE(saved(car).value(column).toInt(), 6);
    }

    void countryIsOneOfAListThatGrowsOnTheSpot()
    {
        const int iran = m_office->addItem(CTblItems::typeCountry, u"ایران"_s);
        open([&](Car &car) { car.m_iCountry = iran; });
        inMultiItems(country, [](CDlgMultiItems &picker) {
            QCOMPARE(picker.windowTitle(), u"کشور"_s);
            QCOMPARE(picker.selectedNames(), QStringList{u"ایران"_s});
            named<KEdit>(picker, u"نام :"_s)->setText(u"ژاپن"_s);
            picker.addValue();
            picker.setSelectedNames({u"ژاپن"_s});
            picker.accept();
        });
        QCOMPARE(form().comboBox(country)->currentText(), u"ژاپن"_s);
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        inMultiItems(country, [](CDlgMultiItems &picker) {
            picker.setSelectedNames({u"ایران"_s, u"ژاپن"_s});
            picker.accept();
        });
        // Of several the new one counts, and the user is told so.
        QCOMPARE(form().comboBox(country)->currentText(), u"ایران"_s);
        QCOMPARE(g_pDlgMessage->takeShown().size(), 1);
        inMultiItems(country, [](CDlgMultiItems &picker) {
            picker.setSelectedNames({});
            picker.reject();
        });
        Car car;
        QCOMPARE(saved(car).m_iCountry, iran);
    }

    // --- Several values ---

    void severalValuesAreTickedAndStoredAsText_data()
    {
        QTest::addColumn<QString>("column");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("title");
        QTest::newRow("accessories") << u"sAccessories"_s << CTblItems::typeAccessory << u"لوازم جانبی"_s;
        QTest::newRow("features") << u"sFacilities"_s << CTblItems::typeFeature << u"امکانات"_s;
        QTest::newRow("documents") << u"sDocumentsDelivered"_s << CTblItems::typeDeliveredDocument
                                   << u"مدرک تحویلی"_s;
    }

    void severalValuesAreTickedAndStoredAsText()
    {
        QFETCH(QString, column);
        QFETCH(int, type);
        QFETCH(QString, title);
        for (const char *name : {"a", "b", "c"})
            m_office->addItem(type, QString::fromLatin1(name));
        open([&](Car &car) { car.setValue(column, u"b، old"_s); });
        QStringList ticked;
        QString shownTitle;
        inMultiItems(column, [&](CDlgMultiItems &picker) {
            shownTitle = picker.windowTitle();
            ticked = picker.selectedNames();
            picker.setSelectedNames({u"a"_s, u"c"_s});
            picker.accept();
        });
        QCOMPARE(shownTitle, title);
        QCOMPARE(ticked, QStringList{u"b"_s});
        inMultiItems(column, [](CDlgMultiItems &picker) { picker.reject(); });
        Car car;
        QCOMPARE(saved(car).value(column).toString(), u"old، a، c"_s);
    }

    void moreValuesThanTheColumnHoldsAreRefusedAndNothingIsLost()
    {
        for (int i = 0; i < 6; ++i)
            m_office->addItem(CTblItems::typeFeature, QString(49, QChar(u'a' + i)));
        open([](Car &car) { car.m_sFacilities = u"old"_s; });
        inMultiItems(u"sFacilities"_s, [](CDlgMultiItems &picker) {
            QStringList all;
            for (int i = 0; i < 6; ++i)
                all << QString(49, QChar(u'a' + i));
            picker.setSelectedNames(all);
            picker.accept();
        });
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(form().edit(u"sFacilities"_s)->text(), u"old"_s);
        QCOMPARE(m_dialog->focusWidget(), form().edit(u"sFacilities"_s));
    }

    void deficitButtonListsTheValuesThatAreNotChosen_data()
    {
        QTest::addColumn<QString>("deficit");
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<int>("type");
        QTest::newRow("documents") << u"sDocumentsDeficit"_s << u"sDocumentsDelivered"_s
                                   << CTblItems::typeDeliveredDocument;
        QTest::newRow("parts") << u"sFractionalParts"_s << u"sAccessories"_s << CTblItems::typeAccessory;
    }

    void deficitButtonListsTheValuesThatAreNotChosen()
    {
        QFETCH(QString, deficit);
        QFETCH(QString, chosen);
        QFETCH(int, type);
        for (const char *name : {"a", "b", "c"})
            m_office->addItem(type, QString::fromLatin1(name));
        m_office->addItem(CTblItems::typeColor, u"d"_s);
        open([&](Car &car) { car.setValue(chosen, u"b"_s); });
        form().button(deficit)->click();
        QCOMPARE(form().edit(deficit)->text(), u"a، c"_s);
        // What was there before comes back.
        form().edit(deficit)->undo();
        QCOMPARE(form().edit(deficit)->text(), QString());
        form().edit(chosen)->setText(u"a، b، c"_s);
        form().edit(deficit)->setText(u"a"_s);
        form().button(deficit)->click();
        Car car;
        saved(car);
        QCOMPARE(car.value(deficit).toString(), QString());
        QCOMPARE(car.value(chosen).toString(), u"a، b، c"_s);
    }

    void deficitWithoutAnyValuesIsToldAndKept()
    {
        open([](Car &car) { car.m_sDocumentsDeficit = u"سند"_s; });
        form().button(u"sDocumentsDeficit"_s)->click();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(form().edit(u"sDocumentsDeficit"_s)->text(), u"سند"_s);
    }
};

static const RegisteredTest<TestCarBaseChoices, KApplication> registeredCarBaseChoices;

#include "TestCarBaseChoices.moc"
