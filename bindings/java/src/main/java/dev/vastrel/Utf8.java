package dev.vastrel;

import java.nio.charset.StandardCharsets;

/** UTF-8 in both directions; bytes that are not UTF-8 read as U+FFFD. */
final class Utf8 {
    private Utf8() {}

    static byte[] bytes(String text) {
        return text == null ? null : text.getBytes(StandardCharsets.UTF_8);
    }

    static String string(byte[] bytes) {
        return bytes == null ? null : new String(bytes, StandardCharsets.UTF_8);
    }

    static byte[] required(String text, String what) {
        if (text == null) {
            throw new NullPointerException(what + " is null");
        }
        return bytes(text);
    }
}
