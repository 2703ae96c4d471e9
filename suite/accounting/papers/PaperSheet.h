// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// What one paper says, whatever it looks like: a form that is handed out or signed. Made by a rule from records; SheetPages lays it out.
// What is empty takes no room and leaves no label behind.
struct PaperSheet
{
    struct Fact
    {
        QString label; // as "مبلغ :"
        QString text;
        bool isStrong = false;
        bool isWide = false; // has a line of its own
        bool isCode = false; // runs left to right
    };
    struct Column
    {
        enum Kind {
            Text,
            Centred,
            Code,
            Amount
        };
        QString title;
        double share = 1; // of the width, in proportion to the others
        Kind kind = Text;
        bool isSummed = false; // carried from page to page, and summed up below the last row
    };
    struct Cell
    {
        QString text;
        double amount = 0; // of a summed column
    };
    struct Signature
    {
        QString role;
        QString name;
    };

    QString kind; // plain English: under it the paper's size is remembered
    QString title;
    bool isLetter = false; // goes without its title at its head
    QString fileName;   // that a PDF is offered; without date and ending
    QList<Fact> marks;  // beside the title: number, date
    QByteArray picture; // encoded
    QString headline;   // in large letters
    QList<Fact> facts;
    Fact highlight; // in large letters within a frame of its own
    QString opening; // above the body, in strong letters
    QString body;    // paragraphs
    QList<Column> columns;
    QList<QList<Cell>> rows;
    QList<Fact> totals;
    QString notes;
    QList<Signature> signatures;
    QString scanCode; // as a square for telephones; Latin letters and digits
    QString foot;     // who wrote it, in which document
    QString state;    // painted across what counts no more: "باطل"
    // One page of A5 across whatever it says, in letters as large as that allows; A4 then holds a copy for each of two sides, so named.
    bool isSlip = false;
    QStringList copies;
};
