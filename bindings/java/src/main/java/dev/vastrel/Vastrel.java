package dev.vastrel;

import java.util.function.Consumer;

/**
 * Vastrel's stateless operations: hex, tag names, the CVM readings, brand detection,
 * enumeration display strings, explanations and the library's log. Safe from any thread.
 * Bad input throws VastrelException, whose message names the fault and where it is, never the
 * input; a null argument throws NullPointerException unless a method says otherwise.
 */
public final class Vastrel {
    /** The version of this binding; the native library's is {@link #nativeVersion()}. */
    public static final String VERSION = "2.1.0";

    private Vastrel() {}

    /** The version of the loaded native library, "2.1.0"; never null. */
    public static String nativeVersion() {
        return NativeLib.version();
    }

    /** The bytes of strict hex: two hex digits a byte, either case, nothing else; never null. */
    public static byte[] hexToBytes(String hex) {
        return NativeLib.hexToBytes(Utf8.required(hex, "hex"));
    }

    /**
     * Hex pasted from a log made strict: blanks, line breaks, colons and one leading 0x are
     * removed and the digits upper-cased; anything else that is not a hex digit, or an odd
     * number of digits, throws. Never null.
     */
    public static String hexClean(String text) {
        return Utf8.string(NativeLib.hexClean(Utf8.required(text, "text")));
    }

    /** Two uppercase hex digits per byte; never null. */
    public static String bytesToHex(byte[] bytes) {
        return Utf8.string(NativeLib.bytesToHex(required(bytes, "bytes")));
    }

    /** The name of a tag written as hex from the full EMV dictionary; null when it has none. */
    public static String tagName(String tag) {
        return Utf8.string(NativeLib.tagName(Utf8.required(tag, "tag")));
    }

    /** The CVM result a receipt prints, from the CVM Results (9F34) as six hex digits. */
    public static CvmResult cvmResultFromTlv(String value) {
        return CvmResult.of(NativeLib.cvmResultFromTlv(Utf8.required(value, "value")));
    }

    /** The cardholder authentication method (0, 1, 2, 4 or 9) from the CVM Results. */
    public static int cardholderAuthenticationMethodFromTlv(String value) {
        return (int) NativeLib.cardholderAuthenticationMethodFromTlv(Utf8.required(value, "value"));
    }

    /** The brand of a card number from its first six digits; the rest may be masked. */
    public static CardType cardTypeFromPan(String pan) {
        return CardType.of(NativeLib.cardTypeFromPan(Utf8.required(pan, "pan")));
    }

    /** The display string of value in the table of type, or null when there is none. */
    public static String enumDisplayString(EnumType type, long value) {
        return Utf8.string(NativeLib.enumDisplayString(required(type, "type").code(), value));
    }

    /**
     * The explanation of data (an R-APDU or plain TLV data) as one JSON object, with every
     * element named and its value decoded; card data is masked unless showSensitive. Data
     * that does not read is explained up to the fault, which the object's "error" names.
     * Never null.
     */
    public static String explainJson(byte[] data, boolean showSensitive) {
        return Utf8.string(NativeLib.explainJson(required(data, "data"), showSensitive));
    }

    /** The same for strict hex. */
    public static String explainJson(String hex, boolean showSensitive) {
        return explainJson(hexToBytes(hex), showSensitive);
    }

    /**
     * The explanation of a card session given as a trace, one APDU a line, as one JSON object:
     * every command and response explained, the card's data object lists applied, and a
     * summary. A line that cannot be read is named in the object's "error". Never null.
     */
    public static String explainSessionJson(String trace, boolean showSensitive) {
        return explainSessionJson(trace, null, showSensitive);
    }

    /**
     * The same, with offline data authentication checked against the terminal's own CA public
     * keys as well as the built-in ones: caKeys is key-file text, one key a line (rid, index,
     * exponent, modulus, then optionally the published SHA-1, the scheme and the source;
     * tab-separated, or blank-separated in a line without tabs), or null. The verdicts are under
     * the summary's "oda". A key line that cannot be read throws a VastrelException whose status
     * is MALFORMED_DATA and whose message names the line. Never null.
     */
    public static String explainSessionJson(String trace, String caKeys, boolean showSensitive) {
        return Utf8.string(NativeLib.explainSessionJson(
                Utf8.required(trace, "trace"), caKeys == null ? null : Utf8.bytes(caKeys),
                showSensitive));
    }

    /**
     * CA public keys (key-file text, as for explainSessionJson) checked as a terminal should
     * before loading them: the published checksum, the modulus length, the exponent and no
     * index given twice within a RID. A JSON array with one verdict per key: {"rid", "index",
     * "scheme", "source", "verdict" ("passed", "failed", "unverified"), "checks"}. Never null.
     */
    public static String checkCaKeysJson(String keys) {
        return Utf8.string(NativeLib.checkCaKeysJson(Utf8.required(keys, "keys")));
    }

    /**
     * Sends the library's log lines to handler, on the thread that logs; null turns logging
     * off, as it is until a handler is set. Once this returns, the handler it replaced is
     * never called again.
     */
    public static void setLogHandler(Consumer<String> handler) {
        NativeLib.setLogHandler(handler);
    }

    private static <T> T required(T value, String what) {
        if (value == null) {
            throw new NullPointerException(what + " is null");
        }
        return value;
    }
}
