#include "foreign/readers/ods_reader.h"

#include "foreign/readers/ods_sheets.h"

namespace tolmer {
namespace {

class ManifestSink : public XmlSink {
 public:
  void start(std::string_view name, const XmlAttributes&) override {
    if (name == "encryption-data") isLocked = true;
  }
  void end(std::string_view) override {}
  void text(std::string_view) override {}
  bool isLocked = false;
};

}  // namespace

Result<CutBook> readOds(Package& package, const CutRequest& request) {
  ManifestSink manifest;
  const std::string_view manifestPart = "META-INF/manifest.xml";
  if (package.has(manifestPart))
    if (auto error = package.readXml(manifestPart, manifest)) return *error;
  if (manifest.isLocked || package.has("encrypted-package"))
    return Error{"", "it is locked with a password; save it without one"};
  OdsSheetsSink sink(request);
  if (auto error = package.readXml("content.xml", sink)) return *error;
  return sink.take();
}

Result<CutBook> readFods(std::string_view document, const CutRequest& request) {
  OdsSheetsSink sink(request);
  if (auto error = parseXml(document, sink)) return *error;
  return sink.take();
}

}  // namespace tolmer
