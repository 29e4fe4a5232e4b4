#include "report/json_report.h"

#include <utility>

#include "platform/grid/grid.h"
#include "platform/text_box.h"
#include "report/display_table.h"
#include "report/graph_json.h"
#include "report/json_writer.h"
#include "report/state_json.h"

namespace tolmer {
namespace {

const char* iconName(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::critical:
      return "critical";
    case MessageIcon::question:
      return "question";
    case MessageIcon::exclamation:
      return "exclamation";
    case MessageIcon::information:
      return "information";
    case MessageIcon::none:
      break;
  }
  return "none";
}

const char* buttonsName(MessageButtons buttons) {
  if (buttons == MessageButtons::okCancel) return "okcancel";
  if (buttons == MessageButtons::saveDontSaveCancel) return "savedontsavecancel";
  return buttons == MessageButtons::yesNo ? "yesno" : "ok";
}

const char* answerName(Answer answer) {
  switch (answer) {
    case Answer::cancel:
      return "cancel";
    case Answer::yes:
      return "yes";
    case Answer::no:
      return "no";
    case Answer::ok:
      break;
  }
  return "ok";
}

void writeMessages(JsonWriter& json, const ReportRun& run) {
  json.key("messages");
  json.beginArray();
  for (const AnsweredBox& message : run.messages()) {
    json.beginObject();
    json.member("title", message.box.title);
    json.member("text", message.box.text);
    json.member("icon", iconName(message.box.icon));
    json.member("buttons", buttonsName(message.box.buttons));
    json.member("answer", answerName(message.answer));
    json.endObject();
  }
  json.endArray();
}

template <class TextOf>
void writeCells(JsonWriter& json, std::string_view name, const Sheet& sheet, TextOf textOf) {
  json.key(name);
  json.beginArray();
  for (int row = 1; row <= sheet.rows(); ++row) {
    json.beginArray();
    for (int col = 1; col <= sheet.cols(); ++col)
      json.value(std::string_view(textOf(sheet.at(row, col))));
    json.endArray();
  }
  json.endArray();
}

void writeTable(JsonWriter& json, const Sheet& sheet) {
  json.beginObject();
  json.member("rows", sheet.rows());
  json.member("cols", sheet.cols());
  writeCells(json, "cells", sheet,
             [](const Cell& cell) -> const std::string& { return cell.text; });
  writeCells(json, "back", sheet, [](const Cell& cell) { return backName(cell.style.back); });
  json.endObject();
}

struct ShownWriter {
  JsonWriter& json;

  void operator()(const Graph* graph) const { writeGraph(json, *graph); }
  void operator()(const Grid* grid) const { writeTable(json, grid->sheet()); }
  void operator()(const TextBox* box) const {
    json.beginObject();
    json.member("text", box->text());
    json.endObject();
  }
};

}  // namespace

std::string jsonReport(ReportRun& run) {
  JsonWriter json;
  json.beginObject();
  writeMessages(json, run);
  json.member("equation", run.equation());
  json.key("state");
  writeState(json, run.state());
  json.key("displays");
  json.beginObject();
  for (const ReportedDisplay& display : run.displays()) {
    json.key(display.name);
    std::visit(ShownWriter{json}, display.window->shownControl());
  }
  json.endObject();
  json.endObject();
  return std::move(json).text();
}

}  // namespace tolmer
