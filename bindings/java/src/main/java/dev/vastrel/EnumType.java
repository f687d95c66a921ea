package dev.vastrel;

/** The enumeration tables of Vastrel.enumDisplayString, in the order of their codes (1 to 14). */
public enum EnumType {
    TERMINAL_TYPE,
    GATEWAY_TYPE,
    CONNECTION_TYPE,
    TRANSACTION_TYPE,
    COMMERCIAL_CARD_DATA_FIELD,
    EMV_ERROR_TYPE,
    TERMINAL_INTERACTION_TYPE,
    CARD_TYPE,
    CVM_RESULT,
    CARD_DATA_SOURCE_TYPE,
    PIN_STATEMENT_TYPE,
    CURRENCY_CODE,
    COUNTRY_CODE,
    TRANSACTION_RESULT_TYPE;

    public long code() {
        return ordinal() + 1;
    }
}
