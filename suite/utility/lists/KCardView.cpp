// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KCardView.h"

#include <QHelpEvent>
#include <QIdentityProxyModel>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QToolTip>

#include <algorithm>

#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int cardsGap = 12;
constexpr int cardMargin = 8; // around the inside, border included
constexpr int buttonSize = 28;

int halfGap()
{
    return LookSizes::scaled(cardsGap) / 2;
}

}

KCardView::Face::~Face() = default;

// The list's rows, with nothing of their cells but what a card says of itself.
class KCardView::Cards final : public QIdentityProxyModel
{
public:
    Cards(const Face &face, QObject *parent)
        : QIdentityProxyModel(parent)
        , m_face(face)
    {
    }

    // A screen reader counts a list's entries by them.
    int columnCount(const QModelIndex &parent) const override { return parent.isValid() ? 0 : 1; }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!index.isValid() || index.column() != 0)
            return {};
        switch (role) {
        case Qt::DisplayRole:
        case Qt::AccessibleTextRole:
            return m_face.text(index.row());
        case KListModel::KeyRole:
            return QIdentityProxyModel::data(index, role);
        default:
            return {};
        }
    }

private:
    const Face &m_face;
};

class KCardView::Painter final : public QStyledItemDelegate
{
public:
    explicit Painter(KCardView *view)
        : QStyledItemDelegate(view)
        , m_view(view)
    {
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const int gap = halfGap();
        m_view->paintCard(*painter, option.rect.adjusted(gap, gap, -gap, -gap), index.row(), option.state & QStyle::State_Selected);
    }

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override { return m_view->gridSize(); }

private:
    KCardView *m_view;
};

KCardView::KCardView(KExtListCtrl *list, std::unique_ptr<Face> face, QWidget *parent)
    : QListView(parent)
    , m_list(list)
    , m_face(std::move(face))
{
    auto *cards = new Cards(*m_face, this);
    cards->setSourceModel(list->listModel());
    setModel(cards);
    setItemDelegate(new Painter(this));
    setLayoutDirection(Qt::RightToLeft);
    // Not the table's own, which stands beside it.
    setAccessibleName(u"کارت‌های "_s + list->accessibleName());
    setFrameShape(QFrame::NoFrame);
    setFlow(LeftToRight);
    setWrapping(true);
    setResizeMode(Adjust);
    setUniformItemSizes(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setVerticalScrollMode(ScrollPerPixel);
    // A bar that came and went with the width of the cards would change it again.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setMouseTracking(true);
    viewport()->setBackgroundRole(QPalette::Window);
    connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this, &KCardView::takeListsRow);
    connect(cards, &QAbstractItemModel::modelReset, this, &KCardView::tellSight);
    connect(cards, &QAbstractItemModel::rowsRemoved, this, &KCardView::tellSight);
    connect(cards, &QAbstractItemModel::rowsInserted, this, &KCardView::tellSight);
    takeListsRow();
}

KCardView::~KCardView() = default;

void KCardView::setCommands(const QList<Command> &commands)
{
    m_buttons.clear();
    for (const Command &command : commands)
        m_buttons.push_back({command, LookIcons::icon(command.icon)});
    viewport()->update();
}

QRect KCardView::cardRect(int row) const
{
    const int gap = halfGap();
    return visualRect(model()->index(row, 0)).adjusted(gap, gap, -gap, -gap);
}

// From the trailing end of the card's foot on, the last one outermost.
QRect KCardView::buttonRect(const QRect &card, int button) const
{
    const int size = LookSizes::scaled(buttonSize);
    const int margin = LookSizes::scaled(cardMargin);
    const int place = static_cast<int>(m_buttons.size()) - 1 - button;
    const int fromEnd = margin + place * (size + LookSizes::unit);
    const int left = isRightToLeft() ? card.left() + fromEnd : card.right() + 1 - fromEnd - size;
    return {left, card.bottom() + 1 - margin - size, size, size};
}

QRect KCardView::commandRect(int row, QStringView id) const
{
    for (int button = 0; button < static_cast<int>(m_buttons.size()); ++button) {
        if (m_buttons[button].command.id == id)
            return buttonRect(cardRect(row), button);
    }
    return {};
}

KCardView::Spot KCardView::spotAt(const QPoint &point) const
{
    const QModelIndex index = indexAt(point);
    if (!index.isValid())
        return {};
    const QRect card = cardRect(index.row());
    if (!card.contains(point))
        return {};
    for (int button = 0; button < static_cast<int>(m_buttons.size()); ++button) {
        if (buttonRect(card, button).contains(point))
            return {index.row(), button};
    }
    return {index.row(), -1};
}

// The lines of cards are asked one after the other: their heights are one.
std::optional<std::pair<int, int>> KCardView::rowsInSight() const
{
    const int rows = model()->rowCount();
    const int height = gridSize().height();
    if (rows == 0 || height <= 0)
        return std::nullopt;
    const int top = verticalScrollBar()->value();
    const int first = std::min(top / height * m_columns, rows - 1);
    const int last = ((top + viewport()->height() - 1) / height + 1) * m_columns - 1;
    return std::pair(first, std::clamp(last, first, rows - 1));
}

void KCardView::facesChanged()
{
    viewport()->update();
}

// As many in a line as have their least width, and all of one width.
void KCardView::layOut()
{
    const int room = viewport()->width();
    const int gap = 2 * halfGap();
    const int least = LookSizes::scaled(m_face->leastWidth()) + gap;
    m_columns = std::max(1, room / least);
    const int width = room / m_columns;
    const int margins = 2 * LookSizes::scaled(cardMargin);
    const QSize size(width, m_face->height(width - gap - margins) + margins + gap);
    if (size == gridSize())
        return;
    setGridSize(size);
    verticalScrollBar()->setSingleStep(size.height() / 4);
}

void KCardView::takeListsRow()
{
    const QScopedValueRollback following(m_following, true);
    const int row = m_list->currentRow();
    if (row < 0)
        clearSelection();
    else if (row != currentIndex().row() || !selectionModel()->isSelected(currentIndex()))
        setCurrentIndex(model()->index(row, 0));
}

void KCardView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QListView::currentChanged(current, previous);
    if (!m_following && current.isValid())
        m_list->selectRow(current.row());
}

void KCardView::tellSight()
{
    if (!m_sightTold)
        return;
    m_sightTold = false;
    QTimer::singleShot(0, this, [this] {
        m_sightTold = true;
        Q_EMIT sightChanged();
    });
}

QModelIndex KCardView::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    const int rows = model()->rowCount();
    if (rows == 0)
        return {};
    const int from = currentIndex().isValid() ? currentIndex().row() : 0;
    if (!currentIndex().isValid())
        return model()->index(0, 0);
    const int onward = isRightToLeft() ? -1 : 1;
    const int page = std::max(1, viewport()->height() / std::max(1, gridSize().height())) * m_columns;
    int to = from;
    switch (action) {
    case MoveLeft:
        to = from - onward;
        break;
    case MoveRight:
        to = from + onward;
        break;
    case MovePrevious:
        to = from - 1;
        break;
    case MoveNext:
        to = from + 1;
        break;
    case MoveUp:
        to = from >= m_columns ? from - m_columns : from;
        break;
    case MoveDown:
        // From a whole line above into a shorter last one: to its end.
        to = from + m_columns < rows || from / m_columns == (rows - 1) / m_columns ? from + m_columns : rows - 1;
        to = to >= rows ? from : to;
        break;
    case MovePageUp:
        to = from >= page ? from - page : from % m_columns;
        break;
    case MovePageDown:
        to = from + page;
        break;
    case MoveHome:
        to = 0;
        break;
    case MoveEnd:
        to = rows - 1;
        break;
    }
    return model()->index(std::clamp(to, 0, rows - 1), 0);
}

void KCardView::keyPressEvent(QKeyEvent *event)
{
    const bool isAlone = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool hasCard = m_list->currentKey() > 0;
    if (isAlone && hasCard && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        Q_EMIT m_list->rowActivated(m_list->currentKey());
        return;
    }
    if (hasCard && m_list->isRowMenuOffered() && (event->key() == Qt::Key_Menu || (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier))) {
        const QRect card = cardRect(m_list->currentRow());
        Q_EMIT m_list->rowMenuRequested(viewport()->mapToGlobal(card.center()));
        return;
    }
    QListView::keyPressEvent(event);
}

void KCardView::mousePressEvent(QMouseEvent *event)
{
    m_pressed = event->button() == Qt::LeftButton ? spotAt(event->position().toPoint()) : Spot();
    QListView::mousePressEvent(event);
    m_rightPressedKey = event->button() == Qt::RightButton && spotAt(event->position().toPoint()).row >= 0 ? m_list->currentKey() : 0;
    viewport()->update();
}

void KCardView::mouseReleaseEvent(QMouseEvent *event)
{
    QListView::mouseReleaseEvent(event);
    const Spot spot = spotAt(event->position().toPoint());
    const Spot pressed = std::exchange(m_pressed, Spot());
    viewport()->update();
    if (event->button() == Qt::LeftButton && spot.button >= 0 && spot == pressed) {
        // By value: what it asks for may change the buttons.
        const QString id = m_buttons[spot.button].command.id;
        Q_EMIT commandAsked(id);
    } else if (event->button() == Qt::RightButton && spot.row >= 0 && m_rightPressedKey > 0 && m_list->currentKey() == m_rightPressedKey) {
        Q_EMIT m_list->rowRightClicked(m_rightPressedKey);
    }
}

void KCardView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const Spot spot = spotAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton)
        return;
    // The second click on a button is a click.
    if (spot.button >= 0)
        return mousePressEvent(event);
    if (spot.row < 0)
        Q_EMIT m_list->emptyAreaActivated();
    else if (m_list->currentKey() > 0)
        Q_EMIT m_list->rowActivated(m_list->currentKey());
}

void KCardView::hover(const QPoint &point)
{
    const Spot spot = spotAt(point);
    if (spot == m_hovered)
        return;
    m_hovered = spot;
    viewport()->update();
}

void KCardView::mouseMoveEvent(QMouseEvent *event)
{
    hover(event->position().toPoint());
    // A drag over the cards selects none of them.
    if (event->buttons() == Qt::NoButton)
        QListView::mouseMoveEvent(event);
}

void KCardView::leaveEvent(QEvent *event)
{
    m_hovered = {};
    viewport()->update();
    QListView::leaveEvent(event);
}

void KCardView::resizeEvent(QResizeEvent *event)
{
    layOut();
    QListView::resizeEvent(event);
    // The view would wait for a while, and show lines of the former width until then.
    doItemsLayout();
    tellSight();
}

void KCardView::scrollContentsBy(int dx, int dy)
{
    QListView::scrollContentsBy(dx, dy);
    m_hovered = {};
    tellSight();
}

void KCardView::showEvent(QShowEvent *event)
{
    layOut();
    QListView::showEvent(event);
    doItemsLayout();
    if (currentIndex().isValid())
        scrollTo(currentIndex());
    tellSight();
}

void KCardView::changeEvent(QEvent *event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        layOut();
}

bool KCardView::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QListView::viewportEvent(event);
    auto *help = static_cast<QHelpEvent *>(event);
    const Spot spot = spotAt(help->pos());
    const QString tip = spot.button >= 0 ? m_buttons[spot.button].command.text : spot.row >= 0 ? m_face->tip(spot.row)
                                                                                               : QString();
    if (tip.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), tip, viewport(), spot.button >= 0 ? buttonRect(cardRect(spot.row), spot.button) : cardRect(spot.row));
    return true;
}

void KCardView::paintCard(QPainter &painter, const QRect &card, int row, bool selected) const
{
    using HostColors::Role;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool hovered = m_hovered.row == row;
    const int border = selected ? LookSizes::ring : 1;
    const Role edge = selected ? (hasFocus() ? Role::Accent : Role::Edge) : hovered ? Role::Edge
                                                                                    : Role::Line;
    const qreal half = border / 2.0;
    painter.setPen(QPen(HostColors::of(edge), border));
    painter.setBrush(HostColors::of(Role::Surface));
    painter.drawRoundedRect(QRectF(card).adjusted(half, half, -half, -half), LookSizes::cardCorner, LookSizes::cardCorner);
    const int margin = LookSizes::scaled(cardMargin);
    painter.save();
    m_face->paint(painter, card.adjusted(margin, margin, -margin, -margin), row);
    painter.restore();
    for (int button = 0; button < static_cast<int>(m_buttons.size()); ++button) {
        const QRect room = buttonRect(card, button);
        if (hovered && m_hovered.button == button) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(HostColors::of(m_pressed == m_hovered ? Role::Select : Role::Hover));
            painter.drawRoundedRect(room, LookSizes::buttonCorner, LookSizes::buttonCorner);
        }
        const int size = LookSizes::scaled(LookSizes::iconSize);
        QRect place(0, 0, size, size);
        place.moveCenter(room.center());
        m_buttons[button].icon.paint(&painter, place);
    }
    painter.restore();
}
