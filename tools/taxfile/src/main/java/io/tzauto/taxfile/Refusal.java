// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

package io.tzauto.taxfile;

/** Why the helper cannot go on: a code that the caller branches on, what it is about, and the exit status. */
final class Refusal extends Exception {
    private static final long serialVersionUID = 1L;

    /** Exit statuses, one per kind of trouble. */
    static final int INPUT = 2;
    static final int FILE = 3;
    static final int TABLE = 4;
    static final int VALUE = 5;

    final int status;
    final String code;
    private final String[] details;

    Refusal(int status, String code, String... details) {
        super(code + ": " + String.join(", ", details));
        this.status = status;
        this.code = code;
        this.details = details;
    }

    String[] details() {
        return details.clone();
    }
}
