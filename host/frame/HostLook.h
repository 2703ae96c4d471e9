// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/look/HostColors.h"

class QApplication;

// What every window of the program has in common.
namespace HostLook {

// Light or dark, or as the desktop has it.
enum class Choice {
    AsSystem,
    Light,
    Dark
};

// Loads the fonts beside the program, which draw ASCII digits in Persian shape, and makes them the application's font;
// without them a Persian font of the system. Also loads Qt's own texts in Persian where installed, the icon, the style, and the
// palette, which follows the desktop until the user's choice is known.
void apply(QApplication &application);

// The user's choice on this computer; as the system, where there is none or one that this program does not know.
Choice choice();
// Keeps the choice, and shows it at once in every window.
void choose(Choice choice);
// Shows the choice that is kept. Once the user's settings can be read.
void showChoice();

// The look that a choice comes to.
HostColors::Look lookOf(Choice choice);

}
