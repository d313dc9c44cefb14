// SPDX-License-Identifier: MIT

// The main function of every benchmark: runs them, then prints each time of a topic as a ratio to the limit and to
// ours. A benchmark's name is Topic/who or Topic/who/size; "limit" is the best kernel we could write, "ours" the
// library.

#include <benchmark/benchmark.h>

#include <QApplication>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

struct Entry
{
    std::string who;
    double time; // s
};

//! Splits "Topic/who/size" and gives "Topic/size" with the middle taken out.
std::string TopicOf(std::string const & name, std::string & who)
{
    auto const first = name.find('/');
    if (first == std::string::npos)
        return {};
    auto const second = name.find('/', first + 1);
    who = name.substr(first + 1, second == std::string::npos ? std::string::npos : second - first - 1);
    return name.substr(0, first) + (second == std::string::npos ? std::string() : name.substr(second));
}

class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(std::vector<Run> const & runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (Run const & run : runs)
            if (run.run_type == Run::RT_Iteration ? run.repetitions <= 1 : run.aggregate_name == "median")
                Take(run);
    }

    void Finalize() override
    {
        ConsoleReporter::Finalize();
        std::printf("\n"); // the table may end in a colour code
        for (auto const & topic : m_topics)
            Print(topic.first, topic.second);
    }

private:
    void Take(Run const & run)
    {
        std::string who;
        std::string const topic = TopicOf(run.run_name.str(), who);
        if (!topic.empty() && !run.error_occurred)
            m_topics[topic].push_back(
                { who, run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit) });
    }

    static double TimeOf(std::vector<Entry> const & entries, char const * who)
    {
        for (Entry const & entry : entries)
            if (entry.who == who)
                return entry.time;
        return 0.0;
    }

    static void Print(std::string const & topic, std::vector<Entry> const & entries)
    {
        double const limit = TimeOf(entries, "limit");
        double const ours = TimeOf(entries, "ours");
        for (Entry const & entry : entries) {
            std::printf("ratio  %-40s %-16s", topic.c_str(), entry.who.c_str());
            if (limit > 0.0)
                std::printf("  %8.2f x limit", entry.time / limit);
            if (ours > 0.0)
                std::printf("  %8.2f x ours", entry.time / ours);
            std::printf("\n");
        }
    }

    std::map<std::string, std::vector<Entry>> m_topics;
};

} // namespace

int main(int argc, char * argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    QApplication application(argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
