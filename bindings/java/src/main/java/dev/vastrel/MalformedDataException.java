package dev.vastrel;

/**
 * BER-TLV data that does not read to its end. It carries why and where the read stopped, and
 * the elements read before that.
 */
public final class MalformedDataException extends VastrelException {
    private static final long serialVersionUID = 1L;

    /** Why a strict read stopped, in the order of the C interface's codes 1 to 6. */
    public enum Fault {
        TRUNCATED_TAG,
        TRUNCATED_LENGTH,
        LENGTH_PAST_END,
        LENGTH_TOO_LARGE,
        INDEFINITE_LENGTH,
        TOO_DEEP
    }

    private final Fault fault;
    private final int offset;
    private final transient TlvList partial;

    MalformedDataException(Fault fault, int offset, TlvList partial) {
        super(-4, describe(fault) + " at byte " + offset);
        this.fault = fault;
        this.offset = offset;
        this.partial = partial;
    }

    private static String describe(Fault fault) {
        return fault.name().toLowerCase(java.util.Locale.ROOT).replace('_', ' ');
    }

    /** Why the read stopped; never null. */
    public Fault fault() {
        return fault;
    }

    /** The offset of the first byte of the element that could not be read. */
    public int offset() {
        return offset;
    }

    /** The elements read before the fault; never null. */
    public TlvList partial() {
        return partial;
    }
}
