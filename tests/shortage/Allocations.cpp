#include "tests/shortage/Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <xercesc/framework/MemoryManager.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

namespace {

constexpr std::size_t headSize = alignof(std::max_align_t);  // before each block, for its size

std::atomic<std::size_t> live{0};
std::atomic<std::size_t> liveOfXml{0};
std::atomic<std::size_t> made{0};
std::atomic<std::size_t> failing{0};  // 0 for none
std::atomic<bool> failed{false};

/// Null where there is none.
void* take(std::size_t size, std::atomic<std::size_t>& counter) {
    if (++made == failing) {
        failed = true;
        return nullptr;
    }
    char* const block = static_cast<char*>(std::malloc(size + headSize));
    if (block == nullptr) return nullptr;
    *reinterpret_cast<std::size_t*>(block) = size;
    counter += size;
    return block + headSize;
}

void give(void* pointer, std::atomic<std::size_t>& counter) {
    if (pointer == nullptr) return;
    char* const block = static_cast<char*>(pointer) - headSize;
    counter -= *reinterpret_cast<std::size_t*>(block);
    std::free(block);
}

/// Throws what the library's own manager throws.
class XmlMemory : public xercesc::MemoryManager {
public:
    xercesc::MemoryManager* getExceptionMemoryManager() override { return this; }
    void* allocate(XMLSize_t size) override {
        void* const taken = take(size, liveOfXml);
        if (taken == nullptr) throw xercesc::OutOfMemoryException();
        return taken;
    }
    void deallocate(void* pointer) override { give(pointer, liveOfXml); }
};

}  // namespace

namespace allocations {

std::size_t liveBytes() { return live; }
std::size_t liveBytesOfXml() { return liveOfXml; }
void startXmlLibrary() {
    static XmlMemory memory;
    xercesc::XMLPlatformUtils::Initialize(xercesc::XMLUni::fgXercescDefaultLocale, nullptr, nullptr, &memory);
}
std::size_t count() { return made; }
void restart() { made = 0; }
void failAt(std::size_t number) {
    made = 0;
    failed = false;
    failing = number;
}
void failNone() { failing = 0; }
bool hasFailed() { return failed; }

}  // namespace allocations

void* operator new(std::size_t size) {
    void* const taken = take(size, live);
    if (taken == nullptr) throw std::bad_alloc();
    return taken;
}

void operator delete(void* pointer) noexcept { give(pointer, live); }

void* operator new[](std::size_t size) { return operator new(size); }
void operator delete[](void* pointer) noexcept { operator delete(pointer); }
void operator delete(void* pointer, std::size_t /*size*/) noexcept { operator delete(pointer); }
void operator delete[](void* pointer, std::size_t /*size*/) noexcept { operator delete(pointer); }
