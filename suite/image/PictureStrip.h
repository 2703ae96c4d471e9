// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/attachments/RecordPictures.h"
#include "suite/image/PictureIntake.h"
#include "suite/image/TzImageExport.h"

#include <QIcon>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>

class KStaticImage;
class PictureThumbs;
class QHBoxLayout;
class QMimeData;
class QPushButton;

// The further pictures of a record beside the box of its first one: small, in their order, with the commands that add, order and
// remove them. Nothing is written; the record's save takes change(). A command can be taken back (Ctrl+Z) until the box is changed
// by itself.
//
// While the box is empty, the first picture that is added goes into it. Ctrl+Left and Ctrl+Right move a picture, Ctrl+Home makes it
// the record's first, Delete removes it, Enter shows it large.
class TZIMAGE_EXPORT PictureStrip : public QWidget
{
    Q_OBJECT
    // The strip is an entry of its window, as a line is.
    Q_PROPERTY(QStringList state READ state NOTIFY changed USER true)

public:
    explicit PictureStrip(KStaticImage *box, QWidget *parent = nullptr);
    ~PictureStrip() override;

    // Shows those of the record. The pictures themselves are read at once, and made small one after another, when the window has the time.
    void load(int recordKind, qint32 key);
    void setReadOnly(bool readOnly);

    int count() const { return int(m_entries.size()); }
    // Every picture has been read.
    bool isRead() const;
    // One text for each, which tells it from all others.
    QStringList state() const;
    RecordPictures::Change change() const;
    // Of the same pictures for another record, which has none yet.
    RecordPictures::Change asNew();
    PictureThumbs *thumbs() const { return m_thumbs; }

    // Each adds what can be taken, and tells in one message of what cannot; false when nothing was added. Refused while read-only.
    bool takeFiles(const QStringList &paths);
    bool takeMimeData(const QMimeData *mimeData);

    // Counted from 0. Nothing while read-only.
    void move(int row, int before);
    void makeFirst(int row);
    void remove(int row);
    void undo();
    bool canUndo() const { return !m_undo.isEmpty(); }

public Q_SLOTS:
    void chooseFiles();
    void chooseFromCamera();
    void paste();
    // All pictures, the box's first; row: of the strip, -1: the box's.
    void showLarge(int row);

Q_SIGNALS:
    void changed();

private:
    struct Entry
    {
        RecordPictures::Entry picture;
        QIcon icon;
        bool isRead = false;
    };
    struct Source
    {
        QString name;
        std::function<PictureIntake::Result()> take;
    };
    struct Before
    {
        QList<Entry> entries;
        RecordPictures::Entry first;
        std::optional<QByteArray> box; // where the command changed it
    };

    QHBoxLayout *buildCommands();
    void wireThumbs();
    void readAll();
    void readNext();
    QByteArray bytesOf(const RecordPictures::Entry &picture) const;
    bool takeAll(const QList<Source> &sources);
    void add(const QString &name, const PictureIntake::Result &taken);
    void tell(const QStringList &problems);
    void keepForUndo(bool changesBox);
    void setBox(const QByteArray &bytes);
    void show(int selected);
    void showMenu(const QPoint &globalPosition);

    KStaticImage *m_box;
    PictureThumbs *m_thumbs = nullptr;
    QPushButton *m_add = nullptr;
    QPushButton *m_camera = nullptr;
    QTimer m_reading;
    int m_recordKind = 0;
    qint32 m_key = 0;
    bool m_readOnly = false;
    bool m_settingBox = false;
    QList<qint32> m_opened;
    bool m_hasBytes = false; // what is stored was read
    QList<Entry> m_entries;
    RecordPictures::Entry m_first; // what the box shows; id 0: the record's own or a new one
    QList<Before> m_undo;
};
