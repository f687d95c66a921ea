package dev.vastrel;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.List;
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
        try (TlvList list = TlvList.decode(TREE)) {
            assertEquals(List.of("E1", "9F1A"), tags(list));
            Tlv template = list.get(0);
            assertEquals(20, template.length());
            assertEquals(List.of("9F02", "A5", "50"), tags(template.children()));
            Tlv amount = template.children().get(0);
            assertEquals("Amount, Authorised (Numeric)", amount.name());
            assertEquals("000000001234", amount.value());
            assertEquals(List.of("88"), tags(template.children().get(1).children()));
            assertTrue(list.get(1).children().isEmpty());
            assertThrows(IllegalArgumentException.class, () -> list.get(2));
        }
    }

    @Test
    void absentAndMalformedDataDecodeToAnEmptyList() {
        try (TlvList absent = TlvList.decode(null);
                TlvList odd = TlvList.decode("ABC")) {
            assertTrue(absent.isEmpty());
            assertTrue(odd.isEmpty());
        }
    }

    @Test
    void elementsCannotBeReadAfterClose() {
        TlvList list = TlvList.decode(TREE);
        Tlv element = list.get(0);
        list.close();
        list.close();
        assertThrows(IllegalStateException.class, element::tag);
        assertThrows(IllegalStateException.class, list::size);
    }

    @Test
    void unclosedListsAreReleasedByTheCleaner() {
        // Nothing to observe but the absence of a crash or a leak report: each list is freed
        // once, by the Cleaner.
        for (int i = 0; i < 10_000; ++i) {
            TlvList.decode(TREE).get(0);
        }
        System.gc();
    }
}
