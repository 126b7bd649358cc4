// What the tests of hosting share: an apartment, a parent window, a scripted control under a class id.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <ole2.h>

#include <string>
#include <vector>

#include "src/framework/com/com_object.h"
#include "src/shellhost/control_site.h"
#include "src/shellhost/shell_controls.h"
#include "tests/support/scripted_control.h"
#include "tests/support/wait_until.h"

namespace file_explorer {

using test_support::ControlScript;
using test_support::Fault;
using test_support::ScriptedClass;
using test_support::ScriptedControl;
using test_support::ScriptedItem;

inline constexpr CLSID kTestClass = {
    0x5D1B7A10, 0x2C44, 0x4E0E, {0x9A, 0x61, 0x0B, 0x77, 0x1F, 0x28, 0xD3, 0x01}};
inline constexpr char kTestClassText[] = "{5D1B7A10-2C44-4E0E-9A61-0B771F28D301}";
inline constexpr RECT kTestRect = {10, 20, 110, 70};

// A script for a control that stands in for one of the explorer's.
inline ControlScript ScriptOf(const ShellControlClass& controlClass) {
  ControlScript script;
  script.dispatchId = *controlClass.dispatchId;
  script.eventId = *controlClass.eventId;
  return script;
}

// The thread's apartment, kept until the process ends: closing the last one takes Wine two seconds.
class Apartment {
 public:
  Apartment() {
    static const HRESULT kInitialized = OleInitialize(nullptr);
    EXPECT_TRUE(SUCCEEDED(kInitialized));
  }
};

class ParentWindow {
 public:
  ParentWindow()
      : window_(CreateWindowExA(0, "STATIC", "parent", WS_POPUP | WS_CLIPCHILDREN, 50, 50, 400, 300, nullptr,
                                nullptr, nullptr, nullptr)) {
    ShowWindow(window_, SW_SHOWNOACTIVATE);  // activating takes Wine two seconds
  }
  ~ParentWindow() {
    if (IsWindow(window_)) DestroyWindow(window_);
  }
  ParentWindow(const ParentWindow&) = delete;
  ParentWindow& operator=(const ParentWindow&) = delete;
  HWND get() const { return window_; }

 private:
  HWND window_;
};

// A site with (after Create) a scripted control in it. Nothing of either may be left when the test ends.
class HostingTest : public testing::Test {
 protected:
  using Site = ComPtr<CComObject<CControlSite>>;

  void SetUp() override {
    liveAtStart_ = LiveComObjects();
    sitesAtStart_ = ModuleSites().sites().size();
  }

  void TearDown() override {
    EXPECT_EQ(LiveComObjects(), liveAtStart_);
    EXPECT_EQ(ModuleSites().sites().size(), sitesAtStart_);
  }

  static Site NewSite() { return CComObject<CControlSite>::New(); }

  static Site CreatedSite(const PropertyList& properties = {}) {
    Site site = NewSite();
    EXPECT_EQ(site->Create(kTestClass, properties, ""), S_OK);
    return site;
  }

  Apartment apartment_;
  ParentWindow parent_;

 private:
  LONG liveAtStart_ = 0;
  std::size_t sitesAtStart_ = 0;
};

// Windows of this thread, children and hidden ones too.
inline int ThreadWindows() {
  int count = 0;
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM counter) -> BOOL {
        const auto countOne = [](HWND, LPARAM total) -> BOOL {
          ++*reinterpret_cast<int*>(total);
          return TRUE;
        };
        countOne(window, counter);
        EnumChildWindows(window, countOne, counter);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&count));
  return count;
}

inline VARIANT NumberVariant(LONG value) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = VT_I4;
  variant.lVal = value;
  return variant;
}

inline PropertyList ListWith(const wchar_t* name, LONG value) {
  PropertyList list;
  list.Append(name, NumberVariant(value));
  return list;
}

}  // namespace file_explorer
