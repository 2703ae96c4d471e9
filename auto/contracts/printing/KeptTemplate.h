// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSaveFile>
#include <QString>

#include <memory>
#include <vector>

// A template that the user chose, on its way into the templates' folder: staged beside the files that it will replace,
// and put in their place only by commit, so that a file which turns out to be of no use leaves the folder as it was.
class KeptTemplate
{
public:
    // Copies the file into the folder, which is made when it is missing, under its own name and, unless typeName is empty,
    // under that one too. A file that already is the one of that name is left alone. False when it cannot be read or the
    // folder cannot be written.
    [[nodiscard]] bool stage(const QString &path, const QString &folder, const QString &typeName);
    // False when a copy could not be put in its place.
    [[nodiscard]] bool commit();

private:
    std::vector<std::unique_ptr<QSaveFile>> m_copies;
};
