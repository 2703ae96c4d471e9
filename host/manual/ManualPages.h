// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

// The manual as it is written: pages of Markdown in a folder, the order of the contents, and which page each window has.
class ManualPages
{
public:
    struct Entry
    {
        QString group; // heading of the contents that it stands under
        QString page;
        QString title;
    };

    static const QString contentsPage;
    static const QString windowsPage;

    explicit ManualPages(QString folder = ofProgram());
    // Where the pages of this program are.
    static QString ofProgram();

    const QString &folder() const { return m_folder; }
    // As the contents page has them, that page left out.
    const QList<Entry> &contents() const { return m_contents; }
    bool has(const QString &page) const;
    // Without licence and frame; empty: there is no such page.
    QString text(const QString &page) const;
    // What of it is read: without the targets of links and the names of pictures.
    QString words(const QString &page) const;
    // Of the first of these classes that has one; empty: none has.
    QString pageOf(const QStringList &classes) const;

private:
    void readContents();
    void readWindows();

    QString m_folder;
    QList<Entry> m_contents;
    QHash<QString, QString> m_windows; // class of a window, page
};
