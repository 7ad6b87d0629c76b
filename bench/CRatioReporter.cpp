#include "CRatioReporter.h"

#include "StandardScreen.h"

#include <cstdio>

namespace bench {

namespace {

std::vector<std::string> split(const std::string &text)
{
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == '/')
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

double timeOf(const std::map<std::string, double> &column, const std::string &section)
{
    const auto found = column.find(section);
    return found == column.end() ? 0 : found->second;
}

} // namespace

bool CRatioReporter::ReportContext(const Context &)
{
    return true;
}

void CRatioReporter::ReportRuns(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median")
            continue;
        const auto name = split(run.run_name.function_name);
        if (name.size() == 3)
            m_times[name[1]][name[0]][name[2]] = run.GetAdjustedCPUTime();
    }
}

void CRatioReporter::Finalize()
{
    for (const auto &[size, columns] : m_times)
        printTable(size, columns);
}

void CRatioReporter::printTable(const std::string &size,
                                const std::map<std::string, Column> &columns) const
{
    std::printf("\n%s, us%*s", size.c_str(), static_cast<int>(18 - size.size()), "");
    for (const auto &[name, column] : columns)
        std::printf("%12s", name.c_str());
    for (int i = 0; i < SectionCount; ++i) {
        const std::string section = sectionName(static_cast<ESection>(i));
        std::printf("\n%-22s", section.c_str());
        for (const auto &[name, column] : columns) {
            const double cleared = i > 0 ? timeOf(column, Empty) : 0;
            std::printf("%12.1f", timeOf(column, section) - cleared);
        }
    }
    std::printf("\n%-22s", Whole);
    for (const auto &[name, column] : columns)
        std::printf("%12.1f", timeOf(column, Whole));
    const auto painter = columns.find(Painter);
    if (painter != columns.end()) {
        std::printf("\n%-22s", "of QPainter");
        for (const auto &[name, column] : columns)
            std::printf("%12.3f", timeOf(column, Whole) / timeOf(painter->second, Whole));
    }
    std::printf("\n");
    std::fflush(stdout);
}

} // namespace bench
