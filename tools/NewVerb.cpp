#include <memory>
#include <optional>

#include "manager/Upgrade.h"
#include "manager/XMLConfigManager.h"
#include "platform/FileNames.h"
#include "platform/SignalHold.h"
#include "platform/Utf8.h"
#include "sections/GeometryConfig.h"
#include "store/CorvaneException.h"
#include "tools/Configuration.h"
#include "tools/Json.h"
#include "tools/NumberTexts.h"
#include "tools/Output.h"
#include "tools/Printable.h"
#include "tools/Reading.h"
#include "tools/Verb.h"
#include "tools/Writing.h"

namespace tool {
namespace {

// The manager quietly saves nothing under another extension.
bool hasExtension(const std::string& file) {
    const std::string extension = ProductInfo().getConfigFileExtension();
    return file.size() > extension.size() && file.compare(file.size() - extension.size(), extension.size(), extension) == 0;
}

/// Adds projectors in one row, with numbers for IDs until their devices are known.
void addProjectors(XMLConfigManager& manager, unsigned count) {
    if (count == 0) return;
    for (unsigned number = 1; number <= count; ++number) manager.getProjectorConfig(std::to_wstring(number));
    GeometryConfig* const geometry = manager.getGeometryConfig();
    geometry->setProjectorCount(static_cast<int>(count));
    geometry->setProjectorLayoutWidth(static_cast<int>(count));
    geometry->setProjectorLayoutHeight(1);
}

void save(XMLConfigManager& manager, const std::string& file) {
    std::optional<XMLConfig::SignalHold> hold;
    if (!isDevice(file)) hold.emplace();  // a pipe may wait for its reader for ever
    try {
        manager.saveConfiguration(XMLConfig::wideFromUtf8(file));
    } catch (const CorvaneException& fault) {
        throw Unreadable(fault.getMessage());
    }
    noteWritten(file);
}

std::wstring textOf(const XMLConfigManager& manager, const std::wstring& file, bool isDryRun) {
    return (isDryRun ? L"would make " : L"made ") + printable(file) + L": file version " +
           XMLConfig::versionText(manager.getDocument().getVersion()) + L", " +
           counted(static_cast<std::size_t>(manager.getProjectorConfigCount()), L"projector") + L", " +
           counted(static_cast<std::size_t>(manager.getCameraConfigCount()), L"camera") +
           (isDryRun ? L" (dry run, nothing written)\n" : L"\nnext: xmlconfig check " + printable(fileWord(file)) + L"\n");
}

std::wstring jsonOf(const XMLConfigManager& manager, const Request& request) {
    Json answer = jsonAnswer("new", request.file);
    if (request.dryRun) answer["written"] = false;
    answer["version"] = manager.getDocument().getVersion();
    answer["projectors"] = manager.getProjectorConfigCount();
    return jsonEnd(std::move(answer), Done);
}

}  // namespace

void setUpNew(Options& options, Request& request) {
    options.value("FILE", request.file, "The file to make; its name ends in .skorrax").required().notEmpty(emptyName);
    options.flag("--force", request.force, "Replace a file that exists");
    constexpr unsigned most = 10'000;
    options.value("--projectors", request.projectors, "How many projectors it holds, side by side (0)")
        .valueName("N")
        .between(0U, most);
    options.flag("--dry-run", request.dryRun, "Tell what would be made and write nothing");
    options.flag("--json", request.json, "Answer with one JSON object");
    setUpWriting(options, request);
    options.footer("Exit status: 0 done, 1 refused, 2 wrong usage, 3 the file cannot be written.");
}

ExitStatus runNew(const Request& request) {
    const std::wstring file = XMLConfig::wideFromUtf8(request.file);
    if (!hasExtension(request.file)) throw Refusal(file + L": the name of a configuration ends in \".skorrax\"");
    if (XMLConfig::isDeviceName(file)) throw Refusal(file + L": is the name of a device");
    const auto lock = request.dryRun ? nullptr : lockForWriting(request.file, request);
    if (!request.force && exists(request.file))
        throw Refusal(file + L": exists; take another name, or --force, which replaces it");
    const std::unique_ptr<XMLConfigManager> manager(XMLConfigManager::newConfiguration(std::make_shared<ProductInfo>()));
    addProjectors(*manager, request.projectors);
    if (!request.dryRun) save(*manager, request.file);
    if (request.json) print(jsonOf(*manager, request));
    else if (!request.quiet) print(textOf(*manager, file, request.dryRun));
    return Done;
}

}  // namespace tool
