// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>

#include <optional>

class QWidget;

// Asks until when a reminder is put off. Inside the library only.
namespace PostponeMenu {

// A menu above the button, with the time each choice leads to. Nothing when the user chose none.
std::optional<QDateTime> ask(const QDateTime &date, QWidget *button);

}
