import dev.vastrel.TlvList;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;

/**
 * Times the strict decoder through the Java binding on one hex file: a hex String in, the
 * element objects of every level out. Prints the median of 15 runs in nanoseconds per
 * decode, after a warm-up for the JIT. Run by scripts/java-bench.sh, never by the tests.
 */
public final class DecodeTiming {
    public static void main(String[] args) throws Exception {
        String hex = Files.readString(Path.of(args[0])).strip();
        int iterations = 20_000;
        int elements = decodeOnce(hex);
        long sink = 0;
        for (int i = 0; i < 5 * iterations; ++i) {
            sink += decodeOnce(hex);
        }
        double[] runs = new double[15];
        for (int run = 0; run < runs.length; ++run) {
            long start = System.nanoTime();
            for (int i = 0; i < iterations; ++i) {
                sink += decodeOnce(hex);
            }
            runs[run] = (System.nanoTime() - start) / (double) iterations;
        }
        Arrays.sort(runs);
        System.out.printf(
                "java/decode/flat  %.0f ns per decode (median of %d runs; %d top-level"
                        + " elements; checksum %d; %s %s)%n",
                runs[runs.length / 2], runs.length, elements, sink,
                System.getProperty("java.vm.name"), System.getProperty("java.version"));
    }

    private static int decodeOnce(String hex) {
        return TlvList.decode(hex).size();
    }
}
