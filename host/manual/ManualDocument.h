// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class QTextDocument;

// A page of the manual as a document: its direction that of its title, headings that links lead to, tables with rules, pictures
// no wider than the page.
namespace ManualDocument {

struct Page
{
    QString text;         // Markdown
    QString folder;       // of its pictures
    int pictureWidth = 0; // in pixels of the document
    qreal ratio = 0;      // pixels of the screen for one of these; 0: pictures stay as they are, for paper
};

void fill(QTextDocument &document, const Page &page);
// What a link to a heading says behind its #.
QString anchorOf(const QString &heading);
// Where the heading of that anchor begins; -1: there is none.
int positionOf(const QTextDocument &document, const QString &anchor);

}
