// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/GalleryExport.h"

#include "auto/cars/web/GalleryCars.h"
#include "auto/cars/web/GalleryFolder.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/attachments/RecordPictures.h"
#include "suite/image/PictureIntake.h"
#include "suite/image/Thumbnails.h"

#include <QCryptographicHash>
#include <QDir>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

const QString pageName = u"index.html"_s;
constexpr int nameLength = 20;

class Pictures
{
public:
    explicit Pictures(GalleryFolder &folder)
        : m_folder(folder) { }

    // Nothing for one that is gone or cannot be shown.
    std::optional<GalleryCar::Picture> write(const QByteArray &stored)
    {
        const QImage picture = PictureIntake::decode(stored);
        const QByteArray small = Thumbnails::made(picture, {Thumbnails::maxWidth, Thumbnails::maxHeight});
        const QByteArray large = Thumbnails::made(picture, {GalleryExport::largeSide, GalleryExport::largeSide});
        if (small.isEmpty() || large.isEmpty())
            return std::nullopt;
        return GalleryCar::Picture{add(small), add(large)};
    }
    // Deletes those of no car in the page.
    void keepOnly(const QList<GalleryCar> &cars)
    {
        QSet<QString> shown;
        for (const GalleryCar &car : cars) {
            for (const GalleryCar::Picture &picture : car.pictures)
                shown << picture.small << picture.large;
        }
        for (const QString &name : std::as_const(m_names)) {
            if (!shown.contains(name))
                m_folder.drop(name);
        }
    }

private:
    // By what it holds: a picture that stays keeps its name, so that only new ones are sent to the web space, and another one never comes up
    // from a visitor's memory under an old name. It tells nothing of the office's keys.
    QString add(const QByteArray &jpeg)
    {
        const QString name = QString::fromLatin1(QCryptographicHash::hash(jpeg, QCryptographicHash::Sha256).toHex().left(nameLength)) + u".jpg"_s;
        if (!m_names.contains(name))
            m_folder.add(name, jpeg);
        m_names.insert(name);
        return name;
    }

    GalleryFolder &m_folder;
    QSet<QString> m_names;
};

class Steps
{
public:
    Steps(const ReportProgress &progress, int total)
        : m_progress(progress)
        , m_total(total) { }

    void next()
    {
        if (m_progress && !m_progress(m_done++, m_total))
            throw GalleryExport::Stopped();
    }

private:
    const ReportProgress &m_progress;
    int m_total;
    int m_done = 0;
};

int picturesOf(const QList<GalleryCars::Entry> &entries)
{
    int count = 0;
    for (const GalleryCars::Entry &entry : entries)
        count += int(entry.pictures.size());
    return count;
}

}

GalleryExport::Written GalleryExport::write(const QString &path, const GalleryHead &head, const ReportProgress &progress, int database)
{
    GalleryFolder folder(path);
    Pictures pictures(folder);
    Written written;
    QList<GalleryCars::Entry> entries = GalleryCars::read(mostPictures, database);
    // The last step is the page.
    Steps steps(progress, picturesOf(entries) + 1);
    for (GalleryCars::Entry &entry : entries) {
        for (const qint32 picture : std::as_const(entry.pictures)) {
            steps.next();
            if (const auto names = pictures.write(RecordPictures::bytes(CTblAutomobilInformations::recordKind, entry.key, picture, database)))
                entry.car.pictures.append(*names);
            else
                ++written.unreadable;
        }
    }
    steps.next();
    const QSet<qint32> shown = GalleryCars::stillShown(database);
    QList<GalleryCar> cars;
    for (const GalleryCars::Entry &entry : std::as_const(entries)) {
        if (shown.contains(entry.key))
            cars.append(entry.car);
    }
    pictures.keepOnly(cars);
    folder.add(pageName, GalleryPage::made(head, cars));
    folder.replace();
    for (const GalleryCar &car : std::as_const(cars))
        written.pictures += int(car.pictures.size());
    written.cars = int(cars.size());
    written.bytes = folder.size();
    written.page = QDir(path).filePath(pageName);
    return written;
}
