// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

struct KFormField;
class KMySQL;
class QWidget;

// What a form knows of one field's control, whatever its kind. The widget belongs to the page. Inside the library only.
class FormControl
{
public:
    FormControl() = default;
    virtual ~FormControl() = default;
    Q_DISABLE_COPY_MOVE(FormControl)

    virtual QWidget *widget() const = 0;

    // Shows what the column holds.
    virtual void load(const QVariant &value) = 0;
    // What the column is to hold.
    virtual QVariant stored() const = 0;

    // A control that knows no such state is disabled.
    virtual void setReadOnly(bool readOnly);
    // Why the entry cannot be stored, in words for the user; empty where it can.
    virtual QString error() const { return {}; }

    // True where the caption is part of the control, which then gets no label before it.
    virtual bool hasOwnCaption() const { return false; }

    // Texts that are offered while a part of one is typed. Only for a control that takes free text.
    virtual void setCompletions(const QStringList &texts);

protected:
    // Characters that the field may have: the column's length, or less where the field says so; 0: any number.
    static int textLimit(const KFormField &field, KMySQL &record);
};
