// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/image/Thumbnails.h"

// The small pictures of cars.
namespace CarThumbnails {

Thumbnails::Source source();

}
