// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/PictureFields.h"
#include "suite/utility/documents/DocxPackage.h"
#include "suite/utility/documents/FieldStory.h"
#include "suite/utility/documents/WordXml.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 perMillimetre = 36'000; // a document's units
constexpr qint64 widest = 170 * perMillimetre;
constexpr int firstDrawing = 9001; // behind what templates number their own drawings with
constexpr const char *wordDrawing = "http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing";
constexpr const char *drawing = "http://schemas.openxmlformats.org/drawingml/2006/main";
constexpr const char *pictures = "http://schemas.openxmlformats.org/drawingml/2006/picture";
constexpr const char *relations = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

struct Extent
{
    qint64 width = 0, height = 0;
};

Extent extentOf(const DocumentParts::Picture &picture, int height)
{
    const qint64 pixelsHigh = std::max(picture.pixelsHigh, 1), pixelsWide = std::max(picture.pixelsWide, 1);
    Extent extent{0, perMillimetre * (height > 0 ? height : picture.height)};
    extent.width = extent.height * pixelsWide / pixelsHigh;
    if (extent.width > widest)
        extent = {widest, std::max<qint64>(widest * pixelsHigh / pixelsWide, 1)};
    return extent;
}

pugi::xml_node append(pugi::xml_node parent, const char *name, std::initializer_list<std::pair<const char *, QString>> attributes = {})
{
    pugi::xml_node node = parent.append_child(name);
    for (const auto &[key, value] : attributes)
        node.append_attribute(key).set_value(value.toUtf8().constData());
    return node;
}

void appendShape(pugi::xml_node graphic, const QString &relationship, const DocumentParts::Picture &picture, const Extent &extent)
{
    pugi::xml_node data = append(graphic, "a:graphicData", {{"uri", QString::fromLatin1(pictures)}});
    pugi::xml_node image = append(data, "pic:pic", {{"xmlns:pic", QString::fromLatin1(pictures)}});
    pugi::xml_node about = append(image, "pic:nvPicPr");
    append(about, "pic:cNvPr", {{"id", u"0"_s}, {"name", picture.name}});
    append(about, "pic:cNvPicPr");
    pugi::xml_node fill = append(image, "pic:blipFill");
    append(fill, "a:blip", {{"xmlns:r", QString::fromLatin1(relations)}, {"r:embed", relationship}});
    append(append(fill, "a:stretch"), "a:fillRect");
    pugi::xml_node shape = append(image, "pic:spPr");
    pugi::xml_node frame = append(shape, "a:xfrm");
    append(frame, "a:off", {{"x", u"0"_s}, {"y", u"0"_s}});
    append(frame, "a:ext", {{"cx", QString::number(extent.width)}, {"cy", QString::number(extent.height)}});
    append(append(shape, "a:prstGeom", {{"prst", u"rect"_s}}), "a:avLst");
}

void insertBefore(pugi::xml_node place, const QString &relationship, int number, const DocumentParts::Picture &picture, const Extent &extent)
{
    const std::string prefix = WordXml::prefix(place);
    pugi::xml_node run = place.parent().insert_child_before((prefix + "r").c_str(), place);
    pugi::xml_node inLine = append(append(run, (prefix + "drawing").c_str()), "wp:inline",
                                   {{"xmlns:wp", QString::fromLatin1(wordDrawing)}, {"distT", u"0"_s}, {"distB", u"0"_s}, {"distL", u"0"_s}, {"distR", u"0"_s}});
    append(inLine, "wp:extent", {{"cx", QString::number(extent.width)}, {"cy", QString::number(extent.height)}});
    append(inLine, "wp:docPr", {{"id", QString::number(number)}, {"name", picture.name}, {"descr", picture.description}});
    appendShape(append(inLine, "a:graphic", {{"xmlns:a", QString::fromLatin1(drawing)}}), relationship, picture, extent);
}

QString addImage(DocxPackage &package, const DocumentParts::Picture &picture)
{
    const bool isPng = picture.bytes.startsWith("\x89PNG");
    const QString folder = package.mainPart().left(package.mainPart().lastIndexOf(u'/') + 1);
    return package.addPart(folder + u"media/filled-"_s + picture.name.toLower() + (isPng ? u".png"_s : u".jpeg"_s), picture.bytes,
                           isPng ? u"image/png"_s : u"image/jpeg"_s);
}

}

int PictureFields::fill(DocxPackage &package, const QString &part, const DocumentParts::Picture &picture)
{
    QString relationship;
    int count = 0;
    for (const FieldStory::Place &place : FieldStory::places(package.xml(part)->document_element())) {
        const int height = pictureHeight(place.name, picture.name);
        if (height < 0)
            continue;
        if (!picture.bytes.isEmpty()) {
            if (relationship.isEmpty())
                relationship = package.addRelationship(part, QString::fromLatin1(relations) + u"/image"_s, addImage(package, picture));
            insertBefore(place.begin, relationship, firstDrawing + count, picture, extentOf(picture, height));
        }
        place.remove();
        ++count;
    }
    if (count > 0)
        package.setChanged(part);
    return count;
}
