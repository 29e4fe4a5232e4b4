// The two text files of a data set.
#pragma once

#include <optional>

#include "base/error.h"
#include "base/message_box.h"
#include "data/working_copy.h"

namespace tolmer {

// Reads mtDataFileName: where mbLabeledData the heading of the label column, then miNumCols names,
// then miNumCases records of a label (where mbLabeledData) and miNumCols numbers. The reader counts
// fields, lines mean nothing to it, and what follows the last field is not read. The arrays must
// have been dimensioned. A file that cannot be read, ends early or has text in a number's place is
// reported in a message box; what was read before that stays. Of a file that is not the one the
// notebook was compiled with nothing is read, since it may be cut within a number: the data set is
// empty then.
void ReadNewData(WorkingCopy& copy, MessagePort& messages);

// Reads mtDataFileInfoName: line 1 into otVarInfo(0), line i+1 into otVarInfo(i), as they stand.
// Failures as above. Only for a data set with mbInfoAvailable; one without such a file holds what
// is known already.
void ReadVarInfo(WorkingCopy& copy, MessagePort& messages);

// The two from their content, without the box.
std::optional<Error> readDataFields(FieldReader& reader, WorkingCopy& copy);
std::optional<Error> readInfoLines(FieldReader& reader, WorkingCopy& copy);

}  // namespace tolmer
