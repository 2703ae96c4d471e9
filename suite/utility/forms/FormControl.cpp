// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/forms/FormControl.h"

#include "suite/db/records/KMySQL.h"
#include "suite/utility/forms/KFormField.h"

#include <QWidget>

void FormControl::setReadOnly(bool readOnly)
{
    widget()->setEnabled(!readOnly);
}

void FormControl::setCompletions(const QStringList &)
{
    Q_ASSERT_X(false, "FormControl", "offers no texts");
}

int FormControl::textLimit(const KFormField &field, KMySQL &record)
{
    const int columnLength = record.textLength(field.column);
    if (field.maxLength > 0 && columnLength > 0)
        return qMin(field.maxLength, columnLength);
    return field.maxLength > 0 ? field.maxLength : columnLength;
}
