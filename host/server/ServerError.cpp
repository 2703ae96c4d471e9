// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/ServerError.h"

using namespace Qt::StringLiterals;

ServerError::ServerError(Kind kind, const QString &userMessage, const QString &detail)
    : m_kind(kind)
    , m_userMessage(userMessage)
    , m_detail(detail)
    , m_utf8((detail.isEmpty() ? userMessage : detail).toUtf8())
{
}

QString ServerError::shownPath(const QString &path)
{
    return u"«\u2068%1\u2069»"_s.arg(path);
}
