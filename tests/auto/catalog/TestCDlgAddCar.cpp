// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CDlgAddCar.h"

#include "suite/accounting/changes/RecordHistory.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QPushButton>
#include <QScopeGuard>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString heading = u"مدل خودرو"_s;
const QString emptyText = u"لطفا نوع خودرو را مشخص نماید."_s;

QPushButton *historyOf(const CDlgAddCar &dialog)
{
    const QList<QPushButton *> buttons = dialog.findChildren<QPushButton *>();
    const auto found = std::ranges::find(buttons, RecordHistory::caption(), &QPushButton::text);
    return found == buttons.cend() ? nullptr : *found;
}

KEdit *nameOf(const CDlgAddCar &dialog)
{
    return dialog.findChild<KEdit *>();
}

}

class TestCDlgAddCar : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init() { m_office->clear(); }

    void titleTellsNewAndEdited()
    {
        CDlgAddCar added(heading);
        QCOMPARE(added.windowTitle(), heading + u" - جدید"_s);
        CDlgAddCar edited(heading);
        edited.setEdited(4, u"206"_s);
        QCOMPARE(edited.windowTitle(), heading + u" - ویرایش"_s);
        QCOMPARE(edited.name(), u"206"_s);
        QCOMPARE(nameOf(edited)->selectedText(), u"206"_s);
    }

    void historyIsOfTheEditedEntry()
    {
        static qint32 shown = 0;
        RecordHistory::setWindow([](const QString &table, qint32 key, QWidget *) { shown = table == "CarModels"_L1 ? key : -1; });
        const auto reset = qScopeGuard([] { RecordHistory::setWindow(nullptr); });
        CDlgAddCar edited(heading);
        edited.setEdited(4, u"206"_s);
        edited.offerHistory(u"CarModels"_s);
        edited.show();
        QPushButton *button = historyOf(edited);
        QVERIFY(button);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(shown, 4);
        CDlgAddCar added(heading);
        added.offerHistory(u"CarModels"_s);
        QVERIFY(!historyOf(added));
    }

    void nameHoldsFiftyCharactersAndHasItsLabel()
    {
        const CDlgAddCar dialog(heading);
        QCOMPARE(nameOf(dialog)->maxLength(), 50);
        QCOMPARE(nameOf(dialog)->accessibleName(), u"نام :"_s);
    }

    void anEmptyOrBlankNameIsRefusedWithTheSameMessageAtEveryLevel_data()
    {
        QTest::addColumn<QString>("heading");
        QTest::addColumn<QString>("name");
        for (const char *level : {"نوع خودرو", "مدل خودرو", "تیپ خودرو"}) {
            QTest::addRow("%s, empty", level) << QString::fromUtf8(level) << QString();
            QTest::addRow("%s, blank", level) << QString::fromUtf8(level) << u"   "_s;
            QTest::addRow("%s, nothing that is seen", level) << QString::fromUtf8(level) << u" \u200c\u0640 "_s;
        }
    }

    void anEmptyOrBlankNameIsRefusedWithTheSameMessageAtEveryLevel()
    {
        QFETCH(QString, heading);
        QFETCH(QString, name);
        CDlgAddCar dialog(heading);
        bool asked = false;
        dialog.setSave([&asked](const QString &) { return asked = true; });
        dialog.show();
        nameOf(dialog)->setText(name);
        dialog.findChild<QPushButton *>()->setFocus();
        dialog.accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{emptyText});
        QVERIFY(!asked);
        QVERIFY(dialog.isVisible());
        QCOMPARE(dialog.focusWidget(), nameOf(dialog));
        QCOMPARE(nameOf(dialog)->text(), name);
    }

    void okTrimsAndStandardizesTheName()
    {
        CDlgAddCar dialog(heading);
        QString saved;
        dialog.setSave([&saved](const QString &name) {
            saved = name;
            return true;
        });
        nameOf(dialog)->setText(u"  كيا  ۲۰۶ "_s);
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(dialog.name(), u"کیا 206"_s);
        QCOMPARE(saved, u"کیا 206"_s);
    }

    void enterInTheNameIsOk()
    {
        CDlgAddCar dialog(heading);
        dialog.show();
        nameOf(dialog)->setFocus();
        QTest::keyClicks(nameOf(dialog), u"206"_s);
        QTest::keyClick(nameOf(dialog), Qt::Key_Return);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(dialog.name(), u"206"_s);
    }

    void withoutTheFlagNoDuplicateIsLookedFor()
    {
        const int model = m_office->addModel(m_office->addBrand(u"پژو"_s), u"206"_s);
        CDlgAddCar dialog(heading);
        dialog.setParentKey(model);
        nameOf(dialog)->setText(u"206"_s);
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void theDuplicateCheckFindsAModelWhoseOwnKeyIsTheParent()
    {
        const int model = m_office->addModel(m_office->addBrand(u"پژو"_s), u"206"_s);
        CDlgAddCar dialog(heading);
        dialog.setCheckDuplicates(true);
        dialog.setParentKey(model);
        dialog.show();
        nameOf(dialog)->setText(u"206"_s);
        dialog.accept();
        // A warning without a word.
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QString()});
        QVERIFY(dialog.isVisible());
        QCOMPARE(dialog.focusWidget(), nameOf(dialog));
        dialog.setParentKey(model + 1);
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void theDuplicateCheckPassesTheEditedEntryItself()
    {
        const int model = m_office->addModel(m_office->addBrand(u"پژو"_s), u"206"_s);
        CDlgAddCar dialog(heading);
        dialog.setCheckDuplicates(true);
        dialog.setEdited(model, u"206"_s);
        dialog.setParentKey(model);
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void aRefusedSaveIsToldAndKeepsWhatWasTyped()
    {
        CDlgAddCar dialog(heading);
        dialog.setSave([](const QString &) -> bool {
            throw CMySQLException(CMySQLException::Category::DuplicateKey, 1062, u"Duplicate entry"_s);
        });
        dialog.show();
        nameOf(dialog)->setText(u"پژو"_s);
        dialog.accept();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QVERIFY(dialog.isVisible());
        QCOMPARE(nameOf(dialog)->text(), u"پژو"_s);
        QCOMPARE(dialog.focusWidget(), nameOf(dialog));
        dialog.setSave({});
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }
};

static const RegisteredTest<TestCDlgAddCar, KApplication> registeredCDlgAddCar;
#include "TestCDlgAddCar.moc"
