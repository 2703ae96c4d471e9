// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/documents/TzDocumentsExport.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <stdexcept>

struct zip;

// Why a package is not taken, in English, for the log.
class TZDOCUMENTS_EXPORT PackageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// The entries of a zip in memory that came from outside: of names that lead nowhere else, packed in a way that every reader
// understands, and bounded in number and in size, by what they declare and by what comes out.
class TZDOCUMENTS_EXPORT ZipEntries
{
public:
    static constexpr int maxEntries = 4000;

    struct Entry
    {
        QString name; // without a leading slash
        quint64 index = 0;
    };

    // maxUnpacked: bytes that all entries declare together, and that the file has. Throws PackageError.
    ZipEntries(const QByteArray &file, qint64 maxUnpacked);
    ~ZipEntries();
    ZipEntries(const ZipEntries &) = delete;
    ZipEntries &operator=(const ZipEntries &) = delete;

    // In the order of the file, without folders.
    const QList<Entry> &all() const { return m_entries; }
    // room: what may still come out, which it lessens. Throws PackageError.
    QByteArray unpack(quint64 index, qint64 *room) const;
    // Names compare without case; null without such an entry.
    const Entry *find(const QString &name) const;
    static bool isSameName(const QString &a, const QString &b);

    // To copy entries from as they are packed.
    struct zip *handle() const { return m_zip; }

private:
    void open(qint64 maxUnpacked);
    void readNames(qint64 maxUnpacked);

    QByteArray m_file; // read for as long as the zip is open
    struct zip *m_zip = nullptr;
    QList<Entry> m_entries;
};
