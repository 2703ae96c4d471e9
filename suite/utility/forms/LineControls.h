// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/FormControl.h"

// The kinds of field that are one entry line.
class LineControl : public FormControl
{
public:
    QWidget *widget() const override { return m_edit; }
    void setReadOnly(bool readOnly) override { m_edit->setReadOnly(readOnly); }
    QString error() const override { return m_edit->entryError(); }

protected:
    LineControl(KEdit::Kind kind, QWidget *page);

    KEdit *m_edit;
};

// A text or, read from left to right, a code.
class TextControl final : public LineControl
{
public:
    TextControl(const KFormField &field, KMySQL &record, QWidget *page);

    void load(const QVariant &value) override;
    QVariant stored() const override { return m_edit->plainText(); }
    void setCompletions(const QStringList &texts) override;
};

// Money, a percentage or a whole number.
class NumberControl final : public LineControl
{
public:
    NumberControl(KEdit::Kind kind, const KFormField &field, QWidget *page);

    void load(const QVariant &value) override { m_edit->setNumber(value.toDouble()); }
    QVariant stored() const override { return m_edit->number(); }
};
