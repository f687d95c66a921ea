#include "vastrel/Codec/TLVObject.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "vastrel/Codec/BerLength.hpp"
#include "vastrel/Codec/Tag.hpp"

namespace vastrel {
namespace {

// text read as a decimal integer the way the platform's integerValue reads it: leading
// blanks, an optional sign, then digits up to the first non-digit; 0 without digits,
// clamped to the 64-bit range.
std::int64_t integerValue(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || (text[i] >= '\t' && text[i] <= '\r')))
        ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
    constexpr std::uint64_t kMaxMagnitude =
        static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()) + 1;
    std::uint64_t magnitude = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
        // Saturated before multiplying, so that no digit count can wrap the number around.
        const auto digit = static_cast<std::uint64_t>(text[i] - '0');
        magnitude = magnitude > kMaxMagnitude / 10
                        ? kMaxMagnitude
                        : std::min(magnitude * 10 + digit, kMaxMagnitude);
    }
    if (negative) return static_cast<std::int64_t>(0 - magnitude);
    return magnitude >= kMaxMagnitude ? std::numeric_limits<std::int64_t>::max()
                                      : static_cast<std::int64_t>(magnitude);
}

}  // namespace

TLVObject::TLVObject() : tagName_(""), tag_(""), length_(""), value_("") {}

TLVObject::TLVObject(const TLVObject& other) {
    // Each pending pair is an element and its copy, whose fields and children are still to
    // be copied.
    std::vector<std::pair<const TLVObject*, TLVObject*>> pending = {{&other, this}};
    while (!pending.empty()) {
        const auto [source, copy] = pending.back();
        pending.pop_back();
        copy->tagName_ = source->tagName_;
        copy->tag_ = source->tag_;
        copy->length_ = source->length_;
        copy->value_ = source->value_;
        if (!source->innerTlvs_) continue;
        // Sized once, so the addresses pushed below stay valid.
        const std::vector<TLVObject>& children = *source->innerTlvs_;
        std::vector<TLVObject>& copies = copy->innerTlvs_.emplace(children.size());
        for (std::size_t i = 0; i < children.size(); ++i)
            pending.emplace_back(&children[i], &copies[i]);
    }
}

TLVObject& TLVObject::operator=(const TLVObject& other) {
    if (this != &other) *this = TLVObject(other);
    return *this;
}

TLVObject::~TLVObject() {
    if (!innerTlvs_ || innerTlvs_->empty()) return;
    std::vector<TLVObject> pending = std::move(*innerTlvs_);
    innerTlvs_.reset();
    while (!pending.empty()) {
        TLVObject element = std::move(pending.back());
        pending.pop_back();
        if (element.innerTlvs_) {
            for (TLVObject& child : *element.innerTlvs_)
                pending.push_back(std::move(child));
            element.innerTlvs_.reset();
        }
    }
}

// Same result as init followed by the two setters, without building two empty strings
// first: the decoder makes one of these per element.
TLVObject::TLVObject(std::string_view tag)
    : tagName_(Tag::tagName(tag)), tag_(std::in_place, tag), length_(""), value_("") {}

TLVObject::TLVObject(std::string tag, std::string tagName, std::string length, std::string value)
    : tagName_(std::move(tagName)),
      tag_(std::move(tag)),
      length_(std::move(length)),
      value_(std::move(value)) {}

std::optional<std::string> TLVObject::generateHexStringFromTLVObject(const TLVObject* object) {
    if (object == nullptr) return std::nullopt;
    // The length field comes from the length text, never from the value: callers that set
    // them apart get what they set.
    const std::string lengthField =
        object->length_ ? BerLength::getEncodedLengthHexString(
                              static_cast<std::uint64_t>(integerValue(*object->length_)))
                        : std::string("00");
    std::string out;
    out.reserve((object->tag_ ? object->tag_->size() : 0) + lengthField.size() +
                (object->value_ ? object->value_->size() : 0));
    if (object->tag_) out += *object->tag_;
    out += lengthField;
    if (object->value_) out += *object->value_;
    return out;
}

}  // namespace vastrel
