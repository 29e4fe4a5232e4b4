// Files that are packages of named parts: a zip archive, as of workbooks and documents.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "base/error.h"
#include "foreign/readers/xml_parser.h"

namespace tolmer {

// Takes the next piece of a part; false where no more is wanted.
using TakePiece = std::function<bool(std::string_view)>;

class Package {
 public:
  virtual ~Package() = default;
  // Names as "xl/workbook.xml"; some writers do not keep to case and to the slash.
  virtual bool has(std::string_view name) const = 0;
  // The whole part, in pieces; its end is checked only where all of it was taken.
  virtual std::optional<Error> read(std::string_view name, const TakePiece& take) = 0;
  // Of any part, and for a message.
  virtual std::string firstName() const = 0;

  std::optional<Error> readXml(std::string_view name, XmlSink& sink);
};

// Parts are stored or deflated; those that are encrypted or packed in other ways are refused, and
// so is a part whose length or checksum differs from what the archive says.
class ZipFile : public Package {
 public:
  // `bytes` outlive it.
  static Result<ZipFile> open(std::string_view bytes);

  bool has(std::string_view name) const override;
  std::optional<Error> read(std::string_view name, const TakePiece& take) override;
  std::string firstName() const override { return firstName_; }

 private:
  struct Entry {
    int flags = 0;
    int method = 0;
    std::uint32_t checksum = 0;
    std::uint64_t packed = 0;
    std::uint64_t unpacked = 0;
    std::uint64_t header = 0;  // where its local header begins
  };

  explicit ZipFile(std::string_view bytes) : bytes_(bytes) {}
  bool readDirectory();
  std::size_t readEntry(std::uint64_t at);
  std::optional<std::string_view> packedBytes(const Entry& entry) const;

  std::string_view bytes_;
  std::string firstName_;
  std::map<std::string, Entry, std::less<>> entries_;  // by their names in small letters
};

// The content of a file packed by gzip, in pieces.
std::optional<Error> readGzip(std::string_view bytes, const TakePiece& take);

}  // namespace tolmer
