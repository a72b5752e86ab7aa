#pragma once

#include <string>

#include "platform/Export.h"

/// What kind of run the application makes.
enum class RunType { ClassicRun, CinemaRun, Palvex3DRun };

/// "ClassicRun", "CinemaRun" or "Palvex3DRun"; any other value gives "ClassicRun".
XMLCONFIG_API std::wstring RunTypeToString(RunType runType);
/// The value of one of these texts, case counts; any other text gives ClassicRun.
XMLCONFIG_API RunType StringToRunType(const std::wstring& text);

namespace Cinema {

/// The picture format of a cinema run.
enum class Frame { Flat, Scope };

/// "Flat" or "Scope"; any other value gives "Flat".
XMLCONFIG_API std::wstring FrameToString(Frame frame);
/// The value of one of these texts, case counts; any other text gives Flat.
XMLCONFIG_API Frame StringToFrame(const std::wstring& text);

}  // namespace Cinema
