// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/forms/KForm.h"

#include "suite/db/records/KMySQL.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/forms/DropDownControls.h"
#include "suite/utility/forms/FieldCompanions.h"
#include "suite/utility/forms/FormControl.h"
#include "suite/utility/forms/FormControlKinds.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include <algorithm>

namespace {

template <class Widget>
Widget *widgetOf(const FormControl &control)
{
    auto *widget = qobject_cast<Widget *>(control.widget());
    Q_ASSERT(widget);
    return widget;
}

template <class Control>
Control &controlAs(FormControl &control)
{
    auto *wanted = dynamic_cast<Control *>(&control);
    Q_ASSERT(wanted);
    return *wanted;
}

}

KForm::KForm(QList<KFormField> fields, KMySQL &record, QWidget *page)
    : QObject(page)
    , m_fields(std::move(fields))
{
    m_items.reserve(std::size_t(m_fields.size()));
    for (const KFormField &field : std::as_const(m_fields)) {
        Q_ASSERT_X(record.column(field.column), "KForm", qPrintable(field.column));
        m_positions.insert(field.column, m_items.size());
        m_items.push_back(makeItem(field, record, page));
    }
}

KForm::~KForm() = default;

KForm::Item KForm::makeItem(const KFormField &field, KMySQL &record, QWidget *page)
{
    Item item;
    item.field = field;
    item.readOnly = field.readOnly;
    item.basicPlaneOnly = record.isBasicPlaneOnly(field.column);
    item.control = makeFormControl(field, record, page);
    QWidget *widget = item.control->widget();
    widget->setObjectName(field.column);
    if (item.control->hasOwnCaption())
        nameControl(widget, field.accessibleName.isEmpty() ? field.label : field.accessibleName);
    else
        item.label = labelFor(field.label, widget, field.accessibleName);
    item.companions = std::make_unique<FieldCompanions>(field, widget, page);
    applyDisplayed(item);
    applyReadOnly(item);
    return item;
}

const KForm::Item &KForm::item(const QString &column) const
{
    const auto position = m_positions.constFind(column);
    Q_ASSERT_X(position != m_positions.cend(), "KForm", qPrintable(column));
    return m_items[*position];
}

KForm::Item &KForm::item(const QString &column)
{
    return const_cast<Item &>(std::as_const(*this).item(column));
}

QWidget *KForm::control(const QString &column) const
{
    return item(column).control->widget();
}

KEdit *KForm::edit(const QString &column) const
{
    return widgetOf<KEdit>(*item(column).control);
}

KDateEdit *KForm::dateEdit(const QString &column) const
{
    return widgetOf<KDateEdit>(*item(column).control);
}

QComboBox *KForm::comboBox(const QString &column) const
{
    return widgetOf<QComboBox>(*item(column).control);
}

QCheckBox *KForm::checkBox(const QString &column) const
{
    return widgetOf<QCheckBox>(*item(column).control);
}

KTextArea *KForm::longText(const QString &column) const
{
    return widgetOf<KTextArea>(*item(column).control);
}

QLabel *KForm::label(const QString &column) const
{
    return item(column).label;
}

KStepArrows *KForm::arrows(const QString &column) const
{
    return item(column).companions->arrows();
}

QPushButton *KForm::button(const QString &column) const
{
    return item(column).companions->button();
}

void KForm::place(FormGrid *grid, const QString &column, int span, int wordsSpan)
{
    const Item &placed = item(column);
    placed.companions->place(grid, placed.label, span, wordsSpan);
    applyDisplayed(placed);
}

void KForm::place(FormGrid *grid, std::initializer_list<Cell> cells)
{
    for (const Cell &cell : cells)
        place(grid, QString::fromLatin1(cell.column), cell.span, cell.wordsSpan);
}

void KForm::setUsed(const QString &column, bool used)
{
    Item &changed = item(column);
    changed.used = used;
    applyDisplayed(changed);
}

bool KForm::isUsed(const QString &column) const
{
    return item(column).used;
}

void KForm::applyDisplayed(const Item &item) const
{
    const bool shown = isShown(item);
    item.control->widget()->setVisible(shown);
    if (item.label)
        item.label->setVisible(shown);
    item.companions->showWords(shown);
    item.companions->showButtons(shown && !isReadOnly(item));
}

void KForm::setLabel(const QString &column, const QString &label)
{
    const Item &changed = item(column);
    const QString shown = label.isEmpty() ? changed.field.label : label;
    changed.label->setText(labelText(shown));
    nameControl(changed.control->widget(),
                label.isEmpty() && !changed.field.accessibleName.isEmpty() ? changed.field.accessibleName : shown);
}

void KForm::setChoices(const QString &column, const QStringList &choices)
{
    controlAs<EditableChoiceControl>(*item(column).control).setChoices(choices);
}

int KForm::key(const QString &column) const
{
    return controlAs<LookupControl>(*item(column).control).key();
}

void KForm::setKey(const QString &column, int key)
{
    controlAs<LookupControl>(*item(column).control).setKey(key);
}

void KForm::setCompletions(const QString &column, const QStringList &texts)
{
    item(column).control->setCompletions(texts);
}

void KForm::load(KMySQL &record)
{
    for (const Item &item : m_items)
        item.control->load(record.value(item.field.column));
}

void KForm::store(KMySQL &record) const
{
    for (const Item &item : m_items) {
        if (item.used && !item.field.readOnly)
            record.setValue(item.field.column, item.control->stored());
    }
}

void KForm::setShowMode(bool show)
{
    m_showMode = show;
    for (const Item &item : m_items)
        applyReadOnly(item);
}

void KForm::setReadOnly(const QString &column, bool readOnly)
{
    Item &changed = item(column);
    changed.readOnly = readOnly;
    applyReadOnly(changed);
}

void KForm::applyReadOnly(const Item &item) const
{
    item.control->setReadOnly(isReadOnly(item));
    item.companions->showButtons(isShown(item) && !isReadOnly(item));
}

QString KForm::errorOf(const Item &item)
{
    const QString error = item.control->error();
    if (!error.isEmpty() || !item.basicPlaneOnly)
        return error;
    const QString text = item.control->stored().toString();
    const bool fits = std::none_of(text.cbegin(), text.cend(), [](QChar c) { return c.isSurrogate(); });
    return fits ? QString() : u"نویسه‌ای دارد که قابل ذخیره نیست."_s;
}

std::optional<KForm::Problem> KForm::firstInvalid() const
{
    for (const Item &item : m_items) {
        const QString error = item.used ? errorOf(item) : QString();
        if (!error.isEmpty())
            return Problem{item.control->widget(), error};
    }
    return std::nullopt;
}
