// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

// The texts that the stored tariffs hold, each once, in order; to be offered while one is typed.
namespace TariffTexts {

QStringList titles();
QStringList descriptions();

}
