// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

struct KFormField;
class AmountWords;
class KEdit;
class KStepArrows;
class QGridLayout;
class QPushButton;
class QWidget;

// What a field asks for around its control: the amount in words below it, a button or arrows behind it. Each is null where the
// field does not ask. They belong to the page. Inside the library only.
class FieldCompanions
{
public:
    // The control has its accessible name by now.
    FieldCompanions(const KFormField &field, QWidget *control, QWidget *page);

    QPushButton *button() const { return m_button; }
    KStepArrows *arrows() const { return m_arrows; }

    // Puts the control into the cell, with what stands behind it, and the words into the row below.
    void place(QGridLayout *grid, int row, int column, int span) const;

    void showWords(bool shown) const;
    // The button and the arrows.
    void showButtons(bool shown) const;

private:
    void addWords(KEdit *amount, QWidget *page);
    void addButton(QWidget *page);

    QWidget *m_control;
    AmountWords *m_words = nullptr;
    QPushButton *m_button = nullptr;
    KStepArrows *m_arrows = nullptr;
};
