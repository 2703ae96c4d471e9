// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QRegularExpression>
#include <QString>

// Looks for typed words in the manual: whichever yeh, kaf, alef or digits, with a half-space or without.
class ManualSearch
{
public:
    explicit ManualSearch(const QString &typed);

    bool isEmpty() const { return m_words.isEmpty(); }
    // Whether the text holds each of the words.
    bool isIn(const QString &text) const;
    // Any of the words; matches nothing where nothing was typed.
    QRegularExpression anyWord() const;

private:
    QList<QRegularExpression> m_words;
};
