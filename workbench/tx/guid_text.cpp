#include "workbench/tx/guid_text.h"

namespace workbench::tx {

std::string GuidText(const std::array<uint8_t, 16>& bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text = "{";
  for (size_t i = 0; i < bytes.size(); ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) text.push_back('-');
    text.push_back(kDigits[bytes[i] >> 4]);
    text.push_back(kDigits[bytes[i] & 15]);
  }
  text.push_back('}');
  return text;
}

}  // namespace workbench::tx
