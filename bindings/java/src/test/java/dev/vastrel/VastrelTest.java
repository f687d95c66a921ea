package dev.vastrel;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.List;
import java.util.concurrent.CopyOnWriteArrayList;
import org.junit.jupiter.api.Test;

class VastrelTest {
    @Test
    void hexRoundTripsAndRejectsBadHex() {
        byte[] bytes = {0x00, (byte) 0x9F, (byte) 0xFF};
        assertEquals("009FFF", Vastrel.bytesToHex(bytes));
        assertArrayEquals(bytes, Vastrel.hexToBytes("009fFF"));
        assertArrayEquals(new byte[0], Vastrel.hexToBytes(""));
        IllegalArgumentException odd =
                assertThrows(IllegalArgumentException.class, () -> Vastrel.hexToBytes("ABC"));
        assertTrue(odd.getMessage().contains("odd number of hex digits at offset 3"), odd.getMessage());
        IllegalArgumentException pan = assertThrows(IllegalArgumentException.class,
                () -> Vastrel.hexToBytes("476173900101001"));
        assertFalse(pan.getMessage().contains("4761739"), pan.getMessage());
        assertThrows(IllegalArgumentException.class, () -> Vastrel.hexToBytes("ZZ"));
        assertThrows(NullPointerException.class, () -> Vastrel.hexToBytes(null));
    }

    @Test
    void textCrossesAsUnicode() {
        // "é" is C3 A9 in UTF-8 and "€" E2 82 AC; a NUL ends the text on the way in.
        assertEquals("c3a9e282ac", Vastrel.textToHex("é€"));
        assertEquals("41", Vastrel.textToHex("A\0B"));
        assertEquals("é€", Vastrel.hexToText("C3A9E282AC"));
        // Bytes that are not UTF-8 come back as replacement characters, never as an error.
        assertEquals("\uFFFD", Vastrel.hexToText("FF"));
    }

    @Test
    void splitterGivesOneHexStringPerElement() {
        assertEquals(List.of("9F0201AA", "5A0112"), Vastrel.split("9f0201aa5a0112"));
        assertThrows(IllegalArgumentException.class, () -> Vastrel.split("5A0512"));
    }

    @Test
    void lookups() {
        assertEquals("Application Label", Vastrel.tagName("50"));
        assertEquals("Unknown", Vastrel.tagName("9f02"));
        assertEquals(CvmResult.NO_CVM_REQUESTED, Vastrel.cvmResultFromTlv("1F0302"));
        assertEquals(CvmResult.NOT_AVAILABLE, Vastrel.cvmResultFromTlv(null));
        assertEquals(1, Vastrel.cardholderAuthenticationMethodFromTlv("420300"));
        assertEquals(9, Vastrel.cardholderAuthenticationMethodFromTlv(null));
        assertEquals(CardType.MASTER, Vastrel.cardTypeFromPan("510000******0002"));
        assertEquals(CardType.UNKNOWN, Vastrel.cardTypeFromPan(""));
        IllegalArgumentException masked =
                assertThrows(
                        IllegalArgumentException.class, () -> Vastrel.cardTypeFromPan("4111**1"));
        assertTrue(masked.getMessage().startsWith("VASTREL_ERROR_INVALID_ARGUMENT"));
        assertEquals("DISCOVER", Vastrel.enumDisplayString(EnumType.CARD_TYPE, 3));
        assertEquals("PIN VERIFIED", Vastrel.enumDisplayString(EnumType.PIN_STATEMENT_TYPE, 1));
        assertNull(Vastrel.enumDisplayString(EnumType.CARD_TYPE, 12));
    }

    @Test
    void logLinesReachTheHandler() {
        List<String> lines = new CopyOnWriteArrayList<>();
        Vastrel.setLogHandler(lines::add);
        try {
            TlvList.decode(null).close();
            Vastrel.setLoggingEnabled(false);
            TlvList.decode("ABC").close();
            Vastrel.setLoggingEnabled(true);
        } finally {
            Vastrel.setLogHandler(null);
        }
        assertEquals(List.of("TLV is nil"), lines);
    }
}
