// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>

#include <optional>

class QWidget;

// Asks how long a reminder is put off. Inside the library only.
namespace PostponeMenu {

// A menu above the button, showing the time that each choice leads to. Returns nothing when the user made no choice.
std::optional<QDateTime> ask(const QDateTime &date, QWidget *button);

}
