#include "workbench/tx/format_file.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

#include "workbench/tx/extension_list.h"

namespace workbench::tx {
namespace {

constexpr size_t kFieldCount = 5;
using Fields = std::array<std::string_view, kFieldCount>;

constexpr std::pair<std::string_view, int64_t> kTypeNames[] = {
    {"3d", kTxTypeObject3D},       {"bitmap", kTxTypeBitmap2D},
    {"vector", kTxTypeVector2D},   {"text", kTxTypeText},
    {"archive", kTxTypeArchive},   {"video", kTxTypeVideo},
    {"audio", kTxTypeAudio},       {"spreadsheet", kTxTypeSpreadsheet},
    {"database", kTxTypeDatabase}, {"presentation", kTxTypePresentation},
    {"unknown", kTxTypeUnknown},
};

constexpr std::pair<std::string_view, HandlerFunction> kFunctionNames[] = {
    {"importer", HandlerFunction::kImporter},
    {"viewer", HandlerFunction::kViewer},
    {"exporter", HandlerFunction::kExporter},
};

template <typename Table>
auto ValueOf(const Table& table, std::string_view name) {
  using Value = decltype(table[0].second);
  const auto found = std::find_if(std::begin(table), std::end(table),
                                  [&](const auto& row) { return EqualIgnoringCase(row.first, name); });
  return found == std::end(table) ? Value{} : found->second;
}

bool SplitFields(std::string_view line, Fields& fields) {
  for (size_t i = 0; i < kFieldCount; ++i) {
    const size_t bar = line.find('|');
    const bool last = i + 1 == kFieldCount;
    if (last != (bar == std::string_view::npos)) return false;
    fields[i] = TrimBlanks(line.substr(0, bar));
    if (fields[i].empty()) return false;
    if (!last) line.remove_prefix(bar + 1);
  }
  return true;
}

// "{8-4-4-4-12}" hexadecimal digits.
bool IsGuid(std::string_view text) {
  constexpr std::string_view kForm = "{00000000-0000-0000-0000-000000000000}";
  if (text.size() != kForm.size()) return false;
  for (size_t i = 0; i < kForm.size(); ++i) {
    const bool digit = std::isxdigit(static_cast<unsigned char>(text[i])) != 0;
    if (kForm[i] == '0' ? !digit : text[i] != kForm[i]) return false;
  }
  return true;
}

// 0 when a type is not known.
int64_t TypesOf(std::string_view names) {
  int64_t types = 0;
  while (!names.empty()) {
    const std::string_view name = names.substr(0, names.find(' '));
    names = TrimBlanks(names.substr(name.size()));
    const int64_t type = ValueOf(kTypeNames, name);
    if (type == 0) return 0;
    types |= type;
  }
  return types;
}

bool IsPlainText(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

bool ParseFormat(std::string_view line, Handler& handler) {
  Fields fields;
  if (!SplitFields(line, fields) || !IsGuid(fields[0]) || !IsPlainText(fields[3]) ||
      !IsPlainText(fields[4])) {
    return false;
  }
  std::string_view extensions = fields[3];
  std::string_view first;
  if (!NextExtension(extensions, first)) return false;
  handler.guid = fields[0];
  handler.function = ValueOf(kFunctionNames, fields[1]);
  handler.types = TypesOf(fields[2]);
  handler.fileTypes = fields[3];
  handler.name = fields[4];
  return handler.function != HandlerFunction::kNone && handler.types != 0;
}

}  // namespace

std::vector<Handler> ParseFormatFile(std::string_view content, size_t* skippedLines) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  content = content.substr(0, kFormatFileSize);
  if (content.starts_with(kByteOrderMark)) content.remove_prefix(kByteOrderMark.size());
  std::vector<Handler> formats;
  size_t skipped = 0;
  while (!content.empty() && formats.size() < kFormatLimit) {
    const size_t end = std::min(content.find_first_of("\r\n"), content.size());
    const std::string_view line = TrimBlanks(content.substr(0, end));
    content.remove_prefix(std::min(end + 1, content.size()));
    if (line.empty() || line.front() == '#') continue;
    Handler handler;
    if (ParseFormat(line, handler)) {
      formats.push_back(std::move(handler));
    } else {
      ++skipped;
    }
  }
  if (skippedLines) *skippedLines = skipped;
  return formats;
}

}  // namespace workbench::tx
