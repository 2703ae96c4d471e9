// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/tariffs/CDlgAddAutomobilTariff.h"
#include "auto/catalog/tariffs/TariffTexts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/entries/KTextArea.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCheckBox>
#include <QCompleter>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace {

KForm *formOf(const CDlgAddAutomobilTariff &editor)
{
    return editor.findChild<KForm *>();
}

KEdit *titleEdit(const CDlgAddAutomobilTariff &editor)
{
    return formOf(editor)->edit(QStringLiteral("sTitle"));
}

KEdit *amountEdit(const CDlgAddAutomobilTariff &editor)
{
    return formOf(editor)->edit(QStringLiteral("dAmount"));
}

KTextArea *descriptionEdit(const CDlgAddAutomobilTariff &editor)
{
    return formOf(editor)->longText(QStringLiteral("sDesc"));
}

QPushButton *pushButton(const QWidget &window, const QString &caption)
{
    for (QPushButton *button : window.findChildren<QPushButton *>()) {
        if (button->text() == caption)
            return button;
    }
    return nullptr;
}

}

class TestCDlgAddAutomobilTariff : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    QString column(const QString &name, int key)
    {
        return value(QStringLiteral("SELECT %1 FROM AutomobilTariffs WHERE iID=%2").arg(name).arg(key));
    }

    int addTariff(const QString &title, double amount, const QString &description = {}, int status = 0)
    {
        CTblAutomobilTariffs tariff;
        tariff.Open(false, false, true);
        tariff.AddNew();
        tariff.m_sTitle = title;
        tariff.m_dAmount = amount;
        tariff.m_sDesc = description;
        tariff.m_iStatus = status;
        tariff.m_dateCreate = QDateTime(QDate(2020, 1, 2), QTime(13, 45, 10), Qt::UTC);
        tariff.Update(true);
        return static_cast<int>(tariff.GetLastInsertedID());
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilTariffs"));
    }

    void everyLabelIsToTheLetter()
    {
        CDlgAddAutomobilTariff editor(0, false, false);
        QCOMPARE(titleEdit(editor)->accessibleName(), QStringLiteral("نام :"));
        QCOMPARE(amountEdit(editor)->accessibleName(), QStringLiteral("هزينه :"));
        QCOMPARE(descriptionEdit(editor)->accessibleName(), QStringLiteral("توضيحات :"));
        QCOMPARE(editor.findChild<QCheckBox *>()->text(), QStringLiteral("فعال"));
        QVERIFY(pushButton(editor, QStringLiteral("تاييد")));
        QVERIFY(pushButton(editor, QStringLiteral("انصراف")));
        QStringList labels;
        for (const QLabel *label : editor.findChildren<QLabel *>())
            labels << label->text();
        for (const QString &label : {QStringLiteral("نام :"), QStringLiteral("هزينه :"), QStringLiteral("توضيحات :")})
            QCOMPARE(labels.count(label), 1);
    }

    void activeAndCreationDateAreKeptHidden()
    {
        CDlgAddAutomobilTariff editor(0, false, false);
        editor.show();
        QVERIFY(titleEdit(editor)->isVisible());
        QVERIFY(!editor.findChild<QCheckBox *>()->isVisible());
        for (const KDateEdit *date : editor.findChildren<KDateEdit *>())
            QVERIFY(!date->isVisible());
        QCOMPARE(editor.findChild<KDateEdit *>()->accessibleName(), QStringLiteral("تاريخ ايجاد :"));
    }

    void titleEndsInWhatIsDone_data()
    {
        QTest::addColumn<bool>("edit");
        QTest::addColumn<bool>("view");
        QTest::addColumn<QString>("end");
        QTest::newRow("new") << false << false << QStringLiteral(" - جدید");
        QTest::newRow("edit") << true << false << QStringLiteral(" - ویرایش");
        QTest::newRow("view") << false << true << QStringLiteral(" - جدید");
    }

    void titleEndsInWhatIsDone()
    {
        QFETCH(bool, edit);
        QFETCH(bool, view);
        QFETCH(QString, end);
        const int key = edit || view ? addTariff(QStringLiteral("a"), 1) : 0;
        const CDlgAddAutomobilTariff editor(key, edit, view);
        QVERIFY2(editor.windowTitle().endsWith(end), qPrintable(editor.windowTitle()));
        QVERIFY(editor.windowTitle().size() > end.size());
    }

    void fieldsHoldAsManyCharactersAsTheyMay()
    {
        CDlgAddAutomobilTariff editor(0, false, false);
        QCOMPARE(titleEdit(editor)->maxLength(), 50);
        QCOMPARE(descriptionEdit(editor)->maxLength(), 250);
        QCOMPARE(amountEdit(editor)->minimum(), 0.0);
        QCOMPARE(amountEdit(editor)->kind(), KEdit::Kind::Money);
    }

    void aNewTariffIsAddedActiveWithItsDay()
    {
        CDlgAddAutomobilTariff editor(0, false, false);
        titleEdit(editor)->setText(QStringLiteral("سند قطعی"));
        amountEdit(editor)->setText(QStringLiteral("۱٬۲۵۰٬۰۰۰"));
        descriptionEdit(editor)->setText(QStringLiteral("خط یک\nخط دو"));
        QCOMPARE(editor.tariffID(), 0);
        editor.accept();
        QCOMPARE(editor.result(), int(QDialog::Accepted));
        const int key = editor.tariffID();
        QVERIFY(key > 0);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilTariffs")), QStringLiteral("1"));
        QCOMPARE(column(QStringLiteral("sTitle"), key), QStringLiteral("سند قطعی"));
        QCOMPARE(column(QStringLiteral("dAmount"), key).toDouble(), 1250000.0);
        QCOMPARE(column(QStringLiteral("sDesc"), key), QStringLiteral("خط یک\nخط دو"));
        QCOMPARE(column(QStringLiteral("iStatus"), key), QStringLiteral("0"));
        QCOMPARE(column(QStringLiteral("ABS(TIMESTAMPDIFF(MINUTE,dateCreate,NOW()))<5"), key), QStringLiteral("1"));
    }

    void anEditedTariffIsChangedInPlace()
    {
        addTariff(QStringLiteral("other"), 3);
        const int key = addTariff(QStringLiteral("سند"), 100, QStringLiteral("شرح"), 1);
        CDlgAddAutomobilTariff editor(key, true, false);
        QCOMPARE(titleEdit(editor)->text(), QStringLiteral("سند"));
        QCOMPARE(amountEdit(editor)->number(), 100.0);
        QCOMPARE(descriptionEdit(editor)->text(), QStringLiteral("شرح"));
        QVERIFY(!editor.findChild<QCheckBox *>()->isChecked());
        titleEdit(editor)->setText(QStringLiteral("سند نو"));
        amountEdit(editor)->setNumber(0);
        descriptionEdit(editor)->setText(QString());
        editor.accept();
        QCOMPARE(editor.tariffID(), key);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilTariffs")), QStringLiteral("2"));
        QCOMPARE(column(QStringLiteral("sTitle"), key), QStringLiteral("سند نو"));
        QCOMPARE(column(QStringLiteral("dAmount"), key).toDouble(), 0.0);
        QCOMPARE(column(QStringLiteral("sDesc"), key), QString());
        // What the window does not show stays: not active, and created when it was.
        QCOMPARE(column(QStringLiteral("iStatus"), key), QStringLiteral("1"));
        QCOMPARE(column(QStringLiteral("dateCreate"), key), QStringLiteral("2020-01-02 13:45:10"));
        QCOMPARE(value(QStringLiteral("SELECT sTitle FROM AutomobilTariffs WHERE iID<>%1").arg(key)), QStringLiteral("other"));
    }

    void activeIsStoredAsZeroAndInactiveAsOne_data()
    {
        QTest::addColumn<bool>("active");
        QTest::addColumn<QString>("status");
        QTest::newRow("active") << true << QStringLiteral("0");
        QTest::newRow("inactive") << false << QStringLiteral("1");
    }

    void activeIsStoredAsZeroAndInactiveAsOne()
    {
        QFETCH(bool, active);
        QFETCH(QString, status);
        const int key = addTariff(QStringLiteral("a"), 1, {}, active ? 1 : 0);
        CDlgAddAutomobilTariff editor(key, true, false);
        QCOMPARE(editor.findChild<QCheckBox *>()->isChecked(), !active);
        editor.findChild<QCheckBox *>()->setChecked(active);
        editor.accept();
        QCOMPARE(column(QStringLiteral("iStatus"), key), status);
    }

    void aTariffThatAnotherUserDeletedCancelsTheEditor()
    {
        const int key = addTariff(QStringLiteral("a"), 1);
        CDlgAddAutomobilTariff editor(key, true, false);
        editor.show();
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilTariffs"));
        editor.accept();
        QVERIFY(!editor.isVisible());
        QCOMPARE(editor.result(), int(QDialog::Rejected));
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilTariffs")), QStringLiteral("0"));
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void viewingIsReadOnlyAndWritesNothing()
    {
        const int key = addTariff(QStringLiteral("a"), 1, QStringLiteral("x"));
        CDlgAddAutomobilTariff editor(key, false, true);
        QVERIFY(titleEdit(editor)->isReadOnly());
        QVERIFY(amountEdit(editor)->isReadOnly());
        QVERIFY(descriptionEdit(editor)->isReadOnly());
        QCOMPARE(titleEdit(editor)->text(), QStringLiteral("a"));
        QCOMPARE(descriptionEdit(editor)->text(), QStringLiteral("x"));
        titleEdit(editor)->setText(QStringLiteral("b"));
        editor.accept();
        QCOMPARE(editor.result(), int(QDialog::Rejected));
        QCOMPARE(column(QStringLiteral("sTitle"), key), QStringLiteral("a"));
    }

    void aDescriptionAboveTheLimitIsRefusedWithAMessageAndKept()
    {
        CDlgAddAutomobilTariff editor(0, false, false);
        editor.show();
        editor.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&editor));
        descriptionEdit(editor)->setText(QString(251, u'ش'));
        editor.accept();
        QVERIFY(editor.isVisible());
        const QStringList told = g_pDlgWarning->takeShown();
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.constFirst().startsWith(QStringLiteral("توضيحات :")), qPrintable(told.constFirst()));
        QVERIFY(told.constFirst().contains(QStringLiteral("250")));
        QCOMPARE(editor.focusWidget(), descriptionEdit(editor));
        QCOMPARE(descriptionEdit(editor)->text().size(), 251);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilTariffs")), QStringLiteral("0"));
        descriptionEdit(editor)->setText(QString(250, u'ش'));
        editor.accept();
        QCOMPARE(value(QStringLiteral("SELECT CHAR_LENGTH(sDesc) FROM AutomobilTariffs")), QStringLiteral("250"));
    }

    void anErrorOfTheDatabaseKeepsWhatWasTyped()
    {
        CDlgAddAutomobilTariff editor(0, false, false);
        editor.show();
        titleEdit(editor)->setText(QStringLiteral("سند"));
        m_office->database().run(QStringLiteral("RENAME TABLE AutomobilTariffs TO Elsewhere"));
        QTest::mouseClick(pushButton(editor, QStringLiteral("تاييد")), Qt::LeftButton);
        m_office->database().run(QStringLiteral("RENAME TABLE Elsewhere TO AutomobilTariffs"));
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QVERIFY(editor.isVisible());
        QCOMPARE(titleEdit(editor)->text(), QStringLiteral("سند"));
        QTest::mouseClick(pushButton(editor, QStringLiteral("تاييد")), Qt::LeftButton);
        QVERIFY(!editor.isVisible());
        QCOMPARE(value(QStringLiteral("SELECT sTitle FROM AutomobilTariffs")), QStringLiteral("سند"));
    }

    void aDatabaseClosedMeanwhileRefusesAndKeepsWhatWasTyped()
    {
        CDlgAddAutomobilTariff editor(0, false, false);
        editor.show();
        titleEdit(editor)->setText(QStringLiteral("سند"));
        GetDBSetting()->SetClosedDB(true);
        QTest::mouseClick(pushButton(editor, QStringLiteral("تاييد")), Qt::LeftButton);
        QCOMPARE(g_pDlgWarning->takeShown().size() + g_pDlgMessage->takeShown().size(), 1);
        QVERIFY(editor.isVisible());
        QCOMPARE(titleEdit(editor)->text(), QStringLiteral("سند"));
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilTariffs")), QStringLiteral("0"));
    }

    void storedTextsAreOfferedOnceEach()
    {
        addTariff(QStringLiteral("سند قطعی"), 1, QStringLiteral("یک"));
        addTariff(QStringLiteral("سند قطعی"), 2, QStringLiteral("دو"));
        addTariff(QStringLiteral("وکالت"), 3);
        QCOMPARE(TariffTexts::titles(), (QStringList{QStringLiteral("سند قطعی"), QStringLiteral("وکالت")}));
        QStringList descriptions = TariffTexts::descriptions();
        descriptions.sort();
        QCOMPARE(descriptions, (QStringList{QStringLiteral("دو"), QStringLiteral("یک")}));
        CDlgAddAutomobilTariff editor(0, false, false);
        QCompleter *completer = titleEdit(editor)->completer();
        QVERIFY(completer);
        completer->setCompletionPrefix(QStringLiteral("قطعی"));
        QCOMPARE(completer->completionCount(), 1);
        QCOMPARE(completer->currentCompletion(), QStringLiteral("سند قطعی"));
        descriptionEdit(editor)->completer()->setCompletionPrefix(QStringLiteral("دو"));
        QCOMPARE(descriptionEdit(editor)->completer()->currentCompletion(), QStringLiteral("دو"));
    }

    void enterGoesFromNameToAmountToDescription()
    {
        CDlgAddAutomobilTariff editor(0, false, false);
        editor.show();
        editor.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&editor));
        QCOMPARE(editor.focusWidget(), titleEdit(editor));
        QTest::keyClick(titleEdit(editor), Qt::Key_Return);
        QCOMPARE(editor.focusWidget(), amountEdit(editor));
        QTest::keyClick(amountEdit(editor), Qt::Key_Return);
        QCOMPARE(editor.focusWidget(), descriptionEdit(editor));
        QTest::keyClick(descriptionEdit(editor), Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(!editor.isVisible());
        QCOMPARE(editor.result(), int(QDialog::Accepted));
    }
};

static const RegisteredTest<TestCDlgAddAutomobilTariff, KApplication> registered;

#include "TestCDlgAddAutomobilTariff.moc"
