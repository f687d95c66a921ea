package dev.vastrel;

import java.util.AbstractList;
import java.util.List;

/**
 * The elements of EMV data decoded by the nested decoder, templates with their children. The
 * elements read from the list's native memory: use them before close().
 */
public final class TlvList extends AbstractList<Tlv> implements AutoCloseable {
    private final NativeHandle handle;

    private TlvList(long pointer) {
        handle = new NativeHandle(this, pointer, NativeLib::freeList);
    }

    /**
     * Decodes hex (null is absent). Malformed data never throws: it decodes as far as it can,
     * and the library logs what it could not read.
     */
    public static TlvList decode(String hex) {
        return new TlvList(NativeLib.decode(Utf8.bytes(hex)));
    }

    @Override
    public int size() {
        return NativeLib.listCount(handle.pointer());
    }

    @Override
    public Tlv get(int index) {
        return new Tlv(this, NativeLib.listAt(handle.pointer(), index));
    }

    /** Throws IllegalStateException once the list is closed. */
    void checkOpen() {
        handle.pointer();
    }

    /** Every element of the list, read once. */
    public List<Tlv> elements() {
        return List.copyOf(this);
    }

    @Override
    public void close() {
        handle.close();
    }
}
