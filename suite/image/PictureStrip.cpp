// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/image/PictureStrip.h"

#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/image/CDlgCameraFolder.h"
#include "suite/image/CDlgPictureViewer.h"
#include "suite/image/KStaticImage.h"
#include "suite/image/PictureOffer.h"
#include "suite/image/PictureThumbs.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"

#include <QApplication>
#include <QClipboard>
#include <QCryptographicHash>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString fingerprint(const RecordPictures::Entry &picture)
{
    if (picture.id != 0)
        return QString::number(picture.id);
    return QString::fromLatin1(QCryptographicHash::hash(picture.bytes, QCryptographicHash::Sha1).toHex());
}

QString spokenPicture(const RecordPictures::Entry &picture, qsizetype row)
{
    return picture.name.isEmpty() ? u"تصویر %1"_s.arg(row + 2) : picture.name;
}

}

PictureStrip::PictureStrip(KStaticImage *box, QWidget *parent)
    : QWidget(parent)
    , m_box(box)
    , m_thumbs(new PictureThumbs(this))
{
    m_thumbs->setAccessibleName(u"تصویرهای دیگر"_s);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(LookSizes::unit);
    column->addLayout(buildCommands());
    column->addWidget(m_thumbs, 1);
    wireThumbs();
    m_reading.setInterval(0);
    connect(&m_reading, &QTimer::timeout, this, &PictureStrip::readNext);
    m_box->setViewer([this] { showLarge(-1); });
    m_box->setTaker([this](const QStringList &paths) { takeFiles(paths); });
    connect(m_box, &KStaticImage::changed, this, [this] {
        if (m_settingBox)
            return;
        m_first = {};
        m_undo.clear();
    });
    setReadOnly(false);
}

PictureStrip::~PictureStrip() = default;

QHBoxLayout *PictureStrip::buildCommands()
{
    auto *line = new QHBoxLayout;
    line->setSpacing(LookSizes::unit);
    const auto addButton = [&](const QString &icon, const QString &text, void (PictureStrip::*run)()) {
        auto *button = new QPushButton(LookIcons::icon(icon), text, this);
        button->setAccessibleName(text);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, run] { KErrorBoundary::guarded(this, [this, run] { (this->*run)(); }); });
        line->addWidget(button);
        return button;
    };
    m_add = addButton(u":/icons/new.svg"_s, u"افزودن تصویر"_s, &PictureStrip::chooseFiles);
    m_camera = addButton(u":/icons/picture.svg"_s, u"از پوشه دوربین"_s, &PictureStrip::chooseFromCamera);
    line->addStretch(1);
    return line;
}

void PictureStrip::wireThumbs()
{
    connect(m_thumbs, &PictureThumbs::moveAsked, this, &PictureStrip::move);
    connect(m_thumbs, &PictureThumbs::shiftAsked, this, [this](int row, int by) { move(row, by > 0 ? row + 2 : row - 1); });
    connect(m_thumbs, &PictureThumbs::makeFirstAsked, this, [this](int row) { KErrorBoundary::guarded(this, [&] { makeFirst(row); }); });
    connect(m_thumbs, &PictureThumbs::removeAsked, this, &PictureStrip::remove);
    connect(m_thumbs, &PictureThumbs::undoAsked, this, &PictureStrip::undo);
    connect(m_thumbs, &PictureThumbs::pasteAsked, this, &PictureStrip::paste);
    connect(m_thumbs, &PictureThumbs::menuAsked, this, &PictureStrip::showMenu);
    connect(m_thumbs, &PictureThumbs::openAsked, this, [this](int row) { KErrorBoundary::guarded(this, [&] { showLarge(row); }); });
    connect(m_thumbs, &PictureThumbs::offered, this, [this](const QMimeData *mimeData) { takeMimeData(mimeData); });
}

void PictureStrip::load(int recordKind, qint32 key)
{
    m_recordKind = recordKind;
    m_key = key;
    m_opened.clear();
    m_entries.clear();
    m_undo.clear();
    m_first = {};
    m_hasBytes = false;
    for (const RecordPictures::Picture &picture : RecordPictures::further(recordKind, key)) {
        m_opened.append(picture.id);
        m_entries.append({{picture.id, picture.name, {}}, m_thumbs->noPicture(), false});
    }
    show(-1);
    if (!m_entries.isEmpty())
        m_reading.start();
}

void PictureStrip::readAll()
{
    const QHash<qint32, QByteArray> stored = RecordPictures::furtherBytes(m_recordKind, m_key);
    for (Entry &entry : m_entries) {
        if (entry.picture.id != 0 && entry.picture.bytes.isEmpty())
            entry.picture.bytes = stored.value(entry.picture.id);
    }
}

// One at a time, so that the window answers in between.
void PictureStrip::readNext()
{
    const auto entry = std::ranges::find_if(m_entries, [](const Entry &candidate) { return !candidate.isRead; });
    if (entry == m_entries.end())
        return m_reading.stop();
    entry->isRead = true;
    // What cannot be read now is read when it is asked for, and told then.
    const bool isRead = std::exchange(m_hasBytes, true) || KErrorBoundary::guarded(this, [this] { readAll(); });
    if (!isRead)
        return m_reading.stop();
    if (const QImage image = PictureIntake::decode(entry->picture.bytes); !image.isNull())
        entry->icon = m_thumbs->iconOf(image);
    if (QListWidgetItem *item = m_thumbs->item(int(entry - m_entries.begin())))
        item->setIcon(entry->icon);
}

void PictureStrip::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    m_add->setHidden(readOnly);
    m_camera->setHidden(readOnly);
    m_thumbs->setArranged(!readOnly);
    m_thumbs->setHint(readOnly ? u"تصویر دیگری نیست"_s : u"تصویرهای دیگر را اینجا رها کنید یا بچسبانید"_s);
}

bool PictureStrip::isRead() const
{
    return std::ranges::all_of(m_entries, &Entry::isRead);
}

QStringList PictureStrip::state() const
{
    QStringList texts;
    for (const Entry &entry : m_entries)
        texts.append(fingerprint(entry.picture));
    return texts;
}

RecordPictures::Change PictureStrip::change() const
{
    RecordPictures::Change change{m_opened, {}, m_first.id};
    for (const Entry &entry : m_entries)
        change.wanted.append(entry.picture);
    return change;
}

RecordPictures::Change PictureStrip::asNew()
{
    RecordPictures::Change change;
    for (const Entry &entry : std::as_const(m_entries)) {
        const QByteArray bytes = bytesOf(entry.picture);
        if (!bytes.isEmpty())
            change.wanted.append({0, entry.picture.name, bytes});
    }
    return change;
}

QByteArray PictureStrip::bytesOf(const RecordPictures::Entry &picture) const
{
    return picture.bytes.isEmpty() && picture.id != 0 ? RecordPictures::bytes(m_recordKind, m_key, picture.id) : picture.bytes;
}

bool PictureStrip::takeFiles(const QStringList &paths)
{
    QList<Source> sources;
    for (const QString &path : paths)
        sources.append({QFileInfo(path).fileName(), [path] { return PictureIntake::fromFile(path); }});
    return takeAll(sources);
}

bool PictureStrip::takeMimeData(const QMimeData *mimeData)
{
    if (!mimeData)
        return false;
    const PictureOffer offer(*mimeData);
    switch (offer.kind()) {
    case PictureOffer::File:
    case PictureOffer::SeveralFiles:
        return takeFiles(offer.paths());
    case PictureOffer::Data:
        return takeAll({{{}, [&] { return PictureIntake::fromData(offer.data()); }}});
    case PictureOffer::Pixels:
        return takeAll({{{}, [&] { return PictureIntake::fromImage(offer.pixels()); }}});
    case PictureOffer::None:
        break;
    }
    tell({u"تصویری برای چسباندن وجود ندارد."_s});
    return false;
}

bool PictureStrip::takeAll(const QList<Source> &sources)
{
    if (m_readOnly)
        return false;
    QStringList problems;
    keepForUndo(m_box->isEmpty());
    qsizetype added = 0;
    {
        const KWaitCursor wait;
        for (const Source &source : sources) {
            if (!m_box->isEmpty() && count() >= RecordPictures::most) {
                problems.append(u"بیش از %1 تصویر در کنار تصویر نخست نگه داشته نمی‌شود؛ %2 تصویر افزوده نشد."_s.arg(RecordPictures::most).arg(sources.size() - added - problems.size()));
                break;
            }
            const PictureIntake::Result taken = source.take();
            if (taken.refusal == PictureIntake::Refusal::None) {
                add(source.name, taken);
                ++added;
            } else {
                const QString reason = PictureIntake::reason(taken.refusal);
                problems.append(source.name.isEmpty() ? reason : u"%1: %2"_s.arg(source.name, reason));
            }
        }
    }
    if (added == 0)
        m_undo.removeLast();
    else
        show(count() - 1);
    tell(problems);
    return added > 0;
}

void PictureStrip::add(const QString &name, const PictureIntake::Result &taken)
{
    const RecordPictures::Entry picture{0, name, taken.bytes};
    if (!m_box->isEmpty()) {
        m_entries.append({picture, m_thumbs->iconOf(taken.image), true});
        return;
    }
    m_first = {0, name, {}};
    setBox(taken.bytes);
}

// Whoever drops waits until this returns, so the message comes afterwards.
void PictureStrip::tell(const QStringList &problems)
{
    constexpr qsizetype mostLines = 8;
    if (problems.isEmpty())
        return;
    QStringList lines = problems.mid(0, mostLines);
    if (problems.size() > mostLines)
        lines.append(u"و %1 تصویر دیگر."_s.arg(problems.size() - mostLines));
    QMetaObject::invokeMethod(
        this, [this, lines] { g_pDlgWarning->Show(lines.join(u'\n'), this); }, Qt::QueuedConnection);
}

void PictureStrip::setBox(const QByteArray &bytes)
{
    m_settingBox = true;
    m_box->replace(bytes);
    m_settingBox = false;
}

void PictureStrip::keepForUndo(bool changesBox)
{
    m_undo.append({m_entries, m_first, changesBox ? std::optional(m_box->bytes()) : std::nullopt});
}

void PictureStrip::undo()
{
    if (m_readOnly || m_undo.isEmpty())
        return;
    const Before before = m_undo.takeLast();
    m_entries = before.entries;
    m_first = before.first;
    if (before.box)
        setBox(*before.box);
    show(m_thumbs->currentRow());
    // Kept before they were read.
    m_hasBytes = isRead();
    m_reading.start();
}

void PictureStrip::move(int row, int before)
{
    if (m_readOnly || row < 0 || row >= count() || before < 0 || before > count() || before == row || before == row + 1)
        return;
    keepForUndo(false);
    const int to = before > row ? before - 1 : before;
    m_entries.move(row, to);
    show(to);
}

// Changes places with the one in the box.
void PictureStrip::makeFirst(int row)
{
    if (m_readOnly || row < 0 || row >= count())
        return;
    const QByteArray bytes = bytesOf(m_entries.at(row).picture);
    if (bytes.isEmpty())
        return tell({u"این تصویر در این میان حذف شده است."_s});
    keepForUndo(true);
    RecordPictures::Entry first = m_entries.at(row).picture;
    if (m_box->isEmpty()) {
        m_entries.removeAt(row);
    } else {
        const QIcon icon = m_box->isBroken() ? m_thumbs->noPicture() : m_thumbs->iconOf(m_box->image());
        m_entries.replace(row, {{m_first.id, m_first.name, m_box->bytes()}, icon, true});
    }
    m_first = {first.id, first.name, {}};
    setBox(bytes);
    show(std::min(row, count() - 1));
}

void PictureStrip::remove(int row)
{
    if (m_readOnly || row < 0 || row >= count())
        return;
    keepForUndo(false);
    m_entries.removeAt(row);
    show(std::min(row, count() - 1));
}

void PictureStrip::chooseFiles()
{
    const QString kinds = u"تصویر (*.jpg *.jpeg *.jfif *.png *.webp *.JPG *.JPEG *.PNG *.WEBP);;همه فایل ها (*)"_s;
    const QStringList paths = QFileDialog::getOpenFileNames(this, u"افزودن تصویر"_s, QString(), kinds);
    if (!paths.isEmpty())
        takeFiles(paths);
}

void PictureStrip::chooseFromCamera()
{
    const QStringList paths = CDlgCameraFolder::Choose(this);
    if (!paths.isEmpty())
        takeFiles(paths);
}

void PictureStrip::paste()
{
    if (!m_readOnly)
        takeMimeData(QApplication::clipboard()->mimeData());
}

void PictureStrip::showLarge(int row)
{
    QList<CDlgPictureViewer::Picture> pictures;
    if (!m_box->isEmpty())
        pictures.append({m_first.name, [this] { return m_box->bytes(); }});
    const qsizetype first = pictures.size() + row;
    for (const Entry &entry : std::as_const(m_entries))
        pictures.append({entry.picture.name, [this, picture = entry.picture] { return bytesOf(picture); }});
    if (!pictures.isEmpty())
        CDlgPictureViewer(pictures, m_box->accessibleName(), std::max<qsizetype>(first, 0), this).exec();
}

void PictureStrip::show(int selected)
{
    m_thumbs->clear();
    for (qsizetype row = 0; row < m_entries.size(); ++row) {
        auto *item = new QListWidgetItem(m_entries.at(row).icon, QString(), m_thumbs);
        const QString name = spokenPicture(m_entries.at(row).picture, row);
        item->setToolTip(name);
        item->setData(Qt::AccessibleTextRole, name);
        item->setTextAlignment(Qt::AlignCenter);
    }
    m_thumbs->setCurrentRow(selected);
    Q_EMIT changed();
}

void PictureStrip::showMenu(const QPoint &globalPosition)
{
    QMenu menu(this);
    const int row = m_thumbs->currentRow();
    const auto add = [&](const QString &icon, const QString &caption, bool enabled, const std::function<void()> &run, const QKeySequence &keys) {
        QAction *action = menu.addAction(LookIcons::icon(icon), caption, this, [this, run] { KErrorBoundary::guarded(this, run); });
        action->setEnabled(enabled);
        action->setShortcut(keys);
    };
    const bool isOn = row >= 0;
    add(
        u":/icons/show.svg"_s, u"نمایش بزرگ"_s, isOn, [=, this] { showLarge(row); }, Qt::Key_Return);
    if (!m_readOnly) {
        add(
            u":/icons/picture.svg"_s, u"نخستین تصویر"_s, isOn, [=, this] { makeFirst(row); }, QKeySequence(Qt::CTRL | Qt::Key_Home));
        add(
            {}, u"یکی جلوتر"_s, isOn && row > 0, [=, this] { move(row, row - 1); }, QKeySequence(Qt::CTRL | Qt::Key_Right));
        add(
            {}, u"یکی عقب‌تر"_s, isOn && row + 1 < count(), [=, this] { move(row, row + 2); }, QKeySequence(Qt::CTRL | Qt::Key_Left));
        menu.addSeparator();
        const QMimeData *clipboard = QApplication::clipboard()->mimeData();
        add(
            {}, u"چسباندن"_s, clipboard && PictureOffer(*clipboard).kind() != PictureOffer::None, [this] { paste(); }, QKeySequence::Paste);
        add(
            {}, u"برگرداندن"_s, canUndo(), [this] { undo(); }, QKeySequence::Undo);
        add(
            u":/icons/delete.svg"_s, u"حذف تصویر"_s, isOn, [=, this] { remove(row); }, QKeySequence::Delete);
    }
    menu.exec(globalPosition);
}
