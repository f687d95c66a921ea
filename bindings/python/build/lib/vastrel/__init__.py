"""Vastrel for Python: strict EMV BER-TLV decoding, explanations, tag names, card brands, CVM
readings and receipts, over libvastrel.so (the C interface) through ctypes.

Everything reads strictly: hex is two hex digits a byte and nothing else, BER-TLV is read with
every template expanded, and bad input raises VastrelError, whose message names the fault and
where it is, never the input. Every function may be called from any thread.
"""
import ctypes
import enum
import json
import struct
import threading
from typing import Any, Callable, Dict, List, NamedTuple, Optional, Union

from . import _native
from ._native import lib

__all__ = [
    "VERSION", "VastrelError", "MalformedDataError", "Tlv", "BerNode", "BerRead", "CardType",
    "CvmResult", "CardInput", "GatewayInput", "Receipt", "version", "hex_to_bytes", "hex_clean",
    "decode", "read", "explain", "explain_session", "check_ca_keys", "tag_name", "card_type",
    "cvm_result", "cardholder_authentication_method", "enum_display_string", "receipt_emv",
    "receipt_msr", "set_log_handler",
]

VERSION = "2.1.0"

_ABSENT = 1
_BUFFER_TOO_SMALL = -2
_MALFORMED_DATA = -4
_FAULTS = ["truncated tag", "truncated length", "length past the end", "length too large",
           "indefinite length", "too deep"]

Data = Union[bytes, bytearray, memoryview, str]


class VastrelError(ValueError):
    """A call the library refused; status is the C interface's negative VASTREL_ERROR_* code."""

    def __init__(self, status: int, message: str):
        super().__init__(message)
        self.status = status


class MalformedDataError(VastrelError):
    """BER-TLV data that does not read to its end: why (fault), where (offset) and the
    elements read before it (partial)."""

    def __init__(self, fault: str, offset: int, partial: "List[Tlv]"):
        super().__init__(_MALFORMED_DATA, "%s at byte %d" % (fault, offset))
        self.fault = fault
        self.offset = offset
        self.partial = partial


def _check(status: int) -> int:
    if status < 0:
        raise VastrelError(status, lib.vastrel_last_error_message().decode("utf-8", "replace"))
    return status


def _text(write: Callable[[Any, int, Any], int]) -> Optional[str]:
    """Runs a call that writes text: a buffer on the first try for nearly every result, one of
    the size reported otherwise. None for VASTREL_ABSENT."""
    length = ctypes.c_size_t()
    buffer = ctypes.create_string_buffer(256)
    status = write(buffer, len(buffer), ctypes.byref(length))
    if status == _BUFFER_TOO_SMALL:
        buffer = ctypes.create_string_buffer(length.value + 1)
        status = write(buffer, len(buffer), ctypes.byref(length))
    if _check(status) == _ABSENT:
        return None
    return buffer.raw[:length.value].decode("utf-8", "replace")


def _encoded(text: str, what: str) -> bytes:
    if not isinstance(text, str):
        raise TypeError("%s must be str, not %s" % (what, type(text).__name__))
    return text.encode("utf-8")


def version() -> str:
    """The version of the loaded libvastrel.so, "2.1.0"."""
    return lib.vastrel_version().decode("ascii")


def hex_to_bytes(hex_text: str) -> bytes:
    """The bytes of strict hex: two hex digits a byte, either case, nothing else."""
    raw = _encoded(hex_text, "hex_text")
    out = ctypes.create_string_buffer(len(raw) // 2 or 1)
    length = ctypes.c_size_t()
    _check(lib.vastrel_hex_to_bytes(raw, len(raw), out, len(raw) // 2, ctypes.byref(length)))
    return out.raw[:length.value]


def hex_clean(text: str) -> str:
    """Hex pasted from a log made strict: blanks, line breaks, colons and one leading 0x are
    removed and the digits upper-cased; anything else raises."""
    raw = _encoded(text, "text")
    return _text(lambda out, size, length: lib.vastrel_hex_clean(raw, len(raw), out, size, length))


def _bytes_of(data: Data) -> bytes:
    if isinstance(data, str):
        return hex_to_bytes(data)
    return bytes(data)


class BerNode(NamedTuple):
    """One element of a flat strict read, in document order; parent is -1 at the top level."""
    offset: int
    tag_length: int
    value_offset: int
    value_length: int
    tag: int
    depth: int
    parent: int
    subtree_end: int
    constructed: bool


class BerRead(NamedTuple):
    nodes: List[BerNode]
    fault: Optional[str]  # None when everything was read
    fault_offset: int


_NODE = struct.Struct("@NNNNIIIIi0N")
assert _NODE.size == ctypes.sizeof(_native.BerNode)
_NO_PARENT = 0xFFFFFFFF


def _read_raw(data: bytes, max_depth: int = 0):
    # At most one element per two bytes: a tag and a length byte each.
    capacity = len(data) // 2 + 1
    nodes = (_native.BerNode * capacity)()
    count, kind, offset = ctypes.c_size_t(), ctypes.c_int(), ctypes.c_size_t()
    _check(lib.vastrel_ber_read(data, len(data), max_depth, nodes, capacity, _NODE.size,
                                ctypes.byref(count), ctypes.byref(kind), ctypes.byref(offset)))
    raw = memoryview(nodes).cast("B")[:count.value * _NODE.size]
    fault = _FAULTS[kind.value - 1] if kind.value else None
    return _NODE.iter_unpack(raw), fault, offset.value


def read(data: Data, max_depth: int = 0) -> BerRead:
    """The strict read as a flat list of nodes, for callers that walk it themselves. Data that
    does not read is reported in the result (fault, fault_offset), not raised."""
    nodes, fault, offset = _read_raw(_bytes_of(data), max_depth)
    flat = [BerNode(o, tl, vo, vl, t, d, -1 if p == _NO_PARENT else p, e, c != 0)
            for o, tl, vo, vl, t, d, p, e, c in nodes]
    return BerRead(flat, fault, offset)


class _Source:
    """The bytes a decode read, and the scheme that names its elements, found on demand."""
    __slots__ = ("data", "_scheme")

    def __init__(self, data: bytes):
        self.data = data
        self._scheme = -1

    def scheme(self) -> int:
        if self._scheme < 0:
            handle = ctypes.c_void_p()
            lib.vastrel_tlv_decode_bytes(self.data, len(self.data), ctypes.byref(handle))
            scheme = ctypes.c_int(0)
            if handle.value:
                lib.vastrel_tlv_list_scheme(handle, ctypes.byref(scheme))
            lib.vastrel_tlv_list_free(handle)
            self._scheme = scheme.value
        return self._scheme


_names: Dict[int, Optional[str]] = {}


def _name(tag: int, scheme: int) -> Optional[str]:
    key = scheme << 32 | tag
    if key not in _names:
        _names[key] = _text(lambda out, size, length:
                            lib.vastrel_tag_name_in_scheme(tag, scheme, out, size, length))
    return _names[key]


class Tlv:
    """One element of EMV data, read strictly. Immutable; children is empty for a primitive
    element."""
    __slots__ = ("tag_number", "depth", "constructed", "children", "_source", "_tag", "_value")

    def __init__(self, source: _Source, tag_number: int, depth: int, constructed: bool,
                 tag_slice: slice, value_slice: slice):
        self._source = source
        self.tag_number = tag_number
        self.depth = depth
        self.constructed = constructed
        self._tag = tag_slice
        self._value = value_slice
        self.children: List[Tlv] = []

    @property
    def tag(self) -> str:
        """The tag as uppercase hex, "9F26"."""
        return self._source.data[self._tag].hex().upper()

    @property
    def value(self) -> bytes:
        return self._source.data[self._value]

    @property
    def value_hex(self) -> str:
        return self.value.hex().upper()

    @property
    def name(self) -> Optional[str]:
        """The name from the full EMV dictionary in the kernel of the data's AID; None when it
        has none."""
        return _name(self.tag_number, self._source.scheme())

    def __repr__(self) -> str:
        return "Tlv(%s, %s)" % (self.tag, self.value_hex)


def decode(data: Data) -> List[Tlv]:
    """The top-level elements of EMV data (strict hex, or bytes), every template expanded.

    Raises VastrelError for hex that is not strict hex, MalformedDataError (with the elements
    read before the fault) for data that does not read to its end."""
    raw = _bytes_of(data)
    source = _Source(raw)
    nodes, fault, offset = _read_raw(raw)
    every: List[Tlv] = []
    top: List[Tlv] = []
    for node_offset, tag_length, value_offset, value_length, tag, depth, parent, _, constructed \
            in nodes:
        element = Tlv(source, tag, depth, constructed != 0,
                      slice(node_offset, node_offset + tag_length),
                      slice(value_offset, value_offset + value_length))
        every.append(element)
        (top if parent == _NO_PARENT else every[parent].children).append(element)
    if fault is not None:
        raise MalformedDataError(fault, offset, top)
    return top


def explain(data: Data, show_sensitive: bool = False) -> Dict[str, Any]:
    """The explanation of data (an R-APDU or plain TLV data, strict hex or bytes) as Python
    objects: {"elements": [...], "status": ..., "error": ...}. Card data is masked unless
    show_sensitive."""
    raw = _bytes_of(data)
    text = _text(lambda out, size, length: lib.vastrel_explain_json(
        raw, len(raw), 1 if show_sensitive else 0, out, size, length))
    return json.loads(text)


def explain_session(trace: str, show_sensitive: bool = False,
                    ca_keys: Optional[str] = None) -> Dict[str, Any]:
    """The explanation of a card session given as a trace (one APDU a line) as Python objects:
    {"exchanges": [...], "summary": {...}, "error": ...}. Card data is masked unless
    show_sensitive. Offline data authentication is replayed with the built-in CA public keys
    and those of ca_keys (key-file text, one key a line), its verdicts under
    summary["oda"]."""
    raw = _encoded(trace, "trace")
    keys = None if ca_keys is None else _encoded(ca_keys, "ca_keys")
    text = _text(lambda out, size, length: lib.vastrel_explain_session_json_with_keys(
        raw, len(raw), keys, 0 if keys is None else len(keys), 1 if show_sensitive else 0,
        out, size, length))
    return json.loads(text)


def check_ca_keys(keys: str) -> List[Dict[str, Any]]:
    """CA public keys (key-file text: rid, index, exponent, modulus, then optionally the
    published SHA-1, the scheme and the source, one key a line) checked as a terminal should
    before loading them. One verdict per key: {"rid", "index", "scheme", "source", "verdict"
    ("passed", "failed" or "unverified"), "checks": [{"name", "ok", "detail"}]}. A line that
    cannot be read raises VastrelError naming its number."""
    raw = _encoded(keys, "keys")
    failed = ctypes.c_size_t()
    text = _text(lambda out, size, length: lib.vastrel_ca_keys_check_json(
        raw, len(raw), ctypes.byref(failed), out, size, length))
    return json.loads(text)


def tag_name(tag: str) -> Optional[str]:
    """The name of a tag written as hex from the full EMV dictionary; None when it has none."""
    raw = _encoded(tag, "tag")
    return _text(lambda out, size, length: lib.vastrel_tag_name(raw, len(raw), out, size, length))


class CardType(enum.IntEnum):
    VISA = 0
    MASTER = 1
    AMEX = 2
    DISCOVER = 3
    JCB = 4
    DINERS_CLUB = 5
    MAESTRO = 6
    UNION_PAY = 7
    UNKNOWN = 8


class CvmResult(enum.IntEnum):
    NOT_AVAILABLE = 0
    PIN_ONLINE = 1
    PIN_OFFLINE_ENCRYPTED = 2
    PIN_OFFLINE_PLAIN = 3
    NO_CVM_REQUESTED = 31
    SIGNATURE_REQUIRED = 94


def card_type(pan: str) -> CardType:
    """The brand of a card number from its first six digits; the rest may be masked."""
    raw = _encoded(pan, "pan")
    result = ctypes.c_uint64()
    _check(lib.vastrel_card_type_from_pan(raw, len(raw), ctypes.byref(result)))
    return CardType(result.value)


def cvm_result(value: str) -> CvmResult:
    """The CVM result a receipt prints, from the CVM Results (9F34) as six hex digits."""
    raw = _encoded(value, "value")
    result = ctypes.c_int64()
    _check(lib.vastrel_cvm_result_from_tlv(raw, len(raw), ctypes.byref(result)))
    return CvmResult(result.value)


def cardholder_authentication_method(value: str) -> int:
    """The cardholder authentication method (0, 1, 2, 4 or 9) from the CVM Results."""
    raw = _encoded(value, "value")
    result = ctypes.c_uint64()
    _check(lib.vastrel_cardholder_authentication_method_from_tlv(raw, len(raw),
                                                                 ctypes.byref(result)))
    return result.value


def enum_display_string(enum_type: int, value: int) -> Optional[str]:
    """The display string of value in enumeration table enum_type (1 to 14), or None."""
    return _text(lambda out, size, length:
                 lib.vastrel_enum_display_string(enum_type, value, out, size, length))


class CardInput(NamedTuple):
    """The card as the reader reported it; emv_tlv_hex is the chip data as strict hex."""
    pan: Optional[str] = None
    cardholder_name: Optional[str] = None
    card_data_source_type: int = 0
    emv_tlv_hex: Optional[str] = None


class GatewayInput(NamedTuple):
    """The gateway's answer; approved_amount is plain decimal text, "12.50"."""
    auth_code: Optional[str] = None
    gateway_transaction_id: Optional[str] = None
    approved_amount: Optional[str] = None


_TEXT_FIELDS = [
    "invoice_number", "transaction_amount", "authorization_code", "masked_pan",
    "transaction_id", "cardholder_name", "aid", "application_label", "application_expiry_date",
    "application_effective_date", "application_interchange_profile",
    "application_version_number", "application_transaction_counter", "pan_sequence_number",
    "cryptogram", "issuer_application_data", "terminal_verification_result",
    "unpredictable_number", "cash_back_amount", "terminal_type", "ifd_serial_number",
    "cryptogram_information_data",
]
_NUMBER_FIELDS = [
    "transaction_type", "currency_code", "card_type", "cvm_result", "pos_entry_mode",
    "terminal_country_code", "pin_statement_type", "transaction_date_time",
]


class Receipt:
    """A customer receipt: every field as an attribute, None where the receipt has none."""

    def __init__(self, fields: Dict[str, Any]):
        self.__dict__.update(fields)

    def __repr__(self) -> str:
        return "Receipt(%r)" % self.__dict__


def _optional(text: Optional[str]) -> Optional[bytes]:
    return None if text is None else _encoded(text, "text")


def _build(emv: bool, transaction_type: int, gateway: Optional[GatewayInput],
           card: Optional[CardInput]) -> Receipt:
    gateway_input = card_input = None
    if gateway is not None:
        gateway_input = _native.GatewayInput(ctypes.sizeof(_native.GatewayInput),
                                             _optional(gateway.auth_code),
                                             _optional(gateway.gateway_transaction_id),
                                             _optional(gateway.approved_amount))
    if card is not None:
        card_input = _native.CardInput(ctypes.sizeof(_native.CardInput), _optional(card.pan),
                                       _optional(card.cardholder_name),
                                       card.card_data_source_type, _optional(card.emv_tlv_hex))
    handle = ctypes.c_void_p()
    gateway_pointer = ctypes.byref(gateway_input) if gateway_input is not None else None
    card_pointer = ctypes.byref(card_input) if card_input is not None else None
    if emv:
        status = lib.vastrel_receipt_build_emv(gateway_pointer, card_pointer, ctypes.byref(handle))
    else:
        status = lib.vastrel_receipt_build_msr(transaction_type, gateway_pointer, card_pointer,
                                               ctypes.byref(handle))
    _check(status)
    try:
        fields: Dict[str, Any] = {}
        for index, name in enumerate(_TEXT_FIELDS):
            fields[name] = _text(lambda out, size, length:
                                 lib.vastrel_receipt_text(handle, index, out, size, length))
        for index, name in enumerate(_NUMBER_FIELDS):
            number = ctypes.c_int64()
            absent = _check(lib.vastrel_receipt_number(handle, index, ctypes.byref(number)))
            fields[name] = None if absent == _ABSENT else number.value
        fields["card_type"] = CardType(fields["card_type"])
        fields["cvm_result"] = CvmResult(fields["cvm_result"])
        return Receipt(fields)
    finally:
        lib.vastrel_receipt_free(handle)


def receipt_emv(gateway: Optional[GatewayInput], card: Optional[CardInput]) -> Receipt:
    """A chip receipt; the chip data is read strictly, every template opened."""
    return _build(True, 0, gateway, card)


def receipt_msr(transaction_type: int, gateway: Optional[GatewayInput],
                card: Optional[CardInput]) -> Receipt:
    """A magnetic-stripe receipt for a transaction of the given type code."""
    return _build(False, transaction_type, gateway, card)


_log_lock = threading.Lock()
_log_callback = None  # kept alive while installed


def set_log_handler(handler: Optional[Callable[[str], None]]) -> None:
    """Sends the library's log lines to handler, on the thread that logs; None turns logging
    off, as it is until a handler is set. Once this returns, the replaced handler is never
    called again."""
    global _log_callback
    with _log_lock:
        callback = None
        if handler is not None:
            def deliver(_context, line, _length):
                try:
                    handler(line.decode("utf-8", "replace"))
                except Exception:  # a handler that raises loses its line, nothing more
                    pass
            callback = _native.LOG_CALLBACK(deliver)
        _check(lib.vastrel_set_log_callback(callback or _native.LOG_CALLBACK(), None))
        _log_callback = callback
