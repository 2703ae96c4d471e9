// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

using namespace Qt::StringLiterals;

// What somebody may type or paste to leave the literal that it stands in, each short enough for any text field.
inline QStringList hostileTexts()
{
    return {u"'"_s,
            u"''"_s,
            u"\\"_s,
            u"\\'"_s,
            u"\\\\' OR 1=1 -- "_s,
            u"\""_s,
            u"%' OR '1'='1"_s,
            u"' UNION SELECT 1,sPasswordHash,0,sUser FROM Users#"_s,
            u"' UNION SELECT 1,2,3"_s,
            u"'; DROP TABLE Users"_s,
            u"x'/*"_s,
            u"*/ x"_s,
            u"# x"_s,
            u"-- x"_s,
            u"`x`"_s,
            u"%1 %d %s %n"_s,
            QString(u"a\0'b"_s.constData(), 4),
            u"\u2019 OR 1=1"_s, // a quotation mark of its own, which a server might take for the plain one
            u"\uFF07 OR 1=1"_s,
            u"\u02BC OR 1=1"_s,
            u"\u00BF' OR 1=1"_s, // its bytes end in one that other character sets join with a quote
            u"\u5C27'\u0127"_s,
            u"\x1a\b\t"_s,
            u"('[{^$.*+?|}])"_s};
}
