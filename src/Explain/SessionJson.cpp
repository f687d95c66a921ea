// SessionExplainer::toJson: the session explanation as one JSON object, written in one pass.
#include "ExplanationJson.hpp"
#include "vastrel/Explain/SessionExplainer.hpp"

namespace vastrel {
namespace {

using explain::JsonWriter;

void stringsOrNull(JsonWriter& json, std::string_view key, const std::optional<std::string>& text) {
    json.key(key);
    if (text) {
        json.string(*text);
    } else {
        json.null();
    }
}

void strings(JsonWriter& json, std::string_view key, const std::vector<std::string>& texts) {
    json.key(key);
    json.beginArray();
    for (const auto& text : texts)
        json.string(text);
    json.endArray();
}

void writeCommand(JsonWriter& json, const ExplainedCommand& command) {
    json.beginObject();
    json.key("hex");
    json.string(command.hex);
    json.key("name");
    json.string(command.name);
    json.key("header");
    json.string(command.header);
    strings(json, "parameters", command.parameters);
    json.key("dol");
    explain::writeElements(json, command.dol);
    stringsOrNull(json, "note", command.note);
    json.endObject();
}

void writeResponse(JsonWriter& json, const ExplainedResponse& response) {
    json.beginObject();
    json.key("hex");
    json.string(response.hex);
    if (response.error) {
        json.key("elements");
        json.beginArray();
        json.endArray();
        json.key("status");
        json.null();
        json.key("error");
        json.beginObject();
        json.key("reason");
        json.string(*response.error);
        json.endObject();
    } else {
        explain::writeExplanationFields(json, response.explanation);
    }
    json.endObject();
}

void writeOdaStep(JsonWriter& json, const OdaStep& step) {
    json.beginObject();
    json.key("object");
    json.string(step.object);
    json.key("key");
    json.beginObject();
    json.key("rid");
    json.string(step.keyRid);
    json.key("index");
    json.string(step.keyIndex);
    json.endObject();
    json.key("exchange");
    json.number(step.exchange + 1);
    json.key("fields");
    json.beginObject();
    for (const OdaField& field : step.fields) {
        json.key(field.name);
        json.string(field.value);
    }
    json.endObject();
    json.key("checks");
    explain::writeChecks(json, step.checks);
    json.endObject();
}

void writeOda(JsonWriter& json, const OdaReport& oda) {
    json.beginObject();
    json.key("methods");
    json.beginArray();
    for (const OdaMethod& method : oda.methods) {
        json.beginObject();
        json.key("method");
        json.string(method.method);
        json.key("result");
        json.string(describe(method.verdict));
        json.key("failed_check");
        if (method.verdict == OdaVerdict::Failed) {
            json.string(method.detail);
        } else {
            json.null();
        }
        json.key("reason");
        if (method.verdict == OdaVerdict::NotPossible) {
            json.string(method.detail);
        } else {
            json.null();
        }
        json.endObject();
    }
    json.endArray();
    json.key("steps");
    json.beginArray();
    for (const OdaStep& step : oda.steps)
        writeOdaStep(json, step);
    json.endArray();
    strings(json, "tvr", oda.terminalFindings);
    json.endObject();
}

void writeSummary(JsonWriter& json, const SessionSummary& summary) {
    json.beginObject();
    stringsOrNull(json, "application", summary.application);
    stringsOrNull(json, "kernel", summary.kernel);
    stringsOrNull(json, "card_number", summary.cardNumber);
    strings(json, "records_read", summary.recordsRead);
    strings(json, "verification", summary.verification);
    strings(json, "cryptograms", summary.cryptograms);
    strings(json, "tvr", summary.terminalVerificationResults);
    strings(json, "not_shown", summary.notShown);
    json.key("oda");
    writeOda(json, summary.oda);
    json.endObject();
}

}  // namespace

std::string SessionExplainer::toJson(const SessionExplanation& session) {
    JsonWriter json;
    json.beginObject();
    json.key("exchanges");
    json.beginArray();
    for (const ExplainedExchange& exchange : session.exchanges) {
        json.beginObject();
        json.key("line");
        json.number(exchange.line);
        json.key("command");
        if (exchange.command) {
            writeCommand(json, *exchange.command);
        } else {
            json.null();
        }
        json.key("response");
        if (exchange.response) {
            writeResponse(json, *exchange.response);
        } else {
            json.null();
        }
        strings(json, "notes", exchange.notes);
        json.endObject();
    }
    json.endArray();
    json.key("summary");
    writeSummary(json, session.summary);
    json.key("error");
    if (session.error) {
        json.beginObject();
        json.key("line");
        json.number(session.error->line);
        json.key("reason");
        json.string(session.error->reason);
        json.endObject();
    } else {
        json.null();
    }
    json.endObject();
    return json.finish();
}

}  // namespace vastrel
