// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/GalleryFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
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

// Why the system did not write, as a user can mend it.
QString reason(int error)
{
    switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return u"روی دیسک جا نیست."_s;
    case EACCES:
    case EPERM:
        return u"اجازه نوشتن در این پوشه را ندارید."_s;
    case EROFS:
        return u"این دیسک فقط خواندنی است."_s;
    default:
        return QString::fromLocal8Bit(std::strerror(error));
    }
}

[[noreturn]] void refuse(const QString &path, int error)
{
    throw GalleryFolder::Failure(u"«%1» نوشته نشد: %2"_s.arg(path, reason(error)));
}

// On the disk when it returns.
void write(const QString &path, const QByteArray &bytes, int mode)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | mode, 0644);
    if (file < 0)
        refuse(path, errno);
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t now = ::write(file, bytes.constData() + done, size_t(bytes.size() - done));
        if (now < 0 && errno == EINTR)
            continue;
        if (now < 0)
            break;
        done += now;
    }
    const int error = done < bytes.size() || ::fsync(file) != 0 ? errno : 0;
    ::close(file);
    if (error != 0)
        refuse(path, error);
}

}

QString GalleryFolder::listName()
{
    return u".gallery-files"_s;
}

// Whoever ends deletes the file; so one that was opened just before may be nobody's any more, and the next is tried.
GalleryFolder::Lock::Lock(const QString &path)
    : m_path(QFile::encodeName(path))
{
    for (;;) {
        m_file = ::open(m_path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0644);
        if (m_file < 0)
            refuse(path, errno);
        // Some disks, such as a telephone's, know no locks.
        if (::flock(m_file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
            ::close(m_file);
            throw Failure(u"همین حالا خروجی دیگری در این پوشه نوشته می‌شود. کمی بعد دوباره امتحان کنید."_s);
        }
        struct stat held = {};
        struct stat named = {};
        if (::fstat(m_file, &held) == 0 && ::stat(m_path.constData(), &named) == 0 && held.st_ino == named.st_ino && held.st_dev == named.st_dev)
            return;
        ::close(m_file);
    }
}

GalleryFolder::Lock::~Lock()
{
    ::unlink(m_path.constData());
    ::close(m_file);
}

GalleryFolder::GalleryFolder(const QString &folder)
{
    const QFileInfo info(folder);
    // A link stays a link: what it leads to is replaced.
    m_folder = QDir::cleanPath(info.exists() ? info.canonicalFilePath() : info.absoluteFilePath());
    const QString start = QFileInfo(m_folder).path() + u"/."_s + QFileInfo(m_folder).fileName();
    m_beside = start + u".new"_s;
    m_retired = start + u".old"_s;
    QDir().mkpath(QFileInfo(m_folder).path());
    m_lock = std::make_unique<Lock>(start + u".lock"_s);
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
    if (::mkdir(QFile::encodeName(m_beside).constData(), 0755) != 0)
        refuse(m_beside, errno);
    write(m_beside + u'/' + listName(), {}, O_TRUNC);
}

// The name first: a file that is being written at a kill is known to be ours.
void GalleryFolder::add(const QString &name, const QByteArray &bytes)
{
    if (!isPlainName(name) || name == listName())
        throw Failure(u"«%1» نام فایل نیست."_s.arg(name));
    write(m_beside + u'/' + listName(), name.toUtf8() + '\n', O_APPEND);
    write(m_beside + u'/' + name, bytes, O_TRUNC);
    m_size += bytes.size();
}

// It stays in the list, which may name what is not there.
void GalleryFolder::drop(const QString &name)
{
    if (!isPlainName(name) || name == listName())
        throw Failure(u"«%1» نام فایل نیست."_s.arg(name));
    QFile file(m_beside + u'/' + name);
    const qint64 size = file.size();
    if (file.remove())
        m_size -= size;
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
