// Creating, linking and removing the shell controls, with scripted controls under the real class ids.
#include "src/shellhost/shell_controls.h"

#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>
#include <olectl.h>

#include <algorithm>

#include "src/framework/com/com_dispatch.h"
#include "src/shellhost/control_container.h"
#include "src/shellhost/control_contract.h"
#include "src/shellhost/event_sinks.h"
#include "src/shellhost/file_view.h"
#include "tests/integration/shellhost/hosting_fixture.h"
#include "tests/support/message_box_recorder.h"

namespace file_explorer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

int eventsHeard = 0;
std::int64_t CountEvents(std::int16_t, ShellControlHost*, IDispatch*, std::int64_t, std::int64_t,
                         std::int64_t, std::int64_t, const char*) {
  ++eventsHeard;
  return 0;
}

ExplorerWindow* const kOwner = reinterpret_cast<ExplorerWindow*>(0x1234);

ComPtr<IFont> FontOf(const wchar_t* name, LONGLONG size) {
  std::wstring faceName = name;
  FONTDESC description = {};
  description.cbSizeofstruct = 40;
  description.lpstrName = faceName.data();
  description.cySize.int64 = size;
  ComPtr<IFont> font;
  OleCreateFontIndirect(&description, IID_IFont, reinterpret_cast<void**>(font.ReleaseAndGetAddressOf()));
  return font;
}

class ShellControls : public HostingTest {
 protected:
  void SetUp() override {
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    HostingTest::SetUp();
    eventsHeard = 0;
    fileView_ = std::make_unique<ScriptedClass>(CLSID_FileViewControl, ScriptOf(kFileViewClass));
    folderView_ = std::make_unique<ScriptedClass>(CLSID_FolderViewControl, ScriptOf(kFolderViewClass));
    comboView_ = std::make_unique<ScriptedClass>(CLSID_ComboViewControl, ScriptOf(kComboViewClass));
  }
  void TearDown() override {
    ReleaseShellControlState();
    EXPECT_EQ(fileView_->alive + folderView_->alive + comboView_->alive, 0);
    EXPECT_EQ(GetWindow(parent_.get(), GW_CHILD), nullptr);
    fileView_.reset();
    folderView_.reset();
    comboView_.reset();
    HostingTest::TearDown();
  }
  ShellControlPtr NewFileView() {
    return CreateFileViewHost(parent_.get(), {}, kOwner, CountEvents);
  }

  std::unique_ptr<ScriptedClass> fileView_, folderView_, comboView_;
};

TEST_F(ShellControls, TheFileViewIsConnectedAttachedAndThenGetsItsValuesInOrder) {
  const auto host = NewFileView();
  ASSERT_TRUE(host);
  EXPECT_THAT(
      fileView_->log,
      ElementsAre("CreateInstance", "FindConnectionPoint", "Advise", "GetMiscStatus(1)",
                  "SetClientSite(site)", "InitNew", testing::StartsWith("DoVerb(-5 in 0,0,"),
                  "SetAdvise(1,0)", "put 37 object", "put 4 bool -1", "put 6 bool -1", "put 8 bool -1",
                  "put 7 bool 0", "put 11 bool -1", "put 13 bool -1", "put 14 bool -1", "put 19 bool -1",
                  "put 22 bool -1", "put 23 bool -1", "put 27 bool -1", "put 35 int 2", "get 26"));
  EXPECT_EQ(host->parentWindow, parent_.get());
  EXPECT_EQ(host->reserved, nullptr);
  EXPECT_EQ(host->owner, kOwner);
  EXPECT_EQ(host->callback, &CountEvents);
  EXPECT_TRUE(host->sink);
  EXPECT_TRUE(host->control);
}

TEST_F(ShellControls, TheFolderViewGetsItsValuesInOrderAndNoCallback) {
  const auto host = CreateFolderViewHost(parent_.get());
  ASSERT_TRUE(host);
  EXPECT_THAT(folderView_->LogOf({"put", "get", "method"}),
              ElementsAre("put 31 object", "put 13 bool -1", "put 14 bool -1", "put 18 bool -1",
                          "put 19 bool -1", "put 21 bool -1", "put 22 bool 0"));
  EXPECT_EQ(host->callback, nullptr);
  EXPECT_EQ(host->owner, nullptr);
}

TEST_F(ShellControls, TheComboViewGetsItsValuesInOrderAndNoCallback) {
  const auto host = CreateComboViewHost(parent_.get());
  ASSERT_TRUE(host);
  EXPECT_THAT(
      comboView_->LogOf({"put", "get", "method"}),
      ElementsAre("put -512 object", "put 4 bool -1", "put 7 bool -1", "put 1 short 20", "put 12 bool -1",
                  "put 14 bool -1", "put 2 bool -1", "put 15 bool -1", "put 16 int 3"));
  EXPECT_EQ(host->callback, nullptr);
}

TEST_F(ShellControls, AControlFillsItsParentWindow) {
  RECT client = {};
  GetClientRect(parent_.get(), &client);
  const auto host = NewFileView();
  RECT window = {};
  GetClientRect(fileView_->control->window(), &window);
  EXPECT_TRUE(EqualRect(&window, &client));
  EXPECT_EQ(GetParent(fileView_->control->window()), parent_.get());
}

TEST_F(ShellControls, PropertiesReachTheFileViewInABag) {
  fileView_->script.bagReads = {L"viewstyle"};
  const auto host = CreateFileViewHost(parent_.get(), ListWith(L"ViewStyle", 3), kOwner, CountEvents);
  EXPECT_EQ(fileView_->bagValues[L"viewstyle"].second, L"3");
}

TEST_F(ShellControls, TheInnerListGetsItsStyles) {
  const HWND list = CreateWindowExA(0, WC_LISTVIEWA, "", WS_POPUP | LVS_OWNERDATA, 0, 0, 100, 100, nullptr,
                                    nullptr, nullptr, nullptr);
  ASSERT_TRUE(list);
  fileView_->script.members[26] = [list](WORD, DISPPARAMS*, VARIANT* result) {
    result->vt = VT_I4;
    result->lVal = static_cast<LONG>(reinterpret_cast<LONG_PTR>(list));
    return S_OK;
  };
  const auto host = NewFileView();
  EXPECT_EQ(GetWindowLongPtrA(list, GWL_STYLE) & 0x40000107, 0x40000107);
  EXPECT_TRUE(GetWindowLongPtrA(list, GWL_STYLE) & LVS_OWNERDATA);
  EXPECT_EQ(SendMessageA(list, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & 0x21, 0x21);
  SetWindowLongPtrA(list, GWL_STYLE, WS_POPUP);
  DestroyWindow(list);
}

TEST_F(ShellControls, TheFontIsSharedAndNinePointsOfMsSansSerif) {
  std::vector<ComPtr<IUnknown>> fonts;
  const auto keep = [&](WORD, DISPPARAMS* parameters, VARIANT*) {
    fonts.push_back(QueryFor<IUnknown>(parameters->rgvarg[0].pdispVal));
    return S_OK;
  };
  fileView_->script.members[37] = keep;
  folderView_->script.members[31] = keep;
  comboView_->script.members[-512] = keep;
  const auto file = NewFileView();
  const auto folder = CreateFolderViewHost(parent_.get());
  const auto combo = CreateComboViewHost(parent_.get());
  ASSERT_EQ(fonts.size(), 3u);
  EXPECT_EQ(fonts[0].Get(), fonts[1].Get());
  EXPECT_EQ(fonts[0].Get(), fonts[2].Get());
  const auto font = QueryFor<IFont>(fonts[0].Get());
  ASSERT_TRUE(font);
  EXPECT_EQ(font->IsEqual(FontOf(L"MS Sans Serif", 90000).Get()), S_OK);
  EXPECT_EQ(font->IsEqual(FontOf(L"MS Sans Serif", 80000).Get()), S_FALSE);
  EXPECT_EQ(font->IsEqual(FontOf(L"Courier New", 90000).Get()), S_FALSE);
}

TEST_F(ShellControls, EventsReachTheCallbackOfTheHost) {
  const auto host = NewFileView();
  EXPECT_EQ(fileView_->control->Fire(17, {}), S_OK);
  EXPECT_EQ(eventsHeard, 1);
  const auto folder = CreateFolderViewHost(parent_.get());
  auto item = CComObject<ScriptedItem>::New();
  VARIANT argument;
  VariantInit(&argument);
  argument.vt = VT_DISPATCH;
  argument.pdispVal = item.Get();
  EXPECT_EQ(folderView_->control->Fire(13, {argument}), S_OK);
  EXPECT_EQ(eventsHeard, 1) << "decoded and dropped before the callback is set";
  folder->callback = CountEvents;
  EXPECT_EQ(folderView_->control->Fire(13, {argument}), S_OK);
  EXPECT_EQ(eventsHeard, 2);
}

TEST_F(ShellControls, DestroyingAHostDisconnectsDetachesAndReleasesInThisOrder) {
  auto host = NewFileView();
  const ComPtr<IDispatch> sink = host->sink;
  fileView_->log.clear();
  host.reset();
  EXPECT_THAT(fileView_->log, ElementsAre("Unadvise(77)", "InPlaceDeactivate", "Close(1)",
                                          "SetClientSite(null)", "destroyed"));
  DISPPARAMS none = {};
  EXPECT_EQ(sink->Invoke(17, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(eventsHeard, 0) << "a sink that is kept finds no host";
}

TEST_F(ShellControls, DestroyingAHostGoesThroughWhateverTheControlDoes) {
  for (const Fault fault : {Fault::kFails, Fault::kThrows, Fault::kRaises}) {
    for (const char* call : {"Unadvise", "InPlaceDeactivate", "Close", "SetClientSite"}) {
      auto host = NewFileView();
      fileView_->script.faults[call] = fault;
      host.reset();
      fileView_->script.faults.clear();
      EXPECT_EQ(fileView_->alive, 0) << call;
    }
  }
}

TEST_F(ShellControls, AControlWithoutItsDispatchInterfaceIsGivenUp) {
  fileView_->script.dispatchId = IID_IDispatch;
  EXPECT_FALSE(NewFileView());
  EXPECT_THAT(fileView_->log, ElementsAre("CreateInstance", "destroyed"));
}

TEST_F(ShellControls, AControlWithoutItsConnectionPointIsGivenUp) {
  folderView_->script.eventId = IID_IDispatch;
  EXPECT_FALSE(CreateFolderViewHost(parent_.get()));
  EXPECT_THAT(folderView_->log, ElementsAre("CreateInstance", "FindConnectionPoint", "destroyed"));
  comboView_->script.missing = {IID_IConnectionPointContainer};
  EXPECT_FALSE(CreateComboViewHost(parent_.get()));
  fileView_->script.faults["Advise"] = Fault::kFails;
  EXPECT_FALSE(NewFileView());
}

TEST_F(ShellControls, AHostThatLostItsControlHasNoSiteAndNoSink) {
  ShellControlHost host;
  host.callback = CountEvents;
  fileView_->script.eventId = IID_IDispatch;
  CreateShellControl(host, kFileViewClass, parent_.get(), {});
  EXPECT_FALSE(host.site);
  EXPECT_FALSE(host.control);
  EXPECT_FALSE(host.sink);
  EXPECT_EQ(host.callback, nullptr) << "creation clears the fields first";
  RECT rect = {0, 0, 10, 10};
  ResizeShellControl(&host, rect);
  ResizeShellControl(nullptr, rect);
}

TEST_F(ShellControls, AHostThatIsMadeAgainGivesUpItsFirstControl) {
  ShellControlHost host;
  CreateShellControl(host, kFileViewClass, parent_.get(), {});
  ASSERT_TRUE(host.site);
  CreateShellControl(host, kComboViewClass, parent_.get(), {});
  EXPECT_EQ(fileView_->alive, 0);
  EXPECT_EQ(comboView_->alive, 1);
  EXPECT_EQ(host.controlClass, &kComboViewClass);
}

TEST_F(ShellControls, AMissingControlIsReportedAndGivesNoHost) {
  test_support::MessageBoxRecorder recorder;
  fileView_->script.faults["CreateInstance"] = Fault::kFails;
  EXPECT_FALSE(NewFileView());
  ASSERT_EQ(recorder.boxes().size(), 1u);
  EXPECT_EQ(recorder.boxes()[0].caption, "ActiveX Error");
  EXPECT_EQ(
      recorder.boxes()[0].text,
      "Could not create the Shell FileView Control control (filename = 'ssware_shellfileview64.ocx', ClassID "
      "= "
      "'{0A7A7240-D038-4B9F-B3B1-7FEFFE5F9ED6}'). Check that it has been installed on your computer and that "
      "this page correctly references it.");
}

TEST_F(ShellControls, TheOtherTwoAreReportedByTheirNames) {
  test_support::MessageBoxRecorder recorder;
  folderView_->script.faults["CreateInstance"] = Fault::kFails;
  comboView_->script.faults["CreateInstance"] = Fault::kFails;
  EXPECT_FALSE(CreateFolderViewHost(parent_.get()));
  EXPECT_FALSE(CreateComboViewHost(parent_.get()));
  ASSERT_EQ(recorder.boxes().size(), 2u);
  EXPECT_THAT(recorder.boxes()[0].text,
              testing::StartsWith("Could not create the Shell FolderView Control control (filename = "
                                  "'ssware_shellfolderview64.ocx', ClassID = "
                                  "'{9EE4C13A-551F-440E-B1ED-F4FA3C935F4F}')"));
  EXPECT_THAT(
      recorder.boxes()[1].text,
      testing::StartsWith("Could not create the Shell ComboView Control control (filename = "
                          "'ssware_shellcombo64.ocx', ClassID = '{1451FB53-9444-4FB0-B0AC-44F56EDBC332}')"));
}

TEST_F(ShellControls, WithoutAFolderViewTheOthersStillWork) {
  folderView_->script.eventId = IID_IDispatch;
  const auto folder = CreateFolderViewHost(parent_.get());
  EXPECT_FALSE(folder);
  const auto combo = CreateComboViewHost(parent_.get());
  const auto file = NewFileView();
  LinkShellControls(combo.get(), folder.get(), file.get());
  ApplyControlOptions(folder.get(), file.get(), {});
  EXPECT_EQ(fileView_->control->Fire(18, {}), S_OK);
  EXPECT_EQ(eventsHeard, 1);
  EXPECT_TRUE(comboView_->LogOf({"putref"}).empty());
}

TEST_F(ShellControls, APropertyThatIsRefusedRaisesAndLeavesNothingBehind) {
  fileView_->script.members[14] = [](WORD, DISPPARAMS*, VARIANT*) { return E_ACCESSDENIED; };
  try {
    NewFileView();
    FAIL() << "nothing was raised";
  } catch (const _com_error& error) {
    EXPECT_EQ(error.Error(), E_ACCESSDENIED);
  }
  EXPECT_EQ(fileView_->log.back(), "destroyed");
}

TEST_F(ShellControls, LinkingTiesComboToFolderAndFolderToFile) {
  const auto combo = CreateComboViewHost(parent_.get());
  const auto folder = CreateFolderViewHost(parent_.get());
  const auto file = NewFileView();
  std::vector<std::string> order;
  ComPtr<IUnknown> comboTarget;
  ComPtr<IUnknown> folderTarget;
  comboView_->script.members[8] = [&](WORD flags, DISPPARAMS* parameters, VARIANT*) {
    order.push_back("combo");
    EXPECT_EQ(flags, DISPATCH_PROPERTYPUT);
    comboTarget = QueryFor<IUnknown>(parameters->rgvarg[0].pdispVal);
    return S_OK;
  };
  folderView_->script.members[24] = [&](WORD, DISPPARAMS* parameters, VARIANT*) {
    order.push_back("folder");
    folderTarget = QueryFor<IUnknown>(parameters->rgvarg[0].pdispVal);
    return S_OK;
  };
  const ULONG folderReferences = folderView_->control->references();
  LinkShellControls(combo.get(), folder.get(), file.get());
  EXPECT_THAT(order, ElementsAre("combo", "folder"));
  EXPECT_EQ(comboTarget.Get(), ControlSiteOf(folder->site.Get())->ControlUnknown());
  EXPECT_EQ(folderTarget.Get(), ControlSiteOf(file->site.Get())->ControlUnknown());
  comboTarget.Reset();
  EXPECT_EQ(folderView_->control->references(), folderReferences) << "no extra reference is kept";
  LinkShellControls(nullptr, folder.get(), file.get());
  LinkShellControls(combo.get(), nullptr, file.get());
  EXPECT_EQ(order.size(), 3u);
}

TEST_F(ShellControls, OptionsGoToTheControlsThatExistInOrder) {
  const auto folder = CreateFolderViewHost(parent_.get());
  const auto file = NewFileView();
  fileView_->log.clear();
  folderView_->log.clear();
  ControlOptions options;
  options.treeShowFiles = 1;
  options.treeAllowDragAndDrop = -7;
  options.fileViewShowFolders = 2;
  options.fileViewShowGridLines = 1;
  ApplyControlOptions(folder.get(), file.get(), options);
  EXPECT_THAT(folderView_->log, ElementsAre("put 4 bool -1", "put 5 bool 0", "put 22 bool -1"));
  EXPECT_THAT(fileView_->log,
              ElementsAre("put 15 bool 0", "put 17 bool -1", "put 27 bool 0", "put 4 bool -1"));
  ApplyControlOptions(nullptr, file.get(), options);
  EXPECT_EQ(folderView_->log.size(), 3u);
  EXPECT_EQ(fileView_->log.size(), 8u);
  ApplyControlOptions(folder.get(), nullptr, options);
  EXPECT_EQ(folderView_->log.size(), 6u);
  EXPECT_EQ(fileView_->log.size(), 8u);
  ApplyControlOptions(nullptr, nullptr, options);
}

TEST_F(ShellControls, ResizingFollowsThePane) {
  const auto host = NewFileView();
  fileView_->log.clear();
  ResizeShellControl(host.get(), {0, 30, 200, 150});
  EXPECT_THAT(fileView_->log, ElementsAre("SetObjectRects(0,30,200,150 clip 0,30,200,150)"));
}

TEST_F(ShellControls, AControlsWindowIsHiddenAndShown) {
  const auto host = NewFileView();
  const HWND window = fileView_->control->window();
  ShowShellControl(host.get(), false);
  EXPECT_FALSE(IsWindowVisible(window));
  ShowShellControl(host.get(), true);
  EXPECT_TRUE(IsWindowVisible(window));
  ShowShellControl(nullptr, true);
  ShellControlHost empty;
  ShowShellControl(&empty, true);
}

TEST_F(ShellControls, TwoHundredTimesLeaveNothingBehind) {
  const LONG before = LiveComObjects();
  const int windows = ThreadWindows();
  for (int i = 0; i < 200; ++i) {
    const auto combo = CreateComboViewHost(parent_.get());
    const auto file = NewFileView();
    const auto folder = CreateFolderViewHost(parent_.get());
    LinkShellControls(combo.get(), folder.get(), file.get());
    ResizeShellControl(file.get(), {0, 0, i, i});
    ASSERT_TRUE(file && folder && combo);
  }
  ReleaseShellControlState();
  EXPECT_EQ(fileView_->created, 200);
  EXPECT_EQ(fileView_->alive + folderView_->alive + comboView_->alive, 0);
  EXPECT_EQ(LiveComObjects(), before);
  EXPECT_TRUE(ModuleSites().sites().empty());
  EXPECT_EQ(ThreadWindows(), windows);
  EXPECT_EQ(GetWindow(parent_.get(), GW_CHILD), nullptr);
}

ControlOptions EverythingOn() {
  return {1, 1, 1, 1, 1, 1, 1};
}

HRESULT Refuse(WORD, DISPPARAMS*, VARIANT*) {
  return E_FAIL;
}

TEST_F(ShellControls, AnOptionThatIsRefusedCostsNoOtherOne) {
  const auto tree = CreateFolderViewHost(parent_.get());
  const auto list = NewFileView();
  for (const DISPID refused : {4, 5, 22}) {
    folderView_->script.members = {{refused, Refuse}};
    folderView_->log.clear();
    fileView_->log.clear();
    EXPECT_THROW(ApplyControlOptions(tree.get(), list.get(), EverythingOn()), _com_error) << refused;
    EXPECT_THAT(folderView_->log, ElementsAre("put 4 bool -1", "put 5 bool -1", "put 22 bool -1"));
    EXPECT_THAT(fileView_->log, ElementsAre("put 15 bool -1", "put 17 bool -1", "put 27 bool -1", "put 4 bool -1"));
  }
  folderView_->script.members.clear();
  fileView_->script.members = {{15, Refuse}, {27, Refuse}};
  fileView_->log.clear();
  EXPECT_THROW(ApplyControlOptions(tree.get(), list.get(), EverythingOn()), _com_error);
  EXPECT_THAT(fileView_->log, ElementsAre("put 15 bool -1", "put 17 bool -1", "put 27 bool -1", "put 4 bool -1"));
}

TEST_F(ShellControls, AControlThatEndsItsHostWhileItIsSetUpIsAskedNoMore) {
  auto tree = CreateFolderViewHost(parent_.get());
  auto list = NewFileView();
  folderView_->script.members[4] = [&](WORD, DISPPARAMS*, VARIANT*) {
    tree.reset();
    list.reset();
    return S_OK;
  };
  folderView_->log.clear();
  fileView_->log.clear();
  ApplyControlOptions(tree.get(), list.get(), EverythingOn());
  EXPECT_THAT(folderView_->LogOf({"put"}), ElementsAre("put 4 bool -1"));
  EXPECT_THAT(fileView_->LogOf({"put"}), testing::IsEmpty());
}

TEST_F(ShellControls, AControlThatEndsItsHostWhileItIsMovedIsNoHarm) {
  auto list = NewFileView();
  fileView_->script.members[26] = [&](WORD, DISPPARAMS*, VARIANT* result) {
    list.reset();
    result->vt = VT_I4;
    result->lVal = 0;
    return S_OK;
  };
  EXPECT_EQ(GetListWindow(list.get()), nullptr);
  EXPECT_FALSE(list);
  ResizeShellControl(list.get(), kTestRect);
}

}  // namespace
}  // namespace file_explorer
