// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QWidget;
struct HostOptions;

// An office server as the command line names it.
namespace OfficeServer {

// Configures database 0 and opens a first connection. The password comes from the file of the options, or from a dialog,
// which is shown again after a refusal. False: the user gave up or was told why there is no connection.
[[nodiscard]] bool connect(const HostOptions &options, QWidget *parent);

}
