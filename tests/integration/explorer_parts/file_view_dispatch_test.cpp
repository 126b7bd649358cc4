// The file view's events on their way to the explorer: the hook first, then the defaults.
#include <gmock/gmock.h>

#include <windows.h>

#include <shobjidl.h>

#include <optional>
#include <string>

#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/file_view_events.h"
#include "src/host/vc64_imp.h"
#include "tests/support/scripted_control.h"

namespace file_explorer {
namespace {

using test_support::ScriptedItem;
using testing::ElementsAre;
using testing::IsEmpty;

struct HookCall {
  ExplorerWindow* window;
  ControlEvent code;
  ShellControlHost* host;
  IDispatch* object;
  std::int64_t a, b, c, d;
  std::string path;
  bool handledBefore;
};

std::optional<HookCall> hookCall;
bool hookHandles = false;

std::int64_t RecordingHook(ExplorerWindow& window, ControlEvent code, ShellControlHost* host,
                           IDispatch* object, std::int64_t a, std::int64_t b, std::int64_t c, std::int64_t d,
                           const char* path, bool* handled) {
  hookCall = HookCall{&window, code, host, object, a, b, c, d, path != nullptr ? path : "(none)", *handled};
  *handled = hookHandles;
  return 42;
}

class FileViewDispatchTest : public testing::Test {
 protected:
  FileViewDispatchTest() : window_(state_, nullptr), item_(CComObject<ScriptedItem>::New()) {
    hookCall.reset();
    hookHandles = false;
    host_.owner = &window_;
    item_->attributes = SFGAO_FILESYSTEM;
  }

  std::int64_t Dispatch(ControlEvent code, const char* path, std::int64_t a = 0, std::int64_t b = 0) {
    return DispatchFileViewEvent(static_cast<std::int16_t>(code), &host_, item_.Get(), a, b, 0, 0, path);
  }
  void HideEverything() { state_.settings.fileExclusionList = unique_host_text(Import_IO_Copy_String("*")); }
  // What the item was asked and told since the last look.
  std::vector<std::string> TakeLog() { return std::exchange(item_->log, {}); }

  ExplorerState state_;
  ExplorerWindow window_;
  ShellControlHost host_;
  ComPtr<CComObject<ScriptedItem>> item_;
};

TEST_F(FileViewDispatchTest, TheHookGetsTheOwnerAndEveryArgument) {
  window_.SetFileViewEventHook(&RecordingHook);
  EXPECT_EQ(DispatchFileViewEvent(23, &host_, item_.Get(), 1, 2, 3, 4, "c:\\a.obj"), 0) << "not handled";
  ASSERT_TRUE(hookCall);
  EXPECT_EQ(hookCall->window, &window_);
  EXPECT_EQ(hookCall->code, ControlEvent::kNotice);
  EXPECT_EQ(hookCall->host, &host_);
  EXPECT_EQ(hookCall->object, item_.Get());
  EXPECT_EQ(hookCall->a, 1);
  EXPECT_EQ(hookCall->b, 2);
  EXPECT_EQ(hookCall->c, 3);
  EXPECT_EQ(hookCall->d, 4);
  EXPECT_EQ(hookCall->path, "c:\\a.obj");
  EXPECT_FALSE(hookCall->handledBefore);
}

TEST_F(FileViewDispatchTest, TheDefaultsFollowUnlessTheHookHasHandledTheEvent) {
  HideEverything();
  EXPECT_EQ(Dispatch(ControlEvent::kAskDefaultAction, "c:\\a.obj"), 0);
  EXPECT_THAT(TakeLog(), ElementsAre("method 19()")) << "without a hook";
  window_.SetFileViewEventHook(&RecordingHook);
  EXPECT_EQ(Dispatch(ControlEvent::kAskDefaultAction, "c:\\a.obj"), 0);
  EXPECT_THAT(TakeLog(), ElementsAre("method 19()"));
  hookHandles = true;
  EXPECT_EQ(Dispatch(ControlEvent::kAskDefaultAction, "c:\\a.obj"), 42);
  EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(FileViewDispatchTest, WithoutAnOwnerNothingHappens) {
  window_.SetFileViewEventHook(&RecordingHook);
  host_.owner = nullptr;
  EXPECT_EQ(Dispatch(ControlEvent::kAskDefaultAction, "c:\\a.obj"), 0);
  EXPECT_EQ(DispatchFileViewEvent(18, nullptr, item_.Get(), 0, 0, 0, 0, "c:\\a.obj"), 0);
  EXPECT_FALSE(hookCall);
}

TEST_F(FileViewDispatchTest, TheExplorerLeavesOutWhatTheMasksHideOnce) {
  window_.SetFileViewEventHook(&FileViewEventHook);
  EXPECT_EQ(Dispatch(ControlEvent::kAskDefaultAction, "c:\\a.obj"), 0);
  EXPECT_THAT(TakeLog(), IsEmpty()) << "no masks";
  HideEverything();
  EXPECT_EQ(Dispatch(ControlEvent::kAskDefaultAction, "c:\\a.obj"), 0);
  EXPECT_THAT(TakeLog(), ElementsAre("method 19()"));
  EXPECT_EQ(Dispatch(ControlEvent::kAskDefaultAction, nullptr), 0);
  EXPECT_THAT(TakeLog(), IsEmpty()) << "no path";
}

TEST_F(FileViewDispatchTest, OnlyTheFirstColumnIsSortedInGroupsAndOnlyWhenTheUserWantsIt) {
  window_.SetFileViewEventHook(&FileViewEventHook);
  state_.settings.groupRelatedFilesTogether = 1;
  EXPECT_EQ(Dispatch(ControlEvent::kSorting, "Name", 0), 1);
  for (const std::int64_t column : {1, 2, 3, -1})
    EXPECT_EQ(Dispatch(ControlEvent::kSorting, "Size", column), 0);
  state_.settings.groupRelatedFilesTogether = 0;
  EXPECT_EQ(Dispatch(ControlEvent::kSorting, "Name", 0), 0);
}

TEST_F(FileViewDispatchTest, ItemsAreComparedOnlyWhenTheUserWantsGroups) {
  window_.SetFileViewEventHook(&FileViewEventHook);
  const auto second = CComObject<ScriptedItem>::New();
  item_->name = L"c:\\b.obj";
  second->name = L"c:\\a.obj";
  second->attributes = SFGAO_FILESYSTEM;
  LONG order = 77;
  const auto compare = [&] {
    return Dispatch(
        ControlEvent::kCompareItems, nullptr,
        static_cast<std::int64_t>(reinterpret_cast<INT_PTR>(static_cast<IDispatch*>(second.Get()))),
        static_cast<std::int64_t>(reinterpret_cast<INT_PTR>(&order)));
  };
  state_.settings.groupRelatedFilesTogether = 0;
  EXPECT_EQ(compare(), 0);
  EXPECT_EQ(order, 77);
  state_.settings.groupRelatedFilesTogether = 1;
  EXPECT_EQ(compare(), 0);
  EXPECT_EQ(order, 1);
}

TEST_F(FileViewDispatchTest, ADoubleClickIsTheControlsWhenASingleOneLoads) {
  window_.SetFileViewEventHook(&FileViewEventHook);
  state_.settings.singleClickFileLoading = 1;
  EXPECT_EQ(Dispatch(ControlEvent::kFileDoubleClicked, "c:\\a.obj"), 0);
  EXPECT_EQ(Dispatch(ControlEvent::kFileClicked, nullptr), 0);
  state_.settings.singleClickFileLoading = 0;
  EXPECT_EQ(Dispatch(ControlEvent::kFileDoubleClicked, nullptr), 0) << "no path, nothing to load";
}

TEST_F(FileViewDispatchTest, CodesWithoutAReactionGiveZero) {
  window_.SetFileViewEventHook(&FileViewEventHook);
  for (const int code : {-1, 3, 15, 17, 22, 23, 27, 32767}) {
    EXPECT_EQ(
        DispatchFileViewEvent(static_cast<std::int16_t>(code), &host_, item_.Get(), 0, 0, 0, 0, "c:\\a.obj"),
        0)
        << code;
  }
  EXPECT_THAT(TakeLog(), IsEmpty());
}

}  // namespace
}  // namespace file_explorer
