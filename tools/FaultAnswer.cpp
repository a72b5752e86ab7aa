#include "tools/FaultAnswer.h"

#include "platform/Utf8.h"
#include "store/CorvaneException.h"
#include "tools/Json.h"
#include "tools/Output.h"
#include "tools/Printable.h"
#include "tools/Reading.h"

namespace tool {
namespace {

ExitStatus statusOf(const std::exception& exception) {
    // These say that an operand is no address, or does not go with the others.
    const bool isUsage = dynamic_cast<const CorvaneParseException*>(&exception) != nullptr ||
                         dynamic_cast<const WrongOperands*>(&exception) != nullptr;
    if (isUsage) return WrongUsage;
    return dynamic_cast<const Unreadable*>(&exception) != nullptr ? NotReadable : Refused;
}

}  // namespace

Fault faultOf(const std::exception& exception) {
    const auto* const refusal = dynamic_cast<const Refusal*>(&exception);
    return {XMLConfig::wideFromUtf8(exception.what()), refusal == nullptr ? L"" : refusal->lines(), statusOf(exception)};
}

std::wstring faultAnswer(const std::string& verb, const Request& request, const Fault& fault) {
    Json answer = jsonAnswer(verb.c_str());
    if (verb.empty()) answer["verb"] = nullptr;
    if (!request.file.empty()) answer["file"] = request.file;
    const std::vector<std::string>& words = request.operands;
    if (verb == "diff" && words.size() == 2) answer.update({{"old", words[0]}, {"new", words[1]}});
    answer["error"] = jsonText(printable(fault.message));
    return jsonEnd(std::move(answer), fault.status);
}

}  // namespace tool
