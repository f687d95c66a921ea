package dev.vastrel;

import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.function.Consumer;

/**
 * Vastrel's stateless operations: hex, the flat splitter, tag names, the CVM readings, brand
 * detection, enumeration display strings and the library's log. Safe from any thread.
 * Malformed input throws IllegalArgumentException with the library's message.
 */
public final class Vastrel {
    private Vastrel() {}

    /** The bytes of hex, one per pair of characters. */
    public static byte[] hexToBytes(String hex) {
        return NativeLib.hexToBytes(Utf8.required(hex, "hex"));
    }

    /** Two uppercase hex digits per byte. */
    public static String bytesToHex(byte[] bytes) {
        if (bytes == null) {
            throw new NullPointerException("bytes is null");
        }
        return Utf8.string(NativeLib.bytesToHex(bytes));
    }

    /** Two lowercase hex digits per UTF-8 byte of text, up to its first NUL. */
    public static String textToHex(String text) {
        return Utf8.string(NativeLib.textToHex(Utf8.required(text, "text")));
    }

    /** The text whose bytes the hex spells, read as UTF-8; "" for an odd length. */
    public static String hexToText(String hex) {
        return Utf8.string(NativeLib.hexToText(Utf8.required(hex, "hex")));
    }

    /** One uppercase hex string per top-level element (the flat splitter). */
    public static List<String> split(String hex) {
        byte[][] pieces = NativeLib.split(Utf8.required(hex, "hex"));
        List<String> result = new ArrayList<>(pieces.length);
        for (byte[] piece : pieces) {
            result.add(Utf8.string(piece));
        }
        return Collections.unmodifiableList(result);
    }

    /** The display name of a tag written as uppercase hex; "Unknown" when unlisted. */
    public static String tagName(String tag) {
        return Utf8.string(NativeLib.tagName(Utf8.required(tag, "tag")));
    }

    /** The CVM result a receipt prints for a 9F34 value in hex; null reads as absent. */
    public static CvmResult cvmResultFromTlv(String value) {
        return CvmResult.of(NativeLib.cvmResultFromTlv(Utf8.bytes(value)));
    }

    /** The cardholder authentication method (0, 1, 2, 4 or 9) for a 9F34 value in hex. */
    public static int cardholderAuthenticationMethodFromTlv(String value) {
        return (int) NativeLib.cardholderAuthenticationMethodFromTlv(Utf8.bytes(value));
    }

    /** The brand of a card number whose first six characters are digits. */
    public static CardType cardTypeFromPan(String pan) {
        return CardType.of(NativeLib.cardTypeFromPan(Utf8.required(pan, "pan")));
    }

    /** The display string of value in the table of type, or null when there is none. */
    public static String enumDisplayString(EnumType type, long value) {
        return Utf8.string(NativeLib.enumDisplayString(type.code(), value));
    }

    /**
     * Sends the library's log lines to handler, on the thread that logs; null restores the
     * default, which writes them to stderr.
     */
    public static void setLogHandler(Consumer<String> handler) {
        NativeLib.setLogHandler(handler);
    }

    public static void setLoggingEnabled(boolean enabled) {
        NativeLib.setLoggingEnabled(enabled);
    }
}
