package dev.vastrel;

/** Card brands, in the order of their codes (0 to 8). */
public enum CardType {
    VISA,
    MASTER,
    AMEX,
    DISCOVER,
    JCB,
    DINERS_CLUB,
    MAESTRO,
    UNION_PAY,
    UNKNOWN;

    static CardType of(long code) {
        return values()[(int) code];
    }
}
