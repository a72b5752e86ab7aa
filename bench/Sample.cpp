#include "Sample.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>
#include <unordered_set>

namespace bench {
namespace {

// clang-format off
constexpr SampleItem projectorItems[] = {
    {"Projector", "Name", Kind::Text, "Channel_17", "Channel_18"},
    {"Projector", "Associated_Camera_Id_1", Kind::Text, "1", "2"},
    {"Projector", "Associated_Camera_Id_2", Kind::Text, "2", "1"},
    {"Projector", "Resolution_X", Kind::Integer, "1400", "1920"},
    {"Projector", "Resolution_Y", Kind::Integer, "1050", "1200"},
    {"Projector", "ImageResolution_X", Kind::Integer, "1400", "1920"},
    {"Projector", "ImageResolution_Y", Kind::Integer, "1050", "1200"},
    {"Projector", "InputImageScaling_Mode", Kind::Integer, "0", "1"},
    {"Projector", "Portrait_Mode", Kind::Integer, "0", "1"},
    {"Projector", "Box_Size", Kind::Point, "2.100000000000000e+01, 2.100000000000000e+01, 0.000000000000000e+00",
     "1.100000000000000e+01, 1.100000000000000e+01, 0.000000000000000e+00"},
    {"Projector", "Box_Spacing", Kind::Real, "1.500000000000000e+00", "2.500000000000000e+00"},
    {"Projector", "Gamma", Kind::Real, "2.200000000000000e+00", "1.800000000000000e+00"},
    {"Projector", "Lamp_Power", Kind::Real, "1.000000000000000e+02", "8.000000000000000e+01"},
    {"Projector", "Colour_User", Kind::Integer, "1", "0"},
    {"Projector", "Lamp_Mode", Kind::Text, "Single1", "Single2"},
    {"Projector", "Blend_Top", Kind::Real, "1.234567890123457e+01", "1.134567890123457e+01"},
    {"Projector", "Blend_Bottom", Kind::Real, "1.234567890123457e+01", "1.134567890123457e+01"},
    {"Projector", "Blend_Right", Kind::Real, "2.345678901234568e+01", "2.145678901234568e+01"},
    {"Projector", "Blend_Left", Kind::Real, "2.345678901234568e+01", "2.145678901234568e+01"},
    {"Projector", "Screen_Area_Left", Kind::Real, "-1.000000000000000e+03", "-9.870000000000000e+02"},
    {"Projector", "Screen_Area_Right", Kind::Real, "-1.000000000000000e+03", "-9.870000000000000e+02"},
    {"Projector", "Screen_Area_Top", Kind::Real, "-1.000000000000000e+03", "-9.870000000000000e+02"},
    {"Projector", "Screen_Area_Bottom", Kind::Real, "-1.000000000000000e+03", "-9.870000000000000e+02"},
    {"Projector", "Black_Level", Kind::Real, "0.000000000000000e+00", "1.250000000000000e-01"},
    {"Projector", "Black_Level_Tint", Kind::Integer, "0", "3"},
    {"Projector", "MotoBlend_Open_Command", Kind::Text, "OPEN 17", "OPEN 18"},
    {"Projector", "MotoBlend_Close_Command", Kind::Text, "CLOSE 17", "CLOSE 18"},
    {"Projector", "Fit_Order", Kind::Integer, "3", "4"},
    {"Projector", "Projection_Layout_File", Kind::Text, "layouts\\dome-17.xml", "layouts\\dome-18.xml"},
    {"Projector", "Red_Green_Alignment_Image", Kind::Text, "images\\red-green.png", "images\\red-blue.png"},
    {"Projector", "Pellinor_Warp_Latency", Kind::Integer, "2", "1"},
    {"Projector", "Channel_Extents|Heading|Yaw", Kind::Real, "7.853981633974483e-01", "6.853981633974483e-01"},
    {"Projector", "Channel_Extents|Heading|Pitch", Kind::Real, "-1.745329251994330e-01", "-1.645329251994330e-01"},
    {"Projector", "Channel_Extents|Heading|Roll", Kind::Real, "0.000000000000000e+00", "1.000000000000000e-02"},
    {"Projector", "Channel_Extents|VFOV|Top", Kind::Real, "3.490658503988659e-01", "3.590658503988659e-01"},
    {"Projector", "Channel_Extents|VFOV|Bottom", Kind::Real, "-3.490658503988659e-01", "-3.590658503988659e-01"},
    {"Projector", "Channel_Extents|Eye|Name", Kind::Text, "commander", "co-pilot"},
    {"Projector", "Channel_Extents|Eye|Point", Kind::Point,
     "1.000000000000000e+00, 2.000000000000000e+00, 3.000000000000000e+00",
     "1.500000000000000e+00, 2.500000000000000e+00, 3.500000000000000e+00"},
    {"Projector", "Designed|Frustum|Offset", Kind::Point,
     "0.000000000000000e+00, 0.000000000000000e+00, 0.000000000000000e+00",
     "1.000000000000000e+00, 0.000000000000000e+00, 0.000000000000000e+00"},
    {"Projector", "Designed|Frustum|RotationYPR", Kind::Point,
     "7.853981633974483e-01, -1.745329251994330e-01, 0.000000000000000e+00",
     "6.853981633974483e-01, -1.645329251994330e-01, 0.000000000000000e+00"},
    {"Projector", "Designed|Frustum|FOVLeft", Kind::Real, "-5.235987755982988e-01", "-5.135987755982988e-01"},
    {"Projector", "Designed|Frustum|FOVRight", Kind::Real, "5.235987755982988e-01", "5.135987755982988e-01"},
    {"Projector", "Designed|Frustum|ResolutionX", Kind::Integer, "1400", "1920"},
    {"Projector", "Designed|Frustum|ResolutionY", Kind::Integer, "1050", "1200"},
    {"Projector", "Designed|Lens|Model", Kind::Text, "wide 0.8", "wide 1.2"},
};
constexpr SampleItem cameraItems[] = {
    {"Camera", "Name", Kind::Text, "Camera_3", "Camera_4"},
    {"Camera", "IntrinsicFileID", Kind::Text, "lens-3.intrinsic", "lens-4.intrinsic"},
    {"Camera", "Camera_Reference_Image_RESID", Kind::Text, "reference-3", "reference-4"},
    {"Camera", "Camera_Gain", Kind::Integer, "0", "6"},
    {"Camera", "Geometry_Exposure", Kind::Integer, "100000", "200000"},
    {"Camera", "LED_Exposure", Kind::Integer, "100000", "200000"},
    {"Camera", "MarkedSurface_Exposure", Kind::Integer, "100000", "200000"},
    {"Camera", "Binarization_Threshold", Kind::Integer, "75", "80"},
    {"Camera", "LED_Binarization_Threshold", Kind::Integer, "75", "80"},
    {"Camera", "MarkedSurface_Binarization_Threshold", Kind::Integer, "75", "80"},
    {"Camera", "Marked_Surface_Opacity", Kind::Integer, "20", "30"},
    {"Camera", "SubliminalExposureWindow", Kind::Integer, "75", "80"},
    {"Camera", "Camera_Reference_Image_Timestamp", Kind::Integer, "1552262400", "1552262401"},
    {"Camera", "MaskingROIScreenAreaPercentage", Kind::Real, "1.000000000000000e-04", "2.000000000000000e-04"},
    {"Camera", "ExplicitExtrinsicXYZ", Kind::Point,
     "1.000000000000000e+00, 2.000000000000000e+00, 3.000000000000000e+00",
     "1.500000000000000e+00, 2.500000000000000e+00, 3.500000000000000e+00"},
    {"Camera", "ExplicitExtrinsicYPR", Kind::Point,
     "7.853981633974483e-01, -1.745329251994330e-01, 0.000000000000000e+00",
     "6.853981633974483e-01, -1.645329251994330e-01, 0.000000000000000e+00"},
    {"Camera", "MultiCamEdgeThreshold", Kind::Text, "55,55,55,55", "60,60,60,60"},
    {"Camera", "Solved|Lens|Model", Kind::Text, "fisheye", "rectilinear"},
    {"Camera", "Solved|Lens|FocalLength", Kind::Real, "8.123456789012346e+00", "8.223456789012346e+00"},
    {"Camera", "Solved|Lens|Distortion", Kind::Real, "-1.123456789012346e-02", "-1.223456789012346e-02"},
    {"Camera", "Solved|Image|Width", Kind::Integer, "2448", "1224"},
    {"Camera", "Solved|Image|Height", Kind::Integer, "2048", "1024"},
    {"Camera", "Solved|Pose|XYZ", Kind::Point,
     "1.012345678901235e+00, 2.012345678901235e+00, 3.012345678901235e+00",
     "1.512345678901235e+00, 2.512345678901235e+00, 3.512345678901235e+00"},
    {"Camera", "Solved|Pose|YPR", Kind::Point,
     "7.853981633974483e-01, -1.745329251994330e-01, 0.000000000000000e+00",
     "6.853981633974483e-01, -1.645329251994330e-01, 0.000000000000000e+00"},
    {"Camera", "Solved|Pose|Residual", Kind::Real, "3.214567890123457e-01", "3.114567890123457e-01"},
};
// clang-format on

std::vector<std::string> partsOf(const std::string& key) {
    std::vector<std::string> parts(1);
    for (const char character : key) {
        if (character == '|') {
            parts.emplace_back();
        } else {
            parts.back() += character;
        }
    }
    return parts;
}

void appendLine(std::string& out, std::size_t depth, const std::string& text) {
    out.append(2 * depth, ' ').append(text).append("\n");
}

/// Writes sections as a save lays them out: two blanks a level, neighbours of the same parents together.
class SectionWriter {
public:
    explicit SectionWriter(std::string& out) : m_out(out) {}

    void write(const SampleItem* begin, const SampleItem* end, int id) {
        appendLine(m_out, 1, "<" + std::string(begin->section) + " ID=\"" + std::to_string(id) + "\">");
        for (const SampleItem* item = begin; item != end; ++item) writeItem(*item);
        closeDownTo(0);
        appendLine(m_out, 1, "</" + std::string(begin->section) + ">");
    }

private:
    void writeItem(const SampleItem& item) {
        std::vector<std::string> parts = partsOf(item.key);
        const std::string name = parts.back();
        parts.pop_back();
        std::size_t same = 0;
        while (same < parts.size() && same < m_open.size() && parts[same] == m_open[same]) ++same;
        closeDownTo(same);
        for (; same < parts.size(); ++same) {
            appendLine(m_out, 2 + same, "<" + parts[same] + ">");
            m_open.push_back(parts[same]);
        }
        appendLine(m_out, 2 + same, "<" + name + ">" + item.text + "</" + name + ">");
    }
    void closeDownTo(std::size_t depth) {
        for (; m_open.size() > depth; m_open.pop_back()) appendLine(m_out, 1 + m_open.size(), "</" + m_open.back() + ">");
    }

    std::string& m_out;
    std::vector<std::string> m_open;
};

std::string sampleText(int projectors) {
    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\" ?>\n<ConfigInfo>\n";
    appendLine(out, 1, "<Version>9.000</Version>");
    appendLine(out, 1, "<BuildDate>Mar 11 2019</BuildDate>");
    appendLine(out, 1, "<BuildNumber>2.1.1.14</BuildNumber>");
    appendLine(out, 1, "<DevelopedBy>the benchmark</DevelopedBy>");
    SectionWriter writer(out);
    for (int id = 1; id <= projectors; ++id) writer.write(std::begin(projectorItems), std::end(projectorItems), id);
    for (int id = 1; id <= projectors / 2; ++id) writer.write(std::begin(cameraItems), std::end(cameraItems), id);
    return out + "</ConfigInfo>\n";
}

std::string makeFolder() {
    const bool memory = std::filesystem::is_directory("/dev/shm");
    const std::filesystem::path parent = memory ? std::filesystem::path("/dev/shm") : std::filesystem::temp_directory_path();
    std::string pattern = (parent / "xmlconfig-bench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("cannot make a folder in " + parent.string());
    return pattern;
}

std::string& folder() {
    static std::string made = makeFolder();
    return made;
}

const std::wstring& kept(const std::wstring& text) {
    static std::unordered_set<std::wstring> texts;
    return *texts.insert(text).first;
}

template <typename Items>
void appendAddresses(std::vector<Address>& out, const Items& items, int count) {
    for (int id = 1; id <= count; ++id)
        for (const SampleItem& item : items)
            out.push_back({kept(widened(item.section)), kept(std::to_wstring(id)), kept(widened(item.key)), item});
}

}  // namespace

bool Address::isDeep() const { return key.find(L'|') != std::wstring::npos; }

std::vector<int> sizes() { return {4, 100, 1000, 10000}; }

std::vector<Address> addressesOf(int projectors) {
    std::vector<Address> addresses;
    appendAddresses(addresses, projectorItems, projectors);
    appendAddresses(addresses, cameraItems, projectors / 2);
    return addresses;
}

std::string sampleFile(int projectors) {
    static std::map<int, std::string> written;
    std::string& path = written[projectors];
    if (path.empty()) {
        path = folder() + "/sample-" + std::to_string(projectors) + ".skorrax";
        std::ofstream(path, std::ios::binary) << sampleText(projectors);
    }
    return path;
}

std::string sampleFolder() { return folder(); }

std::string scratchFile() { return folder() + "/saved.skorrax"; }

void removeSamples() { std::filesystem::remove_all(folder()); }

std::wstring widened(const std::string& ascii) { return std::wstring(ascii.begin(), ascii.end()); }

}  // namespace bench
