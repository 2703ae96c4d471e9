// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

package io.tzauto.taxfile;

import java.io.IOException;
import java.io.InputStream;
import java.nio.ByteBuffer;
import java.nio.charset.CharacterCodingException;
import java.nio.charset.CharsetDecoder;
import java.nio.charset.CodingErrorAction;
import java.nio.charset.StandardCharsets;
import java.util.Arrays;

/** Reads UTF-8 lines of a bounded length. A line without its line feed is an input that was cut off, not a line. */
final class LineReader {
    static final int LONGEST_LINE = 1 << 20;

    private final InputStream input;
    private final byte[] buffer = new byte[1 << 16];
    private final CharsetDecoder decoder = StandardCharsets.UTF_8.newDecoder()
            .onMalformedInput(CodingErrorAction.REPORT)
            .onUnmappableCharacter(CodingErrorAction.REPORT);
    private byte[] line = new byte[4096];
    private int at;
    private int end;

    LineReader(InputStream input) {
        this.input = input;
    }

    /** The next line, or null at the end of the input. */
    String next() throws IOException, Refusal {
        int length = 0;
        while (true) {
            if (at == end) {
                end = input.read(buffer);
                at = 0;
                if (end < 0) {
                    end = 0;
                    if (length > 0) {
                        throw new Refusal(Refusal.INPUT, "bad-input", "the last line is cut off");
                    }
                    return null;
                }
            }
            int from = at;
            while (at < end && buffer[at] != '\n') {
                ++at;
            }
            length = append(from, length);
            if (at < end) {
                ++at;
                return decode(length);
            }
        }
    }

    private int append(int from, int length) throws Refusal {
        int longer = length + (at - from);
        if (longer > LONGEST_LINE) {
            throw new Refusal(Refusal.INPUT, "bad-input", "a line is too long");
        }
        if (longer > line.length) {
            line = Arrays.copyOf(line, Math.max(longer, 2 * line.length));
        }
        System.arraycopy(buffer, from, line, length, at - from);
        return longer;
    }

    private String decode(int length) throws Refusal {
        try {
            return decoder.decode(ByteBuffer.wrap(line, 0, length)).toString();
        } catch (CharacterCodingException e) {
            throw new Refusal(Refusal.INPUT, "bad-input", "a line is not UTF-8");
        }
    }
}
