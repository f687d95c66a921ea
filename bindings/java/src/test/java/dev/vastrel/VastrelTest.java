package dev.vastrel;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.Arrays;
import java.util.List;
import java.util.concurrent.atomic.AtomicBoolean;
import java.util.concurrent.atomic.AtomicInteger;
import java.util.concurrent.CopyOnWriteArrayList;
import org.junit.jupiter.api.Test;

class VastrelTest {
    @Test
    void hexRoundTripsAndRejectsBadHex() {
        byte[] bytes = {0x00, (byte) 0x9F, (byte) 0xFF};
        assertEquals("009FFF", Vastrel.bytesToHex(bytes));
        assertArrayEquals(bytes, Vastrel.hexToBytes("009fFF"));
        assertArrayEquals(new byte[0], Vastrel.hexToBytes(""));
        VastrelException odd = assertThrows(VastrelException.class, () -> Vastrel.hexToBytes("ABC"));
        assertTrue(odd.getMessage().contains("odd number of hex digits at offset 3"), odd.getMessage());
        VastrelException pan = assertThrows(VastrelException.class,
                () -> Vastrel.hexToBytes("476173900101001"));
        assertFalse(pan.getMessage().contains("4761739"), pan.getMessage());
        assertThrows(VastrelException.class, () -> Vastrel.hexToBytes("ZZ"));
        assertThrows(VastrelException.class, () -> Vastrel.hexToBytes("-1"));
        assertThrows(NullPointerException.class, () -> Vastrel.hexToBytes(null));
    }

    @Test
    void pastedHexIsMadeStrict() {
        assertEquals("9F0206000A", Vastrel.hexClean(" 0x9f 02:06\n00 0a"));
        VastrelException bad = assertThrows(VastrelException.class, () -> Vastrel.hexClean("9F 0G"));
        assertEquals("text: not a hex digit at offset 4", bad.getMessage());
    }

    @Test
    void lookups() {
        assertEquals("Application Label", Vastrel.tagName("50"));
        assertEquals("Form Factor Indicator", Vastrel.tagName("9f6e"));
        assertNull(Vastrel.tagName("DF7F"));
        assertEquals(CvmResult.NO_CVM_REQUESTED, Vastrel.cvmResultFromTlv("1F0302"));
        assertEquals(CvmResult.SIGNATURE_REQUIRED, Vastrel.cvmResultFromTlv("5e0300"));
        assertThrows(VastrelException.class, () -> Vastrel.cvmResultFromTlv("ZZ0300"));
        assertThrows(VastrelException.class, () -> Vastrel.cvmResultFromTlv("1F03"));
        assertEquals(1, Vastrel.cardholderAuthenticationMethodFromTlv("420300"));
        assertEquals(CardType.MASTER, Vastrel.cardTypeFromPan("510000******0002"));
        for (String pan : new String[] {"", "4", "41111", "4111**1"}) {
            VastrelException refused =
                    assertThrows(VastrelException.class, () -> Vastrel.cardTypeFromPan(pan));
            assertEquals(-5, refused.status());
        }
        assertEquals("DISCOVER", Vastrel.enumDisplayString(EnumType.CARD_TYPE, 3));
        assertEquals("PIN VERIFIED", Vastrel.enumDisplayString(EnumType.PIN_STATEMENT_TYPE, 1));
        assertNull(Vastrel.enumDisplayString(EnumType.CARD_TYPE, 12));
        assertEquals(Vastrel.VERSION, Vastrel.nativeVersion());
    }

    @Test
    void logLinesReachTheHandlerUntilItIsReplaced() {
        List<String> lines = new CopyOnWriteArrayList<>();
        CardInput noChip = new CardInput(null, null, 0, "");
        Receipt.emv(null, noChip); // logging is off until a handler is set
        Vastrel.setLogHandler(lines::add);
        try {
            Receipt.emv(null, noChip);
        } finally {
            Vastrel.setLogHandler(null);
        }
        Receipt.emv(null, noChip);
        assertEquals(Arrays.asList("AID and Application Label are missing from EMV tags."), lines);
    }

    // Threads log while the handler is replaced: once setLogHandler returns, the old handler
    // must never run again.
    @Test
    void replacedHandlerIsNeverCalledAgain() throws Exception {
        CardInput noChip = new CardInput(null, null, 0, "");
        AtomicBoolean stop = new AtomicBoolean();
        Thread[] loggers = new Thread[4];
        for (int t = 0; t < loggers.length; ++t) {
            loggers[t] = new Thread(() -> {
                while (!stop.get()) {
                    Receipt.emv(null, noChip);
                }
            });
            loggers[t].start();
        }
        try {
            for (int round = 0; round < 200; ++round) {
                AtomicBoolean retired = new AtomicBoolean();
                AtomicInteger lateCalls = new AtomicInteger();
                Vastrel.setLogHandler(line -> {
                    if (retired.get()) {
                        lateCalls.incrementAndGet();
                    }
                });
                Vastrel.setLogHandler(line -> {});
                retired.set(true);
                Thread.sleep(0, 100_000);
                assertEquals(0, lateCalls.get(), "round " + round);
            }
        } finally {
            stop.set(true);
            for (Thread logger : loggers) {
                logger.join();
            }
            Vastrel.setLogHandler(null);
        }
    }
}
