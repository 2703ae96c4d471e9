// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/matching/CDlgMatches.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/attachments/CDlgFileDocs.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/support/ObservedStatements.h"
#include "tests/auto/cars/register/editor/CarEditorOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QDialogButtonBox>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

using Car = CTblAutomobilInformations;
using Dialog = CDlgAddAutomobilInformation;

const QString archiveForm = u"AutomobilInformationArchive"_s;

QString column(const char *name)
{
    return QString::fromLatin1(name);
}

// A value that is in the range of the column and unlike every other one's.
void enterInto(KForm &form, const KFormField &field, int number)
{
    using Kind = KFormField::Kind;
    switch (field.kind) {
    case Kind::Text:
    case Kind::Plate:
        form.edit(field.column)->setText(u"متن %1"_s.arg(number));
        break;
    case Kind::Date:
        form.dateEdit(field.column)->setDate(QDate(2026, 1, 1).addDays(number));
        break;
    case Kind::Flag:
        form.checkBox(field.column)->setChecked(true);
        break;
    case Kind::EditableChoice:
        form.comboBox(field.column)->setEditText(u"بیمه %1"_s.arg(number));
        break;
    case Kind::Lookup: {
        QComboBox *combo = form.comboBox(field.column);
        combo->setCurrentIndex(combo->count() - 1);
        break;
    }
    default:
        if (!field.readOnly)
            form.edit(field.column)->setNumber(1000 + number);
    }
}

int roleOf(const QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(const_cast<QWidget *>(widget))->role();
}

QVariant shownBy(const KForm &form, const KFormField &field)
{
    using Kind = KFormField::Kind;
    switch (field.kind) {
    case Kind::Text:
    case Kind::Plate:
        return form.edit(field.column)->plainText();
    case Kind::Date:
        return form.dateEdit(field.column)->dateTime();
    case Kind::Flag:
        return form.checkBox(field.column)->isChecked() ? 1 : 0;
    case Kind::EditableChoice:
        return form.comboBox(field.column)->currentText();
    case Kind::Lookup:
        return form.key(field.column);
    default:
        return form.edit(field.column)->number();
    }
}

}

// The editor of a car as a whole: modes, what confirming does, the archive.
class TestCDlgAddAutomobilInformation : public QObject
{
    Q_OBJECT

    std::unique_ptr<CarEditorOffice> m_office;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    QString carColumn(const char *name, int key)
    {
        return value(u"SELECT %1 FROM AutomobilInformations WHERE iID=%2"_s.arg(column(name)).arg(key));
    }
    // The whole row but its picture, to see that it was left alone.
    QString row(int key)
    {
        Car car;
        CarEditorOffice::load(car, key);
        QStringList values;
        for (const KMySQL::Column &one : car.columns()) {
            if (one.kind != KMySQL::ColumnKind::LongBlob)
                values << one.name + u'=' + car.value(one.name).toString();
        }
        return values.join(u'|');
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<CarEditorOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init() { m_office->begin(); }

    // --- Opening ---

    void titleTellsTheMode_data()
    {
        QTest::addColumn<EditorMode>("mode");
        QTest::addColumn<QString>("title");
        QTest::newRow("new") << EditorMode::New << u"گالري اتومبيل- جدید"_s;
        QTest::newRow("edit") << EditorMode::Edit << u"گالري اتومبيل- ویرایش"_s;
        QTest::newRow("show") << EditorMode::Show << u"گالري اتومبيل - نمایش"_s;
    }

    void titleTellsTheMode()
    {
        QFETCH(EditorMode, mode);
        QFETCH(QString, title);
        auto dialog = m_office->opened(m_office->addOwnedCar(), mode);
        QCOMPARE(dialog->windowTitle(), title);
    }

    void pagesStandInTheirOrder()
    {
        auto dialog = m_office->opened(m_office->addOwnedCar());
        QStringList titles;
        for (int i = 0; i < dialog->tabs()->count(); ++i)
            titles << dialog->tabs()->button(i)->text();
        QCOMPARE(titles, (QStringList{u"اطلاعات پایه"_s, u"مشخصات فروش"_s, u"پرونده های شخصی"_s}));
        QCOMPARE(dialog->tabs()->currentIndex(), 0);
    }

    void buttonsAndBoxAreToTheLetter()
    {
        auto dialog = m_office->opened(m_office->addOwnedCar([](Car &car) { car.m_iArchiveUserID = 7; }));
        QCOMPARE(dialog->activeBox()->text(), u"فعال"_s);
        QCOMPARE(dialog->unarchiveButton()->text(), u"برگشت از بايگاني"_s);
        QCOMPARE(dialog->demandsButton()->text(), u"تقاضا"_s);
        QStringList captions;
        for (const QAbstractButton *button : dialog->findChild<QDialogButtonBox *>()->buttons())
            captions << button->text();
        captions.sort();
        QStringList expected{u"تاييد"_s, u"انصراف"_s};
        expected.sort();
        QCOMPARE(captions, expected);
    }

    void noTwoWidgetsOfOneRoleBearOneName()
    {
        auto dialog = m_office->opened(m_office->addOwnedCar([](Car &car) { car.m_iArchiveUserID = 7; }));
        QStringList names;
        for (const QWidget *widget : dialog->findChildren<QWidget *>()) {
            if ((widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy() && !widget->accessibleName().isEmpty()
                && !qobject_cast<const QComboBox *>(widget->parentWidget()))
                names << QString::number(roleOf(widget)) + u' ' + widget->accessibleName();
        }
        QVERIFY(names.size() > 80);
        names.sort();
        for (qsizetype i = 1; i < names.size(); ++i)
            QVERIFY2(names.at(i) != names.at(i - 1), qPrintable(names.at(i)));
    }

    void carThatIsNotThereDoesNotOpen()
    {
        QVERIFY(!m_office->opened(4711));
        QVERIFY(!Dialog::EditCar(4711, false, nullptr));
        bool changed = true;
        Dialog::ShowCar(4711, changed, nullptr);
        QVERIFY(!changed);
    }

    void keyBelowOneShowsNothing()
    {
        bool changed = true;
        Dialog::ShowCar(0, changed, nullptr);
        QVERIFY(!changed);
        changed = true;
        Dialog::ShowCar(-1, changed, nullptr);
        QVERIFY(!changed);
    }

    void newCarBeginsAtItsOwnerAndAnOldOneAtItsType()
    {
        auto created = m_office->opened(m_office->addCar(), EditorMode::New);
        QCOMPARE(created->focusWidget(), created->basePage()->owner()->codeEdit());
        auto old = m_office->opened(m_office->addOwnedCar());
        QCOMPARE(old->focusWidget(), old->basePage()->form()->control(column("iAutomobilType")));
    }

    // --- Confirming ---

    void everyFieldOfBothPagesIsStoredAndShownAgain()
    {
        for (const int type : {CTblItems::typeSystem, CTblItems::typeEngineVolume, CTblItems::typeBodyStatus, CTblItems::typeColor,
                               CTblItems::typeSource, CTblItems::typeCountry, CTblItems::typeClearanceCustoms})
            m_office->addItem(type, u"مقدار %1"_s.arg(type));
        const int key = m_office->addOwnedCar();
        auto dialog = m_office->opened(key);
        // The catalog's columns follow each other, so they are entered in that order.
        KForm *base = dialog->basePage()->form();
        base->setKey(column("iAutomobilType"), m_office->peugeot);
        base->setKey(column("iModel"), m_office->model206);
        base->setKey(column("iBrigade"), m_office->type5);
        int number = 0;
        for (KForm *form : {base, dialog->salePage()->form()}) {
            for (const KFormField &field : form->fields()) {
                if (field.column != column("iAutomobilType") && field.column != column("iModel")
                    && field.column != column("iBrigade"))
                    enterInto(*form, field, ++number);
            }
        }
        dialog->salePage()->buyer()->setPersonID(m_office->buyer);
        dialog->accept();
        QVERIFY2(!dialog->isVisible(), qPrintable(g_pDlgWarning->takeShown().join(u'|')));

        Car car;
        m_office->load(car, key);
        auto again = m_office->opened(key);
        for (const auto &[form, entered] : {std::pair(again->basePage()->form(), base),
                                            std::pair(again->salePage()->form(), dialog->salePage()->form())}) {
            for (const KFormField &field : form->fields()) {
                QVERIFY2(!field.readOnly ? shownBy(*entered, field) != QVariant(0) : true, qPrintable(field.column));
                QCOMPARE(shownBy(*form, field), shownBy(*entered, field));
                QVERIFY2(car.value(field.column).toString() == shownBy(*entered, field).toString(), qPrintable(field.column));
            }
        }
        QCOMPARE(car.m_iPersonID, m_office->owner);
        QCOMPARE(car.m_iPersonBuyerID, m_office->buyer);
        QCOMPARE(car.m_bSold, 1);
        QCOMPARE(car.m_iAutomobilType, m_office->peugeot);
        QCOMPARE(car.m_iModel, m_office->model206);
        QCOMPARE(car.m_iBrigade, m_office->type5);
    }

    void savingWithoutAChangeChangesNothing()
    {
        const int key = m_office->addOwnedCar([this](Car &car) {
            car.m_iUserID = 3;
            car.m_iPersonBuyerID = m_office->buyer;
            car.m_iAutomobilType = m_office->peugeot;
            car.m_iModel = 901; // of a model, a class and items that are gone
            car.m_iBrigade = 902;
            car.m_iColor = 903;
            car.m_iSystem = 904;
            car.m_iCountry = 905;
            car.m_iCustomsClearance = 906;
            car.m_iFuel = 9; // codes that no list has
            car.m_iUsageType = 8;
            car.m_iTypeDocument = 7;
            car.m_iMonth = 13;
            car.m_dateCreate = QDateTime(QDate(2026, 5, 1), QTime(9, 30, 15), Qt::UTC);
            car.m_sNumOfPlates = u"12 ب 345 ایران 67"_s;
            car.m_sVIN = u"wrong"_s;
            car.m_sCountry = u"ژاپن"_s;
            car.m_sNameInsurance = u"بیمه ایران"_s;
            car.m_dSoldAmount = 10;
            car.m_dProfitAndLoss = 10;
            car.m_iStatus = 1;
        });
        const QString before = row(key);
        auto dialog = m_office->opened(key);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(row(key), before);
    }

    void confirmingWithoutAnOwnerWarnsAndOpensThePersonPicker()
    {
        const int key = m_office->addCar();
        auto dialog = m_office->opened(key, EditorMode::New);
        dialog->basePage()->form()->edit(column("sDesc"))->setText(u"چیزی"_s);
        dialog->tabs()->setCurrentIndex(1);
        bool picked = false;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            picked = true;
            static_cast<QDialog *>(window)->reject();
        });
        const QString before = row(key);
        dialog->accept();
        QVERIFY(picked);
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا نام مالک را وارد نمائید."_s});
        QCOMPARE(dialog->tabs()->currentIndex(), 0);
        QCOMPARE(row(key), before);
        QCOMPARE(dialog->basePage()->form()->edit(column("sDesc"))->text(), u"چیزی"_s);
    }

    void ownerThatIsGoneCountsAsNone()
    {
        const int key = m_office->addCar([](Car &car) { car.m_iPersonID = 4711; });
        auto dialog = m_office->opened(key);
        TestOffice::whenModal("KDialogHolder", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(carColumn("iPersonID", key), u"4711"_s);
    }

    void ownerEqualToBuyerWarnsAndWritesNothingAndCorrectingEitherLetsTheSavePass_data()
    {
        QTest::addColumn<bool>("correctsOwner");
        QTest::newRow("the owner is corrected") << true;
        QTest::newRow("the buyer is corrected") << false;
    }

    void ownerEqualToBuyerWarnsAndWritesNothingAndCorrectingEitherLetsTheSavePass()
    {
        QFETCH(bool, correctsOwner);
        const int key = m_office->addOwnedCar();
        const QString before = row(key);
        auto dialog = m_office->opened(key);
        dialog->basePage()->form()->edit(column("sDesc"))->setText(u"چیزی"_s);
        dialog->salePage()->buyer()->setPersonID(m_office->owner);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"شخص مالک و خریدار یکی است لطفا اصلاح کنید."_s});
        QCOMPARE(row(key), before);
        (correctsOwner ? dialog->basePage()->owner() : dialog->salePage()->buyer())->setPersonID(m_office->buyer);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QCOMPARE(carColumn("sDesc", key), u"چیزی"_s);
        QCOMPARE(carColumn("iPersonID", key).toInt(), correctsOwner ? m_office->buyer : m_office->owner);
        QCOMPARE(carColumn("iPersonBuyerID", key).toInt(), correctsOwner ? m_office->owner : m_office->buyer);
    }

    void carWithoutABuyerIsSaved()
    {
        const int key = m_office->addOwnedCar();
        auto dialog = m_office->opened(key);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void buyerDeletedFromThePersonsIsKeptAndSavedAgain()
    {
        const int key = m_office->addOwnedCar([](Car &car) { car.m_iPersonBuyerID = 4711; });
        auto dialog = m_office->opened(key);
        QCOMPARE(dialog->salePage()->buyer()->name(), QString());
        QCOMPARE(dialog->salePage()->buyer()->codeEdit()->text(), QString());
        dialog->basePage()->form()->edit(column("sDesc"))->setText(u"چیزی"_s);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(carColumn("iPersonBuyerID", key), u"4711"_s);
        QCOMPARE(carColumn("sDesc", key), u"چیزی"_s);
    }

    void carFirstSavedByAUserKeepsThatUserOnLaterSavesByOthers()
    {
        const int key = m_office->addOwnedCar();
        QCOMPARE(carColumn("iUserID", key), u"0"_s);
        m_office->opened(key)->accept();
        QCOMPARE(carColumn("iUserID", key).toInt(), m_office->adminID());
        const int clerk = m_office->logInAs(u"clerk"_s, u"AutomobilInformations"_s, KSecurity::allRights);
        QVERIFY(clerk != m_office->adminID());
        auto dialog = m_office->opened(key);
        dialog->basePage()->form()->edit(column("sDesc"))->setText(u"چیزی"_s);
        dialog->accept();
        QCOMPARE(carColumn("sDesc", key), u"چیزی"_s);
        QCOMPARE(carColumn("iUserID", key).toInt(), m_office->adminID());
    }

    void uncheckingActiveMakesTheCarInactiveAndCheckingActiveAgain()
    {
        const int key = m_office->addOwnedCar();
        auto dialog = m_office->opened(key);
        QVERIFY(dialog->activeBox()->isChecked());
        dialog->activeBox()->setChecked(false);
        dialog->accept();
        QCOMPARE(carColumn("iStatus", key), u"1"_s);
        auto again = m_office->opened(key);
        QVERIFY(!again->activeBox()->isChecked());
        again->activeBox()->setChecked(true);
        again->accept();
        QCOMPARE(carColumn("iStatus", key), u"0"_s);
    }

    void entryThatIsNoValueIsToldAndKept_data()
    {
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("date");
        QTest::addColumn<QString>("label");
        QTest::newRow("base page") << 0 << column("dateInsurance") << u"تاريخ بيمه :"_s;
        QTest::newRow("sale page") << 1 << column("dateBuy") << u"تاريخ خريد :"_s;
    }

    void entryThatIsNoValueIsToldAndKept()
    {
        QFETCH(int, page);
        QFETCH(QString, date);
        QFETCH(QString, label);
        const int key = m_office->addOwnedCar();
        auto dialog = m_office->opened(key);
        dialog->tabs()->setCurrentIndex(2);
        KForm *form = page == 0 ? dialog->basePage()->form() : dialog->salePage()->form();
        form->dateEdit(date)->setText(u"1405/13/40"_s);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        const QStringList told = g_pDlgWarning->takeShown();
        QCOMPARE(told.size(), 1);
        QVERIFY(told.constFirst().startsWith(label));
        QCOMPARE(dialog->tabs()->currentIndex(), page);
        QCOMPARE(dialog->focusWidget(), form->dateEdit(date));
        QCOMPARE(form->dateEdit(date)->text(), u"1405/13/40"_s);
    }

    void ownerIsAskedForBeforeAnythingElseIsFoundWrong()
    {
        auto dialog = m_office->opened(m_office->addCar(), EditorMode::New);
        dialog->basePage()->form()->dateEdit(column("dateInsurance"))->setText(u"1405/13/40"_s);
        TestOffice::whenModal("KDialogHolder", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        dialog->accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا نام مالک را وارد نمائید."_s});
    }

    void failedSaveKeepsWhatWasTypedAndTheRow()
    {
        const int key = m_office->addOwnedCar();
        auto dialog = m_office->opened(key);
        dialog->basePage()->form()->edit(column("sDesc"))->setText(u"چیزی"_s);
        m_office->database().run(u"RENAME TABLE AutomobilInformations TO CarsAway"_s);
        dialog->accept();
        m_office->database().run(u"RENAME TABLE CarsAway TO AutomobilInformations"_s);
        QVERIFY(dialog->isVisible());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(dialog->basePage()->form()->edit(column("sDesc"))->text(), u"چیزی"_s);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(carColumn("sDesc", key), u"چیزی"_s);
    }

    void cancellingWritesNothing()
    {
        const int key = m_office->addOwnedCar();
        const QString before = row(key);
        auto dialog = m_office->opened(key);
        dialog->basePage()->form()->edit(column("sDesc"))->setText(u"چیزی"_s);
        dialog->activeBox()->setChecked(false);
        QTest::keyClick(dialog.get(), Qt::Key_Escape);
        QVERIFY(!dialog->isVisible());
        QCOMPARE(row(key), before);
    }

    void closedDatabaseRefusesToEditAndToSave()
    {
        const int key = m_office->addOwnedCar();
        auto dialog = m_office->opened(key);
        GetDBSetting()->SetClosedDB(true);
        dialog->basePage()->form()->edit(column("sDesc"))->setText(u"چیزی"_s);
        dialog->accept();
        const bool stayed = dialog->isVisible();
        QVERIFY_THROWS_EXCEPTION(KAccountingError, (void)Dialog::EditCar(key, false, nullptr));
        GetDBSetting()->SetClosedDB(false);
        QVERIFY(stayed);
        QCOMPARE(carColumn("sDesc", key), QString());
    }

    void editCarTellsWhetherTheUserConfirmed()
    {
        const int key = m_office->addOwnedCar();
        TestOffice::whenModal("CDlgAddAutomobilInformation", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
        QVERIFY(Dialog::EditCar(key, false, nullptr));
        TestOffice::whenModal("CDlgAddAutomobilInformation", [](QWidget *window) {
            QCOMPARE(window->windowTitle(), u"گالري اتومبيل- جدید"_s);
            static_cast<QDialog *>(window)->reject();
        });
        QVERIFY(!Dialog::EditCar(key, true, nullptr));
    }

    // --- Showing ---

    void viewingNeverWritesWhateverIsTyped()
    {
        const int key = m_office->addOwnedCar([](Car &car) { car.m_sDesc = u"پیش"_s; });
        const QString before = row(key);
        auto dialog = m_office->opened(key, EditorMode::Show);
        for (KForm *form : {dialog->basePage()->form(), dialog->salePage()->form()}) {
            for (const KFormField &field : form->fields()) {
                const auto *line = qobject_cast<QLineEdit *>(form->control(field.column));
                QVERIFY2(line ? line->isReadOnly() : !form->control(field.column)->isEnabled(), qPrintable(field.column));
                if (QPushButton *button = form->button(field.column))
                    QVERIFY2(!button->isVisibleTo(dialog.get()), qPrintable(field.column));
            }
        }
        QTest::keyClicks(dialog->basePage()->form()->edit(column("sDesc")), u"more"_s);
        dialog->basePage()->form()->edit(column("sDesc"))->setText(u"دیگر"_s);
        QVERIFY(!dialog->activeBox()->isEnabled());
        ObservedStatements written({u"UPDATE"_s, u"INSERT"_s, u"DELETE"_s});
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(dialog->result(), int(QDialog::Rejected));
        QVERIFY2(written.taken().isEmpty(), qPrintable(written.taken().join(u'\n')));
        QCOMPARE(row(key), before);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void showCarComesBackUnchanged()
    {
        const int key = m_office->addOwnedCar();
        bool changed = true;
        TestOffice::whenModal("CDlgAddAutomobilInformation", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
        Dialog::ShowCar(key, changed, nullptr);
        QVERIFY(!changed);
    }

    // --- Archive ---

    void backFromTheArchiveIsOfferedForAnArchivedCarOnly()
    {
        auto plain = m_office->opened(m_office->addOwnedCar());
        QVERIFY(!plain->unarchiveButton()->isVisible());
        const int key = m_office->addOwnedCar([](Car &car) { car.m_iArchiveUserID = 5; });
        auto archived = m_office->opened(key);
        QVERIFY(archived->unarchiveButton()->isVisible());
        GetDBSetting()->SetClosedDB(true);
        auto closed = m_office->opened(key, EditorMode::Show);
        const bool offered = closed->unarchiveButton()->isVisible();
        GetDBSetting()->SetClosedDB(false);
        QVERIFY(!offered);
    }

    void backFromTheArchiveWritesByCodeTellsAndCloses()
    {
        const QDateTime day(QDate(2026, 4, 4), QTime(8, 0), Qt::UTC);
        const int key = m_office->addOwnedCar([&](Car &car) {
            car.m_iArchiveUserID = 5;
            car.m_dateArchive = day;
        });
        bool changed = false;
        QStringList statements;
        TestOffice::whenModal("CDlgAddAutomobilInformation", [&](QWidget *window) {
            const ObservedStatements written({u"UPDATE"_s});
            auto *dialog = static_cast<Dialog *>(window);
            dialog->unarchiveButton()->click();
            statements = written.taken();
            QVERIFY(!dialog->isVisible());
            QCOMPARE(dialog->result(), int(QDialog::Rejected));
        });
        Dialog::ShowCar(key, changed, nullptr);
        QVERIFY(changed);
        QCOMPARE(statements, (QStringList{u"UPDATE AutomobilInformations SET iArchiveUserID=0 WHERE iCode=%1 LIMIT 1"_s.arg(carColumn("iCode", key))}));
        QCOMPARE(carColumn("iArchiveUserID", key), u"0"_s);
        QVERIFY(!carColumn("dateArchive", key).isEmpty());
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"این نامه از حالت بایگانی خارج شد."_s});
    }

    void backFromTheArchiveWhileEditingTellsTheListToo()
    {
        const int key = m_office->addOwnedCar([](Car &car) { car.m_iArchiveUserID = 5; });
        TestOffice::whenModal("CDlgAddAutomobilInformation", [](QWidget *window) {
            auto *dialog = static_cast<Dialog *>(window);
            dialog->basePage()->form()->edit(column("sDesc"))->setText(u"چیزی"_s);
            dialog->unarchive();
        });
        bool changed = false;
        QVERIFY(!Dialog::EditCar(key, false, nullptr, &changed));
        QVERIFY(changed);
        QCOMPARE(carColumn("sDesc", key), QString());
    }

    void backFromTheArchiveWithoutItsRightDoesNothing()
    {
        const int key = m_office->addOwnedCar([](Car &car) { car.m_iArchiveUserID = 5; });
        m_office->logInAs(u"stranger"_s, archiveForm, 0);
        auto dialog = m_office->opened(key);
        dialog->unarchiveButton()->click();
        QVERIFY(dialog->isVisible());
        QVERIFY(!dialog->refreshNeeded());
        QCOMPARE(carColumn("iArchiveUserID", key), u"5"_s);
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(archiveForm, KSecurity::Write)});
        m_office->logInAs(u"archivist"_s, archiveForm, KSecurity::Access);
        auto allowed = m_office->opened(key);
        allowed->unarchiveButton()->click();
        QCOMPARE(carColumn("iArchiveUserID", key), u"0"_s);
    }

    // --- The window's other commands ---

    void demandButtonListsTheDemandsThatTheCarFits_data()
    {
        QTest::addColumn<EditorMode>("mode");
        QTest::newRow("edit") << EditorMode::Edit;
        QTest::newRow("show") << EditorMode::Show;
    }

    void demandButtonListsTheDemandsThatTheCarFits()
    {
        QFETCH(EditorMode, mode);
        auto dialog = m_office->opened(m_office->addOwnedCar(), mode);
        QString title;
        TestOffice::whenModal("CDlgMatches", [&](QWidget *window) {
            title = window->windowTitle();
            static_cast<QDialog *>(window)->reject();
        });
        dialog->demandsButton()->click();
        QCOMPARE(title, u"متقاضیان"_s);
        QVERIFY(dialog->isVisible());
    }

    // A user who enters a new car asks at once who wants it.
    void demandsAreMatchedWithWhatIsEnteredAndNotYetSaved()
    {
        const int white = m_office->addItem(CTblItems::typeColor, u"سفید"_s);
        m_office->addDemand([&](CTblAutomobilDemands &demand) {
            demand.m_iPersonID = m_office->buyer;
            demand.m_iAutomobilType = m_office->peugeot;
            demand.m_iColor = white;
            demand.m_iModelFrom = demand.m_iModelUpTo = 1400;
            demand.m_dAmountFrom = 500;
        });
        m_office->addDemand([&](CTblAutomobilDemands &demand) {
            demand.m_iPersonID = m_office->buyer;
            demand.m_iAutomobilType = m_office->saipa;
        });
        const int key = m_office->addOwnedCar([&](Car &car) { car.m_iAutomobilType = m_office->saipa; });
        auto dialog = m_office->opened(key);
        KForm &form = *dialog->basePage()->form();
        form.setKey(u"iAutomobilType"_s, m_office->peugeot);
        form.setKey(u"iColor"_s, white);
        form.edit(u"iYear"_s)->setText(u"1400"_s);
        form.edit(u"dAmount"_s)->setText(u"600"_s);
        QString subject;
        QStringList fits;
        TestOffice::whenModal("CDlgMatches", [&](QWidget *window) {
            auto *matches = static_cast<CDlgMatches *>(window);
            subject = matches->subject();
            for (int row = 0; row < matches->list()->count(); ++row)
                fits << matches->list()->cellText(row, 1) + u' ' + matches->list()->cellText(row, 5);
            matches->reject();
        });
        dialog->demandsButton()->click();
        QCOMPARE(fits, QStringList{u"100% پژو"_s});
        QCOMPARE(subject, u"خودروی 1: پژو، سفید، سال تولید 1400، مبلغ 600"_s);
        // Asking saves nothing.
        QCOMPARE(carColumn("iAutomobilType", key), QString::number(m_office->saipa));
    }

    void personalFilesAreThoseOfTheCar()
    {
        const int key = m_office->addOwnedCar();
        QTemporaryDir folder;
        QFile file(folder.filePath(u"سند.txt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("a");
        file.close();
        auto dialog = m_office->opened(key);
        dialog->tabs()->setCurrentIndex(2);
        auto *files = qobject_cast<CDlgFileDocs *>(dialog->tabs()->currentPage());
        QVERIFY(files);
        QVERIFY(files->addFile(file.fileName()));
        QCOMPARE(value(u"SELECT CONCAT(iTable,'|',iRecordID,'|',iScope,'|',iUserID) FROM FileDocs"_s),
                 u"68|%1|1|%2"_s.arg(key).arg(m_office->adminID()));
    }
};

static const RegisteredTest<TestCDlgAddAutomobilInformation, KApplication> registeredCDlgAddAutomobilInformation;

#include "TestCDlgAddAutomobilInformation.moc"
