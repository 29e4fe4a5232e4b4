#include "foreign/readers/package.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace tolmer {
namespace {

std::string folded(std::string_view name) {
  std::string plain;
  for (const char c : name)
    plain += c == '\\' ? '/' : c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return plain;
}

// A number of so many bytes, the lowest first.
std::uint64_t numberAt(std::string_view bytes, std::uint64_t at, int length) {
  std::uint64_t number = 0;
  for (int i = length - 1; i >= 0; --i)
    number = number << 8 | static_cast<unsigned char>(bytes[at + static_cast<std::uint64_t>(i)]);
  return number;
}

// Neither reader needs more, whatever the archive promises.
constexpr std::uint64_t mostUnpacked = std::uint64_t{4} << 30;

constexpr int rawDeflate = -MAX_WBITS;
constexpr int gzipWrapped = MAX_WBITS + 16;

// zlib's state as long as a part is unpacked.
class Inflation {
 public:
  explicit Inflation(int windowBits) { ready_ = inflateInit2(&stream_, windowBits) == Z_OK; }
  ~Inflation() { inflateEnd(&stream_); }
  Inflation(const Inflation&) = delete;
  Inflation& operator=(const Inflation&) = delete;

  enum class End { whole, damaged, notWanted };

  End run(std::string_view packed, const TakePiece& take) {
    stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    int status = ready_ ? Z_OK : Z_MEM_ERROR;
    while (status == Z_OK) {
      if (stream_.avail_in == 0) refill(packed);
      stream_.next_out = reinterpret_cast<Bytef*>(buffer_.data());
      stream_.avail_out = static_cast<uInt>(buffer_.size());
      status = inflate(&stream_, Z_NO_FLUSH);
      if (status != Z_OK && status != Z_STREAM_END) return End::damaged;
      const std::size_t told = buffer_.size() - stream_.avail_out;
      if ((bytes_ += told) > mostUnpacked) return End::damaged;
      if (told > 0 && !take({buffer_.data(), told})) return End::notWanted;
    }
    return status == Z_STREAM_END ? End::whole : End::damaged;
  }

 private:
  void refill(std::string_view packed) {
    const auto used =
        static_cast<std::size_t>(reinterpret_cast<const char*>(stream_.next_in) - packed.data());
    constexpr std::size_t most = std::size_t{1} << 30;
    stream_.avail_in = static_cast<uInt>(std::min(most, packed.size() - used));
  }

  z_stream stream_{};
  bool ready_ = false;
  std::uint64_t bytes_ = 0;
  std::array<char, 1 << 16> buffer_{};
};

}  // namespace

std::optional<Error> Package::readXml(std::string_view name, XmlSink& sink) {
  XmlParser parser(sink);
  bool whole = true;
  const auto fault = read(name, [&](std::string_view piece) { return whole = parser.feed(piece); });
  if (fault) return fault;
  auto error = parser.finish();
  // What the sink tells of a cell needs no part's name beside it.
  if (error && !sink.error())
    error->where =
        error->where.empty() ? std::string(name) : std::string(name) + ", " + error->where;
  return error;
}

Result<ZipFile> ZipFile::open(std::string_view bytes) {
  ZipFile file(bytes);
  if (!file.readDirectory())
    return Error{"", "it is damaged or cut off: the list of its parts at the end is missing"};
  return file;
}

// The list of parts stands at the end, before a comment of any length.
bool ZipFile::readDirectory() {
  constexpr std::size_t endLength = 22;
  if (bytes_.size() < endLength) return false;
  const auto end = bytes_.rfind("PK\x05\x06", bytes_.size() - endLength);
  if (end == bytes_.npos) return false;
  std::uint64_t count = numberAt(bytes_, end + 10, 2);
  std::uint64_t at = numberAt(bytes_, end + 16, 4);
  constexpr std::size_t locatorLength = 20;
  if (end >= locatorLength && bytes_.substr(end - locatorLength, 4) == "PK\x06\x07") {
    const auto large = numberAt(bytes_, end - locatorLength + 8, 8);
    constexpr std::uint64_t largeLength = 56;
    if (large + largeLength > bytes_.size() || large > bytes_.size()) return false;
    count = numberAt(bytes_, large + 32, 8);
    at = numberAt(bytes_, large + 48, 8);
  }
  for (; count > 0; --count) {
    const std::size_t length = readEntry(at);
    if (length == 0) return false;
    at += length;
  }
  return !entries_.empty();
}

// Its length in the list; 0 where it is none.
std::size_t ZipFile::readEntry(std::uint64_t at) {
  constexpr std::uint64_t fixedLength = 46;
  if (at > bytes_.size() || bytes_.size() - at < fixedLength ||
      bytes_.substr(at, 4) != std::string_view("PK\x01\x02"))
    return 0;
  const auto nameLength = numberAt(bytes_, at + 28, 2);
  const auto extraLength = numberAt(bytes_, at + 30, 2);
  const auto length = fixedLength + nameLength + extraLength + numberAt(bytes_, at + 32, 2);
  if (length > bytes_.size() - at) return 0;
  Entry entry{.flags = static_cast<int>(numberAt(bytes_, at + 8, 2)),
              .method = static_cast<int>(numberAt(bytes_, at + 10, 2)),
              .checksum = static_cast<std::uint32_t>(numberAt(bytes_, at + 16, 4)),
              .packed = numberAt(bytes_, at + 20, 4),
              .unpacked = numberAt(bytes_, at + 24, 4),
              .header = numberAt(bytes_, at + 42, 4)};
  // Numbers that need more than four bytes stand in a field of their own, in this order.
  std::string_view extra = bytes_.substr(at + fixedLength + nameLength, extraLength);
  while (extra.size() >= 4) {
    const auto fieldLength = std::min<std::uint64_t>(numberAt(extra, 2, 2), extra.size() - 4);
    std::string_view field = extra.substr(4, fieldLength);
    constexpr std::uint64_t elsewhere = 0xFFFFFFFF;
    if (numberAt(extra, 0, 2) == 1)
      for (std::uint64_t* number : {&entry.unpacked, &entry.packed, &entry.header})
        if (*number == elsewhere && field.size() >= 8) {
          *number = numberAt(field, 0, 8);
          field.remove_prefix(8);
        }
    extra.remove_prefix(4 + fieldLength);
  }
  const std::string_view name = bytes_.substr(at + fixedLength, nameLength);
  if (entries_.empty()) firstName_ = name;
  entries_.try_emplace(folded(name), entry);
  return static_cast<std::size_t>(length);
}

bool ZipFile::has(std::string_view name) const {
  return entries_.find(folded(name)) != entries_.end();
}

std::optional<std::string_view> ZipFile::packedBytes(const Entry& entry) const {
  constexpr std::uint64_t fixedLength = 30;
  if (entry.header > bytes_.size() || bytes_.size() - entry.header < fixedLength ||
      bytes_.substr(entry.header, 4) != std::string_view("PK\x03\x04"))
    return std::nullopt;
  const auto begin = entry.header + fixedLength + numberAt(bytes_, entry.header + 26, 2) +
                     numberAt(bytes_, entry.header + 28, 2);
  if (begin > bytes_.size() || bytes_.size() - begin < entry.packed) return std::nullopt;
  return bytes_.substr(begin, entry.packed);
}

std::optional<Error> ZipFile::read(std::string_view name, const TakePiece& take) {
  const auto found = entries_.find(folded(name));
  if (found == entries_.end()) return Error{std::string(name), "this part is missing"};
  const Entry& entry = found->second;
  const Error damaged{std::string(name), "this part is damaged"};
  if (entry.flags & 1) return Error{std::string(name), "this part is locked with a password"};
  if (entry.method != 0 && entry.method != Z_DEFLATED)
    return Error{std::string(name), "this part is packed in a way that is not read"};
  const auto packed = packedBytes(entry);
  if (!packed) return damaged;
  auto checksum = crc32(0, nullptr, 0);
  std::uint64_t length = 0;
  const auto check = [&](std::string_view piece) {
    checksum = crc32(checksum, reinterpret_cast<const Bytef*>(piece.data()),
                     static_cast<uInt>(piece.size()));
    length += piece.size();
    return take(piece);
  };
  using End = Inflation::End;
  End end = End::whole;
  if (entry.method == Z_DEFLATED)
    end = Inflation(rawDeflate).run(*packed, check);
  else if (!check(*packed))
    end = End::notWanted;
  if (end == End::notWanted) return std::nullopt;
  if (end == End::damaged || length != entry.unpacked || checksum != entry.checksum) return damaged;
  return std::nullopt;
}

std::optional<Error> readGzip(std::string_view bytes, const TakePiece& take) {
  if (Inflation(gzipWrapped).run(bytes, take) == Inflation::End::damaged)
    return Error{"", "it is damaged or cut off"};
  return std::nullopt;
}

}  // namespace tolmer
