// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/OrdinaryRights.h"

#include <QtGlobal>

#include <unistd.h>

namespace {

constexpr uid_t nobody = 65534;

}

OrdinaryRights::OrdinaryRights()
{
    if (::geteuid() != 0)
        return;
    m_reduced = ::seteuid(nobody) == 0;
    if (!m_reduced)
        qFatal("the administrator's rights cannot be given up");
}

OrdinaryRights::~OrdinaryRights()
{
    if (m_reduced && ::seteuid(0) != 0)
        qFatal("the administrator's rights cannot be taken back");
}
