// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <stdexcept>

// A folder whose content is replaced as a whole: it is written beside and takes its place in one step, so that whoever looks, and whoever
// starts after a kill, finds the old one or the new one. A list in the folder names what was written; nothing else in it is ever deleted.
// One at a time writes a folder, of all programs that reach it.
class GalleryFolder
{
public:
    // what() is a sentence for the user, in UTF-8.
    struct Failure : std::runtime_error
    {
        explicit Failure(const QString &sentence)
            : std::runtime_error(sentence.toStdString())
        {
        }
    };

    // Clears away what a killed one left. Failure: the folder holds something, and no earlier gallery; nothing can be written there; or
    // another program is writing it.
    explicit GalleryFolder(const QString &folder);
    // Without replace(), what was written is gone and the folder is as it was.
    ~GalleryFolder();
    GalleryFolder(const GalleryFolder &) = delete;
    GalleryFolder &operator=(const GalleryFolder &) = delete;

    // A plain name, without a folder. Failure: it cannot be written, or is none.
    void add(const QString &name, const QByteArray &bytes);
    // One that was added is not wanted after all.
    void drop(const QString &name);
    // The new content takes the place of the old; what others put there stays.
    void replace();
    // Bytes of the files, without those that were dropped.
    qint64 size() const { return m_size; }

    static QString listName();

private:
    // Held by this process, and free again when it ends in whatever way.
    class Lock
    {
    public:
        explicit Lock(const QString &path);
        ~Lock();
        Lock(const Lock &) = delete;
        Lock &operator=(const Lock &) = delete;

    private:
        QByteArray m_path;
        int m_file = -1;
    };

    void prepare();
    void settle(const QString &left) const;
    void swap();

    QString m_folder;
    QString m_beside;
    QString m_retired; // where the file system cannot exchange two folders
    std::unique_ptr<Lock> m_lock;
    qint64 m_size = 0;
    bool m_replaced = false;
};
