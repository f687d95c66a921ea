package dev.vastrel;

/**
 * A call the library refused: bad input (hex that is not hex, a value of the wrong size, a card
 * number without six leading digits) or data that does not read. The message names the fault
 * and where it is, never the caller's data.
 */
public class VastrelException extends IllegalArgumentException {
    private static final long serialVersionUID = 1L;

    /** The C interface's status code, a negative VASTREL_ERROR_* value. */
    private final int status;

    VastrelException(int status, String message) {
        super(message);
        this.status = status;
    }

    /** The C interface's status code, a negative VASTREL_ERROR_* value. */
    public int status() {
        return status;
    }
}
