// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/DataFolder.h"
#include "host/server/ServerError.h"

#include <optional>

// The logs of the server: of this start and of the previous one.
class ServerLog
{
public:
    explicit ServerLog(const DataFolder &folder);

    // The log of the last start becomes the previous one; a new one begins.
    void begin() const;
    // The last lines, for the program's own log.
    QString tail(int lines = 20) const;
    // The failure that the log names, if it is a known one; otherwise nothing.
    static std::optional<ServerError::Kind> knownFailure(const QString &text);
    // The error for a server that failed: a known failure of the log, the damaged file that it names, or otherwise the given kind.
    ServerError error(ServerError::Kind otherwise, const QString &detail) const;

private:
    DataFolder m_folder;
};
