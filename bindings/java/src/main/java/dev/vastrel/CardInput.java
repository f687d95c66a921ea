package dev.vastrel;

/**
 * The card as the reader reported it. Any text may be null. emvTlvHex is the chip data as hex,
 * with templates opened up for the receipt; cardDataSourceType is the entry mode's code.
 */
public record CardInput(String pan, String cardholderName, long cardDataSourceType, String emvTlvHex) {}
