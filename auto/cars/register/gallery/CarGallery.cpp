// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/gallery/CarGallery.h"

#include "auto/cars/register/gallery/CarFace.h"
#include "auto/cars/register/gallery/CarThumbnails.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/KListBar.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/accounting/today/TodaySettings.h"
#include "suite/image/ThumbnailBuilding.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/lists/KSortOrder.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/KSettings.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

const QString cars = u"AutomobilInformations"_s;
const QString contractAction = u"contract"_s;
const QString menuCommand = u"menu"_s;
const QString shownSetting = u"bCards"_s;

QString usersSection()
{
    return cars + u"\\Gallery\\Users\\"_s + GetDBSetting()->GetUserName();
}

QPushButton *switchButton(const QString &icon, const QString &text, QWidget *parent)
{
    auto *button = new QPushButton(LookIcons::icon(icon), text, parent);
    button->setAccessibleName(text);
    button->setCheckable(true);
    LookMarks::setTall(button);
    return button;
}

}

CarGallery::CarGallery(KListPage *page)
    : QObject(page)
    , m_page(page)
{
    auto face = std::make_unique<CarFace>(page->list());
    m_face = face.get();
    m_cards = new KCardView(page->list(), std::move(face), page->card());
    page->card()->addView(m_cards);
    connect(m_cards, &KCardView::commandAsked, this, &CarGallery::runCommand);
    connect(m_cards, &KCardView::sightChanged, this, &CarGallery::readCards);
    const QAbstractItemModel *model = page->list()->model();
    connect(model, &QAbstractItemModel::modelReset, this, &CarGallery::rowsChanged);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &CarGallery::rowsChanged);
    // Delete belongs to the rows, and to their cards alike.
    auto *remove = new QShortcut(QKeySequence(QKeySequence::Delete), m_cards, nullptr, nullptr, Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, this, [this] { m_page->runCommand(u"delete"); });
    buildBar();
}

CarGallery::~CarGallery() = default;

void CarGallery::buildBar()
{
    buildOrder();
    m_tableButton = switchButton(u":/icons/table.svg"_s, u"جدول"_s, m_page->bar());
    m_cardsButton = switchButton(u":/icons/cards.svg"_s, u"کارت"_s, m_page->bar());
    m_tableButton->setChecked(true);
    m_page->bar()->addView(m_orderBox);
    m_page->bar()->addView(m_tableButton);
    m_page->bar()->addView(m_cardsButton);
    // Not clicked, which a screen reader's switching does not bring.
    connect(m_tableButton, &QPushButton::toggled, this, [this](bool on) { choose(on ? false : m_isShown); });
    connect(m_cardsButton, &QPushButton::toggled, this, [this](bool on) { choose(on ? true : m_isShown); });
}

// What the titles of the table offer: an order by each column in sight, from its lowest or its highest on.
void CarGallery::buildOrder()
{
    m_orderBox = new QWidget(m_page->bar());
    auto *line = new QHBoxLayout(m_orderBox);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(LookSizes::unit);
    auto *label = new QLabel(u"مرتب بر پایه"_s, m_orderBox);
    LookFonts::apply(label, LookFonts::Use::Label);
    m_order = new QComboBox(m_orderBox);
    m_order->setAccessibleName(label->text());
    label->setBuddy(m_order);
    m_order->setPlaceholderText(u"پیش فرض"_s);
    m_direction = new QPushButton(LookIcons::icon(u":/icons/order.svg"_s), {}, m_orderBox);
    m_direction->setAccessibleName(u"وارونه کردن ترتیب"_s);
    m_direction->setToolTip(m_direction->accessibleName());
    line->addWidget(label);
    line->addWidget(m_order);
    line->addWidget(m_direction);
    LookMarks::setTall(m_orderBox);
    m_orderBox->hide();
    const QVector<KListModel::Column> &columns = m_page->list()->listModel()->columns();
    for (int column = 0; column < columns.size(); ++column) {
        if (!columns.at(column).sortKey.isEmpty() && !columns.at(column).countsRows)
            m_order->addItem(columns.at(column).title, column);
    }
    connect(m_order, &QComboBox::activated, this, [this] {
        const int column = m_order->currentData().toInt();
        if (m_page->list()->listModel()->columns().at(column).sortKey != KSortOrder::sortKey(m_page->sortExpression()))
            Q_EMIT m_page->list()->columnClicked(column);
        showOrder();
    });
    connect(m_direction, &QPushButton::clicked, this, [this] {
        Q_EMIT m_page->list()->columnClicked(m_order->currentData().toInt());
        showOrder();
    });
}

// The default order is none of the titles'.
void CarGallery::showOrder()
{
    const QString key = KSortOrder::sortKey(m_page->sortExpression());
    int shown = -1;
    for (int entry = 0; entry < m_order->count() && shown < 0; ++entry) {
        if (m_page->list()->listModel()->columns().at(m_order->itemData(entry).toInt()).sortKey == key)
            shown = entry;
    }
    m_order->setCurrentIndex(shown);
    m_direction->setEnabled(shown >= 0);
}

void CarGallery::open()
{
    showCards(ReadSetting(usersSection(), shownSetting, 0) != 0);
}

// The one that is shown stays so when its button is pressed once more.
void CarGallery::choose(bool cards)
{
    if (m_isChoosing)
        return;
    const QScopedValueRollback choosing(m_isChoosing, true);
    showCards(cards);
    WriteSetting(usersSection(), shownSetting, cards ? 1 : 0);
    m_page->list()->setFocus(Qt::OtherFocusReason);
}

bool CarGallery::isShown() const
{
    return m_isShown;
}

void CarGallery::showCards(bool cards)
{
    m_isShown = cards;
    const QScopedValueRollback choosing(m_isChoosing, true);
    // No exclusive group, of which Tab would reach one alone.
    m_cardsButton->setChecked(cards);
    m_tableButton->setChecked(!cards);
    m_orderBox->setVisible(cards);
    m_page->bar()->columnsButton()->setVisible(!cards);
    showOrder();
    showEmptiness();
    if (!cards)
        return;
    offerCommands();
    if (!m_building) {
        m_building = new ThumbnailBuilding(CarThumbnails::source(), this);
        connect(m_building, &ThumbnailBuilding::made, this, [this](const QList<qint32> &keys) {
            m_face->outdate(keys);
            readCards();
        });
        m_building->start();
    }
    readCards();
}

// Those of the page's mode.
void CarGallery::offerCommands()
{
    QList<KCardView::Command> commands;
    if (m_page->isOffered(u"edit")) {
        commands.append({u"edit"_s, u"ویرایش"_s, u":/icons/edit.svg"_s});
        commands.append({contractAction, u"قرارداد از این خودرو"_s, u":/icons/contract.svg"_s});
    }
    if (m_page->list()->isRowMenuOffered())
        commands.append({menuCommand, KExtListCtrl::rowMenuName(), u":/icons/more.svg"_s});
    m_cards->setCommands(commands);
}

// Without rows the list says why, and what can be done about it.
void CarGallery::showEmptiness()
{
    KExtListCtrl *list = m_page->list();
    const bool cards = m_isShown && list->count() > 0;
    list->header()->setVisible(!m_isShown);
    m_page->card()->showView(cards ? static_cast<QAbstractItemView *>(m_cards) : list);
}

void CarGallery::rowsChanged()
{
    m_face->outdate();
    m_hasFailed = false;
    showEmptiness();
    showOrder();
}

void CarGallery::readCards()
{
    const auto sight = m_isShown ? m_cards->rowsInSight() : std::nullopt;
    if (!sight || m_hasFailed)
        return;
    QList<qint32> unknown;
    for (int row = sight->first; row <= sight->second; ++row) {
        const int key = m_page->list()->listModel()->keyAt(row);
        if (key > 0 && m_face->isOutdated(key))
            unknown.append(key);
    }
    if (unknown.isEmpty())
        return;
    m_hasFailed = !KErrorBoundary::guarded(m_page, [&] {
        if (!m_isFramed) {
            const OfficeSettings settings = OfficeSettings::read({TodaySettings::section()});
            m_face->setFrame({settings.serverTime().date(), TodaySettings::standingDays(settings), settings.moneyUnitName()});
            m_isFramed = true;
        }
        m_face->setCards(CarCards::read(unknown, KSecurity::IsGranted(u"AutomobilDemands"_s, KSecurity::Read), m_face->frame().today));
    });
    m_cards->facesChanged();
}

void CarGallery::runCommand(const QString &id)
{
    const int key = m_page->list()->currentKey();
    if (id == menuCommand) {
        const QRect place = m_cards->commandRect(m_page->list()->currentRow(), id);
        Q_EMIT m_page->list()->rowMenuRequested(m_cards->viewport()->mapToGlobal(place.bottomLeft()));
        return;
    }
    if (id != contractAction) {
        m_page->runCommand(id);
        return;
    }
    for (const RecordAction &action : RecordWindows::actionsOf(cars, key)) {
        if (action.id == id)
            return RecordWindows::run(action, key, m_page);
    }
    g_pDlgWarning->Show(KSecurity::refusalText(u"AutomobilContracts"_s, KSecurity::Write), m_page);
}
