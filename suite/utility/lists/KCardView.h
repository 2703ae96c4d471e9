// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QIcon>
#include <QListView>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "suite/utility/TzUtilityExport.h"

class KExtListCtrl;

// The rows of a list as cards side by side, beside the list and over its model: the same rows in the same order, the same row selected in both.
// What is done with a card is done with its row, through the list's signals. One card is selected at most.
//
// The arrow keys go to the neighbours, from the end of a line to the beginning of the next; Enter and a double click activate.
class TZUTILITY_EXPORT KCardView : public QListView
{
    Q_OBJECT

public:
    // What a card shows. Asked for the cards in sight alone.
    class TZUTILITY_EXPORT Face
    {
    public:
        virtual ~Face();
        // The inside of a card of that width, without its border; in pixels.
        virtual int height(int width) const = 0;
        virtual int leastWidth() const = 0;
        // Within the inside of the card. The commands stand at the trailing end of its last lines.
        virtual void paint(QPainter &painter, const QRect &inside, int row) const = 0;
        // What a screen reader says of it.
        virtual QString text(int row) const = 0;
        // In full, where what is painted there may be cut; empty: nothing.
        virtual QString tip(int row) const = 0;
    };

    // A small button at the foot of each card.
    struct Command
    {
        QString id;   // plain English
        QString text; // its tip
        QString icon; // path
    };

    KCardView(KExtListCtrl *list, std::unique_ptr<Face> face, QWidget *parent = nullptr);
    ~KCardView() override;

    void setCommands(const QList<Command> &commands);
    // The card's place in the viewport, without the gap around it.
    QRect cardRect(int row) const;
    // The place of a command there; an empty one where there is none of that id.
    QRect commandRect(int row, QStringView id) const;
    // Those of which a part is in sight; first and last, none in an empty list.
    std::optional<std::pair<int, int>> rowsInSight() const;
    // What the cards show has changed; their rows have not.
    void facesChanged();

Q_SIGNALS:
    // A command's button on the card that is selected.
    void commandAsked(const QString &id);
    // Others may be in sight now, or the rows are others. Comes once for what happens at one time.
    void sightChanged();

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    class Cards;
    class Painter;
    struct Button
    {
        Command command;
        QIcon icon;
    };
    // A button of a card.
    struct Spot
    {
        int row = -1;
        int button = -1;
        friend bool operator==(const Spot &, const Spot &) = default;
    };

    QRect buttonRect(const QRect &card, int button) const;
    Spot spotAt(const QPoint &point) const;
    void hover(const QPoint &point);
    void layOut();
    void takeListsRow();
    void tellSight();
    void paintCard(QPainter &painter, const QRect &card, int row, bool selected) const;

    KExtListCtrl *m_list;
    std::unique_ptr<Face> m_face;
    std::vector<Button> m_buttons;
    int m_columns = 1;
    Spot m_hovered;
    Spot m_pressed;
    bool m_following = false; // the list's row is being taken over
    bool m_sightTold = true;
    int m_rightPressedKey = 0;
};
