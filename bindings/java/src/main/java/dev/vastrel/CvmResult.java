package dev.vastrel;

/** The cardholder verification a receipt prints. */
public enum CvmResult {
    NOT_AVAILABLE(0),
    PIN_ONLINE(1),
    PIN_OFFLINE_ENCRYPTED(2),
    PIN_OFFLINE_PLAIN(3),
    NO_CVM_REQUESTED(31),
    SIGNATURE_REQUIRED(94);

    private final long code;

    CvmResult(long code) {
        this.code = code;
    }

    public long code() {
        return code;
    }

    static CvmResult of(long code) {
        for (CvmResult result : values()) {
            if (result.code == code) {
                return result;
            }
        }
        throw new IllegalArgumentException("no CVM result has code " + code);
    }
}
