// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/CarChoices.h"

#include "auto/catalog/parameters/InputParameters.h"
#include "auto/db/CTblCarBrands.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/utility/entries/ComboWidth.h"

#include <QComboBox>

namespace {

// Exchanges the entries; the one chosen before stays chosen where it still is.
template <class Fill>
void refill(QComboBox *combo, const Fill &fill)
{
    keepComboWidth(*combo);
    const int chosen = CarChoices::chosenKey(combo);
    fill();
    combo->insertItem(0, QStringLiteral("همه"), 0);
    CarChoices::choose(combo, chosen);
}

}

void CarChoices::fillTypes(QComboBox *combo)
{
    refill(combo, [combo] { CTblCarBrands::FillComboBox(combo); });
}

void CarChoices::fillColors(QComboBox *combo)
{
    refill(combo, [combo] {
        CTblItems colors;
        colors.m_filter = InputParameters::valuesFilter(InputParameters::Color);
        colors.m_sort = QStringLiteral("sName");
        colors.SetColumns({QStringLiteral("sName")});
        colors.Open(true, true, true);
        combo->clear();
        for (; !colors.IsEOF(); colors.MoveNext())
            combo->addItem(colors.m_sName, colors.m_iID);
    });
}

int CarChoices::chosenKey(const QComboBox *combo)
{
    return combo->currentData().toInt();
}

void CarChoices::choose(QComboBox *combo, int key)
{
    combo->setCurrentIndex(qMax(0, combo->findData(key)));
}
