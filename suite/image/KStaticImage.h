// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KLongBinary.h"
#include "suite/image/PictureIntake.h"
#include "suite/image/TzImageExport.h"

#include <QPen>
#include <QWidget>

#include <functional>

class QMimeData;

// The picture box of a record: shows one picture, takes another from a file, a paste or a drop, and holds the bytes that are
// stored.
//
// Enter, Space or a double click asks for a file while the box is empty and shows the picture large when it is not; Ctrl+V
// pastes, Ctrl+C copies, Delete empties the box; all of it also stands in the menu (right click, menu key). Whatever cannot
// be taken is reported in one message and leaves the box as it was. A stored picture that cannot be decoded is shown as such,
// and its bytes are kept until another picture takes its place or the box is emptied.
class TZIMAGE_EXPORT KStaticImage : public QWidget
{
    Q_OBJECT
    // The box is an entry of its window, as a line is.
    Q_PROPERTY(QByteArray bytes READ bytes NOTIFY changed USER true)

public:
    explicit KStaticImage(QWidget *parent = nullptr);
    ~KStaticImage() override;

    // The bytes as they are stored: untouched ones as they were loaded. Empty: no picture.
    const QByteArray &bytes() const { return m_bytes; }
    // What is shown; null for an empty box and for a broken picture.
    const QImage &image() const { return m_image; }
    bool isEmpty() const { return m_bytes.isEmpty(); }
    // Holds bytes that cannot be shown.
    bool isBroken() const { return !m_bytes.isEmpty() && m_image.isNull(); }
    // The user has changed the picture since it was loaded.
    bool isModified() const { return m_modified; }

    // Read-only the picture can still be shown large and copied.
    void setReadOnly(bool readOnly);
    bool isReadOnly() const { return m_readOnly; }

    // Shows what the database holds; not a change, so changed() is not emitted.
    void load(const QByteArray &stored);

    // Holds the bytes of a picture that was taken before; a change of the user's.
    void replace(const QByteArray &bytes);

    // Of a record with several pictures: what shows them all, and what takes several files at once. Without, one at a time.
    void setViewer(std::function<void()> viewer) { m_viewer = std::move(viewer); }
    void setTaker(std::function<void(const QStringList &paths)> taker) { m_taker = std::move(taker); }

    // The commands of the user; false when nothing was taken; the user has then been told why. Refused while read-only.
    bool takeFile(const QString &path);
    bool takeMimeData(const QMimeData *mimeData);
    bool clear();

public Q_SLOTS:
    // Asks for a file.
    void chooseFile();
    void paste();
    void copy();
    // In a window of its own, as large as it fits.
    void showLarge();
    // What Enter and a double click do.
    void activate();

Q_SIGNALS:
    // The user took another picture or emptied the box.
    void changed();

public:
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    // Describes in words what the box shows or asks for.
    QString stateText() const;

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    // Each returns the message for the user; nothing when the picture was taken.
    QString tryFile(const QString &path);
    QString tryMimeData(const QMimeData &mimeData);
    QString tryResult(const PictureIntake::Result &result);
    void hold(const QByteArray &bytes, const QImage &image, bool modified);
    bool tell(const QString &problem);
    void showMenu(const QPoint &globalPosition);
    QPen framePen() const;
    void paintPicture(QPainter &painter, const QRect &area);
    void paintText(QPainter &painter, const QRect &area);

    QByteArray m_bytes;
    QImage m_image;
    QImage m_shown; // m_image in the dots of the screen
    std::function<void()> m_viewer;
    std::function<void(const QStringList &)> m_taker;
    bool m_modified = false;
    bool m_readOnly = false;
    bool m_dragOver = false;
};

// The bytes into the column's value, and the column's value into the box.
TZIMAGE_EXPORT void SaveKStaticImageToLongBinary(const KStaticImage &image, KLongBinary &value);
TZIMAGE_EXPORT void LoadKStaticImageFromLongBinary(KStaticImage &image, const KLongBinary &value);
