// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringView>

#include <span>

// Names of the people, places and cars of the demo office. Any likeness to a real office is a coincidence.
namespace DemoNames {

using List = std::span<const QStringView>;

struct City
{
    QStringView name;
    QStringView areaCode;
};

struct Car
{
    QStringView maker;
    QStringView name;
    int millions; // price of a new one, in millions of tomans
    int cylinders;
};

List men();
List women();
List families();
List streets();
List companies();
List colors();
List deliveries();
std::span<const City> cities();
std::span<const Car> cars();

}
