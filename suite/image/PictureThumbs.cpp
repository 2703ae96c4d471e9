// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/image/PictureThumbs.h"

#include "suite/image/PictureOffer.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace {

// The picture in the middle of its cell, whose ground says that it is the current one, and its tick in the corner.
class PictureCell : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        using Role = HostColors::Role;
        painter->save();
        if (option.state.testFlag(QStyle::State_Selected) || option.state.testFlag(QStyle::State_MouseOver)) {
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(Qt::NoPen);
            painter->setBrush(HostColors::of(option.state.testFlag(QStyle::State_Selected) ? Role::Select : Role::Hover));
            painter->drawRoundedRect(option.rect, LookSizes::controlCorner, LookSizes::controlCorner);
        }
        const QRect place = option.rect.marginsRemoved({LookSizes::unit / 2, LookSizes::unit / 2, LookSizes::unit / 2, LookSizes::unit / 2});
        index.data(Qt::DecorationRole).value<QIcon>().paint(painter, place);
        if (const QVariant tick = index.data(Qt::CheckStateRole); tick.isValid())
            paintTick(painter, option, place, tick.toInt() == Qt::Checked);
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const override
    {
        return option.decorationSize + QSize(LookSizes::unit, LookSizes::unit);
    }

    bool editorEvent(QEvent *, QAbstractItemModel *, const QStyleOptionViewItem &, const QModelIndex &) override { return false; }

private:
    static void paintTick(QPainter *painter, const QStyleOptionViewItem &option, const QRect &place, bool isOn)
    {
        const QStyle *style = option.widget->style();
        QStyleOptionButton tick;
        tick.initFrom(option.widget);
        tick.state = QStyle::State_Enabled | (isOn ? QStyle::State_On : QStyle::State_Off);
        const QSize size(style->pixelMetric(QStyle::PM_IndicatorWidth), style->pixelMetric(QStyle::PM_IndicatorHeight));
        tick.rect = QStyle::alignedRect(option.direction, Qt::AlignTop | Qt::AlignLeft, size, place.adjusted(2, 2, -2, -2));
        style->drawPrimitive(QStyle::PE_IndicatorCheckBox, &tick, painter, option.widget);
    }
};

bool isTickable(const QListWidgetItem *item)
{
    return item->data(Qt::CheckStateRole).isValid();
}

}

PictureThumbs::PictureThumbs(QWidget *parent, QSize size)
    : QListWidget(parent)
{
    setFlow(QListView::LeftToRight);
    setWrapping(true);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setIconSize({LookSizes::scaled(size.width()), LookSizes::scaled(size.height())});
    setGridSize(iconSize() + QSize(LookSizes::unit, LookSizes::unit));
    setItemDelegate(new PictureCell(this));
    setMouseTracking(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    setProperty(KDialog::actsOnEnter, true);
    setProperty(KDialog::followsSelection, true);
    connect(this, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem *item) {
        if (!isTickable(item))
            Q_EMIT openAsked(row(item));
    });
    connect(this, &QListWidget::itemClicked, this, [](QListWidgetItem *item) {
        if (isTickable(item))
            item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    });
}

void PictureThumbs::setArranged(bool arranged)
{
    m_arranged = arranged;
    setDragEnabled(arranged);
    setAcceptDrops(arranged);
    setDropIndicatorShown(arranged);
    setDragDropMode(arranged ? DragDrop : NoDragDrop);
    setDefaultDropAction(Qt::MoveAction);
}

void PictureThumbs::setHint(const QString &hint)
{
    m_hint = hint;
    viewport()->update();
}

QIcon PictureThumbs::iconOf(const QImage &image) const
{
    const qreal ratio = devicePixelRatioF();
    QPixmap pixmap = QPixmap::fromImage(image.scaled(iconSize() * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    pixmap.setDevicePixelRatio(ratio);
    QIcon icon(pixmap);
    // Not tinted where it is selected: the cell's ground says so.
    icon.addPixmap(pixmap, QIcon::Selected);
    return icon;
}

QIcon PictureThumbs::noPicture() const
{
    return LookIcons::icon(u":/icons/picture.svg"_s);
}

// Two rows, of which one may do.
QSize PictureThumbs::sizeHint() const
{
    const int frame = 2 * frameWidth();
    return {3 * gridSize().width() + verticalScrollBar()->sizeHint().width() + frame, 2 * gridSize().height() + frame};
}

QSize PictureThumbs::minimumSizeHint() const
{
    return sizeHint() - QSize(gridSize().width(), gridSize().height());
}

// Its own keys come to it even where the window around it has a shortcut on them.
bool PictureThumbs::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool shifts = key->modifiers().testFlag(Qt::ControlModifier) && (key->key() == Qt::Key_Left || key->key() == Qt::Key_Right);
        if (shifts || key->matches(QKeySequence::Paste) || key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Delete)) {
            event->accept();
            return true;
        }
    }
    return QListWidget::event(event);
}

void PictureThumbs::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    const int at = currentRow();
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool isCtrl = (event->modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
    if (event->matches(QKeySequence::Paste))
        Q_EMIT pasteAsked();
    else if (event->matches(QKeySequence::Undo))
        Q_EMIT undoAsked();
    else if (event->matches(QKeySequence::Delete) && at >= 0)
        Q_EMIT removeAsked(at);
    else if (isPlain && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) && at >= 0)
        Q_EMIT openAsked(at);
    else if (isCtrl && (key == Qt::Key_Left || key == Qt::Key_Right) && at >= 0)
        Q_EMIT shiftAsked(at, key == Qt::Key_Left ? 1 : -1);
    else if (isCtrl && key == Qt::Key_Home && at >= 0)
        Q_EMIT makeFirstAsked(at);
    else
        QListWidget::keyPressEvent(event);
}

// As one reads, also from the end of one row to the beginning of the next.
QModelIndex PictureThumbs::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    if (action != MoveLeft && action != MoveRight)
        return QListWidget::moveCursor(action, modifiers);
    const int by = (action == MoveLeft) == (layoutDirection() == Qt::RightToLeft) ? 1 : -1;
    const QModelIndex next = model()->index(currentRow() + by, 0);
    return next.isValid() ? next : currentIndex();
}

void PictureThumbs::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Mouse)
        setCurrentItem(itemAt(event->pos()));
    const QListWidgetItem *item = currentItem();
    const QPoint place = item ? visualItemRect(item).center() : rect().center();
    Q_EMIT menuAsked(event->reason() == QContextMenuEvent::Mouse ? event->globalPos() : viewport()->mapToGlobal(place));
}

void PictureThumbs::dragEnterEvent(QDragEnterEvent *event)
{
    if (isOwn(event))
        event->acceptProposedAction();
    else if (m_arranged && PictureOffer(*event->mimeData()).kind() != PictureOffer::None) {
        // Copied, never moved: the source of the drag keeps what it offered.
        event->setDropAction(Qt::CopyAction);
        event->accept();
    } else {
        event->ignore();
    }
}

void PictureThumbs::dragMoveEvent(QDragMoveEvent *event)
{
    dragEnterEvent(static_cast<QDragEnterEvent *>(event));
}

// The one whose nearer half begins behind that place, as one reads.
int PictureThumbs::rowBefore(const QPoint &place) const
{
    for (int row = 0; row < count(); ++row) {
        const QRect cell = visualItemRect(item(row));
        const bool isBefore = layoutDirection() == Qt::RightToLeft ? place.x() > cell.center().x() : place.x() < cell.center().x();
        if (place.y() < cell.top() || (place.y() <= cell.bottom() && isBefore))
            return row;
    }
    return count();
}

void PictureThumbs::dropEvent(QDropEvent *event)
{
    if (isOwn(event)) {
        // Asked for, not moved: the view is not to take the cell away afterwards.
        event->setDropAction(Qt::CopyAction);
        event->accept();
        Q_EMIT moveAsked(currentRow(), rowBefore(event->position().toPoint()));
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    Q_EMIT offered(event->mimeData());
}

void PictureThumbs::paintEvent(QPaintEvent *event)
{
    QListWidget::paintEvent(event);
    if (count() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(HostColors::of(HostColors::Role::Hint));
    painter.drawText(viewport()->rect().adjusted(LookSizes::unit, 0, -LookSizes::unit, 0), Qt::AlignCenter | Qt::TextWordWrap, m_hint);
}
