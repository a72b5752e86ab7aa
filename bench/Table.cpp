#include "Table.h"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <optional>

#include "Sample.h"

namespace bench {
namespace {

using Values = std::vector<double>;

double median(Values values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2.0;
}

/// The median of the rounds' own ratios.
double medianRatio(const Values& above, const Values& below) {
    Values ratios;
    for (std::size_t i = 0; i < std::min(above.size(), below.size()); ++i) ratios.push_back(above[i] / below[i]);
    return median(ratios);
}

std::string shown(double value, const char* const (&units)[4], double step) {
    std::size_t unit = 0;
    for (; unit < 3 && value >= step; ++unit) value /= step;
    char text[32];
    std::snprintf(text, sizeof text, "%.*f %s", value < 10 ? 2 : value < 100 ? 1 : 0, value, units[unit]);
    return text;
}
std::string shownTime(double nanoseconds) { return shown(nanoseconds, {"ns", "us", "ms", "s"}, 1000.0); }
std::string shownSize(double bytes) { return shown(bytes, {"B", "KiB", "MiB", "GiB"}, 1024.0); }
std::string shownRatio(double ratio) {
    char text[32];
    std::snprintf(text, sizeof text, "%.*f", ratio < 0.1 ? 4 : 2, ratio);
    return text;
}

void printLine(const std::string& what, const std::string& size, const std::string& library, const std::string& raw,
               const std::string& ratio, const std::string& floor, const std::string& verdict) {
    std::printf("%-16s %10s %12s %12s %8s  %-10s %s\n", what.c_str(), size.c_str(), library.c_str(), raw.c_str(),
                ratio.c_str(), floor.c_str(), verdict.c_str());
}

/// What a row is held to.
struct Floor {
    enum class Of { Nothing, Ratio, Value };
    Of of = Of::Nothing;
    double limit = 0.0;
};

class Printer {
public:
    explicit Printer(const std::map<std::string, Values>& values) : m_values(values) {}

    void row(const std::string& operation, int projectors, const Floor& floor, std::string (*show)(double),
             const char* beside = "raw") {
        const std::string size = std::to_string(projectors);
        const Values* const library = find(operation + "/library/" + size);
        const Values* const raw = find(operation + "/" + beside + "/" + size);
        if (library == nullptr || raw == nullptr) return;
        const double ratio = medianRatio(*library, *raw);
        const double judged = floor.of == Floor::Of::Ratio ? ratio : median(*library);
        const std::string limit = floor.of == Floor::Of::Nothing
                                      ? ""
                                      : "<= " + (floor.of == Floor::Of::Ratio ? shownRatio(floor.limit) : show(floor.limit));
        printLine(operation, size, show(median(*library)), show(median(*raw)), shownRatio(ratio), limit,
                  verdict(floor, judged));
    }

    /// A job of the library and of all other XML libraries that were measured, and the ratios to each. With a limit, the
    /// ratios to others than Xerces-C are held to it.
    void beside(const std::string& operation, int projectors, std::optional<double> limit = std::nullopt) {
        const std::string size = std::to_string(projectors);
        const Values* const library = find(operation + "/library/" + size);
        if (library == nullptr) return;
        std::string times = paddedTime(library);
        std::string ratios;
        double worst = 0.0;
        for (const char* other : others) {
            const Values* const values = find(operation + "/" + other + "/" + size);
            times += paddedTime(values);
            ratios += padded(values == nullptr ? "-" : shownRatio(medianRatio(*library, *values)), 9);
            if (values != nullptr && other != others[0]) worst = std::max(worst, medianRatio(*library, *values));
        }
        const Floor floor{limit && worst > 0.0 ? Floor::Of::Ratio : Floor::Of::Nothing, limit.value_or(0.0)};
        const std::string shownLimit = limit ? "<= " + shownRatio(*limit) : "";
        std::printf("%-10s %10s%s%s  %-8s %s\n", operation.c_str(), size.c_str(), times.c_str(), ratios.c_str(),
                    shownLimit.c_str(), verdict(floor, worst).c_str());
    }

    /// How an operation of the library slows down with the size of the document.
    void growth(const std::string& operation, int from, int to, double limit) {
        const Values* const small = find(operation + "/library/" + std::to_string(from));
        const Values* const large = find(operation + "/library/" + std::to_string(to));
        if (small == nullptr || large == nullptr) return;
        const double ratio = medianRatio(*large, *small);
        const std::string sizes = std::to_string(from) + "-" + std::to_string(to);
        const Floor floor{Floor::Of::Ratio, limit};
        printLine(operation + " growth", sizes, "", "", shownRatio(ratio), "<= " + shownRatio(limit), verdict(floor, ratio));
    }

    void end() const {
        std::printf("\n%d of %d floors kept; medians of CPU time and of each round's ratios", m_kept, m_kept + m_missed);
        std::printf("%s\n",
                    m_missed > 0 ? "; what is missed may be the machine's noise: measure again when it is idle" : "");
    }

private:
    static constexpr const char* others[] = {"raw", "pugixml", "libxml2"};

    static std::string padded(const std::string& text, std::size_t width) {
        return std::string(width - std::min(width, text.size()), ' ') + text;
    }
    static std::string paddedTime(const Values* values) {
        return padded(values == nullptr ? "-" : shownTime(median(*values)), 11);
    }

    [[nodiscard]] const Values* find(const std::string& name) const {
        const auto found = m_values.find(name);
        return found == m_values.end() ? nullptr : &found->second;
    }
    std::string verdict(const Floor& floor, double value) {
        if (floor.of == Floor::Of::Nothing) return "";
        ++(value <= floor.limit ? m_kept : m_missed);
        return value <= floor.limit ? "kept" : "MISSED";
    }

    const std::map<std::string, Values>& m_values;
    int m_kept = 0;
    int m_missed = 0;
};

}  // namespace

bool Table::ReportContext(const Context& context) {
    if (!m_isContextShown) benchmark::BenchmarkReporter::PrintBasicContext(&std::cerr, context);
    m_isContextShown = true;
    return true;
}

void Table::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred) {
            std::cerr << run.benchmark_name() << ": " << run.error_message << "\n";
            m_failed = true;
        } else if (run.run_type == Run::RT_Iteration) {
            const auto items = run.counters.find("items_per_second");
            add(run.run_name.function_name,
                items == run.counters.end() ? run.GetAdjustedCPUTime() : 1e9 / items->second.value);
        }
    }
}

void Table::add(const std::string& name, double value) { m_values[name].push_back(value); }

bool Table::print() const {
    Printer printer(m_values);
    std::printf("\n");
    printLine("operation", "projectors", "XMLConfig", "Xerces-C", "ratio", "floor", "");
    for (const int projectors : sizes()) printer.row("load", projectors, {Floor::Of::Ratio, 0.5}, shownTime);
    for (const int projectors : sizes()) printer.row("peak_memory", projectors, {Floor::Of::Ratio, 1.05}, shownSize);
    for (const int projectors : sizes()) printer.row("save", projectors, {Floor::Of::Ratio, 1.0}, shownTime);
    printer.row("open_close", 6, {Floor::Of::Ratio, 1.1}, shownTime);
    printer.row("get", 4, {Floor::Of::Value, 300.0}, shownTime);
    for (const int projectors : {100, 1000, 10000}) printer.row("get", projectors, {}, shownTime);
    printer.growth("get", 100, 10000, 1.2);
    for (const char* kind : {"text", "int", "double", "point"})
        for (const char* depth : {"_flat", "_deep"})
            for (const int projectors : sizes()) printer.row(std::string("get_") + kind + depth, projectors, {}, shownTime);
    printer.row("set", 4, {Floor::Of::Value, 1000.0}, shownTime);
    for (const int projectors : {100, 1000, 10000}) printer.row("set", projectors, {}, shownTime);
    printer.growth("set", 100, 10000, 1.2);

    for (const int projectors : sizes()) {
        // What users do with a document in one go; the floors are the counted instructions' with room for a machine's noise.
        const double limit = projectors <= 4 ? 0.5 : projectors <= 100 ? 0.3 : 0.1;
        printer.row("round_trip", projectors, {Floor::Of::Ratio, limit}, shownTime);
    }
    std::printf("\n%-10s %10s%11s%11s%11s%11s%9s%9s%9s\n", "operation", "projectors", "XMLConfig", "Xerces-C", "pugixml",
                "libxml2", "/Xerces", "/pugixml", "/libxml2");
    for (const char* operation : {"load", "save", "get"})
        for (const int projectors : sizes()) printer.beside(operation, projectors);
    printer.beside("round_trip", 4);
    printer.beside("round_trip", 100, 1.0);
    printer.beside("round_trip", 1000, 1.0);
    std::printf("\n");

    printLine("one projector", "projectors", "accessors", "store", "ratio", "floor", "");
    printer.row("accessors", 100, {}, shownTime, "store");
    printer.row("accessors", 1000, {Floor::Of::Ratio, 2.0}, shownTime, "store");
    printer.row("accessors", 10000, {}, shownTime, "store");
    printer.growth("accessors", 100, 10000, 1.2);
    printer.growth("unit_count", 100, 10000, 3.0);
    printLine("one device", "projectors", "upgraded", "load by Xe.", "ratio", "floor", "");
    printer.row("upgrade", 100, {}, shownTime);
    printer.row("upgrade", 1000, {Floor::Of::Ratio, 0.8}, shownTime);
    printer.row("upgrade", 10000, {}, shownTime);
    printer.growth("upgrade", 100, 1000, 1.2);
    printer.growth("upgrade", 1000, 10000, 1.2);
    printer.growth("upgrade", 100, 10000, 1.2);
    printLine("one projector", "projectors", "with a value", "load", "ratio", "floor", "");
    for (const int projectors : sizes()) printer.row("read_one", projectors, {Floor::Of::Ratio, 1.1}, shownTime, "load");
    printer.growth("read_one", 100, 10000, 1.2);
    printLine("one projector", "projectors", "with layout", "load", "ratio", "floor", "");
    printer.row("layout", 100, {}, shownTime, "load");
    printer.row("layout", 1000, {Floor::Of::Ratio, 2.0}, shownTime, "load");
    printer.row("layout", 10000, {}, shownTime, "load");
    printer.growth("layout", 100, 10000, 1.2);
    printLine("one projector", "projectors", "two compared", "load", "ratio", "floor", "");
    printer.row("diff", 100, {}, shownTime, "load");
    printer.row("diff", 1000, {Floor::Of::Ratio, 4.0}, shownTime, "load");
    printer.row("diff", 10000, {}, shownTime, "load");
    printer.growth("diff", 100, 10000, 1.2);
    printLine("one projector", "projectors", "with check", "load", "ratio", "floor", "");
    printer.row("check", 100, {}, shownTime, "load");
    printer.row("check", 1000, {Floor::Of::Ratio, 3.0}, shownTime, "load");
    printer.row("check", 10000, {}, shownTime, "load");
    printer.growth("check", 100, 10000, 1.2);
    printer.end();
    return !m_failed;
}

}  // namespace bench
