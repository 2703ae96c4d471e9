// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

// A word-processor document by its parts, read and written with the bare library: tests look into documents from outside.
using DocxParts = QMap<QString, QByteArray>;

// Empty when the file is no readable package.
DocxParts readDocx(const QString &path);
bool writeDocx(const QString &path, const DocxParts &parts);
// The texts of every part, in their order, without the marks between them.
QString shownText(const DocxParts &parts);
