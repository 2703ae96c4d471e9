// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/KForm.h"

#include "suite/db/KMySQL.h"
#include "suite/utility/entries/ComboWidth.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/entries/KStepArrows.h"
#include "suite/utility/values/Money.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

KEdit::Kind editKind(KFormField::Kind kind)
{
    switch (kind) {
    case KFormField::Kind::Money:
        return KEdit::Kind::Money;
    case KFormField::Kind::Percent:
        return KEdit::Kind::Percent;
    case KFormField::Kind::Integer:
        return KEdit::Kind::Integer;
    default:
        return KEdit::Kind::Text;
    }
}

int textLimit(const KFormField &field, KMySQL &record)
{
    const int columnLength = record.textLength(field.column);
    if (field.maxLength > 0 && columnLength > 0)
        return qMin(field.maxLength, columnLength);
    return field.maxLength > 0 ? field.maxLength : columnLength;
}

// Of a text that is longer than its line the beginning is in sight.
void showText(KEdit &edit, const QString &text)
{
    edit.setText(text);
    edit.setCursorPosition(0);
}

// The entry of that text is the current one, so that the arrow keys go on from it.
void setComboText(QComboBox &combo, const QString &text)
{
    combo.setCurrentIndex(combo.findText(text));
    combo.setEditText(text);
    combo.lineEdit()->setCursorPosition(0);
}

int comboKey(const QComboBox &combo)
{
    return combo.currentData().toInt();
}

void setComboKey(QComboBox &combo, int key)
{
    const int position = combo.findData(key);
    if (position < 0 && key != 0)
        combo.addItem(QStringLiteral("حذف شده"), key);
    combo.setCurrentIndex(position < 0 && key != 0 ? combo.count() - 1 : position);
}

// A drop-down that only shows its value is greyed by its frame and arrow, but its text is there to be read.
void keepTextReadable(QComboBox &combo)
{
    QPalette palette = QApplication::palette(&combo);
    for (const QPalette::ColorRole role : {QPalette::ButtonText, QPalette::Text})
        palette.setColor(QPalette::Disabled, role, palette.color(QPalette::Active, role));
    combo.setPalette(palette);
}

// No more lines than the page gives: a text of several lines is read by scrolling.
KTextArea *makeLongText(int limit, QWidget *page)
{
    auto *area = new KTextArea(page);
    area->setMaxLength(limit);
    area->setFixedHeight(area->sizeHint().height());
    return area;
}

}

KForm::KForm(QList<KFormField> fields, KMySQL &record, QWidget *page)
    : QObject(page)
    , m_fields(std::move(fields))
{
    m_items.reserve(m_fields.size());
    for (const KFormField &field : std::as_const(m_fields)) {
        Q_ASSERT_X(record.column(field.column), "KForm", qPrintable(field.column));
        m_positions.insert(field.column, m_items.size());
        m_items.append(makeItem(field, record, page));
    }
}

KForm::Item KForm::makeItem(const KFormField &field, KMySQL &record, QWidget *page)
{
    Item item;
    item.field = field;
    item.readOnly = field.readOnly;
    item.control = makeControl(field, record, page);
    item.control->setObjectName(field.column);
    if (field.kind == KFormField::Kind::Flag)
        nameControl(item.control, field.accessibleName.isEmpty() ? field.label : field.accessibleName);
    else
        item.label = labelFor(field.label, item.control, field.accessibleName);
    if (field.inWords)
        addWords(item, page);
    if (field.hasButton)
        addButton(item, page);
    if (field.hasArrows)
        item.arrows = new KStepArrows(qobject_cast<KEdit *>(item.control), page);
    applyDisplayed(item);
    applyReadOnly(item);
    return item;
}

QWidget *KForm::makeControl(const KFormField &field, KMySQL &record, QWidget *page)
{
    switch (field.kind) {
    case KFormField::Kind::Date:
        return new KDateEdit(page);
    case KFormField::Kind::Flag:
        return new QCheckBox(field.label, page);
    case KFormField::Kind::LongText:
        return makeLongText(textLimit(field, record), page);
    case KFormField::Kind::Choice:
    case KFormField::Kind::Lookup:
    case KFormField::Kind::EditableChoice: {
        auto *combo = new QComboBox(page);
        combo->setFocusPolicy(Qt::StrongFocus);
        combo->installEventFilter(this);
        keepTextReadable(*combo);
        if (field.kind == KFormField::Kind::Lookup && field.choices.isEmpty())
            keepComboWidth(*combo);
        combo->addItems(field.choices);
        // As the drop-downs of records show that nothing is chosen.
        if (!field.keys.isEmpty())
            combo->setPlaceholderText(QStringLiteral("-"));
        Q_ASSERT(field.keys.isEmpty() || field.keys.size() == field.choices.size());
        for (int i = 0; i < field.keys.size(); ++i)
            combo->setItemData(i, field.keys.at(i));
        if (field.kind == KFormField::Kind::EditableChoice) {
            combo->setEditable(true);
            combo->setInsertPolicy(QComboBox::NoInsert);
            // Offered in a list: completed in the line, a text that begins like an entry would end as that entry.
            combo->completer()->setCompletionMode(QCompleter::PopupCompletion);
            combo->completer()->setFilterMode(Qt::MatchContains);
            if (const int limit = textLimit(field, record); limit > 0)
                combo->lineEdit()->setMaxLength(limit);
        }
        return combo;
    }
    default:
        break;
    }
    auto *edit = new KEdit(field.leftToRight ? KEdit::Kind::Code : editKind(field.kind), page);
    if (field.kind == KFormField::Kind::Text) {
        const int limit = textLimit(field, record);
        if (field.leftToRight)
            edit->setCodeLength(limit);
        else if (limit > 0)
            edit->setMaxLength(limit);
    } else if (field.minimum != 0 || field.maximum != 0) {
        edit->setRange(field.minimum, field.maximum);
    }
    return edit;
}

void KForm::addWords(Item &item, QWidget *page)
{
    auto *words = new QLabel(page);
    words->setWordWrap(true);
    QFont small = words->font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    words->setFont(small);
    words->setForegroundRole(QPalette::PlaceholderText);
    connect(qobject_cast<KEdit *>(item.control), &KEdit::numberChanged, words, [words](double amount) {
        words->setText(IsEquals(amount, 0) ? QString() : amountInWords(amount));
    });
    item.words = words;
}

void KForm::addButton(Item &item, QWidget *page)
{
    const QString caption = QStringLiteral("...");
    item.button = new QPushButton(caption, page);
    item.button->setAccessibleName(item.control->accessibleName() + u' ' + caption);
    item.button->setAutoDefault(false);
    item.button->setMaximumWidth(item.button->fontMetrics().averageCharWidth() * 6);
}

// Who scrolls the page must not choose something else in a drop-down that comes below the pointer on the way.
bool KForm::eventFilter(QObject *watched, QEvent *event)
{
    auto *combo = qobject_cast<QComboBox *>(watched);
    if (combo && event->type() == QEvent::ApplicationPaletteChange)
        keepTextReadable(*combo);
    if (!combo || event->type() != QEvent::Wheel || combo->hasFocus())
        return QObject::eventFilter(watched, event);
    event->ignore();
    return true;
}

const KForm::Item &KForm::item(const QString &column) const
{
    const auto position = m_positions.constFind(column);
    Q_ASSERT_X(position != m_positions.cend(), "KForm", qPrintable(column));
    return m_items.at(*position);
}

KForm::Item &KForm::item(const QString &column)
{
    return const_cast<Item &>(std::as_const(*this).item(column));
}

QWidget *KForm::control(const QString &column) const
{
    return item(column).control;
}

KEdit *KForm::edit(const QString &column) const
{
    auto *edit = qobject_cast<KEdit *>(control(column));
    Q_ASSERT(edit);
    return edit;
}

KDateEdit *KForm::dateEdit(const QString &column) const
{
    auto *edit = qobject_cast<KDateEdit *>(control(column));
    Q_ASSERT(edit);
    return edit;
}

QComboBox *KForm::comboBox(const QString &column) const
{
    auto *combo = qobject_cast<QComboBox *>(control(column));
    Q_ASSERT(combo);
    return combo;
}

QCheckBox *KForm::checkBox(const QString &column) const
{
    auto *box = qobject_cast<QCheckBox *>(control(column));
    Q_ASSERT(box);
    return box;
}

KTextArea *KForm::longText(const QString &column) const
{
    auto *area = qobject_cast<KTextArea *>(control(column));
    Q_ASSERT(area);
    return area;
}

QLabel *KForm::label(const QString &column) const
{
    return item(column).label;
}

KStepArrows *KForm::arrows(const QString &column) const
{
    return item(column).arrows;
}

QPushButton *KForm::button(const QString &column) const
{
    return item(column).button;
}

void KForm::place(QGridLayout *grid, int row, int gridColumn, const QString &column, int span)
{
    const Item &placed = item(column);
    if (placed.label) {
        // Beside the first of several lines.
        const bool isTall = placed.field.kind == KFormField::Kind::LongText;
        grid->addWidget(placed.label, row, gridColumn, isTall ? Qt::AlignTop : Qt::Alignment());
    }
    if (placed.button || placed.arrows) {
        auto *line = new QHBoxLayout;
        line->setSpacing(2);
        line->addWidget(placed.control, 1);
        for (QWidget *companion : {static_cast<QWidget *>(placed.arrows), static_cast<QWidget *>(placed.button)}) {
            if (companion)
                line->addWidget(companion);
        }
        grid->addLayout(line, row, gridColumn + 1, 1, span);
    } else {
        grid->addWidget(placed.control, row, gridColumn + 1, 1, span);
    }
    if (placed.words)
        grid->addWidget(placed.words, row + 1, gridColumn + 1, 1, span);
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
    const bool shown = item.used && item.field.displayed;
    for (QWidget *widget : {item.control, static_cast<QWidget *>(item.label), static_cast<QWidget *>(item.words)}) {
        if (widget)
            widget->setVisible(shown);
    }
    showCompanions(item);
}

void KForm::showCompanions(const Item &item) const
{
    const bool shown = item.used && item.field.displayed;
    for (QWidget *companion : {static_cast<QWidget *>(item.button), static_cast<QWidget *>(item.arrows)}) {
        if (companion)
            companion->setVisible(shown && !isReadOnly(item));
    }
}

void KForm::setLabel(const QString &column, const QString &label)
{
    const Item &changed = item(column);
    const QString shown = label.isEmpty() ? changed.field.label : label;
    changed.label->setText(labelText(shown));
    nameControl(changed.control,
                label.isEmpty() && !changed.field.accessibleName.isEmpty() ? changed.field.accessibleName : shown);
}

void KForm::setChoices(const QString &column, const QStringList &choices)
{
    QComboBox *combo = comboBox(column);
    Q_ASSERT(combo->isEditable());
    const QString text = combo->currentText();
    const QSignalBlocker blocker(combo);
    combo->clear();
    combo->addItems(choices);
    setComboText(*combo, text);
}

int KForm::key(const QString &column) const
{
    return comboKey(*comboBox(column));
}

void KForm::setKey(const QString &column, int key)
{
    setComboKey(*comboBox(column), key);
}

void KForm::setCompletions(const QString &column, const QStringList &texts)
{
    if (auto *area = qobject_cast<KTextArea *>(control(column))) {
        area->setCompletions(texts);
        return;
    }
    auto *completer = new QCompleter(texts, edit(column));
    completer->setFilterMode(Qt::MatchContains);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    edit(column)->setCompleter(completer);
}

void KForm::load(KMySQL &record)
{
    for (const Item &item : std::as_const(m_items)) {
        const QVariant value = record.value(item.field.column);
        switch (item.field.kind) {
        case KFormField::Kind::Date:
            qobject_cast<KDateEdit *>(item.control)->setDateTime(value.toDateTime());
            break;
        case KFormField::Kind::Flag:
            qobject_cast<QCheckBox *>(item.control)->setChecked(value.toInt() != 0);
            break;
        case KFormField::Kind::Choice:
            qobject_cast<QComboBox *>(item.control)->setCurrentIndex(value.toInt());
            break;
        case KFormField::Kind::EditableChoice:
            setComboText(*qobject_cast<QComboBox *>(item.control), value.toString());
            break;
        case KFormField::Kind::Lookup:
            setComboKey(*qobject_cast<QComboBox *>(item.control), value.toInt());
            break;
        case KFormField::Kind::LongText:
            qobject_cast<KTextArea *>(item.control)->setText(value.toString());
            break;
        case KFormField::Kind::Text:
            showText(*qobject_cast<KEdit *>(item.control), value.toString());
            break;
        default:
            qobject_cast<KEdit *>(item.control)->setNumber(value.toDouble());
        }
    }
}

void KForm::store(KMySQL &record) const
{
    for (const Item &item : m_items) {
        if (!item.used)
            continue;
        QVariant value;
        switch (item.field.kind) {
        case KFormField::Kind::Date:
            value = qobject_cast<KDateEdit *>(item.control)->dateTime();
            break;
        case KFormField::Kind::Flag:
            value = qobject_cast<QCheckBox *>(item.control)->isChecked() ? 1 : 0;
            break;
        case KFormField::Kind::Choice:
            value = qMax(0, qobject_cast<QComboBox *>(item.control)->currentIndex());
            break;
        case KFormField::Kind::EditableChoice:
            value = qobject_cast<QComboBox *>(item.control)->currentText();
            break;
        case KFormField::Kind::Lookup:
            value = comboKey(*qobject_cast<QComboBox *>(item.control));
            break;
        case KFormField::Kind::LongText:
            value = qobject_cast<KTextArea *>(item.control)->text();
            break;
        case KFormField::Kind::Text:
            value = qobject_cast<KEdit *>(item.control)->plainText();
            break;
        default:
            value = qobject_cast<KEdit *>(item.control)->number();
        }
        record.setValue(item.field.column, value);
    }
}

void KForm::setShowMode(bool show)
{
    m_showMode = show;
    for (const Item &item : std::as_const(m_items))
        applyReadOnly(item);
}

void KForm::setReadOnly(const QString &column, bool readOnly)
{
    Item &changed = item(column);
    changed.readOnly = readOnly;
    applyReadOnly(changed);
}

void KForm::applyReadOnly(const Item &item)
{
    const bool readOnly = isReadOnly(item);
    if (auto *line = qobject_cast<QLineEdit *>(item.control))
        line->setReadOnly(readOnly);
    else if (auto *area = qobject_cast<KTextArea *>(item.control))
        area->setReadOnly(readOnly);
    else
        item.control->setEnabled(!readOnly);
    showCompanions(item);
}

std::optional<KForm::Problem> KForm::firstInvalid() const
{
    for (const Item &item : m_items) {
        if (!item.used)
            continue;
        QString error;
        if (const auto *edit = qobject_cast<KEdit *>(item.control))
            error = edit->entryError();
        else if (const auto *date = qobject_cast<KDateEdit *>(item.control))
            error = date->entryError();
        else if (const auto *area = qobject_cast<KTextArea *>(item.control))
            error = area->entryError();
        if (!error.isEmpty())
            return Problem{item.control, error};
    }
    return std::nullopt;
}
