// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KMessageDialog.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

// A program that has no windows, such as the one that fills the demo office.
class TestKMessageWithoutWindows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aMessageGoesToTheLog()
    {
        QTest::ignoreMessage(QtWarningMsg, "سند تراز نیست.");
        g_pDlgWarning->Show(u"سند تراز نیست."_s);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"سند تراز نیست."_s});
    }

    void aQuestionIsAnsweredAsIfItsBoxHadBeenClosed()
    {
        QTest::ignoreMessage(QtWarningMsg, "حذف شود؟");
        QCOMPARE(g_pDlgYesNo->Ask(u"حذف شود؟"_s), KMessageDialog::No);
        QTest::ignoreMessage(QtWarningMsg, "ذخیره شود؟");
        QCOMPARE(g_pDlgYesNo->AskOrCancel(u"ذخیره شود؟"_s), KMessageDialog::Cancel);
    }

    void aPreparedAnswerIsGivenAllTheSame()
    {
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        QCOMPARE(g_pDlgYesNo->Ask(u"حذف شود؟"_s), KMessageDialog::Yes);
    }
};

static const RegisteredTest<TestKMessageWithoutWindows, QCoreApplication> registeredKMessageWithoutWindows;
#include "TestKMessageWithoutWindows.moc"
