// The JNI shim of dev.vastrel.NativeLib, over the C interface only. Text crosses as UTF-8
// byte arrays; a failed C call becomes an IllegalArgumentException carrying the library's
// message, and a Java exception is never left pending across a further JNI call.
#include <jni.h>

#include <algorithm>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "vastrel/vastrel.h"

namespace {

// A pending Java exception, raised on the way out of a native method.
struct JavaThrown {};

void throwIllegalArgument(JNIEnv* env, const std::string& message) {
    if (env->ExceptionCheck()) return;
    jclass type = env->FindClass("java/lang/IllegalArgumentException");
    if (type != nullptr) env->ThrowNew(type, message.c_str());
}

// Throws for any error status; VASTREL_OK and VASTREL_ABSENT pass.
vastrel_status check(JNIEnv* env, vastrel_status status) {
    if (status < 0) {
        throwIllegalArgument(
            env, std::string(vastrel_status_text(status)) + ": " + vastrel_last_error_message());
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

// Runs body and turns a pending Java exception into the native method's return.
template <class Result, class Body>
Result guarded(Body&& body) {
    try {
        return body();
    } catch (const JavaThrown&) {
        return Result{};
    }
}

template <class Pointer>
Pointer* pointerOf(jlong handle) {
    return reinterpret_cast<Pointer*>(static_cast<std::intptr_t>(handle));
}

template <class Pointer>
jlong handleOf(Pointer* pointer) {
    return static_cast<jlong>(reinterpret_cast<std::intptr_t>(pointer));
}

// The log handler: one global reference to a Consumer<String>, replaced under a lock.
JavaVM* javaVm = nullptr;
jclass stringClass = nullptr;         // global reference, taken when the library loads
jmethodID stringFromBytes = nullptr;  // String(byte[], String charsetName)
std::recursive_mutex logMutex;        // a handler may replace itself
jobject logHandler = nullptr;
jmethodID acceptMethod = nullptr;

void deliverLogLine(void*, const char* line, std::size_t length) {
    JNIEnv* env = nullptr;
    bool attached = false;
    if (javaVm->GetEnv(reinterpret_cast<void**>(&env), JNI_VERSION_1_8) == JNI_EDETACHED) {
        if (javaVm->AttachCurrentThread(reinterpret_cast<void**>(&env), nullptr) != JNI_OK) return;
        attached = true;
    }
    {
        const std::lock_guard lock(logMutex);
        if (logHandler != nullptr && env->PushLocalFrame(4) == JNI_OK) {
            jbyteArray bytes = env->NewByteArray(static_cast<jsize>(length));
            env->SetByteArrayRegion(bytes, 0, static_cast<jsize>(length),
                                    reinterpret_cast<const jbyte*>(line));
            jobject text =
                env->NewObject(stringClass, stringFromBytes, bytes, env->NewStringUTF("UTF-8"));
            if (text != nullptr) env->CallVoidMethod(logHandler, acceptMethod, text);
            // A handler that throws loses its line; the library's caller carries on.
            if (env->ExceptionCheck()) env->ExceptionClear();
            env->PopLocalFrame(nullptr);
        }
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
    return stringFromBytes == nullptr ? JNI_ERR : JNI_VERSION_1_8;
}

#define VASTREL_JNI(name) Java_dev_vastrel_NativeLib_##name

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(hexToBytes)(JNIEnv* env, jclass, jbyteArray hex) {
    return guarded<jbyteArray>([&] {
        const auto text = bytesOf(env, hex);
        std::size_t length = 0;
        std::vector<std::uint8_t> bytes(sizeOf(text) / 2);
        check(env, vastrel_hex_to_bytes(dataOf(text), sizeOf(text), bytes.data(), bytes.size(),
                                        &length));
        return arrayOf(env, reinterpret_cast<const char*>(bytes.data()), length);
    });
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(bytesToHex)(JNIEnv* env, jclass, jbyteArray data) {
    return guarded<jbyteArray>([&] {
        const auto bytes = bytesOf(env, data);
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return vastrel_bytes_to_hex(reinterpret_cast<const std::uint8_t*>(dataOf(bytes)),
                                        sizeOf(bytes), out, capacity, length);
        });
    });
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(textToHex)(JNIEnv* env, jclass, jbyteArray text) {
    return guarded<jbyteArray>([&] {
        const auto bytes = bytesOf(env, text);
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return vastrel_text_to_hex(dataOf(bytes), sizeOf(bytes), out, capacity, length);
        });
    });
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(hexToText)(JNIEnv* env, jclass, jbyteArray hex) {
    return guarded<jbyteArray>([&] {
        const auto bytes = bytesOf(env, hex);
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return vastrel_hex_to_text(dataOf(bytes), sizeOf(bytes), out, capacity, length);
        });
    });
}

JNIEXPORT jobjectArray JNICALL VASTREL_JNI(split)(JNIEnv* env, jclass, jbyteArray hex) {
    return guarded<jobjectArray>([&]() -> jobjectArray {
        const auto bytes = bytesOf(env, hex);
        vastrel_string_list* list = nullptr;
        check(env, vastrel_tlv_split(dataOf(bytes), sizeOf(bytes), &list));
        struct Release {
            vastrel_string_list* list;
            ~Release() { vastrel_string_list_free(list); }
        } release{list};
        std::size_t count = 0;
        check(env, vastrel_string_list_count(list, &count));
        jclass bytesClass = env->FindClass("[B");
        jobjectArray pieces = env->NewObjectArray(static_cast<jsize>(count), bytesClass, nullptr);
        if (pieces == nullptr) throw JavaThrown{};
        for (std::size_t i = 0; i < count; ++i) {
            jbyteArray piece =
                textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
                    return vastrel_string_list_at(list, i, out, capacity, length);
                });
            env->SetObjectArrayElement(pieces, static_cast<jsize>(i), piece);
            env->DeleteLocalRef(piece);
        }
        return pieces;
    });
}

JNIEXPORT jlongArray JNICALL VASTREL_JNI(readBer)(JNIEnv* env, jclass, jbyteArray data,
                                                  jint maxDepth) {
    return guarded<jlongArray>([&] {
        const auto bytes = bytesOf(env, data);
        const auto* input = reinterpret_cast<const std::uint8_t*>(dataOf(bytes));
        const auto depth = static_cast<std::uint32_t>(std::max<jint>(maxDepth, 0));
        std::size_t count = 0;
        int kind = 0;
        std::size_t offset = 0;
        std::vector<vastrel_ber_node> nodes(sizeOf(bytes) / 2 + 1);
        check(env, vastrel_ber_read(input, sizeOf(bytes), depth, nodes.data(), nodes.size(), &count,
                                    &kind, &offset));
        std::vector<jlong> packed = {static_cast<jlong>(count), kind, static_cast<jlong>(offset)};
        for (std::size_t i = 0; i < count; ++i) {
            const vastrel_ber_node& node = nodes[i];
            packed.insert(
                packed.end(),
                {static_cast<jint>(node.tag), static_cast<jlong>(node.offset),
                 static_cast<jlong>(node.tag_length), static_cast<jlong>(node.value_offset),
                 static_cast<jlong>(node.value_length), node.depth, static_cast<jint>(node.parent),
                 node.subtree_end, node.constructed});
        }
        jlongArray array = env->NewLongArray(static_cast<jsize>(packed.size()));
        if (array == nullptr) throw JavaThrown{};
        env->SetLongArrayRegion(array, 0, static_cast<jsize>(packed.size()), packed.data());
        return array;
    });
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(explainJson)(JNIEnv* env, jclass, jbyteArray data,
                                                      jboolean showSensitive) {
    return guarded<jbyteArray>([&] {
        const auto bytes = bytesOf(env, data);
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return vastrel_explain_json(reinterpret_cast<const std::uint8_t*>(dataOf(bytes)),
                                        sizeOf(bytes), showSensitive ? 1 : 0, out, capacity,
                                        length);
        });
    });
}

JNIEXPORT jlong JNICALL VASTREL_JNI(decode)(JNIEnv* env, jclass, jbyteArray hex) {
    return guarded<jlong>([&] {
        const auto bytes = bytesOf(env, hex);
        vastrel_tlv_list* list = nullptr;
        check(env, vastrel_tlv_decode(dataOf(bytes), sizeOf(bytes), &list));
        return handleOf(list);
    });
}

JNIEXPORT void JNICALL VASTREL_JNI(freeList)(JNIEnv*, jclass, jlong list) {
    vastrel_tlv_list_free(pointerOf<vastrel_tlv_list>(list));
}

JNIEXPORT jint JNICALL VASTREL_JNI(listCount)(JNIEnv* env, jclass, jlong list) {
    return guarded<jint>([&] {
        std::size_t count = 0;
        check(env, vastrel_tlv_list_count(pointerOf<vastrel_tlv_list>(list), &count));
        return static_cast<jint>(count);
    });
}

JNIEXPORT jlong JNICALL VASTREL_JNI(listAt)(JNIEnv* env, jclass, jlong list, jint index) {
    return guarded<jlong>([&] {
        const vastrel_tlv* element = nullptr;
        check(env, vastrel_tlv_list_at(pointerOf<vastrel_tlv_list>(list),
                                       static_cast<std::size_t>(index), &element));
        return handleOf(element);
    });
}

JNIEXPORT jint JNICALL VASTREL_JNI(childCount)(JNIEnv* env, jclass, jlong element) {
    return guarded<jint>([&] {
        std::size_t count = 0;
        check(env, vastrel_tlv_child_count(pointerOf<const vastrel_tlv>(element), &count));
        return static_cast<jint>(count);
    });
}

JNIEXPORT jlong JNICALL VASTREL_JNI(childAt)(JNIEnv* env, jclass, jlong element, jint index) {
    return guarded<jlong>([&] {
        const vastrel_tlv* child = nullptr;
        check(env, vastrel_tlv_child_at(pointerOf<const vastrel_tlv>(element),
                                        static_cast<std::size_t>(index), &child));
        return handleOf(child);
    });
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(elementText)(JNIEnv* env, jclass, jlong element,
                                                      jint which) {
    using Reader = vastrel_status (*)(const vastrel_tlv*, char*, std::size_t, std::size_t*);
    static constexpr Reader kReaders[] = {vastrel_tlv_tag, vastrel_tlv_name, vastrel_tlv_value};
    return guarded<jbyteArray>([&] {
        if (which < 0 || which > 2) {
            throwIllegalArgument(env, "no element text " + std::to_string(which));
            throw JavaThrown{};
        }
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return kReaders[which](pointerOf<const vastrel_tlv>(element), out, capacity, length);
        });
    });
}

JNIEXPORT jlong JNICALL VASTREL_JNI(elementLength)(JNIEnv* env, jclass, jlong element) {
    return guarded<jlong>([&] {
        std::int64_t length = 0;
        check(env, vastrel_tlv_length(pointerOf<const vastrel_tlv>(element), &length));
        return static_cast<jlong>(length);
    });
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(tagName)(JNIEnv* env, jclass, jbyteArray tag) {
    return guarded<jbyteArray>([&] {
        const auto bytes = bytesOf(env, tag);
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return vastrel_tag_name(dataOf(bytes), sizeOf(bytes), out, capacity, length);
        });
    });
}

JNIEXPORT jlong JNICALL VASTREL_JNI(cvmResultFromTlv)(JNIEnv* env, jclass, jbyteArray value) {
    return guarded<jlong>([&] {
        const auto bytes = bytesOf(env, value);
        std::int64_t result = 0;
        check(env, vastrel_cvm_result_from_tlv(dataOf(bytes), sizeOf(bytes), &result));
        return static_cast<jlong>(result);
    });
}

JNIEXPORT jlong JNICALL VASTREL_JNI(cardholderAuthenticationMethodFromTlv)(JNIEnv* env, jclass,
                                                                           jbyteArray value) {
    return guarded<jlong>([&] {
        const auto bytes = bytesOf(env, value);
        std::uint64_t method = 0;
        check(env, vastrel_cardholder_authentication_method_from_tlv(dataOf(bytes), sizeOf(bytes),
                                                                     &method));
        return static_cast<jlong>(method);
    });
}

JNIEXPORT jlong JNICALL VASTREL_JNI(cardTypeFromPan)(JNIEnv* env, jclass, jbyteArray pan) {
    return guarded<jlong>([&] {
        const auto bytes = bytesOf(env, pan);
        std::uint64_t type = 0;
        check(env, vastrel_card_type_from_pan(dataOf(bytes), sizeOf(bytes), &type));
        return static_cast<jlong>(type);
    });
}

JNIEXPORT jbyteArray JNICALL VASTREL_JNI(enumDisplayString)(JNIEnv* env, jclass, jlong type,
                                                            jlong value) {
    return guarded<jbyteArray>([&] {
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
    return guarded<jlong>([&] {
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
            dataOf(gatewayTexts[0]), dataOf(gatewayTexts[1]), dataOf(gatewayTexts[2])};
        const vastrel_card_input cardInput = {dataOf(cardTexts[0]), dataOf(cardTexts[1]),
                                              static_cast<std::uint64_t>(cardSource),
                                              dataOf(cardTexts[2])};
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
    return guarded<jbyteArray>([&] {
        return textResult(env, [&](char* out, std::size_t capacity, std::size_t* length) {
            return vastrel_receipt_text(pointerOf<const vastrel_receipt>(receipt), field, out,
                                        capacity, length);
        });
    });
}

JNIEXPORT jlongArray JNICALL VASTREL_JNI(receiptNumber)(JNIEnv* env, jclass, jlong receipt,
                                                        jint field) {
    return guarded<jlongArray>([&]() -> jlongArray {
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
    const std::lock_guard lock(logMutex);
    if (logHandler != nullptr) env->DeleteGlobalRef(logHandler);
    logHandler = nullptr;
    if (handler == nullptr) {
        vastrel_set_log_callback(nullptr, nullptr);
        return;
    }
    jclass consumer = env->FindClass("java/util/function/Consumer");
    if (consumer == nullptr) return;
    acceptMethod = env->GetMethodID(consumer, "accept", "(Ljava/lang/Object;)V");
    logHandler = env->NewGlobalRef(handler);
    vastrel_set_log_callback(deliverLogLine, nullptr);
}

JNIEXPORT void JNICALL VASTREL_JNI(setLoggingEnabled)(JNIEnv*, jclass, jboolean enabled) {
    vastrel_set_logging_enabled(enabled ? 1 : 0);
}

}  // extern "C"
