#include "tests/support/OldFiles.h"

#include "platform/Numbers.h"
#include "platform/Text.h"

namespace {

using Texts = std::vector<const char*>;

const Texts values = {"0",
                      "1",
                      "2",
                      "-1",
                      "5",
                      "21",
                      "1400",
                      "1920",
                      "99999999999",
                      "1.5",
                      "2.0",
                      "-0.25",
                      "nan",
                      "1e400",
                      "abc",
                      "",
                      " ",
                      "true",
                      "False",
                      "led",
                      "manual",
                      "serial",
                      "Serial",
                      "ethernet",
                      "COM1",
                      "COM12",
                      "55",
                      "30,35",
                      "1,2,3,4",
                      ",",
                      "21, 21",
                      "31,31",
                      "00:11:22:33:44:55",
                      "00:11:22:33:44:66",
                      "00:b0,[10.0.0.1]",
                      "00:b0,10.0.0.2",
                      "m,[1",
                      "[,]",
                      "a &amp; b",
                      "&lt;port&gt;",
                      "\"quoted\" 'twice'",
                      "B\xC3\xBChne \xE6\x97\xA5\xE6\x9C\xAC",
                      "Feet",
                      "  spaced  ",
                      "]]&gt;",
                      "0x10",
                      "1.50000000000001"};

const Texts projectorKeys = {"ID",
                             "Protocol",
                             "Projector_MAC_Address",
                             "Projector_Comm_String",
                             "Projector_Comm_Long",
                             "Spherical_Angle_Left",
                             "Spherical_Angle_Right",
                             "Spherical_Angle_Bottom",
                             "Spherical_Angle_Top",
                             "Top_Edge",
                             "Bottom_Edge",
                             "Left_Edge",
                             "Right_Edge",
                             "Resolution_X",
                             "Resolution_Y",
                             "Portrait_Mode",
                             "Edge_Blob_Offset_X",
                             "ImageResolution_X",
                             "ImageResolution_Y",
                             "InputImageScaling_Mode",
                             "Box_Size",
                             "Box_Spacing",
                             "X_Pixel_Size",
                             "GeomPnts",
                             "Sample_Region"};

const Texts cameraKeys = {"Camera_Comm_String",
                          "Camera_Comm_Long",
                          "MultiCamEdgeThreshold",
                          "MaskingROIPixelBuffer",
                          "MaskingROIScreenAreaPercentage",
                          "SerialNumber",
                          "Model",
                          "Resolution_X",
                          "Resolution_Y",
                          "Protocol",
                          "Bit_Depth",
                          "Camera_Lens_Name",
                          "ShowOnOffMapperBlobs",
                          "Automatic_Binarization",
                          "Automatic_Exposure",
                          "Locate_Screen",
                          "Calibration_Type",
                          "Aperture",
                          "Channel_0",
                          "Channel_49",
                          "Kappa",
                          "LensDropoffPnts_3",
                          "InterCameraDeltaSample_0"};

const Texts geometryKeys = {"CalConf1",
                            "CalConf2",
                            "CalConf4",
                            "Blob_Width",
                            "Edge_Blob_Offset",
                            "CalibrationEngine",
                            "Blob_Location_Algorithm",
                            "Use_Quick_Cal",
                            "Mapper_Box_Size",
                            "Mapper_Spacing",
                            "Warp_Memory_Location",
                            "Warp_Memory_Name",
                            "Blend_Memory_Name",
                            "Memory_Location",
                            "Auto_Masking_Type",
                            "Fit_Order",
                            "Fit_Solver",
                            "IsStacked",
                            "Portrait_Mode",
                            "Box_Size",
                            "Box_Spacing",
                            "ImageResolution_X",
                            "InputResolutionX"};

const Texts systemKeys = {"Portrait_Mode",    "Use_Frame_Grabber",      "Imaging_Library",
                          "Image_Export_Dir", "Load_Skorra_File",       "Length_Unit",
                          "AngleUnit",        "Marker_Location_Method", "Parallelize_Sends"};

const Texts screenKeys = {"Unit", "AngleUnit", "Mask_AngleUnit", "GUI_3DPointDistribution", "Eye_Point", "SizeDefinition"};

const Texts targetKeys = {"Unit",
                          "AngleUnit",
                          "Center_Point",
                          "Height",
                          "MinPhi",
                          "Inset_Border",
                          "Inset_Unit",
                          "ChannelExtentsAngleUnit",
                          "Overlap_Display_Unit"};

const Texts colorKeys = {"MaxIterationsColor", "AdvColor_TargetSizeX", "Brightness_Tolerance", "Colorimeter_Type"};

const Texts versions = {"",      "abc",   "0.9",   "1.000", "1.500", "1.999", "2.000", "2.003", "2.005", "2.500", "3.000",
                        "3.700", "4.000", "4.999", "5.000", "5.500", "6.000", "6.100", "7.000", "7.900", "8.000", "8.999"};

enum SectionKind { Projector, Camera, Geometry, Misspelt, System, Screen, TargetLocator, Color, Unknown, sectionKinds };

}  // namespace

std::string OldFiles::item(const std::string& key, const std::string& value) const {
    return value.empty() ? "<" + key + "/>" : "<" + key + ">" + value + "</" + key + ">";
}

std::string OldFiles::items(const Texts& keys) {
    std::string xml;
    for (const char* key : keys) {
        if (oneIn(2)) xml += item(key, anyOf(values));
        if (oneIn(30)) xml += item(key, anyOf(values));
    }
    return xml;
}

// Something that no step knows: an element, an element with elements in it, or a comment.
std::string OldFiles::unknown(std::vector<std::string>& kept) {
    const std::string number = std::to_string(m_unknown++);
    const std::string open = "<Kept n=\"" + number + "\"";
    const std::string value = anyOf(values);
    switch (below(3)) {
        case 0:
            kept.push_back("<!--kept " + number + "-->");
            break;
        case 1:
            kept.push_back(open + " z=\"&amp;\">" + value + "x</Kept>");
            break;
        default:
            kept.push_back(open + ">x<Resolution_X b=\"c\">" + value + "1</Resolution_X>y</Kept>");
            break;
    }
    return kept.back();
}

std::string OldFiles::identifier() {
    if (oneIn(12)) return "";
    return std::string(" ID=\"") +
           anyOf<const char*>({"1", "2", "3", "4", "left", "VELDAR***00:11:22:33:44:55", "&lt;&amp;&quot;"}) + "\"";
}

std::string OldFiles::projector(std::vector<std::string>& kept) {
    std::string xml = "<Projector" + identifier() + ">";
    xml += unknown(kept);
    xml += items(projectorKeys);
    if (oneIn(4))
        xml += anyOf<const char*>(
            {"<DeviceSnippet/>", "<DeviceSnippet>text</DeviceSnippet>",
             "<DeviceSnippet><device UID=\"VELDAR***old\" type=\"VELDAR\"><id>1</id></device></DeviceSnippet>"});
    if (oneIn(4)) xml += "<Channel_Extents><VFOV><Top>1</Top><Extra/></VFOV></Channel_Extents>";
    return xml + unknown(kept) + "</Projector>";
}

std::string OldFiles::camera(std::vector<std::string>& kept) {
    const std::string id =
        oneIn(12) ? "" : std::string(" ID=\"") + anyOf<const char*>({"1", "2", "3", "\xC3\xBC&amp;"}) + "\"";
    const std::string type = anyOf<const char*>({"0", "1", " 1", "0.9", "2", "-1", "abc", "", "(none)"});
    std::vector<std::string> own;
    std::string xml = "<Camera" + id + ">" + unknown(own);
    if (type != "(none)") xml += item("CameraType", type);
    xml += items(cameraKeys);
    if (oneIn(2)) {
        xml += "<Connection>" + item("MAC_Address", anyOf(values));
        xml += item("DHCP", anyOf(values)) + "<Kept_No_Longer/></Connection>";
    }
    if (oneIn(8)) xml += anyOf<const char*>({"<DeviceSnippet/>", "<DeviceSnippet><device UID=\"x\"/></DeviceSnippet>"});
    xml += unknown(own) + "</Camera>";
    // "abc" and the empty text read as type 0; a section without an identifier is never visited.
    const bool isKnown = type != "2" && type != "-1" && type != "(none)";
    if (isKnown || id.empty()) kept.insert(kept.end(), own.begin(), own.end());
    return xml;
}

std::string OldFiles::fixed(const std::string& name, const Texts& keys, std::vector<std::string>& kept) {
    std::string xml = "<" + name + ">" + unknown(kept);
    xml += items(keys);
    return xml + unknown(kept) + "</" + name + ">";
}

std::string OldFiles::section(std::size_t kind, std::vector<std::string>& kept) {
    switch (kind) {
        case Projector:
            return projector(kept);
        case Camera:
            return camera(kept);
        case Geometry:
            return fixed("Geometry", geometryKeys, kept);
        case Misspelt:
            return oneIn(3) ? fixed("Geomtry", {"Mapper_Spacing"}, kept) : "";  // misspelt on purpose, as the step has it
        case System:
            return fixed("System", systemKeys, kept);
        case Screen:
            return fixed("Screen", screenKeys, kept);
        case TargetLocator:
            return fixed("TargetLocator", targetKeys, kept);
        case Color:
            return fixed("Color", colorKeys, kept);
        default:
            return unknown(kept);
    }
}

OldFile OldFiles::make() {
    OldFile file;
    const std::string version = anyOf(versions);
    file.version = XMLConfig::detail::leadingDouble(XMLConfig::detail::fromUtf8(version));
    std::string sections;
    const std::size_t count = below(16);
    for (std::size_t i = 0; i < count; ++i) {
        sections += section(oneIn(2) ? below(2) : below(sectionKinds), file.kept);
    }
    file.text = "<ConfigInfo>" + item("Version", version);
    file.text += anyOf<const char*>({"", "<BuildDate>Jan 01 2001</BuildDate>"});
    file.text += anyOf<const char*>({"", "<BuildNumber>1.0</BuildNumber>"});
    file.text += anyOf<const char*>({"", "<DevelopedBy>x</DevelopedBy>"});
    file.text += sections + "</ConfigInfo>";
    return file;
}
