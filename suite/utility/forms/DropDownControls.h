// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/forms/FormControl.h"

// The kinds of field that are a drop-down.
class DropDownControl : public FormControl
{
public:
    QWidget *widget() const override { return m_combo; }

protected:
    DropDownControl(const KFormField &field, QWidget *page);

    KDropDown *m_combo;
};

// The position is stored; 0 when nothing is chosen.
class ChoiceControl final : public DropDownControl
{
public:
    ChoiceControl(const KFormField &field, KMySQL &, QWidget *page)
        : DropDownControl(field, page)
    {
    }

    void load(const QVariant &value) override { m_combo->setCurrentIndex(value.toInt()); }
    QVariant stored() const override { return qMax(0, m_combo->currentIndex()); }
};

// Takes free text besides its choices; the text is stored.
class EditableChoiceControl final : public DropDownControl
{
public:
    EditableChoiceControl(const KFormField &field, KMySQL &record, QWidget *page);

    void load(const QVariant &value) override { setText(value.toString()); }
    QVariant stored() const override { return m_combo->currentText(); }
    // Exchanges what is offered around the text, which stays.
    void setChoices(const QStringList &choices);

private:
    void setText(const QString &text);
};

// The key of the entry is stored; 0 when nothing is chosen.
class LookupControl final : public DropDownControl
{
public:
    LookupControl(const KFormField &field, KMySQL &, QWidget *page);

    void load(const QVariant &value) override { setKey(value.toInt()); }
    QVariant stored() const override { return key(); }
    int key() const { return m_combo->currentData().toInt(); }
    // A key that is not offered, such as that of a deleted value, gets an entry of its own, so that saving keeps it.
    void setKey(int key);
};
