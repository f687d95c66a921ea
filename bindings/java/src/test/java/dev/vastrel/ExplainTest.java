package dev.vastrel;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;

class ExplainTest {
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
        assertThrows(NullPointerException.class, () -> Vastrel.explainJson((byte[]) null, false));
        assertTrue(Vastrel.explainJson("5A084761739001010010", false).contains("476173******0010"));
    }

    @Test
    void sessionExplanationHidesThePinBlock() {
        String json = Vastrel.explainSessionJson(">> 00200080022412\n<< 63C1\n", false);
        assertTrue(json.contains("\"hex\": \"0020008002****\""), json);
        assertTrue(json.contains("verification failed, 1 try left"), json);
        assertFalse(json.contains("2412"), json);
    }

    @Test
    void caKeysAreCheckedByTheirChecksum() {
        String json = Vastrel.checkCaKeysJson(
                "A000000003 92 03 C0FFEE 0000000000000000000000000000000000000000\n");
        assertTrue(json.contains("\"verdict\": \"failed\""), json);
        assertTrue(json.contains("\"name\": \"checksum\""), json);
        VastrelException bad = assertThrows(VastrelException.class,
                () -> Vastrel.checkCaKeysJson("A0000003 92 03 01\n"));
        assertTrue(bad.getMessage().contains("line 1"), bad.getMessage());
        assertFalse(bad.getMessage().contains("A0000003"), bad.getMessage());
    }

    @Test
    void sessionVerdictsUseTheGivenCaKeys() throws java.io.IOException {
        String examples = System.getProperty("vastrel.examples");
        String trace = new String(java.nio.file.Files.readAllBytes(
                java.nio.file.Paths.get(examples, "oda-session.txt")), "UTF-8");
        String key = new String(java.nio.file.Files.readAllBytes(
                java.nio.file.Paths.get(examples, "oda-test-ca.tsv")), "UTF-8");
        String passed = Vastrel.explainSessionJson(trace, key, false);
        assertEquals(3, passed.split("\"result\": \"passed\"", -1).length - 1, passed);
        String builtIn = Vastrel.explainSessionJson(trace, false);
        assertTrue(builtIn.contains("\"failed_check\": \"issuer certificate: length\""), builtIn);
    }
}
