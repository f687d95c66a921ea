package dev.vastrel;

import java.util.Collections;
import java.util.List;

/**
 * One element of EMV data, read strictly. Immutable and independent of native memory: safe to
 * share between threads and to keep.
 */
public final class Tlv {
    private final TlvList list;
    private final int tag;
    private final int depth;
    private final boolean constructed;
    private final int valueOffset;
    private final int valueLength;
    private final int tagOffset;
    private final int tagLength;
    List<Tlv> children = Collections.emptyList();

    Tlv(TlvList list, int tag, int depth, boolean constructed, int valueOffset, int valueLength,
            int tagOffset, int tagLength) {
        this.list = list;
        this.tag = tag;
        this.depth = depth;
        this.constructed = constructed;
        this.valueOffset = valueOffset;
        this.valueLength = valueLength;
        this.tagOffset = tagOffset;
        this.tagLength = tagLength;
    }

    /** The tag's bytes big-endian (0x9F26); -1 for a tag longer than four bytes. */
    public int tagNumber() {
        return tag;
    }

    /** The tag as uppercase hex, "9F26"; never null. */
    public String tag() {
        return Hex.of(list.data(), tagOffset, tagLength);
    }

    /**
     * The element's name from the full EMV dictionary, in the kernel of the data's AID; null
     * when the dictionary has none.
     */
    public String name() {
        return Names.of(tag, list.scheme());
    }

    /** The value as uppercase hex (a template's holds its children's bytes); never null. */
    public String value() {
        return Hex.of(list.data(), valueOffset, valueLength);
    }

    /** A copy of the value's bytes; never null. */
    public byte[] valueBytes() {
        byte[] copy = new byte[valueLength];
        System.arraycopy(list.data(), valueOffset, copy, 0, valueLength);
        return copy;
    }

    /** The value's length in bytes. */
    public int length() {
        return valueLength;
    }

    /** 0 at the top level. */
    public int depth() {
        return depth;
    }

    /** True for a template. */
    public boolean isConstructed() {
        return constructed;
    }

    /** A template's elements, in order; empty (never null) for a primitive element. */
    public List<Tlv> children() {
        return children;
    }

    /** Makes the children read-only once the list is built. */
    void seal() {
        if (!children.isEmpty()) {
            children = Collections.unmodifiableList(children);
        }
    }

    @Override
    public String toString() {
        return tag() + " (" + valueLength + ") " + value();
    }
}
