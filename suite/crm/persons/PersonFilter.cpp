// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/PersonFilter.h"

#include "suite/crm/persons/KPersonField.h"

KFilterControl::Maker personFilter(const QString &clearCaption)
{
    return [clearCaption](const KListFilter &filter, QWidget *box) -> KFilterControl {
        auto *field = clearCaption.isEmpty() ? new KPersonField(filter.label, box) : new KPersonField(filter.label, clearCaption, box);
        return {field, [field] { return field->personID(); },
                [field](const QVariant &person) {
                    // Nobody need not be looked up.
                    if (person.toInt() == 0)
                        field->clear();
                    else
                        field->setPersonID(person.toInt());
                },
                [field] { return field->personID() != 0 ? field->name() : QString(); }};
    };
}
