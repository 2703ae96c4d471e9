// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>

#include <utility>

// What somebody on the telephone is told of a car at once.
namespace CarFacts {

// Label and text each: owner, fitting demands, contract, what is still owed for it. Of demands and contracts only where their kind (SearchKinds)
// is among the readable ones. Empty when the car is gone. Throws CMySQLException.
QList<std::pair<QString, QString>> of(qint32 car, const QList<int> &readable, int database = 0);
// The newest contract about the car: the one made from it, else one with its VIN or plate; 0: none.
qint32 contractOf(qint32 car, int database = 0);

}
