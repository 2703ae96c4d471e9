// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <memory>

class QWidget;

// The entry control of one custom field, whatever its type. The control belongs to its parent widget.
class CustomFieldInput
{
public:
    // type: CTblCustomFields::Type; an unknown one is entered as text.
    static std::unique_ptr<CustomFieldInput> create(int fieldID, const QString &name, int type, QWidget *parent);
    virtual ~CustomFieldInput();

    int fieldID() const { return m_fieldID; }
    // A stored value as a user of the field knows it.
    virtual QString textOf(const QString &value) const { return value; }
    virtual QWidget *widget() const = 0;
    // As CTblCustomFieldRecords stores it; empty: no value.
    virtual QString value() const = 0;
    virtual void setValue(const QString &value) = 0;
    // Why the entry is refused, in words for the user; empty when it is not.
    virtual QString error() const = 0;
    virtual void setReadOnly(bool readOnly) = 0;

protected:
    explicit CustomFieldInput(int fieldID);

private:
    int m_fieldID;
};
