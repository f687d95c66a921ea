#include "vastrel/Enums/ConversionHelper.hpp"

namespace vastrel {

ReversalReason ConversionHelper::toReversalReason(std::uint64_t status) {
    switch (status) {
        case 0:
        case 1:
            return ReversalReason{6};
        case 5:
            return ReversalReason{1};
        case 6:
            return ReversalReason{2};
        default:
            return ReversalReason{3};
    }
}

}  // namespace vastrel
