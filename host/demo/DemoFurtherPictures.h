// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Two or three more pictures for some of the demo office's cars: the other side, a lamp, a wheel.
namespace DemoFurtherPictures {

// At most this many cars have them, the newest ones.
inline constexpr int mostCars = 40;

// Of the cars that are stored with a picture. Belongs inside a transaction.
void write(int userID, int database);

}
