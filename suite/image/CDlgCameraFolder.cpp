// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/image/CDlgCameraFolder.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/image/PictureIntake.h"
#include "suite/image/PictureThumbs.h"
#include "suite/utility/frame/FolderChoice.h"
#include "suite/utility/look/ElidedLabel.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/KSettings.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString cameraSection = u"CameraFolder"_s;

QString folderKey()
{
    return u"sFolder%1"_s.arg(GetDBSetting()->GetUserID());
}

}

QString CDlgCameraFolder::rememberedFolder()
{
    const QString folder = ReadSetting(cameraSection, folderKey(), QString());
    return !folder.isEmpty() && QDir(folder).exists() ? folder : QString();
}

QStringList CDlgCameraFolder::Choose(QWidget *parent)
{
    CDlgCameraFolder dialog(parent);
    if (const QString folder = rememberedFolder(); !folder.isEmpty())
        dialog.setFolder(folder);
    else
        dialog.chooseFolder();
    if (dialog.folder().isEmpty() || dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.ticked();
}

CDlgCameraFolder::CDlgCameraFolder(QWidget *parent)
    : KDialog(parent)
    , m_thumbs(new PictureThumbs(nullptr, {152, 114}))
    , m_path(new ElidedLabel)
    , m_count(new QLabel)
{
    SetSettingName(u"CameraFolder\\Window"_s);
    setWindowTitle(u"تصویرهای پوشه دوربین"_s);
    setAccessibleName(windowTitle());
    setAsksBeforeDropping(false);
    auto *content = new QWidget(this);
    auto *other = new QPushButton(u"پوشه دیگر..."_s);
    other->setAccessibleName(u"پوشه دیگر"_s);
    other->setAutoDefault(false);
    connect(other, &QPushButton::clicked, this, &CDlgCameraFolder::chooseFolder);
    auto *line = new QHBoxLayout;
    line->setSpacing(LookSizes::unit);
    line->addWidget(m_path, 1);
    line->addWidget(other);
    // A path reads from left to right, and stands where the others begin.
    m_path->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
    m_thumbs->setAccessibleName(u"تصویرهای پوشه"_s);
    m_thumbs->setHint(u"در این پوشه تصویری نیست"_s);
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(LookSizes::windowMargin, LookSizes::windowMargin, LookSizes::windowMargin, LookSizes::windowMargin);
    column->setSpacing(LookSizes::unit);
    column->addLayout(line);
    column->addWidget(m_thumbs, 1);
    setContent(content, createButtons(u"افزودن"_s), Content::Fills);
    footer()->addWidget(m_count);
    connect(m_thumbs, &QListWidget::itemChanged, this, &CDlgCameraFolder::showTicked);
    connect(m_thumbs, &PictureThumbs::openAsked, this, [this](int row) {
        QListWidgetItem *item = m_thumbs->item(row);
        item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    });
    m_reading.setInterval(0);
    connect(m_thumbs->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { m_reading.start(); });
    connect(&m_reading, &QTimer::timeout, this, &CDlgCameraFolder::readNext);
    resize(LookSizes::scaled(760), LookSizes::scaled(520));
    m_thumbs->setFocus();
}

void CDlgCameraFolder::chooseFolder()
{
    const QString folder = ShowBrowseForFolder(this, u"پوشه تصویرهای دوربین"_s, m_folder);
    if (!folder.isEmpty())
        setFolder(folder);
}

void CDlgCameraFolder::setFolder(const QString &folder)
{
    m_folder = folder;
    m_path->setText(QDir::toNativeSeparators(folder));
    m_thumbs->clear();
    m_files.clear();
    const QStringList kinds{u"*.jpg"_s, u"*.jpeg"_s, u"*.jfif"_s, u"*.png"_s, u"*.webp"_s};
    const QFileInfoList found = QDir(folder).entryInfoList(kinds, QDir::Files | QDir::Readable, QDir::Time);
    for (const QFileInfo &file : found.mid(0, mostOffered)) {
        m_files.append(file.absoluteFilePath());
        auto *item = new QListWidgetItem(m_thumbs->noPicture(), QString(), m_thumbs);
        item->setToolTip(file.fileName());
        item->setData(Qt::AccessibleTextRole, file.fileName());
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    m_read = QList<bool>(m_files.size(), false);
    m_thumbs->setCurrentRow(0);
    showTicked();
    if (isVisible())
        m_reading.start();
}

void CDlgCameraFolder::showEvent(QShowEvent *event)
{
    KDialog::showEvent(event);
    m_reading.start();
}

void CDlgCameraFolder::resizeEvent(QResizeEvent *event)
{
    KDialog::resizeEvent(event);
    m_reading.start();
}

// Those in sight, one at a time, so that the window answers in between.
void CDlgCameraFolder::readNext()
{
    for (qsizetype row = 0; row < m_files.size(); ++row) {
        QListWidgetItem *item = m_thumbs->item(int(row));
        if (m_read.at(row) || !m_thumbs->visualItemRect(item).intersects(m_thumbs->viewport()->rect()))
            continue;
        m_read[row] = true;
        QFile file(m_files.at(row));
        if (file.size() > PictureIntake::maxBytes || !file.open(QIODevice::ReadOnly))
            return;
        const QImage image = PictureIntake::decode(file.read(PictureIntake::maxBytes));
        const QSignalBlocker silent(m_thumbs);
        if (!image.isNull())
            item->setIcon(m_thumbs->iconOf(image));
        m_thumbs->viewport()->update();
        return;
    }
    m_reading.stop();
}

QStringList CDlgCameraFolder::ticked() const
{
    QStringList files;
    for (qsizetype row = m_files.size() - 1; row >= 0; --row) {
        if (m_thumbs->item(int(row))->checkState() == Qt::Checked)
            files.append(m_files.at(row));
    }
    return files;
}

void CDlgCameraFolder::showTicked()
{
    m_count->setText(u"%1 از %2 تصویر انتخاب شده است"_s.arg(ticked().size()).arg(m_files.size()));
}

bool CDlgCameraFolder::OnOK()
{
    if (ticked().isEmpty()) {
        g_pDlgWarning->Show(u"تصویری انتخاب نشده است."_s, this);
        m_thumbs->setFocus();
        return false;
    }
    WriteSetting(cameraSection, folderKey(), m_folder);
    return true;
}
