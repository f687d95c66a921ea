// Decodes a little EMV data with an installed Vastrel and prints what it found, touching
// the codec, the tag dictionary and the decimal amounts (the library's link dependency).
#include <iostream>

// The umbrella header, as installed: it must compile on its own.
#include "vastrel/Vastrel.hpp"

int main() {
    vastrel::log::setEnabled(false);
    const auto elements = vastrel::TLVDecoder::decodeWithTLVString("9F02060000000042805F2A020840");
    if (!elements || elements->size() != 2) return 1;
    for (const auto& element : *elements) {
        std::cout << element.tag().value_or("") << " " << element.tagName().value_or("") << " "
                  << element.value().value_or("") << "\n";
    }
    std::cout << vastrel::Tag::tagName("9F34") << "\n";
    std::cout << vastrel::Decimal("42.80").description() << "\n";
    return 0;
}
