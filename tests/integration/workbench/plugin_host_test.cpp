// Loading plug-ins and the order of the conversation.
#include "tests/integration/workbench/fake_plugin.h"
#include "tests/integration/workbench/workbench_fixture.h"

namespace workbench {
namespace {

std::wstring Beside(const wchar_t* name) {
  return ProgramFolder() + L"\\" + name;
}

// Keeps the fake plug-in in the process so that its log can be read after the host has let go of it.
class FakePlugin {
 public:
  FakePlugin() : module_(LoadLibraryW(Beside(L"workbench_fake_plugin.dll").c_str())) {
    Function<fake_plugin::ClearFunction>(fake_plugin::kClearName)();
    SetInitializeStatus(0);
  }
  ~FakePlugin() { FreeLibrary(module_); }
  FakePlugin(const FakePlugin&) = delete;
  FakePlugin& operator=(const FakePlugin&) = delete;

  std::string Log() const { return Function<fake_plugin::LogFunction>(fake_plugin::kLogName)(); }
  void Clear() const { Function<fake_plugin::ClearFunction>(fake_plugin::kClearName)(); }
  void SetInitializeStatus(std::uint32_t status) const {
    Function<fake_plugin::SetInitializeStatusFunction>(fake_plugin::kSetInitializeStatusName)(status);
  }

 private:
  template <typename Pointer>
  Pointer Function(const char* name) const {
    return reinterpret_cast<Pointer>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }
  HMODULE module_;
};

class PluginHostTest : public WorkbenchTest {
 protected:
  PluginHostTest() {
    WorkbenchOptions options = Options();
    options.helpLocation = L"C:\\help";
    Start(std::move(options));
  }
  PluginState Load(const wchar_t* name) { return host().LoadPlugin(Beside(name)); }
};

constexpr char kBegin[] = "parent_hWnd=window\nparent_hInstance=services\n";

std::string Call(const std::string& keyword) {
  return kBegin + keyword + "\n--\n";
}

TEST_F(PluginHostTest, TheConversationHasItsOrder) {
  const FakePlugin plugin;
  EXPECT_EQ(Load(L"workbench_fake_plugin.dll"), PluginState::Running);
  EXPECT_EQ(plugin.Log(), Call("initialize=C:\\help") + Call("new_instance"));
  EXPECT_NE(host().plugin().instance(), nullptr);
  plugin.Clear();
  host().Close();
  EXPECT_EQ(plugin.Log(), Call("destroy_instance") + Call("shutdown"));
  EXPECT_TRUE(messages_.empty());
}

TEST_F(PluginHostTest, ARefusedHostCreatesNoInstance) {
  const FakePlugin plugin;
  plugin.SetInitializeStatus(host::kStatusHostTooOld);
  EXPECT_EQ(Load(L"workbench_fake_plugin.dll"), PluginState::Refused);
  EXPECT_EQ(plugin.Log(), Call("initialize=C:\\help"));
  EXPECT_NE(host().main().message().find(L"requires a newer version"), std::wstring::npos);
  plugin.Clear();
  host().Execute(kCommandShowFolders);
  EXPECT_EQ(plugin.Log(), "") << "nothing is said to a plug-in without an instance";
  host().Close();
  EXPECT_EQ(plugin.Log(), Call("shutdown"));
}

TEST_F(PluginHostTest, MenuCommandsBecomeKeywords) {
  const FakePlugin plugin;
  Load(L"workbench_fake_plugin.dll");
  plugin.Clear();
  host().Execute(kCommandShowFolders);
  host().Execute(kCommandShowHistory);
  host().Execute(kCommandShowFavorites);
  host().Execute(kCommandPluginAbout);
  EXPECT_EQ(plugin.Log(), Call("showfolderviewpanel") + Call("showhistorypanel") +
                              Call("showfavoritespanel") + Call("show_about_dialog"));
  plugin.Clear();
  host().plugin().Say("addpathtohistorylist", "C:\\a.obj");
  EXPECT_EQ(plugin.Log(), Call("addpathtohistorylist=C:\\a.obj"));
}

TEST_F(PluginHostTest, AMissingFileIsSaidInAMessage) {
  EXPECT_EQ(Load(L"no such plugin.dll"), PluginState::Missing);
  ASSERT_EQ(messages_.size(), 1u);
  EXPECT_NE(messages_[0].find(L"was not found"), std::wstring::npos);
  EXPECT_NE(messages_[0].find(L"no such plugin.dll"), std::wstring::npos);
  EXPECT_NE(host().main().message().find(L"was not found"), std::wstring::npos);
}

TEST_F(PluginHostTest, AFileThatIsNoLibraryIsSaidInAMessage) {
  EXPECT_EQ(host().LoadPlugin(folder_.AddFile(L"text.dll", "this is no library")), PluginState::NotLoadable);
  ASSERT_EQ(messages_.size(), 1u);
  EXPECT_NE(messages_[0].find(L"could not be loaded"), std::wstring::npos);
}

TEST_F(PluginHostTest, ALibraryWithoutTheEntryPointIsSaidInAMessage) {
  EXPECT_EQ(Load(L"workbench_no_plugin.dll"), PluginState::NoEntryPoint);
  ASSERT_EQ(messages_.size(), 1u);
  EXPECT_NE(messages_[0].find(L"Teskar_Plugin_EntryPoint"), std::wstring::npos);
  EXPECT_EQ(GetModuleHandleW(L"workbench_no_plugin.dll"), nullptr) << "the library is let go";
}

TEST_F(PluginHostTest, TheProgramWorksWithoutAPlugIn) {
  for (const UINT command : {kCommandShowFolders, kCommandShowHistory, kCommandPluginAbout, kCommandNextPane,
                             kCommandNextDocument, kCommandCloseDocument, kCommandResetLayout}) {
    host().Execute(command);
  }
  host().Pump();
  EXPECT_TRUE(IsWindowVisible(host().window()));
  EXPECT_EQ(host().plugin().Say("showhistorypanel"), host::kStatusDone);
}

TEST_F(PluginHostTest, AnotherPlugInReplacesTheFirst) {
  const FakePlugin plugin;
  Load(L"workbench_fake_plugin.dll");
  plugin.Clear();
  Load(L"no such plugin.dll");
  EXPECT_EQ(plugin.Log(), Call("destroy_instance") + Call("shutdown"));
  EXPECT_FALSE(host().plugin().isRunning());
}

}  // namespace
}  // namespace workbench
