// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <exception>
#include <functional>

using namespace Qt::StringLiterals;

// A record that an editor begins with is in its table before the user has entered anything.
namespace NewRecord {

// Runs the editor of a record that has just been added. Unless it tells that the user confirmed, the record goes again,
// whatever ended the window; what the editor throws is thrown on afterwards. before: what else goes, ahead of the record.
template <class Record>
[[nodiscard]] bool keptByEditor(int key, const std::function<bool()> &edit, const std::function<void()> &before = {})
{
    bool confirmed = false;
    std::exception_ptr error;
    try {
        confirmed = edit();
    } catch (...) {
        error = std::current_exception();
    }
    Record record;
    if (!confirmed && record.IsRecordExist(u"iID"_s, key)) {
        if (before)
            before();
        record.Delete();
    }
    if (error)
        std::rethrow_exception(error);
    return confirmed;
}

}
