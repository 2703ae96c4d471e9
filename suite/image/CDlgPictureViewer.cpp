// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/image/CDlgPictureViewer.h"

#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/attachments/RecordPictures.h"
#include "suite/accounting/changes/OfficeEvents.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/reports/ReportOutput.h"
#include "suite/image/PictureCanvas.h"
#include "suite/image/PictureIntake.h"
#include "suite/image/PictureKind.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSaveFile>
#include <QScreen>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

QSize smallestViewer()
{
    return {LookSizes::scaled(640), LookSizes::scaled(400)};
}

// A label's colon does not belong into a title.
QString withoutColon(QString title)
{
    if (title.endsWith(u':'))
        title.chop(1);
    return title.trimmed();
}

QString suffixOf(const QByteArray &bytes)
{
    switch (PictureKind::of(bytes)) {
    case PictureKind::Jpeg:
        return u".jpg"_s;
    case PictureKind::Png:
        return u".png"_s;
    case PictureKind::WebP:
        return u".webp"_s;
    case PictureKind::None:
        break;
    }
    return {};
}

}

void CDlgPictureViewer::Show(int recordKind, qint32 key, QWidget *parent)
{
    const QString table = RecordSubjects::tableOf(recordKind);
    const RecordSubject *subject = RecordSubjects::of(table);
    if (!subject || !KSecurity::IsGranted(subject->form, KSecurity::Read)) {
        g_pDlgWarning->Show(u"شما اجازه دیدن این تصویرها را ندارید."_s, parent);
        return;
    }
    QList<Picture> pictures;
    for (const RecordPictures::Picture &picture : RecordPictures::all(recordKind, key))
        pictures.append({picture.name, [=] { return RecordPictures::bytes(recordKind, key, picture.id); }});
    if (pictures.isEmpty()) {
        g_pDlgMessage->Show(u"%1 تصویری ندارد."_s.arg(RecordSubjects::nameOf(table, key)), parent);
        return;
    }
    CDlgPictureViewer(pictures, u"تصویرهای %1"_s.arg(RecordSubjects::nameOf(table, key)), 0, parent).exec();
}

CDlgPictureViewer::CDlgPictureViewer(QList<Picture> pictures, const QString &title, qsizetype first, QWidget *parent)
    : KDialog(parent)
    , m_pictures(std::move(pictures))
{
    setWindowTitle(withoutColon(title));
    setAccessibleName(windowTitle());
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    build();
    bindKeys();
    setMinimumSize(smallestViewer());
    goTo(first);
    const QSize available = (parent ? parent->screen() : screen())->availableSize() * 9 / 10;
    const int bar = LookSizes::scaled(LookSizes::footer);
    QSize wanted = m_canvas->image().size() + QSize(0, bar);
    if (wanted.width() > available.width() || wanted.height() > available.height())
        wanted = m_canvas->image().size().scaled(available - QSize(0, bar), Qt::KeepAspectRatio) + QSize(0, bar);
    resize(wanted.expandedTo(smallestViewer()));
    // The keys are the window's; Enter goes on.
    if (m_pictures.size() > 1)
        m_next->setFocus();
}

void CDlgPictureViewer::build()
{
    m_canvas = new PictureCanvas(this);
    setContent(m_canvas, createButtons({}, u"بازگشت"_s), Content::Fills);
    const auto add = [this](const QString &icon, const QString &text, const QString &name, auto &&run) {
        auto *button = new QPushButton(LookIcons::icon(icon), text, this);
        button->setAccessibleName(name);
        button->setToolTip(name);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, run);
        footer()->addWidget(button);
        return button;
    };
    m_before = add({}, u"قبلی"_s, u"تصویر قبلی"_s, [this] { goTo(m_current - 1); });
    m_place = new QLabel(this);
    m_place->setAlignment(Qt::AlignCenter);
    m_place->setTextFormat(Qt::PlainText);
    footer()->addWidget(m_place);
    m_next = add({}, u"بعدی"_s, u"تصویر بعدی"_s, [this] { goTo(m_current + 1); });
    m_onPicture = {add({}, u"+"_s, u"بزرگ‌تر"_s, [this] { m_canvas->enlarge(); }), add({}, u"−"_s, u"کوچک‌تر"_s, [this] { m_canvas->reduce(); }),
                   add(u":/icons/save.svg"_s, u"ذخیره"_s, u"ذخیره تصویر در فایل"_s, [this] { chooseFileAndSave(); }),
                   add(u":/icons/print.svg"_s, u"چاپ"_s, u"چاپ تصویر"_s, [this] { KErrorBoundary::guarded(this, [this] { print(); }); })};
    for (QWidget *part : {static_cast<QWidget *>(m_before), static_cast<QWidget *>(m_place), static_cast<QWidget *>(m_next)})
        part->setVisible(m_pictures.size() > 1 || part == m_place);
}

void CDlgPictureViewer::bindKeys()
{
    const auto bind = [this](const QKeySequence &keys, auto &&run) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, run);
    };
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_PageDown})
        bind(key, [this] { goTo(m_current + 1); });
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_PageUp})
        bind(key, [this] { goTo(m_current - 1); });
    bind(Qt::Key_Home, [this] { goTo(0); });
    bind(Qt::Key_End, [this] { goTo(m_pictures.size() - 1); });
    for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Equal})
        bind(key, [this] { m_canvas->enlarge(); });
    bind(Qt::Key_Minus, [this] { m_canvas->reduce(); });
    bind(Qt::Key_0, [this] { m_canvas->fit(); });
    bind(Qt::Key_F11, [this] { switchFullScreen(); });
    bind(QKeySequence::Save, [this] { chooseFileAndSave(); });
    bind(QKeySequence::Print, [this] { KErrorBoundary::guarded(this, [this] { print(); }); });
}

void CDlgPictureViewer::goTo(qsizetype picture)
{
    if (picture < 0 || picture >= m_pictures.size())
        return;
    const KWaitCursor wait;
    m_current = picture;
    m_bytes = m_pictures.at(picture).bytes();
    const QImage image = PictureIntake::decode(m_bytes);
    m_canvas->setImage(image, m_bytes.isEmpty() ? u"این تصویر در این میان حذف شده است."_s : u"تصویر ذخیره شده قابل نمایش نیست"_s);
    m_canvas->setAccessibleName(place());
    m_place->setText(place());
    m_before->setEnabled(picture > 0);
    m_next->setEnabled(picture + 1 < m_pictures.size());
    for (QPushButton *button : std::as_const(m_onPicture))
        button->setEnabled(!image.isNull());
}

QString CDlgPictureViewer::place() const
{
    const QString &name = m_pictures.at(m_current).name;
    const QString count = u"%1 از %2"_s.arg(m_current + 1).arg(m_pictures.size());
    return name.isEmpty() ? count : u"%1 — %2"_s.arg(name, count);
}

QString CDlgPictureViewer::fileName() const
{
    const QString name = QFileInfo(m_pictures.at(m_current).name).completeBaseName();
    return CTblFileDocs::safeFileName(name.isEmpty() ? u"%1 %2"_s.arg(windowTitle()).arg(m_current + 1) : name) + suffixOf(m_bytes);
}

void CDlgPictureViewer::chooseFileAndSave()
{
    if (m_canvas->image().isNull())
        return;
    const QString path = QFileDialog::getSaveFileName(this, u"ذخیره تصویر"_s, QDir::home().filePath(fileName()));
    if (!path.isEmpty())
        saveAs(path);
}

bool CDlgPictureViewer::saveAs(const QString &path)
{
    // Written beside and then put in place, so that a full disk does not cost the file that was there.
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(m_bytes) == m_bytes.size() && file.commit()) {
        KErrorBoundary::guarded(this, [this] { OfficeEvents::noteExport(fileName(), u"تصویر"_s); });
        return true;
    }
    g_pDlgWarning->Show(u"تصویر در این مسیر ذخیره نشد: %1"_s.arg(QDir::toNativeSeparators(path)), this);
    return false;
}

// As large as the page takes it, which lies as the picture does.
void CDlgPictureViewer::print()
{
    const QImage &image = m_canvas->image();
    if (image.isNull())
        return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(image.width() > image.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer.setDocName(windowTitle());
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    QPainter painter;
    ReportOutput::begin(painter, printer);
    QRect place(QPoint(), image.size().scaled(painter.viewport().size(), Qt::KeepAspectRatio));
    place.moveCenter(painter.viewport().center());
    painter.drawImage(place, image);
}

void CDlgPictureViewer::switchFullScreen()
{
    setWindowState(windowState() ^ Qt::WindowFullScreen);
}

void CDlgPictureViewer::reject()
{
    if (isFullScreen())
        switchFullScreen();
    else
        KDialog::reject();
}

void CDlgPictureViewer::mouseDoubleClickEvent(QMouseEvent *)
{
    KDialog::reject();
}
