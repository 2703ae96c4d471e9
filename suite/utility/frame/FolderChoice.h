// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include "suite/utility/TzUtilityExport.h"

class QWidget;

// Asks for an existing folder, with the prompt as the window's title; begins in
// that folder, or in the documents. Empty: cancelled.
TZUTILITY_EXPORT QString ShowBrowseForFolder(QWidget *parent, const QString &prompt, const QString &begin = {});
