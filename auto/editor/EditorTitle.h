// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/editor/EditorPage.h"

// Title of an editor: what is edited and the mode's suffix. The suffixes of new and edit follow the name without a blank, the
// one of show with one.
QString editorTitle(const QString &name, EditorMode mode);
