// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/CatalogFields.h"

#include "auto/catalog/CDlgCarsAll.h"
#include "auto/catalog/CatalogEntries.h"
#include "auto/db/CTblCarBrands.h"
#include "auto/db/CTblCarClasses.h"
#include "suite/utility/forms/KForm.h"

#include <QComboBox>
#include <QPushButton>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

const QString brandColumn = u"iAutomobilType"_s;
const QString modelColumn = u"iModel"_s;
const QString classColumn = u"iBrigade"_s;

void offerNothing(QComboBox *combo)
{
    combo->insertItem(0, u"-"_s, 0);
}

}

CatalogFields::CatalogFields(KForm &form, QWidget *page)
    : QObject(page)
    , m_form(form)
    , m_page(page)
{
    for (const QString &column : {brandColumn, modelColumn, classColumn}) {
        m_form.button(column)->setToolTip(u"انتخاب از نام خودروها"_s);
        connect(m_form.button(column), &QPushButton::clicked, this, &CatalogFields::pick);
    }
    connect(m_form.comboBox(brandColumn), &QComboBox::currentIndexChanged, this, [this] {
        if (m_filling)
            return;
        offerModels(m_form.key(brandColumn), 0);
        offerClasses(0, 0);
    });
    connect(m_form.comboBox(modelColumn), &QComboBox::currentIndexChanged, this, [this] {
        if (!m_filling)
            offerClasses(m_form.key(modelColumn), 0);
    });
}

void CatalogFields::expectBrands()
{
    CTblCarBrands::expectChoice();
}

void CatalogFields::expectBelow(int brand, int model)
{
    if (brand != 0)
        CatalogEntries::expectList(CatalogLevel::Model, brand);
    if (model != 0)
        CTblCarClasses::expectChoice(model);
}

void CatalogFields::show(int brand, int model, int carClass)
{
    const QScopedValueRollback filling(m_filling, true);
    QComboBox *brands = m_form.comboBox(brandColumn);
    CTblCarBrands::FillComboBox(brands);
    offerNothing(brands);
    m_form.setKey(brandColumn, brand);
    offerModels(brand, model);
    offerClasses(model, carClass);
}

void CatalogFields::offerModels(int brand, int current)
{
    const QScopedValueRollback filling(m_filling, true);
    QComboBox *models = m_form.comboBox(modelColumn);
    models->clear();
    offerNothing(models);
    if (brand != 0) {
        for (const CatalogEntries::Entry &entry : CatalogEntries::list(CatalogLevel::Model, brand, QString()))
            models->addItem(entry.name, entry.key);
    }
    m_form.setKey(modelColumn, current);
}

void CatalogFields::offerClasses(int model, int current)
{
    QComboBox *classes = m_form.comboBox(classColumn);
    classes->clear();
    if (model != 0)
        CTblCarClasses::FillComboBox(classes, model, current);
    offerNothing(classes);
    m_form.setKey(classColumn, current);
}

void CatalogFields::pick()
{
    int brand = m_form.key(brandColumn);
    int model = m_form.key(modelColumn);
    int carClass = m_form.key(classColumn);
    // After a cancel the keys are as they were, but names may have been changed there.
    (void)CDlgCarsAll::Pick(m_page, brand, model, carClass);
    show(brand, model, carClass);
}
