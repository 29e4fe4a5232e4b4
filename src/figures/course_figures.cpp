#include "figures/course_figures.h"

#include <charconv>
#include <map>
#include <memory>

#include "base/file_io.h"
#include "base/markup_text.h"
#include "figures/field_lines.h"
#include "figures/figure_table.h"
#include "platform/graph/graph.h"
#include "platform/graph/svg_writer.h"
#include "platform/text_box.h"
#include "report/grid_table.h"

namespace tolmer {
namespace {

constexpr std::size_t fieldCount = 6;
enum Field { file, dataSet, dependent, independent, display, size };

// "640x400"; nullopt for anything else.
std::optional<DisplaySize> sizeFrom(const std::string& text) {
  DisplaySize read;
  const char* end = text.data() + text.size();
  const auto width = std::from_chars(text.data(), end, read.width);
  if (width.ec != std::errc() || width.ptr == end || *width.ptr != 'x') return std::nullopt;
  const auto height = std::from_chars(width.ptr + 1, end, read.height);
  if (height.ec != std::errc() || height.ptr != end) return std::nullopt;
  return read;
}

Result<CourseFigure> figureFrom(const FieldLine& line, const std::string& where) {
  const auto& fields = line.fields;
  CourseFigure figure{fields[file],
                      where,
                      courseModel(fields[dataSet], fields[dependent], fields[independent]),
                      {},
                      {}};
  const auto choice = displayChoice(fields[display]);
  if (!choice) return Error{where, choice.error().text};
  figure.display = *choice;
  if (fields[size] == "-") return figure;
  const auto read = sizeFrom(fields[size]);
  if (!read) return Error{where, "\"" + fields[size] + "\" is no size such as 640x400"};
  figure.size = *read;
  return figure;
}

struct Content {
  std::string operator()(const Graph* graph) const {
    return writeSvg(graph->picture(), graph->accessibleName(), graph->accessibleDescription());
  }
  std::string operator()(const Grid* grid) const { return figureTable(displayTable(*grid)); }
  std::string operator()(const TextBox* box) const {
    return "<pre>" + markupText(box->text()) + "</pre>\n";
  }
};

std::optional<Error> writeIfChanged(const std::string& fileName, const std::string& content) {
  if (const auto old = readWholeFile(fileName); old && *old == content) return std::nullopt;
  return writeFileAtomically(fileName, content);
}

}  // namespace

Result<std::vector<CourseFigure>> courseFigures(const std::string& listFile) {
  const auto text = readWholeFile(listFile);
  if (!text) return text.error();
  const auto lines = fieldLines(listFile, *text, fieldCount);
  if (!lines) return lines.error();
  std::vector<CourseFigure> figures;
  for (const FieldLine& line : *lines) {
    auto figure = figureFrom(line, lineOf(listFile, line));
    if (!figure) return figure.error();
    figures.push_back(std::move(*figure));
  }
  return figures;
}

Result<std::string> figureContent(const CourseFigure& figure, AnalysedModel& model) {
  const auto drawn = model.draw(figure.display, figure.size);
  if (!drawn) return Error{figure.where, drawn.error().message()};
  const ShownControl shown = (*drawn)->shownControl();
  const bool isGraph = std::holds_alternative<const Graph*>(shown);
  if (isGraph != figure.file.ends_with(".svg"))
    return Error{figure.where, isGraph ? "a graph's file ends in .svg" : "only graphs are .svg"};
  return std::visit(Content{}, shown);
}

std::optional<Error> writeFigures(const std::vector<CourseFigure>& figures,
                                  const std::string& dataFolder, const std::string& folder) {
  std::map<CourseModel, std::unique_ptr<AnalysedModel>> analysed;
  for (const CourseFigure& figure : figures) {
    auto& model = analysed[figure.model];
    if (!model) {
      auto opened = AnalysedModel::open(figure.model, dataFolder);
      if (!opened) return Error{figure.where, opened.error().message()};
      model = std::move(*opened);
    }
    const auto content = figureContent(figure, *model);
    if (!content) return content.error();
    if (auto error = writeIfChanged(folder + figure.file, *content)) return error;
  }
  return std::nullopt;
}

}  // namespace tolmer
