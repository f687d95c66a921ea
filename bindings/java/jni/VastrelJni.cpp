// The JNI shim of dev.vastrel.NativeLib, over the C interface only. Text crosses as UTF-8
// byte arrays; a failed C call becomes a dev.vastrel.VastrelException carrying the library's
// status and message (an OutOfMemoryError when memory ran out), no C++ exception leaves a
// native method, and a Java exception is never left pending across a further JNI call.
#include <jni.h>

#include <algorithm>
#include <cstdint>
#include <mutex>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "vastrel/vastrel.h"

namespace {

// A pending Java exception, raised on the way out of a native method.
struct JavaThrown {};

void throwJava(JNIEnv* env, const char* type, const std::string& message) {
    if (env->ExceptionCheck()) return;
    jclass found = env->FindClass(type);
    if (found != nullptr) env->ThrowNew(found, message.c_str());
}

void throwVastrel(JNIEnv* env, vastrel_status status, const std::string& message) {
    if (status == VASTREL_ERROR_OUT_OF_MEMORY) {
        throwJava(env, "java/lang/OutOfMemoryError", message);
        return;
    }
    if (env->ExceptionCheck()) return;
    jclass type = env->FindClass("dev/vastrel/VastrelException");
    if (type == nullptr) return;
    jmethodID make = env->GetMethodID(type, "<init>", "(ILjava/lang/String;)V");
    jstring text = env->NewStringUTF(message.c_str());
    if (make == nullptr || text == nullptr) return;
    auto* thrown =
        static_cast<jthrowable>(env->NewObject(type, make, static_cast<jint>(status), text));
    if (thrown != nullptr) env->Throw(thrown);
}

// Throws for any error status; VASTREL_OK and VASTREL_ABSENT pass.
vastrel_status check(JNIEnv* env, vastrel_status status) {
    if (status < 0) {
        throwVastrel(env, status, vastrel_last_error_message());
        throw JavaThrown{};
    }
    return status;
}

// The bytes of a Java byte array; absent for null.
std::optional<std::string> bytesOf(JNIEnv* env, jbyteArray array) {
    if (array == nullptr) return std::nullopt;
    const jsize length = env->GetArrayLength(array);
    std::string bytes(static_cast<std::size_t>(length), '\0');
    env->GetByteArrayRegion(array, 0, length, reinterpret_cast<jbyte*>(bytes.data()));
    if (env->ExceptionCheck()) throw JavaThrown{};
    return bytes;
}

const char* dataOf(const std::optional<std::string>& bytes) {
    return bytes ? bytes->c_str() : nullptr;
}

std::size_t sizeOf(const std::optional<std::string>& bytes) { return bytes ? bytes->size() : 0; }

jbyteArray arrayOf(JNIEnv* env, const char* data, std::size_t length) {
    jbyteArray array = env->NewByteArray(static_cast<jsize>(length));
    if (array == nullptr) throw JavaThrown{};
    env->SetByteArrayRegion(array, 0, static_cast<jsize>(length),
                            reinterpret_cast<const jbyte*>(data));
    return array;
}

// Calls write(out, capacity, &length) into a buffer on the stack, which holds nearly every
// result, and again into one of the size reported when it does not. Null for VASTREL_ABSENT.
template <class Write>
jbyteArray textResult(JNIEnv* env, Write&& write) {
    char small[256];
    std::size_t length = 0;
    vastrel_status status = write(small, sizeof small, &length);
    if (status != VASTREL_ERROR_BUFFER_TOO_SMALL) {
        if (check(env, status) == VASTREL_ABSENT) return nullptr;
        return arrayOf(env, small, length);
    }
    std::string large(length + 1, '\0');
    status = check(env, write(large.data(), large.size(), &length));
    if (status == VASTREL_ABSENT) return nullptr;
    return arrayOf(env, large.data(), length);
}

// Runs body and turns a pending Java exception, or any C++ exception, into the native
// method's return with a Java exception pending.
template <class Result, class Body>
Result guarded(JNIEnv* env, Body&& body) noexcept {
    try {
        return body();
    } catch (const JavaThrown&) {
    } catch (const std::bad_alloc&) {
        throwJava(env, "java/lang/OutOfMemoryError", "out of memory in the Vastrel binding");
    } catch (...) {
        throwJava(env, "java/lang/IllegalStateException",
                  "internal failure in the Vastrel binding");
    }
    return Result{};
}

template <class Pointer>
Pointer* pointerOf(jlong handle) {
    return reinterpret_cast<Pointer*>(static_cast<std::intptr_t>(handle));
}

template <class Pointer>
jlong handleOf(Pointer* pointer) {
    return static_cast<jlong>(reinterpret_cast<std::intptr_t>(pointer));
}

// The log handler. Its context is a global reference to the Consumer<String>; the C interface
// guarantees that once a callback is replaced it is not running and never runs again, so the
// old reference can then be deleted.
JavaVM* javaVm = nullptr;
jclass stringClass = nullptr;         // global reference, taken when the library loads
jmethodID stringFromBytes = nullptr;  // String(byte[], String charsetName)
jmethodID acceptMethod = nullptr;     // Consumer.accept(Object)
std::mutex logMutex;                  // serialises replacements
jobject logHandler = nullptr;

void deliverLogLine(void* handler, const char* line, std::size_t length) {
    JNIEnv* env = nullptr;
    bool attached = false;
    if (javaVm->GetEnv(reinterpret_cast<void**>(&env), JNI_VERSION_1_8) == JNI_EDETACHED) {
        if (javaVm->AttachCurrentThread(reinterpret_cast<void**>(&env), nullptr) != JNI_OK) return;
        attached = true;
    }
    if (env->PushLocalFrame(4) == JNI_OK) {
        jbyteArray bytes = env->NewByteArray(static_cast<jsize>(length));
        if (bytes != nullptr) {
            env->SetByteArrayRegion(bytes, 0, static_cast<jsize>(length),
                                    reinterpret_cast<const jbyte*>(line));
            jobject text =
                env->NewObject(stringClass, stringFromBytes, bytes, env->NewStringUTF("UTF-8"));
            if (text != nullptr)
                env->CallVoidMethod(static_cast<jobject>(handler), acceptMethod, text);
        }
        // A handler that throws loses its line; the library's caller carries on.
        if (env->ExceptionCheck()) env->ExceptionClear();
        env->PopLocalFrame(nullptr);
    }
    if (attached) javaVm->DetachCurrentThread();
}

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL JNI_OnLoad(JavaVM* vm, void*) {
    javaVm = vm;
    JNIEnv* env = nullptr;
    if (vm->GetEnv(reinterpret_cast<void**>(&env), JNI_VERSION_1_8) != JNI_OK) return JNI_ERR;
    jclass local = env->FindClass("java/lang/String");
    if (local == nullptr) return JNI_ERR;
    stringClass = static_cast<jclass>(env->NewGlobalRef(local));
    stringFromBytes = env->GetMethodID(stringClass, "<init>", "([BLjava/lang/String;)V");
    jclass consumer = env->FindClass("java/util/function/Consumer");
    if (consumer == nullptr) return JNI_ERR;
    acceptMethod = env->GetMethodID(consumer, "accept", "(Ljava/lang/Object;)V");
    return stringFromBytes == nullptr || acceptMethod == nullptr ? JNI_ERR : JNI_VERSION_1_8;
}

#define VASTREL_JNI(name) Java_dev_vastrel_NativeLib_##name

JNIEXPORT jstring JNICALL VASTREL_JNI(version)(JNIEnv* env, jclass) {
    return env->NewStringUTF(vastrel_version());
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(hexToBytes)(JNIEnv* env, jclass, jbyteArray hex) {
    return guarded<jbyteArray>(env, [&] {
        const auto text = bytesOf(env, hex);
        std::size_t length = 0;
        std::vector<std::uint8_t> bytes(sizeOf(text) / 2);
        check(env, vastrel_hex_to_bytes(dataOf(text), sizeOf(text), bytes.data(), bytes.size(),
                                        &length));
        return arrayOf(env, reinterpret_cast<const char*>(bytes.data()), length);
    });
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(hexClean)(JNIEnv* env, jclass, jbyteArray text) {
    return guarded<jbyteArray>(env, [&] {
        const auto bytes = bytesOf(env, text);
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return vastrel_hex_clean(dataOf(bytes), sizeOf(bytes), out, capacity, length);
        });
    });
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(bytesToHex)(JNIEnv* env, jclass, jbyteArray data) {
    return guarded<jbyteArray>(env, [&] {
        const auto bytes = bytesOf(env, data);
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return vastrel_bytes_to_hex(reinterpret_cast<const std::uint8_t*>(dataOf(bytes)),
                                        sizeOf(bytes), out, capacity, length);
        });
    });
}

namespace {

// Room a thread reuses from one decode to the next, so that a decode allocates nothing
// native once the thread has seen data of its size.
struct DecodeScratch {
    std::vector<vastrel_ber_node> nodes;
};

DecodeScratch& scratch() {
    thread_local DecodeScratch instance;
    return instance;
}

// A strict read's nodes packed for TlvList: count, fault kind, fault offset, 0, then eight
// numbers per element.
jintArray packed(JNIEnv* env, DecodeScratch& room, std::size_t count, int kind,
                 std::size_t offset) {
    constexpr std::size_t kHeader = 4;
    constexpr std::size_t kFields = 8;
    const auto size = static_cast<jsize>(kHeader + kFields * count);
    jintArray array = env->NewIntArray(size);
    if (array == nullptr) throw JavaThrown{};
    // Written in place: no staging copy.
    auto* packed = static_cast<jint*>(env->GetPrimitiveArrayCritical(array, nullptr));
    if (packed == nullptr) throw JavaThrown{};
    packed[0] = static_cast<jint>(count);
    packed[1] = kind;
    packed[2] = static_cast<jint>(offset);
    packed[3] = 0;
    jint* at = packed + kHeader;
    for (std::size_t i = 0; i < count; ++i, at += kFields) {
        const vastrel_ber_node& node = room.nodes[i];
        at[0] = static_cast<jint>(node.tag);
        at[1] = static_cast<jint>(node.depth);
        at[2] = node.parent == VASTREL_BER_NO_PARENT ? -1 : static_cast<jint>(node.parent);
        at[3] = node.constructed;
        at[4] = static_cast<jint>(node.value_offset);
        at[5] = static_cast<jint>(node.value_length);
        at[6] = static_cast<jint>(node.offset);
        at[7] = static_cast<jint>(node.tag_length);
    }
    env->ReleasePrimitiveArrayCritical(array, packed, 0);
    return array;
}

// The strict read of bytes, packed.
jintArray packedRead(JNIEnv* env, const std::uint8_t* bytes, std::size_t size) {
    DecodeScratch& room = scratch();
    // At most one element per two bytes: a tag and a length byte each.
    if (room.nodes.size() < size / 2 + 1) room.nodes.resize(size / 2 + 1);
    std::size_t count = 0, offset = 0;
    int kind = 0;
    check(env, vastrel_ber_read(bytes, size, 0, room.nodes.data(), room.nodes.size(),
                                sizeof(vastrel_ber_node), &count, &kind, &offset));
    return packed(env, room, count, kind, offset);
}

}  // namespace

JNIEXPORT jintArray JNICALL VASTREL_JNI(decodeHex)(JNIEnv* env, jclass, jbyteArray hex,
                                                   jbyteArray data) {
    return guarded<jintArray>(env, [&] {
        // hex holds one byte per character (ISO 8859-1, '?' for any other), so a fault's
        // offset is the character's. The arrays are read and written in place.
        const auto hexLength = static_cast<std::size_t>(env->GetArrayLength(hex));
        const auto dataLength = static_cast<std::size_t>(env->GetArrayLength(data));
        DecodeScratch& room = scratch();
        if (room.nodes.size() < dataLength + 1) room.nodes.resize(dataLength + 1);
        std::size_t length = 0, count = 0, offset = 0;
        int kind = 0;
        vastrel_status status = VASTREL_ERROR_OUT_OF_MEMORY;
        void* text = env->GetPrimitiveArrayCritical(hex, nullptr);
        void* bytes = text == nullptr ? nullptr : env->GetPrimitiveArrayCritical(data, nullptr);
        if (bytes != nullptr) {
            status = vastrel_hex_to_bytes(static_cast<const char*>(text), hexLength,
                                          static_cast<std::uint8_t*>(bytes), dataLength, &length);
            if (status == VASTREL_OK) {
                status = vastrel_ber_read(static_cast<const std::uint8_t*>(bytes), length, 0,
                                          room.nodes.data(), room.nodes.size(),
                                          sizeof(vastrel_ber_node), &count, &kind, &offset);
            }
            env->ReleasePrimitiveArrayCritical(data, bytes, 0);
        }
        if (text != nullptr) env->ReleasePrimitiveArrayCritical(hex, text, JNI_ABORT);
        check(env, status);
        return packed(env, room, count, kind, offset);
    });
}

JNIEXPORT jintArray JNICALL VASTREL_JNI(decodeBytes)(JNIEnv* env, jclass, jbyteArray data) {
    return guarded<jintArray>(env, [&] {
        const auto bytes = bytesOf(env, data);
        return packedRead(env, reinterpret_cast<const std::uint8_t*>(dataOf(bytes)), sizeOf(bytes));
    });
}

JNIEXPORT jint JNICALL VASTREL_JNI(schemeOf)(JNIEnv* env, jclass, jbyteArray data) {
    return guarded<jint>(env, [&] {
        const auto bytes = bytesOf(env, data);
        vastrel_tlv_list* list = nullptr;
        // The data read once already; a fault here only ends the search for an AID early.
        const vastrel_status status = vastrel_tlv_decode_bytes(
            reinterpret_cast<const std::uint8_t*>(dataOf(bytes)), sizeOf(bytes), &list);
        int scheme = VASTREL_SCHEME_UNKNOWN;
        if (list != nullptr) vastrel_tlv_list_scheme(list, &scheme);
        vastrel_tlv_list_free(list);
        if (status != VASTREL_ERROR_MALFORMED_DATA) check(env, status);
        return static_cast<jint>(scheme);
    });
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(tagNameInScheme)(JNIEnv* env, jclass, jint tag,
                                                          jint scheme) {
    return guarded<jbyteArray>(env, [&] {
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return vastrel_tag_name_in_scheme(static_cast<std::uint32_t>(tag), scheme, out,
                                              capacity, length);
        });
    });
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(explainJson)(JNIEnv* env, jclass, jbyteArray data,
                                                      jboolean showSensitive) {
    return guarded<jbyteArray>(env, [&] {
        const auto bytes = bytesOf(env, data);
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return vastrel_explain_json(reinterpret_cast<const std::uint8_t*>(dataOf(bytes)),
                                        sizeOf(bytes), showSensitive ? 1 : 0, out, capacity,
                                        length);
        });
    });
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(explainSessionJson)(JNIEnv* env, jclass, jbyteArray trace,
                                                             jbyteArray caKeys,
                                                             jboolean showSensitive) {
    return guarded<jbyteArray>(env, [&] {
        const auto text = bytesOf(env, trace);
        const auto keys = bytesOf(env, caKeys);
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return vastrel_explain_session_json_with_keys(dataOf(text), sizeOf(text), dataOf(keys),
                                                          sizeOf(keys), showSensitive ? 1 : 0, out,
                                                          capacity, length);
        });
    });
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(checkCaKeysJson)(JNIEnv* env, jclass, jbyteArray keys) {
    return guarded<jbyteArray>(env, [&] {
        const auto text = bytesOf(env, keys);
        std::size_t failed = 0;
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return vastrel_ca_keys_check_json(dataOf(text), sizeOf(text), &failed, out, capacity,
                                              length);
        });
    });
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(tagName)(JNIEnv* env, jclass, jbyteArray tag) {
    return guarded<jbyteArray>(env, [&] {
        const auto bytes = bytesOf(env, tag);
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return vastrel_tag_name(dataOf(bytes), sizeOf(bytes), out, capacity, length);
        });
    });
}

JNIEXPORT jlong JNICALL VASTREL_JNI(cvmResultFromTlv)(JNIEnv* env, jclass, jbyteArray value) {
    return guarded<jlong>(env, [&] {
        const auto bytes = bytesOf(env, value);
        std::int64_t result = 0;
        check(env, vastrel_cvm_result_from_tlv(dataOf(bytes), sizeOf(bytes), &result));
        return static_cast<jlong>(result);
    });
}

JNIEXPORT jlong JNICALL VASTREL_JNI(cardholderAuthenticationMethodFromTlv)(JNIEnv* env, jclass,
                                                                           jbyteArray value) {
    return guarded<jlong>(env, [&] {
        const auto bytes = bytesOf(env, value);
        std::uint64_t method = 0;
        check(env, vastrel_cardholder_authentication_method_from_tlv(dataOf(bytes), sizeOf(bytes),
                                                                     &method));
        return static_cast<jlong>(method);
    });
}

JNIEXPORT jlong JNICALL VASTREL_JNI(cardTypeFromPan)(JNIEnv* env, jclass, jbyteArray pan) {
    return guarded<jlong>(env, [&] {
        const auto bytes = bytesOf(env, pan);
        std::uint64_t type = 0;
        check(env, vastrel_card_type_from_pan(dataOf(bytes), sizeOf(bytes), &type));
        return static_cast<jlong>(type);
    });
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(enumDisplayString)(JNIEnv* env, jclass, jlong type,
                                                            jlong value) {
    return guarded<jbyteArray>(env, [&] {
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return vastrel_enum_display_string(static_cast<std::uint64_t>(type),
                                               static_cast<std::uint64_t>(value), out, capacity,
                                               length);
        });
    });
}

JNIEXPORT jlong JNICALL VASTREL_JNI(buildReceipt)(JNIEnv* env, jclass, jboolean emv,
                                                  jlong transactionType, jobjectArray gateway,
                                                  jobjectArray card, jlong cardSource) {
    return guarded<jlong>(env, [&] {
        // Entry i of texts, NUL-terminated by std::string; absent for null.
        const auto entries = [&](jobjectArray texts) {
            std::vector<std::optional<std::string>> result(3);
            for (jsize i = 0; texts != nullptr && i < 3 && i < env->GetArrayLength(texts); ++i) {
                auto element = static_cast<jbyteArray>(env->GetObjectArrayElement(texts, i));
                result[static_cast<std::size_t>(i)] = bytesOf(env, element);
                env->DeleteLocalRef(element);
            }
            return result;
        };
        const auto gatewayTexts = entries(gateway);
        const auto cardTexts = entries(card);
        const vastrel_gateway_input gatewayInput = {
            sizeof(vastrel_gateway_input), dataOf(gatewayTexts[0]), dataOf(gatewayTexts[1]),
            dataOf(gatewayTexts[2])};
        const vastrel_card_input cardInput = {
            sizeof(vastrel_card_input), dataOf(cardTexts[0]), dataOf(cardTexts[1]),
            static_cast<std::uint64_t>(cardSource), dataOf(cardTexts[2])};
        const vastrel_gateway_input* gatewayArgument = gateway ? &gatewayInput : nullptr;
        const vastrel_card_input* cardArgument = card ? &cardInput : nullptr;
        vastrel_receipt* receipt = nullptr;
        check(env, emv ? vastrel_receipt_build_emv(gatewayArgument, cardArgument, &receipt)
                       : vastrel_receipt_build_msr(static_cast<std::uint64_t>(transactionType),
                                                   gatewayArgument, cardArgument, &receipt));
        return handleOf(receipt);
    });
}

JNIEXPORT void JNICALL VASTREL_JNI(freeReceipt)(JNIEnv*, jclass, jlong receipt) {
    vastrel_receipt_free(pointerOf<vastrel_receipt>(receipt));
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(receiptText)(JNIEnv* env, jclass, jlong receipt,
                                                      jint field) {
    return guarded<jbyteArray>(env, [&] {
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return vastrel_receipt_text(pointerOf<const vastrel_receipt>(receipt), field, out,
                                        capacity, length);
        });
    });
}

JNIEXPORT jlongArray JNICALL VASTREL_JNI(receiptNumber)(JNIEnv* env, jclass, jlong receipt,
                                                        jint field) {
    return guarded<jlongArray>(env, [&]() -> jlongArray {
        std::int64_t value = 0;
        const vastrel_status status = check(
            env, vastrel_receipt_number(pointerOf<const vastrel_receipt>(receipt), field, &value));
        if (status == VASTREL_ABSENT) return nullptr;
        jlongArray result = env->NewLongArray(1);
        if (result == nullptr) throw JavaThrown{};
        const jlong number = static_cast<jlong>(value);
        env->SetLongArrayRegion(result, 0, 1, &number);
        return result;
    });
}

JNIEXPORT void JNICALL VASTREL_JNI(setLogHandler)(JNIEnv* env, jclass, jobject handler) {
    guarded<int>(env, [&] {
        const std::lock_guard lock(logMutex);
        jobject replacement = handler != nullptr ? env->NewGlobalRef(handler) : nullptr;
        const vastrel_status status = vastrel_set_log_callback(
            replacement != nullptr ? deliverLogLine : nullptr, replacement);
        if (status != VASTREL_OK && replacement != nullptr) env->DeleteGlobalRef(replacement);
        check(env, status);
        // The old handler is not running and never will again: its reference can go.
        if (logHandler != nullptr) env->DeleteGlobalRef(logHandler);
        logHandler = replacement;
        return 0;
    });
}

}  // extern "C"
