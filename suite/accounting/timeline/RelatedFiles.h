// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/timeline/StorySources.h"

// Files and further pictures in a story, which any record may have.
namespace RelatedFiles {

const QList<StorySource> &sources();

}
