// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProcess>

// A script of bench/peers that waits to be asked for its work, see peers/peer.py.
class PythonPeer
{
public:
    PythonPeer(const QString &script, const QStringList &arguments);
    ~PythonPeer();
    PythonPeer(const PythonPeer &) = delete;
    PythonPeer &operator=(const PythonPeer &) = delete;

    // Returns when the work is done; false when the script is gone, whose own words stand on the standard error.
    [[nodiscard]] bool work();

private:
    bool waitFor(const QByteArray &line);

    QProcess m_process;
};
