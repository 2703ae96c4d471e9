// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/forms/FormControl.h"

// A text over several lines.
class LongTextControl final : public FormControl
{
public:
    LongTextControl(const KFormField &field, KMySQL &record, QWidget *page);

    QWidget *widget() const override { return m_area; }
    void load(const QVariant &value) override { m_area->setText(value.toString()); }
    QVariant stored() const override { return m_area->text(); }
    void setReadOnly(bool readOnly) override { m_area->setReadOnly(readOnly); }
    QString error() const override { return m_area->entryError(); }
    void setCompletions(const QStringList &texts) override { m_area->setCompletions(texts); }

private:
    KTextArea *m_area;
};
