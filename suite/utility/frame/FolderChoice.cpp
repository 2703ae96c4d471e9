// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/FolderChoice.h"

#include <QFileDialog>
#include <QStandardPaths>

QString ShowBrowseForFolder(QWidget *parent, const QString &prompt, const QString &begin)
{
    QFileDialog dialog(parent, prompt);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setDirectory(begin.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) : begin);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}
