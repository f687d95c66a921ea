package dev.vastrel;

import java.util.OptionalLong;

/** A customer receipt built from chip or magnetic-stripe data. */
public final class Receipt implements AutoCloseable {
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

    private final NativeHandle handle;

    private Receipt(long pointer) {
        handle = new NativeHandle(this, pointer, NativeLib::freeReceipt);
    }

    /** A chip receipt; gateway or card may be null. */
    public static Receipt emv(GatewayInput gateway, CardInput card) {
        return build(true, 0, gateway, card);
    }

    /** A magnetic-stripe receipt for a transaction of the given type code. */
    public static Receipt msr(long transactionType, GatewayInput gateway, CardInput card) {
        return build(false, transactionType, gateway, card);
    }

    private static Receipt build(
            boolean emv, long transactionType, GatewayInput gateway, CardInput card) {
        byte[][] gatewayTexts =
                gateway == null
                        ? null
                        : new byte[][] {
                            Utf8.bytes(gateway.authCode()),
                            Utf8.bytes(gateway.gatewayTransactionId()),
                            Utf8.bytes(gateway.approvedAmount())
                        };
        byte[][] cardTexts =
                card == null
                        ? null
                        : new byte[][] {
                            Utf8.bytes(card.pan()),
                            Utf8.bytes(card.cardholderName()),
                            Utf8.bytes(card.emvTlvHex())
                        };
        long source = card == null ? 0 : card.cardDataSourceType();
        return new Receipt(
                NativeLib.buildReceipt(emv, transactionType, gatewayTexts, cardTexts, source));
    }

    /** The field's text, or null when the receipt has none. */
    public String text(Text field) {
        return Utf8.string(NativeLib.receiptText(handle.pointer(), field.ordinal()));
    }

    /** The field's number, or empty when absent (only the date can be). */
    public OptionalLong number(Number field) {
        long[] value = NativeLib.receiptNumber(handle.pointer(), field.ordinal());
        return value == null ? OptionalLong.empty() : OptionalLong.of(value[0]);
    }

    public CardType cardType() {
        return CardType.of(number(Number.CARD_TYPE).orElseThrow());
    }

    public CvmResult cvmResult() {
        return CvmResult.of(number(Number.CVM_RESULT).orElseThrow());
    }

    @Override
    public void close() {
        handle.close();
    }
}
