#include "bookcompiler/complaints.h"

#include <algorithm>

namespace tolmer {

std::vector<Complaint> Complaints::sorted() const {
  std::vector<Complaint> complaints = all_;
  std::stable_sort(complaints.begin(), complaints.end(),
                   [](const Complaint& a, const Complaint& b) { return a.line < b.line; });
  return complaints;
}

}  // namespace tolmer
