import dev.vastrel.CardInput;
import dev.vastrel.CardType;
import dev.vastrel.Receipt;
import dev.vastrel.Tlv;
import dev.vastrel.TlvList;
import dev.vastrel.Vastrel;
import dev.vastrel.VastrelException;
import java.util.ArrayList;
import java.util.List;

/**
 * An app over the installed jar and JNI library, as docs/apps.md shows it: decode a card's
 * response, explain it, build a receipt from one 77 template, tell the brand, and get a clear
 * error for bad input; the same work on four threads at once.
 */
public final class App {
    // 77 { 4F A0000000031010, 50 "VISA", 5A card number, 9F26 cryptogram }
    private static final String RESPONSE =
            "77244F07A00000000310105004564953415A0847617390010100109F26081122334455667788";

    private static void check(boolean condition, String what) {
        if (!condition) {
            throw new AssertionError(what);
        }
    }

    private static void refused(Runnable call) {
        try {
            call.run();
        } catch (VastrelException e) {
            check(!e.getMessage().contains("4761739"), "card data in " + e.getMessage());
            return;
        }
        throw new AssertionError("bad input accepted");
    }

    static void run() {
        Tlv response = TlvList.decode(RESPONSE).get(0);
        check(response.children().size() == 4, "four children");
        check("Application Label".equals(response.children().get(1).name()), "named");
        String json = Vastrel.explainJson(RESPONSE, false);
        check(json.contains("476173******0010") && !json.contains("4761739001"), "masked");
        Receipt receipt = Receipt.emv(null, new CardInput("476173******0010", null, 1, RESPONSE));
        check("VISA".equals(receipt.text(Receipt.Text.APPLICATION_LABEL)), "receipt");
        check(Vastrel.cardTypeFromPan("476173******0010") == CardType.VISA, "brand");
        refused(() -> TlvList.decode("77245A08476173"));
        refused(() -> Vastrel.cardTypeFromPan("4"));
        refused(() -> Vastrel.hexToBytes("47617390010"));
    }

    public static void main(String[] args) throws InterruptedException {
        run();
        List<Throwable> failures = new ArrayList<>();
        Thread[] threads = new Thread[4];
        for (int t = 0; t < threads.length; ++t) {
            threads[t] = new Thread(() -> {
                try {
                    for (int i = 0; i < 200; ++i) {
                        run();
                    }
                } catch (Throwable e) {
                    synchronized (failures) {
                        failures.add(e);
                    }
                }
            });
            threads[t].start();
        }
        for (Thread thread : threads) {
            thread.join();
        }
        if (!failures.isEmpty()) {
            throw new AssertionError(failures.get(0));
        }
        System.out.println("ok: vastrel " + Vastrel.nativeVersion() + " from Java");
    }
}
