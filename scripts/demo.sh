#!/usr/bin/env bash
# Builds the vastrel tool (release preset) and shows it at work on the bundled example
# chip sale: the customer receipt, then the sale's EMV data decoded tag by tag.
set -euo pipefail
cd "$(dirname "$0")/.."

# The tool preset builds the library and the tool alone: no JDK, no test framework needed.
./scripts/setup.sh

echo "==> configure and build the vastrel tool (release)"
cmake --preset tool >/dev/null
cmake --build --preset tool

tool=build/tool/tools/vastrel/vastrel
echo
echo "==> vastrel receipt          (the bundled example chip sale, examples/chip-pin-sale.json)"
"$tool" receipt
echo
echo "==> vastrel explain < examples/contactless-gpo-response.txt   (a card's response, explained)"
"$tool" explain <examples/contactless-gpo-response.txt
echo
echo "==> vastrel decode < examples/chip-pin-sale.hex"
"$tool" decode <examples/chip-pin-sale.hex
echo
echo "==> vastrel cvm 010302       (its CVM Results, tag 9F34)"
"$tool" cvm 010302
echo
echo "Try also: $tool --help"
