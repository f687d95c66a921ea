package dev.vastrel;

/**
 * The JNI entry points over the C interface. Text crosses as UTF-8 byte arrays, so that Java
 * strings reach the library as proper Unicode whatever the JVM's own string encoding is; the
 * public classes convert. A failed C call throws VastrelException (OutOfMemoryError when the
 * library ran out of memory).
 */
final class NativeLib {
    static {
        String path = System.getProperty("vastrel.jni.library");
        if (path != null) {
            System.load(path);
        } else {
            System.loadLibrary("vastrel_jni");
        }
    }

    private NativeLib() {}

    static native String version();

    static native byte[] hexToBytes(byte[] hex);

    static native byte[] hexClean(byte[] text);

    static native byte[] bytesToHex(byte[] bytes);

    /**
     * Reads hex (one byte a character, ISO 8859-1) strictly into data (half its length): count, fault kind, fault offset,
     * then eight numbers per element in document order (tag, depth, parent or -1, constructed,
     * value offset, value length, tag offset, tag length).
     */
    static native int[] decodeHex(byte[] hexLatin1, byte[] data);

    static native int[] decodeBytes(byte[] data);

    /** The scheme code of the first AID in data; 0 when there is none. */
    static native int schemeOf(byte[] data);

    /** Null when the dictionary has no name for tag in the scheme's kernel. */
    static native byte[] tagNameInScheme(int tag, int scheme);

    static native byte[] explainJson(byte[] data, boolean showSensitive);

    static native byte[] explainSessionJson(byte[] trace, byte[] caKeys, boolean showSensitive);

    static native byte[] checkCaKeysJson(byte[] keys);

    /** Null when the dictionary has no name for the tag. */
    static native byte[] tagName(byte[] tag);

    static native long cvmResultFromTlv(byte[] value);

    static native long cardholderAuthenticationMethodFromTlv(byte[] value);

    static native long cardTypeFromPan(byte[] pan);

    /** Null when the table has no string for value. */
    static native byte[] enumDisplayString(long enumType, long value);

    /**
     * A receipt handle, to be read and freed at once. gateway is null or {authCode,
     * transactionId, approvedAmount}; card is null or {pan, cardholderName, emvTlvHex}; any
     * entry may be null.
     */
    static native long buildReceipt(
            boolean emv, long transactionType, byte[][] gateway, byte[][] card, long cardSource);

    static native void freeReceipt(long receipt);

    /** Null when absent. */
    static native byte[] receiptText(long receipt, int field);

    /** Null when absent, else one value. */
    static native long[] receiptNumber(long receipt, int field);

    /** handler is a java.util.function.Consumer of String, or null to turn logging off. */
    static native void setLogHandler(Object handler);
}
