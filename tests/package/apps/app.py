"""An app's script over the installed Python package, as docs/apps.md shows it: decode a
card's response, read it strictly, explain it, build a receipt from one 77 template, tell the
brand, and get a clear error for bad input; the same work on four threads at once."""
import sys
import threading

import vastrel

# 77 { 4F A0000000031010, 50 "VISA", 5A card number, 9F26 cryptogram }
RESPONSE = "77244F07A00000000310105004564953415A0847617390010100109F26081122334455667788"


def run():
    (response,) = vastrel.decode(RESPONSE)
    assert [child.name for child in response.children][:2] == [
        "Application Identifier (AID) - card", "Application Label"], response.children
    assert len(vastrel.read(RESPONSE).nodes) == 5
    explained = vastrel.explain(RESPONSE)
    assert explained["elements"][0]["children"][2]["value"] == "476173******0010"
    receipt = vastrel.receipt_emv(None, vastrel.CardInput("476173******0010", None, 1, RESPONSE))
    assert receipt.application_label == "VISA", receipt
    assert vastrel.card_type("476173******0010") is vastrel.CardType.VISA
    for bad in (lambda: vastrel.decode("77245A08476173"), lambda: vastrel.card_type("4"),
                lambda: vastrel.hex_to_bytes("47617390010")):
        try:
            bad()
        except vastrel.VastrelError as error:
            assert "4761739" not in str(error), error
        else:
            raise AssertionError("bad input accepted")


def main():
    run()
    failures = []

    def worker():
        try:
            for _ in range(100):
                run()
        except Exception as error:  # reported below, the thread ends
            failures.append(error)

    threads = [threading.Thread(target=worker) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    if failures:
        print("app.py:", failures[0], file=sys.stderr)
        return 1
    print("ok: vastrel %s from Python" % vastrel.version())
    return 0


if __name__ == "__main__":
    sys.exit(main())
