#include "figures/course_figures.h"

#include <charconv>
#include <cstddef>
#include <map>
#include <string_view>
#include <utility>

#include "base/file_io.h"
#include "figures/field_lines.h"
#include "platform/graph/svg_writer.h"
#include "tables/mark_colours.h"
#include "tables/table_parts.h"

namespace tolmer {
namespace {

std::string escaped(std::string_view text) {
  std::string plain;
  for (const char c : text) {
    if (c == '|' || c == '{') plain += '\\';
    plain += c;
  }
  return plain;
}

// A ground once set holds for all cells that follow, so that each cell sets its own. A line that
// takes it back vanishes whole: the text stands on the next one.
std::string cellText(const TableCell& cell) {
  const std::string_view tint = tintOf(cell);
  const std::string ground = tint.empty() ? "!}\n" : ":" + std::string(tint) + "}";
  return "|{set:cellbgcolor" + ground + escaped(cell.text) + "\n";
}

std::string rowText(const TableRow& row) {
  std::string text;
  for (const TableCell& cell : row) text += cellText(cell);
  return text + "\n";
}

std::string columnsText(const TableRow& heads) {
  std::string text;
  for (const TableCell& head : heads)
    text += std::string(text.empty() ? "" : ",") + (head.align == Align::right ? ">" : "<");
  return text;
}

constexpr std::size_t fieldCount = 6;
enum Field { file, dataSet, dependent, independent, display, size };

// "640x400"; nullopt for anything else.
std::optional<ViewSize> sizeFrom(const std::string& text) {
  int width = 0;
  int height = 0;
  const char* end = text.data() + text.size();
  const auto across = std::from_chars(text.data(), end, width);
  if (across.ec != std::errc() || across.ptr == end || *across.ptr != 'x') return std::nullopt;
  const auto down = std::from_chars(across.ptr + 1, end, height);
  if (down.ec != std::errc() || down.ptr != end) return std::nullopt;
  return ViewSize{1.0 * width, 1.0 * height};
}

struct DescribedPicture {
  Picture picture;
  std::string title;
  std::string description;
};

constexpr std::size_t columns = 2;
constexpr double gap = 10;

struct Shift {
  double x;
  double y;

  void operator()(ViewPoint& point) const {
    point.x += x;
    point.y += y;
  }
  void operator()(BoxPrimitive& box) const {
    box.place.left += x;
    box.place.bottom += y;
  }
  void operator()(LinePrimitive& line) const {
    for (ViewPoint& point : line.points) (*this)(point);
  }
  void operator()(SymbolPrimitive& symbol) const { (*this)(symbol.centre); }
  void operator()(TextPrimitive& text) const { (*this)(text.anchor); }
};

// Sentences of two pictures do not run into one another.
void append(std::string& text, const std::string& more) {
  if (!text.empty()) text += ' ';
  text += more;
}

// Two in a row, of equal size, from the upper left. Titles and descriptions follow one another.
DescribedPicture sideBySide(const std::vector<DescribedPicture>& parts) {
  DescribedPicture whole;
  if (parts.empty()) return whole;
  const ViewSize cell = parts.front().picture.size;
  const std::size_t rows = (parts.size() + columns - 1) / columns;
  whole.picture.size = {columns * cell.width + gap,
                        static_cast<double>(rows) * (cell.height + gap) - gap};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const Shift shift{static_cast<double>(i % columns) * (cell.width + gap),
                      static_cast<double>(rows - 1 - i / columns) * (cell.height + gap)};
    for (Primitive primitive : parts[i].picture.primitives) {
      std::visit(shift, primitive);
      whole.picture.primitives.push_back(std::move(primitive));
    }
    append(whole.title, parts[i].title);
    append(whole.description, parts[i].description);
  }
  return whole;
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

std::string figureTable(const TableContent& table) {
  const TableParts parts = partsOf(table);
  if (parts.bodies.empty()) return {};
  std::string text = "[%header%autowidth%unbreakable,frame=ends,cols=\"" +
                     columnsText(parts.heads) + "\"]\n|===\n" + rowText(parts.heads);
  for (std::size_t i = 0; i < parts.bodies.size(); ++i) {
    if (i > 0) text += rowText(TableRow(parts.heads.size()));
    for (const TableRow& row : parts.bodies[i]) text += rowText(row);
  }
  if (!parts.key.empty()) {
    TableRow key = parts.key;
    key.resize(parts.heads.size());
    text += rowText(key);
  }
  return text + "|===\n";
}

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
    const auto* const graph = std::get_if<GraphContent>(&*shown);
    if ((graph != nullptr) != figure.file.ends_with(".svg"))
      return Error{figure.where, graph ? "a graph's file ends in .svg" : "only graphs are .svg"};
    if (graph)
      return writeGraph(
          figure, {graph->plot.picture(), figure.display.display->caption, graph->description});
    if (const auto* const table = std::get_if<TableContent>(&*shown)) return figureTable(*table);
    return wholeText(std::get<Sections>(*shown));
  }

 private:
  Result<DisplayContent> draw(const CourseFigure& figure) {
    auto model = analysed_.find(figure.model);
    if (model == analysed_.end()) {
      auto opened = AnalysedModel::open(figure.model, dataFolder_);
      if (!opened) return Error{figure.where, opened.error().message()};
      model = analysed_.emplace(figure.model, std::move(*opened)).first;
    }
    auto drawn = model->second.draw(figure.display, figure.size);
    if (!drawn) return Error{figure.where, drawn.error().message()};
    return drawn;
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
  std::map<CourseModel, AnalysedModel> analysed_;
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
