// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/editor/EditorTitle.h"

QString editorTitle(const QString &name, EditorMode mode)
{
    switch (mode) {
    case EditorMode::New:
        return name + QStringLiteral("- جدید");
    case EditorMode::Edit:
        return name + QStringLiteral("- ویرایش");
    case EditorMode::Show:
        return name + QStringLiteral(" - نمایش");
    }
    Q_UNREACHABLE();
}
