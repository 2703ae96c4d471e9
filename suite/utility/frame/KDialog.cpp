// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KDialog.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

#include "suite/db/connection/KReadAhead.h"
#include "suite/utility/frame/ScrolledPage.h"
#include "suite/utility/frame/TabOrder.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/KSettings.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Constant from the beginning, so that a library may hand its question in while it is loaded.
constinit KDialog::DropQuestion dropQuestion = nullptr;

bool isPressedByEnter(const QWidget *widget)
{
    return qobject_cast<const QAbstractButton *>(widget) && !qobject_cast<const QCheckBox *>(widget)
        && !qobject_cast<const QRadioButton *>(widget);
}

// Where Enter stops: what a user fills in. Parts of a field (a date's own check box) are not fields themselves.
bool isField(const QWidget *widget)
{
    if (!(widget->focusPolicy() & Qt::TabFocus) || !widget->isEnabled() || widget->focusProxy())
        return false;
    if (isPressedByEnter(widget) || widget->property(KDialog::actsOnEnter).toBool() || qobject_cast<const QScrollArea *>(widget))
        return false;
    if (qobject_cast<const QLineEdit *>(widget->parentWidget()))
        return false;
    const auto *edit = qobject_cast<const QLineEdit *>(widget);
    return !edit || !edit->isReadOnly();
}

// A scroll area follows Tab by itself, but no other way to a field.
void scrollIntoSight(QWidget *field)
{
    for (QWidget *above = field->parentWidget(); above && !above->isWindow(); above = above->parentWidget()) {
        if (auto *area = qobject_cast<QScrollArea *>(above))
            area->ensureWidgetVisible(field);
    }
}

}

KDialog::KDialog(QWidget *parent)
    : QDialog(parent)
{
    setLayoutDirection(Qt::RightToLeft);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
        if (now && isAncestorOf(now))
            scrollIntoSight(now);
    });
}

KDialog::~KDialog() = default;

void KDialog::SetSettingName(const QString &name)
{
    m_settingName = name;
}

QString KDialog::defaultOkCaption()
{
    return u"تاييد"_s;
}

QString KDialog::defaultCancelCaption()
{
    return u"انصراف"_s;
}

void KDialog::setDropQuestion(DropQuestion question)
{
    dropQuestion = question;
}

// A second press while the first one is at work, or after it has closed the window, is the same press.
void KDialog::accept()
{
    if (m_accepting || (result() == Accepted && !isVisible()))
        return;
    const QScopedValueRollback accepting(m_accepting, true);
    if (OnOK())
        QDialog::accept();
}

void KDialog::reject()
{
    if (mayDropTypedWork())
        cancel();
}

void KDialog::cancel()
{
    OnCancel();
    QDialog::reject();
}

bool KDialog::holdsTypedWork() const
{
    return m_asks && isVisible() && m_typed.differs(this);
}

bool KDialog::mayDropTypedWork()
{
    return !holdsTypedWork() || !dropQuestion || dropQuestion(this);
}

void KDialog::entriesLoaded(const QWidget *part)
{
    m_typed.add(part);
    watchEntries();
    tabToFooterLast();
}

void KDialog::typedWorkSaved()
{
    m_typed.remember(this);
    watchEntries();
    tellTypedWork();
}

// Each control says by the signal of its value that it has another one.
void KDialog::watchEntries()
{
    const QMetaMethod changed = staticMetaObject.method(staticMetaObject.indexOfSlot("entryChanged()"));
    for (const QWidget *control : m_typed.controls()) {
        const QMetaProperty value = control->metaObject()->userProperty();
        if (value.isValid() && value.hasNotifySignal())
            connect(control, value.notifySignal(), this, changed, Qt::UniqueConnection);
        if (const auto *view = qobject_cast<const QAbstractItemView *>(control); view && view->model())
            connect(view->model(), &QAbstractItemModel::dataChanged, this, &KDialog::entryChanged, Qt::UniqueConnection);
    }
}

// Many values change together: looked at once, when they have.
void KDialog::entryChanged()
{
    if (std::exchange(m_checkPending, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_checkPending = false;
            tellTypedWork();
        },
        Qt::QueuedConnection);
}

void KDialog::tellTypedWork()
{
    const bool typed = holdsTypedWork();
    if (std::exchange(m_toldTyped, typed) != typed)
        typedWorkChanged(typed);
}

// Whatever came into the page or the footer meanwhile. The box around the buttons would be met by Tab where it was made, and pass
// the focus on to its first button.
void KDialog::tabToFooterLast()
{
    if (!m_bar)
        return;
    for (QDialogButtonBox *box : m_bar->findChildren<QDialogButtonBox *>())
        box->setFocusProxy(nullptr);
    QWidget *last = nullptr;
    for (QWidget *widget = nextInFocusChain(); widget && widget != this; widget = widget->nextInFocusChain()) {
        if (!m_bar->isAncestorOf(widget) && widget->window() == this && (widget->focusPolicy() & Qt::TabFocus))
            last = widget;
    }
    // Through the bar itself, which can have the focus for this moment only.
    m_bar->setFocusPolicy(Qt::TabFocus);
    if (last)
        setTabOrder(last, m_bar);
    QWidget *before = m_bar;
    for (QWidget *widget : tabStopsIn(m_bar))
        setTabOrder(std::exchange(before, widget), widget);
    m_bar->setFocusPolicy(Qt::NoFocus);
}

void KDialog::setContent(QWidget *content, QDialogButtonBox *buttons, Content kind)
{
    auto *frame = new QVBoxLayout(this);
    frame->setContentsMargins({});
    frame->setSpacing(0);
    if (kind == Content::Scrolls) {
        auto *page = new QWidget(this);
        fillWithScrolled(page, content);
        frame->addWidget(page, 1);
    } else {
        frame->addWidget(content, 1);
        tabInLayoutOrder(content);
    }
    auto *bar = new QWidget(this);
    LookMarks::setBar(bar, LookMarks::Bar::Bottom);
    auto *line = new QHBoxLayout(bar);
    constexpr int around = (LookSizes::footer - LookSizes::tallControl) / 2;
    line->setContentsMargins(LookSizes::windowMargin, around, LookSizes::windowMargin, around);
    line->setSpacing(LookSizes::unit);
    m_footer = new QHBoxLayout;
    m_footer->setSpacing(LookSizes::unit);
    line->addLayout(m_footer);
    line->addStretch(1);
    if (buttons) {
        // From another window a widget comes behind all of Tab's stops; made before the content, it would be the first of them.
        buttons->setParent(nullptr);
        line->addWidget(buttons);
    }
    frame->addWidget(bar);
    m_bar = bar;
}

// While the OK button's work is under way, its outcome decides: a window that is saving cannot be closed as cancelled.
void KDialog::closeEvent(QCloseEvent *event)
{
    if (m_accepting)
        event->ignore();
    else
        QDialog::closeEvent(event);
}

void KDialog::done(int result)
{
    if (!m_settingName.isEmpty() && m_sizeRestored && !isMaximized() && !isFullScreen()) {
        WriteSetting(m_settingName, u"iWidth"_s, width());
        WriteSetting(m_settingName, u"iHeight"_s, height());
    }
    QDialog::done(result);
}

bool KDialog::OnOK()
{
    return true;
}

void KDialog::OnCancel() { }

QDialogButtonBox *KDialog::createButtons(const QString &okCaption, const QString &cancelCaption)
{
    auto *box = new QDialogButtonBox(this);
    if (!okCaption.isEmpty()) {
        auto *ok = new QPushButton(okCaption, box);
        box->addButton(ok, QDialogButtonBox::AcceptRole);
        ok->setDefault(true);
        LookMarks::setButton(ok, LookMarks::Button::Primary);
        connect(ok, &QPushButton::clicked, this, &KDialog::accept);
        m_asks = true;
    }
    if (!cancelCaption.isEmpty()) {
        auto *cancel = new QPushButton(cancelCaption, box);
        box->addButton(cancel, QDialogButtonBox::RejectRole);
        cancel->setAutoDefault(okCaption.isEmpty());
        connect(cancel, &QPushButton::clicked, this, &KDialog::cancel);
    }
    return box;
}

void KDialog::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (!isEnter || (modifiers != Qt::NoModifier && modifiers != Qt::ControlModifier)) {
        QDialog::keyPressEvent(event);
        return;
    }
    event->accept();
    if (modifiers == Qt::ControlModifier)
        pressDefaultButton();
    else if (isPressedByEnter(focusWidget()))
        static_cast<QAbstractButton *>(focusWidget())->click();
    else if (!moveToNextField())
        pressDefaultButton();
}

// The chain starts at the window itself, so meeting it again means that no field is left. What stands in the footer is no field:
// Enter on the last one of the page confirms.
bool KDialog::moveToNextField()
{
    QWidget *current = focusWidget();
    if (!current || current == this)
        return false;
    for (QWidget *next = current->nextInFocusChain(); next && next != this && next != current;
         next = next->nextInFocusChain()) {
        const bool inFooter = m_bar && m_bar->isAncestorOf(next);
        if (isAncestorOf(next) && !inFooter && next->isVisibleTo(this) && isField(next)) {
            next->setFocus(Qt::TabFocusReason);
            return true;
        }
    }
    return false;
}

void KDialog::pressDefaultButton()
{
    for (QPushButton *button : findChildren<QPushButton *>()) {
        if (button->isDefault() && button->isVisibleTo(this) && button->isEnabled()) {
            // Leaving the field lets it bring what was typed into its final form first.
            button->setFocus(Qt::OtherFocusReason);
            button->click();
            return;
        }
    }
}

void KDialog::showEvent(QShowEvent *event)
{
    if (!m_sizeRestored) {
        tabToFooterLast();
        restoreSize();
    }
    QDialog::showEvent(event);
    if (!event->spontaneous())
        KReadAhead::endAll();
    if (m_asks && !event->spontaneous())
        typedWorkSaved();
    if (!event->spontaneous())
        LookSizes::keepOnScreen(this);
}

void KDialog::restoreSize()
{
    m_sizeRestored = true;
    QSize wanted = testAttribute(Qt::WA_Resized) ? size() : sizeHint();
    if (!m_settingName.isEmpty()) {
        const QSize stored(ReadSetting(m_settingName, u"iWidth"_s, 0),
                           ReadSetting(m_settingName, u"iHeight"_s, 0));
        if (stored.width() > 0 && stored.height() > 0)
            wanted = stored;
    }
    // The buttons at the lower edge stay in sight on a small screen; the frame takes some of it too.
    constexpr int frameHeight = 28;
    if (wanted.isEmpty())
        return;
    resize(wanted.boundedTo(screen()->availableSize() - QSize(0, frameHeight)));
}
