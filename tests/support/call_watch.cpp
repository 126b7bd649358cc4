#include "tests/support/call_watch.h"

#include <shellapi.h>
#include <shlwapi.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace test_support {
namespace {

CallWatch* current = nullptr;
DWORD thread = 0;

template <size_t N>
struct FunctionName {
  constexpr FunctionName(const char (&text)[N]) { std::copy_n(text, N, value); }  // NOLINT: from a literal
  char value[N] = {};
};

bool IsRemote(std::string_view path) {
  return path.starts_with("\\\\") && !path.starts_with("\\\\?\\C:") && !path.starts_with("\\\\?\\Z:");
}

std::string Ascii(const wchar_t* text) {
  std::string ascii;
  for (; *text != L'\0'; ++text) ascii.push_back(*text < 128 ? static_cast<char>(*text) : '?');
  return ascii;
}
std::string Ascii(const char* text) {
  return text;
}

// The first text among a call's arguments, if there is one.
template <typename First, typename... Rest>
std::string FirstText(First first, Rest... rest) {
  if constexpr (std::is_same_v<First, const char*> || std::is_same_v<First, char*> ||
                std::is_same_v<First, const wchar_t*> || std::is_same_v<First, wchar_t*>) {
    return first != nullptr ? Ascii(first) : std::string();
  } else if constexpr (sizeof...(rest) > 0) {
    return FirstText(rest...);
  } else {
    return {};
  }
}

// The text among a call's arguments that its length follows.
template <typename First, typename Second, typename... Rest>
std::string_view CountedText(First first, Second second, Rest... rest) {
  if constexpr (std::is_same_v<First, const char*> || std::is_same_v<First, char*>) {
    if (first == nullptr) return {};
    return static_cast<int>(second) < 0 ? std::string_view(first)
                                        : std::string_view(first, static_cast<size_t>(second));
  } else {
    return CountedText(second, rest...);
  }
}

}  // namespace

// What is looked at in a call.
struct CallChecks {
  struct Text {
    template <typename... Arguments>
    static void See(const char* function, Arguments... arguments) {
      const std::string_view text = CountedText(arguments...);
      const bool isPlain =
          std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
      if (!isPlain) current->narrowTexts_.push_back(std::string(function) + ": " + std::string(text));
    }
  };
  struct File {
    template <typename... Arguments>
    static void See(const char* function, Arguments... arguments) {
      Note(function, FirstText(arguments...));
    }
  };
  // By the name alone, when the flags say so; a list of items in place of a path is none of ours.
  struct Icon {
    template <typename Path>
    static void See(const char* function, Path path, DWORD, SHFILEINFOA*, UINT, UINT flags) {
      if ((flags & (SHGFI_USEFILEATTRIBUTES | SHGFI_PIDL)) == 0) Note(function, FirstText(path));
    }
    template <typename Path>
    static void See(const char* function, Path path, DWORD, SHFILEINFOW*, UINT, UINT flags) {
      if ((flags & (SHGFI_USEFILEATTRIBUTES | SHGFI_PIDL)) == 0) Note(function, FirstText(path));
    }
  };
  static void Note(const char* function, const std::string& path) {
    if (IsRemote(path)) current->remoteCalls_.push_back(std::string(function) + ": " + path);
  }
};

namespace {

template <FunctionName Name, typename Function, typename Check>
struct Watched;

template <FunctionName Name, typename Result, typename... Arguments, typename Check>
struct Watched<Name, Result(Arguments...), Check> {
  static Result Call(Arguments... arguments) {
    if (current != nullptr && GetCurrentThreadId() == thread) Check::See(Name.value, arguments...);
    return original(arguments...);
  }
  static constexpr const char* kName = Name.value;
  static inline Result (*original)(Arguments...) = nullptr;
};

// The desktop that the module is given: the shell's own, but its paths are looked at before they are parsed.
class WatchedDesktop final : public IShellFolder {
 public:
  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IShellFolder))
      return real()->QueryInterface(iid, object);
    *object = this;
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP ParseDisplayName(HWND window, IBindCtx* context, LPWSTR name, ULONG* eaten, LPITEMIDLIST* item,
                                ULONG* attributes) override {
    if (current != nullptr && GetCurrentThreadId() == thread)
      CallChecks::Note("ParseDisplayName", Ascii(name));
    return real()->ParseDisplayName(window, context, name, eaten, item, attributes);
  }
  STDMETHODIMP EnumObjects(HWND window, SHCONTF flags, IEnumIDList** items) override {
    return real()->EnumObjects(window, flags, items);
  }
  STDMETHODIMP BindToObject(LPCITEMIDLIST item, IBindCtx* context, REFIID iid, void** object) override {
    return real()->BindToObject(item, context, iid, object);
  }
  STDMETHODIMP BindToStorage(LPCITEMIDLIST item, IBindCtx* context, REFIID iid, void** object) override {
    return real()->BindToStorage(item, context, iid, object);
  }
  STDMETHODIMP CompareIDs(LPARAM how, LPCITEMIDLIST first, LPCITEMIDLIST second) override {
    return real()->CompareIDs(how, first, second);
  }
  STDMETHODIMP CreateViewObject(HWND window, REFIID iid, void** object) override {
    return real()->CreateViewObject(window, iid, object);
  }
  STDMETHODIMP GetAttributesOf(UINT count, LPCITEMIDLIST* items, SFGAOF* attributes) override {
    return real()->GetAttributesOf(count, items, attributes);
  }
  STDMETHODIMP GetUIObjectOf(HWND window, UINT count, LPCITEMIDLIST* items, REFIID iid, UINT* reserved,
                             void** object) override {
    return real()->GetUIObjectOf(window, count, items, iid, reserved, object);
  }
  STDMETHODIMP GetDisplayNameOf(LPCITEMIDLIST item, SHGDNF flags, STRRET* name) override {
    return real()->GetDisplayNameOf(item, flags, name);
  }
  STDMETHODIMP SetNameOf(HWND window, LPCITEMIDLIST item, LPCOLESTR name, SHGDNF flags,
                         LPITEMIDLIST* changed) override {
    return real()->SetNameOf(window, item, name, flags, changed);
  }

 private:
  // The shell keeps it for the whole process.
  static IShellFolder* real() {
    IShellFolder* folder = nullptr;
    SHGetDesktopFolder(&folder);
    if (folder != nullptr) folder->Release();
    return folder;
  }
};

HRESULT WINAPI GiveWatchedDesktop(IShellFolder** folder) {
  static WatchedDesktop desktop;
  *folder = &desktop;
  return S_OK;
}

}  // namespace

template <typename Watched>
void CallWatch::Add(HMODULE module) {
  auto hook = std::make_unique<ImportHook>(module, Watched::kName, reinterpret_cast<void*>(&Watched::Call));
  if (!hook->installed()) return;
  Watched::original = reinterpret_cast<decltype(Watched::original)>(hook->original());
  hooks_.push_back(std::move(hook));
}

#define WATCH(function, check) Add<Watched<#function, decltype(function), CallChecks::check>>(module)

CallWatch::CallWatch(HMODULE module) {
  current = this;
  thread = GetCurrentThreadId();
  WATCH(TextOutA, Text);
  WATCH(ExtTextOutA, Text);
  WATCH(DrawTextA, Text);
  WATCH(DrawTextExA, Text);
  WATCH(TabbedTextOutA, Text);
  WATCH(GetTextExtentPointA, Text);
  WATCH(GetTextExtentPoint32A, Text);
  WATCH(GetTextExtentExPointA, Text);
  WATCH(CreateFileA, File);
  WATCH(CreateFileW, File);
  WATCH(GetFileAttributesA, File);
  WATCH(GetFileAttributesW, File);
  WATCH(GetFileAttributesExA, File);
  WATCH(GetFileAttributesExW, File);
  WATCH(FindFirstFileA, File);
  WATCH(FindFirstFileW, File);
  WATCH(FindFirstFileExA, File);
  WATCH(FindFirstFileExW, File);
  WATCH(PathIsDirectoryA, File);
  WATCH(PathIsDirectoryW, File);
  WATCH(PathFileExistsA, File);
  WATCH(PathFileExistsW, File);
  WATCH(GetVolumeInformationA, File);
  WATCH(GetVolumeInformationW, File);
  WATCH(GetShortPathNameA, File);
  WATCH(GetShortPathNameW, File);
  WATCH(GetLongPathNameA, File);
  WATCH(GetLongPathNameW, File);
  WATCH(SHParseDisplayName, File);
  WATCH(SHGetFileInfoA, Icon);
  WATCH(SHGetFileInfoW, Icon);
  auto desktop = std::make_unique<ImportHook>(module, "SHGetDesktopFolder", &GiveWatchedDesktop);
  if (desktop->installed()) hooks_.push_back(std::move(desktop));
}

CallWatch::~CallWatch() {
  hooks_.clear();
  current = nullptr;
}

}  // namespace test_support
