// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/image/TzImageExport.h"

#include <QListWidget>

class QMimeData;

// Small pictures side by side, from right to left, in rows. A cell without a picture yet shows the sign of one. Moving and taking
// are only asked for.
class TZIMAGE_EXPORT PictureThumbs : public QListWidget
{
    Q_OBJECT

public:
    // size: of a picture, in pixels at 100 %.
    explicit PictureThumbs(QWidget *parent, QSize size = {76, 57});

    // Moved with the mouse, and taking what is dropped; at first neither.
    void setArranged(bool arranged);
    // What stands in its place while it is empty.
    void setHint(const QString &hint);

    // Of that size at most, for a cell; sharp on the screen of the widget.
    QIcon iconOf(const QImage &image) const;
    QIcon noPicture() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // The row before which goes what is let go there, in the order in which one reads; count(): behind all.
    int rowBefore(const QPoint &place) const;

Q_SIGNALS:
    // To stand before that one; behind the last for count().
    void moveAsked(int row, int before);
    void offered(const QMimeData *mimeData);
    // Double click, Enter or Space. A cell that can be ticked is ticked by a click.
    void openAsked(int row);
    // Ctrl+Left, which is towards the end, and Ctrl+Right.
    void shiftAsked(int row, int by);
    void makeFirstAsked(int row); // Ctrl+Home
    void removeAsked(int row);
    void undoAsked();
    void pasteAsked();
    void menuAsked(const QPoint &globalPosition);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool isOwn(const QDropEvent *event) const { return event->source() == this; }

    QString m_hint;
    bool m_arranged = false;
};
