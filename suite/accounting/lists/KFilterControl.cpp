// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KFilterControl.h"

#include "suite/utility/entries/ComboWidth.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"

#include <QCheckBox>

namespace {

KFilterControl choice(const KListFilter &filter, QWidget *box)
{
    auto *combo = new KDropDown(box);
    if (filter.options & KListFilter::NamesOfOffice)
        keepComboWidth(*combo);
    const auto choose = [combo](const QVariant &value) { combo->setCurrentIndex(qMax(0, combo->findData(value.toInt()))); };
    const auto read = [combo, choose, choices = filter.choices] {
        const QVariant chosen = combo->currentData();
        combo->clear();
        for (const KListFilter::Choice &entry : choices())
            combo->addItem(entry.text, entry.value);
        choose(chosen);
    };
    read();
    // The first choice is all there is.
    const auto asked = [combo] { return combo->currentIndex() > 0 ? combo->currentText() : QString(); };
    return {combo, [combo] { return combo->currentData(); }, choose, asked, read};
}

// A date that is not asked for stays in its field, for when it is ticked again; without a box the field is emptied.
KFilterControl date(bool hasBox, QWidget *box)
{
    auto *edit = new KDateEdit(box);
    edit->setCheckable(hasBox);
    return {edit, [edit] { return edit->isChecked() ? edit->dateTime() : QDateTime(); },
            [edit, hasBox](const QVariant &value) {
                const bool isDay = value.typeId() == QMetaType::QDate;
                const QDateTime date = isDay ? value.toDate().startOfDay(Qt::UTC) : value.toDateTime();
                if (date.isValid() || !hasBox)
                    edit->setDateTime(date);
                if (hasBox)
                    edit->setChecked(date.isValid());
            },
            [edit] { return edit->isChecked() && edit->dateTime().isValid() ? edit->text() : QString(); }};
}

KEdit *line(KEdit::Kind kind, const KListFilter &filter, QWidget *box)
{
    auto *edit = new KEdit(kind, box);
    if (filter.maxLength > 0)
        edit->setMaxLength(filter.maxLength);
    return edit;
}

KFilterControl text(KEdit *edit)
{
    return {edit, [edit] { return edit->text(); }, [edit](const QVariant &value) { edit->setText(value.toString()); },
            [edit] { return edit->text().trimmed(); }};
}

KFilterControl number(KEdit *edit)
{
    return {edit, [edit] { return edit->kind() == KEdit::Kind::Integer ? QVariant(edit->integer()) : QVariant(edit->number()); },
            [edit](const QVariant &value) { edit->setNumber(value.toDouble()); },
            [edit] { return edit->number() != 0 ? edit->text() : QString(); }};
}

KFilterControl flag(const KListFilter &filter, QWidget *box)
{
    auto *check = new QCheckBox(filter.label, box);
    return {check, [check] { return check->isChecked(); }, [check](const QVariant &value) { check->setChecked(value.toBool()); },
            [check] { return check->isChecked() ? check->text() : QString(); }};
}

}

KFilterControl KFilterControl::make(const KListFilter &filter, QWidget *box)
{
    switch (filter.kind) {
    case KListFilter::Kind::Choice:
        return choice(filter, box);
    case KListFilter::Kind::Date:
    case KListFilter::Kind::PlainDate:
        return date(filter.kind == KListFilter::Kind::Date, box);
    case KListFilter::Kind::Text:
        return text(line(KEdit::Kind::Text, filter, box));
    case KListFilter::Kind::Number:
        return number(line(KEdit::Kind::Integer, filter, box));
    case KListFilter::Kind::Amount:
        return number(line(KEdit::Kind::Money, filter, box));
    case KListFilter::Kind::Flag:
        return flag(filter, box);
    case KListFilter::Kind::Person:
    case KListFilter::Kind::Always:
        break;
    }
    return {};
}
