// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class CarFace;
class KCardView;
class KListPage;
class QComboBox;
class QPushButton;
class ThumbnailBuilding;

// The car list as a gallery of cards: the switch between table and cards, which is kept for each user, the choice of the order, and the cards,
// which show the rows of the list. Its filter, selection and commands stay those of the page.
class CarGallery : public QObject
{
    Q_OBJECT

public:
    // Of a page that is built.
    explicit CarGallery(KListPage *page);
    ~CarGallery() override;

    // Shows what the user saw last; once the page is opened.
    void open();
    void showCards(bool cards);
    bool isShown() const;
    KCardView *cards() const { return m_cards; }
    QComboBox *orderChoice() const { return m_order; }
    // Reads what the cards in sight show besides their rows, as far as it is not known. What is thrown is reported, once until the rows are
    // read anew.
    void readCards();

private:
    void buildBar();
    void buildOrder();
    void showOrder();
    void choose(bool cards);
    void rowsChanged();
    void runCommand(const QString &id);
    void showEmptiness();
    void offerCommands();

    KListPage *m_page;
    CarFace *m_face = nullptr; // the view's
    KCardView *m_cards = nullptr;
    QPushButton *m_tableButton = nullptr;
    QPushButton *m_cardsButton = nullptr;
    QWidget *m_orderBox = nullptr;
    QComboBox *m_order = nullptr;
    QPushButton *m_direction = nullptr;
    ThumbnailBuilding *m_building = nullptr;
    bool m_isShown = false;
    bool m_isChoosing = false;
    bool m_isFramed = false;
    bool m_hasFailed = false;
};
