// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/sheets/Sheet.h"

#include <QHash>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <optional>

// What a cell says to a field: a value, or why it is none; neither for an empty cell.
struct ImportParsed
{
    QVariant value = {};
    QString problem = {}; // what is wrong and how it is mended, one sentence
};

using ImportParser = std::function<ImportParsed(const SheetCell &)>;

// A field that a file may fill.
struct ImportField
{
    QString key;            // of the values of a row; the record's column where it is one
    QString title;          // as the window and the example file name it
    QStringList words = {}; // other titles under which it is found, Persian and English
    ImportParser parse;
    bool isRequired = false; // a column must be chosen for it
    QString example = {};    // a cell of the example file
};

struct ImportProblem
{
    QString field; // the title of its field; empty: of the row as a whole
    QString text;

    friend bool operator==(const ImportProblem &, const ImportProblem &) = default;
};

// A record that is there already, or a row further up in the same file, that says the same of itself.
struct ImportTwin
{
    QString text;           // "شخص کد 12، علی رضایی: همان کد ملی"
    qint32 key = 0;         // of the record; 0: a row of the file
    bool isRefused = false; // the office takes this number once only

    friend bool operator==(const ImportTwin &, const ImportTwin &) = default;
};

struct ImportRow
{
    int number = 0; // of the file, from 1
    QHash<QString, QVariant> values;
    QList<ImportProblem> problems;
    std::optional<ImportTwin> twin;
    bool takesTwin = false; // the user wants it in spite of its twin

    bool isWritten() const { return problems.isEmpty() && (!twin || takesTwin); }
    bool has(const QString &key) const { return values.contains(key); }
    QString text(const QString &key) const { return values.value(key).toString(); }
    void refuse(const QString &field, const QString &text) { problems.append({field, text}); }
};
