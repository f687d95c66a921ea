package dev.vastrel;

/**
 * One element of a strict read, in document order: a template is followed by its subtree,
 * which ends at index subtreeEnd. Offsets count bytes from the start of the data.
 *
 * @param tag the tag's bytes big-endian (0x9F26); -1 for tags longer than four bytes
 * @param parent index of the enclosing template, or -1 at the top level
 */
public record BerNode(int tag, long offset, int tagLength, long valueOffset, long valueLength,
        int depth, int parent, int subtreeEnd, boolean constructed) {}
