// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/StatusLine.h"

#include "host/desk/BackupSign.h"
#include "suite/utility/look/ElidedLabel.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace {

constexpr int statusGap = 24;

// Labels and signs one after the other as wide as their words; where the line is too short, the last ones are cut. The note has the rest.
class StatusLabels : public QWidget
{
public:
    StatusLabels(QList<QWidget *> labels, ElidedLabel *note)
        : m_labels(std::move(labels))
        , m_note(note)
    {
        for (QWidget *label : m_labels)
            label->setParent(this);
        m_note->setParent(this);
        setMinimumHeight(LookSizes::scaled(LookSizes::statusLine));
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::LayoutRequest)
            arrange();
        return QWidget::event(event);
    }

    void resizeEvent(QResizeEvent *) override { arrange(); }

private:
    void put(QWidget *label, int left, int width)
    {
        label->setGeometry(QStyle::visualRect(layoutDirection(), rect(), {left, 0, std::max(0, width), height()}));
    }

    void arrange()
    {
        int left = LookSizes::windowMargin;
        const int end = width() - LookSizes::windowMargin;
        for (QWidget *label : std::as_const(m_labels)) {
            if (label->isHidden())
                continue;
            const int own = std::min(label->sizeHint().width(), end - left);
            put(label, left, own);
            left += std::max(0, own) + LookSizes::scaled(statusGap);
        }
        put(m_note, left, end - left);
    }

    QList<QWidget *> m_labels;
    ElidedLabel *m_note;
};

}

StatusLine::StatusLine(QWidget *parent)
    : QStatusBar(parent)
    , m_user(new ElidedLabel)
    , m_database(new ElidedLabel)
    , m_fiscalYear(new ElidedLabel)
    , m_date(new ElidedLabel)
    , m_closedMark(new ElidedLabel(u"پایگاه داده بسته است"_s))
    , m_backups(new BackupSign)
    , m_note(new ElidedLabel)
{
    for (ElidedLabel *label : {m_user, m_database, m_fiscalYear, m_date})
        LookFonts::apply(label, LookFonts::Use::Label);
    LookFonts::applyError(m_closedMark);
    LookFonts::apply(m_note, LookFonts::Use::Label);
    m_note->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    m_closedMark->hide();
    setSizeGripEnabled(false);
    setContentsMargins({});
    addPermanentWidget(new StatusLabels({m_user, m_database, m_fiscalYear, m_date, m_backups, m_closedMark}, m_note), 1);
    connect(this, &QStatusBar::messageChanged, m_note, &QLabel::setText);
}

void StatusLine::setUser(const QString &name)
{
    m_user->setText(u"کاربر : %1"_s.arg(name));
}

void StatusLine::setDatabase(const QString &name)
{
    m_database->setText(u"پایگاه داده : %1"_s.arg(name));
}

void StatusLine::setFiscalYear(int year)
{
    m_fiscalYear->setText(u"سال مالی : %1"_s.arg(year));
}

void StatusLine::setDate(const QString &date)
{
    m_date->setText(date);
}

void StatusLine::setClosed(bool closed)
{
    m_closedMark->setVisible(closed);
}

// The note shows the message; the base class would paint it over the labels.
void StatusLine::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_PanelStatusBar, &option, &painter, this);
}
