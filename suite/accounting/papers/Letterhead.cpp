// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/papers/Letterhead.h"

namespace {

Letterhead::Source enteredSource = nullptr;

}

void Letterhead::setSource(Source source)
{
    enteredSource = source;
}

Letterhead Letterhead::read()
{
    return enteredSource ? enteredSource() : Letterhead();
}
