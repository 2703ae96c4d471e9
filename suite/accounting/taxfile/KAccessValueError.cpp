// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/taxfile/KAccessValueError.h"

using namespace Qt::StringLiterals;

namespace {

const QString tooLong = u"too-long"_s;
const QString badValue = u"bad-value"_s;

QString sentence(const QStringList &words, const QString &record, const QString &column)
{
    const QString what = words.value(4);
    return words.value(0) == tooLong ? u"%1: متن ستون %2 بیش از %3 حرف دارد."_s.arg(record, column, what)
                                     : u"%1: مقدار «%3» در ستون %2 جا نمی گیرد."_s.arg(record, column, what);
}

}

KAccessValueError::KAccessValueError(const QStringList &words)
    : KAccountingError(sentence(words, u"ردیف "_s + words.value(3), u"«%1» از جدول «%2»"_s.arg(words.value(2), words.value(1))))
    , m_words(words)
{
}

KAccessValueError::~KAccessValueError() = default;

bool KAccessValueError::isAbout(const QString &code)
{
    return code == tooLong || code == badValue;
}

KAccountingError KAccessValueError::retold(const QString &record, const QString &column) const
{
    return KAccountingError(sentence(m_words, record, u"«%1»"_s.arg(column)));
}
