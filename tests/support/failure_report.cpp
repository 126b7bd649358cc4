#include "tests/support/failure_report.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <cstdio>

#include "base/text/utf8.h"
#include "tests/support/machine_below.h"

namespace test_support {
namespace {

constexpr int kMostFrames = 64;
constexpr int kMostChildren = 200;  // of one window

// GetWindowText would send a message, and the thread may not answer any.
std::string TextWithoutAsking(HWND window) {
  std::array<wchar_t, 512> text = {};
  InternalGetWindowText(window, text.data(), static_cast<int>(text.size()));
  return base::Utf8FromWide(text.data());
}

std::string ClassOf(HWND window) {
  std::array<wchar_t, 128> name = {};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return base::Utf8FromWide(name.data());
}

struct Children {
  std::string lines;
  int count = 0;
};

BOOL CALLBACK DescribeChild(HWND window, LPARAM parameter) {
  auto& children = *reinterpret_cast<Children*>(parameter);
  const std::string text = TextWithoutAsking(window);
  if (text.empty() || !IsWindowVisible(window)) return TRUE;
  children.lines += "    " + ClassOf(window) + " \"" + text + "\"\n";
  return ++children.count < kMostChildren;
}

BOOL CALLBACK DescribeWindow(HWND window, LPARAM parameter) {
  if (!IsWindowVisible(window)) return TRUE;
  DWORD process = 0;
  const DWORD thread = GetWindowThreadProcessId(window, &process);
  auto& lines = *reinterpret_cast<std::string*>(parameter);
  lines += "  " + ClassOf(window) + " \"" + TextWithoutAsking(window) + "\"";
  if (process != GetCurrentProcessId()) lines += " of another process";
  if (!IsWindowEnabled(window)) lines += ", disabled";
  lines += " (thread " + std::to_string(thread) + ")\n";
  Children children;
  EnumChildWindows(window, DescribeChild, reinterpret_cast<LPARAM>(&children));
  lines += children.lines;
  return TRUE;
}

// dbghelp is looked up when it is needed: no other test program has to load it.
class Symbols {
 public:
  Symbols() : library_(LoadLibraryA("dbghelp.dll")) {
    const auto initialize = Function<BOOL(WINAPI*)(HANDLE, const char*, BOOL)>("SymInitialize");
    find_ = Function<Find>("SymFromAddr");
    if (!initialize || !initialize(GetCurrentProcess(), nullptr, TRUE)) find_ = nullptr;
  }
  std::string NameOf(DWORD64 address) const {
    if (!find_) return {};
    Symbol symbol = {};
    symbol.size = offsetof(Symbol, name);
    symbol.mostName = sizeof symbol.name - 1;
    DWORD64 offset = 0;
    if (!find_(GetCurrentProcess(), address, &offset, &symbol)) return {};
    return std::string(symbol.name) + " + " + std::to_string(offset) + "  ";
  }

 private:
  struct Symbol {  // SYMBOL_INFO with room for a name
    ULONG size, type;
    ULONG64 reserved[2];
    ULONG index, sizeOfIt;
    ULONG64 module;
    ULONG flags;
    ULONG64 value, address;
    ULONG registerOf, scope, tag, nameLength, mostName;
    char name[512];
  };
  using Find = BOOL(WINAPI*)(HANDLE, DWORD64, DWORD64*, Symbol*);
  template <typename Type>
  Type Function(const char* name) const {
    return reinterpret_cast<Type>(
        reinterpret_cast<void (*)()>(library_ ? GetProcAddress(library_, name) : nullptr));
  }

  HMODULE library_;
  Find find_ = nullptr;
};

std::string DescribeAddress(DWORD64 address) {
  HMODULE module = nullptr;
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCSTR>(address), &module);
  std::array<wchar_t, MAX_PATH> path = {};
  if (module) GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
  const std::wstring name(path.data());
  char offset[32];
  std::snprintf(offset, sizeof offset, " + 0x%llx",
                static_cast<unsigned long long>(address - reinterpret_cast<DWORD64>(module)));
  return (module ? base::Utf8FromWide(name.substr(name.rfind(L'\\') + 1).c_str()) : std::string("?")) + offset;
}

// False at the end of the stack.
bool StepOut(CONTEXT& context) {
  DWORD64 base = 0;
  PRUNTIME_FUNCTION const function = RtlLookupFunctionEntry(context.Rip, &base, nullptr);
  if (!function) {  // a function that calls no other one
    context.Rip = *reinterpret_cast<const DWORD64*>(context.Rsp);
    context.Rsp += sizeof(DWORD64);
  } else {
    void* handlerData = nullptr;
    DWORD64 frame = 0;
    RtlVirtualUnwind(UNW_FLAG_NHANDLER, base, context.Rip, function, &context, &handlerData, &frame, nullptr);
  }
  return context.Rip != 0;
}

// The addresses alone: while the thread stands still, it may hold any lock.
int CollectFrames(HANDLE thread, std::array<DWORD64, kMostFrames>& frames) {
  if (SuspendThread(thread) == static_cast<DWORD>(-1)) return 0;
  alignas(16) CONTEXT context = {};
  context.ContextFlags = CONTEXT_FULL;
  int count = 0;
  if (GetThreadContext(thread, &context)) {
    do {
      frames[static_cast<size_t>(count++)] = context.Rip;
    } while (count < kMostFrames && StepOut(context));
  }
  ResumeThread(thread);
  return count;
}

}  // namespace

std::string DescribeWindows() {
  std::string lines;
  EnumWindows(DescribeWindow, reinterpret_cast<LPARAM>(&lines));
  return "windows:\n" + (lines.empty() ? "  none\n" : lines);
}

std::string DescribeFrames(HANDLE thread) {
  std::array<DWORD64, kMostFrames> frames = {};
  const int count = CollectFrames(thread, frames);
  const Symbols symbols;
  std::string lines = "frames:\n";
  for (int i = 0; i < count; ++i) {
    const DWORD64 address = frames[static_cast<size_t>(i)];
    lines += "  " + symbols.NameOf(address) + DescribeAddress(address) + "\n";
  }
  return lines;
}

std::string TakePicture(const std::string& name) {
  std::array<char, 1024> folder = {};
  if (GetEnvironmentVariableA("EXPLORER_FAILURES", folder.data(), static_cast<DWORD>(folder.size())) == 0)
    return {};
  std::string file = name;
  std::replace_if(
      file.begin(), file.end(), [](unsigned char letter) { return !std::isalnum(letter); }, '-');
  const std::string picture = std::string(folder.data()) + "/" + file + ".png";
  if (!RunBelow("import -window root '" + picture + "'")) return {};
  return "picture: " + picture + "\n";
}

}  // namespace test_support
