#include "sections/IScreenConfig.h"

IScreenConfig::~IScreenConfig() = default;
