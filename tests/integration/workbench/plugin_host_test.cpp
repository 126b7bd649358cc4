// Loading plug-ins and the order of the conversation.
#include <objbase.h>

#include <thread>

#include "src/host/vc64_tx.h"
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
  void RegisterHandler() const {
    Function<fake_plugin::ClearFunction>(fake_plugin::kRegisterHandlerName)();
  }
  // At the last "initialize".
  bool WasInApartment() const {
    return Function<fake_plugin::WasInApartmentFunction>(fake_plugin::kWasInApartmentName)() != 0;
  }
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

TEST_F(PluginHostTest, TheFormatHandlersOfThePlugInGoWithIt) {
  const FakePlugin plugin;
  ASSERT_EQ(Load(L"workbench_fake_plugin.dll"), PluginState::Running);
  constexpr char kOurs[] = "{5D1B7A10-2C44-4E0E-9A61-0B771F28D399}";
  const TxExecuteCallback execute = [](std::int16_t, const char*, const char*) -> std::int64_t { return 0; };
  ASSERT_TRUE(Tx_FileFormatHandler(kOurs, Tx_Inquire_Token("function"), Tx_Inquire_Token("viewer"), 1,
                                   Tx_Inquire_Token("viewer"), Tx_Inquire_Token("verifyheadercallback"),
                                   TxVerifyHeaderCallback(nullptr), Tx_Inquire_Token("executecallback"), execute, 1,
                                   0));
  plugin.RegisterHandler();
  ASSERT_TRUE(Tx_Inquire_FileFormatHandler(fake_plugin::kHandlerGuid, 0));
  host().Close();
  EXPECT_FALSE(Tx_Inquire_FileFormatHandler(fake_plugin::kHandlerGuid, 0));
  EXPECT_TRUE(Tx_Inquire_FileFormatHandler(kOurs, 0)) << "those of others stay";
  Tx_Remove_FileFormatHandler(kOurs);
}

TEST_F(PluginHostTest, ThePlugInFindsASingleThreadedApartment) {
  const FakePlugin plugin;
  ASSERT_EQ(Load(L"workbench_fake_plugin.dll"), PluginState::Running);
  EXPECT_TRUE(plugin.WasInApartment());
}

// A thread that is part of the multithreaded apartment can't hold the conversation.
TEST_F(PluginHostTest, WithoutASingleThreadedApartmentNothingIsLoaded) {
  const FakePlugin plugin;
  host::HostServices* const services = host().services().services();
  PluginState state = PluginState::Running;
  std::wstring problem;
  std::thread([&] {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    {
      PluginHost other(nullptr, services);
      state = other.Load(Beside(L"workbench_fake_plugin.dll"), L"");
      problem = other.Problem();
    }
    CoUninitialize();
  }).join();
  EXPECT_EQ(state, PluginState::NoApartment);
  EXPECT_NE(problem.find(L"apartment"), std::wstring::npos);
  EXPECT_EQ(plugin.Log(), "");
}

// One is opened where there is none yet, and left once the library is gone.
TEST_F(PluginHostTest, TheApartmentLastsAsLongAsTheLibrary) {
  const FakePlugin plugin;
  host::HostServices* const services = host().services().services();
  bool before = true;
  bool during = false;
  bool after = true;
  std::thread([&] {
    const auto isOpen = [] {
      APTTYPE type = APTTYPE_CURRENT;
      APTTYPEQUALIFIER qualifier = APTTYPEQUALIFIER_NONE;
      return SUCCEEDED(CoGetApartmentType(&type, &qualifier)) && (type == APTTYPE_STA || type == APTTYPE_MAINSTA);
    };
    before = isOpen();
    PluginHost other(nullptr, services);
    EXPECT_EQ(other.Load(Beside(L"workbench_fake_plugin.dll"), L""), PluginState::Running);
    during = isOpen();
    other.Unload();
    after = isOpen();
  }).join();
  EXPECT_FALSE(before);
  EXPECT_TRUE(during);
  EXPECT_FALSE(after);
  EXPECT_TRUE(plugin.WasInApartment());
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
