#include <benchmark/benchmark.h>

#include "Benchmarks.hpp"
#include "Workload.hpp"
#include "vastrel/Codec/TLVDecoder.hpp"
#include "vastrel/Model/CardData.hpp"
#include "vastrel/Model/GatewayResponse.hpp"
#include "vastrel/Platform/Decimal.hpp"
#include "vastrel/Receipt/ReceiptHelper.hpp"

namespace vastrel::bench {
namespace {

// An approved chip sale: the flat blob's 37 elements as the card's EMV data.
CardData chipCard() {
    const LoggingScope quiet(false);
    CardData card;
    card.setPan(workload().pans.front());
    card.setCardholderName(std::string("CARDHOLDER/VISA"));
    card.setCardDataSourceType(CardDataSourceType::Emv);
    card.setEmvTLVData(TLVDecoder::decodeWithTLVString(workload().flatHex));
    return card;
}

GatewayResponse approval() {
    GatewayResponse response;
    response.setAuthCode(std::string("A1B2C3"));
    response.setGatewayTransactionId(std::string("7201934455"));
    response.setApprovedAmount(Decimal("12.34"));
    response.setIsApproved(true);
    return response;
}

void emvReceipt(benchmark::State& state) {
    const CardData card = chipCard();
    const GatewayResponse response = approval();
    for (auto _ : state) {
        TransactionReceipt receipt = ReceiptHelper::buildEmvReceiptWith(&response, &card);
        benchmark::DoNotOptimize(receipt);
    }
    state.counters["elements"] = static_cast<double>(card.emvTLVData()->size());
}

}  // namespace

void registerReceiptBenchmarks() {
    benchmark::RegisterBenchmark("buildEmvReceiptWith/flat", &emvReceipt);
}

}  // namespace vastrel::bench
