// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

package io.tzauto.taxfile;

import java.util.ArrayList;
import java.util.List;

/**
 * A line of the helper's input or output: words parted by tabs. In a word {@code \\}, {@code \t}, {@code \n} and {@code \r}
 * stand for the backslash, tab, line feed and carriage return; a word that is {@code \N} alone is no value at all (null).
 */
final class Line {
    private Line() {}

    static List<String> parse(String text) throws Refusal {
        List<String> words = new ArrayList<>(32);
        // Hardly any line has one; looked for once, not in every word.
        boolean escaped = text.indexOf('\\') >= 0;
        int from = 0;
        while (true) {
            int to = text.indexOf('\t', from);
            int end = to < 0 ? text.length() : to;
            words.add(escaped ? unescape(text.substring(from, end)) : text.substring(from, end));
            if (to < 0) {
                return words;
            }
            from = to + 1;
        }
    }

    static String join(String... words) {
        StringBuilder line = new StringBuilder();
        for (int i = 0; i < words.length; ++i) {
            if (i > 0) {
                line.append('\t');
            }
            escape(words[i], line);
        }
        return line.toString();
    }

    private static String unescape(String text) throws Refusal {
        int escape = text.indexOf('\\');
        if (escape < 0) {
            return text;
        }
        if (text.equals("\\N")) {
            return null;
        }
        StringBuilder word = new StringBuilder(text.length());
        int at = 0;
        while (escape >= 0) {
            word.append(text, at, escape);
            if (escape + 1 == text.length()) {
                throw new Refusal(Refusal.INPUT, "bad-input", "a word ends in a backslash");
            }
            switch (text.charAt(escape + 1)) {
                case '\\': word.append('\\'); break;
                case 't': word.append('\t'); break;
                case 'n': word.append('\n'); break;
                case 'r': word.append('\r'); break;
                default: throw new Refusal(Refusal.INPUT, "bad-input", "unknown escape");
            }
            at = escape + 2;
            escape = text.indexOf('\\', at);
        }
        return word.append(text, at, text.length()).toString();
    }

    private static void escape(String word, StringBuilder line) {
        if (word == null) {
            line.append("\\N");
            return;
        }
        for (int i = 0; i < word.length(); ++i) {
            char c = word.charAt(i);
            switch (c) {
                case '\\': line.append("\\\\"); break;
                case '\t': line.append("\\t"); break;
                case '\n': line.append("\\n"); break;
                case '\r': line.append("\\r"); break;
                default: line.append(c);
            }
        }
    }
}
