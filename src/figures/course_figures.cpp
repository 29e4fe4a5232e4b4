#include "figures/course_figures.h"

#include <charconv>
#include <map>
#include <memory>

#include "base/file_io.h"
#include "figures/field_lines.h"
#include "figures/figure_table.h"
#include "figures/side_by_side.h"
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
  CourseFigure figure;
  figure.file = fields[file];
  figure.where = where;
  if (fields[dataSet] == "beside") {
    figure.beside = wordsOf(fields[display]);
    return figure;
  }
  figure.model = courseModel(fields[dataSet], fields[dependent], fields[independent]);
  const auto choice = displayChoice(fields[display]);
  if (!choice) return Error{where, choice.error().text};
  figure.display = *choice;
  if (fields[size] == "-") return figure;
  const auto read = sizeFrom(fields[size]);
  if (!read) return Error{where, "\"" + fields[size] + "\" is no size such as 640x400"};
  figure.size = *read;
  return figure;
}

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

namespace {

// What the figures are made of, each analysed or drawn once.
class Maker {
 public:
  explicit Maker(const std::string& dataFolder) : dataFolder_(dataFolder) {}

  Result<std::string> contentOf(const CourseFigure& figure) {
    if (!figure.beside.empty()) return together(figure);
    const auto shown = draw(figure);
    if (!shown) return shown.error();
    const auto* const graph = std::get_if<const Graph*>(&*shown);
    if ((graph != nullptr) != figure.file.ends_with(".svg"))
      return Error{figure.where, graph ? "a graph's file ends in .svg" : "only graphs are .svg"};
    if (graph)
      return writeGraph(figure, {(*graph)->picture(), (*graph)->accessibleName(),
                                 (*graph)->accessibleDescription()});
    if (const auto* const grid = std::get_if<const Grid*>(&*shown))
      return figureTable(displayTable(**grid));
    return std::get<const TextBox*>(*shown)->text();
  }

 private:
  Result<ShownControl> draw(const CourseFigure& figure) {
    auto& model = analysed_[figure.model];
    if (!model) {
      auto opened = AnalysedModel::open(figure.model, dataFolder_);
      if (!opened) return Error{figure.where, opened.error().message()};
      model = std::move(*opened);
    }
    const auto drawn = model->draw(figure.display, figure.size);
    if (!drawn) return Error{figure.where, drawn.error().message()};
    return (*drawn)->shownControl();
  }

  Result<std::string> together(const CourseFigure& figure) {
    std::vector<DescribedPicture> parts;
    for (const std::string& name : figure.beside) {
      const auto graph = graphs_.find(name);
      if (graph == graphs_.end())
        return Error{figure.where, "no graph " + name + " stands in the lines before"};
      parts.push_back(graph->second);
    }
    return writeGraph(figure, sideBySide(parts));
  }

  std::string writeGraph(const CourseFigure& figure, DescribedPicture graph) {
    std::string svg = writeSvg(graph.picture, graph.title, graph.description);
    graphs_[figure.file] = std::move(graph);
    return svg;
  }

  std::string dataFolder_;
  std::map<CourseModel, std::unique_ptr<AnalysedModel>> analysed_;
  std::map<std::string, DescribedPicture> graphs_;
};

}  // namespace

std::optional<Error> writeFigures(const std::vector<CourseFigure>& figures,
                                  const std::string& dataFolder, const std::string& folder) {
  Maker maker(dataFolder);
  for (const CourseFigure& figure : figures) {
    const auto content = maker.contentOf(figure);
    if (!content) return content.error();
    if (auto error = writeIfChanged(folder + figure.file, *content)) return error;
  }
  return std::nullopt;
}

}  // namespace tolmer
