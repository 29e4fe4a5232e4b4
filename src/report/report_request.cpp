#include "report/report_request.h"

#include <algorithm>

namespace tolmer {

std::vector<ReportPart> allParts() {
  std::vector<ReportPart> parts = inReadingOrder();
  parts.insert(parts.begin(), nullptr);
  return parts;
}

ReportPart influencePart() {
  static constexpr Display part{{},   "",   "influence", "",           "Influence of the Cases",
                                "",   "",   15,          TableMaker{}, true,
                                true, false};
  return &part;
}

ReportPart predictionsPart() {
  static constexpr Display part{
      {},           "",    "predictions", "",   "Predictions of New Cases", "", "", 16,
      TableMaker{}, false, true,          false};
  return &part;
}

std::optional<ReportPart> partCalled(std::string_view word) {
  auto parts = allParts();
  parts.insert(parts.end(), {influencePart(), predictionsPart()});
  const auto found = std::find_if(parts.begin(), parts.end(),
                                  [word](ReportPart part) { return wordOf(part) == word; });
  return found == parts.end() ? std::nullopt : std::optional(*found);
}

std::string_view wordOf(ReportPart part) { return part ? part->word : "equation"; }

std::string_view captionOf(ReportPart part) { return part ? part->caption : "Fitted Model"; }

}  // namespace tolmer
