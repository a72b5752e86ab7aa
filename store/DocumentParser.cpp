#include "store/DocumentParser.h"

#include <xercesc/util/BinInputStream.hpp>

#include "platform/Files.h"
#include "platform/Numbers.h"
#include "store/StrictParser.h"

namespace XMLConfig::detail {

namespace {

/// Hands a file of any name to the parser as it is read, so that it is never in memory as a whole.
class FileStream : public xercesc::BinInputStream {
public:
    explicit FileStream(const std::wstring& path) : m_file(path) {}
    XMLFilePos curPos() const override { return m_position; }
    XMLSize_t readBytes(XMLByte* const buffer, const XMLSize_t size) override {
        const XMLSize_t count = m_file.read(buffer, size);
        m_position += count;
        return count;
    }
    const XMLCh* getContentType() const override { return nullptr; }

private:
    FileReader m_file;
    XMLFilePos m_position = 0;
};

class FileSource : public xercesc::InputSource {
public:
    explicit FileSource(const std::wstring& path) : m_path(path) {}
    xercesc::BinInputStream* makeStream() const override { return new FileStream(m_path); }

private:
    std::wstring m_path;
};

}  // namespace

ParseFailure::ParseFailure(unsigned long long line, unsigned long long column, const std::wstring& reason)
    : std::runtime_error("malformed XML"),
      m_message(L"line " + formatInteger(static_cast<long long>(line)) + L", column " +
                formatInteger(static_cast<long long>(column)) + L": " + reason) {}

std::unique_ptr<xercesc::InputSource> fileSource(const std::wstring& path) { return std::make_unique<FileSource>(path); }

DocumentPointer parseFile(const std::wstring& path) { return StrictParser().parseDocument(FileSource(path)); }

}  // namespace XMLConfig::detail
