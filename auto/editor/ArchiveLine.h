// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QGroupBox>

class KMySQL;
class QLabel;

// The card of an editor's page that shows, in a line, who archived the record and when; empty for one that is not archived.
class ArchiveLine final : public QGroupBox
{
    Q_OBJECT

public:
    explicit ArchiveLine(QWidget *parent = nullptr);

    // A record with the columns iArchiveUserID and dateArchive.
    void showArchived(KMySQL &record);

private:
    QLabel *m_user;
    QLabel *m_date;
};
