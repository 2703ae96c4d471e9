// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/CDlgServerPassword.h"

#include "host/frame/HostOptions.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"

#include <QDialogButtonBox>
#include <QGroupBox>

using namespace Qt::StringLiterals;

namespace {

void addShown(FormGrid *grid, const QString &caption, const QString &value, int span)
{
    auto *line = new KEdit(grid->parentWidget());
    line->setText(value);
    line->setReadOnly(true);
    addLabelled(grid, caption, line, span);
}

}

CDlgServerPassword::CDlgServerPassword(const HostOptions &options, QWidget *parent)
    : KDialog(parent)
    , m_password(new KEdit(this))
{
    setWindowTitle(u"اتصال به سرور دفتر"_s);
    m_password->setEchoMode(QLineEdit::Password);

    auto *content = new QWidget(this);
    auto *box = new QGroupBox(content);
    auto *grid = new FormGrid(box);
    addShown(grid, u"سرور :"_s, options.host + u'/' + options.database, 2);
    addShown(grid, u"حساب :"_s, options.user, 2);
    addLabelled(grid, u"کلمه عبور پایگاه داده :"_s, m_password, 2);
    auto *cards = new CardStack(content);
    cards->addCard(box);
    setContent(content, createButtons(u"اتصال"_s));
    setAsksBeforeDropping(false);
    m_password->setFocus();
}

QString CDlgServerPassword::password() const
{
    return m_password->text();
}
