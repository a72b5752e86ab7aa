#pragma once

#include "platform/Export.h"

/// The application's resource cache. The library only passes the pointer on; it neither uses nor frees it.
class XMLCONFIG_API IResourceCache {
public:
    virtual ~IResourceCache();
};
