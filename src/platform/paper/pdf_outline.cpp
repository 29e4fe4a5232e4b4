#include "platform/paper/pdf_outline.h"

#include <charconv>
#include <map>
#include <optional>
#include <string_view>

#include "base/text_encoding.h"

namespace tolmer {
namespace {

using Object = std::size_t;  // its number

std::string reference(Object object) { return std::to_string(object) + " 0 R"; }

std::size_t numberAt(std::string_view text, std::size_t at) {
  at = text.find_first_not_of(" \r\n", at);
  std::size_t number = 0;
  if (at != text.npos) std::from_chars(text.data() + at, text.data() + text.size(), number);
  return number;
}

// What stands behind a key of a dictionary, as a number; 0 where the key is missing.
std::size_t numberBehind(std::string_view text, std::string_view key) {
  const auto at = text.find(key);
  return at == text.npos ? 0 : numberAt(text, at + key.size());
}

void appendUnit(std::string& hex, unsigned unit) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  for (int shift = 12; shift >= 0; shift -= 4) hex += digits[unit >> shift & 0xFU];
}

// A text string, in UTF-16 behind its mark (ISO 32000-1, 7.9.2.2); `text` is UTF-8.
std::string textString(const std::string& text) {
  std::string hex = "<FEFF";
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = utf8Prefix(std::string_view(text).substr(at), 1);
    const auto lead = static_cast<unsigned char>(text[at]);
    unsigned code = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i)
      code = code << 6U | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
    at += length;
    if (code < 0x10000) {
      appendUnit(hex, code);
    } else {
      appendUnit(hex, 0xD800U + ((code - 0x10000U) >> 10U));
      appendUnit(hex, 0xDC00U + (code & 0x3FFU));
    }
  }
  return hex + ">";
}

// A file as its last table of objects and its trailer tell it.
class PdfFile {
 public:
  // nullopt where the file is of another make.
  static std::optional<PdfFile> read(std::string_view bytes) {
    PdfFile file(bytes);
    const auto start = bytes.rfind("startxref");
    if (start == bytes.npos) return std::nullopt;
    file.table_ = numberAt(bytes, start + std::string_view("startxref").size());
    const auto trailer = bytes.find("trailer", file.table_);
    if (!bytes.substr(std::min(file.table_, bytes.size())).starts_with("xref") ||
        trailer == bytes.npos)
      return std::nullopt;
    file.trailer_ = bytes.substr(trailer, start - trailer);
    file.root_ = numberBehind(file.trailer_, "/Root");
    file.info_ = numberBehind(file.trailer_, "/Info");
    file.pages_ = file.kidsOf(numberBehind(file.dictionary(file.root_), "/Pages"));
    return file;
  }

  std::size_t table() const { return table_; }
  Object root() const { return root_; }
  Object info() const { return info_; }
  Object size() const { return numberBehind(trailer_, "/Size"); }
  const std::vector<Object>& pages() const { return pages_; }

  // Between its marks, without them; empty where there is none.
  std::string_view dictionary(Object object) const {
    const auto begin = bytes_.find("<<", offset(object));
    const auto end = bytes_.find("endobj", offset(object));
    if (offset(object) == 0 || begin == bytes_.npos || end == bytes_.npos || begin > end) return {};
    const auto last = bytes_.rfind(">>", end);
    return last <= begin ? std::string_view() : bytes_.substr(begin + 2, last - begin - 2);
  }

  // The trailer's dictionary, for the update.
  std::string trailerWith(std::size_t size) const {
    const auto begin = trailer_.find("<<") + 2;
    std::string entries(trailer_.substr(begin, trailer_.rfind(">>") - begin));
    const auto at = entries.find("/Size");
    const auto digits = entries.find_first_of("0123456789", at);
    const auto end = entries.find_first_not_of("0123456789", digits);
    entries.replace(digits, end - digits, std::to_string(size));
    return "<<" + entries + "/Prev " + std::to_string(table_) + "\n>>\n";
  }

 private:
  explicit PdfFile(std::string_view bytes) : bytes_(bytes) {}

  // Entries of the table are of 20 bytes each, behind "xref" and a line with their range.
  std::size_t offset(Object object) const {
    const auto range = bytes_.find('\n', table_);
    const auto entries = range == bytes_.npos ? range : bytes_.find('\n', range + 1);
    constexpr std::size_t length = 20;
    if (entries == bytes_.npos || object == 0 || object >= size()) return 0;
    return numberAt(bytes_, entries + 1 + object * length);
  }

  std::vector<Object> kidsOf(Object pages) const {
    std::vector<Object> kids;
    const std::string_view entries = dictionary(pages);
    const auto begin = entries.find("/Kids");
    if (begin == entries.npos) return kids;
    const auto list = entries.substr(begin, entries.find(']', begin) - begin);
    for (auto at = list.find('['); (at = list.find_first_of("0123456789", at)) != list.npos;) {
      kids.push_back(numberAt(list, at));
      at = list.find('R', at);
    }
    return kids;
  }

  std::string_view bytes_;
  std::string_view trailer_;
  std::size_t table_ = 0;
  Object root_ = 0;
  Object info_ = 0;
  std::vector<Object> pages_;
};

// Objects that are written behind the end of a file.
class PdfUpdate {
 public:
  explicit PdfUpdate(std::string pdf) : bytes_(std::move(pdf)) {}

  void put(Object object, std::string_view entries) {
    offsets_[object] = bytes_.size();
    bytes_ += std::to_string(object) + " 0 obj\n<<" + std::string(entries) + ">>\nendobj\n";
  }

  // With the table of what was put. `trailer` is the dictionary of the whole file.
  std::string end(const std::string& trailer) && {
    const std::size_t table = bytes_.size();
    bytes_ += "xref\n";
    for (const auto& [object, offset] : offsets_) {
      std::string digits = std::to_string(offset);
      digits.insert(0, 10 - std::min<std::size_t>(digits.size(), 10), '0');
      bytes_ += std::to_string(object) + " 1\n" + digits + " 00000 n \n";
    }
    bytes_ += "trailer\n" + trailer + "startxref\n" + std::to_string(table) + "\n%%EOF\n";
    return std::move(bytes_);
  }

 private:
  std::string bytes_;
  std::map<Object, std::size_t> offsets_;
};

// A bookmark's place on its page, measured from the lower edge.
std::string destination(const PrintedPages& pages, const PrintedHeading& heading, Object page) {
  const double height = pages.heightOf(pages.pages[heading.page]);
  return "/Dest [" + reference(page) + " /XYZ null " +
         std::to_string(static_cast<int>(height - heading.top)) + " null]\n";
}

// The list of bookmarks is object `first`, they are the ones behind it.
void putBookmarks(PdfUpdate& update, const PdfFile& file, const PrintedPages& pages, Object first) {
  const auto& headings = pages.headings;
  update.put(first, "/Type /Outlines\n/First " + reference(first + 1) + "\n/Last " +
                        reference(first + headings.size()) + "\n/Count " +
                        std::to_string(headings.size()) + "\n");
  for (std::size_t i = 0; i < headings.size(); ++i) {
    const Object own = first + 1 + i;
    std::string entries =
        "/Title " + textString(headings[i].title) + "\n/Parent " + reference(first) + "\n";
    if (i > 0) entries += "/Prev " + reference(own - 1) + "\n";
    if (i + 1 < headings.size()) entries += "/Next " + reference(own + 1) + "\n";
    update.put(own, entries + destination(pages, headings[i], file.pages()[headings[i].page]));
  }
}

}  // namespace

Result<std::string> withOutline(std::string pdf, const PrintedPages& pages) {
  const std::string whole = pdf;
  const auto file = PdfFile::read(whole);
  if (!file || file->pages().size() != pages.pages.size() || file->info() == 0)
    return Error{"", "The PDF has a form in which no bookmarks can be set."};
  PdfUpdate update(std::move(pdf));
  const Object list = file->size();
  std::string catalog(file->dictionary(file->root()));
  catalog += "/Lang (en)\n/ViewerPreferences << /DisplayDocTitle true >>\n";
  if (!pages.headings.empty()) {
    catalog += "/Outlines " + reference(list) + "\n/PageMode /UseOutlines\n";
    putBookmarks(update, *file, pages, list);
  }
  update.put(file->root(), catalog);
  std::string info(file->dictionary(file->info()));
  if (!pages.author.empty()) info += "/Author " + textString(pages.author) + "\n";
  update.put(file->info(), info);
  const Object size = list + (pages.headings.empty() ? 0 : pages.headings.size() + 1);
  return std::move(update).end(file->trailerWith(size));
}

}  // namespace tolmer
