// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/image/TzImageExport.h"
#include "suite/utility/frame/KDialog.h"

#include <QStringList>
#include <QTimer>

class PictureThumbs;
class QLabel;
class QPushButton;

// The pictures of the folder into which the camera or telephone copies them, the newest first; the ticked ones are taken. Each user's
// folder is remembered on this computer.
class TZIMAGE_EXPORT CDlgCameraFolder : public KDialog
{
    Q_OBJECT

public:
    // Most files that are offered, the newest ones.
    static constexpr int mostOffered = 300;

    // The chosen files, the oldest first, as they were taken; empty: cancelled.
    static QStringList Choose(QWidget *parent);

    explicit CDlgCameraFolder(QWidget *parent = nullptr);

    void setFolder(const QString &folder);
    const QString &folder() const { return m_folder; }
    QStringList ticked() const;
    PictureThumbs *thumbs() const { return m_thumbs; }

    // Of the current user; empty: none is known, or it is not there any more.
    static QString rememberedFolder();

protected:
    bool OnOK() override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void chooseFolder();
    void readNext();
    void showTicked();

    QString m_folder;
    QStringList m_files;
    QList<bool> m_read;
    PictureThumbs *m_thumbs;
    QLabel *m_path;
    QLabel *m_count;
    QTimer m_reading;
};
