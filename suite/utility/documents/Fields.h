// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/documents/TzDocumentsExport.h"

#include <QString>
#include <QStringList>

// The merge fields of an open document by name, as they stood when KMSWord::GetFields was called: body first, then headers,
// footers and notes, each in reading order. A name that stands several times is listed as often.
class TZDOCUMENTS_EXPORT Fields
{
public:
    Fields() = default;
    explicit Fields(QStringList names);

    int GetCount() const;
    QString GetName(int position) const;      // 0 is the first; empty beyond the last
    bool Contains(const QString &name) const; // by the rule of indexOfName
    QStringList GetNames() const;

    // The position of the one name of the list that a field of this name takes its value from; -1 without one. Only whole
    // names match ("N" is never "NC"). The same letters in the same case come first, the first of several; failing that a
    // name that differs in case alone, as in a word processor, but only when the list has just one such name.
    static int indexOfName(const QStringList &names, const QString &fieldName);

private:
    QStringList m_names;
};
