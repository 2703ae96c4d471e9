// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/CMySQLException.h"

#include <optional>

using Category = CMySQLException::Category;

// The category that work raises; nothing when it raises nothing, so that a wanted category is never met by accident.
template <class Work>
std::optional<Category> raisedCategory(Work work, QString *caption = nullptr, QString *message = nullptr)
{
    try {
        work();
    } catch (const CMySQLException &error) {
        if (caption)
            *caption = error.columnCaption();
        if (message)
            *message = error.userMessage();
        return error.category();
    }
    return std::nullopt;
}
