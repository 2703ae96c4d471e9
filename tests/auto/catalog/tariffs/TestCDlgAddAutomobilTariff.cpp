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
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TwoDesks.h"

#include <QCheckBox>
#include <QCompleter>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

KForm *formOf(const CDlgAddAutomobilTariff &editor)
{
    return editor.findChild<KForm *>();
}

KEdit *titleEdit(const CDlgAddAutomobilTariff &editor)
{
    return formOf(editor)->edit(u"sTitle"_s);
}

KEdit *amountEdit(const CDlgAddAutomobilTariff &editor)
{
    return formOf(editor)->edit(u"dAmount"_s);
}

KTextArea *descriptionEdit(const CDlgAddAutomobilTariff &editor)
{
    return formOf(editor)->longText(u"sDesc"_s);
}

}

class TestCDlgAddAutomobilTariff : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    QString column(const QString &name, int key)
    {
        return value(u"SELECT %1 FROM AutomobilTariffs WHERE iID=%2"_s.arg(name).arg(key));
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
        m_office->database().run(u"DELETE FROM AutomobilTariffs"_s);
    }

    void everyLabelIsToTheLetter()
    {
        CDlgAddAutomobilTariff editor(0, false, false);
        QCOMPARE(titleEdit(editor)->accessibleName(), u"نام :"_s);
        QCOMPARE(amountEdit(editor)->accessibleName(), u"هزينه :"_s);
        QCOMPARE(descriptionEdit(editor)->accessibleName(), u"توضيحات :"_s);
        QCOMPARE(editor.findChild<QCheckBox *>()->text(), u"فعال"_s);
        QVERIFY(captioned<QPushButton>(editor, u"تاييد"_s));
        QVERIFY(captioned<QPushButton>(editor, u"انصراف"_s));
        QStringList labels;
        for (const QLabel *label : editor.findChildren<QLabel *>())
            labels << label->text();
        for (const QString &label : {u"نام :"_s, u"هزينه :"_s, u"توضيحات :"_s})
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
        QCOMPARE(editor.findChild<KDateEdit *>()->accessibleName(), u"تاريخ ايجاد :"_s);
    }

    void titleEndsInWhatIsDone_data()
    {
        QTest::addColumn<bool>("edit");
        QTest::addColumn<bool>("view");
        QTest::addColumn<QString>("end");
        QTest::newRow("new") << false << false << u" - جدید"_s;
        QTest::newRow("edit") << true << false << u" - ویرایش"_s;
        QTest::newRow("view") << false << true << u" - جدید"_s;
    }

    void titleEndsInWhatIsDone()
    {
        QFETCH(bool, edit);
        QFETCH(bool, view);
        QFETCH(QString, end);
        const int key = edit || view ? addTariff(u"a"_s, 1) : 0;
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
        titleEdit(editor)->setText(u"سند قطعی"_s);
        amountEdit(editor)->setText(u"۱٬۲۵۰٬۰۰۰"_s);
        descriptionEdit(editor)->setText(u"خط یک\nخط دو"_s);
        QCOMPARE(editor.tariffID(), 0);
        editor.accept();
        QCOMPARE(editor.result(), int(QDialog::Accepted));
        const int key = editor.tariffID();
        QVERIFY(key > 0);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilTariffs"_s), u"1"_s);
        QCOMPARE(column(u"sTitle"_s, key), u"سند قطعی"_s);
        QCOMPARE(column(u"dAmount"_s, key).toDouble(), 1250000.0);
        QCOMPARE(column(u"sDesc"_s, key), u"خط یک\nخط دو"_s);
        QCOMPARE(column(u"iStatus"_s, key), u"0"_s);
        QCOMPARE(column(u"ABS(TIMESTAMPDIFF(MINUTE,dateCreate,NOW()))<5"_s, key), u"1"_s);
    }

    void anEditedTariffIsChangedInPlace()
    {
        addTariff(u"other"_s, 3);
        const int key = addTariff(u"سند"_s, 100, u"شرح"_s, 1);
        CDlgAddAutomobilTariff editor(key, true, false);
        QCOMPARE(titleEdit(editor)->text(), u"سند"_s);
        QCOMPARE(amountEdit(editor)->number(), 100.0);
        QCOMPARE(descriptionEdit(editor)->text(), u"شرح"_s);
        QVERIFY(!editor.findChild<QCheckBox *>()->isChecked());
        titleEdit(editor)->setText(u"سند نو"_s);
        amountEdit(editor)->setNumber(0);
        descriptionEdit(editor)->setText(QString());
        editor.accept();
        QCOMPARE(editor.tariffID(), key);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilTariffs"_s), u"2"_s);
        QCOMPARE(column(u"sTitle"_s, key), u"سند نو"_s);
        QCOMPARE(column(u"dAmount"_s, key).toDouble(), 0.0);
        QCOMPARE(column(u"sDesc"_s, key), QString());
        // What the window does not show stays: not active, and created when it was.
        QCOMPARE(column(u"iStatus"_s, key), u"1"_s);
        QCOMPARE(column(u"dateCreate"_s, key), u"2020-01-02 13:45:10"_s);
        QCOMPARE(value(u"SELECT sTitle FROM AutomobilTariffs WHERE iID<>%1"_s.arg(key)), u"other"_s);
    }

    void activeIsStoredAsZeroAndInactiveAsOne_data()
    {
        QTest::addColumn<bool>("active");
        QTest::addColumn<QString>("status");
        QTest::newRow("active") << true << u"0"_s;
        QTest::newRow("inactive") << false << u"1"_s;
    }

    void activeIsStoredAsZeroAndInactiveAsOne()
    {
        QFETCH(bool, active);
        QFETCH(QString, status);
        const int key = addTariff(u"a"_s, 1, {}, active ? 1 : 0);
        CDlgAddAutomobilTariff editor(key, true, false);
        QCOMPARE(editor.findChild<QCheckBox *>()->isChecked(), !active);
        editor.findChild<QCheckBox *>()->setChecked(active);
        editor.accept();
        QCOMPARE(column(u"iStatus"_s, key), status);
    }

    void aTariffThatAnotherUserDeletedCancelsTheEditor()
    {
        const int key = addTariff(u"a"_s, 1);
        CDlgAddAutomobilTariff editor(key, true, false);
        editor.show();
        m_office->database().run(u"DELETE FROM AutomobilTariffs"_s);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        editor.accept();
        QVERIFY(!editor.isVisible());
        QCOMPARE(editor.result(), int(QDialog::Rejected));
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilTariffs"_s), u"0"_s);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void twoDesks_data() { TwoDesks::addCases(true); }

    void twoDesks()
    {
        QFETCH(TwoDesks::Case, what);
        int key = 0;
        const auto run = [this](const QString &statement) { m_office->database().run(statement); };
        TwoDesks({
                     .reset =
                         [&] {
                             run(u"DELETE FROM AutomobilTariffs"_s);
                             key = addTariff(u"سند"_s, 100, u"شرح"_s);
                         },
                     .open = [&] { return std::make_unique<CDlgAddAutomobilTariff>(key, true, false); },
                     .enter = [](KDialog &window) { amountEdit(static_cast<CDlgAddAutomobilTariff &>(window))->setNumber(300); },
                     .changeOther = [&] { run(u"UPDATE AutomobilTariffs SET sTitle='وکالت'"_s); },
                     .changeSame = [&] { run(u"UPDATE AutomobilTariffs SET dAmount=200"_s); },
                     .remove = [&] { run(u"DELETE FROM AutomobilTariffs"_s); },
                     .stored = [&] { return value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',sTitle,dAmount,sDesc)) FROM AutomobilTariffs"_s); },
                     .merged = u"وکالت/300/شرح"_s,
                     .theirs = u"سند/200/شرح"_s,
                     .mine = u"سند/300/شرح"_s,
                     .renewed = u"سند/300/شرح"_s,
                 })
            .check(what);
    }

    void aTitleThatAnotherDeskAddsMeanwhileIsAskedAbout()
    {
        addTariff(u"سند"_s, 1); // is there already: nobody is asked
        CDlgAddAutomobilTariff editor(0, false, false);
        editor.show();
        titleEdit(editor)->setText(u"وکالت"_s);
        addTariff(u"وکالت"_s, 2);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        editor.accept();
        QVERIFY(editor.isVisible());
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QCOMPARE(editor.focusWidget(), titleEdit(editor));
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilTariffs"_s), u"2"_s);
        titleEdit(editor)->setText(u"سند"_s);
        editor.accept();
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilTariffs"_s), u"3"_s);
    }

    void viewingIsReadOnlyAndWritesNothing()
    {
        const int key = addTariff(u"a"_s, 1, u"x"_s);
        CDlgAddAutomobilTariff editor(key, false, true);
        QVERIFY(titleEdit(editor)->isReadOnly());
        QVERIFY(amountEdit(editor)->isReadOnly());
        QVERIFY(descriptionEdit(editor)->isReadOnly());
        QCOMPARE(titleEdit(editor)->text(), u"a"_s);
        QCOMPARE(descriptionEdit(editor)->text(), u"x"_s);
        titleEdit(editor)->setText(u"b"_s);
        editor.accept();
        QCOMPARE(editor.result(), int(QDialog::Rejected));
        QCOMPARE(column(u"sTitle"_s, key), u"a"_s);
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
        QVERIFY2(told.constFirst().startsWith(u"توضيحات :"_s), qPrintable(told.constFirst()));
        QVERIFY(told.constFirst().contains(u"250"_s));
        QCOMPARE(editor.focusWidget(), descriptionEdit(editor));
        QCOMPARE(descriptionEdit(editor)->text().size(), 251);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilTariffs"_s), u"0"_s);
        descriptionEdit(editor)->setText(QString(250, u'ش'));
        editor.accept();
        QCOMPARE(value(u"SELECT CHAR_LENGTH(sDesc) FROM AutomobilTariffs"_s), u"250"_s);
    }

    void anErrorOfTheDatabaseKeepsWhatWasTyped()
    {
        CDlgAddAutomobilTariff editor(0, false, false);
        editor.show();
        titleEdit(editor)->setText(u"سند"_s);
        m_office->database().run(u"RENAME TABLE AutomobilTariffs TO Elsewhere"_s);
        QTest::mouseClick(captioned<QPushButton>(editor, u"تاييد"_s), Qt::LeftButton);
        m_office->database().run(u"RENAME TABLE Elsewhere TO AutomobilTariffs"_s);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QVERIFY(editor.isVisible());
        QCOMPARE(titleEdit(editor)->text(), u"سند"_s);
        QTest::mouseClick(captioned<QPushButton>(editor, u"تاييد"_s), Qt::LeftButton);
        QVERIFY(!editor.isVisible());
        QCOMPARE(value(u"SELECT sTitle FROM AutomobilTariffs"_s), u"سند"_s);
    }

    void aDatabaseClosedMeanwhileRefusesAndKeepsWhatWasTyped()
    {
        CDlgAddAutomobilTariff editor(0, false, false);
        editor.show();
        titleEdit(editor)->setText(u"سند"_s);
        GetDBSetting()->SetClosedDB(true);
        QTest::mouseClick(captioned<QPushButton>(editor, u"تاييد"_s), Qt::LeftButton);
        QCOMPARE(g_pDlgWarning->takeShown().size() + g_pDlgMessage->takeShown().size(), 1);
        QVERIFY(editor.isVisible());
        QCOMPARE(titleEdit(editor)->text(), u"سند"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilTariffs"_s), u"0"_s);
    }

    void storedTextsAreOfferedOnceEach()
    {
        addTariff(u"سند قطعی"_s, 1, u"یک"_s);
        addTariff(u"سند قطعی"_s, 2, u"دو"_s);
        addTariff(u"وکالت"_s, 3);
        QCOMPARE(TariffTexts::titles(), (QStringList{u"سند قطعی"_s, u"وکالت"_s}));
        QStringList descriptions = TariffTexts::descriptions();
        descriptions.sort();
        QCOMPARE(descriptions, (QStringList{u"دو"_s, u"یک"_s}));
        CDlgAddAutomobilTariff editor(0, false, false);
        QCompleter *completer = titleEdit(editor)->completer();
        QVERIFY(completer);
        completer->setCompletionPrefix(u"قطعی"_s);
        QCOMPARE(completer->completionCount(), 1);
        QCOMPARE(completer->currentCompletion(), u"سند قطعی"_s);
        descriptionEdit(editor)->completer()->setCompletionPrefix(u"دو"_s);
        QCOMPARE(descriptionEdit(editor)->completer()->currentCompletion(), u"دو"_s);
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

static const RegisteredTest<TestCDlgAddAutomobilTariff, KApplication> registeredCDlgAddAutomobilTariff;

#include "TestCDlgAddAutomobilTariff.moc"
