#include "CMedianTable.h"

#include <algorithm>
#include <cstdio>

namespace bench {

namespace {

void addOnce(std::vector<std::string> &list, const std::string &name)
{
    if (std::find(list.begin(), list.end(), name) == list.end())
        list.push_back(name);
}

} // namespace

void CMedianTable::ReportRuns(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        const std::string &name = run.run_name.function_name;
        if (run.error_occurred)
            std::printf("%s: %s\n", name.c_str(), run.error_message.c_str());
        if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median")
            continue;
        const size_t first = name.find('/');
        const size_t second = name.find('/', first + 1);
        if (second == std::string::npos)
            continue;
        const std::string title = name.substr(0, first);
        addOnce(m_order, title);
        STable &table = m_tables[title];
        addOnce(table.rows, name.substr(first + 1, second - first - 1));
        addOnce(table.columns, name.substr(second + 1));
        table.times[name.substr(first + 1)] = run.GetAdjustedCPUTime();
        table.unit = benchmark::GetTimeUnitString(run.time_unit);
    }
}

void CMedianTable::Finalize()
{
    for (const std::string &title : m_order)
        print(title, m_tables[title]);
}

void CMedianTable::print(const std::string &name, const STable &table)
{
    const std::string title = name + ", " + table.unit;
    std::printf("\n%-28s", title.c_str());
    for (const std::string &column : table.columns)
        std::printf("%12s", column.c_str());
    std::printf("%12s\n", table.columns.size() > 1 ? "ratio" : "");
    for (const std::string &row : table.rows) {
        std::printf("%-28s", row.c_str());
        std::vector<double> times;
        for (const std::string &column : table.columns) {
            const auto found = table.times.find(row + "/" + column);
            times.push_back(found == table.times.end() ? 0 : found->second);
            std::printf("%12.2f", times.back());
        }
        if (times.size() > 1 && times[0] > 0)
            std::printf("%12.2f", times[1] / times[0]);
        std::printf("\n");
    }
    std::fflush(stdout);
}

} // namespace bench
