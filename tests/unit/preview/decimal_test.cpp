#include "src/preview/decimal.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>

namespace file_explorer::preview {
namespace {

// What a full conversion gives; the text goes on, as it does in a file.
void ExpectLikeFullConversion(const std::string& number) {
  const std::string text = number + "        ";
  double value = -1;
  const char* const end = text.data() + text.size();
  const char* const after = ReadShortDecimal(text.data(), end, &value);
  if (after == nullptr) return;  // left to the full conversion
  EXPECT_EQ(after, text.data() + number.size()) << number;
  const std::size_t sign = number.starts_with('+') ? 1 : 0;
  double full = -1;
  std::from_chars(number.data() + sign, number.data() + number.size(), full);
  EXPECT_EQ(value, full) << number;
  EXPECT_EQ(std::signbit(value), std::signbit(full)) << number;
}

TEST(ShortDecimal, GivesWhatAFullConversionGives) {
  std::mt19937_64 random(5);
  const char* const formats[] = {"%.6f", "%.3f", "%.9g", "%.17g", "%.6e", "%g", "%.0f", "%.12f"};
  for (int i = 0; i < 40'000; ++i) {
    const double scale = std::pow(10.0, static_cast<double>(random() % 24) - 12);
    const double value = (static_cast<double>(random()) / 1.8e19 - 0.5) * scale;
    char text[80];
    for (const char* const format : formats) {
      std::snprintf(text, sizeof text, format, value);
      ExpectLikeFullConversion(text);
    }
  }
}

TEST(ShortDecimal, ReadsTheUsualForms) {
  for (const char* const text :
       {"0", "-0", "1", "+7", "-12.5", ".5", "5.", "1e3", "1.5E-07", "-1.234567e+02", "123456789012345"}) {
    double value = 0;
    const std::string file = std::string(text) + "\n        ";
    EXPECT_NE(ReadShortDecimal(file.data(), file.data() + file.size(), &value), nullptr) << text;
    ExpectLikeFullConversion(text);
  }
}

TEST(ShortDecimal, RefusesWhatIsNone) {
  for (const char* const text : {"", "-", ".", "x", "e5", "1e", "1e+", "--1", "+-1", "nan", "1e99999"}) {
    double value = 0;
    const std::string file = std::string(text) + "\n        ";
    EXPECT_EQ(ReadShortDecimal(file.data(), file.data() + file.size(), &value), nullptr) << text;
  }
}

// The memory ends with the text, so that a sanitizer sees a byte read too many.
TEST(ShortDecimal, NeverReadsPastTheEnd) {
  const std::string text = "-1234567.12345678e-10";
  for (std::size_t length = 0; length <= text.size(); ++length) {
    const std::vector<char> cut(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length));
    double value = 0;
    ReadShortDecimal(cut.data(), cut.data() + cut.size(), &value);
  }
}

}  // namespace
}  // namespace file_explorer::preview
