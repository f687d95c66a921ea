"""The Python package over libvastrel.so: strict decoding, explanations, lookups, receipts and
the log, with the library chosen by VASTREL_LIBRARY."""
import pathlib
import threading

import pytest

import vastrel

# E1 { 9F02, A5 { 88 }, 50 }, 9F1A
TREE = "E1149F0206000000001234A5038801025004564953419F1A020840"
# 6F { 4F, 50, 9F34, 95, 5F2A, 9F26 }, 9F1A
CHIP = ("6F2C4F07A00000000310105004564953419F3403020300950500000080005F2A0208409F2608"
        "11223344556677889F1A020840")


def tags(elements):
    return [element.tag for element in elements]


def test_decode_walks_every_template():
    top = vastrel.decode(TREE)
    assert tags(top) == ["E1", "9F1A"]
    template = top[0]
    assert template.constructed and template.depth == 0 and len(template.value) == 20
    assert tags(template.children) == ["9F02", "A5", "50"]
    amount = template.children[0]
    assert (amount.tag_number, amount.name, amount.value_hex) == (
        0x9F02, "Amount, Authorised (Numeric)", "000000001234")
    assert tags(template.children[1].children) == ["88"]
    assert tags(vastrel.decode(bytes.fromhex(TREE))) == ["E1", "9F1A"]


def test_names_come_from_the_kernel_of_the_aid():
    visa = vastrel.decode("4F07A00000000310109F6C020080DF7F0100")
    assert visa[1].name == "Card Transaction Qualifiers (CTQ)"
    assert visa[2].name is None


@pytest.mark.parametrize("hex_text, status", [
    ("5A0", -3), ("5A 01 47", -3), ("0x5A0147", -3), ("-1", -3),
])
def test_bad_hex_is_refused(hex_text, status):
    with pytest.raises(vastrel.VastrelError) as error:
        vastrel.decode(hex_text)
    assert error.value.status == status
    assert hex_text not in str(error.value)


def test_malformed_data_names_its_fault_with_the_elements_before_it():
    with pytest.raises(vastrel.MalformedDataError) as error:
        vastrel.decode("9F020100500812")
    assert (error.value.fault, error.value.offset) == ("length past the end", 4)
    assert tags(error.value.partial) == ["9F02"]
    flat = vastrel.read("9F020100500812")
    assert (flat.fault, flat.fault_offset, len(flat.nodes)) == ("length past the end", 4, 1)
    assert vastrel.read("7003 5A0147".replace(" ", "")).nodes[1] == vastrel.BerNode(
        2, 1, 4, 1, 0x5A, 1, 0, 2, False)


def test_hex_helpers():
    assert vastrel.hex_to_bytes("009fFF") == b"\x00\x9f\xff"
    assert vastrel.hex_clean(" 0x9f 02:06\n00 0a") == "9F0206000A"
    with pytest.raises(vastrel.VastrelError, match="odd number of hex digits at offset 15"):
        vastrel.hex_to_bytes("476173900101001")


def test_explain_gives_python_objects_and_masks_card_data():
    explained = vastrel.explain("5A0847617390010100109000")
    assert explained["status"]["sw"] == "9000"
    assert explained["elements"][0]["value"] == "476173******0010"
    assert vastrel.explain(bytes.fromhex("5A084761739001010010"), True)["elements"][0][
        "value"] == "4761739001010010"


@pytest.mark.parametrize("call, argument", [
    (vastrel.card_type, ""), (vastrel.card_type, "4"), (vastrel.card_type, "4111*1"),
    (vastrel.cvm_result, "ZZ0300"), (vastrel.cvm_result, "1E03"),
    (vastrel.cardholder_authentication_method, ""),
])
def test_lookups_refuse_what_their_rules_refuse(call, argument):
    with pytest.raises(vastrel.VastrelError):
        call(argument)


def test_lookups():
    assert vastrel.tag_name("9f6e") == "Form Factor Indicator"
    assert vastrel.tag_name("DF7F") is None
    assert vastrel.card_type("371449******8431") is vastrel.CardType.AMEX
    assert vastrel.cvm_result("1f0302") is vastrel.CvmResult.NO_CVM_REQUESTED
    assert vastrel.cardholder_authentication_method("420300") == 1
    assert vastrel.enum_display_string(8, 3) == "DISCOVER"
    assert vastrel.enum_display_string(8, 12) is None
    assert vastrel.version() == vastrel.VERSION


def test_receipts():
    gateway = vastrel.GatewayInput("A1B2C3", "TX-42", "12.50")
    receipt = vastrel.receipt_emv(gateway, vastrel.CardInput("476173******0119", "CARD/HOLDER", 1,
                                                             CHIP))
    assert (receipt.aid, receipt.application_label, receipt.transaction_amount) == (
        "A0000000031010", "VISA", "12.5")
    assert receipt.card_type is vastrel.CardType.VISA
    assert receipt.cvm_result is vastrel.CvmResult.PIN_OFFLINE_ENCRYPTED
    assert receipt.invoice_number is None and receipt.transaction_date_time is None
    lone = vastrel.receipt_emv(gateway, vastrel.CardInput(
        emv_tlv_hex="771A4F07A00000000310105004564953419F26081122334455667788"))
    assert (lone.aid, lone.cryptogram) == ("A0000000031010", "1122334455667788")
    stripe = vastrel.receipt_msr(2, None, vastrel.CardInput())
    assert stripe.transaction_type == 2 and stripe.authorization_code is None
    with pytest.raises(vastrel.VastrelError) as error:
        vastrel.receipt_emv(vastrel.GatewayInput(approved_amount="12,50"), None)
    assert "12,50" not in str(error.value)
    with pytest.raises(vastrel.VastrelError) as error:
        vastrel.receipt_emv(None, vastrel.CardInput(emv_tlv_hex="6F054F07A000"))
    assert error.value.status == -4


def test_log_lines_reach_the_handler_until_it_is_removed():
    lines = []
    no_chip = vastrel.CardInput(emv_tlv_hex="")
    vastrel.receipt_emv(None, no_chip)  # off until a handler is set
    vastrel.set_log_handler(lines.append)
    try:
        vastrel.receipt_emv(None, no_chip)
    finally:
        vastrel.set_log_handler(None)
    vastrel.receipt_emv(None, no_chip)
    assert lines == ["AID and Application Label are missing from EMV tags."]


def test_four_threads_at_once():
    results = []

    def work():
        for _ in range(200):
            top = vastrel.decode(TREE)
            results.append((top[0].children[0].name, vastrel.card_type("476173")))

    threads = [threading.Thread(target=work) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert set(results) == {("Amount, Authorised (Numeric)", vastrel.CardType.VISA)}


EXAMPLES = pathlib.Path(__file__).resolve().parents[3] / "examples"


def test_ca_keys_are_checked_by_checksum_and_bad_lines_name_their_number():
    (verdict,) = vastrel.check_ca_keys(
        "A000000003 92 03 C0FFEE 0000000000000000000000000000000000000000\n")
    assert verdict["verdict"] == "failed"
    assert [c["name"] for c in verdict["checks"] if c["ok"] is False] == ["checksum", "modulus"]
    with pytest.raises(vastrel.VastrelError) as raised:
        vastrel.check_ca_keys("A0000003 92 03 01\n")
    assert "line 1" in str(raised.value) and "A0000003" not in str(raised.value)


def test_session_verdicts_use_the_given_ca_keys():
    trace = (EXAMPLES / "oda-session.txt").read_text()
    key = (EXAMPLES / "oda-test-ca.tsv").read_text()
    oda = vastrel.explain_session(trace, ca_keys=key)["summary"]["oda"]
    assert [(m["method"], m["result"]) for m in oda["methods"]] == [
        ("CDA", "passed"), ("DDA", "passed"), ("SDA", "passed")]
    built_in = vastrel.explain_session(trace)["summary"]["oda"]
    assert {m["failed_check"] for m in built_in["methods"]} == {"issuer certificate: length"}


def test_explain_session_gives_python_objects():
    session = vastrel.explain_session(">> 00200080022412\n<< 63C1\n?? 9000\n")
    (exchange,) = session["exchanges"]
    assert exchange["command"]["hex"] == "0020008002****"
    assert exchange["response"]["status"]["meaning"] == "verification failed, 1 try left"
    assert session["error"] == {"line": 3, "reason": "no direction marker (>> or <<, TX or RX, ...)"}
