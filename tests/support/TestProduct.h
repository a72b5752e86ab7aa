#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/IQuorvelProductInfo.h"

/// A product whose configuration files carry the given extension.
class TestProduct : public IQuorvelProductInfo {
public:
    explicit TestProduct(std::string extension = ".skorrax") : m_extension(std::move(extension)) {}
    std::string getConfigFileExtension() const override { return m_extension; }

    static std::shared_ptr<IQuorvelProductInfo> make(const std::string& extension = ".skorrax") {
        return std::make_shared<TestProduct>(extension);
    }

private:
    std::string m_extension;
};
