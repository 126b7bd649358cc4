// The view options, the display mode and the way home as the shell controls get them, with scripted controls in the
// place of the real ones.
#include <gmock/gmock.h>

#include <windows.h>

#include <string>
#include <vector>

#include "tests/support/dialog_visits.h"
#include "tests/support/explorer/blocked_class.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/scripted_control.h"

namespace {

using test_support::DialogVisits;
using test_support::PressButton;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr IID kFileDispatch = {0xE58CFE4E, 0x2258, 0x4666, {0xAE, 0x59, 0x8C, 0x48, 0x66, 0x0C, 0xF0, 0x98}};
constexpr IID kFileEvents = {0x36310332, 0x3B34, 0x4989, {0x93, 0x39, 0x32, 0x8D, 0x0C, 0x37, 0x99, 0x6A}};
constexpr IID kTreeDispatch = {0x5B17B3F2, 0x89DA, 0x4045, {0x8D, 0xE1, 0xC4, 0xBA, 0xEE, 0x6F, 0xCC, 0x46}};
constexpr IID kTreeEvents = {0x6755F807, 0x572E, 0x4D81, {0x97, 0x61, 0x35, 0x48, 0xE3, 0x41, 0xCF, 0x55}};
constexpr IID kComboDispatch = {0x20B7F96F, 0x5D6D, 0x436C, {0x8E, 0x1B, 0x2C, 0x69, 0x52, 0x8C, 0x19, 0xBE}};
constexpr IID kComboEvents = {0x10EAEFBF, 0xC1E8, 0x43E0, {0xA3, 0xFF, 0xF1, 0xEA, 0x28, 0x83, 0x92, 0x0D}};

test_support::ControlScript ScriptOf(const IID& dispatch, const IID& events) {
  test_support::ControlScript script;
  script.dispatchId = dispatch;
  script.eventId = events;
  return script;
}

class OptionsViewTest : public testing::Test {
 protected:
  OptionsViewTest()
      : file_(test_support::kFileViewClassId, ScriptOf(kFileDispatch, kFileEvents)),
        tree_(test_support::kFolderViewClassId, ScriptOf(kTreeDispatch, kTreeEvents)),
        combo_(test_support::kComboViewClassId, ScriptOf(kComboDispatch, kComboEvents)) {}
  void TearDown() override { fixture_.Close(); }

  void Begin() {
    fixture_.Start();
    ASSERT_TRUE(fixture_.LoadExplorer());
    ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
    ForgetCalls();
  }
  void ForgetCalls() {
    file_.log.clear();
    tree_.log.clear();
    combo_.log.clear();
  }
  void Toggle(const std::vector<int>& boxes) {
    DialogVisits visits;
    visits.Expect("Explore Options", IDOK, [&](HWND dialog) {
      for (const int box : boxes) PressButton(dialog, box);
      // Nothing is sent before the dialog is closed.
      EXPECT_THAT(file_.LogOf({"put"}), IsEmpty());
      EXPECT_THAT(tree_.LogOf({"put"}), IsEmpty());
    });
    SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 105, 0);
    EXPECT_TRUE(visits.Done());
  }

  // What was put to the file view's view style.
  std::vector<std::string> ViewsPut() const {
    std::vector<std::string> views;
    for (const std::string& call : file_.LogOf({"put"})) {
      if (call.rfind("put 9 ", 0) == 0) views.push_back(call);
    }
    return views;
  }

  struct Com {
    Com() { CoInitialize(nullptr); }
    ~Com() { CoUninitialize(); }
  } com_;
  test_support::ScriptedClass file_;
  test_support::ScriptedClass tree_;
  test_support::ScriptedClass combo_;
  test_support::ExplorerFixture fixture_;
};

// Deliberate: also a home directory that is on show already is read again.
TEST_F(OptionsViewTest, HomeGoesThereAndThenReadsTheListAgain) {
  Begin();
  SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 103, 0);
  EXPECT_THAT(file_.LogOf({"put", "method"}), ElementsAre(testing::StartsWith("put 21 "), "method 56()"));
}

TEST_F(OptionsViewTest, GoToTreeAndFileViewInTheirOrderWhenTheDialogCloses) {
  Begin();
  Toggle({});
  EXPECT_THAT(tree_.LogOf({"put"}), ElementsAre("put 4 bool 0", "put 5 bool -1", "put 22 bool -1"));
  EXPECT_THAT(file_.LogOf({"put"}),
              ElementsAre("put 15 bool -1", "put 17 bool -1", "put 27 bool -1", "put 4 bool -1"));
  EXPECT_THAT(file_.LogOf({"method"}), testing::Contains("method 56()")) << "and the list is read again";
}

// One option that goes to a control.
struct ViewCase {
  int box;
  bool inTree;
  const char* call;  // what the control gets once the option has been flipped
};

class OptionsViewCaseTest : public OptionsViewTest, public testing::WithParamInterface<ViewCase> {};

TEST_P(OptionsViewCaseTest, ReachesItsControl) {
  const ViewCase& row = GetParam();
  Begin();
  Toggle({row.box});
  EXPECT_THAT((row.inTree ? tree_ : file_).LogOf({"put"}), testing::Contains(row.call));
}

INSTANTIATE_TEST_SUITE_P(
    Options, OptionsViewCaseTest,
    testing::Values(ViewCase{913, true, "put 4 bool -1"}, ViewCase{912, true, "put 5 bool 0"},
                    ViewCase{910, true, "put 22 bool 0"}, ViewCase{908, false, "put 15 bool 0"},
                    ViewCase{909, false, "put 17 bool 0"}, ViewCase{905, false, "put 27 bool 0"},
                    ViewCase{906, false, "put 4 bool 0"}),
    [](const auto& info) { return "Box" + std::to_string(info.param.box); });

TEST_F(OptionsViewTest, HiddenItemsAndPathBoxOptionsAreNotSentToControlsThatDoNotKnowTheirNames) {
  Begin();
  Toggle({907, 911, 902, 903, 904});
  EXPECT_THAT(tree_.LogOf({"put"}), ElementsAre("put 4 bool 0", "put 5 bool -1", "put 22 bool -1"));
  EXPECT_THAT(file_.LogOf({"put"}),
              ElementsAre("put 15 bool -1", "put 17 bool -1", "put 27 bool -1", "put 4 bool -1"));
  EXPECT_THAT(combo_.LogOf({"put"}), IsEmpty());
  EXPECT_TRUE(fixture_.boxes().boxes().empty());
}

TEST_F(OptionsViewTest, HiddenItemsAndPathBoxOptionsAreSentUnderTheirNames) {
  file_.script.names = {{L"ShowHiddenItems", 801}};
  tree_.script.names = {{L"ShowHiddenItems", 802}};
  combo_.script.names = {{L"FullPath", 803}, {L"ShowVirtualFolders", 804}, {L"Completion", 805}};
  Begin();
  Toggle({907, 911, 902, 903, 904});
  EXPECT_THAT(tree_.LogOf({"put"}),
              ElementsAre("put 4 bool 0", "put 5 bool -1", "put 22 bool -1", "put 802 bool -1"));
  EXPECT_THAT(file_.LogOf({"put"}), ElementsAre("put 15 bool -1", "put 17 bool -1", "put 27 bool -1",
                                                "put 4 bool -1", "put 801 bool -1"));
  EXPECT_THAT(combo_.LogOf({"put"}), ElementsAre("put 803 bool 0", "put 804 bool 0", "put 805 bool 0"));
  ForgetCalls();
  Toggle({907, 911, 902, 903, 904});
  EXPECT_THAT(tree_.LogOf({"put"}), testing::Contains("put 802 bool 0"));
  EXPECT_THAT(file_.LogOf({"put"}), testing::Contains("put 801 bool 0"));
  EXPECT_THAT(combo_.LogOf({"put"}), ElementsAre("put 803 bool -1", "put 804 bool -1", "put 805 bool -1"));
}

// ---- The display mode, whose number in the control is neither the profile's nor the button's

constexpr char kDisplayModeKey[] = "curr_fileview_display_mode";

TEST_F(OptionsViewTest, WithoutAProfileTheFileViewGetsTheValueOfDetails) {
  fixture_.Start();
  ASSERT_TRUE(fixture_.LoadExplorer());
  EXPECT_THAT(ViewsPut(), ElementsAre("put 9 int 1"));
}

TEST_F(OptionsViewTest, EachDisplayModeReachesTheFileViewUnderItsOwnNumber) {
  Begin();
  for (const int command : {115, 116, 114, 113, 117}) {
    SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, static_cast<WPARAM>(command), 0);
  }
  EXPECT_THAT(ViewsPut(),
              ElementsAre("put 9 int 0", "put 9 int 2", "put 9 int 3", "put 9 int 1", "put 9 int 4"));
}

TEST_F(OptionsViewTest, TheCurrentDisplayModeIsNotSentAgain) {
  Begin();
  SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 113, 0);
  EXPECT_THAT(ViewsPut(), IsEmpty());
}

TEST_F(OptionsViewTest, ADisplayModeOutOfRangeLeavesTheFileViewAlone) {
  for (const char* const mode : {"7", "5", "-1"}) {
    file_.log.clear();
    WritePrivateProfileStringA("Explore", kDisplayModeKey, mode, fixture_.ProfilePath().c_str());
    fixture_.Start();
    ASSERT_TRUE(fixture_.LoadExplorer());
    EXPECT_THAT(ViewsPut(), IsEmpty()) << mode;
    fixture_.Close();
  }
}

TEST_F(OptionsViewTest, GoingHomeReadsTheViewAgain) {
  Begin();
  SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 103, 0);
  EXPECT_THAT(file_.LogOf({"method"}), testing::Contains("method 56()"));
}

TEST_F(OptionsViewTest, AreSentWhenTheTreeIsMade) {
  WritePrivateProfileStringA("Explore", "TreeView_ShowFiles", "1", fixture_.ProfilePath().c_str());
  WritePrivateProfileStringA("Explore", "FileView_ShowFolders", "0", fixture_.ProfilePath().c_str());
  fixture_.Start();
  ASSERT_TRUE(fixture_.LoadExplorer());
  ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
  EXPECT_THAT(tree_.LogOf({"put"}), testing::Contains("put 4 bool -1"));
  EXPECT_THAT(file_.LogOf({"put"}), testing::Contains("put 17 bool 0"));
}

TEST_F(OptionsViewTest, AFreshProfileConcealsHiddenItemsBeforeTheFirstFolderIsShown) {
  file_.script.names = {{L"ShowHiddenItems", 801}};
  tree_.script.names = {{L"ShowHiddenItems", 802}};
  std::vector<std::string> order;
  file_.script.members[801] = [&](WORD, DISPPARAMS* parameters, VARIANT*) {
    order.push_back(parameters->rgvarg[0].boolVal == VARIANT_FALSE ? "concealed" : "shown");
    return S_OK;
  };
  file_.script.members[21] = [&](WORD flags, DISPPARAMS*, VARIANT*) {
    if (flags & DISPATCH_PROPERTYPUT) order.push_back("folder");
    return S_OK;
  };
  fixture_.Start();
  ASSERT_TRUE(fixture_.LoadExplorer());
  ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
  EXPECT_THAT(order, ElementsAre("concealed", "folder"));
  EXPECT_THAT(tree_.LogOf({"put"}), testing::Contains("put 802 bool 0"));
}

}  // namespace
