#include "report/course_data.h"

#include <vector>

#include "data/data_file.h"
#include "data/data_sources.h"
#include "fieldfile/field_reader.h"
#include "notebook/book.h"
#include "notebook/object_file.h"

namespace tolmer {
namespace {

// Section of the notebook whose scenarios are examples.
constexpr int examplesSection = 3;

class OneScenario : public ScenarioSource {
 public:
  explicit OneScenario(const Scenario& scenario) : scenario_(scenario) {}
  std::string LastScenarioParameter(int iIndex) const override {
    return scenario_.tParameter.at(static_cast<std::size_t>(iIndex));
  }
  std::string DefaultScenarioParameter(int iIndex) const override {
    return LastScenarioParameter(iIndex);
  }

 private:
  const Scenario& scenario_;
};

std::vector<const Scenario*> examplesOf(const Book& book) {
  std::vector<const Scenario*> examples;
  if (book.uSection.count() < examplesSection) return examples;
  const SectionRecord& section = book.uSection[examplesSection];
  for (int page = section.iFirstPage; page < section.iFirstPage + section.iNumPages; ++page) {
    if (book.uPage[page].iScenarioElement == 0) continue;
    const ScenarioElement& list = book.uScenarioElement[book.uPage[page].iScenarioElement];
    for (int i = 0; i < list.iNumScenarios; ++i)
      examples.push_back(&book.uScenario[list.iFirstScenario + i]);
  }
  return examples;
}

}  // namespace

Result<WorkingCopy> courseDataSet(const ReportOptions& options, MessagePort& messages) {
  const std::string bookFile = options.programFolder + "/tolmod.nbo";
  auto fields = FieldReader::open(bookFile);
  if (!fields) return fields.error();
  const auto book = readBook(*fields);
  if (!book) return book.error();

  const Scenario* scenario = &book->uDefaultScenario;
  if (!options.defaultExample) {
    const auto examples = examplesOf(*book);
    if (static_cast<std::size_t>(options.example) > examples.size())
      return Error{bookFile, "there is no example " + std::to_string(options.example) +
                                 "; the course has " + std::to_string(examples.size())};
    scenario = examples[static_cast<std::size_t>(options.example) - 1];
  }
  WorkingCopy copy;
  LoadNewExample(copy, OneScenario(*scenario), options.programFolder, messages);
  // Tells where the data come from, which JSON does not.
  if (copy.mbInfoAvailable && options.request.format != ReportFormat::json)
    ReadVarInfo(copy, messages);
  return copy;
}

}  // namespace tolmer
