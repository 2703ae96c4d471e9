// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// The three levels of the car catalog. A model belongs to a brand, a class (trim) to a model.
enum class CatalogLevel {
    Brand,
    Model,
    Class
};
