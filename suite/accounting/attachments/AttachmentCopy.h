// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QByteArray>
#include <QString>

// Copies of attached files for the desktop's programs to open. They are kept in a folder that only this user can read and that
// is removed when the program ends, or at its next start.
namespace AttachmentCopy {

// Whether opening a file with that name would run it, or macros in it.
TZACCOUNTINGDATA_EXPORT bool isProgram(const QString &name);
// Path of the copy, read-only so that nobody takes it for the stored file; empty when it could not be written.
TZACCOUNTINGDATA_EXPORT QString write(int id, const QString &name, const QByteArray &data);

}
