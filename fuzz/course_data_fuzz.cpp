// Bytes as the two files of a course's data set. The first byte chooses what the notebook states of
// them, a zero byte ends the data. What the notebook's compiler accepts, the program reads whole
// and with a number in every cell.
#include <sys/mman.h>
#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "bookcompiler/course_files.h"
#include "data/data_file.h"
#include "platform/headless/headless_desktop.h"

namespace {

using namespace tolmer;

void require(bool holds) {
  if (!holds) std::abort();
}

// A file in memory, under a name as any other.
class MemoryFile {
 public:
  MemoryFile() : descriptor_(::memfd_create("fuzz", MFD_CLOEXEC)) { require(descriptor_ >= 0); }
  void fill(std::string_view bytes) {
    require(::ftruncate(descriptor_, 0) == 0);
    require(::pwrite(descriptor_, bytes.data(), bytes.size(), 0) ==
            static_cast<ssize_t>(bytes.size()));
  }
  std::string coursePath() const { return "\\" + std::to_string(descriptor_); }

 private:
  int descriptor_;
};

const std::string root = "/proc/self/fd";

WorkingCopy emptyCopy(const DataSetClaim& claim) {
  WorkingCopy copy;
  copy.mtDataFileName = root + claim.dataFile;
  copy.mtDataFileInfoName = root + claim.infoFile;
  copy.mbLabeledData = claim.labeled;
  copy.miNumCases = claim.cases;
  copy.miNumCols = claim.columns;
  DimensionModelDesignerArrays(copy);
  return copy;
}

void read(const DataSetClaim& claim, const FoundDataSet* found) {
  WorkingCopy copy = emptyCopy(claim);
  HeadlessDesktop desktop;
  if (found) {
    copy.dataStamp = found->dataStamp;
    copy.infoStamp = found->infoStamp;
  } else {
    desktop.onMessageBox = [](const MessageBox&) { return Answer::ok; };
  }
  ReadNewData(copy, desktop);
  if (!claim.infoFile.empty()) ReadVarInfo(copy, desktop);
  if (found) require(desktop.boxes().empty());
  for (int i = 1; i <= copy.miNumCases; ++i)
    for (int j = 1; j <= copy.miNumCols; ++j) require(std::isfinite(copy.osData(i, j)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  static MemoryFile dataFile, infoFile;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  const auto end = bytes.find('\0');
  dataFile.fill(bytes.substr(0, end));
  infoFile.fill(end == bytes.npos ? std::string_view() : bytes.substr(end + 1));

  DataSetClaim claim;
  claim.dataFile = dataFile.coursePath();
  if (end != bytes.npos) claim.infoFile = infoFile.coursePath();
  claim.labeled = (data[0] & 1) != 0;
  claim.cases = static_cast<Int16>((data[0] >> 1) & 7);
  claim.columns = static_cast<Int16>((data[0] >> 4) & 7);
  Complaints complaints;
  const auto found = checkDataSet(claim, {root, root}, complaints);
  require(found.has_value() != complaints.hasErrors());
  if (found) {
    claim.cases = found->cases;
    claim.columns = found->columns;
  }
  read(claim, found ? &*found : nullptr);
  return 0;
}
