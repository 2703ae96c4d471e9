// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/entries/PlateEdit.h"
#include "suite/utility/forms/FormControl.h"

// A number plate. One in an older spelling comes back as it was, unless the user changed it.
class PlateControl final : public FormControl
{
public:
    PlateControl(const KFormField &field, KMySQL &record, QWidget *page)
        : m_edit(new PlateEdit(page))
    {
        m_edit->setCodeLength(textLimit(field, record));
    }

    QWidget *widget() const override { return m_edit; }
    void load(const QVariant &value) override { m_edit->load(value.toString()); }
    QVariant stored() const override { return m_edit->storedText(); }
    void setReadOnly(bool readOnly) override { m_edit->setReadOnly(readOnly); }
    QString error() const override { return m_edit->entryError(); }

private:
    PlateEdit *m_edit;
};
