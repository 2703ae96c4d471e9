// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/look/FittedFont.h"

#include <QFontInfo>
#include <QFontMetricsF>

QFont FittedFont::of(const QFont &base, double lineHeight)
{
    constexpr int smallest = 7;
    QFont fitting = base;
    for (int pixels = QFontInfo(base).pixelSize(); pixels >= smallest && QFontMetricsF(fitting).height() > lineHeight; --pixels)
        fitting.setPixelSize(pixels);
    return fitting;
}
