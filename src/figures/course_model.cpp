#include "figures/course_model.h"

#include "fieldfile/number_text.h"
#include "report/csv_dataset.h"
#include "report/csv_reader.h"
#include "report/model_by_name.h"

namespace tolmer {
namespace {

constexpr std::string_view noIntercept = "no intercept";

bool namesCases(const CsvTable& table) {
  return table.rows() > 0 && !singleFromText(table.cell(0, 0));
}

}  // namespace

CourseModel courseModel(const std::string& dataSet, const std::string& y, std::string_view x) {
  CourseModel model{dataSet, y, fieldsOfList(x), true};
  if (!model.x.empty() && model.x.back() == noIntercept) {
    model.intercept = false;
    model.x.pop_back();
  }
  if (model.x.size() == 1 && model.x.front() == "all") model.x.clear();
  return model;
}

Result<WorkingCopy> modelledData(const CourseModel& model, const std::string& dataFolder) {
  const auto table = CsvTable::open(dataFolder + model.dataSet + ".csv");
  if (!table) return table.error();
  ReportOptions options;
  options.y = model.y;
  options.x = model.x;
  options.intercept = model.intercept;
  if (namesCases(*table)) options.labels = table->name(0);
  auto copy = dataSetFromTable(*table, options);
  if (!copy) return copy.error();
  if (auto error = chooseModelByName(*copy, options)) return *error;
  return copy;
}

}  // namespace tolmer
