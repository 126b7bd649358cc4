#include "workbench/controls/operations/undo_entry.h"

#include <cstdint>
#include <cstring>

namespace controls {
namespace {

constexpr uint64_t kFormat = 1;

// One list of fields for both directions.
class Writer {
 public:
  void Field(uint64_t value) { bytes_.append(reinterpret_cast<const char*>(&value), sizeof(value)); }
  void Field(const std::string& text) {
    Field(uint64_t{text.size()});
    bytes_ += text;
  }
  void Field(const std::wstring& text) {
    Field(uint64_t{text.size()});
    for (const wchar_t unit : text) Field(static_cast<uint64_t>(unit));
  }
  template <typename T>
  size_t Size(const std::vector<T>& list) {
    Field(uint64_t{list.size()});
    return list.size();
  }
  std::string Take() { return std::move(bytes_); }

 private:
  std::string bytes_;
};

struct BadBytes {};

class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}
  void Field(uint64_t& value) { std::memcpy(&value, Next(sizeof(value)), sizeof(value)); }
  void Field(std::string& text) {
    const size_t size = Count(1);
    text.assign(Next(size), size);
  }
  void Field(std::wstring& text) {
    text.resize(Count(sizeof(uint64_t)));
    for (wchar_t& unit : text) {
      uint64_t value = 0;
      Field(value);
      unit = static_cast<wchar_t>(value);
    }
  }
  template <typename T>
  size_t Size(std::vector<T>& list) {
    list.resize(Count(sizeof(uint64_t)));
    return list.size();
  }
  bool AtEnd() const { return bytes_.empty(); }

 private:
  // How many things follow, each at least that many bytes long.
  size_t Count(size_t least) {
    uint64_t count = 0;
    Field(count);
    if (count > bytes_.size() / least) throw BadBytes();
    return static_cast<size_t>(count);
  }
  const char* Next(size_t size) {
    if (size > bytes_.size()) throw BadBytes();
    const char* const at = bytes_.data();
    bytes_.remove_prefix(size);
    return at;
  }
  std::string_view bytes_;
};

// Numbers of other types go through one of 64 bits.
template <typename T>
void Number(Writer& writer, const T& value) {
  writer.Field(static_cast<uint64_t>(value));
}
template <typename T>
void Number(Reader& reader, T& value) {
  uint64_t number = 0;
  reader.Field(number);
  value = static_cast<T>(number);
}

template <typename Stream, typename Identity>
void Pass(Stream& stream, Identity& identity) {
  Number(stream, identity.volume);
  Number(stream, identity.index);
}

template <typename Stream, typename Texts>
void PassTexts(Stream& stream, Texts& texts) {
  const size_t count = stream.Size(texts);
  for (size_t i = 0; i < count; ++i) stream.Field(texts[i]);
}

template <typename Stream, typename Record>
void PassRecord(Stream& stream, Record& record) {
  Number(stream, record.kind);
  const size_t made = stream.Size(record.made);
  for (size_t i = 0; i < made; ++i) {
    auto& item = record.made[i];
    stream.Field(item.path);
    Number(stream, item.status.kind);
    Number(stream, item.status.size);
    Number(stream, item.status.modified);
    Number(stream, item.status.attributes);
    Pass(stream, item.status.identity);
  }
  const size_t moved = stream.Size(record.moved);
  for (size_t i = 0; i < moved; ++i) {
    stream.Field(record.moved[i].from);
    stream.Field(record.moved[i].to);
    Pass(stream, record.moved[i].identity);
  }
  PassTexts(stream, record.emptied);
  PassTexts(stream, record.replaced);
}

template <typename Stream, typename Entry>
void PassEntry(Stream& stream, Entry& entry) {
  stream.Field(entry.name);
  PassRecord(stream, entry.record);
  const size_t binned = stream.Size(entry.binned);
  for (size_t i = 0; i < binned; ++i) {
    stream.Field(entry.binned[i].path);
    stream.Field(entry.binned[i].binId);
  }
}

}  // namespace

std::string BytesOf(const UndoEntry& entry) {
  Writer writer;
  writer.Field(kFormat);
  PassEntry(writer, entry);
  return writer.Take();
}

std::optional<UndoEntry> UndoEntryFrom(std::string_view bytes) {
  try {
    Reader reader(bytes);
    uint64_t format = 0;
    reader.Field(format);
    UndoEntry entry;
    if (format != kFormat) return std::nullopt;
    PassEntry(reader, entry);
    if (!reader.AtEnd()) return std::nullopt;
    return entry;
  } catch (const BadBytes&) {
    return std::nullopt;
  }
}

std::wstring UndoNameFrom(std::string_view bytes) {
  try {
    Reader reader(bytes);
    uint64_t format = 0;
    std::wstring name;
    reader.Field(format);
    if (format == kFormat) reader.Field(name);
    return name;
  } catch (const BadBytes&) {
    return {};
  }
}

}  // namespace controls
