#include "base/files/temporary_name.h"

#include <algorithm>

namespace base {
namespace {

constexpr std::wstring_view kStart = L".transfer-";
constexpr std::wstring_view kEnd = L".part";
constexpr size_t kNumberDigits = 8;
constexpr size_t kTokenDigits = 3 * kNumberDigits;

void AppendHex(std::wstring& text, uint32_t number) {
  for (int shift = 28; shift >= 0; shift -= 4) text += L"0123456789abcdef"[(number >> shift) & 0xF];
}

bool IsHex(std::wstring_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](wchar_t c) { return (c >= L'0' && c <= L'9') || (c >= L'a' && c <= L'f'); });
}

uint32_t HexNumber(std::wstring_view text) {
  uint32_t number = 0;
  for (const wchar_t c : text)
    number = number * 16 + static_cast<uint32_t>(c <= L'9' ? c - L'0' : c - L'a' + 10);
  return number;
}

}  // namespace

std::wstring TemporaryName(std::wstring_view processToken, uint32_t number) {
  std::wstring name(kStart);
  name += processToken;
  name += L'-';
  AppendHex(name, number);
  name += kEnd;
  return name;
}

std::optional<std::wstring> TokenOfTemporaryName(std::wstring_view name) {
  if (name.size() != kStart.size() + kTokenDigits + 1 + kNumberDigits + kEnd.size()) return std::nullopt;
  if (!name.starts_with(kStart) || !name.ends_with(kEnd)) return std::nullopt;
  const std::wstring_view token = name.substr(kStart.size(), kTokenDigits);
  const std::wstring_view number = name.substr(kStart.size() + kTokenDigits + 1, kNumberDigits);
  if (!IsHex(token) || !IsHex(number) || name[kStart.size() + kTokenDigits] != L'-') return std::nullopt;
  return std::wstring(token);
}

std::wstring MakeProcessToken(uint32_t machine, uint32_t process, uint32_t started) {
  std::wstring token;
  for (const uint32_t part : {machine, process, started}) AppendHex(token, part);
  return token;
}

std::optional<ProcessTokenParts> PartsOfProcessToken(std::wstring_view token) {
  if (token.size() != kTokenDigits || !IsHex(token)) return std::nullopt;
  const auto part = [&](size_t index) {
    return HexNumber(token.substr(index * kNumberDigits, kNumberDigits));
  };
  return ProcessTokenParts{part(0), part(1), part(2)};
}

}  // namespace base
