// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/forms/FormControlKinds.h"

#include "suite/utility/forms/DateControl.h"
#include "suite/utility/forms/DropDownControls.h"
#include "suite/utility/forms/FlagControl.h"
#include "suite/utility/forms/KFormField.h"
#include "suite/utility/forms/LineControls.h"
#include "suite/utility/forms/LongTextControl.h"
#include "suite/utility/forms/PlateControl.h"

#include <algorithm>
#include <iterator>

namespace {

using Kind = KFormField::Kind;
using Make = std::unique_ptr<FormControl> (*)(const KFormField &, KMySQL &, QWidget *);

template <class Control>
std::unique_ptr<FormControl> make(const KFormField &field, KMySQL &record, QWidget *page)
{
    return std::make_unique<Control>(field, record, page);
}

template <KEdit::Kind kind>
std::unique_ptr<FormControl> makeNumber(const KFormField &field, KMySQL &, QWidget *page)
{
    return std::make_unique<NumberControl>(kind, field, page);
}

struct KindOfControl
{
    Kind kind;
    Make make;
};

constexpr KindOfControl kinds[] = {
    {Kind::Text, make<TextControl>},
    {Kind::LongText, make<LongTextControl>},
    {Kind::Plate, make<PlateControl>},
    {Kind::Money, makeNumber<KEdit::Kind::Money>},
    {Kind::Percent, makeNumber<KEdit::Kind::Percent>},
    {Kind::Integer, makeNumber<KEdit::Kind::Integer>},
    {Kind::Date, make<DateControl>},
    {Kind::Choice, make<ChoiceControl>},
    {Kind::EditableChoice, make<EditableChoiceControl>},
    {Kind::Lookup, make<LookupControl>},
    {Kind::Flag, make<FlagControl>},
};

}

std::unique_ptr<FormControl> makeFormControl(const KFormField &field, KMySQL &record, QWidget *page)
{
    const auto *found = std::ranges::find(kinds, field.kind, &KindOfControl::kind);
    Q_ASSERT_X(found != std::end(kinds), "KForm", qPrintable(field.column));
    return found->make(field, record, page);
}
