// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/timeline/StorySources.h"

// The files and further pictures of the records of a story. Two statements.
namespace RelatedFiles {

// Personal files are for who attached them. Throws CMySQLException.
QList<StoryEvent> read(const StoryScope &scope, int limit, int database);

}
