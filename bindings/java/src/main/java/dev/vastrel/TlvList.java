package dev.vastrel;

import java.nio.charset.StandardCharsets;
import java.util.AbstractList;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;

/**
 * The top-level elements of EMV data, read strictly: every template expanded, at every level,
 * each element named in the kernel of the data's AID. Immutable and independent of native
 * memory: safe to share between threads, and there is nothing to close.
 */
public final class TlvList extends AbstractList<Tlv> {
    private static final int HEADER = 4; // count, fault, fault offset, unused
    // tag, depth, parent, constructed, value offset, value length, tag offset, tag length
    private static final int FIELDS = 8;

    private final byte[] data;
    private final int[] packed;
    private final Tlv[] topLevel;
    private final int fault;
    private final int faultOffset;
    private volatile int scheme = -1;

    private TlvList(byte[] data, int[] packed) {
        this.data = data;
        this.packed = packed;
        this.fault = packed[1];
        this.faultOffset = packed[2];
        int count = packed[0];
        Tlv[] all = new Tlv[count];
        Tlv[] top = new Tlv[count];
        int topCount = 0;
        for (int i = 0, at = HEADER; i < count; ++i, at += FIELDS) {
            Tlv element = new Tlv(this, at);
            all[i] = element;
            int parent = packed[at + 2];
            if (parent < 0) {
                top[topCount++] = element;
            } else {
                adopt(all[parent], element);
            }
        }
        this.topLevel = topCount == count ? top : Arrays.copyOf(top, topCount);
    }

    private static void adopt(Tlv parent, Tlv child) {
        if (parent.children == null) {
            parent.children = new ArrayList<>(4);
        }
        parent.children.add(child);
    }

    /**
     * Reads EMV data given as strict hex (two digits a byte, either case, nothing else).
     *
     * @return the elements; never null
     * @throws VastrelException for hex that is not strict hex
     * @throws MalformedDataException for data that does not read to its end
     * @throws NullPointerException for null
     */
    public static TlvList decode(String hex) {
        if (hex == null) {
            throw new NullPointerException("hex is null");
        }
        byte[] data = new byte[hex.length() / 2];
        // One byte a character, so that a fault's offset is the character's; a character
        // outside ISO 8859-1 becomes '?', which is no hex digit either.
        byte[] text = hex.getBytes(StandardCharsets.ISO_8859_1);
        return checked(new TlvList(data, NativeLib.decodeHex(text, data)));
    }

    /** The same from bytes, which are copied. */
    public static TlvList decode(byte[] data) {
        if (data == null) {
            throw new NullPointerException("data is null");
        }
        byte[] copy = data.clone();
        return checked(new TlvList(copy, NativeLib.decodeBytes(copy)));
    }

    private static TlvList checked(TlvList list) {
        if (list.fault == 0) {
            return list;
        }
        throw new MalformedDataException(
                MalformedDataException.Fault.values()[list.fault - 1], list.faultOffset, list);
    }

    @Override
    public Tlv get(int index) {
        if (index < 0 || index >= topLevel.length) {
            throw new IndexOutOfBoundsException("index " + index + " of " + topLevel.length);
        }
        return topLevel[index];
    }

    @Override
    public int size() {
        return topLevel.length;
    }

    byte[] data() {
        return data;
    }

    int[] packed() {
        return packed;
    }

    /** The kernel's scheme code, found on the first name asked for. */
    int scheme() {
        int known = scheme;
        if (known < 0) {
            known = NativeLib.schemeOf(data);
            scheme = known;
        }
        return known;
    }
}
