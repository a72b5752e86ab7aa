#include "base/BaseConfig.h"

// Stored in files: do not change.
const std::wstring BaseConfig::AXIS_POS_X = L"X";
const std::wstring BaseConfig::AXIS_POS_Y = L"Y";
const std::wstring BaseConfig::AXIS_POS_Z = L"Z";
const std::wstring BaseConfig::AXIS_NEG_X = L"-X";
const std::wstring BaseConfig::AXIS_NEG_Y = L"-Y";
const std::wstring BaseConfig::AXIS_NEG_Z = L"-Z";
const std::wstring BaseConfig::SHAPE_CYLINDER = L"Cylinder";
const std::wstring BaseConfig::SHAPE_FLAT = L"Flat";
const std::wstring BaseConfig::SHAPE_RULED = L"Ruled";
const std::wstring BaseConfig::SHAPE_SPHERE = L"Sphere";
const std::wstring BaseConfig::SHAPE_TEST = L"Test";
const std::wstring BaseConfig::SHAPE_TOROID = L"Toroid";
const std::wstring BaseConfig::SHAPE_VRML = L"VRML";
const std::wstring BaseConfig::TARGET_DATA_3D = L"3D";
const std::wstring BaseConfig::TARGET_DATA_CUSTOM_PLANAR = L"Custom Planar";
const std::wstring BaseConfig::TARGET_DATA_PLANAR_ADVANCED = L"Planar-advanced";
const std::wstring BaseConfig::TARGET_DATA_PLANAR_BASIC = L"Planar-basic";
const std::wstring BaseConfig::TARGET_DATA_PROJECTOR_CENTRIC = L"Projector Centric";
const std::wstring BaseConfig::TARGET_DATA_PROJECTOR_POSE = L"Projector Pose";
const std::wstring BaseConfig::TARGET_DATA_SPHERICAL = L"Spherical";
const std::wstring BaseConfig::TARGET_DATA_SPHERICAL_COLLIMATED = L"Collimated";
const int BaseConfig::INPUT_IMAGE_SCALING_MODE_FULLSIZE = 0;
const int BaseConfig::INPUT_IMAGE_SCALING_MODE_NOSCALING = 1;
const int BaseConfig::OUTPUT_DEFAULT = 0;
const int BaseConfig::OUTPUT_MPAC = 2;
