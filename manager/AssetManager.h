#pragma once

/// Where this header stood before; new code includes base/AssetManager.h.
#include "base/AssetManager.h"
