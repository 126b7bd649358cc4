#include "workbench/controls/operations/undo_store.h"

#include <cstring>
#include <string_view>

namespace controls {
namespace {

constexpr LONG kKeptEntries = 10;

std::wstring NameOf(const wchar_t* what) {
  return std::wstring(L"Local\\SswareShellUndo-") + what + L"-" + std::to_wstring(GetCurrentProcessId());
}

}  // namespace

// Starts as zeros. The blocks come from the process's heap: any module can free them.
struct UndoStore::Shared {
  struct Block {
    void* bytes;
    SIZE_T size;
  };
  LONG users;
  LONG count;
  Block entries[kKeptEntries];  // the oldest first

  void DropFirst() {
    HeapFree(GetProcessHeap(), 0, entries[0].bytes);
    --count;
    std::memmove(&entries[0], &entries[1], static_cast<size_t>(count) * sizeof(Block));
  }
  std::string_view Last() const {
    const Block& last = entries[count - 1];
    return {static_cast<const char*>(last.bytes), last.size};
  }
  void DropLast() { HeapFree(GetProcessHeap(), 0, entries[--count].bytes); }
};

class UndoStore::Lock {
 public:
  explicit Lock(const UndoStore& store) : mutex_(store.mutex_.get()) {
    WaitForSingleObject(mutex_, INFINITE);
  }
  ~Lock() { ReleaseMutex(mutex_); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  HANDLE mutex_;
};

UndoStore::UndoStore() {
  mutex_.reset(CreateMutexW(nullptr, FALSE, NameOf(L"lock").c_str()));
  mapping_.reset(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(Shared),
                                    NameOf(L"entries").c_str()));
  if (!mutex_ || !mapping_) return;
  shared_ = static_cast<Shared*>(MapViewOfFile(mapping_.get(), FILE_MAP_WRITE, 0, 0, sizeof(Shared)));
  if (!shared_) return;
  const Lock lock(*this);
  ++shared_->users;
}

UndoStore::~UndoStore() {
  if (!shared_) return;
  {
    const Lock lock(*this);
    if (--shared_->users == 0) {
      while (shared_->count > 0) shared_->DropLast();
    }
  }
  UnmapViewOfFile(shared_);
}

void UndoStore::Push(const UndoEntry& entry) {
  if (!shared_ || entry.empty()) return;
  const std::string bytes = BytesOf(entry);
  void* const block = HeapAlloc(GetProcessHeap(), 0, bytes.size());
  if (!block) return;
  std::memcpy(block, bytes.data(), bytes.size());
  const Lock lock(*this);
  if (shared_->count == kKeptEntries) shared_->DropFirst();
  shared_->entries[shared_->count++] = {block, bytes.size()};
}

std::wstring UndoStore::LastName() const {
  if (!shared_) return {};
  const Lock lock(*this);
  if (shared_->count == 0) return {};
  return UndoNameFrom(shared_->Last());
}

std::optional<UndoEntry> UndoStore::Pop() {
  if (!shared_) return std::nullopt;
  const Lock lock(*this);
  if (shared_->count == 0) return std::nullopt;
  std::optional<UndoEntry> entry = UndoEntryFrom(shared_->Last());
  shared_->DropLast();
  return entry;
}

}  // namespace controls
