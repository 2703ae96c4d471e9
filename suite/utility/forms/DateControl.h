// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/forms/FormControl.h"

// A Shamsi date; empty is the empty date.
class DateControl final : public FormControl
{
public:
    DateControl(const KFormField &, KMySQL &, QWidget *page)
        : m_edit(new KDateEdit(page))
    {
    }

    QWidget *widget() const override { return m_edit; }
    void load(const QVariant &value) override { m_edit->setDateTime(value.toDateTime()); }
    QVariant stored() const override { return m_edit->dateTime(); }
    void setReadOnly(bool readOnly) override { m_edit->setReadOnly(readOnly); }
    QString error() const override { return m_edit->entryError(); }

private:
    KDateEdit *m_edit;
};
