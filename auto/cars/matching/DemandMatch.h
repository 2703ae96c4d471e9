// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>

#include <optional>

// What a demand asks of a car. 0 asks nothing; a range with one end is open at the other; reversed ends are
// swapped. Amounts are in the suite's money unit.
struct DemandWishes
{
    int automobilType = 0; // key of a brand
    int color = 0;         // key of an item
    int yearFrom = 0;
    int yearUpTo = 0;
    double amountFrom = 0;
    double amountUpTo = 0;

    friend bool operator==(const DemandWishes &, const DemandWishes &) = default;
};

// What a car is, as far as a demand asks for it; 0 means unknown.
struct OfferedCar
{
    int automobilType = 0;
    int color = 0;
    int year = 0;
    double amount = 0;
    bool sold = false; // asked for by no demand; a match with it stands behind the others
};

// How well a car fits a demand.
//
// Excluded are cars of a type other than the demand's or of none, cars more than two years outside the range of years, and
// cars that cost more than a tenth above the upper or below the lower bound.
//
// The others are scored wish by wish, from 0 (not met, or not known of the car) to 1:
//   type    1
//   price   1 within the range; outside it falls evenly to 0 at a tenth beyond the bound
//   years   1 within the range; 2/3 at one year outside it, 1/3 at two
//   colour  1 for the colour asked for, else 0
// With the weights type 40, price 30, years 20, colour 10 of the wishes that the demand states,
//   percent = 100 * (sum of weight * score) / (sum of weights), cut to a whole number,
// so that 100 means that every wish is met. A demand that states nothing fits every car, with 0 percent.
//
// Years from 1700 on are read as ordinary ones and compared as the Shamsi year 621 before, as an imported car's year is
// often written.
struct DemandMatch
{
    int percent = 0;
    int wishes = 0; // how many of the four the demand states

    // None when the car does not fit.
    static std::optional<DemandMatch> of(const DemandWishes &wishes, const OfferedCar &car);
};

// Whether the last day on which a demand stands is over. A demand without one stands.
bool isOver(const QDateTime &latestDate, const QDate &today);

// The better match comes first, of two equally good ones the one with more wishes, then the lower code. (A match has its
// own code in each of the two lists: the car's or the demand's.)
bool isBetterMatch(const DemandMatch &one, int codeOfOne, const DemandMatch &other, int codeOfOther);
