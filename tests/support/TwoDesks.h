// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/CDlgRowConflict.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/frame/KDialog.h"

#include <QTest>

#include <functional>
#include <memory>

// A window on a row that another desk changes while it is open. What a test says of its window, the checks of all windows hold
// against the database.
struct TwoDesks
{
    enum class Case {
        Merged,
        TakesTheirs,
        TakesMine,
        GoesBack,
        SavedAsNew,
        LeftGone,
        PressedTwice
    };

    std::function<void()> reset; // the row as both desks open it
    std::function<std::unique_ptr<KDialog>()> open;
    std::function<void(KDialog &)> enter; // this desk's change
    std::function<void()> changeOther;    // by the other desk: another field
    std::function<void()> changeSame;     // by the other desk: the same field
    std::function<void()> remove;         // by the other desk; none where the row is always there
    // What is stored now, and what it is to be: the row with both changes, the other desk's change of the same field, this desk's.
    std::function<QString()> stored;
    QString merged;
    QString theirs;
    QString mine;
    QString gone = {};    // after the removal
    QString renewed = {}; // after the removal and this desk's saving it as a new one; empty: no new one is offered

    static void addCases(bool canBeGone)
    {
        QTest::addColumn<Case>("what");
        QTest::newRow("different fields are merged") << Case::Merged;
        QTest::newRow("the same field: theirs") << Case::TakesTheirs;
        QTest::newRow("the same field: mine") << Case::TakesMine;
        QTest::newRow("the same field: back to the window") << Case::GoesBack;
        QTest::newRow("pressed twice") << Case::PressedTwice;
        if (!canBeGone)
            return;
        QTest::newRow("gone: saved as a new one") << Case::SavedAsNew;
        QTest::newRow("gone: left so") << Case::LeftGone;
    }

    void check(Case what) const
    {
        reset();
        CDlgRowConflict::takeShown();
        g_pDlgYesNo->takeShown();
        const std::unique_ptr<KDialog> window = open();
        window->show();
        enter(*window);
        QCOMPARE(CDlgRowConflict::takeShown(), QStringList());
        switch (what) {
        case Case::Merged:
            changeOther();
            return checkSaved(*window, merged, 0);
        case Case::TakesTheirs:
            changeSame();
            CDlgRowConflict::answerNext(CDlgRowConflict::Answer::TakeTheirs);
            return checkSaved(*window, theirs, 1);
        case Case::TakesMine:
            changeSame();
            CDlgRowConflict::answerNext(CDlgRowConflict::Answer::TakeMine);
            return checkSaved(*window, mine, 1);
        case Case::GoesBack:
            return checkBack(*window);
        case Case::SavedAsNew:
        case Case::LeftGone:
            return checkGone(*window, what == Case::SavedAsNew);
        case Case::PressedTwice:
            window->accept();
            window->accept();
            QCOMPARE(stored(), mine);
        }
    }

private:
    void checkSaved(KDialog &window, const QString &expected, int conflicts) const
    {
        window.accept();
        QVERIFY(!window.isVisible());
        QCOMPARE(window.result(), int(QDialog::Accepted));
        const QStringList shown = CDlgRowConflict::takeShown();
        QVERIFY2((shown.size() > 0) == (conflicts > 0), qPrintable(shown.join(u'\n')));
        QCOMPARE(stored(), expected);
    }

    // Nothing is written, and what was entered is still there for the next try.
    void checkBack(KDialog &window) const
    {
        changeSame();
        CDlgRowConflict::answerNext(CDlgRowConflict::Answer::GoBack);
        window.accept();
        QVERIFY(window.isVisible());
        QCOMPARE(stored(), theirs);
        CDlgRowConflict::takeShown();
        CDlgRowConflict::answerNext(CDlgRowConflict::Answer::TakeMine);
        checkSaved(window, mine, 1);
    }

    void checkGone(KDialog &window, bool asNew) const
    {
        remove();
        QCOMPARE(stored(), gone);
        g_pDlgYesNo->takeShown();
        g_pDlgWarning->takeShown();
        g_pDlgYesNo->answerNext(asNew ? KMessageDialog::Yes : KMessageDialog::No);
        window.accept();
        const QStringList told = g_pDlgYesNo->takeShown() + g_pDlgWarning->takeShown();
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.constFirst().contains(QStringLiteral("حذف کرده است")), qPrintable(told.constFirst()));
        QCOMPARE(window.result() == QDialog::Accepted, asNew);
        QCOMPARE(stored(), asNew ? renewed : gone);
    }
};
Q_DECLARE_METATYPE(TwoDesks::Case)
