// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CDlgCarsAll.h"
#include "auto/catalog/parameters/CDlgInputParameters.h"
#include "auto/catalog/CatalogPanel.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDlgMultiItems.h"
#include "suite/image/KStaticImage.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/PlatePicture.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/auto/cars/register/editor/CarEditorOffice.h"
#include "tests/auto/editor/OnGrid.h"
#include "tests/support/RegisteredTest.h"

#include <QBuffer>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using Car = CTblAutomobilInformations;
using Dialog = CDlgAddAutomobilInformation;
using Parameters = InputParameters::Option;

const QString brand = u"iAutomobilType"_s;
const QString model = u"iModel"_s;
const QString carClass = u"iBrigade"_s;
const QString color = u"iColor"_s;
const QString country = u"iCountry"_s;
const QString dash = u"-"_s;

QByteArray picture()
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPEG");
    return buffer.data();
}

}

class TestCDlgAddAutomobilInformationBase : public QObject
{
    Q_OBJECT

    std::unique_ptr<CarEditorOffice> m_office;
    std::unique_ptr<Dialog> m_dialog;

    Dialog &open(const std::function<void(Car &)> &set = {}, EditorMode mode = EditorMode::Edit)
    {
        m_dialog = m_office->opened(m_office->addOwnedCar(set), mode);
        return *m_dialog;
    }

    KForm &form() { return *m_dialog->basePage()->form(); }
    QStringList offered(const QString &column) { return m_office->entries(form().comboBox(column)); }

    Car &saved(Car &car) { return m_office->saved(*m_dialog, car); }

    // Opens the input parameters by a field's button, works in them, and presses one of the window's buttons.
    void inParameters(const QString &column, const QString &button, const std::function<void(CDlgInputParameters &)> &work)
    {
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = qobject_cast<CDlgInputParameters *>(static_cast<KDialogHolder *>(window)->page());
            QVERIFY(page);
            work(*page);
            for (QPushButton *candidate : window->findChildren<QPushButton *>()) {
                if (candidate->text() == button)
                    candidate->click();
            }
        });
        form().button(column)->click();
    }

    void inCatalog(const QString &column, const std::function<void(CDlgCarsAll &)> &work)
    {
        TestOffice::whenModal("CDlgCarsAll", [&](QWidget *window) { work(static_cast<CDlgCarsAll &>(*window)); });
        form().button(column)->click();
    }

    void inMultiItems(const QString &column, const std::function<void(CDlgMultiItems &)> &work)
    {
        TestOffice::whenModal("CDlgMultiItems", [&](QWidget *window) { work(static_cast<CDlgMultiItems &>(*window)); });
        form().button(column)->click();
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<CarEditorOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init() { m_office->begin(); }
    void cleanup() { m_dialog.reset(); }

    // --- Texts ---

    void everyLabelIsToTheLetter()
    {
        open();
        compareLabels(u"base"_s, form(), *m_dialog->basePage());
    }

    void fixedListsAreToTheLetterAndStoreTheirCodes_data()
    {
        QTest::addColumn<QString>("column");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("code");
        const auto rows = [](const QString &column, const QList<std::pair<QString, int>> &entries) {
            for (qsizetype i = 0; i < entries.size(); ++i)
                QTest::addRow("%s %d", qPrintable(column), int(i)) << column << int(i) << entries.at(i).first << entries.at(i).second;
        };
        rows(u"iFuel"_s, {{u"بنزین"_s, 1}, {u"دوگانه سوز"_s, 2}, {u"گاز"_s, 4}, {u"گازوئیل"_s, 3}, {u"سایر"_s, 5}});
        rows(u"iUsageType"_s, {{u"سواری"_s, 1}, {u"سنگین"_s, 2}});
        rows(u"iTypeDocument"_s, {{u"قولنامه ای"_s, 0}, {u"اجاره ای "_s, 1}});
        QList<std::pair<QString, int>> months{{u"تمام ماه ها"_s, 0}};
        for (int month = 1; month <= 12; ++month)
            months.append({shamsiMonthName(month), month});
        rows(u"iMonth"_s, months);
    }

    void fixedListsAreToTheLetterAndStoreTheirCodes()
    {
        QFETCH(QString, column);
        QFETCH(int, position);
        QFETCH(QString, text);
        QFETCH(int, code);
        open();
        QCOMPARE(form().comboBox(column)->itemText(position), text);
        form().comboBox(column)->setCurrentIndex(position);
        Car car;
        QCOMPARE(saved(car).value(column).toInt(), code);
        m_dialog = m_office->opened(m_dialog->key());
        QCOMPARE(form().comboBox(column)->currentText(), text);
    }

    void fixedListsHaveNoFurtherEntries()
    {
        open();
        QCOMPARE(form().comboBox(u"iFuel"_s)->count(), 5);
        QCOMPARE(form().comboBox(u"iUsageType"_s)->count(), 2);
        QCOMPARE(form().comboBox(u"iTypeDocument"_s)->count(), 2);
        QCOMPARE(form().comboBox(u"iMonth"_s)->count(), 13);
    }

    void codeIsShownAndKept()
    {
        open([](Car &car) { car.m_iCode = 77; });
        KEdit *code = form().edit(u"iCode"_s);
        QVERIFY(code->isReadOnly());
        QCOMPARE(code->integer(), 77);
        Car car;
        QCOMPARE(saved(car).m_iCode, 77);
    }

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

    // --- Numbers ---

    void yearIsSteppedByArrows()
    {
        open();
        KEdit *year = form().edit(u"iYear"_s);
        QTest::keyClick(year, Qt::Key_Up);
        QCOMPARE(year->integer(), GetShamsiYearOfToday());
        QTest::keyClick(year, Qt::Key_Down);
        Car car;
        QCOMPARE(saved(car).m_iYear, GetShamsiYearOfToday() - 1);
    }

    void unusualYearOrNumberOfWheelsIsAskedAboutOnce()
    {
        Dialog &dialog = open();
        form().edit(u"iYear"_s)->setText(u"3"_s);
        form().edit(u"iNumOfWheels"_s)->setText(u"45"_s);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        dialog.accept();
        QVERIFY(dialog.isVisible());
        QCOMPARE(g_pDlgYesNo->takeShown(),
                 QStringList{u"سال تولید 3 معمول نیست.\nتعداد چرخ 45 معمول نیست.\nمطمئن هستید؟"_s});
        QCOMPARE(dialog.focusWidget(), form().edit(u"iYear"_s));
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        Car car;
        QCOMPARE(saved(car).m_iYear, 3);
        QCOMPARE(car.m_iNumOfWheels, 45);
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
    }

    void usualOrMissingYearAndWheelsAreNotAskedAbout()
    {
        Dialog &dialog = open();
        form().edit(u"iNumOfWheels"_s)->setText(u"6"_s);
        for (const QString &year : {QString(), u"1402"_s, u"2024"_s}) {
            form().edit(u"iYear"_s)->setText(year);
            dialog.accept();
            QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        }
    }

    void numbersOfTheVehicleReadFromTheLeft_data()
    {
        QTest::addColumn<QString>("column");
        for (const char *name : {"sNumOfPlates", "sVIN", "sChassisNum", "sNumOfEngines", "sNumOfBodies"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void numbersOfTheVehicleReadFromTheLeft()
    {
        QFETCH(QString, column);
        const QString plate = u"12 ب 345 ایران 67"_s;
        open([&](Car &car) { car.setValue(column, plate); });
        KEdit *edit = form().edit(column);
        QCOMPARE(edit->layoutDirection(), Qt::LeftToRight);
        QVERIFY(!edit->text().isRightToLeft());
        QCOMPARE(edit->plainText(), plate);
        Car car;
        QCOMPARE(saved(car).value(column).toString(), plate);
    }

    void wrongVinGivesAHintBesideTheFieldAndNoRefusal()
    {
        open();
        KEdit *vin = form().edit(u"sVIN"_s);
        QCOMPARE(m_dialog->basePage()->vinHint(), QString());
        vin->setText(u"1HGCM82643A004352"_s);
        QCOMPARE(m_dialog->basePage()->vinHint(), u"رقم کنترل درست نیست."_s);
        QCOMPARE(vin->accessibleDescription(), m_dialog->basePage()->vinHint());
        vin->setText(u"1HGCM82633A004352"_s);
        QCOMPARE(m_dialog->basePage()->vinHint(), QString());
        vin->setText(u"1HGCM"_s);
        QCOMPARE(m_dialog->basePage()->vinHint(), u"شماره VIN هفده نویسه دارد."_s);
        vin->setText(u"1HGCO"_s);
        QVERIFY(!m_dialog->basePage()->vinHint().isEmpty());
        Car car;
        QCOMPARE(saved(car).m_sVIN, u"1HGCO"_s);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        // The hint is there when the car is opened again.
        m_dialog = m_office->opened(m_dialog->key());
        QVERIFY(!m_dialog->basePage()->vinHint().isEmpty());
    }

    // In the line of its label, so that nothing moves when it appears; it ends where the field ends.
    void hintStandsBesideTheLabelOfTheVin()
    {
        open();
        KEdit *vin = form().edit(u"sVIN"_s);
        const QRect before = vin->geometry();
        vin->setText(u"1HGCM"_s);
        QCoreApplication::processEvents();
        const FieldNote *hint = FieldNote::of(vin);
        QVERIFY(hint->isVisible());
        QCOMPARE(hint->text(), m_dialog->basePage()->vinHint());
        QCOMPARE(vin->geometry(), before);
        const QLabel *label = form().label(u"sVIN"_s);
        QCOMPARE(hint->geometry().top(), label->geometry().top());
        QVERIFY(hint->geometry().bottom() <= vin->geometry().top());
        QVERIFY(hint->geometry().right() < label->geometry().left());
        QCOMPARE(hint->geometry().left(), vin->geometry().left());
    }

    // --- Plate ---

    void plateIsDrawnBesideItsFieldAndOnThePageOfTheSale()
    {
        open([](Car &car) { car.m_sNumOfPlates = u"12 ب 345 ایران 67"_s; });
        const PlatePicture *plate = m_dialog->basePage()->plate();
        QVERIFY(plate->isPlate());
        QCOMPARE(m_dialog->salePage()->plate()->accessibleName(), u"12 ب 345 ایران 67"_s);
        KEdit *field = form().edit(u"sNumOfPlates"_s);
        QVERIFY(plate->geometry().right() < field->geometry().left());
        const QRect before = plate->geometry();
        const QRect behind = form().control(u"sChassisNum"_s)->geometry();
        for (const QString &typed : {u"12 ب"_s, u"تهران 11"_s, QString()}) {
            field->setText(typed);
            QCoreApplication::processEvents();
            QVERIFY2(!plate->isPlate(), qPrintable(typed));
            QVERIFY(!m_dialog->salePage()->plate()->isPlate());
            QCOMPARE(plate->geometry(), before);
            QCOMPARE(form().control(u"sChassisNum"_s)->geometry(), behind);
        }
        field->setText(u"۲۱ د ۶۵۴ - ۷۶"_s);
        QCOMPARE(plate->accessibleName(), u"21 د 654 ایران 76"_s);
        QCOMPARE(m_dialog->salePage()->plate()->accessibleName(), plate->accessibleName());
    }

    // --- Insurance ---

    void nameOfTheInsuranceIsTextAndOfferedToTheNextCar()
    {
        open();
        QComboBox *name = form().comboBox(u"sNameInsurance"_s);
        name->setEditText(u"بیمه ایران"_s);
        Car car;
        QCOMPARE(saved(car).m_sNameInsurance, u"بیمه ایران"_s);
        open();
        QCOMPARE(offered(u"sNameInsurance"_s), QStringList{u"بیمه ایران"_s});
        QCOMPARE(form().comboBox(u"sNameInsurance"_s)->currentText(), QString());
    }

    // --- Picture ---

    void pictureIsShownExchangedAndTakenAway()
    {
        QTemporaryDir folder;
        QFile file(folder.filePath(u"car.jpg"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(picture());
        file.close();
        open();
        QVERIFY(m_dialog->basePage()->picture()->isEmpty());
        QVERIFY(m_dialog->basePage()->picture()->takeFile(file.fileName()));
        Car car;
        const QByteArray stored = saved(car).m_oPicture.data;
        QVERIFY(!stored.isEmpty());
        m_dialog = m_office->opened(m_dialog->key());
        KStaticImage *box = m_dialog->basePage()->picture();
        QCOMPARE(box->image().size(), QSize(40, 30));
        QCOMPARE(box->bytes(), stored);
        QVERIFY(box->clear());
        QVERIFY(saved(car).m_oPicture.isEmpty());
    }

    void pictureThatCannotBeDecodedIsKept()
    {
        const QByteArray broken("no picture at all");
        open([&](Car &car) { car.m_oPicture.data = broken; });
        QVERIFY(m_dialog->basePage()->picture()->isBroken());
        form().edit(u"sDesc"_s)->setText(u"چیزی"_s);
        Car car;
        QCOMPARE(saved(car).m_oPicture.data, broken);
        QCOMPARE(car.m_sDesc, u"چیزی"_s);
    }

    void pictureIsOnlyLookedAtWhileTheCarIsShown()
    {
        open([](Car &car) { car.m_oPicture.data = picture(); }, EditorMode::Show);
        QVERIFY(m_dialog->basePage()->picture()->isReadOnly());
        QVERIFY(!m_dialog->basePage()->picture()->image().isNull());
    }

    // --- Archive ---

    void archivedCarTellsByWhomAndWhen()
    {
        open([this](Car &car) {
            car.m_iArchiveUserID = m_office->adminID();
            car.m_dateArchive = QDateTime(QDate(2026, 5, 1), QTime(9, 0), Qt::UTC);
        });
        QStringList texts;
        for (const QLabel *label : m_dialog->basePage()->findChildren<QLabel *>()) {
            if (label->isVisibleTo(m_dialog.get()))
                texts << label->text();
        }
        for (const QString &text : {u"کاربر بايگاني کننده :"_s, u"مدیر"_s,
                                    u"تاريخ بايگاني :"_s, shamsiText(QDate(2026, 5, 1))})
            QVERIFY2(texts.contains(text), qPrintable(text));
    }

    // --- Grid ---

    void bothPagesStandOnTheGrid_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("columns");
        QTest::newRow("wide") << 1366 << 8;
        QTest::newRow("middle") << 960 << 4;
        QTest::newRow("narrow") << 560 << 2;
    }

    void bothPagesStandOnTheGrid()
    {
        QFETCH(int, width);
        QFETCH(int, columns);
        open([](Car &car) { car.m_sNumOfPlates = u"12 ب 345 ایران 67"_s; });
        QCOMPARE(OnGrid::problem(*m_dialog, *m_dialog->basePage(), width, columns), QString());
        Q_EMIT m_dialog->salePage()->frontRequested();
        QCOMPARE(OnGrid::problem(*m_dialog, *m_dialog->salePage(), width, columns), QString());
    }

    // --- Keys ---

    void enterGoesThroughTheFieldsInTheirOrder()
    {
        open();
        QStringList met;
        QWidget *first = form().control(u"dateCreate"_s);
        first->setFocus();
        for (int i = 0; i < 80; ++i) {
            QTest::keyClick(m_dialog->focusWidget(), Qt::Key_Return);
            // On the last field Enter confirms.
            if (!m_dialog->isVisible())
                break;
            const QWidget *now = m_dialog->focusWidget();
            met << (now->objectName().isEmpty() ? now->accessibleName() : now->objectName());
        }
        QStringList expected;
        for (const char *name :
             {"dateIntroduction", "iSource", "iAutomobilType", "iModel", "iBrigade", "iSystem", "iYear", "iMonth", "iColor", "iFuel",
              "iUsageType", "iCountry", "iBodyStatus", "iVolumCylinders", "iNumOfWheels", "iNumOfCylinders", "iCapacity",
              "iNumOFAxles", "sNumOfPlates", "sChassisNum", "sNumOfEngines", "sNumOfBodies", "sVIN", "iFunction", "dAmount",
              "iTypeDocument", "dateInsurance", "sDiscountYears", "sNameInsurance", "sInsuranceStatus", "sAccessories",
              "sFractionalParts", "sDocumentsDelivered", "sDocumentsDeficit", "sFacilities", "sDesc", "sDescSpecial"})
            expected << QString::fromLatin1(name);
        QCOMPARE(met, expected);
        QVERIFY(!m_dialog->isVisible());
    }
};

static const RegisteredTest<TestCDlgAddAutomobilInformationBase, KApplication> registeredCDlgAddAutomobilInformationBase;

#include "TestCDlgAddAutomobilInformationBase.moc"
