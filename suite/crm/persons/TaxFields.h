// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

class CTblPersons;
class FormGrid;
class QComboBox;
class QWidget;

// What the tax authority keeps by number and people know by word: a person's kind as a taxpayer, the province and the city. A
// number without a word of ours is shown as it is and kept.
class TaxFields
{
public:
    explicit TaxFields(QWidget *page);

    // Puts them into the grid one after the other: kind, province, city.
    void place(FormGrid *grid) const;
    QComboBox *kind() const { return m_kind; }
    QComboBox *province() const { return m_province; }
    QComboBox *city() const { return m_city; }
    void setReadOnly(bool readOnly);

    void load(const CTblPersons &person);
    void store(CTblPersons &person) const;
    // Why the choice cannot be stored, for the user; empty when it can. The city is to be chosen then: the number of مرکزی is 0,
    // as it is without a province, and only a city's number tells them apart.
    QString problem() const;

    // A number of one of their columns as they show it; nothing for any other column.
    static std::optional<QString> word(const QString &column, int number);

private:
    void fillCities();

    QComboBox *m_kind;
    QComboBox *m_province;
    QComboBox *m_city;
};
