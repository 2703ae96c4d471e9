// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/manual/ManualPages.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

const QString ManualPages::contentsPage = u"index"_s;
const QString ManualPages::windowsPage = u"windows"_s;

ManualPages::ManualPages(QString folder)
    : m_folder(std::move(folder))
{
    readContents();
    readWindows();
}

QString ManualPages::ofProgram()
{
    return u":/manual"_s;
}

bool ManualPages::has(const QString &page) const
{
    return !page.isEmpty() && QFile::exists(m_folder + u'/' + page + u".md"_s);
}

QString ManualPages::text(const QString &page) const
{
    QFile file(m_folder + u'/' + page + u".md"_s);
    if (page.isEmpty() || !file.open(QIODevice::ReadOnly))
        return {};
    // Tags stand on lines of their own: the licence, and the frame that turns the page for whoever reads the file itself.
    QStringList lines;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        if (!line.startsWith(u'<'))
            lines.append(line);
    }
    return lines.join(u'\n').trimmed();
}

QString ManualPages::words(const QString &page) const
{
    static const QRegularExpression picture(uR"(!\[[^\]]*\]\([^)]*\))"_s);
    static const QRegularExpression target(uR"(\]\([^)]*\))"_s);
    return text(page).remove(picture).remove(target);
}

QString ManualPages::pageOf(const QStringList &classes) const
{
    for (const QString &name : classes) {
        if (const QString page = m_windows.value(name); !page.isEmpty())
            return page;
    }
    return {};
}

void ManualPages::readContents()
{
    static const QRegularExpression entry(uR"(^- \[([^\]]+)\]\(([\w-]+)\.md\))"_s);
    QString group;
    for (const QString &line : text(contentsPage).split(u'\n')) {
        if (line.startsWith(u"## "))
            group = line.mid(3).trimmed();
        if (const QRegularExpressionMatch match = entry.match(line); match.hasMatch())
            m_contents.append({group, match.captured(2), match.captured(1)});
    }
}

// Rows of the table: a window's title, its page, the classes.
void ManualPages::readWindows()
{
    static const QRegularExpression page(uR"(\]\(([\w-]+)\.md\))"_s);
    static const QRegularExpression name(u"`(\\w+)`"_s);
    for (const QString &line : text(windowsPage).split(u'\n')) {
        const QRegularExpressionMatch link = page.match(line);
        if (!line.startsWith(u'|') || !link.hasMatch())
            continue;
        for (auto names = name.globalMatch(line); names.hasNext();)
            m_windows.insert(names.next().captured(1), link.captured(1));
    }
}
