package dev.vastrel;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import java.util.stream.Collectors;
import org.junit.jupiter.api.Test;

class TlvListTest {
    // E1 { 9F02, A5 { 88 }, 50 }, 9F1A
    private static final String TREE = "E1149F0206000000001234A5038801025004564953419F1A020840";

    private static List<String> tags(List<Tlv> elements) {
        return elements.stream().map(Tlv::tag).collect(Collectors.toList());
    }

    @Test
    void decodesATreeThatCanBeWalked() {
        TlvList list = TlvList.decode(TREE);
        assertEquals(Arrays.asList("E1", "9F1A"), tags(list));
        Tlv template = list.get(0);
        assertEquals(20, template.length());
        assertTrue(template.isConstructed());
        assertEquals(Arrays.asList("9F02", "A5", "50"), tags(template.children()));
        Tlv amount = template.children().get(0);
        assertEquals(0x9F02, amount.tagNumber());
        assertEquals(1, amount.depth());
        assertEquals("Amount, Authorised (Numeric)", amount.name());
        assertEquals("000000001234", amount.value());
        assertArrayEquals(new byte[] {0, 0, 0, 0, 0x12, 0x34}, amount.valueBytes());
        // The last element of a level is expanded like any other.
        assertEquals(Arrays.asList("88"), tags(template.children().get(1).children()));
        assertTrue(list.get(1).children().isEmpty());
        assertThrows(IndexOutOfBoundsException.class, () -> list.get(2));
        assertThrows(UnsupportedOperationException.class, () -> list.add(template));
        assertEquals(tags(list), tags(TlvList.decode(Vastrel.hexToBytes(TREE))));
    }

    @Test
    void namesComeFromTheKernelOfTheAid() {
        // 9F6C is Visa's Card Transaction Qualifiers; DF7F is in no dictionary.
        TlvList visa = TlvList.decode("4F07A00000000310109F6C020080DF7F0100");
        assertEquals("Card Transaction Qualifiers (CTQ)", visa.get(1).name());
        assertNull(visa.get(2).name());
    }

    @Test
    void badInputThrowsWithTheFaultAndItsPlace() {
        MalformedDataException cut =
                assertThrows(MalformedDataException.class, () -> TlvList.decode("9F020100500812"));
        assertEquals(MalformedDataException.Fault.LENGTH_PAST_END, cut.fault());
        assertEquals(4, cut.offset());
        assertEquals("length past end at byte 4", cut.getMessage());
        assertEquals(Arrays.asList("9F02"), tags(cut.partial()));
        VastrelException odd = assertThrows(VastrelException.class, () -> TlvList.decode("5A0"));
        assertEquals(-3, odd.status());
        assertThrows(VastrelException.class, () -> TlvList.decode("5A 01 47"));
        assertThrows(NullPointerException.class, () -> TlvList.decode((String) null));
        assertTrue(TlvList.decode("").isEmpty());
    }

    @Test
    void listsAreReadFromFourThreadsAtOnce() throws Exception {
        TlvList shared = TlvList.decode(TREE);
        ExecutorService pool = Executors.newFixedThreadPool(4);
        try {
            List<Future<String>> results = new ArrayList<>();
            for (int t = 0; t < 4; ++t) {
                results.add(pool.submit(() -> {
                    String last = null;
                    for (int i = 0; i < 2000; ++i) {
                        TlvList own = TlvList.decode(TREE);
                        last = own.get(0).children().get(0).name() + shared.get(1).value();
                    }
                    return last;
                }));
            }
            for (Future<String> result : results) {
                assertEquals("Amount, Authorised (Numeric)0840", result.get());
            }
        } finally {
            pool.shutdown();
        }
    }
}
