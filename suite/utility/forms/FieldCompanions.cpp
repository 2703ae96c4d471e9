// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/forms/FieldCompanions.h"

#include "suite/utility/entries/AmountWords.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/KStepArrows.h"
#include "suite/utility/forms/KFormField.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

FieldCompanions::FieldCompanions(const KFormField &field, QWidget *control, QWidget *page)
    : m_control(control)
{
    if (field.inWords)
        addWords(qobject_cast<KEdit *>(control), page);
    if (field.hasButton)
        addButton(page);
    if (field.hasArrows)
        m_arrows = new KStepArrows(qobject_cast<KEdit *>(control), page);
}

void FieldCompanions::addWords(KEdit *amount, QWidget *page)
{
    m_words = new AmountWords(page);
    QFont small = m_words->font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    m_words->setFont(small);
    m_words->setForegroundRole(QPalette::PlaceholderText);
    QObject::connect(amount, &KEdit::numberChanged, m_words, [words = m_words](double number) { words->showAmount(number); });
}

void FieldCompanions::addButton(QWidget *page)
{
    const QString caption = u"..."_s;
    m_button = new QPushButton(caption, page);
    m_button->setAccessibleName(m_control->accessibleName() + u' ' + caption);
    m_button->setAutoDefault(false);
    m_button->setMaximumWidth(m_button->fontMetrics().averageCharWidth() * 6);
}

void FieldCompanions::place(QGridLayout *grid, int row, int column, int span) const
{
    if (m_button || m_arrows) {
        auto *line = new QHBoxLayout;
        line->setSpacing(2);
        line->addWidget(m_control, 1);
        if (m_arrows)
            line->addWidget(m_arrows);
        if (m_button)
            line->addWidget(m_button);
        grid->addLayout(line, row, column, 1, span);
    } else {
        grid->addWidget(m_control, row, column, 1, span);
    }
    if (m_words)
        grid->addWidget(m_words, row + 1, column, 1, span);
}

void FieldCompanions::showWords(bool shown) const
{
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
