// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// The office's setting that demands do not stay in the list for ever (ContractSettings).
namespace DemandArchiving {

// Archives, in the user's name, the demands that are older than the office keeps them; none unless the setting is on,
// with a number of days above 0. Returns how many there were. When it throws CMySQLException, none was archived.
int archiveOldOnes(int userID, int database = 0);

}
