#include "insight/change_words.h"

#include <cmath>

#include "engine/decimals_choice.h"
#include "engine/number_format.h"

namespace tolmer {
namespace {

// The change by three decimals; empty for none.
std::string changeOf(const Figure& before, const Figure& after) {
  const double change = std::abs(after.value - before.value);
  if (change <= before.error + after.error) return {};
  const std::string text = formatNumber(change, "0.000");
  return text == "0.000" ? "less than 0.001" : text;
}

std::string moved(const std::string& what, const std::string& before, const std::string& after,
                  bool isLower) {
  if (before == after) return "left " + what + " at " + before;
  return (isLower ? "lowered " : "raised ") + what + " from " + before + " to " + after;
}

}  // namespace

std::string figureText(double value) {
  const auto single = static_cast<float>(value);
  return formatNumber(value, FindFormatStringValue(single, 4, 8, true, false, true, true));
}

std::string figureText(double value, int decimals) {
  return formatNumber(value, "#,##0." + std::string(static_cast<std::size_t>(decimals), '0'));
}

std::string probabilityWords(double p) {
  return p < 0.001 ? "P below 0.001" : "P = " + formatNumber(p, "0.000");
}

std::string movedWords(const std::string& what, double before, double after) {
  return moved(what, figureText(before), figureText(after), after < before);
}

std::optional<std::string> inflationWords(std::optional<double> before,
                                          std::optional<double> after) {
  if (!before || !after || !std::isfinite(*before) || !std::isfinite(*after)) return {};
  return moved("the largest VIF", figureText(*before, 1), figureText(*after, 1), *after < *before);
}

std::string squaresWords(const Figure& before, const Figure& after) {
  const std::string change = changeOf(before, after);
  if (change.empty()) return "R-squared did not change";
  return std::string("R-squared ") + (after.value < before.value ? "fell" : "rose") + " by " +
         change;
}

std::string squaresMoved(const Figure& before, const Figure& after) {
  const std::string change = changeOf(before, after);
  if (change.empty()) return "left R-squared as it was";
  return (after.value < before.value ? "lowered" : "raised") + std::string(" R-squared by ") +
         change;
}

}  // namespace tolmer
