// Nothing stays behind: windows, classes, COM references, threads.
#include <windows.h>

#include <ole2.h>

#include <gtest/gtest.h>

#include "tests/integration/controls/control_container.h"
#include "tests/support/temp_directory.h"
#include "tests/support/wait_until.h"

namespace controls_test {
namespace {

using test_support::PumpMessages;
using test_support::TempDirectory;
using test_support::WaitUntil;

int WindowsOfThread() {
  int count = 0;
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM counter) -> BOOL {
        ++*reinterpret_cast<int*>(counter);
        EnumChildWindows(
            window,
            [](HWND, LPARAM inner) -> BOOL {
              ++*reinterpret_cast<int*>(inner);
              return TRUE;
            },
            counter);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&count));
  return count;
}

bool ClassExists(const ControlKind& kind, const wchar_t* name) {
  WNDCLASSEXW info = {};
  info.cbSize = sizeof(info);
  return GetClassInfoExW(ModuleOf(kind), name, &info) != FALSE;
}

class Lifetime : public testing::Test {
 protected:
  TempDirectory folder_;
};

TEST_F(Lifetime, ManyControlsLeaveNothingBehind) {
  for (int i = 0; i < 300; ++i) folder_.AddFile(L"file" + std::to_wstring(i) + L".obj");
  { Hosted warmUp(kFileView); }
  PumpMessages();
  const int windows = WindowsOfThread();
  for (int round = 0; round < 20; ++round) {
    Hosted view(kFileView);
    Hosted tree(kFolderView);
    Hosted combo(kComboView);
    PutObject(combo.dispatch(), 8, tree.unknown());
    PutObject(tree.dispatch(), 24, view.unknown());
    view.Go(folder_.path());
    // Every other round ends in the middle of reading.
    if (round % 2 == 0) {
      ASSERT_TRUE(WaitUntil([&] { return view.log().Count(17) > 0; }));
    }
  }
  PumpMessages();
  EXPECT_EQ(WindowsOfThread(), windows);
  EXPECT_TRUE(
      WaitUntil([] { return CanUnload(kFileView) && CanUnload(kFolderView) && CanUnload(kComboView); }));
  EXPECT_FALSE(ClassExists(kFileView, L"SswareShellFileView"));
  EXPECT_FALSE(ClassExists(kFolderView, L"SswareShellFolderView"));
  EXPECT_FALSE(ClassExists(kComboView, L"SswareShellCombo"));
}

TEST_F(Lifetime, ItemsThatOutliveTheirViewStillAnswer) {
  folder_.AddFile(L"a.obj");
  ComRef<IDispatch> item;
  {
    Hosted view(kFileView);
    ASSERT_TRUE(view.GoAndWait(folder_.path()));
    item = GetObject(view.dispatch(), 47, 1);
  }
  EXPECT_EQ(GetText(item.get(), 1), folder_.Join(L"a.obj"));
  EXPECT_FALSE(GetBool(item.get(), 12));
  EXPECT_TRUE(FAILED(CallMethod(item.get(), 19)));
  EXPECT_FALSE(CanUnload(kFileView));
  item.reset();
  EXPECT_TRUE(WaitUntil([] { return CanUnload(kFileView); }));
}

TEST_F(Lifetime, AParentThatIsDestroyedFirstTakesTheWindowAlong) {
  folder_.AddFile(L"a.obj");
  {
    Hosted view(kFileView);
    ASSERT_TRUE(view.GoAndWait(folder_.path()));
    DestroyWindow(view.frame());
    EXPECT_EQ(GetLong(view.dispatch(), 26), 0);
    EXPECT_EQ(CallMethod(view.dispatch(), 56), S_OK);
    EXPECT_EQ(PutLong(view.dispatch(), 9, 0), S_OK);
    EXPECT_EQ(GetLong(view.dispatch(), 53), 0);
  }
  EXPECT_TRUE(WaitUntil([] { return CanUnload(kFileView); }));
}

TEST_F(Lifetime, AControlThatWasNeverShownCanBeReleased) {
  OleInitialize(nullptr);
  {
    ComRef<IUnknown> object;
    ASSERT_EQ(CreateFromModule(kFileView, object.put()), S_OK);
    const ComRef<IDispatch> dispatch = object.As<IDispatch>(kFileView.dispatchId);
    EXPECT_EQ(PutLong(dispatch.get(), 9, 4), S_OK);
    EXPECT_EQ(GetLong(dispatch.get(), 9), 4);
    EXPECT_EQ(GetLong(dispatch.get(), 52), 0);
    EXPECT_FALSE(GetObject(dispatch.get(), 48));
    EXPECT_FALSE(GetObject(dispatch.get(), 69));
  }
  EXPECT_TRUE(CanUnload(kFileView));
  OleUninitialize();
}

TEST_F(Lifetime, AFolderThatWasPutBeforeActivationIsShownAfterIt) {
  folder_.AddFile(L"a.obj");
  OleInitialize(nullptr);
  {
    Hosted view(kFileView);
    ComRef<IOleInPlaceObject> inPlace =
        ComRef<IUnknown>(view.unknown()).As<IOleInPlaceObject>(IID_IOleInPlaceObject);
    inPlace->InPlaceDeactivate();
    view.Go(folder_.path());
    EXPECT_EQ(GetLong(view.dispatch(), 52), 0);
    const ComRef<IOleObject> ole = inPlace.As<IOleObject>(IID_IOleObject);
    RECT rect = {0, 0, 300, 200};
    ASSERT_EQ(ole->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, view.frame(), &rect), S_OK);
    EXPECT_TRUE(WaitUntil([&] { return GetLong(view.dispatch(), 52) == 1; }));
  }
  OleUninitialize();
}

TEST_F(Lifetime, ASinkMayCloseTheControlFromInsideAnEvent) {
  folder_.AddFile(L"a.obj");
  folder_.AddFile(L"b.obj");
  for (const DISPID when : {3, 12, 17, 18}) {
    Hosted view(kFileView);
    view.log().SetHandler([&](DISPID id, DISPPARAMS&) {
      if (id == when) view.Close();
    });
    view.Go(folder_.path());
    EXPECT_TRUE(WaitUntil([&] { return view.unknown() == nullptr; })) << when;
    PumpMessages();
  }
  EXPECT_TRUE(WaitUntil([] { return CanUnload(kFileView); }));
}

TEST_F(Lifetime, TheContainersStyleBitsDoNotStick) {
  folder_.AddFile(L"a.obj");
  Hosted view(kFileView);
  PutBool(view.dispatch(), 7, false);
  PutLong(view.dispatch(), 9, 1);
  const LONG_PTR style = GetWindowLongPtrW(view.list(), GWL_STYLE);
  // Child, auto-arrange, single selection and the list view's bits, as a container ORs them in.
  SetWindowLongPtrW(view.list(), GWL_STYLE, style | 0x40000107);
  EXPECT_EQ(GetWindowLongPtrW(view.list(), GWL_STYLE) & 0x3, 1) << "still the report";
  EXPECT_EQ(GetWindowLongPtrW(view.list(), GWL_STYLE) & 0x4, 0) << "still many selected";
}

}  // namespace
}  // namespace controls_test
