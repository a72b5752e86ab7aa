// For CMake: whether Xerces-C can be linked into a program of this machine.

#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>

int main() {
    xercesc::XMLPlatformUtils::Initialize();
    { const xercesc::XercesDOMParser parser; }
    xercesc::XMLPlatformUtils::Terminate();
}
