// Whole processes against the least that could do their work: the report against an empty program,
// the start of the desktop program to its first notebook page against a window with one label.
// Baseline and subject alternate in one run; the counters give the ratio of the median times and,
// where both can be measured, of the peak memory.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

extern char** environ;

namespace {

struct Run {
  double seconds = 0;
  double peakKiB = 0;  // at least this program's own, from whose pages a child starts
};

double ownPeakKiB() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss);
}

// Runs the command with its output thrown away, and waits for it.
Run run(const std::vector<std::string>& command) {
  std::vector<char*> arguments;
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);

  const auto begin = std::chrono::steady_clock::now();
  pid_t child = 0;
  if (posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ) != 0)
    throw std::runtime_error("cannot start " + command[0]);
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
  posix_spawn_file_actions_destroy(&actions);
  if (status != 0) throw std::runtime_error(command[0] + " failed");
  return {time.count(), static_cast<double>(usage.ru_maxrss)};
}

double median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2),
                   values.end());
  return values[values.size() / 2];
}

void compare(benchmark::State& state, const std::vector<std::string>& subject,
             const std::vector<std::string>& baseline) {
  std::vector<double> subjectTimes;
  std::vector<double> baselineTimes;
  double subjectPeak = 0;
  double baselinePeak = 0;
  try {
    for (auto _ : state) {
      const Run least = run(baseline);
      const Run ours = run(subject);
      state.SetIterationTime(ours.seconds);
      subjectTimes.push_back(ours.seconds);
      baselineTimes.push_back(least.seconds);
      subjectPeak = std::max(subjectPeak, ours.peakKiB);
      baselinePeak = std::max(baselinePeak, least.peakKiB);
    }
  } catch (const std::exception& error) {
    return state.SkipWithError(error.what());
  }
  state.counters["ratio"] = median(subjectTimes) / median(baselineTimes);
  state.counters["peak_MiB"] = subjectPeak / 1024;
  // Of a baseline that takes less than this program the peak is not known.
  if (baselinePeak > ownPeakKiB()) state.counters["peak_ratio"] = subjectPeak / baselinePeak;
}

// A data set of made-up values with a few digits each, the same at every run.
std::string dataFile(int cases, int variables) {
  std::string text;
  for (int j = 1; j <= variables; ++j) text += (j > 1 ? ",V" : "V") + std::to_string(j);
  std::uint64_t seed = 20240229;
  for (int i = 0; i < cases; ++i) {
    for (int j = 0; j < variables; ++j) {
      seed = seed * 6364136223846793005U + 1442695040888963407U;
      text += (j > 0 ? "," : "\n") + std::to_string(seed >> 50U) + "." +
              std::to_string((seed >> 40U) % 1000);
    }
  }
  const std::string path = std::string(TOLMER_BENCH_FOLDER) + "/data_" + std::to_string(cases) +
                           "x" + std::to_string(variables) + ".csv";
  std::ofstream(path, std::ios::binary) << text << '\n';
  return path;
}

const std::string programs = TOLMER_PROGRAM_FOLDER;
const std::string bench = TOLMER_BENCH_FOLDER;

void reportOf24x4(benchmark::State& state) {
  const std::string file = dataFile(24, 5);
  compare(state, {programs + "/tolreport", file, "--y", "V1", "--format", "json"},
          {bench + "/empty_process"});
}

// The literal pipeline alone, without reading or writing anything, is the baseline here.
void reportOf500x49(benchmark::State& state) {
  const std::string file = dataFile(500, 50);
  compare(state, {programs + "/tolreport", file, "--y", "V1", "--format", "json"},
          {bench + "/literal_process"});
}

void firstNotebookPage(benchmark::State& state) {
  compare(state, {programs + "/tolmer", "--leave-after-first-page"}, {bench + "/one_label"});
}

BENCHMARK(reportOf24x4)->UseManualTime()->Iterations(60)->Unit(benchmark::kMillisecond);
BENCHMARK(reportOf500x49)->UseManualTime()->Iterations(40)->Unit(benchmark::kMillisecond);
BENCHMARK(firstNotebookPage)->UseManualTime()->Iterations(30)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  setenv("XDG_STATE_HOME", TOLMER_BENCH_FOLDER "/no_state",
         1);  // no work of another run to tell of
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
