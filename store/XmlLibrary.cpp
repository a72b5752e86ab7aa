#include "store/XmlLibrary.h"

#include <mutex>
#include <new>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>

#include "platform/Text.h"
#include "store/CorvaneException.h"
#include "store/ParseFailure.h"
#include "store/TreeLinks.h"

namespace XMLConfig::detail {

namespace {

constexpr std::size_t messageLength = 2047;  // what the XML library is asked for at most

xercesc::DOMImplementation* start() {
    try {
        xercesc::XMLPlatformUtils::Initialize();
    } catch (const xercesc::XMLException& exception) {
        throw CorvaneException(L"Error: XMLPlatformUtils::Initialize() : " + fromUtf16(view(exception.getMessage())));
    }
    try {
        auto* const implementation = xercesc::DOMImplementationRegistry::getDOMImplementation(xmlText(u"LS"));
        if (implementation != nullptr) examineLinks(*implementation);
        return implementation;
    } catch (const xercesc::XMLException& exception) {
        throw CorvaneException(L"Error: Xerces-c Initialization : " + fromUtf16(view(exception.getMessage())));
    }
}

/// Nothing where the library has no text for the exception's code.
std::wstring messageOf(const xercesc::DOMException& exception) {
    XMLCh text[messageLength + 1] = {};
    if (!xercesc::DOMImplementation::loadDOMExceptionMsg(exception.code, text, messageLength)) return {};
    return L" XML message is: " + fromUtf16(view(text));
}

}  // namespace

xercesc::DOMImplementation* startXmlLibrary() {
    static std::once_flag once;
    static xercesc::DOMImplementation* implementation = nullptr;
    std::call_once(once, [] { implementation = start(); });
    return implementation;
}

void passShortage() {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const xercesc::OutOfMemoryException&) {
        throw std::bad_alloc();
    } catch (...) {  // anything else is the caller's
    }
}

void rethrow(const std::wstring& prefix, const std::wstring& unknown) {
    try {
        throw;
    } catch (const CorvaneExceptionBase&) {
        throw;
    } catch (const ParseFailure& failure) {
        throw CorvaneException(prefix + L" XML message is: " + failure.message());
    } catch (const xercesc::XMLException& exception) {
        throw CorvaneException(prefix + L" XML message is: " + fromUtf16(view(exception.getMessage())));
    } catch (const xercesc::DOMException& exception) {
        throw CorvaneException(prefix + messageOf(exception));
    } catch (...) {
        passShortage();
        throw CorvaneException(unknown);
    }
}

}  // namespace XMLConfig::detail
