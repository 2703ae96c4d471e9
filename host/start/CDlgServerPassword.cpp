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

CDlgServerPassword::CDlgServerPassword(const HostOptions &options, QWidget *parent)
    : KDialog(parent)
    , m_password(new KEdit(this))
{
    setWindowTitle(QStringLiteral("اتصال به سرور دفتر"));
    m_password->setEchoMode(QLineEdit::Password);
    m_password->setMinimumWidth(fontMetrics().averageCharWidth() * 32);

    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("سرور :"), new QLabel(options.host + u'/' + options.database, this));
    form->addRow(QStringLiteral("حساب :"), new QLabel(options.user, this));
    addLabelled(form, QStringLiteral("کلمه عبور پایگاه داده :"), m_password);
    auto *column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(createButtons(QStringLiteral("اتصال")));
    m_password->setFocus();
}

QString CDlgServerPassword::password() const
{
    return m_password->text();
}
