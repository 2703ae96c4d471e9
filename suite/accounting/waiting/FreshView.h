// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KConnection.h"

#include <future>

// What is saved right now, for a unit of work that reads as of its beginning: read over a connection of its own, by a thread of its own.
namespace FreshView {

// Waits for it; throws what it throws. What the caller's unit has written is not seen.
template <class Read>
auto read(const Read &wanted)
{
    return std::async(std::launch::async,
                      [&] {
                          struct Closing
                          {
                              ~Closing() { KConnection::closeThreadConnections(); }
                          } closing;
                          return wanted();
                      })
        .get();
}

}
