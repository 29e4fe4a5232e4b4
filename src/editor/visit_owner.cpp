#include "editor/visit_owner.h"

#include <sys/utsname.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <sstream>

namespace tolmer {
namespace {

std::string machine() {
  struct utsname about {};
  return ::uname(&about) == 0 ? about.nodename : "?";
}

std::string machineStart() {
  std::string id = "?";
  std::ifstream("/proc/sys/kernel/random/boot_id") >> id;
  return id;
}

// In ticks since the machine's start; process numbers are used again. Empty where there is no such
// process.
std::string processStart(const std::string& process) {
  std::ifstream file("/proc/" + process + "/stat");
  const std::string all{std::istreambuf_iterator<char>(file), {}};
  const auto nameEnd = all.rfind(')');  // the program's name may have blanks
  if (nameEnd == std::string::npos) return {};
  std::istringstream fields(all.substr(nameEnd + 1));
  constexpr int fieldsToStart = 20;  // behind the name
  std::string field;
  for (int i = 0; i < fieldsToStart; ++i) fields >> field;
  return field;
}

}  // namespace

std::string ownerName() {
  const std::string process = std::to_string(::getpid());
  return machine() + " " + machineStart() + " " + process + " " + processStart(process);
}

bool ownerRuns(const std::string& name, std::time_t lastSign) {
  constexpr std::time_t day = 24 * 60 * 60;
  std::istringstream parts(name);
  std::string host, start, process, since;
  if (!(parts >> host >> start >> process >> since)) return false;
  if (host != machine()) return lastSign > std::time(nullptr) - day;
  return start == machineStart() && since == processStart(process);
}

}  // namespace tolmer
