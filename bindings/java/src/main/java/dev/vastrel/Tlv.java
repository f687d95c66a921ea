package dev.vastrel;

import java.util.ArrayList;
import java.util.Collections;
import java.util.List;

/**
 * One element of EMV data, read strictly. Immutable and independent of native memory: safe to
 * share between threads and to keep.
 */
public final class Tlv {
    // Where this element's numbers start in its list's packed read: tag, depth, parent,
    // constructed, value offset, value length, tag offset, tag length.
    private final TlvList list;
    private final int at;
    ArrayList<Tlv> children; // null for no children; filled while the list is built

    Tlv(TlvList list, int at) {
        this.list = list;
        this.at = at;
    }

    private int field(int index) {
        return list.packed()[at + index];
    }

    /** The tag's bytes big-endian (0x9F26); -1 for a tag longer than four bytes. */
    public int tagNumber() {
        return field(0);
    }

    /** The tag as uppercase hex, "9F26"; never null. */
    public String tag() {
        return Hex.of(list.data(), field(6), field(7));
    }

    /**
     * The element's name from the full EMV dictionary, in the kernel of the data's AID; null
     * when the dictionary has none.
     */
    public String name() {
        return Names.of(field(0), list.scheme());
    }

    /** The value as uppercase hex (a template's holds its children's bytes); never null. */
    public String value() {
        return Hex.of(list.data(), field(4), field(5));
    }

    /** A copy of the value's bytes; never null. */
    public byte[] valueBytes() {
        byte[] copy = new byte[field(5)];
        System.arraycopy(list.data(), field(4), copy, 0, copy.length);
        return copy;
    }

    /** The value's length in bytes. */
    public int length() {
        return field(5);
    }

    /** 0 at the top level. */
    public int depth() {
        return field(1);
    }

    /** True for a template. */
    public boolean isConstructed() {
        return field(3) != 0;
    }

    /** A template's elements, in order, read-only; empty (never null) for a primitive element. */
    public List<Tlv> children() {
        return children == null ? Collections.<Tlv>emptyList() : Collections.unmodifiableList(children);
    }

    @Override
    public String toString() {
        return tag() + " (" + length() + ") " + value();
    }
}
