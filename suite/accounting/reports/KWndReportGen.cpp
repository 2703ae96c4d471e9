// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/KWndReportGen.h"

#include "suite/accounting/reports/ReportPainter.h"
#include "suite/utility/look/HostColors.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>
#include <QWheelEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int border = 16; // of the surface around the paper, in screen dots
constexpr double smallestScale = 0.25;
constexpr double largestScale = 4;
constexpr double scaleStep = 1.25;

}

KWndReportGen::KWndReportGen(QWidget *parent)
    : QAbstractScrollArea(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(u"پیش نمایش"_s);
    setFrameShape(QFrame::NoFrame);
    // The paper is placed by its own left edge; a mirrored bar would count from the other one.
    setLayoutDirection(Qt::LeftToRight);
}

KWndReportGen::~KWndReportGen() = default;

bool KWndReportGen::setReport(const ListReport &report, const ReportProgress &progress)
{
    auto painter = std::make_unique<ReportPainter>(report);
    if (!painter->layOut(progress))
        return false;
    setPages(std::move(painter));
    return true;
}

void KWndReportGen::setPages(std::unique_ptr<PaperPages> pages)
{
    m_painter = std::move(pages);
    m_page = 0;
    fitNow();
    updateBars();
    viewport()->update();
    Q_EMIT pageChanged(m_page);
}

int KWndReportGen::pageCount() const
{
    return m_painter ? m_painter->pageCount() : 0;
}

void KWndReportGen::showPage(int page)
{
    const int nearest = std::clamp(page, 0, std::max(0, pageCount() - 1));
    if (nearest == m_page)
        return;
    m_page = nearest;
    setAccessibleDescription(u"صفحه %1 از %2"_s.arg(m_page + 1).arg(pageCount()));
    verticalScrollBar()->setValue(0);
    viewport()->update();
    Q_EMIT pageChanged(m_page);
}

void KWndReportGen::setScale(double scale)
{
    m_fit = FixedScale;
    m_scale = std::clamp(scale, smallestScale, largestScale);
    updateBars();
    viewport()->update();
    Q_EMIT scaleChanged();
}

void KWndReportGen::setFit(Fit fit)
{
    m_fit = fit;
    fitNow();
    updateBars();
    viewport()->update();
    Q_EMIT scaleChanged();
}

double KWndReportGen::screenDotsPerDot() const
{
    return m_scale * logicalDpiX() / PaperPages::resolution;
}

void KWndReportGen::fitNow()
{
    if (!m_painter || m_fit == FixedScale)
        return;
    const QSizeF paper = m_painter->paperSize() * logicalDpiX() / PaperPages::resolution;
    const double bar = m_fit == FitWidth && !verticalScrollBar()->isVisible() ? verticalScrollBar()->sizeHint().width() : 0;
    const double wide = (viewport()->width() - bar - 2 * border) / paper.width();
    const double high = (viewport()->height() - 2 * border) / paper.height();
    m_scale = std::clamp(m_fit == FitWidth ? wide : std::min(wide, high), smallestScale, largestScale);
}

void KWndReportGen::updateBars()
{
    if (!m_painter)
        return;
    const QSizeF paper = m_painter->paperSize() * screenDotsPerDot();
    auto set = [](QScrollBar *bar, double content, int room) {
        bar->setRange(0, std::max(0, qRound(content) + 2 * border - room));
        bar->setPageStep(room);
        bar->setSingleStep(std::max(1, room / 12));
    };
    set(horizontalScrollBar(), paper.width(), viewport()->width());
    set(verticalScrollBar(), paper.height(), viewport()->height());
}

void KWndReportGen::paintEvent(QPaintEvent *)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), HostColors::of(HostColors::Role::Window));
    if (m_painter && m_page < pageCount())
        paintPage(painter);
    if (hasFocus()) {
        QStyleOptionFocusRect ring;
        ring.initFrom(this);
        ring.rect = viewport()->rect();
        // Also for whoever came by the mouse: the keys turn the pages.
        ring.state |= QStyle::State_KeyboardFocusChange;
        painter.resetTransform();
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &ring, &painter, this);
    }
}

// The paper is white in any look, as it will be in the printer; in a light one its edge is to be seen.
void KWndReportGen::paintPage(QPainter &painter)
{
    const QSizeF paper = m_painter->paperSize() * screenDotsPerDot();
    const double x = std::max(static_cast<double>(border), (viewport()->width() - paper.width()) / 2)
        - horizontalScrollBar()->value();
    painter.translate(x, border - verticalScrollBar()->value());
    painter.fillRect(QRectF({}, paper).adjusted(-1, -1, 1, 1), HostColors::of(HostColors::Role::Line));
    painter.fillRect(QRectF({}, paper), Qt::white);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(screenDotsPerDot(), screenDotsPerDot());
    m_painter->paint(painter, m_page);
}

// The area's own update does not reach its viewport.
void KWndReportGen::focusInEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void KWndReportGen::focusOutEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

void KWndReportGen::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    fitNow();
    updateBars();
}

void KWndReportGen::turn(int pages)
{
    showPage(m_page + pages);
}

void KWndReportGen::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_PageDown:
        return turn(1);
    case Qt::Key_PageUp:
        return turn(-1);
    case Qt::Key_Home:
        return showPage(0);
    case Qt::Key_End:
        return showPage(pageCount() - 1);
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return setScale(m_scale * scaleStep);
    case Qt::Key_Minus:
        return setScale(m_scale / scaleStep);
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void KWndReportGen::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier))
        return QAbstractScrollArea::wheelEvent(event);
    setScale(event->angleDelta().y() > 0 ? m_scale * scaleStep : m_scale / scaleStep);
    event->accept();
}
