// A folder with an archive in it, and the file view on it.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/integration/controls/control_container.h"
#include "tests/support/temp_directory.h"
#include "tests/support/wait_until.h"
#include "tests/support/zip_builder.h"

namespace controls_test {

using test_support::PumpMessages;
using test_support::TempDirectory;
using test_support::WaitUntil;
using test_support::ZipBuilder;
using test_support::ZipEntry;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr long kFolderBit = 0x20000000;
constexpr long kFileSystemBit = 0x40000000;
constexpr long kChangeBits = 0x1 | 0x2 | 0x10 | 0x20;  // copy, move, rename, delete

// models\teapot.obj, models\parts\lid.obj, readme.txt
inline ZipBuilder SampleArchive() {
  return ZipBuilder()
      .Add("models/teapot.obj", std::string(3000, 'v'))
      .Add("models/parts/lid.obj", "lid")
      .Add("readme.txt", "hello");
}

inline std::string Ansi(const std::wstring& text) {
  std::string result;
  for (const wchar_t c : text) result += c < 0x80 ? static_cast<char>(c) : '?';
  return result;
}

class ArchiveFixture : public testing::Test {
 protected:
  void SetUp() override {
    folder_.AddFile(L"box.zip", SampleArchive().Build());
    folder_.AddFile(L"plain.obj");
    folder_.AddFolder(L"sub");
  }
  std::wstring Archive(const std::wstring& inner = {}) {
    return folder_.Join(L"box.zip") + (inner.empty() ? std::wstring() : L"\\" + inner);
  }
  std::wstring ViewPath() { return GetText(GetObject(view_.dispatch(), 69).get(), 1); }
  long FolderAttributes() { return GetLong(GetObject(view_.dispatch(), 69).get(), 18, -1); }
  ComRef<IDispatch> Item(const std::wstring& name) {
    const int row = view_.RowOf(name);
    return row < 0 ? ComRef<IDispatch>() : GetObject(view_.dispatch(), 47, row + 1);
  }
  long AttributesOf(const std::wstring& name) { return GetLong(Item(name).get(), 18, -1); }
  void Enter(const std::wstring& name) {
    const int row = view_.RowOf(name);
    ASSERT_GE(row, 0) << Ansi(name);
    SelectOnly(row);
    SendMessageW(view_.list(), WM_KEYDOWN, VK_RETURN, 0);
  }
  void SelectOnly(int row) {
    LVITEMW item = {};
    item.stateMask = LVIS_SELECTED;
    SendMessageW(view_.list(), LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = item.stateMask;
    SendMessageW(view_.list(), LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    PumpMessages();
  }
  // The line under the list, painted anew.
  std::string Status() {
    PumpMessages();
    UpdateWindow(GetParent(view_.list()));
    wchar_t text[512] = L"";
    GetWindowTextW(GetParent(view_.list()), text, 512);
    return Ansi(text);
  }
  bool WaitForNames(const std::vector<std::wstring>& names) {
    return WaitUntil([&] { return view_.Names() == names; });
  }

  TempDirectory folder_;
  Hosted view_{kFileView};
};

}  // namespace controls_test
