// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// The parts of the web page that are the same for every office: its look, its filter and what makes the filter work. Nothing in them
// is loaded from elsewhere.
namespace GalleryFrame {

// Up to where the title stands in the head.
QString beginning();
// brands: options, already escaped, as moneyUnit is. Without prices there are no fields for them.
QString filter(const QString &brands, bool withPrices, const QString &moneyUnit);
QString script();

}
