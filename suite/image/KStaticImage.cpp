// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/image/KStaticImage.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/image/CDlgPictureViewer.h"
#include "suite/image/PictureBoxReader.h"
#include "suite/image/PictureOffer.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace {

constexpr int inset = 6;
constexpr int largestIcon = 48;

QAccessibleInterface *makeReader(const QString &, QObject *object)
{
    auto *box = qobject_cast<KStaticImage *>(object);
    return box ? new PictureBoxReader(box) : nullptr;
}

// The module is unloaded before the program's last window closes, and must not be asked about that one.
struct ReaderInstallation
{
    ReaderInstallation() { QAccessible::installFactory(makeReader); }
    ~ReaderInstallation() { QAccessible::removeFactory(makeReader); }
    Q_DISABLE_COPY_MOVE(ReaderInstallation)
};

}

KStaticImage::KStaticImage(QWidget *parent)
    : QWidget(parent)
{
    static const ReaderInstallation untilUnloaded;
    setFocusPolicy(Qt::StrongFocus);
    setProperty(KDialog::actsOnEnter, true);
    setAcceptDrops(true);
    setAccessibleName(u"تصویر"_s);
    setAccessibleDescription(stateText());
    setToolTip(stateText());
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

KStaticImage::~KStaticImage() = default;

void KStaticImage::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    setAcceptDrops(!readOnly);
    hold(m_bytes, m_image, m_modified);
}

void KStaticImage::load(const QByteArray &stored)
{
    hold(stored, stored.isEmpty() ? QImage() : PictureIntake::decode(stored), false);
}

void KStaticImage::hold(const QByteArray &bytes, const QImage &image, bool modified)
{
    m_bytes = bytes;
    m_image = image;
    m_shown = {};
    m_modified = modified;
    setAccessibleDescription(stateText());
    setToolTip(stateText());
    update();
}

QString KStaticImage::stateText() const
{
    if (isBroken())
        return u"تصویر ذخیره شده قابل نمایش نیست"_s;
    if (!isEmpty())
        return u"برای نمایش بزرگ دوبار کلیک کنید"_s;
    return m_readOnly ? u"بدون تصویر"_s
                      : u"برای انتخاب تصویر دوبار کلیک کنید، یا آن را بچسبانید یا اینجا رها کنید"_s;
}

QString KStaticImage::tryResult(const PictureIntake::Result &result)
{
    if (result.refusal != PictureIntake::Refusal::None)
        return PictureIntake::reason(result.refusal);
    hold(result.bytes, result.image, true);
    Q_EMIT changed();
    return {};
}

QString KStaticImage::tryFile(const QString &path)
{
    const KWaitCursor wait;
    return tryResult(PictureIntake::fromFile(path));
}

QString KStaticImage::tryMimeData(const QMimeData &mimeData)
{
    const PictureOffer offer(mimeData);
    switch (offer.kind()) {
    case PictureOffer::File:
        return tryFile(offer.path());
    case PictureOffer::Data: {
        const KWaitCursor wait;
        return tryResult(PictureIntake::fromData(offer.data()));
    }
    case PictureOffer::Pixels: {
        const KWaitCursor wait;
        return tryResult(PictureIntake::fromImage(offer.pixels()));
    }
    case PictureOffer::SeveralFiles:
        if (m_taker) {
            m_taker(offer.paths());
            return {};
        }
        return u"هر بار فقط یک تصویر پذیرفته می شود."_s;
    case PictureOffer::None:
        break;
    }
    return u"تصویری برای چسباندن وجود ندارد."_s;
}

bool KStaticImage::tell(const QString &problem)
{
    if (!problem.isEmpty())
        g_pDlgWarning->Show(problem, this);
    return problem.isEmpty();
}

bool KStaticImage::takeFile(const QString &path)
{
    return !m_readOnly && tell(tryFile(path));
}

bool KStaticImage::takeMimeData(const QMimeData *mimeData)
{
    return !m_readOnly && mimeData && tell(tryMimeData(*mimeData));
}

void KStaticImage::replace(const QByteArray &bytes)
{
    hold(bytes, bytes.isEmpty() ? QImage() : PictureIntake::decode(bytes), true);
    Q_EMIT changed();
}

bool KStaticImage::clear()
{
    if (m_readOnly || isEmpty())
        return false;
    hold({}, {}, true);
    Q_EMIT changed();
    return true;
}

void KStaticImage::chooseFile()
{
    if (m_readOnly)
        return;
    const QString kinds =
        u"تصویر (*.jpg *.jpeg *.jfif *.png *.webp *.JPG *.JPEG *.PNG *.WEBP);;همه فایل ها (*)"_s;
    const QString path = QFileDialog::getOpenFileName(this, u"انتخاب تصویر"_s, QString(), kinds);
    if (!path.isEmpty())
        takeFile(path);
}

void KStaticImage::paste()
{
    takeMimeData(QApplication::clipboard()->mimeData());
}

void KStaticImage::copy()
{
    if (!m_image.isNull())
        QApplication::clipboard()->setImage(m_image);
}

void KStaticImage::showLarge()
{
    if (m_image.isNull())
        return;
    if (m_viewer)
        m_viewer();
    else
        CDlgPictureViewer({{{}, [this] { return m_bytes; }}}, accessibleName(), 0, this).exec();
}

void KStaticImage::activate()
{
    if (!m_image.isNull())
        showLarge();
    else
        chooseFile();
}

QSize KStaticImage::sizeHint() const
{
    return {LookSizes::scaled(240), LookSizes::scaled(180)};
}

QSize KStaticImage::minimumSizeHint() const
{
    return {LookSizes::scaled(120), LookSizes::scaled(90)};
}

// The box's own keys come to it even where the window around it has a shortcut on them.
bool KStaticImage::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->matches(QKeySequence::Paste) || key->matches(QKeySequence::Copy) || key->matches(QKeySequence::Delete)) {
            event->accept();
            return true;
        }
    }
    return QWidget::event(event);
}

void KStaticImage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange)
        update();
    QWidget::changeEvent(event);
}

void KStaticImage::keyPressEvent(QKeyEvent *event)
{
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool activates =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (event->matches(QKeySequence::Paste))
        paste();
    else if (event->matches(QKeySequence::Copy))
        copy();
    else if (event->matches(QKeySequence::Delete) && !m_readOnly)
        clear();
    else if (plain && activates && !(m_readOnly && m_image.isNull()))
        activate();
    else
        QWidget::keyPressEvent(event);
}

void KStaticImage::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        activate();
}

void KStaticImage::contextMenuEvent(QContextMenuEvent *event)
{
    showMenu(event->reason() == QContextMenuEvent::Mouse ? event->globalPos() : mapToGlobal(rect().center()));
}

void KStaticImage::showMenu(const QPoint &globalPosition)
{
    QMenu menu(this);
    auto add = [&](const QString &icon, const QString &caption, bool enabled, void (KStaticImage::*run)(),
                   const QKeySequence &keys = {}) {
        QAction *action = menu.addAction(LookIcons::icon(icon), caption, this, run);
        action->setEnabled(enabled);
        action->setShortcut(keys);
    };
    const bool shown = !m_image.isNull();
    add(u":/icons/show.svg"_s, u"نمایش بزرگ"_s, shown, &KStaticImage::showLarge);
    add({}, u"کپی"_s, shown, &KStaticImage::copy, QKeySequence::Copy);
    if (!m_readOnly) {
        menu.addSeparator();
        add(u":/icons/picture.svg"_s, u"انتخاب تصویر از فایل"_s, true, &KStaticImage::chooseFile);
        const QMimeData *clipboard = QApplication::clipboard()->mimeData();
        add({}, u"چسباندن"_s, clipboard && PictureOffer(*clipboard).kind() != PictureOffer::None,
            &KStaticImage::paste, QKeySequence::Paste);
        QAction *remove = menu.addAction(LookIcons::icon(u":/icons/delete.svg"_s), u"حذف تصویر"_s, this, [this] { clear(); });
        remove->setEnabled(!isEmpty());
        remove->setShortcut(QKeySequence::Delete);
    }
    menu.exec(globalPosition);
}

void KStaticImage::dragEnterEvent(QDragEnterEvent *event)
{
    if (m_readOnly || PictureOffer(*event->mimeData()).kind() == PictureOffer::None)
        return;
    // Copied, never moved: the source of the drag keeps what it offered.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    m_dragOver = true;
    update();
}

void KStaticImage::dragLeaveEvent(QDragLeaveEvent *)
{
    m_dragOver = false;
    update();
}

void KStaticImage::dropEvent(QDropEvent *event)
{
    m_dragOver = false;
    update();
    if (m_readOnly)
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // A message that waited here would keep the program that the picture comes from waiting too.
    const QString problem = tryMimeData(*event->mimeData());
    QMetaObject::invokeMethod(
        this, [this, problem] { tell(problem); }, Qt::QueuedConnection);
}

void KStaticImage::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    using Role = HostColors::Role;
    const QPen frame = framePen();
    const qreal half = frame.style() == Qt::NoPen ? 0 : frame.widthF() / 2;
    painter.setPen(frame);
    painter.setBrush(HostColors::of(m_readOnly ? Role::Sunken : Role::Surface));
    painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), LookSizes::controlCorner, LookSizes::controlCorner);
    const QRect area = rect().adjusted(inset, inset, -inset, -inset);
    if (m_image.isNull())
        paintText(painter, area);
    else
        paintPicture(painter, area);
}

// What nothing can be put into has no frame; while a picture is held over the box, its frame says that it may be let go.
QPen KStaticImage::framePen() const
{
    using Role = HostColors::Role;
    if (!hasFocus() && !m_dragOver)
        return m_readOnly ? QPen(Qt::NoPen) : QPen(HostColors::of(Role::Edge));
    QPen frame(HostColors::of(Role::Accent), LookSizes::ring);
    if (m_dragOver)
        frame.setStyle(Qt::DashLine);
    return frame;
}

void KStaticImage::paintPicture(QPainter &painter, const QRect &area)
{
    const qreal ratio = devicePixelRatioF();
    const QSize fitted = m_image.size().scaled(area.size() * ratio, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    // A small picture is not blown up: its dots would be all there is to see.
    const QSize dots = fitted.width() > m_image.width() * ratio ? m_image.size() * ratio : fitted;
    if (m_shown.size() != dots || !qFuzzyCompare(m_shown.devicePixelRatio(), ratio)) {
        m_shown = m_image.scaled(dots, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        m_shown.setDevicePixelRatio(ratio);
    }
    QRect target(QPoint(), (QSizeF(dots) / ratio).toSize());
    target.moveCenter(area.center());
    painter.drawImage(target.topLeft(), m_shown);
}

// A box too small for the words shows the sign alone; the tool tip has them.
void KStaticImage::paintText(QPainter &painter, const QRect &area)
{
    const int flags = Qt::AlignHCenter | Qt::TextWordWrap;
    int words = QFontMetrics(font()).boundingRect(QRect(0, 0, area.width(), area.height()), flags, stateText()).height();
    if (words > area.height())
        words = 0;
    const int icon = qBound(0, area.height() - words, largestIcon);
    const int top = area.top() + (area.height() - words - icon) / 2;
    if (icon >= largestIcon / 2)
        LookIcons::icon(u":/icons/picture.svg"_s).paint(&painter, QRect(area.center().x() - icon / 2, top, icon, icon));
    if (words == 0)
        return;
    using Role = HostColors::Role;
    painter.setPen(HostColors::of(isBroken() ? Role::Danger : Role::Hint));
    painter.drawText(QRect(area.left(), top + icon, area.width(), words), flags, stateText());
}

void SaveKStaticImageToLongBinary(const KStaticImage &image, KLongBinary &value)
{
    value.data = image.bytes();
}

void LoadKStaticImageFromLongBinary(KStaticImage &image, const KLongBinary &value)
{
    image.load(value.data);
}
