// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/forms/FormTexts.h"

#include "suite/utility/forms/KForm.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QComboBox>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const KFormField *fieldOf(const KForm &form, const QString &column)
{
    const auto found = std::ranges::find(form.fields(), column, &KFormField::column);
    return found == form.fields().cend() ? nullptr : &*found;
}

std::optional<QString> entryText(const QComboBox *combo, int index)
{
    return index < 0 || index >= combo->count() ? std::nullopt : std::optional(combo->itemText(index));
}

}

QString FormTexts::caption(const KForm &form, const QString &column)
{
    return fieldOf(form, column) ? form.control(column)->accessibleName().remove(u" :"_s).trimmed() : QString();
}

std::optional<QString> FormTexts::text(const KForm &form, const QString &column, const QVariant &value)
{
    using Kind = KFormField::Kind;
    const KFormField *field = fieldOf(form, column);
    if (!field)
        return std::nullopt;
    switch (field->kind) {
    case Kind::Money:
        return DToMoney(value.toDouble());
    case Kind::Percent:
        return DToStr(value.toDouble());
    case Kind::Date:
        return shamsiText(value.toDateTime().date());
    case Kind::Choice:
        return entryText(form.comboBox(column), value.toInt());
    case Kind::Lookup:
        return entryText(form.comboBox(column), form.comboBox(column)->findData(value.toInt()));
    case Kind::Flag:
        return value.toInt() != 0 ? u"بله"_s : u"خیر"_s;
    case Kind::Integer:
    case Kind::Text:
    case Kind::LongText:
    case Kind::Plate:
    case Kind::EditableChoice:
        break;
    }
    return value.toString();
}
