#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/LocalFileFormatTarget.hpp>
#include <xercesc/framework/MemBufFormatTarget.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/Wrapper4InputSource.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <cstdlib>

#include "tests/store/StoreSupport.h"

/// What the store knows of the XML library and works around or relies on. A new release of the library that changes one
/// of these shows here first.

namespace xml = xercesc;

namespace storetests {

namespace {

struct Releaser {
    template <typename T>
    void operator()(T* object) const {
        object->release();
    }
};
template <typename T>
using Released = std::unique_ptr<T, Releaser>;

class XmlLibraryFacts : public testing::Test {
protected:
    XmlLibraryFacts() { xml::XMLPlatformUtils::Initialize(); }
    ~XmlLibraryFacts() override { xml::XMLPlatformUtils::Terminate(); }

    static xml::DOMImplementation* implementation() {
        return xml::DOMImplementationRegistry::getDOMImplementation(xml::XMLUni::fgZeroLenString);
    }
    static Released<xml::DOMLSParser> parser() {
        return Released<xml::DOMLSParser>(
            implementation()->createLSParser(xml::DOMImplementationLS::MODE_SYNCHRONOUS, nullptr));
    }
    static xml::DOMDocument* parse(xml::DOMLSParser& with, const std::string& text) {
        const xml::MemBufInputSource source(reinterpret_cast<const XMLByte*>(text.data()), text.size(), "memory");
        const xml::Wrapper4InputSource input(const_cast<xml::MemBufInputSource*>(&source), false);
        return with.parse(&input);
    }
    static std::string written(const xml::DOMNode& node, bool pretty) {
        const Released<xml::DOMLSSerializer> serializer(implementation()->createLSSerializer());
        serializer->getDomConfig()->setParameter(xml::XMLUni::fgDOMWRTFormatPrettyPrint, pretty);
        const Released<xml::DOMLSOutput> output(implementation()->createLSOutput());
        xml::MemBufFormatTarget target;
        output->setByteStream(&target);
        serializer->write(&node, output.get());
        return std::string(reinterpret_cast<const char*>(target.getRawBuffer()), target.getLen());
    }
};

struct CountingHandler : xml::DOMErrorHandler {
    bool handleError(const xml::DOMError& error) override {
        ++count;
        line = error.getLocation()->getLineNumber();
        return false;
    }
    int count = 0;
    XMLFileLoc line = 0;
};

struct RecordingResolver : xml::DOMLSResourceResolver {
    xml::DOMLSInput* resolveResource(const XMLCh*, const XMLCh*, const XMLCh*, const XMLCh* systemId,
                                     const XMLCh*) override {
        char* const text = xml::XMLString::transcode(systemId);
        asked += text;
        xml::XMLString::release(const_cast<char**>(&text));
        return nullptr;
    }
    std::string asked;
};

/// Counts what a document asks of the heap.
class CountingMemory : public xml::MemoryManager {
public:
    xml::MemoryManager* getExceptionMemoryManager() override { return xml::XMLPlatformUtils::fgMemoryManager; }
    void* allocate(XMLSize_t size) override {
        bytes += size;
        if (void* const block = std::malloc(size)) return block;
        throw xml::OutOfMemoryException();
    }
    void deallocate(void* block) override { std::free(block); }
    std::size_t bytes = 0;
};

}  // namespace

TEST_F(XmlLibraryFacts, MalformedInputIsNotThrownWithoutAHandler) {
    const auto with = parser();
    EXPECT_NO_THROW(parse(*with, "<a><b></a>"));
    EXPECT_NO_THROW(parse(*with, ""));
    EXPECT_NO_THROW(parse(*with, "<a>"));
}

TEST_F(XmlLibraryFacts, AHandlerLearnsOfMalformedInputAndItsPlace) {
    const auto with = parser();
    CountingHandler handler;
    with->getDomConfig()->setParameter(xml::XMLUni::fgDOMErrorHandler, &handler);
    parse(*with, "<a>\n<b>\n</a>");
    EXPECT_EQ(handler.count, 1);
    EXPECT_EQ(handler.line, 3u);
    parse(*with, "<a/>");
    EXPECT_EQ(handler.count, 1);
}

TEST_F(XmlLibraryFacts, AnExternalDocumentTypeIsReadUnlessToldOtherwise) {
    const std::string text = "<!DOCTYPE a SYSTEM \"no-such-file.dtd\"><a/>";
    RecordingResolver resolver;
    const auto with = parser();
    with->getDomConfig()->setParameter(xml::XMLUni::fgDOMResourceResolver, &resolver);
    parse(*with, text);
    EXPECT_EQ(resolver.asked, "no-such-file.dtd");
    const auto without = parser();
    RecordingResolver unasked;
    without->getDomConfig()->setParameter(xml::XMLUni::fgDOMResourceResolver, &unasked);
    without->getDomConfig()->setParameter(xml::XMLUni::fgXercesLoadExternalDTD, false);
    parse(*without, text);
    EXPECT_EQ(unasked.asked, "");
}

TEST_F(XmlLibraryFacts, AnExternalEntityOfTheInternalSubsetIsReadAllTheSame) {
    RecordingResolver resolver;
    const auto with = parser();
    with->getDomConfig()->setParameter(xml::XMLUni::fgDOMResourceResolver, &resolver);
    with->getDomConfig()->setParameter(xml::XMLUni::fgXercesLoadExternalDTD, false);
    parse(*with, "<!DOCTYPE a [<!ENTITY e SYSTEM \"no-such-file.txt\">]><a>&e;</a>");
    EXPECT_EQ(resolver.asked, "no-such-file.txt");
}

TEST_F(XmlLibraryFacts, TheSerializerLeavesACutFileOnAnIllegalCharacter) {
    const TemporaryFolder folder;
    const Released<xml::DOMDocument> document(implementation()->createDocument(nullptr, u"a", nullptr));
    document->getDocumentElement()->appendChild(
        document->createTextNode(u"before\x1"
                                 u"after"));
    const Released<xml::DOMLSSerializer> serializer(implementation()->createLSSerializer());
    const Released<xml::DOMLSOutput> output(implementation()->createLSOutput());
    bool complete = false;
    try {
        xml::LocalFileFormatTarget target((folder.path() / "a.xml").string().c_str());
        output->setByteStream(&target);
        complete = serializer->write(document.get(), output.get());
    } catch (...) {
    }
    const std::string text = folder.read(L"a.xml");
    EXPECT_FALSE(complete && contains(text, "</a>") && !contains(text, "\x01")) << text;
    EXPECT_FALSE(contains(text, "after")) << text;
}

TEST_F(XmlLibraryFacts, APrettyPrintedSaveGrowsAroundComments) {
    const auto with = parser();
    std::string text = "<a>\n  <!-- c -->\n  <b/>\n</a>\n";
    const std::string first = text = written(*parse(*with, text), true);
    for (int i = 0; i < 3; ++i) text = written(*parse(*with, text), true);
    EXPECT_GT(text.size(), first.size()) << text;
}

TEST_F(XmlLibraryFacts, AnEmptyTextNodeMakesTwoTags) {
    const Released<xml::DOMDocument> document(implementation()->createDocument(nullptr, u"a", nullptr));
    EXPECT_TRUE(contains(written(*document, false), "<a/>")) << written(*document, false);
    document->getDocumentElement()->appendChild(document->createTextNode(u""));
    EXPECT_TRUE(contains(written(*document, false), "<a></a>")) << written(*document, false);
}

TEST_F(XmlLibraryFacts, EveryTextContentOfAnElementIsAllocatedFromTheDocument) {
    CountingMemory memory;
    {
        const Released<xml::DOMDocument> document(implementation()->createDocument(nullptr, u"a", nullptr, &memory));
        auto* const root = document->getDocumentElement();
        root->setTextContent(std::u16string(1000, u'x').c_str());
        (void)root->getTextContent();
        const std::size_t before = memory.bytes;
        for (int i = 0; i < 1000; ++i) (void)root->getTextContent();
        EXPECT_GT(memory.bytes, before + 1000000u);
    }
}

}  // namespace storetests
