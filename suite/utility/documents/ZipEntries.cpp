// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/ZipEntries.h"

#include <QSet>
#include <QStringList>

#include <zip.h>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// Inside the package, and the same file wherever it were unpacked.
bool isSafeName(const QString &name)
{
    if (name.isEmpty() || name.startsWith(u'/') || name.contains(u'\\') || name.contains(u':'))
        return false;
    if (std::any_of(name.cbegin(), name.cend(), [](QChar c) { return c.unicode() < 0x20; }))
        return false;
    const QStringList steps = name.split(u'/');
    return !steps.contains(u".."_s) && !steps.contains(u"."_s);
}

struct ZipFileCloser
{
    void operator()(zip_file_t *file) const { zip_fclose(file); }
};

} // namespace

ZipEntries::ZipEntries(const QByteArray &file, qint64 maxUnpacked)
    : m_file(file)
{
    try {
        open(maxUnpacked);
        readNames(maxUnpacked);
    } catch (...) {
        if (m_zip)
            zip_discard(m_zip);
        throw;
    }
}

ZipEntries::~ZipEntries()
{
    zip_discard(m_zip);
}

bool ZipEntries::isSameName(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

void ZipEntries::open(qint64 maxUnpacked)
{
    if (m_file.size() > maxUnpacked)
        throw PackageError("the file is too large");
    if (!m_file.startsWith("PK\x03\x04"))
        throw PackageError("the file is no zip");
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t *source = zip_source_buffer_create(m_file.constData(), static_cast<zip_uint64_t>(m_file.size()), 0, &error);
    if (source)
        m_zip = zip_open_from_source(source, ZIP_RDONLY, &error);
    const std::string reason = zip_error_strerror(&error);
    zip_error_fini(&error);
    if (m_zip)
        return;
    if (source)
        zip_source_free(source);
    throw PackageError("the file is no zip: " + reason);
}

void ZipEntries::readNames(qint64 maxUnpacked)
{
    const zip_int64_t count = zip_get_num_entries(m_zip, 0);
    if (count > maxEntries)
        throw PackageError("too many entries");
    qint64 declared = 0;
    QSet<QString> seen;
    for (zip_int64_t i = 0; i < count; ++i) {
        zip_stat_t entry;
        if (zip_stat_index(m_zip, static_cast<zip_uint64_t>(i), ZIP_FL_ENC_GUESS, &entry) != 0 || !entry.name)
            throw PackageError("an entry without a name");
        const QString name = QString::fromUtf8(entry.name);
        if (!isSafeName(name))
            throw PackageError("an entry that leads out of the document: " + name.toStdString());
        if (seen.contains(name.toLower()))
            throw PackageError("an entry that stands twice: " + name.toStdString());
        seen.insert(name.toLower());
        if (entry.encryption_method != ZIP_EM_NONE)
            throw PackageError("an encrypted entry: " + name.toStdString());
        if (entry.comp_method != ZIP_CM_STORE && entry.comp_method != ZIP_CM_DEFLATE)
            throw PackageError("an entry of an unknown compression: " + name.toStdString());
        if (entry.size > static_cast<zip_uint64_t>(maxUnpacked - declared))
            throw PackageError("too large by what it declares");
        declared += static_cast<qint64>(entry.size);
        if (!name.endsWith(u'/')) // a folder of its own says nothing
            m_entries.append({name, static_cast<quint64>(i)});
    }
}

const ZipEntries::Entry *ZipEntries::find(const QString &name) const
{
    const auto found = std::ranges::find_if(m_entries, [&](const Entry &entry) { return isSameName(entry.name, name); });
    return found == m_entries.cend() ? nullptr : &*found;
}

QByteArray ZipEntries::unpack(quint64 index, qint64 *room) const
{
    const std::unique_ptr<zip_file_t, ZipFileCloser> file(zip_fopen_index(m_zip, index, 0));
    QByteArray content;
    QByteArray chunk(qsizetype{64} * 1024, Qt::Uninitialized);
    zip_int64_t got = file ? 0 : -1;
    while (file && (got = zip_fread(file.get(), chunk.data(), static_cast<zip_uint64_t>(chunk.size()))) > 0) {
        *room -= got; // what comes out counts; what the entry says of its size may be a lie
        if (*room < 0)
            throw PackageError("too large unpacked");
        content.append(chunk.constData(), static_cast<qsizetype>(got));
    }
    if (got < 0)
        throw PackageError("an entry that cannot be unpacked");
    return content;
}
