// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"

#include <QString>

#include <functional>

class QHBoxLayout;
class QWidget;

// The button "تاریخچه" of a window on one record, and its key Ctrl+H.
namespace HistoryButton {

// Adds it to the footer of the window; nothing where the user may not read the history of the table, or the record is not saved yet. key: of
// the record when the button is pressed; 0 for settings ("Properties:" and their section).
TZACCOUNTING_EXPORT void addTo(QWidget *window, QHBoxLayout *footer, const QString &table, qint32 key);

}
