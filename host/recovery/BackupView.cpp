// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/recovery/BackupView.h"

#include "host/recovery/BackupListing.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/utility/values/KSettings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

QString firstLineOfInput()
{
    QFile input;
    constexpr qint64 longest = 4096;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return {};
    const QString line = QString::fromUtf8(input.readLine(longest));
    return line.endsWith(u'\n') ? line.chopped(1) : line;
}

}

BackupView::BackupView(const DataFolder &office, const QString &file, const Progress &progress)
    : m_file(file)
    , m_scratch(office)
{
    const QString passphrase = m_file.isEncrypted() ? firstLineOfInput() : QString();
    const QString text = u"باز کردن پشتیبان %1"_s.arg(BackupListing::whenText(m_file));
    m_scratch.load(m_file, passphrase, [&](qint64, qint64) { return progress(text); });
    const QString settings = folder().settingsFile();
    QDir().mkpath(QFileInfo(settings).path());
    QFile::copy(office.settingsFile(), settings);
    setSettingsFile(settings);
    KConnection::configure(0, m_scratch.settings());
}

BackupView::~BackupView()
{
    OfficeSettings::setOnlyRead({});
    setSettingsFile({});
    KConnection::closeThreadConnections();
}

void BackupView::close() const
{
    OfficeSettings::setOnlyRead(u"این پنجره پشتیبان %1 را نشان می‌دهد و فقط خواندنی است؛ تغییر آن ممکن نیست."_s.arg(BackupListing::whenText(m_file)));
}

QString BackupView::band() const
{
    return u"نمایش پشتیبان %1 - فقط خواندنی"_s.arg(BackupListing::whenText(m_file));
}
