// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/templates/TemplateEditing.h"

#include "auto/contracts/printing/ContractTemplates.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/utility/values/TemporaryFolders.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

namespace {

constexpr int millisecondsBetweenLooks = 1000;

QByteArray markOf(const QByteArray &content)
{
    return content.isEmpty() ? QByteArray() : QCryptographicHash::hash(content, QCryptographicHash::Sha256);
}

}

TemplateEditing::TemplateEditing(int contractType, const QString &name, const QByteArray &file, qint32 seen, const QString &temporary, QObject *parent)
    : QObject(parent)
    , m_contractType(contractType)
    , m_name(name)
    , m_seen(seen)
    , m_known(markOf(file))
    , m_told(m_known)
    , m_last(m_known)
{
    const QString folder = TemporaryFolders::make(TemporaryFolders::Purpose::Contract, temporary.isEmpty() ? QDir::tempPath() : temporary);
    QFile copy(QDir(folder).filePath(CTblFileDocs::safeFileName(name)));
    if (folder.isEmpty() || !copy.open(QIODevice::WriteOnly) || copy.write(file) != file.size() || !copy.flush())
        return;
    m_path = copy.fileName();
    m_clock.setInterval(millisecondsBetweenLooks);
    connect(&m_clock, &QTimer::timeout, this, &TemplateEditing::look);
    m_clock.start();
}

TemplateEditing::~TemplateEditing() = default;

QByteArray TemplateEditing::content() const
{
    QFile file(m_path);
    // One byte more than is taken, so that a file too large is refused by that and not cut.
    return file.open(QIODevice::ReadOnly) ? file.read(ContractTemplates::maxBytes + 1) : QByteArray();
}

bool TemplateEditing::isChanged() const
{
    const QByteArray now = markOf(content());
    return !now.isEmpty() && now != m_known;
}

void TemplateEditing::taken(const QByteArray &content, qint32 key)
{
    m_known = markOf(content);
    m_told = m_known;
    m_seen = key;
}

void TemplateEditing::look()
{
    const QByteArray now = markOf(content());
    const bool isStill = !now.isEmpty() && now == m_last;
    m_last = now;
    if (!isStill || now == m_told)
        return;
    m_told = now;
    Q_EMIT saved();
}
