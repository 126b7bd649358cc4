// A history's surroundings in memory: a clock that ticks, a shell that knows most names, a profile file as
// text.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "src/history/history_list.h"
#include "src/history/history_store.h"

namespace file_explorer {

class FakePlatform final : public HistoryPlatform {
 public:
  ItemId ParseItem(const std::string& name) override {
    parsed.push_back(name);
    if (name.starts_with("?")) return ItemId();
    return ItemId(name.begin(), name.end());
  }
  std::string ParsingName(const ItemId& item) override { return std::string(item.begin(), item.end()); }
  std::string BaseName(const std::string& path) override {
    return path.substr(path.find_last_of("\\/:") + 1);
  }
  HistoryTime Now() override {
    HistoryTime now = {2026, 11, 1, 16, 2, 5, 0, 0};
    now.second = static_cast<std::uint16_t>(ticks++ % 60);
    return now;
  }

  bool MayHang(const std::string& name) override { return name.starts_with("\\\\"); }

  int ticks = 0;
  std::vector<std::string> parsed;  // what the shell was asked about
};

// Keeps keys in the order in which they were written, and times in the form that the profile calls give them.
class FakeFile final : public HistoryFile {
 public:
  using Content = std::vector<std::pair<std::string, std::string>>;

  std::string ReadText(const char* key) override {
    const std::string* const value = Find(key);
    return value != nullptr ? *value : std::string();
  }

  bool ReadTime(const char* key, HistoryTime* time) override {
    const std::string* const value = Find(key);
    unsigned char bytes[17];
    if (value == nullptr || value->size() != 34) return false;
    for (size_t i = 0; i < 17; ++i) {
      unsigned byte = 0;
      if (std::sscanf(value->c_str() + 2 * i, "%2X", &byte) != 1) return false;
      bytes[i] = static_cast<unsigned char>(byte);
    }
    unsigned sum = 0;
    for (size_t i = 0; i < 16; ++i) sum += bytes[i];
    if ((sum & 0xFF) != bytes[16]) return false;
    std::memcpy(static_cast<void*>(time), bytes, 16);
    return true;
  }

  bool WriteText(const char* key, const std::string& text) override {
    if (writesLeft-- <= 0) return false;
    if (!content) content.emplace();
    content->emplace_back(key, text);
    return true;
  }

  bool WriteTime(const char* key, const HistoryTime& time) override {
    unsigned char bytes[16];
    std::memcpy(bytes, &time, 16);
    std::string text;
    unsigned sum = 0;
    char digits[3];
    for (const unsigned char byte : bytes) {
      std::snprintf(digits, sizeof(digits), "%02X", byte);
      text += digits;
      sum += byte;
    }
    std::snprintf(digits, sizeof(digits), "%02X", sum & 0xFF);
    return WriteText(key, text + digits);
  }

  bool Exists() override { return content.has_value(); }
  void RemoveBackup() override { backup.reset(); }
  bool MoveToBackup() override {
    backup = std::exchange(content, std::nullopt);
    return true;
  }
  void Remove() override { content.reset(); }
  bool RestoreBackup() override {
    content = std::exchange(backup, std::nullopt);
    return content.has_value();
  }
  void Forget() override {}

  std::string Text() const {
    std::string text;
    for (const auto& [key, value] : content.value_or(Content())) text += key + "=" + value + "\n";
    return text;
  }

  std::optional<Content> content;
  std::optional<Content> backup;
  int writesLeft = 1 << 30;

 private:
  const std::string* Find(const char* key) const {
    if (!content) return nullptr;
    const auto found =
        std::find_if(content->begin(), content->end(), [key](const auto& line) { return line.first == key; });
    return found != content->end() ? &found->second : nullptr;
  }
};

inline std::vector<std::string> Names(const HistoryList& list) {
  std::vector<std::string> names;
  for (const auto& entry : list.entries()) names.push_back(entry->displayName);
  return names;
}

}  // namespace file_explorer
