// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/documents/TzDocumentsExport.h"

#include <QString>

// A line in small type at the foot of every page of a document, below what its own footers say.
namespace FooterLine {

// text reads from right to left, code after it from left to right. The file is replaced whole or not at all. Returns why it was not, in
// English, for the log; empty: done.
TZDOCUMENTS_EXPORT QString add(const QString &path, const QString &text, const QString &code);

}
