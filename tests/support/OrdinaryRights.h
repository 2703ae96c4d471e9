// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// While it lives, this program may do to files only what an ordinary user may, also when it was started by the administrator
// (as in a container), to whom no folder is ever closed.
class OrdinaryRights
{
public:
    OrdinaryRights();
    ~OrdinaryRights();
    OrdinaryRights(const OrdinaryRights &) = delete;
    OrdinaryRights &operator=(const OrdinaryRights &) = delete;

private:
    bool m_reduced = false;
};
