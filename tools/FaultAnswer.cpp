#include "tools/FaultAnswer.h"

#include "platform/Utf8.h"
#include "store/CorvaneException.h"
#include "tools/Json.h"
#include "tools/Output.h"
#include "tools/Reading.h"

namespace tool {
namespace {

ExitStatus statusOf(const std::exception& exception) {
    // An operand that is no address, or that does not go with the others.
    const bool isUsage = dynamic_cast<const CorvaneParseException*>(&exception) != nullptr ||
                         dynamic_cast<const WrongOperands*>(&exception) != nullptr;
    if (isUsage) return WrongUsage;
    return dynamic_cast<const Unreadable*>(&exception) != nullptr ? NotReadable : Refused;
}

}  // namespace

Fault faultOf(const std::exception& exception) { return {exception.what(), statusOf(exception)}; }

std::wstring faultAnswer(const char* verb, const Request& request, const Fault& fault) {
    const std::string line = fault.message.substr(0, fault.message.find('\n'));
    Json answer = request.file.empty() ? jsonAnswer(verb) : jsonAnswer(verb, request.file);
    answer["error"] = jsonText(XMLConfig::wideFromUtf8(line));
    return jsonEnd(std::move(answer), fault.status);
}

}  // namespace tool
