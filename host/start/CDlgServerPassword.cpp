// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/CDlgServerPassword.h"

#include "host/frame/HostOptions.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

CDlgServerPassword::CDlgServerPassword(const HostOptions &options, QWidget *parent)
    : KDialog(parent)
    , m_password(new KEdit(this))
{
    setWindowTitle(u"اتصال به سرور دفتر"_s);
    m_password->setEchoMode(QLineEdit::Password);
    m_password->setMinimumWidth(fontMetrics().averageCharWidth() * 32);

    auto *form = new QFormLayout;
    form->addRow(u"سرور :"_s, new QLabel(options.host + u'/' + options.database, this));
    form->addRow(u"حساب :"_s, new QLabel(options.user, this));
    addLabelled(form, u"کلمه عبور پایگاه داده :"_s, m_password);
    auto *column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(createButtons(u"اتصال"_s));
    setAsksBeforeDropping(false);
    m_password->setFocus();
}

QString CDlgServerPassword::password() const
{
    return m_password->text();
}
