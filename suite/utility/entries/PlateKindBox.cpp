// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/PlateKindBox.h"

#include "suite/utility/entries/PlateEdit.h"
#include "suite/utility/values/PlateKind.h"

PlateKindBox::PlateKindBox(PlateEdit *plate, QWidget *parent)
    : KDropDown(parent)
    , m_plate(plate)
{
    addItems(PlateKind::names());
    connect(plate, &QLineEdit::textChanged, this, &PlateKindBox::follow);
    connect(this, &QComboBox::activated, this, &PlateKindBox::take);
}

// A line that was emptied, or a choice with nothing typed yet, keeps the kind that was chosen.
void PlateKindBox::follow()
{
    if (!m_plate->plainText().trimmed().isEmpty())
        setCurrentIndex(PlateKind::of(m_plate->plainText()));
}

void PlateKindBox::take(int kind)
{
    const QString text = PlateKind::as(PlateKind::Kind(kind), m_plate->plainText());
    if (text == m_plate->plainText())
        return;
    m_plate->setText(text);
    setCurrentIndex(kind);
}
