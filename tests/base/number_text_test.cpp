// Numbers read and written by the standard library: the same bytes with every library the program
// is built with, since reports and files of data must not hang on it.
#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>

#include "base/file_io.h"

namespace tolmer {
namespace {

constexpr int count = 20000;

template <class Real>
void write(std::string& all, Real number) {
  using Form = std::chars_format;
  char text[800];
  const auto put = [&](auto... how) {
    const auto end = std::to_chars(text, text + sizeof text, number, how...).ptr;
    all.append(text, end) += ' ';
  };
  put();
  put(Form::scientific);
  put(Form::general);
  put(Form::general, 17);
  put(Form::scientific, 6);
  if (std::abs(number) > 1e-9F && std::abs(number) < 1e20F) put(Form::fixed, 3);
}

template <class Real>
void read(std::string& all, std::string_view text, std::chars_format form) {
  Real number = 7;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, form);
  char digits[100];
  const auto last = std::to_chars(digits, digits + sizeof digits, number).ptr;
  all.append(digits, last) +=
      ':' + std::to_string(end - text.data()) + (error == std::errc() ? " " : "! ");
}

void read(std::string& all, std::string_view text) {
  for (const auto form :
       {std::chars_format::general, std::chars_format::fixed, std::chars_format::scientific}) {
    read<double>(all, text, form);
    read<float>(all, text, form);
  }
}

// The sums are those of libstdc++.
TEST(NumberText, IsWrittenWithTheSameBytesEverywhere) {
  std::string all;
  std::uint64_t bits = 1;
  for (int i = 0; i < count; ++i) {
    bits = bits * 6364136223846793005U + 1442695040888963407U;
    if (const auto any = std::bit_cast<double>(bits); std::isfinite(any)) write(all, any);
    if (const auto any = std::bit_cast<float>(static_cast<std::uint32_t>(bits >> 32));
        std::isfinite(any))
      write(all, any);
    write(all, static_cast<double>(bits >> 40) / 1000);
  }
  for (int power = -1074; power < 1024; ++power) write(all, std::ldexp(-1.0, power));
  for (int power = -149; power < 128; ++power) write(all, std::ldexp(1.0F, power));
  for (const double special : {0.0, -0.0, 100000.0, 123456.0, 1e22, 0.0001, 0.00001, 5e-324})
    write(all, special);
  EXPECT_EQ(checksumText(all), "4515E9D0");
}

TEST(NumberText, IsReadToTheSameBitsEverywhere) {
  std::string all;
  std::uint64_t bits = 1;
  for (int i = 0; i < count; ++i) {
    bits = bits * 6364136223846793005U + 1442695040888963407U;
    std::string digits = std::to_string(bits).substr(0, 1 + bits % 19);
    digits.insert(bits % digits.size(), 1, '.');
    read(all, digits + "e" + std::to_string(static_cast<int>(bits >> 32) % 345));
  }
  for (const char* text : {"",
                           "-",
                           ".",
                           "-.5",
                           "5.",
                           "1e",
                           "1e+",
                           "1e+x",
                           "1E5",
                           "+1",
                           " 1",
                           "1,5",
                           "inf",
                           "-Infinity",
                           "nan",
                           "infx",
                           "i",
                           "0x10",
                           "1e400",
                           "-1e400",
                           "1e-400",
                           "0e999",
                           "0.0000e-999",
                           "4.9e-324",
                           "2.4e-324",
                           "9007199254740993",
                           "1.00000005960464477539062500000000000000000000000000001",
                           "1e39",
                           "--1"})
    read(all, text);
  EXPECT_EQ(checksumText(all), "8080795E");
}

}  // namespace
}  // namespace tolmer
