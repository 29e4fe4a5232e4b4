// XML as a stream of its elements, by their names without prefixes, in bounded depth.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/error.h"

namespace tolmer {

class XmlAttributes {
 public:
  explicit XmlAttributes(const char** pairs) : pairs_(pairs) {}
  // The value of the first attribute of that name, with or without a prefix; empty where there is
  // none.
  std::string_view operator[](std::string_view name) const;
  // The value of the one that is written so, prefix and all.
  std::string_view exactly(std::string_view name) const;

 private:
  const char** pairs_;
};

// What is told of a document. Told things end with `stop` or `enough`.
class XmlSink {
 public:
  virtual ~XmlSink() = default;
  virtual void start(std::string_view name, const XmlAttributes& attributes) = 0;
  virtual void end(std::string_view name) = 0;
  virtual void text(std::string_view text) = 0;

  bool isStopped() const { return enough_ || error_; }
  const std::optional<Error>& error() const { return error_; }

 protected:
  void stop(Error error) {
    if (!error_) error_ = std::move(error);
  }
  // All that was wanted has been told.
  void enough() { enough_ = true; }

 private:
  bool enough_ = false;
  std::optional<Error> error_;
};

// Documents that declare entities are refused: no table needs them, and some grow without end.
class XmlParser {
 public:
  explicit XmlParser(XmlSink& sink);
  ~XmlParser();
  XmlParser(const XmlParser&) = delete;
  XmlParser& operator=(const XmlParser&) = delete;

  // False where nothing more is wanted.
  bool feed(std::string_view bytes);
  // After the last bytes: what was wrong, with the document or by the sink.
  std::optional<Error> finish();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

// A document that lies whole in the memory.
std::optional<Error> parseXml(std::string_view document, XmlSink& sink);

}  // namespace tolmer
