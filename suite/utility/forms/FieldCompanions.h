// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

struct KFormField;
class AmountWords;
class FieldNote;
class FormGrid;
class KEdit;
class KStepArrows;
class QLabel;
class QPushButton;
class QWidget;

// What stands around a field's control: beside its label the note, which holds the amount in words; behind it a button or arrows.
// Button and arrows are null where the field does not ask for them. They belong to the page. Inside the library only.
class FieldCompanions
{
public:
    // The control has its accessible name by now.
    FieldCompanions(const KFormField &field, QWidget *control, QWidget *page);

    QPushButton *button() const { return m_button; }
    KStepArrows *arrows() const { return m_arrows; }

    // Adds the field to the grid. With wordsSpan the amount in words has a cell of its own behind the field.
    void place(FormGrid *grid, QLabel *label, int span, int wordsSpan);

    // The note and the words.
    void showWords(bool shown) const;
    // The button and the arrows.
    void showButtons(bool shown) const;

private:
    void wireWords(KEdit *amount);
    void addButton(QWidget *page);

    QWidget *m_control;
    FieldNote *m_note = nullptr;
    AmountWords *m_words = nullptr;
    QPushButton *m_button = nullptr;
    KStepArrows *m_arrows = nullptr;
    bool m_isOnGrid = false;
};
