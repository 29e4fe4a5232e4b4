#include "foreign/readers/xml_parser.h"

#include <expat.h>

#include <algorithm>
#include <cstddef>
#include <string>

#include "base/text_encoding.h"

namespace tolmer {
namespace {

constexpr int deepest = 200;  // elements within one another; a sheet has some ten

std::string_view withoutPrefix(std::string_view name) {
  const auto colon = name.find(':');
  return colon == name.npos ? name : name.substr(colon + 1);
}

// Files of older programs may name the encoding of Windows.
int describeWindows1252(void*, const XML_Char* name, XML_Encoding* encoding) {
  std::string lower(name);
  for (char& c : lower) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  if (lower != "windows-1252" && lower != "cp1252") return XML_STATUS_ERROR;
  for (int byte = 0; byte < 256; ++byte) {
    const std::string utf8 = utf8FromWindows1252(std::string(1, static_cast<char>(byte)));
    const auto at = [&utf8](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
    encoding->map[byte] = utf8.size() == 1 ? at(0)
                          : utf8.size() == 2
                              ? (at(0) & 0x1F) << 6 | (at(1) & 0x3F)
                              : (at(0) & 0x0F) << 12 | (at(1) & 0x3F) << 6 | (at(2) & 0x3F);
  }
  encoding->convert = nullptr;
  encoding->release = nullptr;
  return XML_STATUS_OK;
}

}  // namespace

std::string_view XmlAttributes::operator[](std::string_view name) const {
  for (const char** pair = pairs_; *pair; pair += 2)
    if (withoutPrefix(pair[0]) == name) return pair[1];
  return {};
}

std::string_view XmlAttributes::exactly(std::string_view name) const {
  for (const char** pair = pairs_; *pair; pair += 2)
    if (pair[0] == name) return pair[1];
  return {};
}

struct XmlParser::State {
  XmlSink& sink;
  XML_Parser parser = XML_ParserCreate(nullptr);
  int depth = 0;
  std::optional<Error> error{};

  static State& of(void* data) { return *static_cast<State*>(data); }

  void stopIfAsked() {
    if (sink.isStopped() || error) XML_StopParser(parser, XML_FALSE);
  }

  static void started(void* data, const XML_Char* name, const XML_Char** attributes) {
    State& state = of(data);
    if (++state.depth > deepest)
      state.error = Error{"", "its elements lie too deep in one another"};
    if (!state.error) state.sink.start(withoutPrefix(name), XmlAttributes(attributes));
    state.stopIfAsked();
  }

  static void ended(void* data, const XML_Char* name) {
    State& state = of(data);
    --state.depth;
    state.sink.end(withoutPrefix(name));
    state.stopIfAsked();
  }

  static void told(void* data, const XML_Char* text, int length) {
    State& state = of(data);
    state.sink.text({text, static_cast<std::size_t>(length)});
    state.stopIfAsked();
  }

  static void declared(void* data, const XML_Char*, int, const XML_Char*, int, const XML_Char*,
                       const XML_Char*, const XML_Char*, const XML_Char*) {
    State& state = of(data);
    state.error = Error{"", "it declares entities, which no table needs"};
    state.stopIfAsked();
  }
};

XmlParser::XmlParser(XmlSink& sink) : state_(std::make_unique<State>(State{sink})) {
  XML_Parser parser = state_->parser;
  XML_SetUserData(parser, state_.get());
  XML_SetElementHandler(parser, State::started, State::ended);
  XML_SetCharacterDataHandler(parser, State::told);
  XML_SetEntityDeclHandler(parser, State::declared);
  XML_SetUnknownEncodingHandler(parser, describeWindows1252, nullptr);
}

XmlParser::~XmlParser() { XML_ParserFree(state_->parser); }

bool XmlParser::feed(std::string_view bytes) {
  constexpr std::size_t most = std::size_t{1} << 20;
  for (; !bytes.empty(); bytes.remove_prefix(std::min(most, bytes.size()))) {
    const auto piece = bytes.substr(0, most);
    if (XML_Parse(state_->parser, piece.data(), static_cast<int>(piece.size()), XML_FALSE) !=
        XML_STATUS_OK)
      return false;
  }
  return true;
}

std::optional<Error> XmlParser::finish() {
  const bool isWhole = XML_Parse(state_->parser, "", 0, XML_TRUE) == XML_STATUS_OK;
  if (state_->error) return state_->error;
  if (isWhole || state_->sink.isStopped()) return state_->sink.error();
  return Error{"line " + std::to_string(XML_GetCurrentLineNumber(state_->parser)),
               "it is no well-formed XML"};
}

std::optional<Error> parseXml(std::string_view document, XmlSink& sink) {
  XmlParser parser(sink);
  parser.feed(document);
  return parser.finish();
}

}  // namespace tolmer
