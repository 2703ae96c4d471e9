// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// The office's texts of messages among RecordSubjects and BinnedRecords.
namespace MessageSubjects {

// For as long as the program runs.
void enter();

}
