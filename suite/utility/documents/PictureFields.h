// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/documents/DocumentParts.h"

class DocxPackage;

namespace PictureFields {

// Puts the picture in the place of its fields in a part of the document, within the line as a letter; without a picture they leave
// nothing. Returns how many there were.
int fill(DocxPackage &package, const QString &part, const DocumentParts::Picture &picture);

}
