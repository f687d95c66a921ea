#include "vastrel/Codec/BerReader.hpp"

namespace vastrel {
namespace {

constexpr std::uint8_t kConstructedBit = 0x20;
constexpr std::uint8_t kTagNumberMask = 0x1F;  // all ones: more tag bytes follow
constexpr std::uint8_t kMoreTagBytes = 0x80;
constexpr std::uint8_t kLongFormBit = 0x80;
constexpr std::uint8_t kIndefiniteLength = 0x80;
constexpr std::size_t kMaxLengthBytes = 4;

// One pass over the input. `open` is the innermost template still being read; its value
// ends at `limit`. Parents are found through the nodes themselves, so there is no stack.
class Reading {
  public:
    Reading(std::span<const std::uint8_t> data, BerReadResult& result, std::uint32_t maxDepth)
        : data_(data), result_(result), maxDepth_(maxDepth), limit_(data.size()) {}

    void run() {
        while (true) {
            closeFinishedTemplates();
            if (pos_ >= limit_) return;
            if (data_[pos_] == 0x00) {
                ++result_.paddingBytes;
                ++pos_;
                continue;
            }
            if (!readElement()) {
                closeAllTemplates();
                return;
            }
        }
    }

  private:
    std::uint32_t depth() const {
        return open_ == BerNode::kNoParent ? 0 : result_.nodes[open_].depth + 1;
    }

    std::size_t valueEnd(const BerNode& node) const {
        return static_cast<std::size_t>(node.value.data() - data_.data()) + node.value.size();
    }

    void closeFinishedTemplates() {
        auto& nodes = result_.nodes;
        while (open_ != BerNode::kNoParent && pos_ >= limit_) {
            nodes[open_].subtreeEnd = static_cast<std::uint32_t>(nodes.size());
            open_ = nodes[open_].parent;
            limit_ = open_ == BerNode::kNoParent ? data_.size() : valueEnd(nodes[open_]);
        }
    }

    void closeAllTemplates() {
        auto& nodes = result_.nodes;
        for (; open_ != BerNode::kNoParent; open_ = nodes[open_].parent) {
            nodes[open_].subtreeEnd = static_cast<std::uint32_t>(nodes.size());
        }
    }

    bool fail(BerErrorKind kind, std::size_t offset) {
        result_.error = BerError{kind, offset};
        return false;
    }

    // Reads the element at pos_, appends it and steps over its header (into a template) or
    // over the whole element. False, with the error set, when it cannot be read.
    bool readElement() {
        const std::size_t start = pos_;
        const std::uint32_t level = depth();
        if (level >= maxDepth_) return fail(BerErrorKind::TooDeep, start);

        std::size_t at = start + 1;
        if ((data_[start] & kTagNumberMask) == kTagNumberMask) {
            while (at < limit_ && (data_[at] & kMoreTagBytes) != 0)
                ++at;
            if (at >= limit_) return fail(BerErrorKind::TruncatedTag, start);
            ++at;
        }
        const std::size_t tagEnd = at;

        if (at >= limit_) return fail(BerErrorKind::TruncatedLength, start);
        const std::uint8_t first = data_[at++];
        std::size_t length = first;
        if ((first & kLongFormBit) != 0) {
            if (first == kIndefiniteLength) return fail(BerErrorKind::IndefiniteLength, start);
            const std::size_t count = first & 0x7F;
            if (count > kMaxLengthBytes) return fail(BerErrorKind::LengthTooLarge, start);
            if (count > limit_ - at) return fail(BerErrorKind::TruncatedLength, start);
            length = 0;
            for (std::size_t i = 0; i < count; ++i)
                length = length << 8 | data_[at++];
        }
        if (length > limit_ - at) return fail(BerErrorKind::LengthPastEnd, start);

        const bool constructed = (data_[start] & kConstructedBit) != 0;
        auto& nodes = result_.nodes;
        const auto index = static_cast<std::uint32_t>(nodes.size());
        nodes.push_back(BerNode{data_.subspan(start, tagEnd - start), data_.subspan(at, length),
                                start, level, open_, index + 1,
                                static_cast<std::uint8_t>(at - tagEnd), constructed});
        if (constructed) {
            open_ = index;
            limit_ = at + length;
            pos_ = at;
        } else {
            pos_ = at + length;
        }
        return true;
    }

    std::span<const std::uint8_t> data_;
    BerReadResult& result_;
    std::uint32_t maxDepth_;
    std::size_t pos_ = 0;
    std::uint32_t open_ = BerNode::kNoParent;
    std::size_t limit_;
};

}  // namespace

std::string_view describe(BerErrorKind kind) noexcept {
    switch (kind) {
        case BerErrorKind::TruncatedTag:
            return "truncated tag";
        case BerErrorKind::TruncatedLength:
            return "truncated length";
        case BerErrorKind::LengthPastEnd:
            return "length past the end";
        case BerErrorKind::LengthTooLarge:
            return "length too large";
        case BerErrorKind::IndefiniteLength:
            return "indefinite length";
        case BerErrorKind::TooDeep:
            return "too deep";
    }
    return "unknown error";
}

BerReadResult BerReader::read(std::span<const std::uint8_t> data, std::uint32_t maxDepth) {
    BerReadResult result;
    read(data, result, maxDepth);
    return result;
}

void BerReader::read(std::span<const std::uint8_t> data, BerReadResult& result,
                     std::uint32_t maxDepth) {
    result.nodes.clear();
    result.error.reset();
    result.paddingBytes = 0;
    Reading(data, result, maxDepth).run();
}

}  // namespace vastrel
