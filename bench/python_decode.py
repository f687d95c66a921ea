"""Times vastrel.decode (the Python package) on one hex file: a hex str in, the element
objects of every level out. Prints the median of 15 runs. Run by scripts/java-bench.sh."""
import statistics
import sys
import timeit

import vastrel

hex_text = open(sys.argv[1]).read().strip()
elements = len(vastrel.decode(hex_text))
runs = timeit.repeat(lambda: vastrel.decode(hex_text), number=2000, repeat=15)
print("python/decode/flat  %.1f us per decode (median of %d runs; %d top-level elements; "
      "Python %s)" % (statistics.median(runs) / 2000 * 1e6, len(runs), elements,
                      sys.version.split()[0]))
