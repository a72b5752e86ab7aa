#pragma once

#include <cstdint>
#include <memory_resource>
#include <unordered_map>
#include <xercesc/dom/DOMElement.hpp>

#include "store/FilePlaces.h"

namespace XMLConfig::detail {

/// Where the elements of a text begin. They come in so great a number that each one's own piece of memory would cost more
/// than all the rest.
struct ElementPlaces {
    std::pmr::monotonic_buffer_resource memory;
    std::pmr::unordered_map<const xercesc::DOMElement*, FilePlace> byElement{&memory};
    std::uint64_t contentHash = 0;  ///< of the text
};

}  // namespace XMLConfig::detail
