#include "sheetfiles/autosave.h"

namespace tolmer {

Result<EditorFileContent> workIn(const VisitPlace& place) {
  const auto bytes = place.read();
  if (!bytes) return bytes.error();
  return editorFileContent(*bytes);
}

void Autosave::changed() {
  if (!due_) due_ = now_() + interval;
}

std::optional<Error> Autosave::poll(const Content& content, const std::string& from) {
  if (!places_ || !due_ || now_() < *due_) return std::nullopt;
  auto error = write(content, from);
  const bool toldBefore = failed_;
  failed_ = error.has_value();
  if (failed_)
    due_ = now_() + interval;
  else
    due_.reset();
  return toldBefore ? std::nullopt : error;
}

std::optional<Error> Autosave::write(const Content& content, const std::string& from) {
  if (!place_) {
    auto place = places_->take();
    if (!place) return place.error();
    place_ = std::move(*place);
  }
  return place_->write(editorFileBytes(content(), from));
}

void Autosave::clean() {
  due_.reset();
  if (place_) place_->remove();
}

}  // namespace tolmer
