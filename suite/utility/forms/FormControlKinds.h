// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>

class FormControl;
struct KFormField;
class KMySQL;
class QWidget;

// The control of the field's kind, as a child of the page. The record supplies the column's length; it is not kept.
std::unique_ptr<FormControl> makeFormControl(const KFormField &field, KMySQL &record, QWidget *page);
