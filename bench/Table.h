#pragma once

#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

/// Gathers what was measured and prints it as one table, beside the floors that the project keeps to.
namespace bench {

class Table : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    /// A figure measured elsewhere, under the name a benchmark would have.
    void add(const std::string& name, double value);
    /// Prints the table; false when a benchmark failed.
    bool print() const;

private:
    std::map<std::string, std::vector<double>> m_values;  ///< of each round: nanoseconds of CPU time (of one item), or bytes
    bool m_isContextShown = false;
    bool m_failed = false;
};

}  // namespace bench
