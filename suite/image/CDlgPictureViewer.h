// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/image/TzImageExport.h"
#include "suite/utility/frame/KDialog.h"

#include <QByteArray>
#include <QList>

#include <functional>

class PictureCanvas;
class QLabel;
class QPushButton;

// All pictures of a record, one at a time, as large as the window lets it be. As one reads, the next one is to the left.
//
// Left and Page Down show the next one, right and Page Up the one before, Home and End the first and last; + and - or the wheel
// zoom, 0 fits it in again, and a picture that is larger than the window is moved with the mouse. F11 fills the screen, Esc leaves
// that and then the window, and so does a double click. Ctrl+S saves the picture as it is stored, Ctrl+P prints it.
class TZIMAGE_EXPORT CDlgPictureViewer : public KDialog
{
    Q_OBJECT

public:
    struct Picture
    {
        QString name; // empty: it has none
        // As it is stored; empty where it is gone. Asked for each time that it is shown.
        std::function<QByteArray()> bytes;
    };

    // Of the record (RecordKinds.h, key), from its own one on. Told when there is none, and to a user who may not read such records.
    static void Show(int recordKind, qint32 key, QWidget *parent);

    // title: a label's colon at its end does not count.
    CDlgPictureViewer(QList<Picture> pictures, const QString &title, qsizetype first, QWidget *parent);

    qsizetype current() const { return m_current; }
    // "2 از 5", after the name of the file where it has one.
    QString place() const;
    PictureCanvas *canvas() const { return m_canvas; }
    // False, after a message, where it could not be written.
    bool saveAs(const QString &path);
    // The name offered for it.
    QString fileName() const;

public Q_SLOTS:
    void goTo(qsizetype picture); // nothing before the first and behind the last
    void switchFullScreen();
    void chooseFileAndSave();
    void print();
    void reject() override;

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    void build();
    void bindKeys();

    QList<Picture> m_pictures;
    qsizetype m_current = 0;
    QByteArray m_bytes;
    PictureCanvas *m_canvas = nullptr;
    QLabel *m_place = nullptr;
    QPushButton *m_before = nullptr;
    QPushButton *m_next = nullptr;
    QList<QPushButton *> m_onPicture; // for one that can be shown
};
