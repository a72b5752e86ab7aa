#pragma once

#include <string>

#include "platform/IQuorvelProductInfo.h"
#include "platform/Text.h"
#include "store/CorvaneException.h"

namespace XMLConfig::detail {

/// The extension of the product's files, the "." included. Throws where no product information was given.
inline std::wstring extensionOf(const IQuorvelProductInfo* product) {
    if (product == nullptr) throw CorvaneException(L"Error getConfigFileExtension: there is no product information");
    return fromUtf8(product->getConfigFileExtension());
}

}  // namespace XMLConfig::detail
