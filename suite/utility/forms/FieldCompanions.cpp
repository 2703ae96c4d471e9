// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/forms/FieldCompanions.h"

#include "suite/utility/entries/AmountWords.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/KStepArrows.h"
#include "suite/utility/forms/KFormField.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QHBoxLayout>
#include <QPushButton>

#include <utility>

using namespace Qt::StringLiterals;

FieldCompanions::FieldCompanions(const KFormField &field, QWidget *control, QWidget *page)
    : m_control(control)
    , m_note(field.kind == KFormField::Kind::Flag ? nullptr : new FieldNote(control, page))
{
    if (m_note)
        m_note->hide();
    if (field.inWords) {
        m_words = new AmountWords(page);
        m_words->hide();
        wireWords(qobject_cast<KEdit *>(control));
    }
    if (field.hasButton)
        addButton(page);
    if (field.hasArrows)
        m_arrows = new KStepArrows(qobject_cast<KEdit *>(control), page);
}

// Whichever of the two shows them.
void FieldCompanions::wireWords(KEdit *amount)
{
    QObject::connect(amount, &KEdit::numberChanged, m_words, [words = m_words](double number) { words->showAmount(number); });
}

void FieldCompanions::addButton(QWidget *page)
{
    const QString caption = u"..."_s;
    m_button = new QPushButton(caption, page);
    m_button->setAccessibleName(m_control->accessibleName() + u' ' + caption);
    m_button->setAutoDefault(false);
    LookMarks::setButton(m_button, LookMarks::Button::Small);
    m_button->setMinimumWidth(LookSizes::scaled(LookSizes::control) + LookSizes::unit);
    m_button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void FieldCompanions::place(FormGrid *grid, QLabel *label, int span, int wordsSpan)
{
    if (m_words && wordsSpan == 0) {
        QObject::connect(qobject_cast<KEdit *>(m_control), &KEdit::numberChanged, m_note,
                         [note = m_note](double number) { note->setOwnText(AmountWords::wordsOf(number)); });
        m_note->setOwnText(m_words->text());
        delete std::exchange(m_words, nullptr);
    }
    if (m_button || m_arrows) {
        auto *line = new QHBoxLayout;
        line->setSpacing(LookSizes::unit / 2);
        line->addWidget(m_control, 1);
        if (m_arrows)
            line->addWidget(m_arrows);
        if (m_button)
            line->addWidget(m_button);
        grid->addField(label, m_note, line, span);
    } else {
        grid->addField(label, m_note, m_control, span);
    }
    // Words that have a row of their own stand at its end, where the last field above them is.
    if (m_words && wordsSpan > span)
        m_words->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    if (m_words)
        grid->addCell(m_words, wordsSpan);
    m_isOnGrid = true;
}

void FieldCompanions::showWords(bool shown) const
{
    if (m_note)
        m_note->setVisible(shown && m_isOnGrid);
    if (m_words)
        m_words->setVisible(shown);
}

void FieldCompanions::showButtons(bool shown) const
{
    if (m_button)
        m_button->setVisible(shown);
    if (m_arrows)
        m_arrows->setVisible(shown);
}
