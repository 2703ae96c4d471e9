// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class ManualPages;
class QPagedPaintDevice;
class QTextDocument;

// The manual on paper.
namespace ManualPaper {

// All pages, each beginning a new one, in the order of the contents, which come first.
void fill(QTextDocument &document, const ManualPages &pages);
// The whole manual. False: the file cannot be written.
[[nodiscard]] bool writePdf(const ManualPages &pages, const QString &path);
// One page of it.
void print(const ManualPages &pages, const QString &page, QPagedPaintDevice &paper);

}
