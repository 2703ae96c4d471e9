// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>

// A copy of a template that is open in the word processor, and what is saved there. Looked at every second rather than watched: a word
// processor puts another file in the place of the one it opened, and a folder on the network reports nothing.
class TemplateEditing : public QObject
{
    Q_OBJECT

public:
    // In a private folder below temporary (empty: the user's own), which stays until the next start because the word processor may
    // have it open for longer than the window. seen: the key of the template in use that it is a copy of, 0 of the one that came along.
    TemplateEditing(int contractType, const QString &name, const QByteArray &file, qint32 seen, const QString &temporary, QObject *parent);
    ~TemplateEditing() override;

    int contractType() const { return m_contractType; }
    // Of the template, as the office calls it.
    QString name() const { return m_name; }
    // Empty where nothing could be written.
    QString path() const { return m_path; }
    qint32 seen() const { return m_seen; }
    // Whether something was saved that has not been taken back.
    bool isChanged() const;
    // Empty while it cannot be read, as in the middle of being saved.
    QByteArray content() const;
    // The content is in use now, by that key.
    void taken(const QByteArray &content, qint32 key);

Q_SIGNALS:
    // Once for each content that was saved, when it has stood still for a look.
    void saved();

private:
    void look();

    int m_contractType;
    QString m_name;
    QString m_path;
    qint32 m_seen;
    QByteArray m_known; // hash of what is in use
    QByteArray m_told;  // of what was reported last
    QByteArray m_last;  // at the last look
    QTimer m_clock;
};
