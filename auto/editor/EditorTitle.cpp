// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/editor/EditorTitle.h"

using namespace Qt::StringLiterals;

QString editorTitle(const QString &name, EditorMode mode)
{
    switch (mode) {
    case EditorMode::New:
        return name + u"- جدید"_s;
    case EditorMode::Edit:
        return name + u"- ویرایش"_s;
    case EditorMode::Show:
        return name + u" - نمایش"_s;
    }
    Q_UNREACHABLE();
}
