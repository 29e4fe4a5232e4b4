#include "report/r_report.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "base/text_encoding.h"
#include "state/analysis_state.h"

namespace tolmer {
namespace {

// Characters without width that change the direction in which an editor shows the code around
// them: U+061C, U+200E, U+200F, U+202A to U+202E, U+2066 to U+2069.
bool turnsTheLine(std::string_view bytes) {
  const auto third = [bytes](unsigned char first, unsigned char last) {
    const auto byte = static_cast<unsigned char>(bytes[2]);
    return byte >= first && byte <= last;
  };
  if (bytes.starts_with("\xD8\x9C")) return true;
  if (bytes.size() < 3) return false;
  if (bytes.starts_with("\xE2\x80")) return third(0x8E, 0x8F) || third(0xA8, 0xAE);
  return bytes.starts_with("\xE2\x81") && third(0xA6, 0xA9);
}

// As a string or, in backquotes, as a name of R. Code points cannot be escaped in a name, bytes
// can, in both.
std::string quoted(const std::string& text, char quote) {
  static constexpr std::string_view digits = "0123456789ABCDEF";
  const std::string printable = onOneLine(text);
  std::string code(1, quote);
  int escaped = 0;  // bytes of the present character still to be escaped
  for (std::size_t i = 0; i < printable.size(); ++i) {
    const std::string_view rest = std::string_view(printable).substr(i);
    if (turnsTheLine(rest)) escaped = rest.front() == '\xD8' ? 2 : 3;
    const auto byte = static_cast<unsigned char>(rest.front());
    if (escaped > 0) {
      --escaped;
      code += {'\\', 'x', digits[byte / 16], digits[byte % 16]};
      continue;
    }
    if (rest.front() == quote || rest.front() == '\\') code += '\\';
    code += rest.front();
  }
  return code + quote;
}

std::string comment(std::string_view text) {
  std::string line = "#";
  for (std::size_t i = 0; i < text.size(); ++i)
    if (turnsTheLine(text.substr(i)))
      i += text[i] == '\xD8' ? 1 : 2;
    else
      line += (line.size() == 1 ? " " : "") + std::string(1, text[i]);
  return line + "\n";
}

// The shortest decimal that gives the value back when it is rounded to a single.
std::string number(float value) {
  if (!std::isfinite(value)) return "NA";
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  return {text.data(), end};
}

// "c(...)", in lines.
std::string vectorOf(const std::vector<std::string>& elements, std::string_view indent) {
  constexpr std::size_t lineWidth = 90;
  std::string code = "c(";
  std::size_t lineStart = 0;
  for (const std::string& element : elements) {
    if (&element != &elements.front()) code += ",";
    if (code.size() - lineStart + element.size() > lineWidth) {
      code += "\n" + std::string(indent);
      lineStart = code.size();
    } else if (&element != &elements.front()) {
      code += " ";
    }
    code += element;
  }
  return code + ")";
}

// Of the dependent variable and the predictors, all different.
std::vector<std::string> variableNames(const AnalysisState& state) {
  std::vector<std::string> names;
  for (int i = 1; i <= state.iNumPredictors + 1; ++i) {
    std::string name = variableName(state, i);
    const bool isTaken = std::find(names.begin(), names.end(), name) != names.end();
    if (name.empty() || isTaken) name += "." + std::to_string(i);
    names.push_back(name);
  }
  return names;
}

std::string headCode(const ReportDocument& document) {
  std::string code = comment(document.title) + "#\n";
  for (const ReportFact& fact : document.facts) code += comment(fact.name + ": " + fact.value);
  if (!document.remarks.empty()) code += "#\n";
  for (const std::string& line : document.remarks) code += comment(line);
  return code + "#\n# Runs in R without further packages; this text is UTF-8.\n\n";
}

std::string dataCode(const AnalysisState& state, const std::vector<std::string>& names) {
  std::string code = "data <- data.frame(\n";
  for (std::size_t j = 0; j < names.size(); ++j) {
    std::vector<std::string> values;
    for (int i = 1; i <= state.iNumCases; ++i)
      values.push_back(number(state.sData(i, state.iModelCol[j + 1])));
    code += "  " + quoted(names[j], '`') + " = " + vectorOf(values, "    ") + ",\n";
  }
  code +=
      "  check.names = FALSE)\n\n"
      "# The analysis holds its data in single precision, so that 0.1 is 0.100000001490116.\n"
      "data[] <- lapply(data, function(x)\n"
      "  readBin(writeBin(as.double(x), raw(), size = 4), \"double\", length(x), size = 4))\n";
  if (!state.bLabeledData) return code + "\n";
  std::vector<std::string> labels;
  for (int i = 1; i <= state.iNumCases; ++i)
    labels.push_back(quoted(state.tCaseLabel[static_cast<std::size_t>(i)], '"'));
  return code + "row.names(data) <- make.unique(" + vectorOf(labels, "  ") + ")\n\n";
}

std::string modelCode(const AnalysisState& state, const std::vector<std::string>& names) {
  std::string code = "fit <- lm(" + quoted(names[0], '`') + " ~ ";
  if (!state.bUseIntercept) code += "0 + ";
  for (std::size_t j = 1; j < names.size(); ++j)
    code += (j > 1 ? " +\n    " : "") + quoted(names[j], '`');
  return code + ",\n  data = data)\n";
}

constexpr std::string_view resultCode = R"(print(summary(fit))
print(confint(fit, level = 0.95))

)";

constexpr std::string_view zeroCode =
    R"(# Without an intercept R takes R-squared and F from sums of squares about zero. The program takes
# its sums of squares, and F with its P, about the mean; they follow here.
)";

constexpr std::string_view furtherCode = R"(y <- data[[1]]
sums <- c(Regression = sum((fitted(fit) - mean(y))^2), Error = sum(residuals(fit)^2),
          Total = sum((y - mean(y))^2))
degrees <- c(length(y) - df.residual(fit) - attr(terms(fit), "intercept"), df.residual(fit))
squares <- sums[1:2] / degrees
variance <- data.frame("Sum of Squares" = sums, "D.F." = c(degrees, sum(degrees)),
                       "Mean Square" = c(squares, NA), check.names = FALSE)
F <- squares[[1]] / squares[[2]]
print(variance)
print(c(F = F, P = pf(F, degrees[1], degrees[2], lower.tail = FALSE),
        "Durbin Watson" = sum(diff(residuals(fit))^2) / sums[["Error"]],
        "Leaving one out" = sqrt(mean((residuals(fit) / (1 - hatvalues(fit)))^2))))

# Variance inflation: each predictor on an intercept and the others
predictors <- names(data)[-1]
vif <- vapply(predictors, function(x) {
  others <- as.matrix(data[setdiff(predictors, x)])
  sum((data[[x]] - mean(data[[x]]))^2) / sum(lm.fit(cbind(1, others), data[[x]])$residuals^2)
}, numeric(1))
if (length(vif) > 1) print(vif)

s <- sigma(fit)
print(data.frame("Y Obs" = y, "Y Est" = fitted(fit), Resid = residuals(fit),
                 "Std Resid" = residuals(fit) / s, row.names = row.names(data),
                 check.names = FALSE))
print(data.frame(Mean = colMeans(data), S.D. = sapply(data, sd), Min = sapply(data, min),
                 Max = sapply(data, max)))
print(cor(data))

# Plots go to the screen, with Rscript to Rplots.pdf
hist(residuals(fit), main = "Histogram of Residuals", xlab = "Residuals")
if (is.finite(s) && s > 0)
  hist(residuals(fit) / s, main = "Histogram of Standardized Residuals",
       xlab = "Residuals in standard errors")
qqnorm(residuals(fit), main = "Normality Plot for Residuals")
qqline(residuals(fit))
if (length(vif) > 1 && all(is.finite(vif)))
  barplot(rev(vif), horiz = TRUE, las = 1, main = "Variance Inflation Factors")
plot(fitted(fit), residuals(fit), xlab = "Fitted", ylab = "Residuals")
abline(h = 0)
plot(y, fitted(fit), xlab = names(data)[1], ylab = "Fitted")
for (x in predictors) {
  plot(data[[x]], y, xlab = x, ylab = names(data)[1])
  abline(lm(y ~ data[[x]]))
}
)";

}  // namespace

std::string rReport(const ReportDocument& document) {
  const AnalysisState& state = *document.state;
  const auto names = variableNames(state);
  std::string code = headCode(document);
  for (const std::string& message : messageTexts(document)) code += comment(message);
  code += dataCode(state, names) + modelCode(state, names) + std::string(resultCode);
  if (!state.bUseIntercept) code += zeroCode;
  return code + std::string(furtherCode);
}

}  // namespace tolmer
