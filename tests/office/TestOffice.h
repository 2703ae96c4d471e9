// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/TestDatabase.h"

#include <QTemporaryDir>

#include <functional>

class CTblAutomobilContracts;
class CTblAutomobilDemands;
class CTblAutomobilInformations;
class CTblPersons;
class QWidget;

// An office of its own for a test class: a fresh database with the suite's and the module's tables, an administrator who is
// logged in, settings in a folder of its own, and messages that are kept instead of shown.
class TestOffice
{
public:
    TestOffice();
    ~TestOffice();

    TestDatabase &database() { return m_database; }

    // Removes everything that a test can have added: contracts, cars, demands, the catalog, tariffs, items, persons,
    // documents; and the settings back to none.
    void clear();
    int adminID() const { return m_adminID; }
    // An ordinary user with these bits of KSecurity::Right on the form, logged in.
    int logInAs(const QString &user, const QString &form, int rights);
    void logInAsAdmin();

    int addPerson(const QString &name, const QString &family, const std::function<void(CTblPersons &)> &more = {});
    int addContract(const std::function<void(CTblAutomobilContracts &)> &set = {});
    // With the next code; all else as it is constructed.
    int addCar(const std::function<void(CTblAutomobilInformations &)> &set = {});
    int addDemand(const std::function<void(CTblAutomobilDemands &)> &set = {});
    // Of the catalog's three levels and the suite's items; their keys.
    int addBrand(const QString &name);
    int addModel(int brand, const QString &name);
    int addClass(int model, const QString &name);
    int addItem(int type, const QString &name);
    void setFiscalYearOpening(const QDate &date);

    // Runs work while a modal window is open: called once when the active modal window is of the class, then again for
    // the next one queued. Fails the test when no such window comes up within five seconds.
    static void whenModal(const char *className, const std::function<void(QWidget *)> &work);

private:
    TestDatabase m_database;
    QTemporaryDir m_settings;
    int m_adminID = 0;
};
