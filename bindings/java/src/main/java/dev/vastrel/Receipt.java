package dev.vastrel;

import java.util.OptionalLong;

/**
 * A customer receipt built from chip or magnetic-stripe data. Immutable and independent of
 * native memory: safe to share between threads, and there is nothing to close.
 */
public final class Receipt {
    /** The receipt's text fields, in the C interface's order. */
    public enum Text {
        INVOICE_NUMBER,
        TRANSACTION_AMOUNT,
        AUTHORIZATION_CODE,
        MASKED_PAN,
        TRANSACTION_ID,
        CARDHOLDER_NAME,
        AID,
        APPLICATION_LABEL,
        APPLICATION_EXPIRY_DATE,
        APPLICATION_EFFECTIVE_DATE,
        APPLICATION_INTERCHANGE_PROFILE,
        APPLICATION_VERSION_NUMBER,
        APPLICATION_TRANSACTION_COUNTER,
        PAN_SEQUENCE_NUMBER,
        CRYPTOGRAM,
        ISSUER_APPLICATION_DATA,
        TERMINAL_VERIFICATION_RESULT,
        UNPREDICTABLE_NUMBER,
        CASH_BACK_AMOUNT,
        TERMINAL_TYPE,
        IFD_SERIAL_NUMBER,
        CRYPTOGRAM_INFORMATION_DATA
    }

    /** The receipt's number fields: enumeration codes, and the date in epoch milliseconds. */
    public enum Number {
        TRANSACTION_TYPE,
        CURRENCY_CODE,
        CARD_TYPE,
        CVM_RESULT,
        POS_ENTRY_MODE,
        TERMINAL_COUNTRY_CODE,
        PIN_STATEMENT_TYPE,
        TRANSACTION_DATE_TIME
    }

    private static final Text[] TEXTS = Text.values();
    private static final Number[] NUMBERS = Number.values();

    private final String[] texts = new String[TEXTS.length];
    private final long[] numbers = new long[NUMBERS.length];
    private final boolean[] hasNumber = new boolean[NUMBERS.length];

    /** Reads every field of the native receipt, then frees it. */
    private Receipt(long pointer) {
        try {
            for (Text field : TEXTS) {
                texts[field.ordinal()] = Utf8.string(NativeLib.receiptText(pointer, field.ordinal()));
            }
            for (Number field : NUMBERS) {
                long[] value = NativeLib.receiptNumber(pointer, field.ordinal());
                hasNumber[field.ordinal()] = value != null;
                numbers[field.ordinal()] = value == null ? 0 : value[0];
            }
        } finally {
            NativeLib.freeReceipt(pointer);
        }
    }

    /**
     * A chip receipt; gateway or card may be null. The chip data is read strictly, every
     * template opened.
     *
     * @return the receipt; never null
     * @throws VastrelException for chip data that is not hex or does not read, or an amount
     *     that is not plain decimal text
     */
    public static Receipt emv(GatewayInput gateway, CardInput card) {
        return build(true, 0, gateway, card);
    }

    /** A magnetic-stripe receipt for a transaction of the given type code; never null. */
    public static Receipt msr(long transactionType, GatewayInput gateway, CardInput card) {
        return build(false, transactionType, gateway, card);
    }

    private static Receipt build(
            boolean emv, long transactionType, GatewayInput gateway, CardInput card) {
        byte[][] gatewayTexts = gateway == null ? null : new byte[][] {
            Utf8.bytes(gateway.authCode),
            Utf8.bytes(gateway.gatewayTransactionId),
            Utf8.bytes(gateway.approvedAmount)
        };
        byte[][] cardTexts = card == null ? null : new byte[][] {
            Utf8.bytes(card.pan), Utf8.bytes(card.cardholderName), Utf8.bytes(card.emvTlvHex)
        };
        long source = card == null ? 0 : card.cardDataSourceType;
        return new Receipt(
                NativeLib.buildReceipt(emv, transactionType, gatewayTexts, cardTexts, source));
    }

    /** The field's text, or null when the receipt has none. */
    public String text(Text field) {
        return texts[field.ordinal()];
    }

    /** The field's number, or empty (never null) when absent: only the date can be. */
    public OptionalLong number(Number field) {
        return hasNumber[field.ordinal()] ? OptionalLong.of(numbers[field.ordinal()])
                                          : OptionalLong.empty();
    }

    /** Never null. */
    public CardType cardType() {
        return CardType.of(numbers[Number.CARD_TYPE.ordinal()]);
    }

    /** Never null. */
    public CvmResult cvmResult() {
        return CvmResult.of(numbers[Number.CVM_RESULT.ordinal()]);
    }
}
