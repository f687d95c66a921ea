#include "vastrel/Model/AID.hpp"

#include "vastrel/Platform/KeyedArchiver.hpp"
#include "vastrel/Platform/KeyedUnarchiver.hpp"

namespace vastrel {

AID::AID(KeyedUnarchiver& coder) {
    // Read and dropped on purpose: archived AIDs come back empty, and callers expect that.
    for (const char* key : {"rid", "pix", "label", "preferred_name"}) {
        static_cast<void>(coder.decodeObjectForKey(key));
    }
}

void AID::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeObject(rid_, "rid");
    coder.encodeObject(pix_, "pix");
    coder.encodeObject(label_, "label");
    coder.encodeObject(preferredName_, "preferred_name");
}

}  // namespace vastrel
