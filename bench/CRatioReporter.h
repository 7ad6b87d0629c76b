#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace bench {

/// Collects processor times of benchmarks named "<who>/<size>/<section>" and prints, for each size,
/// a table of the sections with a column for each renderer and the ratio of the whole screen to
/// the painter's.
class CRatioReporter : public benchmark::BenchmarkReporter
{
public:
    static constexpr const char *Painter = "QPainter";
    static constexpr const char *Whole = "whole";
    /// A cleared frame and nothing else: taken off each section but the first.
    static constexpr const char *Empty = "empty";

    bool ReportContext(const Context &context) override;
    void ReportRuns(const std::vector<Run> &runs) override;
    void Finalize() override;

private:
    using Column = std::map<std::string, double>; ///< microseconds by section
    void printTable(const std::string &size, const std::map<std::string, Column> &columns) const;

    std::map<std::string, std::map<std::string, Column>> m_times; ///< by size and renderer
};

} // namespace bench
