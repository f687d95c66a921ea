"""ctypes declarations of libvastrel.so, the C interface (vastrel.h, version 2)."""
import ctypes
import ctypes.util
import os

c_size_p = ctypes.POINTER(ctypes.c_size_t)


class BerNode(ctypes.Structure):
    _fields_ = [
        ("offset", ctypes.c_size_t),
        ("tag_length", ctypes.c_size_t),
        ("value_offset", ctypes.c_size_t),
        ("value_length", ctypes.c_size_t),
        ("tag", ctypes.c_uint32),
        ("depth", ctypes.c_uint32),
        ("parent", ctypes.c_uint32),
        ("subtree_end", ctypes.c_uint32),
        ("constructed", ctypes.c_int),
    ]


class CardInput(ctypes.Structure):
    _fields_ = [
        ("struct_size", ctypes.c_size_t),
        ("pan", ctypes.c_char_p),
        ("cardholder_name", ctypes.c_char_p),
        ("card_data_source_type", ctypes.c_uint64),
        ("emv_tlv_hex", ctypes.c_char_p),
    ]


class GatewayInput(ctypes.Structure):
    _fields_ = [
        ("struct_size", ctypes.c_size_t),
        ("auth_code", ctypes.c_char_p),
        ("gateway_transaction_id", ctypes.c_char_p),
        ("approved_amount", ctypes.c_char_p),
    ]


LOG_CALLBACK = ctypes.CFUNCTYPE(None, ctypes.c_void_p, ctypes.c_char_p, ctypes.c_size_t)

# (name, result, arguments)
_FUNCTIONS = [
    ("vastrel_version", ctypes.c_char_p, []),
    ("vastrel_status_text", ctypes.c_char_p, [ctypes.c_int]),
    ("vastrel_last_error_message", ctypes.c_char_p, []),
    ("vastrel_hex_to_bytes", ctypes.c_int,
     [ctypes.c_char_p, ctypes.c_size_t, ctypes.c_void_p, ctypes.c_size_t, c_size_p]),
    ("vastrel_hex_clean", ctypes.c_int,
     [ctypes.c_char_p, ctypes.c_size_t, ctypes.c_char_p, ctypes.c_size_t, c_size_p]),
    ("vastrel_ber_read", ctypes.c_int,
     [ctypes.c_char_p, ctypes.c_size_t, ctypes.c_uint32, ctypes.c_void_p, ctypes.c_size_t,
      ctypes.c_size_t, c_size_p, ctypes.POINTER(ctypes.c_int), c_size_p]),
    ("vastrel_tlv_decode_bytes", ctypes.c_int,
     [ctypes.c_char_p, ctypes.c_size_t, ctypes.POINTER(ctypes.c_void_p)]),
    ("vastrel_tlv_list_scheme", ctypes.c_int, [ctypes.c_void_p, ctypes.POINTER(ctypes.c_int)]),
    ("vastrel_tlv_list_free", None, [ctypes.c_void_p]),
    ("vastrel_tag_name", ctypes.c_int,
     [ctypes.c_char_p, ctypes.c_size_t, ctypes.c_char_p, ctypes.c_size_t, c_size_p]),
    ("vastrel_tag_name_in_scheme", ctypes.c_int,
     [ctypes.c_uint32, ctypes.c_int, ctypes.c_char_p, ctypes.c_size_t, c_size_p]),
    ("vastrel_explain_json", ctypes.c_int,
     [ctypes.c_char_p, ctypes.c_size_t, ctypes.c_int, ctypes.c_char_p, ctypes.c_size_t, c_size_p]),
    ("vastrel_explain_session_json", ctypes.c_int,
     [ctypes.c_char_p, ctypes.c_size_t, ctypes.c_int, ctypes.c_char_p, ctypes.c_size_t, c_size_p]),
    ("vastrel_explain_session_json_with_keys", ctypes.c_int,
     [ctypes.c_char_p, ctypes.c_size_t, ctypes.c_char_p, ctypes.c_size_t, ctypes.c_int,
      ctypes.c_char_p, ctypes.c_size_t, c_size_p]),
    ("vastrel_ca_keys_check_json", ctypes.c_int,
     [ctypes.c_char_p, ctypes.c_size_t, c_size_p, ctypes.c_char_p, ctypes.c_size_t, c_size_p]),
    ("vastrel_cvm_result_from_tlv", ctypes.c_int,
     [ctypes.c_char_p, ctypes.c_size_t, ctypes.POINTER(ctypes.c_int64)]),
    ("vastrel_cardholder_authentication_method_from_tlv", ctypes.c_int,
     [ctypes.c_char_p, ctypes.c_size_t, ctypes.POINTER(ctypes.c_uint64)]),
    ("vastrel_card_type_from_pan", ctypes.c_int,
     [ctypes.c_char_p, ctypes.c_size_t, ctypes.POINTER(ctypes.c_uint64)]),
    ("vastrel_enum_display_string", ctypes.c_int,
     [ctypes.c_uint64, ctypes.c_uint64, ctypes.c_char_p, ctypes.c_size_t, c_size_p]),
    ("vastrel_receipt_build_emv", ctypes.c_int,
     [ctypes.POINTER(GatewayInput), ctypes.POINTER(CardInput), ctypes.POINTER(ctypes.c_void_p)]),
    ("vastrel_receipt_build_msr", ctypes.c_int,
     [ctypes.c_uint64, ctypes.POINTER(GatewayInput), ctypes.POINTER(CardInput),
      ctypes.POINTER(ctypes.c_void_p)]),
    ("vastrel_receipt_free", None, [ctypes.c_void_p]),
    ("vastrel_receipt_text", ctypes.c_int,
     [ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_size_t, c_size_p]),
    ("vastrel_receipt_number", ctypes.c_int,
     [ctypes.c_void_p, ctypes.c_int, ctypes.POINTER(ctypes.c_int64)]),
    ("vastrel_set_log_callback", ctypes.c_int, [LOG_CALLBACK, ctypes.c_void_p]),
]


def _load():
    """libvastrel.so from VASTREL_LIBRARY, else through the system's loader path."""
    path = os.environ.get("VASTREL_LIBRARY")
    candidates = [path] if path else ["libvastrel.so.2", ctypes.util.find_library("vastrel")]
    errors = []
    for candidate in candidates:
        if not candidate:
            continue
        try:
            return ctypes.CDLL(candidate)
        except OSError as error:
            errors.append(str(error))
    raise ImportError("vastrel: cannot load libvastrel.so (set VASTREL_LIBRARY to its path): "
                      + "; ".join(errors or ["not found on the loader path"]))


lib = _load()
for _name, _result, _arguments in _FUNCTIONS:
    _function = getattr(lib, _name)
    _function.restype = _result
    _function.argtypes = _arguments
