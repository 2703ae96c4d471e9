// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// What a screen reader learns of a picture box: that it is a picture, what it shows, and that it can be pressed. Inside the
// library only.
namespace PictureBoxReader {

// Once for the program; further calls do nothing.
void install();

}
