// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QStringList>
#include <QStringView>

// A line of what this program and the helper for Access files say to each other: words parted by tabs, in which backslash, tab,
// line feed and carriage return are escaped; "\N" alone is no value at all. Inside the library only.
class AccessLine
{
public:
    explicit AccessLine(const char *command);

    void append(QStringView text);
    void appendNumber(int number);
    void appendNothing();
    // With the line feed; the line must not be used further.
    QByteArray finished();

    // The words of a line without its line feed; no value becomes an empty text. There is always at least one.
    static QStringList words(const QByteArray &line);

private:
    QByteArray m_line;
};
