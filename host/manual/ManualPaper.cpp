// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/manual/ManualPaper.h"

#include "host/manual/ManualDocument.h"
#include "host/manual/ManualPages.h"

#include <QPdfWriter>
#include <QSaveFile>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>

using namespace Qt::StringLiterals;

namespace {

// Of what A4 has between its margins, in the pixels of a document.
constexpr int pictureWidth = 620;

void fillPage(QTextDocument &document, const ManualPages &pages, const QString &page)
{
    ManualDocument::fill(document, {.text = pages.text(page), .folder = pages.folder(), .pictureWidth = pictureWidth});
}

}

void ManualPaper::fill(QTextDocument &document, const ManualPages &pages)
{
    QTextCursor cursor(&document);
    QStringList names{ManualPages::contentsPage};
    for (const ManualPages::Entry &entry : pages.contents())
        names.append(entry.page);
    for (const QString &name : std::as_const(names)) {
        QTextDocument page;
        fillPage(page, pages, name);
        // The pictures of a fragment stay behind.
        for (const QTextFormat &format : page.allFormats()) {
            if (const QUrl picture(format.toImageFormat().name()); format.isImageFormat())
                document.addResource(QTextDocument::ImageResource, picture, page.resource(QTextDocument::ImageResource, picture));
        }
        if (cursor.position() > 0)
            cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
        const int start = cursor.position();
        cursor.insertFragment(QTextDocumentFragment(&page));
        QTextCursor first(&document);
        first.setPosition(start);
        QTextBlockFormat broken = page.begin().blockFormat();
        if (start > 0)
            broken.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        first.setBlockFormat(broken);
    }
}

bool ManualPaper::writePdf(const ManualPages &pages, const QString &path)
{
    QTextDocument document;
    fill(document, pages);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    {
        QPdfWriter paper(&file);
        paper.setTitle(pages.text(ManualPages::contentsPage).section(u'\n', 0, 0).remove(u"# "_s));
        paper.setPageSize(QPageSize(QPageSize::A4));
        document.print(&paper);
    }
    return file.commit();
}

void ManualPaper::print(const ManualPages &pages, const QString &page, QPagedPaintDevice &paper)
{
    QTextDocument document;
    fillPage(document, pages, page);
    document.print(&paper);
}
