// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/keeping/CDlgClosingBackup.h"

#include "host/frame/StartupClock.h"
#include "host/keeping/BackupKeeper.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/look/LookFonts.h"

#include <QDialogButtonBox>
#include <QEventLoop>
#include <QLabel>
#include <QProgressBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 1000;
constexpr int wholeBackup = 1000;

}

CDlgClosingBackup::CDlgClosingBackup(BackupKeeper &keeper, QWidget *parent)
    : KDialog(parent)
    , m_keeper(keeper)
    , m_bar(new QProgressBar(this))
{
    setWindowTitle(u"پشتیبان‌گیری"_s);
    auto *page = new CardPage(420, this);
    FormGrid *grid = page->addForm();
    auto *text = new QLabel(u"در حال پشتیبان‌گیری"_s, this);
    LookFonts::apply(text, LookFonts::Use::Strong);
    grid->addLine(text);
    m_bar->setRange(0, 0);
    m_bar->setTextVisible(false);
    m_bar->setAccessibleName(text->text());
    grid->addLine(m_bar);
    setContent(page, createButtons({}, u"بستن بدون پشتیبان"_s));
    connect(&m_clock, &QTimer::timeout, this, &CDlgClosingBackup::showProgress);
    m_clock.start(100);
}

void CDlgClosingBackup::showProgress()
{
    const double done = m_keeper.progress();
    m_bar->setRange(0, done < 0 ? 0 : wholeBackup);
    m_bar->setValue(int(done * wholeBackup));
}

// While one is being taken, the window goes when that has ended, which it does soon.
void CDlgClosingBackup::reject()
{
    m_keeper.cancel();
    if (!m_keeper.isTaking())
        KDialog::reject();
}

void CDlgClosingBackup::run(BackupKeeper &keeper)
{
    keeper.stopVerifying();
    try {
        if (!keeper.isTaking() && (!keeper.isDueAtClosing() || !keeper.take(BackupManifest::Reason::Closing)))
            return;
    } catch (const CMySQLException &) {
        qCWarning(lcHost).noquote() << "backup at closing:" << KErrorText::logText(std::current_exception());
        return;
    }
    QEventLoop loop;
    CDlgClosingBackup window(keeper);
    connect(&keeper, &BackupKeeper::taken, &loop, &QEventLoop::quit);
    QTimer::singleShot(patience, &window, [&window] { window.show(); });
    loop.exec();
    window.hide();
    // One that ended while another reason was at work needs no verifying now: the next start does that.
    keeper.stopVerifying();
}
