package dev.vastrel;

/**
 * The JNI entry points over the C interface. Text crosses as UTF-8 byte arrays, so that Java
 * strings reach the library as proper Unicode whatever the JVM's own string encoding is; the
 * public classes convert. Every method throws IllegalArgumentException with the library's
 * message when the C call fails.
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

    static native byte[] hexToBytes(byte[] hex);

    static native byte[] bytesToHex(byte[] bytes);

    static native byte[] textToHex(byte[] text);

    static native byte[] hexToText(byte[] hex);

    static native byte[][] split(byte[] hex);

    static native long[] readBer(byte[] data, int maxDepth);

    static native byte[] explainJson(byte[] data, boolean showSensitive);

    /** A list handle; hex null is absent. */
    static native long decode(byte[] hex);

    static native void freeList(long list);

    static native int listCount(long list);

    static native long listAt(long list, int index);

    static native int childCount(long element);

    static native long childAt(long element, int index);

    static final int TAG = 0;
    static final int NAME = 1;
    static final int VALUE = 2;

    static native byte[] elementText(long element, int which);

    static native long elementLength(long element);

    static native byte[] tagName(byte[] tag);

    static native long cvmResultFromTlv(byte[] value);

    static native long cardholderAuthenticationMethodFromTlv(byte[] value);

    static native long cardTypeFromPan(byte[] pan);

    /** Null when the table has no string for value. */
    static native byte[] enumDisplayString(long enumType, long value);

    /**
     * A receipt handle. gateway is null or {authCode, transactionId, approvedAmount}; card is
     * null or {pan, cardholderName, emvTlvHex}; any entry may be null.
     */
    static native long buildReceipt(
            boolean emv, long transactionType, byte[][] gateway, byte[][] card, long cardSource);

    static native void freeReceipt(long receipt);

    /** Null when absent. */
    static native byte[] receiptText(long receipt, int field);

    /** Null when absent, else one value. */
    static native long[] receiptNumber(long receipt, int field);

    /** handler is a java.util.function.Consumer of String, or null for the default. */
    static native void setLogHandler(Object handler);

    static native void setLoggingEnabled(boolean enabled);
}
