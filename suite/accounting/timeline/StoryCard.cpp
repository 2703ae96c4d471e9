// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/timeline/StoryCard.h"

#include "suite/accounting/timeline/StoryKinds.h"
#include "suite/utility/entries/CodeFont.h"
#include "suite/utility/entries/CodeFont.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/look/ElidedLabel.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/KChip.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/look/PlatePicture.h"
#include "suite/utility/look/WrapLine.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

// The record's picture, or a sign of what it is, on the ground of pictures.
class StoryCard::Picture : public QWidget
{
public:
    explicit Picture(QWidget *parent)
        : QWidget(parent)
    {
        setFixedHeight(LookSizes::scaled(168));
        setAccessibleName(u"تصویر"_s);
    }
    void load(const QByteArray &stored)
    {
        m_image = QImage::fromData(stored);
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        QPainterPath frame;
        frame.addRoundedRect(rect(), LookSizes::buttonCorner, LookSizes::buttonCorner);
        painter.setClipPath(frame);
        painter.fillRect(rect(), HostColors::of(HostColors::Role::Sky));
        if (m_image.isNull()) {
            QRect sign(0, 0, height() / 2, height() / 2);
            sign.moveCenter(rect().center());
            painter.fillRect(QRect(0, height() * 3 / 4, width(), height()), HostColors::of(HostColors::Role::Ground));
            LookIcons::icon(u":/icons/car.svg"_s).paint(&painter, sign);
            return;
        }
        const QSize shown = m_image.size().scaled(size(), Qt::KeepAspectRatio);
        QRect place(QPoint(), shown);
        place.moveCenter(rect().center());
        painter.drawImage(place, m_image);
    }

private:
    QImage m_image;
};

StoryCard::StoryCard(QWidget *parent)
    : QFrame(parent)
    , m_picture(new Picture(this))
    , m_title(new ElidedLabel(this))
    , m_state(new KChip(KChip::Kind::Neutral, {}, this))
    , m_second(new QLabel(this))
    , m_plate(new PlatePicture(this))
    , m_facts(new QWidget(this))
    , m_commands(new QWidget(this))
{
    LookMarks::setCard(this);
    LookFonts::apply(m_title, LookFonts::Use::Page);
    LookFonts::apply(m_second, LookFonts::Use::Label);
    m_second->setWordWrap(true);
    m_second->setTextFormat(Qt::PlainText);
    auto *head = new QHBoxLayout;
    head->addWidget(m_title, 1);
    head->addWidget(m_state);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(LookSizes::cardPadding, LookSizes::cardPadding, LookSizes::cardPadding, LookSizes::cardPadding);
    column->setSpacing(LookSizes::unit);
    column->addWidget(m_picture);
    column->addLayout(head);
    column->addWidget(m_second);
    column->addWidget(m_plate);
    column->addWidget(m_facts);
    column->addStretch(1);
    column->addWidget(m_commands);
}

void StoryCard::show(const Story &story, bool hasPicture)
{
    m_picture->setVisible(hasPicture);
    m_picture->load(story.head.picture);
    m_title->setText(story.head.title);
    m_state->setKind(StoryKinds::chip(story.head.tone));
    m_state->setText(story.head.state);
    m_state->setVisible(!story.head.state.isEmpty());
    m_second->setText(story.head.second);
    m_second->setVisible(!story.head.second.isEmpty());
    m_plate->setText(story.head.plate);
    m_plate->setVisible(m_plate->isPlate());
    showFacts(story.head);
}

// A plate that is none of the usual form is a fact.
void StoryCard::showFacts(const StoryHead &head)
{
    QList<QPair<QString, QString>> facts = head.facts;
    if (!head.plate.isEmpty() && !m_plate->isPlate())
        facts.prepend({u"پلاک"_s, head.plate});
    qDeleteAll(m_facts->findChildren<QWidget *>(Qt::FindDirectChildrenOnly));
    delete m_facts->layout();
    auto *grid = new QGridLayout(m_facts);
    grid->setContentsMargins(0, LookSizes::unit, 0, 0);
    grid->setHorizontalSpacing(LookSizes::gutter);
    grid->setVerticalSpacing(LookSizes::unit);
    grid->setColumnStretch(1, 1);
    for (const auto &[caption, text] : std::as_const(facts)) {
        if (text.trimmed().isEmpty())
            continue;
        auto *label = new QLabel(caption, m_facts);
        // Digits or Latin letters alone would turn it to the left.
        label->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
        LookFonts::apply(label, LookFonts::Use::Label);
        auto *value = new ElidedLabel(text, m_facts);
        value->setFont(CodeFont::of(value->font(), text));
        value->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
        value->setAccessibleName(u"%1 : %2"_s.arg(caption, text));
        const int row = grid->rowCount();
        grid->addWidget(label, row, 0);
        grid->addWidget(value, row, 1);
    }
}

void StoryCard::setCommands(const QList<Command> &commands)
{
    qDeleteAll(m_commands->findChildren<QWidget *>(Qt::FindDirectChildrenOnly));
    delete m_commands->layout();
    auto *line = new WrapLine(m_commands);
    line->setSpacing(LookSizes::unit);
    bool isFirst = true;
    for (const Command &command : commands) {
        auto *button = new QPushButton(LookIcons::icon(command.icon), command.text, m_commands);
        button->setObjectName(command.id);
        button->setAutoDefault(false);
        LookMarks::setTall(button);
        LookMarks::setButton(button, isFirst ? LookMarks::Button::Primary : LookMarks::Button::Normal);
        // Queued: the command may show the story anew, and with it other buttons.
        connect(button, &QPushButton::clicked, this, command.run, Qt::QueuedConnection);
        line->addTogether({button});
        isFirst = false;
    }
}
