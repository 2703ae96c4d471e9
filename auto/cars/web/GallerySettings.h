// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/SettingsEdit.h"

#include <QList>
#include <QString>

// What the office's page for the web says besides its cars, shared by all users of the database (section "WebGallery"). Until somebody has
// written a page it is what the office says of itself.
struct GallerySettings
{
    static constexpr int longestTitle = 100;
    static constexpr int longestTelephone = 50;
    static constexpr int longestAddress = 250;

    QString title;
    QString telephone;
    QString address;
    bool withPrices = true; // false: every car is to be agreed

    static QString section();
    // The sections that of() needs.
    static QStringList sections();
    static GallerySettings of(const OfficeSettings &settings);
    // For the window that edits them.
    static QList<SettingsEdit::Setting> edited();
    void writeTo(SettingsEdit &edit) const;

    friend bool operator==(const GallerySettings &, const GallerySettings &) = default;
};
