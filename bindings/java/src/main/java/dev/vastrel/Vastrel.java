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
     * Reads data strictly as BER-TLV: every template expanded, 00 padding skipped, nested at
     * most maxDepth levels (0 for the default, 32). Malformed data is reported in the result,
     * with the elements read before the error.
     */
    public static BerRead readBer(byte[] data, int maxDepth) {
        if (data == null) {
            throw new NullPointerException("data is null");
        }
        // count, error kind, error offset, then nine numbers per node
        long[] packed = NativeLib.readBer(data, maxDepth);
        int count = (int) packed[0];
        List<BerNode> nodes = new ArrayList<>(count);
        for (int i = 0, at = 3; i < count; ++i, at += 9) {
            nodes.add(new BerNode((int) packed[at], packed[at + 1], (int) packed[at + 2],
                    packed[at + 3], packed[at + 4], (int) packed[at + 5], (int) packed[at + 6],
                    (int) packed[at + 7], packed[at + 8] != 0));
        }
        BerRead.BerError error = packed[1] == 0 ? null
                : BerRead.BerError.values()[(int) packed[1] - 1];
        return new BerRead(Collections.unmodifiableList(nodes), error, packed[2]);
    }

    /**
     * The explanation of data (an R-APDU or plain TLV data) as one JSON object, with every
     * element named and its value decoded; card data is masked unless showSensitive.
     */
    public static String explainJson(byte[] data, boolean showSensitive) {
        if (data == null) {
            throw new NullPointerException("data is null");
        }
        return Utf8.string(NativeLib.explainJson(data, showSensitive));
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
