#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace bench {

/// Collects the median processor times of benchmarks named "<table>/<row>/<column>" and prints each
/// table with its rows and columns in the order in which they came, followed by the ratio of the
/// second column to the first one.
class CMedianTable : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override;
    void Finalize() override;

private:
    struct STable
    {
        std::vector<std::string> rows;
        std::vector<std::string> columns;
        std::map<std::string, double> times; ///< by "<row>/<column>"
        std::string unit;
    };
    static void print(const std::string &name, const STable &table);

    std::vector<std::string> m_order;
    std::map<std::string, STable> m_tables;
};

} // namespace bench
