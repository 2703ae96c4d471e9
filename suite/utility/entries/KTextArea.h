// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPlainTextEdit>
#include <QString>

#include <functional>

#include "suite/utility/TzUtilityExport.h"

class QCompleter;

// The suite's entry field of several lines: Enter begins a new line, Tab moves on to the next field.
//
// What is longer than the limit stays as typed and is marked; entryError says why.
class TZUTILITY_EXPORT KTextArea : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit KTextArea(QWidget *parent = nullptr);

    QString text() const { return toPlainText(); }
    void setText(const QString &text) { setPlainText(text); }

    // In characters, a line's end counting as one; 0: any length.
    int maxLength() const { return m_maxLength; }
    void setMaxLength(int characters);
    // Texts that are offered while the user types a part of one; choosing one replaces what was typed.
    void setCompletions(const QStringList &texts);
    QCompleter *completer() const { return m_completer; }

    bool isEntryValid() const { return m_error.isEmpty(); }
    // Why the entry is refused, in words for the user; empty when it is not.
    QString entryError() const { return m_error; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent *event) override;
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void offeringAfter(const std::function<void()> &typing);
    QSize sizeOfLines(int lines) const;
    void checkLength();
    void readInWindowsDirection();
    void offerCompletions();

    int m_maxLength = 0;
    QString m_error;
    QCompleter *m_completer = nullptr;
};
