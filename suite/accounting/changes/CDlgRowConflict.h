// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/changes/ConflictTable.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/utility/frame/KDialog.h"

#include <QList>
#include <QVariant>

#include <functional>
#include <optional>

class QDialogButtonBox;
class QPushButton;

// Shows what two users changed at once, field by field: as the window opened it, as the other saved it (who, when), and as it
// stands in the window. The user takes the other's side, the own, or goes back to the window.
class TZACCOUNTING_EXPORT CDlgRowConflict : public KDialog
{
    Q_OBJECT

public:
    enum class Answer {
        TakeTheirs,
        TakeMine,
        GoBack
    };
    // The text of a value as the window shows it; nothing for a column that is shown as its type asks: a Shamsi date, an amount,
    // the name behind a key.
    using Format = std::function<std::optional<QString>(const QString &column, const QVariant &value)>;
    // The label of a column in the window; empty: the record's own caption.
    using Caption = std::function<QString(const QString &column)>;

    // record: any object of the row's class. Esc and closing go back.
    static Answer ask(const RowChanged &changed, KMySQL &record, const Caption &caption, const Format &format, QWidget *parent);
    // Answers the next question with this; no window appears for it. What would have been shown is kept.
    static void answerNext(Answer answer);
    // One line for each field of the questions that were answered so: "caption: opened | theirs | mine".
    static QStringList takeShown();

private:
    // The label and the three values of each field as the user knows them.
    static QList<ConflictTable::Line> linesOf(const RowChanged &changed, KMySQL &record, const Caption &caption, const Format &format);

    CDlgRowConflict(const QString &heading, const QList<ConflictTable::Line> &lines, QWidget *parent);
    QWidget *buildPage(const QString &heading, const QList<ConflictTable::Line> &lines);
    QPushButton *addButton(QDialogButtonBox *box, const QString &text, const QString &consequence, Answer answer);

    Answer m_answer = Answer::GoBack;
};
