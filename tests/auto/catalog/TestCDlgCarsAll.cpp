// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CDlgCarsAll.h"

#include "auto/catalog/CDlgAddCar.h"
#include "suite/accounting/changes/CDlgRowConflict.h"
#include "auto/catalog/CatalogPanel.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr CatalogLevel brandLevel = CatalogLevel::Brand;
constexpr CatalogLevel modelLevel = CatalogLevel::Model;
constexpr CatalogLevel classLevel = CatalogLevel::Class;
const QString rightsForm = u"CarsAll"_s;

QStringList names(const CDlgCarsAll &dialog, CatalogLevel level)
{
    QStringList names;
    const KExtListCtrl *list = dialog.panel(level)->list();
    for (int row = 0; row < list->count(); ++row)
        names << list->cellText(row, 1);
    return names;
}

int selected(const CDlgCarsAll &dialog, CatalogLevel level)
{
    return dialog.panel(level)->list()->currentKey();
}

QPushButton *buttonOf(const CDlgCarsAll &dialog, const QString &caption)
{
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        if (button->text() == caption)
            return button;
    }
    return nullptr;
}

// The label beside a list.
QString countText(const CDlgCarsAll &dialog, CatalogLevel level)
{
    for (const QLabel *label : dialog.panel(level)->findChildren<QLabel *>()) {
        if (!label->buddy())
            return label->text();
    }
    return u"no label"_s;
}

void doubleClick(KExtListCtrl *list, int row)
{
    const QPoint place = row < 0 ? QPoint(list->viewport()->width() / 2, list->viewport()->height() - 4)
                                 : list->visualRect(list->listModel()->index(row, 1)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
}

// Answers the name editor that comes up next.
void typeName(const QString &name, QString *title = nullptr)
{
    TestOffice::whenModal("CDlgAddCar", [name, title](QWidget *window) {
        if (title)
            *title = window->windowTitle();
        window->findChild<KEdit *>()->setText(name);
        static_cast<CDlgAddCar *>(window)->accept();
    });
}

}

class TestCDlgCarsAll : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    int m_peugeot = 0;
    int m_kia = 0;
    int m_model206 = 0;
    int m_pars = 0;
    int m_type2 = 0;
    int m_type5 = 0;

    void show(CDlgCarsAll &dialog)
    {
        dialog.resize(1100, 600);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    }
    QString value(const QString &statement) { return m_office->database().value(statement); }
    QString counts()
    {
        return value(u"SELECT CONCAT_WS(',',(SELECT COUNT(*) FROM CarBrands),(SELECT COUNT(*) FROM CarModels),"
                     "(SELECT COUNT(*) FROM CarClasses))"_s);
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_peugeot = m_office->addBrand(u"Peugeot"_s);
        m_kia = m_office->addBrand(u"Kia"_s);
        m_model206 = m_office->addModel(m_peugeot, u"206"_s);
        m_pars = m_office->addModel(m_peugeot, u"Pars"_s);
        m_office->addModel(m_kia, u"Rio"_s);
        m_type5 = m_office->addClass(m_model206, u"Type 5"_s);
        m_type2 = m_office->addClass(m_model206, u"Type 2"_s);
    }

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

private:
    void usedEntryStays(CatalogLevel level, const std::function<void(CTblAutomobilInformations &)> &use, const QString &warning)
    {
        m_office->addCar(use);
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        dialog.panel(modelLevel)->list()->selectKey(m_model206);
        dialog.panel(classLevel)->list()->selectKey(m_type5);
        dialog.panel(level)->deleteButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{warning});
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QCOMPARE(counts(), u"2,3,2"_s);
        QCOMPARE(selected(dialog, classLevel), m_type5);
    }
};

static const RegisteredTest<TestCDlgCarsAll, KApplication> registeredCDlgCarsAll;
#include "TestCDlgCarsAll.moc"
