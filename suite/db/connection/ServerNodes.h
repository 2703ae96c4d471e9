// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KServerAddress.h"

#include <QByteArray>
#include <QList>

struct KConnectionSettings;
struct st_mysql;

// The nodes of a cluster that hold the same data, and which of them this program works on.
namespace ServerNodes {

// In the order in which to try them: the one in use, then those behind it as they were named, around to the one before it.
QList<KServerAddress> inOrder(const KConnectionSettings &settings);
// The node that answered; all threads of the program ask it first from now on.
void setInUse(const KConnectionSettings &settings, const KServerAddress &node);

// Whether an error of this number, met while connecting, says something about this node only, so that another may be tried.
bool isOfNodeAlone(unsigned int serverCode);

enum class State {
    Working, // takes part in the cluster and is up to date; also a server that belongs to none
    Behind,  // takes part, but is busy giving or getting a copy of the data
    Outside  // has lost the others, or has not joined them yet: it refuses statements
};
// The statement after which a session's statements find what was written through any node before. Servers without clusters refuse it.
QByteArray readAfterWrites();

// Of the server that the connection leads to. Outside also when it does not answer.
State stateOf(st_mysql *handle);

}
