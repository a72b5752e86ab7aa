// The tables of virtual operations of the application's interfaces live here.
#include "platform/IPathHelper.h"
#include "platform/IQuorvelProductInfo.h"
#include "platform/IResourceCache.h"

IPathHelper::~IPathHelper() = default;
IQuorvelProductInfo::~IQuorvelProductInfo() = default;
IResourceCache::~IResourceCache() = default;
