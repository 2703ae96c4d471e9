// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/CDlgLogin.h"

#include "host/start/LoginAttempts.h"
#include "suite/accounting/changes/OfficeEvents.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/KSettings.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString section = u"Login"_s;
const QString lastUserKey = u"sLastUser"_s;
const QString officeKey = u"sOffice"_s;

constexpr int loginPicture = 64;
constexpr int wholeLine = 8;

}

CDlgLogin::CDlgLogin(const QString &officeName, QWidget *parent)
    : CDlgLogin(BeforeDatabase(), parent)
{
    databaseAnswers(officeName);
}

CDlgLogin::CDlgLogin(BeforeDatabase, QWidget *parent)
    : KDialog(parent)
    , m_user(new KEdit(this))
    , m_password(new KEdit(this))
    , m_title(new QLabel(this))
    , m_hint(new QLabel(this))
{
    setWindowTitle(u"ورود به برنامه"_s);
    build();
    setOfficeName(ReadSetting(section, officeKey, QString()));
    m_wait.setInterval(1000);
    connect(&m_wait, &QTimer::timeout, this, &CDlgLogin::showWait);
    // Whoever types on has not finished.
    for (const KEdit *edit : {m_user, m_password})
        connect(edit, &QLineEdit::textEdited, this, [this] { keepWhatIsPressed(false); });
    setUserName(ReadSetting(section, lastUserKey, QString()));
}

bool CDlgLogin::isOfficeKnown()
{
    return !ReadSetting(section, officeKey, QString()).isEmpty();
}

void CDlgLogin::waitFor(const QString &waitingFor)
{
    if (m_hint->text() == waitingFor)
        return;
    LookFonts::applyHint(m_hint);
    m_hint->setText(waitingFor);
}

void CDlgLogin::databaseAnswers(const QString &officeName)
{
    setOfficeName(officeName);
    if (ReadSetting(section, officeKey, QString()) != m_title->text())
        WriteSetting(section, officeKey, m_title->text());
    LookFonts::applyError(m_hint);
    m_hint->clear();
    m_databaseAnswers = true;
    wait(LoginAttempts::secondsLeft());
    if (std::exchange(m_pressed, false))
        QMetaObject::invokeMethod(this, &CDlgLogin::accept, Qt::QueuedConnection);
}

void CDlgLogin::setOfficeName(const QString &name)
{
    m_title->setText(name.isEmpty() ? u"گالری اتومبیل"_s : name);
}

void CDlgLogin::keepWhatIsPressed(bool pressed)
{
    if (m_databaseAnswers)
        return;
    m_pressed = pressed;
    // A button that goes dark passes the focus on to the one beside it, which would end the program at the next Enter.
    if (pressed)
        m_password->setFocus();
    m_ok->setEnabled(!pressed);
}

void CDlgLogin::build()
{
    auto *content = new QWidget(this);
    auto *picture = new QLabel(content);
    picture->setPixmap(LookIcons::icon(u":/icons/tzauto.svg"_s).pixmap(LookSizes::scaled(loginPicture)));
    picture->setAlignment(Qt::AlignCenter);
    m_title->setAlignment(Qt::AlignCenter);
    m_title->setTextFormat(Qt::PlainText);
    m_title->setWordWrap(true);
    LookFonts::apply(m_title, LookFonts::Use::Page);

    m_password->setEchoMode(QLineEdit::Password);
    m_user->setMaxLength(50);
    auto *box = new QGroupBox(content);
    auto *grid = new FormGrid(box);
    addLabelled(grid, u"نام کاربری :"_s, m_user, wholeLine);
    addLabelled(grid, u"کلمه عبور :"_s, m_password, wholeLine);
    // The message has its line from the start.
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setMinimumHeight(m_hint->fontMetrics().lineSpacing());
    LookFonts::applyError(m_hint);

    QDialogButtonBox *buttons = createButtons(u"ورود"_s, u"خروج"_s);
    setAsksBeforeDropping(false);
    for (QAbstractButton *button : buttons->buttons())
        if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
            m_ok = button;

    auto *column = new CardStack(content);
    for (QWidget *part : {static_cast<QWidget *>(picture), static_cast<QWidget *>(m_title), static_cast<QWidget *>(box), static_cast<QWidget *>(m_hint)})
        column->addCard(part);
    setContent(content, buttons);
    resize(fontMetrics().averageCharWidth() * 52, sizeHint().height());
}

void CDlgLogin::setUserName(const QString &user)
{
    m_user->setText(user);
    (user.isEmpty() ? m_user : m_password)->setFocus();
}

bool CDlgLogin::OnOK()
{
    keepWhatIsPressed(true);
    if (!m_databaseAnswers || m_secondsLeft > 0)
        return false;
    KEdit *const empty = m_user->text().trimmed().isEmpty() ? m_user : m_password->text().isEmpty() ? m_password
                                                                                                    : nullptr;
    if (empty) {
        g_pDlgWarning->Show(empty == m_user ? u"لطفا نام کاربری را وارد نمایید."_s
                                            : u"لطفا کلمه عبور را وارد نمایید."_s,
                            this);
        empty->setFocus();
        return false;
    }
    // Another window of this computer may have tried meanwhile.
    const LoginAttempts::Standing standing = LoginAttempts::standing();
    wait(standing.secondsLeft);
    if (m_secondsLeft > 0)
        return false;
    std::optional<int> user;
    {
        const KWaitCursor wait;
        user = CTblUsers::verify(m_user->text(), m_password->text());
    }
    if (!user) {
        refuse();
        return false;
    }
    if (standing.areStored)
        LoginAttempts::forget();
    OfficeEvents::noteSignIn(*user);
    m_userID = *user;
    m_password->clear();
    WriteSetting(section, lastUserKey, m_user->text().trimmed());
    return true;
}

void CDlgLogin::refuse()
{
    const int seconds = LoginAttempts::countWrong(m_user->text());
    m_ok->setEnabled(seconds == 0);
    g_pDlgWarning->Show(u"نام کاربری یا کلمه عبور درست نیست."_s, this);
    m_password->selectAll();
    m_password->setFocus();
    wait(seconds);
}

void CDlgLogin::wait(int seconds)
{
    m_secondsLeft = seconds;
    m_ok->setEnabled(seconds == 0);
    if (seconds == 0)
        return;
    m_hint->setText(u"لطفا %1 ثانیه صبر نمایید."_s.arg(seconds));
    m_wait.start();
}

void CDlgLogin::showWait()
{
    --m_secondsLeft;
    if (m_secondsLeft > 0) {
        m_hint->setText(u"لطفا %1 ثانیه صبر نمایید."_s.arg(m_secondsLeft));
        return;
    }
    m_wait.stop();
    m_hint->clear();
    m_ok->setEnabled(true);
}

bool CDlgLogin::event(QEvent *event)
{
    const bool handled = KDialog::event(event);
    if (event->type() == QEvent::Paint && !m_painted) {
        m_painted = true;
        Q_EMIT painted();
    }
    return handled;
}

void CDlgLogin::showEvent(QShowEvent *event)
{
    KDialog::showEvent(event);
    (m_user->text().isEmpty() ? m_user : m_password)->setFocus();
}
