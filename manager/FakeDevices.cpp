#include "manager/FakeDevices.h"

#include "platform/Environment.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"
#include "platform/PrivateFolder.h"
#include "platform/Text.h"
#include "store/CorvaneException.h"

namespace XMLConfig::detail {

namespace {

constexpr int deviceCount = 12;

struct Exchange {
    const char* query;
    const char* reply;  // "%m" stands for the MAC address
};

constexpr Exchange veldarExchanges[] = {
    {"ADR?", "ADR! 001"},
    {"FCT?", "FCT! VELDAR \"Laser 1920x1200\""},
    {"SST?", "SST! 100 \"Native Resolution\" \"1920 x 1200\""},
    {"SST?", "SST! 101 \"MAC Address\" \"%m\""},
    {"SST?", "SST! 102 \"Warp Module Temperature\" \"41 C\""},
    {"SST?", "SST! 103 \"Main Software\" \"2.4.0\""},
    {"PNG?", "PNG! 055 002 004 000"},
    {"png?", "png! 055 002 004 000"},
    {"PWR?", "PWR! 001"},
    {"SIN?", "SIN! 011"},
    {"SHU?", "SHU! 000"},
    {"OTR?", "OTR! 001"},
    {"EBL?", "EBL! 000"},
    {"WPS?", "WPS! 000"},
};

constexpr Exchange brenmoorExchanges[] = {
    {"ADR?", "@001 ADR! 001"},
    {"NET+MAC0?", "@001 NET+MAC0! \"%m\""},
    {"FCT?", "@001 FCT! \"Brenmoor 1920x1200\""},
    {"SST+VERS?", "@001 SST+VERS! 000 \"3.1.2\" \"Main Software\""},
    {"OTR?", "@001 OTR! 001"},
    {"OTR+HRES?", "@001 OTR+HRES! 1920"},
    {"OTR+VRES?", "@001 OTR+VRES! 1200"},
    {"PNG?", "@001 PNG! 061 003 001 002"},
    {"WRP+VERS2?", "@001 WRP+VERS2! \"1.5\""},
    {"PWR?", "@001 PWR! 001"},
    {"SIN?", "@001 SIN! 011"},
    {"SHU?", "@001 SHU! 000"},
    {"MNU?", "@001 MNU! 000"},
};

// Two colons stand before the last byte on purpose, as in no real address. Stored: do not change.
std::string macAddress(int number) {
    constexpr char digits[] = "0123456789abcdef";
    return std::string("00:11:22:33:44::") + digits[number / 16] + digits[number % 16];
}

template <std::size_t Count>
std::string tableOf(const Exchange (&exchanges)[Count], const std::string& mac) {
    std::string table;
    for (const Exchange& exchange : exchanges) {
        std::string reply = exchange.reply;
        if (const std::size_t mark = reply.find("%m"); mark != std::string::npos) reply.replace(mark, 2, mac);
        table += std::string(exchange.query) + "\t" + reply + "\n";
    }
    return table;
}

void writeDevice(const std::wstring& folder, const wchar_t* family, int number, const std::string& table) {
    replaceFile(folder + L"\\" + family + L"-fake-" + formatInteger(number) + L".device", table);
}

}  // namespace

void makeFakeProjectors() {
    const PrivateFolder made = makePrivateFolder(joinPath(temporaryFolder(), L"ULVD"));
    const std::wstring& folder = made.path;
    if (!made.isThere) throw CorvaneException(L"Error makeFakeProjectors(): Can not make folder " + folder);
    setEnvironmentVariable(L"VIRTUAL_DEVICE_PATH", folder);
    try {
        for (int i = 0; i < deviceCount; ++i) {
            const std::string mac = macAddress(i);
            writeDevice(folder, L"VELDAR", i, tableOf(veldarExchanges, mac));
            writeDevice(folder, L"Brenmoor", i, tableOf(brenmoorExchanges, mac));
        }
    } catch (const FileError& error) {
        throw CorvaneException(L"Error makeFakeProjectors(): " + error.message());
    }
}

}  // namespace XMLConfig::detail
