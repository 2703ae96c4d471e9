// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/forms/FormControl.h"
#include "suite/utility/forms/KFormField.h"

#include <QCheckBox>

// A check box, whose caption is the field's label; stored as 0 or 1.
class FlagControl final : public FormControl
{
public:
    FlagControl(const KFormField &field, KMySQL &, QWidget *page)
        : m_box(new QCheckBox(field.label, page))
    {
    }

    QWidget *widget() const override { return m_box; }
    void load(const QVariant &value) override { m_box->setChecked(value.toInt() != 0); }
    QVariant stored() const override { return m_box->isChecked() ? 1 : 0; }
    bool hasOwnCaption() const override { return true; }

private:
    QCheckBox *m_box;
};
