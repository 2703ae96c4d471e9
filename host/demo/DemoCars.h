// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/CTblAutomobilInformations.h"
#include "host/demo/DemoCatalog.h"
#include "host/demo/DemoPersons.h"
#include "host/demo/DemoRandom.h"

#include <QDate>
#include <QHash>

// The register of cars of the demo office, by the rules of the car editor: its profit, its texts of several values, its
// pictures. They came in over a span of days, in the order of their codes; some are sold, and some of those are archived.
class DemoCars
{
public:
    struct Office
    {
        int userID = 0;
        QDate firstDay;
        QDate lastDay;
    };

    DemoCars(const Office &office, const DemoCatalog &catalog, const QList<DemoPersons::Person> &persons, DemoRandom &random,
             int database = 0);

    // Writes cars with the codes 1 to count. Belongs inside a transaction.
    void write(int count);

    // At most this many have pictures of their own, so that a large office still fits on a desktop computer.
    static constexpr int mostPictures = 1000;

private:
    void makeCar(int code, const QDate &day);
    void setVehicle(const DemoCatalog::Model &model, const QDate &day);
    void setNumbers();
    void setEquipment();
    void setInsurance(const QDate &day);
    void setSale(const QDate &day);
    void clearSale();
    void setPicture(const DemoCatalog::Model &model, int code);
    const DemoPersons::Person &anybodyBut(int person);
    int item(int type);
    // Some of a type's values, the others in the second text; both as the editor writes them.
    std::pair<QString, QString> chosenAndMissing(int type, int chosenPercent);

    const Office &m_office;
    const DemoCatalog &m_catalog;
    const QList<DemoPersons::Person> &m_persons;
    DemoRandom &m_random;
    CTblAutomobilInformations m_car;
    QHash<QString, QByteArray> m_pictures; // by body and paint
    QString m_colorName;
    QString m_ownerName;
};
