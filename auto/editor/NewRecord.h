// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <exception>
#include <functional>

using namespace Qt::StringLiterals;

// A new record is in its table before the user has entered anything in its editor.
namespace NewRecord {

// Runs the editor of a record that has just been added. Unless it reports that the user confirmed, the record is
// deleted again, however the window ended; what the editor throws is then rethrown. before: what to delete ahead of the record.
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
