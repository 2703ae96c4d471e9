// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/manual/ManualDocument.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookSizes.h"

#include <QImage>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int lineHeight = 135; // in per cent of the font's

Qt::LayoutDirection directionOf(const QString &text)
{
    return text.section(u'\n', 0, 0).isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}

// The toolkit lays out the columns of a table from left to right, whatever its direction: they are turned round before.
QString withColumnsReversed(const QString &text)
{
    QStringList lines = text.split(u'\n');
    for (QString &line : lines) {
        if (!line.startsWith(u'|'))
            continue;
        QStringList cells = line.trimmed().split(u'|');
        std::reverse(cells.begin(), cells.end());
        line = cells.join(u'|');
    }
    return lines.join(u'\n');
}

void setBlocks(QTextDocument &document, Qt::LayoutDirection direction)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format;
        format.setLayoutDirection(direction);
        format.setLineHeight(lineHeight, QTextBlockFormat::ProportionalHeight);
        if (block.blockFormat().headingLevel() > 1)
            format.setTopMargin(2 * LookSizes::unit);
        QTextCursor(block).mergeBlockFormat(format);
    }
}

void setTables(QTextDocument &document, Qt::LayoutDirection direction)
{
    for (QTextFrame *frame : document.rootFrame()->childFrames()) {
        auto *table = qobject_cast<QTextTable *>(frame);
        if (!table)
            continue;
        QTextTableFormat format = table->format();
        format.setLayoutDirection(direction);
        format.setBorder(1);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(HostColors::of(HostColors::Role::Line));
        format.setBorderCollapse(true);
        format.setCellSpacing(0);
        format.setCellPadding(LookSizes::unit / 2.0);
        format.setMargin(LookSizes::unit);
        table->setFormat(format);
    }
}

void setPicture(QTextDocument &document, QTextCursor &picture, const ManualDocument::Page &page)
{
    QTextImageFormat format = picture.charFormat().toImageFormat();
    QImage image(page.folder + u'/' + format.name());
    if (image.isNull())
        return;
    // A palette's few colours would be dotted when the picture is made smaller.
    image.convertTo(QImage::Format_RGB32);
    const int width = qMin(image.width(), page.pictureWidth);
    format.setWidth(width);
    format.setHeight(qRound(double(width) * image.height() / image.width()));
    picture.setCharFormat(format);
    // A share of the picture's height would be room below it.
    QTextBlockFormat line;
    line.setLineHeight(0, QTextBlockFormat::SingleHeight);
    picture.mergeBlockFormat(line);
    if (page.ratio > 0) {
        const int pixels = qMin(image.width(), qRound(width * page.ratio));
        image = image.scaledToWidth(pixels, Qt::SmoothTransformation);
        image.setDevicePixelRatio(qreal(pixels) / width);
    }
    document.addResource(QTextDocument::ImageResource, QUrl(format.name()), image);
}

void setPictures(QTextDocument &document, const ManualDocument::Page &page)
{
    QTextCursor cursor(&document);
    while (cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor)) {
        if (cursor.charFormat().isImageFormat())
            setPicture(document, cursor, page);
        cursor.setPosition(cursor.position());
    }
}

}

void ManualDocument::fill(QTextDocument &document, const Page &page)
{
    const Qt::LayoutDirection direction = directionOf(page.text);
    document.setMarkdown(direction == Qt::RightToLeft ? withColumnsReversed(page.text) : page.text, QTextDocument::MarkdownDialectGitHub);
    QTextOption option = document.defaultTextOption();
    option.setTextDirection(direction);
    document.setDefaultTextOption(option);
    // Laid out once, when all of it is as it is to be.
    QTextCursor all(&document);
    all.beginEditBlock();
    setBlocks(document, direction);
    setTables(document, direction);
    setPictures(document, page);
    all.endEditBlock();
}

QString ManualDocument::anchorOf(const QString &heading)
{
    static const QRegularExpression dropped(u"[^\\w\\s-]"_s, QRegularExpression::UseUnicodePropertiesOption);
    return heading.trimmed().toLower().remove(dropped).replace(u' ', u'-');
}

int ManualDocument::positionOf(const QTextDocument &document, const QString &anchor)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0 && anchorOf(block.text()) == anchor)
            return block.position();
    }
    return -1;
}
