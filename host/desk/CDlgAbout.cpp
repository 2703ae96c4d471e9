// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/CDlgAbout.h"

#include "host/start/DatabaseInfo.h"
#include "host/server/DataFolder.h"
#include "suite/utility/entries/CodeFont.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int aboutPicture = 64;

// A line that can be read whole and copied.
void addLine(FormGrid *grid, const QString &caption, const QString &value, int span)
{
    auto *line = new KEdit(grid->parentWidget());
    line->setText(value);
    line->setReadOnly(true);
    line->setLayoutDirection(Qt::LeftToRight);
    line->setAlignment(Qt::AlignRight);
    // The program's own font would draw the digits of these Latin texts in Persian shape.
    QFont font;
    font.setFamilies(CodeFont::families(line->font()));
    line->setFont(font);
    line->setCursorPosition(0);
    line->setAccessibleName(caption + u' ' + value);
    addLabelled(grid, caption, line, span);
}

}

CDlgAbout::CDlgAbout(const DataFolder &folder, QWidget *parent)
    : KDialog(parent)
{
    setWindowTitle(u"درباره برنامه"_s);
    auto *content = new QWidget(this);
    auto *picture = new QLabel(content);
    picture->setPixmap(LookIcons::icon(u":/icons/tzauto.svg"_s).pixmap(LookSizes::scaled(aboutPicture)));
    picture->setAlignment(Qt::AlignCenter);
    auto *name = new QLabel(u"گالری اتومبیل"_s, content);
    LookFonts::apply(name, LookFonts::Use::Page);
    auto *work = new QLabel(u"حسابداری نمایشگاه اتومبیل"_s, content);
    LookFonts::apply(work, LookFonts::Use::Label);
    for (QLabel *label : {name, work})
        label->setAlignment(Qt::AlignCenter);

    auto *box = new QGroupBox(content);
    auto *grid = new FormGrid(box);
    addLine(grid, u"نسخه برنامه :"_s, u"" TZ_VERSION ""_s, 1);
    addLine(grid, u"مجوز :"_s, u"GPL-3.0-or-later"_s, 1);
    addLine(grid, u"پایگاه داده :"_s, DatabaseInfo::serverVersion(), 2);
    addLine(grid, u"پوشه داده‌ها :"_s, QDir::toNativeSeparators(folder.path()), 4);

    auto *cards = new CardStack(content);
    for (QWidget *part : {static_cast<QWidget *>(picture), static_cast<QWidget *>(name), static_cast<QWidget *>(work), static_cast<QWidget *>(box)})
        cards->addCard(part);
    setContent(content, createButtons(u"بستن"_s, QString()));
    constexpr int letters = 84;
    const int width = fontMetrics().averageCharWidth() * letters;
    // The page as it is laid out in this width, above the footer.
    resize(width, sizeHint().height() - content->sizeHint().height() + cards->heightForWidth(width));
}
