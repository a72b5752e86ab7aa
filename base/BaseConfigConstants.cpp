#include "base/BaseConfig.h"
#include "platform/Early.h"

// Stored in files: do not change.
XMLCONFIG_EARLY const std::wstring BaseConfig::AXIS_POS_X = L"X";
XMLCONFIG_EARLY const std::wstring BaseConfig::AXIS_POS_Y = L"Y";
XMLCONFIG_EARLY const std::wstring BaseConfig::AXIS_POS_Z = L"Z";
XMLCONFIG_EARLY const std::wstring BaseConfig::AXIS_NEG_X = L"-X";
XMLCONFIG_EARLY const std::wstring BaseConfig::AXIS_NEG_Y = L"-Y";
XMLCONFIG_EARLY const std::wstring BaseConfig::AXIS_NEG_Z = L"-Z";
XMLCONFIG_EARLY const std::wstring BaseConfig::SHAPE_CYLINDER = L"Cylinder";
XMLCONFIG_EARLY const std::wstring BaseConfig::SHAPE_FLAT = L"Flat";
XMLCONFIG_EARLY const std::wstring BaseConfig::SHAPE_RULED = L"Ruled";
XMLCONFIG_EARLY const std::wstring BaseConfig::SHAPE_SPHERE = L"Sphere";
XMLCONFIG_EARLY const std::wstring BaseConfig::SHAPE_TEST = L"Test";
XMLCONFIG_EARLY const std::wstring BaseConfig::SHAPE_TOROID = L"Toroid";
XMLCONFIG_EARLY const std::wstring BaseConfig::SHAPE_VRML = L"VRML";
XMLCONFIG_EARLY const std::wstring BaseConfig::TARGET_DATA_3D = L"3D";
XMLCONFIG_EARLY const std::wstring BaseConfig::TARGET_DATA_CUSTOM_PLANAR = L"Custom Planar";
XMLCONFIG_EARLY const std::wstring BaseConfig::TARGET_DATA_PLANAR_ADVANCED = L"Planar-advanced";
XMLCONFIG_EARLY const std::wstring BaseConfig::TARGET_DATA_PLANAR_BASIC = L"Planar-basic";
XMLCONFIG_EARLY const std::wstring BaseConfig::TARGET_DATA_PROJECTOR_CENTRIC = L"Projector Centric";
XMLCONFIG_EARLY const std::wstring BaseConfig::TARGET_DATA_PROJECTOR_POSE = L"Projector Pose";
XMLCONFIG_EARLY const std::wstring BaseConfig::TARGET_DATA_SPHERICAL = L"Spherical";
XMLCONFIG_EARLY const std::wstring BaseConfig::TARGET_DATA_SPHERICAL_COLLIMATED = L"Collimated";
const int BaseConfig::INPUT_IMAGE_SCALING_MODE_FULLSIZE = 0;
const int BaseConfig::INPUT_IMAGE_SCALING_MODE_NOSCALING = 1;
const int BaseConfig::OUTPUT_DEFAULT = 0;
const int BaseConfig::OUTPUT_MPAC = 2;
