// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CDlgAddCar.h"

#include "suite/accounting/frame/KApplication.h"
#include "suite/db/CMySQLException.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QPushButton>

namespace {

const QString heading = QStringLiteral("مدل خودرو");
const QString emptyText = QStringLiteral("لطفا نوع خودرو را مشخص نماید.");

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
        QCOMPARE(added.windowTitle(), heading + QStringLiteral(" - جدید"));
        CDlgAddCar edited(heading);
        edited.setEdited(4, QStringLiteral("206"));
        QCOMPARE(edited.windowTitle(), heading + QStringLiteral(" - ویرایش"));
        QCOMPARE(edited.name(), QStringLiteral("206"));
        QCOMPARE(nameOf(edited)->selectedText(), QStringLiteral("206"));
    }

    void nameHoldsFiftyCharactersAndHasItsLabel()
    {
        const CDlgAddCar dialog(heading);
        QCOMPARE(nameOf(dialog)->maxLength(), 50);
        QCOMPARE(nameOf(dialog)->accessibleName(), QStringLiteral("نام :"));
    }

    void anEmptyOrBlankNameIsRefusedWithTheSameMessageAtEveryLevel_data()
    {
        QTest::addColumn<QString>("heading");
        QTest::addColumn<QString>("name");
        for (const char *level : {"نوع خودرو", "مدل خودرو", "تیپ خودرو"}) {
            QTest::addRow("%s, empty", level) << QString::fromUtf8(level) << QString();
            QTest::addRow("%s, blank", level) << QString::fromUtf8(level) << QStringLiteral("   ");
            QTest::addRow("%s, nothing that is seen", level) << QString::fromUtf8(level) << QStringLiteral(" \u200c\u0640 ");
        }
    }

    void anEmptyOrBlankNameIsRefusedWithTheSameMessageAtEveryLevel()
    {
        QFETCH(QString, heading);
        QFETCH(QString, name);
        CDlgAddCar dialog(heading);
        dialog.setSave([](const QString &) { QFAIL("there was nothing to save"); });
        dialog.show();
        nameOf(dialog)->setText(name);
        dialog.findChild<QPushButton *>()->setFocus();
        dialog.accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{emptyText});
        QVERIFY(dialog.isVisible());
        QCOMPARE(dialog.focusWidget(), nameOf(dialog));
        QCOMPARE(nameOf(dialog)->text(), name);
    }

    void okTrimsAndStandardizesTheName()
    {
        CDlgAddCar dialog(heading);
        QString saved;
        dialog.setSave([&saved](const QString &name) { saved = name; });
        nameOf(dialog)->setText(QStringLiteral("  كيا  ۲۰۶ "));
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(dialog.name(), QStringLiteral("کیا 206"));
        QCOMPARE(saved, QStringLiteral("کیا 206"));
    }

    void enterInTheNameIsOk()
    {
        CDlgAddCar dialog(heading);
        dialog.show();
        nameOf(dialog)->setFocus();
        QTest::keyClicks(nameOf(dialog), QStringLiteral("206"));
        QTest::keyClick(nameOf(dialog), Qt::Key_Return);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(dialog.name(), QStringLiteral("206"));
    }

    void withoutTheFlagNoDuplicateIsLookedFor()
    {
        const int model = m_office->addModel(m_office->addBrand(QStringLiteral("پژو")), QStringLiteral("206"));
        CDlgAddCar dialog(heading);
        dialog.setParentKey(model);
        nameOf(dialog)->setText(QStringLiteral("206"));
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void theDuplicateCheckFindsAModelWhoseOwnKeyIsTheParent()
    {
        const int model = m_office->addModel(m_office->addBrand(QStringLiteral("پژو")), QStringLiteral("206"));
        CDlgAddCar dialog(heading);
        dialog.setCheckDuplicates(true);
        dialog.setParentKey(model);
        dialog.show();
        nameOf(dialog)->setText(QStringLiteral("206"));
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
        const int model = m_office->addModel(m_office->addBrand(QStringLiteral("پژو")), QStringLiteral("206"));
        CDlgAddCar dialog(heading);
        dialog.setCheckDuplicates(true);
        dialog.setEdited(model, QStringLiteral("206"));
        dialog.setParentKey(model);
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void aRefusedSaveIsToldAndKeepsWhatWasTyped()
    {
        CDlgAddCar dialog(heading);
        dialog.setSave([](const QString &) {
            throw CMySQLException(CMySQLException::Category::DuplicateKey, 1062, QStringLiteral("Duplicate entry"));
        });
        dialog.show();
        nameOf(dialog)->setText(QStringLiteral("پژو"));
        dialog.accept();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QVERIFY(dialog.isVisible());
        QCOMPARE(nameOf(dialog)->text(), QStringLiteral("پژو"));
        QCOMPARE(dialog.focusWidget(), nameOf(dialog));
        dialog.setSave({});
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }
};

static const RegisteredTest<TestCDlgAddCar, KApplication> registered;
#include "TestCDlgAddCar.moc"
