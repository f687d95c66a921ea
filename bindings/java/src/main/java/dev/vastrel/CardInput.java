package dev.vastrel;

/**
 * The card as the reader reported it. Any text may be null (absent). emvTlvHex is the chip
 * data as strict hex, read with every template opened; cardDataSourceType is the entry mode's
 * code (enumeration type 10).
 */
public final class CardInput {
    final String pan;
    final String cardholderName;
    final long cardDataSourceType;
    final String emvTlvHex;

    public CardInput(String pan, String cardholderName, long cardDataSourceType, String emvTlvHex) {
        this.pan = pan;
        this.cardholderName = cardholderName;
        this.cardDataSourceType = cardDataSourceType;
        this.emvTlvHex = emvTlvHex;
    }
}
