// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>
#include <QWidget>

#include <vector>

class KChip;
class QHBoxLayout;
class QLabel;
class QToolButton;

// The head of the filter box: its title, what was asked besides its filters, and of one that can be folded the button for that and, while it is folded, the conditions
// as chips. Those without room are counted in the last one.
class FilterHead : public QWidget
{
    Q_OBJECT

public:
    explicit FilterHead(const QString &title, QWidget *box);

    // From now on there is a button for folding.
    void setFoldable();
    void setFolded(bool folded);
    bool isFolded() const { return m_folded; }
    void setConditions(const QStringList &conditions);
    // What the list was asked for besides its filters; empty: nothing. It stands there folded or not.
    void setRequested(const QString &words);
    QToolButton *button() const { return m_button; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void toggleAsked();
    void requestDropped();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    int widthWith(qsizetype count) const;
    void fitChips();

    QHBoxLayout *m_line;
    QLabel *m_title;
    QLabel *m_open;
    KChip *m_more;
    KChip *m_requested;
    QToolButton *m_drop; // beside it
    QToolButton *m_button = nullptr;
    std::vector<KChip *> m_chips;
    QStringList m_conditions;
    bool m_folded = false;
};
