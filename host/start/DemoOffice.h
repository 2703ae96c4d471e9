// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>
#include <QString>

#include <functional>

// The demo office, which shows a newcomer the program at work.
namespace DemoOffice {

// Whether database 0 holds it already.
bool isFilled();
// Fills database 0 with that many contracts and what they need. A separate program does this, because it applies the
// module's rules, which the host does not link; it takes the connection's settings from the client configuration. waiting
// is called about ten times a second. Throws KAccountingError when it fails.
// day: that which is today in the office; invalid: the computer's.
void fill(int contracts, const QDate &day, const QString &clientConfig, const std::function<void()> &waiting);

// Its user; the password is the same word.
QString userName();

}
