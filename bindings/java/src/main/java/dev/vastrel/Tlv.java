package dev.vastrel;

import java.util.ArrayList;
import java.util.List;

/** One decoded element. Valid while its list is open. */
public final class Tlv {
    private final TlvList list;
    private final long pointer;

    Tlv(TlvList list, long pointer) {
        this.list = list;
        this.pointer = pointer;
    }

    private long element() {
        list.checkOpen();
        return pointer;
    }

    /** The tag as uppercase hex, "9F02". */
    public String tag() {
        return Utf8.string(NativeLib.elementText(element(), NativeLib.TAG));
    }

    /** The tag's display name, "Unknown" when unlisted. */
    public String name() {
        return Utf8.string(NativeLib.elementText(element(), NativeLib.NAME));
    }

    /** The value as uppercase hex. */
    public String value() {
        return Utf8.string(NativeLib.elementText(element(), NativeLib.VALUE));
    }

    /** The value's length in bytes as the element declares it. */
    public long length() {
        return NativeLib.elementLength(element());
    }

    /** A template's children; empty for any other element. */
    public List<Tlv> children() {
        long parent = element();
        int count = NativeLib.childCount(parent);
        List<Tlv> children = new ArrayList<>(count);
        for (int i = 0; i < count; ++i) {
            children.add(new Tlv(list, NativeLib.childAt(parent, i)));
        }
        return children;
    }

    @Override
    public String toString() {
        return tag() + " " + name() + " (" + length() + ") " + value();
    }
}
