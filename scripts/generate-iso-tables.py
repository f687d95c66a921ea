#!/usr/bin/env python3
"""Writes src/Explain/IsoTables.inc, the ISO 4217 currency, ISO 3166-1 country and ISO 639-1
language tables of the explanations, from Debian's iso-codes data (package iso-codes).

The file is committed, so that builds for phones, browsers and other targets need no
iso-codes on the build machine. Run this after iso-codes changes:

    scripts/generate-iso-tables.py                 rewrite the committed file
    scripts/generate-iso-tables.py --check FILE    exit 1 unless FILE is what it would write
"""
import argparse
import json
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
OUTPUT = ROOT / "src" / "Explain" / "IsoTables.inc"


def entries(data_dir, name, key):
    with open(data_dir / name, encoding="utf-8") as source:
        return json.load(source)[key]


def literal(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def table(type_name, name, rows):
    return "constexpr %s %s[] = {\n%s\n};\n" % (type_name, name, "\n".join(rows))


def generate(data_dir):
    """The file's text, and the number of rows each table must hold."""
    currencies = sorted(entries(data_dir, "iso_4217.json", "4217"), key=lambda e: int(e["numeric"]))
    countries = sorted(entries(data_dir, "iso_3166-1.json", "3166-1"), key=lambda e: int(e["numeric"]))
    languages = sorted((e for e in entries(data_dir, "iso_639-2.json", "639-2") if "alpha_2" in e),
                       key=lambda e: e["alpha_2"])
    text = "// Generated from Debian's iso-codes data by scripts/generate-iso-tables.py. Do not edit.\n"
    text += table("IsoCurrency", "kIsoCurrencies", [
        "    {%d, %s, %s}," % (int(e["numeric"]), literal(e["alpha_3"]), literal(e["name"]))
        for e in currencies])
    text += table("IsoCountry", "kIsoCountries", [
        "    {%d, %s, %s, %s}," % (int(e["numeric"]), literal(e["alpha_2"]), literal(e["alpha_3"]),
                                   literal(e["name"]))
        for e in countries])
    text += table("IsoLanguage", "kIsoLanguages", [
        "    {%s, %s}," % (literal(e["alpha_2"]), literal(e["name"])) for e in languages])
    return text, {"kIsoCurrencies": len(currencies), "kIsoCountries": len(countries),
                  "kIsoLanguages": len(languages)}


def rows_in(text, name):
    body = text.split("%s[] = {\n" % name, 1)[1].split("\n};", 1)[0]
    return len(body.splitlines())


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--data", type=pathlib.Path, default=pathlib.Path("/usr/share/iso-codes/json"))
    parser.add_argument("--check", type=pathlib.Path, metavar="FILE",
                        help="compare FILE with what would be written instead of writing")
    args = parser.parse_args()
    text, counts = generate(args.data)
    for name, count in counts.items():
        if rows_in(text, name) != count:
            sys.exit("generate-iso-tables: %s has %d rows, its source %d" % (name, rows_in(text, name), count))
    if args.check is None:
        OUTPUT.write_text(text, encoding="utf-8")
        return
    committed = args.check.read_text(encoding="utf-8")
    for name, count in counts.items():
        if rows_in(committed, name) != count:
            sys.exit("%s: %s has %d rows, iso-codes has %d" % (args.check, name, rows_in(committed, name), count))
    if committed != text:
        sys.exit("%s differs from what scripts/generate-iso-tables.py writes from %s: regenerate it"
                 % (args.check, args.data))
    print("%s matches iso-codes: %s" % (args.check.name, ", ".join("%s %d" % kv for kv in counts.items())))


if __name__ == "__main__":
    main()
