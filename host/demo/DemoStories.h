// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>

// What was said about some cars and persons, and how prices came down: enough for a story of each sort.
namespace DemoStories {

// Of the newest so many cars. The same for the same office. Throws CMySQLException.
void write(int cars, int userID, const QDate &lastDay, int database);

}
