#pragma once

/// AssetManager stood here before. This header stays for applications that include it; new code includes
/// base/AssetManager.h.
#include "base/AssetManager.h"
