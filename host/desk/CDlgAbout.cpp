// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/CDlgAbout.h"

#include "host/start/DatabaseInfo.h"
#include "host/frame/HostOptions.h"
#include "host/server/DataFolder.h"
#include "suite/utility/entries/FieldLabel.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFontDatabase>
#include <QFormLayout>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

void addLine(QFormLayout *form, const QString &caption, const QString &value)
{
    auto *label = new QLabel(value);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setLayoutDirection(Qt::LeftToRight);
    label->setAlignment(Qt::AlignRight);
    label->setWordWrap(true);
    // The program's own font would draw the digits of these Latin texts in Persian shape.
    label->setFont(QFontDatabase::systemFont(QFontDatabase::GeneralFont));
    form->addRow(labelFor(caption, label, caption + u' ' + value), label);
}

}

CDlgAbout::CDlgAbout(const DataFolder &folder, QWidget *parent)
    : KDialog(parent)
{
    setWindowTitle(u"درباره برنامه"_s);
    auto *picture = new QLabel(this);
    picture->setPixmap(QIcon(u":/icons/tzauto.svg"_s).pixmap(80, 80));
    picture->setAlignment(Qt::AlignCenter);
    auto *name = new QLabel(u"گالری اتومبیل\nحسابداری نمایشگاه اتومبیل"_s, this);
    name->setAlignment(Qt::AlignCenter);

    auto *form = new QFormLayout;
    addLine(form, u"نسخه برنامه :"_s, u"" TZ_VERSION ""_s);
    addLine(form, u"پایگاه داده :"_s, DatabaseInfo::serverVersion());
    addLine(form, u"پوشه داده‌ها :"_s, QDir::toNativeSeparators(folder.path()));
    addLine(form, u"مجوز :"_s, u"GPL-3.0-or-later"_s);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 16);
    column->setSpacing(12);
    column->addWidget(picture);
    column->addWidget(name);
    column->addLayout(form);
    column->addWidget(createButtons(u"بستن"_s, QString()));
    setMinimumWidth(fontMetrics().averageCharWidth() * 64);
}
