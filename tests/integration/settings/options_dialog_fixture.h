// The real options dialog over settings of the test's own, with a host that records what it is asked for.
#pragma once

#include <gmock/gmock.h>

#include <windows.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "src/host/vc64_imp.h"
#include "src/host/vc64_tx.h"
#include "src/settings/options_dialog.h"
#include "tests/support/dialog_visits.h"
#include "tests/support/message_box_recorder.h"

namespace file_explorer {

inline constexpr char kOptionsCaption[] = "Explore Options";

// The host's interface 9.
class RecordingHost {
 public:
  RecordingHost() {
    current() = this;
    host::Bind<host::op::ShowHostDialog>(table_.data(), &ShowDialog);
    host::Bind<host::op::PickColor>(table_.data(), &Pick);
    host::Bind<host::op::RepaintColorButton>(table_.data(), &Repaint);
    host::Bind<host::op::DrawColorButton>(table_.data(), &Draw);
    services.interfaces[9].operations = table_.data();
  }
  ~RecordingHost() { current() = nullptr; }
  RecordingHost(const RecordingHost&) = delete;
  RecordingHost& operator=(const RecordingHost&) = delete;

  struct ColorCall {
    HWND dialog = nullptr;
    std::string title;  // of a pick
    int id = 0;         // of a repaint or a drawing
    CategoryColor color;
  };

  host::HostServices services = {};
  std::vector<ColorCall> picks;
  std::vector<ColorCall> repaints;
  std::vector<ColorCall> drawings;
  std::vector<std::pair<std::string, HWND>> dialogs;
  CategoryColor answer;  // what the user picks
  bool picked = true;    // false: the user cancels

 private:
  static RecordingHost*& current() {
    static RecordingHost* host = nullptr;
    return host;
  }
  static std::int32_t ShowDialog(host::InterfaceObject*, const char* keyword, HWND owner,
                                 const char* argument, std::intptr_t a, std::intptr_t b, std::intptr_t c) {
    EXPECT_EQ(argument, nullptr);
    EXPECT_TRUE(a == 0 && b == 0 && c == 0);
    current()->dialogs.emplace_back(keyword, owner);
    return 1;
  }
  static std::int32_t Pick(host::InterfaceObject*, HWND dialog, const char* title, float* red, float* green,
                           float* blue) {
    current()->picks.push_back({dialog, title, 0, {*red, *green, *blue}});
    if (!current()->picked) return 0;
    *red = current()->answer.red;
    *green = current()->answer.green;
    *blue = current()->answer.blue;
    return 1;
  }
  static void Repaint(host::InterfaceObject*, HWND dialog, std::int32_t id, float red, float green,
                      float blue) {
    current()->repaints.push_back({dialog, "", id, {red, green, blue}});
    RedrawWindow(GetDlgItem(dialog, id), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  }
  static void Draw(host::InterfaceObject*, const DRAWITEMSTRUCT* item, float red, float green, float blue) {
    current()->drawings.push_back({nullptr, "", static_cast<int>(item->CtlID), {red, green, blue}});
  }

  std::array<host::Operation, 16> table_ = {};
};

class OptionsDialogFixture : public testing::Test {
 protected:
  void SetUp() override {
    CoInitialize(nullptr);
    owner_ = CreateWindowExA(0, "Static", "owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 800, 700,
                             nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
    context_.settings = &settings_;
    context_.services = &host_.services;
    context_.helpLocation = "c:\\no help";
    context_.save = [this] { ++saves_; };
    for (size_t i = 0; i < settings_.colors.size(); ++i) {
      settings_.colors[i] = {static_cast<float>(i) / 10.0F, 0.5F, 0.25F};
    }
  }
  void TearDown() override {
    for (const std::string& guid : silenced_) Tx_Enable_FileFormatHandler(guid.c_str(), 1);
    for (const std::string& guid : handlers_) Tx_Remove_FileFormatHandler(guid.c_str());
    DestroyWindow(owner_);
    settings_ = ExplorerSettings();
    CoUninitialize();
  }

  // Opens the dialog; `visit` acts on it, then Ok is pressed.
  void Open(std::function<void(HWND dialog)> visit) {
    test_support::DialogVisits visits;
    visits.Expect(kOptionsCaption, IDOK, std::move(visit));
    EXPECT_TRUE(RunOptionsDialog(owner_, GetModuleHandleA(nullptr), context_));
    EXPECT_TRUE(visits.Done()) << "the dialog did not come up";
  }

  // Registers a viewer of a type.
  void RegisterFormat(std::int64_t typeBit) {
    char guid[kTxGuidSize];
    ASSERT_TRUE(Tx_Create_GUID(guid));
    handlers_.emplace_back(guid);
    ASSERT_TRUE(Tx_FileFormatHandler(guid, Tx_Inquire_Token("function"), Tx_Inquire_Token("viewer"), 1,
                                     Tx_Inquire_Token("type"), &typeBit, 1, Tx_Inquire_Token("filetypes"),
                                     ".xyz", 1, 0));
  }

  // Switches the host's own formats off, so that only those of RegisterFormat count.
  void ForgetFormats() {
    char** guids = nullptr;
    const int count =
        Tx_FileFormatHandler_Query_GUID_List(Tx_Inquire_Token("import_and_viewer"), 65535, &guids);
    for (int i = 0; i < count; ++i) {
      silenced_.emplace_back(guids[i]);
      Tx_Enable_FileFormatHandler(guids[i], 0);
      Tx_Free_Memory(guids[i]);
    }
    Tx_Free_Memory(guids);
  }

  static std::string TextOf(HWND dialog, int id) {
    std::array<char, 2048> text = {};
    GetDlgItemTextA(dialog, id, text.data(), static_cast<int>(text.size()));
    return text.data();
  }
  static bool IsChecked(HWND dialog, int id) { return IsDlgButtonChecked(dialog, id) == BST_CHECKED; }
  static int Selected(HWND dialog, int id) {
    return static_cast<int>(SendDlgItemMessageA(dialog, id, CB_GETCURSEL, 0, 0));
  }
  static std::vector<std::string> Entries(HWND dialog, int id) {
    std::vector<std::string> entries;
    const auto count = static_cast<int>(SendDlgItemMessageA(dialog, id, CB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
      std::array<char, 256> text = {};
      SendDlgItemMessageA(dialog, id, CB_GETLBTEXT, static_cast<WPARAM>(i),
                          reinterpret_cast<LPARAM>(text.data()));
      entries.emplace_back(text.data());
    }
    return entries;
  }

  RecordingHost host_;
  HWND owner_ = nullptr;
  ExplorerSettings settings_;
  OptionsDialogContext context_;
  int saves_ = 0;
  std::vector<std::string> handlers_;
  std::vector<std::string> silenced_;
};

}  // namespace file_explorer
