#include "foreign/readers/encodings.h"

#include <iconv.h>

#include <map>
#include <memory>

#include "base/text_encoding.h"

namespace tolmer {
namespace {

struct CloseConverter {
  void operator()(iconv_t converter) const { iconv_close(converter); }
};

// Kept open, so that a process without files to open has them. Null where there is none such.
iconv_t converterFrom(const std::string& encoding) {
  static std::map<std::string, std::unique_ptr<void, CloseConverter>> opened;
  const auto known = opened.find(encoding);
  if (known != opened.end()) return known->second.get();
  constexpr std::size_t most = 64;
  if (opened.size() >= most) return nullptr;
  iconv_t converter = iconv_open("UTF-8", encoding.c_str());
  if (converter == reinterpret_cast<iconv_t>(-1)) converter = nullptr;
  opened.emplace(encoding, converter);
  return converter;
}

bool convert(iconv_t converter, std::string_view bytes, std::string& text) {
  iconv(converter, nullptr, nullptr, nullptr, nullptr);
  text.resize(bytes.size() * 4 + 4);
  char* from = const_cast<char*>(bytes.data());
  char* to = text.data();
  std::size_t left = bytes.size();
  std::size_t room = text.size();
  const bool converted = iconv(converter, &from, &left, &to, &room) != static_cast<std::size_t>(-1);
  text.resize(text.size() - room);
  return converted && left == 0;
}

bool isAscii(std::string_view bytes) {
  for (const char c : bytes)
    if ((c & 0x80) != 0) return false;
  return true;
}

}  // namespace

void prepareEncodings() {
  for (const char* encoding :
       {"WINDOWS-1250", "WINDOWS-1251", "WINDOWS-1253", "WINDOWS-1254", "WINDOWS-1256",
        "WINDOWS-1257", "ISO-8859-2", "ISO-8859-5", "ISO-8859-7", "ISO-8859-9", "ISO-8859-15",
        "SHIFT-JIS", "GB18030", "EUC-KR"})
    converterFrom(encoding);
}

std::string utf8From(const std::string& encoding, std::string_view bytes, bool& guessed) {
  if (isAscii(bytes)) return std::string(bytes);
  if (encoding == "WINDOWS-1252" || encoding == "ISO-8859-1") return utf8FromWindows1252(bytes);
  const bool isNamed = !encoding.empty() && encoding != "UTF-8" && encoding != "US-ASCII";
  std::string text;
  iconv_t converter = isNamed ? converterFrom(encoding) : nullptr;
  if (converter && convert(converter, bytes, text)) return text;
  if (encoding == "UTF-8" && isUtf8(bytes)) return std::string(bytes);
  guessed = true;
  return isUtf8(bytes) ? std::string(bytes) : utf8FromWindows1252(bytes);
}

}  // namespace tolmer
