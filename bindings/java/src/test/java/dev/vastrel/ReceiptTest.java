package dev.vastrel;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;

import java.util.OptionalLong;
import org.junit.jupiter.api.Test;

class ReceiptTest {
    // 6F { 4F, 50, 9F34, 95, 5F2A, 9F26 }, 9F1A
    private static final String CHIP =
            "6F2C4F07A00000000310105004564953419F3403020300950500000080005F2A0208409F2608"
                    + "11223344556677889F1A020840";
    private static final GatewayInput GATEWAY = new GatewayInput("A1B2C3", "TX-42", "12.50");
    private static final CardInput CARD = new CardInput("476173******0119", "CARD/HOLDER", 1, CHIP);

    @Test
    void chipReceiptCarriesGatewayCardAndEmvFields() {
        {
            Receipt receipt = Receipt.emv(GATEWAY, CARD);
            assertEquals("12.5", receipt.text(Receipt.Text.TRANSACTION_AMOUNT));
            assertEquals("A1B2C3", receipt.text(Receipt.Text.AUTHORIZATION_CODE));
            assertEquals("A0000000031010", receipt.text(Receipt.Text.AID));
            assertEquals("VISA", receipt.text(Receipt.Text.APPLICATION_LABEL));
            assertEquals("476173******0119", receipt.text(Receipt.Text.MASKED_PAN));
            assertEquals(CardType.VISA, receipt.cardType());
            assertEquals(CvmResult.PIN_OFFLINE_ENCRYPTED, receipt.cvmResult());
            assertEquals(OptionalLong.of(1), receipt.number(Receipt.Number.PIN_STATEMENT_TYPE));
            assertEquals(OptionalLong.empty(), receipt.number(Receipt.Number.TRANSACTION_DATE_TIME));
            assertNull(receipt.text(Receipt.Text.INVOICE_NUMBER));
        }
    }

    @Test
    void stripeReceiptTakesTheTransactionType() {
        {
            Receipt receipt = Receipt.msr(2, null, new CardInput(null, null, 0, null));
            assertEquals(OptionalLong.of(2), receipt.number(Receipt.Number.TRANSACTION_TYPE));
            assertNull(receipt.text(Receipt.Text.AUTHORIZATION_CODE));
            assertEquals(CardType.UNKNOWN, receipt.cardType());
        }
    }

    @Test
    void badInputThrowsWithTheLibrarysMessage() {
        VastrelException amount = assertThrows(VastrelException.class,
                () -> Receipt.emv(new GatewayInput(null, null, "12,50"), null));
        assertFalse(amount.getMessage().contains("12,50"), amount.getMessage());
        assertThrows(VastrelException.class,
                () -> Receipt.emv(null, new CardInput(null, null, 0, "4F0")));
        VastrelException cut = assertThrows(VastrelException.class,
                () -> Receipt.emv(null, new CardInput(null, null, 0, "6F054F07A000")));
        assertEquals(-4, cut.status());
    }

    @Test
    void aLoneTemplateGivesEveryChipField() {
        Receipt receipt = Receipt.emv(GATEWAY, new CardInput("476173******0119", null, 1,
                "771A4F07A00000000310105004564953419F26081122334455667788"));
        assertEquals("A0000000031010", receipt.text(Receipt.Text.AID));
        assertEquals("VISA", receipt.text(Receipt.Text.APPLICATION_LABEL));
        assertEquals("1122334455667788", receipt.text(Receipt.Text.CRYPTOGRAM));
    }
}
