#include "platform/RunType.h"

std::wstring RunTypeToString(RunType runType) {
    switch (runType) {
        case RunType::CinemaRun:
            return L"CinemaRun";
        case RunType::Palvex3DRun:
            return L"Palvex3DRun";
        default:
            return L"ClassicRun";
    }
}

RunType StringToRunType(const std::wstring& text) {
    if (text == L"CinemaRun") return RunType::CinemaRun;
    if (text == L"Palvex3DRun") return RunType::Palvex3DRun;
    return RunType::ClassicRun;
}

namespace Cinema {

std::wstring FrameToString(Frame frame) { return frame == Frame::Scope ? L"Scope" : L"Flat"; }
Frame StringToFrame(const std::wstring& text) { return text == L"Scope" ? Frame::Scope : Frame::Flat; }

}  // namespace Cinema
