#include "report/graph_json.h"

#include <string>
#include <variant>
#include <vector>

namespace tolmer {
namespace {

using Labels = std::vector<std::string>;

void writeLabels(JsonWriter& json, std::string_view name, const Labels& labels) {
  json.key(name);
  json.beginArray();
  for (const std::string& label : labels) json.value(label);
  json.endArray();
}

void writeAxis(JsonWriter& json, std::string_view name, const Axis& axis, const Labels& labels) {
  json.key(name);
  json.beginObject();
  json.member("mode", static_cast<int>(axis.scaleMode));
  json.member("min", axis.minimum);
  json.member("max", axis.maximum);
  json.member("ticks", axis.ticks);
  writeLabels(json, "labels", labels);
  json.endObject();
}

// Bars and lines with symbols space their points evenly: they have no x position.
void writePoints(JsonWriter& json, const GraphSettings& settings) {
  json.key("points");
  json.beginArray();
  for (const GraphPoint& point : settings.points) {
    json.beginArray();
    if (settings.graphType == GraphType::symbols)
      json.value(point.x);
    else
      json.null();
    json.value(point.value);
    json.endArray();
  }
  json.endArray();
}

struct CallWriter {
  JsonWriter& json;

  void operator()(const BoxCall& box) const {
    json.value("box");
    for (const double length : {box.x, box.y, box.width, box.height}) json.value(length);
    json.value(box.pattern);
    json.value(box.colour);
  }
  void operator()(const LineCall& line) const {
    json.value("line");
    for (const double place : {line.x1, line.y1, line.x2, line.y2}) json.value(place);
    for (const int attribute : {line.mode, line.style, line.colour}) json.value(attribute);
  }
  void operator()(const TextCall& text) const {
    json.value("text");
    json.value(text.x);
    json.value(text.y);
    json.value(text.flags);
    json.value(text.text);
  }
};

void writeOverlay(JsonWriter& json, const Graph& graph) {
  json.key("overlay");
  json.beginArray();
  for (const OverlayCall& call : graph.overlay()) {
    json.beginArray();
    std::visit(CallWriter{json}, call);
    json.endArray();
  }
  json.endArray();
}

void writePlotArea(JsonWriter& json, const Graph& graph) {
  json.key("plot");
  json.beginObject();
  json.member("left", graph.SDKInfo(7));
  json.member("bottom", graph.SDKInfo(8));
  json.member("width", graph.SDKInfo(5));
  json.member("height", graph.SDKInfo(6));
  json.endObject();
}

}  // namespace

void writeGraph(JsonWriter& json, const Graph& graph) {
  const GraphSettings& settings = graph.settings;
  json.beginObject();
  json.member("type", static_cast<int>(settings.graphType));
  json.member("bottomTitle", settings.x.title);
  json.member("leftTitle", settings.y.title);
  // The points of a line are named along its horizontal axis.
  const bool isLine = settings.graphType == GraphType::lineWithSymbols;
  writeAxis(json, "x", settings.x, isLine ? settings.pointLabels : settings.x.labels);
  writeAxis(json, "y", settings.y, settings.y.labels);
  writePoints(json, settings);
  if (!settings.pointLabels.empty()) writeLabels(json, "pointLabels", settings.pointLabels);
  json.member("symbol", settings.pointSymbol);
  json.member("symbolSize", settings.symbolSize);
  json.member("lineStatistics", settings.lineStatistics);
  writeOverlay(json, graph);
  writePlotArea(json, graph);
  json.endObject();
}

}  // namespace tolmer
