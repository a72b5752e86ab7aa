#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <xercesc/dom/DOM.hpp>

/// The one place that starts the XML library, speaks its text form and turns its exceptions into the library's own.
namespace XMLConfig::detail {

static_assert(sizeof(XMLCh) == sizeof(char16_t), "the XML library's text must be UTF-16");

/// Starts the XML library once for the whole process, from any thread, and gives its load-and-save implementation
/// (null where it has none). Starting and stopping it for each document is unsafe between threads and slow.
/// Throws CorvaneException when the library does not start.
xercesc::DOMImplementation* startXmlLibrary();

inline std::u16string_view view(const XMLCh* text) {
    return text == nullptr ? std::u16string_view() : std::u16string_view(reinterpret_cast<const char16_t*>(text));
}
inline const XMLCh* xmlText(const std::u16string& text) { return reinterpret_cast<const XMLCh*>(text.c_str()); }
inline const XMLCh* xmlText(const char16_t* text) { return reinterpret_cast<const XMLCh*>(text); }

struct ReleaseDocument {
    void operator()(xercesc::DOMDocument* document) const { document->release(); }
};
using DocumentPointer = std::unique_ptr<xercesc::DOMDocument, ReleaseDocument>;

/// To be called while an exception is being handled: throws std::bad_alloc where it says that memory ran out, which the
/// XML library does by an exception of its own.
void passShortage();
/// To be called while an exception is being handled: throws it again as a CorvaneException whose message begins with
/// the prefix, or, where nothing is known of it, is `unknown`. Those of this library pass unchanged, and a shortage of
/// memory as std::bad_alloc.
[[noreturn]] void rethrow(const std::wstring& prefix, const std::wstring& unknown);
[[noreturn]] inline void rethrow(const std::wstring& prefix) { rethrow(prefix, prefix + L"Unknown error during parsing: "); }

/// Runs an operation; what the XML library throws in it is reported under the prefix.
template <typename Operation>
auto reporting(const wchar_t* prefix, Operation&& operation) -> decltype(operation()) {
    try {
        return operation();
    } catch (...) {
        rethrow(prefix);
    }
}

}  // namespace XMLConfig::detail
