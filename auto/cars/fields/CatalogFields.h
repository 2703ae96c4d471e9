// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class KForm;
class QWidget;

// Brand, model and class of a car on a form: three drop-downs over the catalog that follow each other. Choosing a brand offers
// its models, choosing a model its classes; a new choice clears those below it. The buttons beside them pick
// in the catalog's own window. A key whose entry is gone stays until something else is chosen.
class CatalogFields : public QObject
{
    Q_OBJECT

public:
    // The form has the columns iAutomobilType, iModel and iBrigade as Lookups with buttons.
    CatalogFields(KForm &form, QWidget *page);

    // Offers the catalog as it is stored now, for the keys that are to be shown.
    void show(int brand, int model, int carClass);
    // That they will be (KReadAhead): the brands, and what stands below those keys.
    static void expectBrands();
    static void expectBelow(int brand, int model);

private:
    void pick();
    void offerModels(int brand, int current);
    void offerClasses(int model, int current);

    KForm &m_form;
    QWidget *m_page;
    bool m_filling = false;
};
