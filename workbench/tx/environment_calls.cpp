#include <windows.h>
// rpc.h needs windows.h before it.
#include <rpc.h>

#include <array>
#include <cstring>
#include <memory>
#include <string>

#include "base/text/code_page.h"
#include "base/text/narrow_path.h"
#include "workbench/tx/guid_text.h"
#include "workbench/tx/library.h"

using namespace workbench::tx;

namespace {

// One text a thread, released when the thread ends. (A thread_local with a destructor would keep the library
// loaded.)
class ThreadText {
 public:
  ThreadText() : slot_(FlsAlloc(Release)) {}
  ~ThreadText() {
    if (slot_ != FLS_OUT_OF_INDEXES) FlsFree(slot_);
  }
  ThreadText(const ThreadText&) = delete;
  ThreadText& operator=(const ThreadText&) = delete;

  // The thread's copy of text, valid until its next call; null when there is no room for one.
  const char* Keep(std::string text) {
    if (slot_ == FLS_OUT_OF_INDEXES) return nullptr;
    auto* kept = static_cast<std::string*>(FlsGetValue(slot_));
    if (!kept) {
      auto fresh = std::make_unique<std::string>();
      if (!FlsSetValue(slot_, fresh.get())) return nullptr;
      kept = fresh.release();
    }
    *kept = std::move(text);
    return kept->c_str();
  }

 private:
  static void CALLBACK Release(void* text) { delete static_cast<std::string*>(text); }

  DWORD slot_;
};

ThreadText& InquiredText() {
  static ThreadText text;
  return text;
}

std::wstring WideProcessVariable(const std::wstring& name) {
  std::wstring value(256, L'\0');
  for (;;) {
    const DWORD length = GetEnvironmentVariableW(name.c_str(), value.data(), static_cast<DWORD>(value.size()));
    if (length < value.size()) {
      value.resize(length);
      return value;
    }
    value.resize(length);  // it was too small: length is the size that is needed
  }
}

// Read wide: the 8-bit call cuts values with letters beyond ASCII on some platforms. A value that the code page can't
// express goes by its short path when it is the path of something; else it counts as not set, since a part of it or a
// letter in another's place would mean something else.
std::string ProcessVariable(const char* name) {
  const auto wideName = base::ExactWide(name);
  if (!wideName) return {};
  const std::wstring value = WideProcessVariable(*wideName);
  if (auto exact = base::ExactNarrow(value)) return *std::move(exact);
  const bool isPath = value.starts_with(L"\\\\") || value.find(L":\\") == 1;
  return isPath ? base::NarrowPath(value).value_or(std::string()) : std::string();
}

std::string Variable(const char* name) {
  {
    const LockedState state;
    const EnvironmentTable::Entry entry = state->environment.Find(name);
    if (entry.known) return entry.value ? *entry.value : std::string();
  }
  return ProcessVariable(name);
}

}  // namespace

const char* Tx_Inquire_Environment(const char* name) {
  return Guarded(static_cast<const char*>(nullptr), [&]() -> const char* {
    if (!name || !*name) return nullptr;
    std::string value = Variable(name);
    return value.empty() ? nullptr : InquiredText().Keep(std::move(value));
  });
}

int Tx_Set_Environment(const char* name, const char* value) {
  return Guarded(0, [&]() -> int {
    if (!name || !*name) return 0;
    const LockedState state;
    return state->environment.Set(name, value ? std::optional<std::string>(value) : std::nullopt);
  });
}

TxToken Tx_Inquire_Token(const char* keyword) {
  return Guarded(TxToken{0}, [&]() -> TxToken {
    if (!keyword || !*keyword) return 0;
    const LockedState state;
    return state->tokens.Token(keyword);
  });
}

int Tx_Create_GUID(char* guid) {
  return Guarded(0, [&]() -> int {
    if (!guid) return 0;
    UUID uuid;
    const RPC_STATUS status = UuidCreate(&uuid);
    if (status != RPC_S_OK && status != RPC_S_UUID_LOCAL_ONLY) return 0;
    std::array<uint8_t, 16> bytes;
    for (size_t i = 0; i < 4; ++i) bytes[i] = static_cast<uint8_t>(uuid.Data1 >> (24 - 8 * i));
    for (size_t i = 0; i < 2; ++i) bytes[4 + i] = static_cast<uint8_t>(uuid.Data2 >> (8 - 8 * i));
    for (size_t i = 0; i < 2; ++i) bytes[6 + i] = static_cast<uint8_t>(uuid.Data3 >> (8 - 8 * i));
    std::memcpy(bytes.data() + 8, uuid.Data4, 8);
    std::memcpy(guid, GuidText(bytes).c_str(), kTxGuidSize);
    return 1;
  });
}
