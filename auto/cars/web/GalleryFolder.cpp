// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/GalleryFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;

// A list that someone else wrote may name files elsewhere.
bool isPlainName(const QString &name)
{
    return !name.isEmpty() && name != u"."_s && name != u".."_s && !name.contains(u'/') && !name.contains(u'\n') && !name.contains(QChar(0));
}

QStringList listed(const QString &folder)
{
    QFile list(folder + u'/' + GalleryFolder::listName());
    QStringList names;
    if (list.open(QIODevice::ReadOnly))
        names = QString::fromUtf8(list.readAll()).split(u'\n', Qt::SkipEmptyParts);
    names.removeIf([](const QString &name) { return !isPlainName(name); });
    return names;
}

void write(const QString &path, const QByteArray &bytes, QIODevice::OpenMode mode)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | mode) || file.write(bytes) != bytes.size() || !file.flush() || ::fsync(file.handle()) != 0)
        throw GalleryFolder::Failure(u"فایل «%1» نوشته نشد: %2"_s.arg(path, file.errorString()));
}

}

QString GalleryFolder::listName()
{
    return u".gallery-files"_s;
}

GalleryFolder::GalleryFolder(const QString &folder)
{
    const QFileInfo info(folder);
    // A link stays a link: what it leads to is replaced.
    m_folder = QDir::cleanPath(info.exists() ? info.canonicalFilePath() : info.absoluteFilePath());
    const QString start = QFileInfo(m_folder).path() + u"/."_s + QFileInfo(m_folder).fileName();
    m_beside = start + u".new"_s;
    m_retired = start + u".old"_s;
    prepare();
}

GalleryFolder::~GalleryFolder()
{
    if (!m_replaced)
        settle(m_beside);
}

void GalleryFolder::prepare()
{
    if (!QFileInfo::exists(m_folder) && QFileInfo::exists(m_retired + u'/' + listName()))
        QDir().rename(m_retired, m_folder);
    const QDir there(m_folder);
    if (there.exists() && !there.isEmpty(everything) && !there.exists(listName()))
        throw Failure(u"پوشه «%1» خالی نیست و خروجی وب این برنامه هم نیست. پوشه دیگری انتخاب کنید."_s.arg(m_folder));
    settle(m_beside);
    settle(m_retired);
    QDir().rmdir(m_beside); // empty: a kill before its list was begun
    if (QFileInfo::exists(m_beside) || !QDir().mkpath(m_beside))
        throw Failure(u"پوشه «%1» ساخته نشد."_s.arg(m_beside));
    write(m_beside + u'/' + listName(), {}, QIODevice::Truncate);
}

// The name first: a file that is being written at a kill is known to be ours.
void GalleryFolder::add(const QString &name, const QByteArray &bytes)
{
    if (!isPlainName(name) || name == listName())
        throw Failure(u"«%1» نام فایل نیست."_s.arg(name));
    write(m_beside + u'/' + listName(), name.toUtf8() + '\n', QIODevice::Append);
    write(m_beside + u'/' + name, bytes, QIODevice::Truncate);
    m_size += bytes.size();
}

void GalleryFolder::replace()
{
    swap();
    m_replaced = true;
    settle(m_beside);
    settle(m_retired);
}

void GalleryFolder::swap()
{
    const QByteArray from = QFile::encodeName(m_beside);
    const QByteArray to = QFile::encodeName(m_folder);
    if (!QFileInfo::exists(m_folder)) {
        if (std::rename(from.constData(), to.constData()) == 0)
            return;
    } else if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_EXCHANGE) == 0) {
        return;
    } else if (const QByteArray retired = QFile::encodeName(m_retired); std::rename(to.constData(), retired.constData()) == 0) {
        if (std::rename(from.constData(), to.constData()) == 0)
            return;
        (void)std::rename(retired.constData(), to.constData());
    }
    throw Failure(u"خروجی تازه جای پوشه «%1» را نگرفت. خروجی پیشین دست نخورده است."_s.arg(m_folder));
}

// Deletes what is listed there and brings the rest to the folder. What has a namesake in the folder stays where it is, so that nothing is lost.
void GalleryFolder::settle(const QString &left) const
{
    QDir dir(left);
    if (!dir.exists(listName()))
        return;
    for (const QString &name : listed(left))
        QFile::remove(dir.filePath(name));
    if (QFileInfo::exists(m_folder)) {
        for (const QString &name : dir.entryList(everything)) {
            if (name != listName() && !QFileInfo::exists(m_folder + u'/' + name))
                QDir().rename(dir.filePath(name), m_folder + u'/' + name);
        }
    }
    if (dir.entryList(everything).size() == 1) {
        QFile::remove(dir.filePath(listName()));
        QDir().rmdir(left);
    }
}
