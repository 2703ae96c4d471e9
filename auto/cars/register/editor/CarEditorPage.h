// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/editor/EditorPage.h"

class CTblAutomobilInformations;

using CarEditorPage = EditorPage<CTblAutomobilInformations>;
