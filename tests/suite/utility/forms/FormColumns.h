// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

using namespace Qt::StringLiterals;

// The columns of the forms' test tables.
namespace FormColumns {

inline const QString name = u"sName"_s;
inline const QString note = u"sNote"_s;
inline const QString date = u"date"_s;
inline const QString amount = u"dAmount"_s;
inline const QString flag = u"bFlag"_s;

}
