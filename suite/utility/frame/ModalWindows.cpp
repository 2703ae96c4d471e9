// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/ModalWindows.h"

#include <QApplication>

bool closeModalWindows()
{
    while (QWidget *popup = QApplication::activePopupWidget()) {
        if (!popup->close())
            return false;
    }
    while (QWidget *topmost = QApplication::activeModalWidget()) {
        if (!topmost->close())
            return false;
    }
    return true;
}
