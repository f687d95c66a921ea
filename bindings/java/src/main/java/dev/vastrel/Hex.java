package dev.vastrel;

/** Uppercase hex, written in Java: cheaper than a trip through JNI for a few bytes. */
final class Hex {
    private static final char[] DIGITS = "0123456789ABCDEF".toCharArray();

    private Hex() {}

    static String of(byte[] data, int offset, int length) {
        char[] text = new char[2 * length];
        for (int i = 0; i < length; ++i) {
            int b = data[offset + i] & 0xFF;
            text[2 * i] = DIGITS[b >>> 4];
            text[2 * i + 1] = DIGITS[b & 0xF];
        }
        return new String(text);
    }
}
