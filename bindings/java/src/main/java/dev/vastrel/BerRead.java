package dev.vastrel;

import java.util.List;

/**
 * What a strict read found: the elements read and, when the data is malformed, why the read
 * stopped and at which byte (the first tag byte of the element that could not be read).
 *
 * @param error null when everything was read
 */
public record BerRead(List<BerNode> nodes, BerError error, long errorOffset) {
    /** Why a strict read stopped, in the order of the C interface's codes 1 to 6. */
    public enum BerError {
        TRUNCATED_TAG, TRUNCATED_LENGTH, LENGTH_PAST_END, LENGTH_TOO_LARGE, INDEFINITE_LENGTH,
        TOO_DEEP
    }
}
