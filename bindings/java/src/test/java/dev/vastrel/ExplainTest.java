package dev.vastrel;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;

class ExplainTest {
    // 70 { 5A 01 47 } 9F27 01 80
    private static final byte[] DATA = Vastrel.hexToBytes("7003 5A0147 9F270180".replace(" ", ""));

    @Test
    void strictReadExpandsEveryTemplate() {
        BerRead read = Vastrel.readBer(DATA, 0);
        assertNull(read.error());
        assertEquals(3, read.nodes().size());
        assertEquals(new BerNode(0x70, 0, 1, 2, 3, 0, -1, 2, true), read.nodes().get(0));
        assertEquals(new BerNode(0x5A, 2, 1, 4, 1, 1, 0, 2, false), read.nodes().get(1));
        assertEquals(new BerNode(0x9F27, 5, 2, 8, 1, 0, -1, 3, false), read.nodes().get(2));
    }

    @Test
    void strictReadReportsWhereMalformedDataStops() {
        BerRead tooDeep = Vastrel.readBer(DATA, 1);
        assertEquals(BerRead.BerError.TOO_DEEP, tooDeep.error());
        assertEquals(2, tooDeep.errorOffset());
        assertEquals(1, tooDeep.nodes().size());
        BerRead cut = Vastrel.readBer(Vastrel.hexToBytes("9F270580"), 0);
        assertEquals(BerRead.BerError.LENGTH_PAST_END, cut.error());
        assertTrue(cut.nodes().isEmpty());
        assertThrows(NullPointerException.class, () -> Vastrel.readBer(null, 0));
    }

    @Test
    void explanationMasksCardDataUnlessAsked() {
        byte[] response = Vastrel.hexToBytes("5A0847617390010100109000");
        String masked = Vastrel.explainJson(response, false);
        assertTrue(masked.contains("\"sw\": \"9000\""), masked);
        assertTrue(masked.contains("476173******0010"), masked);
        assertFalse(masked.contains("4761739001010010"), masked);
        assertTrue(Vastrel.explainJson(response, true).contains("4761739001010010"));
        String failed = Vastrel.explainJson(Vastrel.hexToBytes("9F270580"), false);
        assertTrue(failed.contains("\"reason\": \"length past the end\""), failed);
        assertThrows(NullPointerException.class, () -> Vastrel.explainJson(null, false));
    }
}
