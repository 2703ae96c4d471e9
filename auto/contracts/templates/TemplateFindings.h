// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

// What is to be said of a template, in words for whoever keeps the office's.
namespace TemplateFindings {

// A sentence for each kind of finding, with the fields; that there is none, where there is none. contractType: as TemplateCheck has it.
QString inWords(const QByteArray &file, int contractType);

}
