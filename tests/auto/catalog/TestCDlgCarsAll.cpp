// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CDlgCarsAll.h"

#include "auto/catalog/CDlgAddCar.h"
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

namespace {

constexpr CatalogLevel brandLevel = CatalogLevel::Brand;
constexpr CatalogLevel modelLevel = CatalogLevel::Model;
constexpr CatalogLevel classLevel = CatalogLevel::Class;
const QString rightsForm = QStringLiteral("CarsAll");

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
    return QStringLiteral("no label");
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
        return value(QStringLiteral("SELECT CONCAT_WS(',',(SELECT COUNT(*) FROM CarBrands),(SELECT COUNT(*) FROM CarModels),"
                                    "(SELECT COUNT(*) FROM CarClasses))"));
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_peugeot = m_office->addBrand(QStringLiteral("Peugeot"));
        m_kia = m_office->addBrand(QStringLiteral("Kia"));
        m_model206 = m_office->addModel(m_peugeot, QStringLiteral("206"));
        m_pars = m_office->addModel(m_peugeot, QStringLiteral("Pars"));
        m_office->addModel(m_kia, QStringLiteral("Rio"));
        m_type5 = m_office->addClass(m_model206, QStringLiteral("Type 5"));
        m_type2 = m_office->addClass(m_model206, QStringLiteral("Type 2"));
    }

    void columnsAreAsEveryOfficeKnowsThem()
    {
        CDlgCarsAll dialog;
        const QStringList headings{QStringLiteral("نوع خودرو"), QStringLiteral("مدل خودرو"), QStringLiteral("تیپ خودرو")};
        for (const CatalogLevel level : {brandLevel, modelLevel, classLevel}) {
            const QVector<KListModel::Column> columns = dialog.panel(level)->list()->listModel()->columns();
            QCOMPARE(columns.size(), 2);
            QCOMPARE(columns[0].title, QStringLiteral("ردیف"));
            QCOMPARE(columns[0].alignment, Qt::Alignment(Qt::AlignHCenter));
            QCOMPARE(columns[0].width, 40);
            QCOMPARE(columns[1].title, headings[int(level)]);
            QCOMPARE(columns[1].alignment, Qt::Alignment(Qt::AlignRight));
            QCOMPARE(columns[1].width, 170);
            QCOMPARE(dialog.panel(level)->filter()->maxLength(), 50);
            QCOMPARE(dialog.panel(level)->filter()->kind(), KEdit::Kind::QueryText);
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
        QVERIFY(ReadSetting(QStringLiteral("DlgCarsAll\\List"), QStringLiteral("sWidths"), QString()).startsWith(QStringLiteral("87,")));
        QVERIFY(ReadSetting(QStringLiteral("DlgCarsAll\\List2"), QStringLiteral("sWidths"), QString()).startsWith(QStringLiteral("94,")));
        QVERIFY(ReadSetting(QStringLiteral("DlgCarsAll\\List3"), QStringLiteral("sWidths"), QString()).startsWith(QStringLiteral("101,")));
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
        QVERIFY(seen.contains(QStringLiteral("جديد مدل خودرو")));
    }

    void browsingBeginsAtTheFirstBrandInTheOrderOfNames()
    {
        CDlgCarsAll dialog;
        show(dialog);
        QCOMPARE(names(dialog, brandLevel), (QStringList{QStringLiteral("Kia"), QStringLiteral("Peugeot")}));
        QCOMPARE(dialog.panel(brandLevel)->list()->cellText(1, 0), QStringLiteral("2"));
        QCOMPARE(selected(dialog, brandLevel), m_kia);
        QCOMPARE(names(dialog, modelLevel), QStringList{QStringLiteral("Rio")});
        QCOMPARE(countText(dialog, brandLevel), SuiteMessages::count(2));
        QCOMPARE(countText(dialog, modelLevel), SuiteMessages::count(1));
        QCOMPARE(countText(dialog, classLevel), QString());
    }

    void selectingFillsTheNextListAndEmptiesTheOneAfter()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        QCOMPARE(names(dialog, modelLevel), (QStringList{QStringLiteral("206"), QStringLiteral("Pars")}));
        QCOMPARE(selected(dialog, modelLevel), 0);
        QVERIFY(!dialog.panel(classLevel)->addButton()->isEnabled());
        QVERIFY(!dialog.panel(modelLevel)->editButton()->isEnabled());
        dialog.panel(modelLevel)->list()->selectKey(m_model206);
        QCOMPARE(names(dialog, classLevel), (QStringList{QStringLiteral("Type 2"), QStringLiteral("Type 5")}));
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
        m_office->addBrand(QStringLiteral("Skia"));
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        dialog.panel(modelLevel)->list()->selectKey(m_model206);
        dialog.panel(brandLevel)->filter()->setText(QStringLiteral("kia"));
        QCOMPARE(names(dialog, brandLevel), (QStringList{QStringLiteral("Kia"), QStringLiteral("Skia")}));
        QCOMPARE(countText(dialog, brandLevel), SuiteMessages::count(2));
        QCOMPARE(selected(dialog, brandLevel), 0);
        QCOMPARE(names(dialog, modelLevel), QStringList());
        QCOMPARE(names(dialog, classLevel), QStringList());
        QCOMPARE(countText(dialog, modelLevel), QString());
        dialog.panel(brandLevel)->list()->selectKey(m_kia);
        QCOMPARE(names(dialog, modelLevel), QStringList{QStringLiteral("Rio")});
        dialog.panel(brandLevel)->filter()->clear();
        QCOMPARE(names(dialog, brandLevel).size(), 3);
    }

    void theOtherFiltersRefillTheirOwnListAndStayForTheNextParent()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(modelLevel)->filter()->setText(QStringLiteral("ar"));
        QCOMPARE(names(dialog, modelLevel), QStringList());
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        QCOMPARE(names(dialog, modelLevel), QStringList{QStringLiteral("Pars")});
        dialog.panel(modelLevel)->filter()->setText(QStringLiteral("2"));
        dialog.panel(modelLevel)->list()->selectKey(m_model206);
        dialog.panel(classLevel)->filter()->setText(QStringLiteral("5"));
        QCOMPARE(names(dialog, classLevel), QStringList{QStringLiteral("Type 5")});
        QCOMPARE(selected(dialog, modelLevel), m_model206);
    }

    void aFilterWithoutAParentAsksNothing()
    {
        m_office->clear();
        m_office->addModel(0, QStringLiteral("Nobody's"));
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(modelLevel)->filter()->setText(QStringLiteral("N"));
        QCOMPARE(names(dialog, modelLevel), QStringList());
        QVERIFY(!dialog.panel(modelLevel)->addButton()->isEnabled());
    }

    void quotesAndPlaceholdersInAFilterStandForThemselves_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("found");
        QTest::newRow("quote") << "'" << QStringList{QStringLiteral("O'Neil")};
        QTest::newRow("percent") << "%" << QStringList{QStringLiteral("100%")};
        QTest::newRow("underscore") << "_" << QStringList();
        QTest::newRow("Arabic letters") << "كيا" << QStringList{QStringLiteral("کیا")};
        QTest::newRow("only a blank") << " "
                                      << QStringList{QStringLiteral("100%"), QStringLiteral("Kia"), QStringLiteral("O'Neil"),
                                                     QStringLiteral("Peugeot"), QStringLiteral("کیا")};
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
        QTest::keyClicks(filter, QStringLiteral("eu"));
        QTest::keyClick(filter, Qt::Key_Down);
        QCOMPARE(selected(dialog, brandLevel), m_peugeot);
        QCOMPARE(dialog.focusWidget(), filter);
    }

    void newBrandByInsertKey()
    {
        CDlgCarsAll dialog;
        show(dialog);
        QString title;
        typeName(QStringLiteral(" Benz "), &title);
        dialog.panel(brandLevel)->list()->setFocus();
        QTest::keyClick(dialog.panel(brandLevel)->list(), Qt::Key_Insert);
        QCOMPARE(title, QStringLiteral("نوع خودرو - جدید"));
        QCOMPARE(names(dialog, brandLevel), (QStringList{QStringLiteral("Benz"), QStringLiteral("Kia"), QStringLiteral("Peugeot")}));
        QCOMPARE(selected(dialog, brandLevel), value(QStringLiteral("SELECT iID FROM CarBrands WHERE sName='Benz'")).toInt());
        QCOMPARE(value(QStringLiteral("SELECT iUserID FROM CarBrands WHERE sName='Benz'")).toInt(), m_office->adminID());
        QVERIFY(!dialog.isChanged());
    }

    void newModelAndClassBelongToWhatIsSelected()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        QString title;
        typeName(QStringLiteral("405"), &title);
        dialog.panel(modelLevel)->addButton()->click();
        QCOMPARE(title, QStringLiteral("مدل خودرو - جدید"));
        QCOMPARE(value(QStringLiteral("SELECT iClassID FROM CarModels WHERE sName='405'")).toInt(), m_peugeot);
        QCOMPARE(selected(dialog, brandLevel), m_peugeot);
        QVERIFY(!dialog.isChanged());
        const int model = selected(dialog, modelLevel);
        QCOMPARE(value(QStringLiteral("SELECT iID FROM CarModels WHERE sName='405'")).toInt(), model);
        typeName(QStringLiteral("GLX"), &title);
        dialog.panel(classLevel)->addButton()->click();
        QCOMPARE(title, QStringLiteral("تیپ خودرو - جدید"));
        QCOMPARE(value(QStringLiteral("SELECT iBrandID FROM CarClasses WHERE sName='GLX'")).toInt(), model);
        QCOMPARE(names(dialog, classLevel), QStringList{QStringLiteral("GLX")});
        QVERIFY(dialog.isChanged());
    }

    void aNewNameThatTheFilterHidesIsShownAllTheSame()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->filter()->setText(QStringLiteral("Kia"));
        typeName(QStringLiteral("Benz"));
        dialog.panel(brandLevel)->addButton()->click();
        QVERIFY(dialog.panel(brandLevel)->filter()->text().isEmpty());
        QCOMPARE(names(dialog, brandLevel).size(), 3);
        QCOMPARE(dialog.panel(brandLevel)->list()->cellText(dialog.panel(brandLevel)->list()->currentRow(), 1), QStringLiteral("Benz"));
    }

    void aCancelledNameAddsNothing()
    {
        CDlgCarsAll dialog;
        show(dialog);
        TestOffice::whenModal("CDlgAddCar", [](QWidget *window) {
            window->findChild<KEdit *>()->setText(QStringLiteral("Benz"));
            QTest::keyClick(window, Qt::Key_Escape);
        });
        dialog.panel(brandLevel)->addButton()->click();
        QCOMPARE(counts(), QStringLiteral("2,3,2"));
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
            editor->findChild<KEdit *>()->setText(QStringLiteral("kia"));
            editor->accept();
            told = g_pDlgWarning->takeShown();
            QVERIFY(editor->isVisible());
            QCOMPARE(editor->name(), QStringLiteral("kia"));
            editor->reject();
        });
        dialog.panel(brandLevel)->addButton()->click();
        QCOMPARE(told.size(), 1);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QVERIFY(dialog.isVisible());
        QCOMPARE(names(dialog, brandLevel).size(), 2);
        QCOMPARE(selected(dialog, modelLevel), m_model206);
        QCOMPARE(names(dialog, classLevel).size(), 2);
        QCOMPARE(counts(), QStringLiteral("2,3,2"));
    }

    void addingAModelWithNoBrandSelectedIsNotOffered()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->filter()->setText(QStringLiteral("e"));
        QCOMPARE(selected(dialog, brandLevel), 0);
        QVERIFY(!dialog.panel(modelLevel)->addButton()->isEnabled());
        doubleClick(dialog.panel(modelLevel)->list(), -1);
        doubleClick(dialog.panel(classLevel)->list(), -1);
        dialog.panel(modelLevel)->list()->setFocus();
        QTest::keyClick(dialog.panel(modelLevel)->list(), Qt::Key_Insert);
        dialog.addEntry(modelLevel);
        dialog.addEntry(classLevel);
        QCOMPARE(counts(), QStringLiteral("2,3,2"));
    }

    void doubleClickEditsWhatIsSelectedOrAddsWhereThereIsAParent()
    {
        CDlgCarsAll dialog;
        show(dialog);
        QString title;
        typeName(QStringLiteral("Kia Motors"), &title);
        doubleClick(dialog.panel(brandLevel)->list(), 0);
        QCOMPARE(title, QStringLiteral("نوع خودرو - ویرایش"));
        QCOMPARE(value(QStringLiteral("SELECT sName FROM CarBrands WHERE iID=%1").arg(m_kia)), QStringLiteral("Kia Motors"));
        typeName(QStringLiteral("Sorento"), &title);
        doubleClick(dialog.panel(modelLevel)->list(), -1);
        QCOMPARE(title, QStringLiteral("مدل خودرو - جدید"));
        typeName(QStringLiteral("EX"), &title);
        doubleClick(dialog.panel(classLevel)->list(), -1);
        QCOMPARE(title, QStringLiteral("تیپ خودرو - جدید"));
        dialog.panel(brandLevel)->filter()->setText(QStringLiteral("o"));
        typeName(QStringLiteral("Volvo"), &title);
        doubleClick(dialog.panel(brandLevel)->list(), -1);
        QCOMPARE(title, QStringLiteral("نوع خودرو - جدید"));
        QCOMPARE(counts(), QStringLiteral("3,4,3"));
    }

    void editKeepsWhatIsSelectedBelow()
    {
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        dialog.panel(modelLevel)->list()->selectKey(m_model206);
        dialog.panel(classLevel)->list()->selectKey(m_type5);
        QString title;
        typeName(QStringLiteral("A Peugeot"), &title);
        dialog.panel(brandLevel)->list()->setFocus();
        QTest::keyClick(dialog.panel(brandLevel)->list(), Qt::Key_F2);
        QCOMPARE(title, QStringLiteral("نوع خودرو - ویرایش"));
        QCOMPARE(names(dialog, brandLevel), (QStringList{QStringLiteral("A Peugeot"), QStringLiteral("Kia")}));
        QCOMPARE(selected(dialog, brandLevel), m_peugeot);
        QCOMPARE(selected(dialog, classLevel), m_type5);
        typeName(QStringLiteral("207"), &title);
        dialog.panel(modelLevel)->editButton()->click();
        QCOMPARE(title, QStringLiteral("مدل خودرو - ویرایش"));
        QCOMPARE(selected(dialog, modelLevel), m_model206);
        QCOMPARE(selected(dialog, classLevel), m_type5);
        typeName(QStringLiteral("Type 6"), &title);
        dialog.panel(classLevel)->editButton()->click();
        QCOMPARE(names(dialog, classLevel), (QStringList{QStringLiteral("Type 2"), QStringLiteral("Type 6")}));
        QCOMPARE(counts(), QStringLiteral("2,3,2"));
    }

    void renamingABrandToANameThatIsThereIsRefused()
    {
        CDlgCarsAll dialog;
        show(dialog);
        TestOffice::whenModal("CDlgAddCar", [](QWidget *window) {
            auto *editor = static_cast<CDlgAddCar *>(window);
            QCOMPARE(editor->name(), QStringLiteral("Kia"));
            editor->findChild<KEdit *>()->setText(QStringLiteral("Peugeot"));
            editor->accept();
            editor->reject();
        });
        dialog.panel(brandLevel)->editButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(names(dialog, brandLevel), (QStringList{QStringLiteral("Kia"), QStringLiteral("Peugeot")}));
    }

    void anEntryThatHasVanishedIsNeitherEditedNorDeleted()
    {
        CDlgCarsAll dialog;
        show(dialog);
        m_office->database().run(QStringLiteral("DELETE FROM CarBrands WHERE iID=%1").arg(m_kia));
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
        m_office->database().run(QStringLiteral("DELETE FROM CarBrands WHERE iID=%1").arg(m_kia));
        typeName(QStringLiteral("Sorento"));
        dialog.addEntry(modelLevel);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM CarModels WHERE sName='Sorento'")), QStringLiteral("0"));
        // The lists show what is there.
        QCOMPARE(dialog.panel(brandLevel)->list()->count(), 1);
        QCOMPARE(selected(dialog, brandLevel), m_peugeot);
        dialog.panel(modelLevel)->list()->selectKey(m_model206);
        m_office->database().run(QStringLiteral("DELETE FROM CarModels WHERE iID=%1").arg(m_model206));
        typeName(QStringLiteral("Type 9"));
        dialog.addEntry(classLevel);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM CarClasses WHERE sName='Type 9'")), QStringLiteral("0"));
        QVERIFY(!dialog.isChanged());
        QCOMPARE(selected(dialog, brandLevel), m_peugeot);
        QVERIFY(!dialog.panel(modelLevel)->list()->selectKey(m_model206));
    }

    void aBrandUsedByAnyCarRecordCannotBeDeletedAndTheWarningNamesTheCarGallery()
    {
        usedEntryStays(
            brandLevel, [this](CTblAutomobilInformations &car) { car.m_iAutomobilType = m_peugeot; },
            QStringLiteral("شما نمی توانید این نوع خودرو را حذف نمایید زیرا استفاده شده است در گالری اتومبیل."));
    }

    void aUsedModelStays()
    {
        usedEntryStays(
            modelLevel, [this](CTblAutomobilInformations &car) { car.m_iModel = m_model206; },
            QStringLiteral("نمی توانید این مدل را حذف نمایید زیرا استفاده شده است."));
    }

    void aUsedClassStays()
    {
        usedEntryStays(
            classLevel, [this](CTblAutomobilInformations &car) { car.m_iBrigade = m_type5; },
            QStringLiteral("نمی توانید این تیپ را حذف نمایید زیرا در گالری اتومبیل استفاده شده است."));
    }

    void deletionIsAskedFor()
    {
        CDlgCarsAll dialog;
        show(dialog);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        dialog.panel(brandLevel)->deleteButton()->click();
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{SuiteMessages::deleteQuestion()});
        QCOMPARE(counts(), QStringLiteral("2,3,2"));
        QCOMPARE(selected(dialog, brandLevel), m_kia);
        // Any other answer goes on.
        g_pDlgYesNo->answerNext(KMessageDialog::Cancel);
        dialog.panel(brandLevel)->deleteButton()->click();
        QCOMPARE(names(dialog, brandLevel), QStringList{QStringLiteral("Peugeot")});
        QCOMPARE(selected(dialog, brandLevel), m_peugeot);
        QCOMPARE(names(dialog, modelLevel).size(), 2);
    }

    void deletingABrandWhoseModelsHaveClassesTakesThemAlong()
    {
        m_office->database().run(QStringLiteral("DELETE FROM CarModels WHERE iID=%1").arg(m_pars));
        CDlgCarsAll dialog;
        show(dialog);
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        dialog.panel(brandLevel)->list()->setFocus();
        QTest::keyClick(dialog.panel(brandLevel)->list(), Qt::Key_Delete);
        QCOMPARE(counts(), QStringLiteral("1,1,0"));
        QCOMPARE(names(dialog, brandLevel), QStringList{QStringLiteral("Kia")});
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
        QCOMPARE(names(dialog, classLevel), QStringList{QStringLiteral("Type 5")});
        QCOMPARE(selected(dialog, classLevel), m_type5);
        QCOMPARE(counts(), QStringLiteral("2,3,1"));
        dialog.panel(modelLevel)->deleteButton()->click();
        QCOMPARE(counts(), QStringLiteral("2,2,0"));
        QCOMPARE(names(dialog, modelLevel), QStringList{QStringLiteral("Pars")});
        QCOMPARE(countText(dialog, classLevel), SuiteMessages::count(0));
        dialog.panel(modelLevel)->deleteButton()->click();
        QCOMPARE(counts(), QStringLiteral("2,1,0"));
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
        QCOMPARE(counts(), QStringLiteral("2,3,2"));
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
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, rights);
        CDlgCarsAll dialog;
        show(dialog);
        if (rights & KSecurity::Write)
            typeName(QStringLiteral("Benz"));
        dialog.panel(brandLevel)->addButton()->click();
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        if (rights & KSecurity::Modify)
            typeName(QStringLiteral("Renamed"));
        dialog.panel(brandLevel)->editButton()->click();
        dialog.panel(modelLevel)->list()->selectKey(m_pars);
        dialog.panel(modelLevel)->deleteButton()->click();
        QTEST(int(g_pDlgWarning->takeShown().size()), "told");
        QCOMPARE(counts(), QStringLiteral("%1,%2,2").arg(rights & KSecurity::Write ? 3 : 2).arg(rights & KSecurity::Delete ? 2 : 3));
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM CarBrands WHERE sName='Renamed'")),
                 rights & KSecurity::Modify ? QStringLiteral("1") : QStringLiteral("0"));
    }

    void withoutTheAccessRightNothingIsShown()
    {
        m_office->logInAs(QStringLiteral("stranger"), rightsForm, 0);
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
        QCOMPARE(counts(), QStringLiteral("2,3,2"));
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
        QVERIFY(!buttonOf(dialog, QStringLiteral("انتخاب"))->isVisible());
        QVERIFY(buttonOf(dialog, QStringLiteral("بازگشت"))->isVisible());
        buttonOf(dialog, QStringLiteral("بازگشت"))->click();
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
        QVERIFY(buttonOf(dialog, QStringLiteral("انتخاب"))->isVisible());
        QVERIFY(!buttonOf(dialog, QStringLiteral("بازگشت")));
        dialog.deleteEntry(brandLevel);
        dialog.panel(brandLevel)->list()->setFocus();
        QTest::keyClick(dialog.panel(brandLevel)->list(), Qt::Key_Insert);
        QTest::keyClick(dialog.panel(brandLevel)->list(), Qt::Key_Delete);
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QCOMPARE(counts(), QStringLiteral("2,3,2"));
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
        QCOMPARE(buttonOf(dialog, QStringLiteral("انتخاب"))->isEnabled(), key(selectedKeys[0]) != 0);
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
            buttonOf(*dialog, QStringLiteral("انتخاب"))->click();
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
        QCOMPARE(counts(), QStringLiteral("0,0,0"));
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
            typeName(QStringLiteral("ELX"));
            dialog->addEntry(classLevel);
            QTest::keyClick(window, Qt::Key_Escape);
        });
        QVERIFY(CDlgCarsAll::Browse(nullptr));
    }

    void anErrorOfTheDatabaseIsToldOnceAndNothingOfAnotherBrandStays()
    {
        CDlgCarsAll dialog;
        show(dialog);
        m_office->database().run(QStringLiteral("RENAME TABLE CarModels TO CarModelsAway"));
        dialog.panel(brandLevel)->list()->selectKey(m_peugeot);
        m_office->database().run(QStringLiteral("RENAME TABLE CarModelsAway TO CarModels"));
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
        QCOMPARE(counts(), QStringLiteral("2,3,2"));
        QCOMPARE(selected(dialog, classLevel), m_type5);
    }
};

static const RegisteredTest<TestCDlgCarsAll, KApplication> registered;
#include "TestCDlgCarsAll.moc"
