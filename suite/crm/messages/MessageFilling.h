// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMDataExport.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

// The text of a message: fields in braces, "{مبلغ}", and words in brackets that go together with their field, "[، خودرو {خودرو}]".
//
// A field is found in any spelling of its name (searchKey). One without a value leaves nothing behind; where it stands in brackets, all of
// them go. Brackets without a field are ordinary signs, and so is whatever a value holds.
namespace MessageFilling {

// What is in braces and no field, or a brace without its other one.
struct Wrong
{
    qsizetype at = 0;
    qsizetype length = 0;
    QString text; // as it was typed, with its braces
    int line = 1; // from 1

    friend bool operator==(const Wrong &, const Wrong &) = default;
};
// In the order of the text. fields: the names.
TZCRMDATA_EXPORT QList<Wrong> wrong(const QString &text, const QStringList &fields);

// values: by the names of the fields; a field that is not among them stays as it was typed. Digits are Persian in what is sent, but for a
// text without a Persian letter, and for a word that holds Latin ones, such as an address of the web.
TZCRMDATA_EXPORT QString filled(const QString &text, const QHash<QString, QString> &values);
TZCRMDATA_EXPORT QString withPersianDigits(const QString &text);

}
