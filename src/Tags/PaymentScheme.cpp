#include "vastrel/Tags/PaymentScheme.hpp"

namespace vastrel {

std::string_view schemeName(PaymentScheme scheme) noexcept {
    switch (scheme) {
        case PaymentScheme::Any:
            return "unknown";
        case PaymentScheme::Visa:
            return "Visa";
        case PaymentScheme::Mastercard:
            return "Mastercard";
        case PaymentScheme::Maestro:
            return "Maestro";
        case PaymentScheme::Amex:
            return "American Express";
        case PaymentScheme::Discover:
            return "Discover";
        case PaymentScheme::Diners:
            return "Diners Club";
        case PaymentScheme::Jcb:
            return "JCB";
        case PaymentScheme::UnionPay:
            return "UnionPay";
        case PaymentScheme::Mir:
            return "Mir";
        case PaymentScheme::Troy:
            return "Troy";
        case PaymentScheme::RuPay:
            return "RuPay";
        case PaymentScheme::Interac:
            return "Interac";
        case PaymentScheme::CartesBancaires:
            return "Cartes Bancaires";
        case PaymentScheme::Eftpos:
            return "eftpos";
    }
    return "unknown";
}

}  // namespace vastrel
