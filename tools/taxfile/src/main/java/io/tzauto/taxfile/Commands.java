// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

package io.tzauto.taxfile;

import java.io.Closeable;
import java.io.IOException;
import java.util.List;

/** What the lines after the first one do to a file. */
interface Commands extends Closeable {
    void run(List<String> words) throws IOException, Refusal;

    /** Everything stands on the disk afterwards. Gives the number of records saved. */
    int finish() throws IOException, Refusal;
}
