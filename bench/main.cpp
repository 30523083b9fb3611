#include "imaging/decode/start_imaging.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>

#include <string>
#include <vector>

/// Runs every benchmark several times and prints the medians, unless the arguments say otherwise.
int main(int argc, char** argv) {
    quarlin::startImaging();
    const QCoreApplication application(argc, argv);
    std::vector<std::string> defaults{"--benchmark_repetitions=5", "--benchmark_min_time=0.05",
                                      "--benchmark_display_aggregates_only=true"};
    std::vector<char*> arguments{argv[0]};
    for (std::string& argument : defaults) {
        arguments.push_back(argument.data());
    }
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
