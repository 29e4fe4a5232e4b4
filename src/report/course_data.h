// The data sets of the course's notebook, for a report.
#pragma once

#include <string>

#include "base/error.h"
#include "base/message_box.h"
#include "data/working_copy.h"
#include "report/options.h"

namespace tolmer {

// The default example or an example with its model, as the designer would open on it. Examples are
// counted through the pages of the notebook's examples section. Errors: no notebook, a damaged one,
// no example of that number. Trouble with the data files goes to `messages`, as in the program.
Result<WorkingCopy> courseDataSet(const ReportOptions& options, MessagePort& messages);

}  // namespace tolmer
