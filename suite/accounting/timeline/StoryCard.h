// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/timeline/Story.h"

#include <QFrame>

#include <functional>

class KChip;
class PlatePicture;
class QGridLayout;
class QLabel;
class WrapLine;

// Beside a story: who or what it is about, and what can be done with it.
class StoryCard : public QFrame
{
    Q_OBJECT

public:
    explicit StoryCard(QWidget *parent = nullptr);

    void show(const Story &story, bool hasPicture);
    // In place of those that were there; the first one is the primary one.
    struct Command
    {
        QString id;
        QString text;
        QString icon;
        std::function<void()> run;
    };
    void setCommands(const QList<Command> &commands);

private:
    class Picture;
    void showFacts(const StoryHead &head);

    Picture *m_picture;
    QLabel *m_title;
    KChip *m_state;
    QLabel *m_second;
    PlatePicture *m_plate;
    QWidget *m_facts;
    QWidget *m_commands;
};
