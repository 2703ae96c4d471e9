// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/forms/DropDownControls.h"

#include "suite/utility/entries/ComboWidth.h"
#include "suite/utility/forms/KFormField.h"

#include <QCompleter>
#include <QLineEdit>

using namespace Qt::StringLiterals;

DropDownControl::DropDownControl(const KFormField &field, QWidget *page)
    : m_combo(new KDropDown(page))
{
    m_combo->addItems(field.choices);
}

EditableChoiceControl::EditableChoiceControl(const KFormField &field, KMySQL &record, QWidget *page)
    : DropDownControl(field, page)
{
    m_combo->setEditable(true);
    m_combo->setInsertPolicy(QComboBox::NoInsert);
    // Offered in a list: completed in the line, a text that begins like an entry would end as that entry.
    m_combo->completer()->setCompletionMode(QCompleter::PopupCompletion);
    m_combo->completer()->setFilterMode(Qt::MatchContains);
    if (const int limit = textLimit(field, record); limit > 0)
        m_combo->lineEdit()->setMaxLength(limit);
}

void EditableChoiceControl::setChoices(const QStringList &choices)
{
    const QString text = m_combo->currentText();
    const QSignalBlocker blocker(m_combo);
    m_combo->clear();
    m_combo->addItems(choices);
    setText(text);
}

// The entry of that text is the current one, so that the arrow keys go on from it.
void EditableChoiceControl::setText(const QString &text)
{
    m_combo->setCurrentIndex(m_combo->findText(text));
    m_combo->setEditText(text);
    m_combo->lineEdit()->setCursorPosition(0);
}

LookupControl::LookupControl(const KFormField &field, KMySQL &, QWidget *page)
    : DropDownControl(field, page)
{
    Q_ASSERT(field.keys.isEmpty() || field.keys.size() == field.choices.size());
    if (field.choices.isEmpty())
        keepComboWidth(*m_combo);
    // As the drop-downs of records show that nothing is chosen.
    if (!field.keys.isEmpty())
        m_combo->setPlaceholderText(u"-"_s);
    for (int i = 0; i < field.keys.size(); ++i)
        m_combo->setItemData(i, field.keys.at(i));
}

void LookupControl::setKey(int key)
{
    const int position = m_combo->findData(key);
    const bool isGone = position < 0 && key != 0;
    if (isGone)
        m_combo->addItem(u"حذف شده"_s, key);
    m_combo->setCurrentIndex(isGone ? m_combo->count() - 1 : position);
}
