#include "tests/support/explorer/leak_count.h"

#include <windows.h>

#include <objbase.h>
#include <objidl.h>

#include <cstdint>

#include "src/host/vc64_tx.h"
#include "tests/support/only_wine.h"

namespace test_support {
namespace {

// Balance of the task allocator. Lives as long as the process: the spy cannot be revoked while blocks are alive.
class AllocationSpy : public IMallocSpy {
 public:
  virtual ~AllocationSpy() = default;
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (iid != IID_IUnknown && iid != IID_IMallocSpy) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    *object = static_cast<IMallocSpy*>(this);
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
  void* STDMETHODCALLTYPE PostAlloc(void* block) override {
    if (block != nullptr) InterlockedIncrement(&balance_);
    return block;
  }
  void* STDMETHODCALLTYPE PreFree(void* block, BOOL spied) override {
    if (block != nullptr && spied) InterlockedDecrement(&balance_);
    return block;
  }
  void STDMETHODCALLTYPE PostFree(BOOL) override {}
  SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** newBlock, BOOL) override {
    *newBlock = block;
    return size;
  }
  void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override { return block; }
  void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) override { return block; }
  SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
  void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) override { return block; }
  int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int result) override { return result; }
  void STDMETHODCALLTYPE PreHeapMinimize() override {}
  void STDMETHODCALLTYPE PostHeapMinimize() override {}

  int balance() const { return static_cast<int>(balance_); }

 private:
  LONG balance_ = 0;
};

AllocationSpy& Spy() {
  static AllocationSpy spy;
  [[maybe_unused]] static const HRESULT registered = CoRegisterMallocSpy(&spy);
  return spy;
}

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
  ++*reinterpret_cast<int*>(count);
  return TRUE;
}

BOOL CALLBACK CountWithChildren(HWND window, LPARAM count) {
  CountWindow(window, count);
  EnumChildWindows(window, CountWindow, count);
  return TRUE;
}

int CountWindows() {
  int count = 0;
  EnumThreadWindows(GetCurrentThreadId(), CountWithChildren, reinterpret_cast<LPARAM>(&count));
  for (HWND window = nullptr; (window = FindWindowExA(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr;) {
    DWORD process = 0;
    if (GetWindowThreadProcessId(window, &process) == GetCurrentThreadId()) ++count;
  }
  return count;
}

// GetGuiResources is always 0 under Wine: the objects are counted in the handle table that the process block points to.
struct GdiHandleEntry {
  std::uint64_t object;
  std::uint32_t owner;
  std::uint16_t unique;
  std::uint8_t type;
  std::uint8_t flags;
  std::uint64_t userPointer;
};
static_assert(sizeof(GdiHandleEntry) == 24);

int CountGdiObjects() {
  if (!RunsUnderWine()) return static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
  constexpr std::size_t kTableOffset = 0xF8;
  constexpr std::uint32_t kEntries = 0x4000;
  std::uint64_t processBlock = 0;
  asm("mov %%gs:0x60, %0" : "=r"(processBlock));
  const auto* const table = *reinterpret_cast<GdiHandleEntry* const*>(processBlock + kTableOffset);
  int count = 0;
  for (std::uint32_t i = 0; table != nullptr && i < kEntries; ++i) {
    if (table[i].type == 0) continue;
    const auto handle = static_cast<std::uintptr_t>(table[i].unique) << 16 | i;
    if (GetObjectType(reinterpret_cast<HGDIOBJ>(handle)) != 0) ++count;
  }
  return count;
}

}  // namespace

LeakCount CountLeaks() {
  LeakCount count;
  count.taskAllocations = Spy().balance();
  count.windows = CountWindows();
  count.gdiObjects = CountGdiObjects();
  count.hostAllocations = Tx_Inquire_Allocated_Blocks();
  WNDCLASSEXA windowClass = {};
  windowClass.cbSize = sizeof(windowClass);
  const HMODULE module = GetModuleHandleA("ui_file_explorer.dll");
  count.registeredClass = module != nullptr && GetClassInfoExA(module, "HalvoFileViewClass", &windowClass) ? 1 : 0;
  return count;
}

std::ostream& operator<<(std::ostream& stream, const LeakCount& count) {
  return stream << count.windows << " windows, " << count.gdiObjects << " GDI objects, " << count.hostAllocations
                << " host blocks, " << count.taskAllocations << " task blocks, window class "
                << (count.registeredClass != 0 ? "registered" : "gone");
}

}  // namespace test_support
