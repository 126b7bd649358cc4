// The real module in the real workbench host: each fixture has a profile, a per-user directory and a folder of its own.
//
//   ExplorerFixture fixture;
//   fixture.directory().AddFile(L"files\\a.obj");
//   fixture.options().facts.flags = ...;          // before Start
//   fixture.Start();                              // the workbench alone
//   ASSERT_TRUE(fixture.LoadExplorer());          // the plug-in, its instance created
//   ASSERT_TRUE(fixture.WaitForFile("a.obj"));
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "src/host/plugin_protocol.h"
#include "tests/support/message_box_recorder.h"
#include "tests/support/temp_directory.h"
#include "workbench/app/main/workbench.h"

namespace test_support {

class ExplorerFixture {
 public:
  ExplorerFixture();
  ~ExplorerFixture();  // closes the workbench
  ExplorerFixture(const ExplorerFixture&) = delete;
  ExplorerFixture& operator=(const ExplorerFixture&) = delete;

  // Change them before Start. Calls are recorded; the folder is directory()\files.
  workbench::WorkbenchOptions& options() { return options_; }
  TempDirectory& directory() { return directory_; }
  std::string FilesFolder() const { return directory_.Join(std::string_view("files")); }
  std::string UserDirectory() const { return directory_.Join(std::string_view("user")); }
  std::string ProfilePath() const { return directory_.Join(std::string_view("profile.ini")); }
  // Texts that the workbench itself said.
  const std::vector<std::wstring>& messages() const { return messages_; }
  // Message boxes of everybody; answered at once.
  MessageBoxRecorder& boxes() { return boxes_; }

  workbench::Workbench& Start();
  // Loads the module beside the test program and creates its instance; true when it runs.
  bool LoadExplorer();
  void Close();
  workbench::Workbench& workbench() { return *workbench_; }
  workbench::HostServicesTable& services() { return workbench_->services(); }

  // The module's entry point without a workbench's conversation around it. The module is loaded when it is not.
  host::PluginEntryPoint EntryPoint();
  struct Pair {
    const char* keyword;
    void* value;
  };
  // One call with these pairs; gives the status, and the values as they are afterwards through values.
  std::uint32_t Say(const std::vector<Pair>& pairs, std::vector<void*>* values = nullptr);
  // Behind the two pairs that every conversation begins with.
  std::uint32_t SayWithHost(const std::vector<Pair>& pairs, std::vector<void*>* values = nullptr);

  // Windows of the explorer; null while they don't exist.
  HWND ExplorerWindow() const;
  HWND CommandToolbar() const;
  HWND SelectEdit() const;
  HWND FileList() const;    // the list inside the file view
  HWND FolderTree() const;  // the tree inside the folder view
  HWND Panel() const;       // the explorer's page of the utility panel
  // A child of the panel by its control id, visible or not.
  HWND PanelChild(int id) const;

  // Names in the file list, in view order, letters beyond the code page replaced.
  std::vector<std::string> FileNames() const;
  std::vector<std::string> SelectedNames() const;
  int IndexOf(std::string_view name) const;  // -1 when it is not there
  // Waits until the list shows a name; false when it never does.
  bool WaitForFile(std::string_view name);
  bool WaitForFiles(size_t count);
  // A double click on a row with posted mouse messages.
  void DoubleClickFile(std::string_view name);
  void ClickFile(std::string_view name);

 private:
  std::vector<std::string> Names(UINT flags) const;
  void PostClick(std::string_view name, bool twice);

  TempDirectory directory_;
  MessageBoxRecorder boxes_;
  std::vector<std::wstring> messages_;
  workbench::WorkbenchOptions options_;
  std::unique_ptr<workbench::Workbench> workbench_;
  HMODULE module_ = nullptr;
};

// The first descendant of a class, in z order, depth first; null when there is none.
HWND FindDescendant(HWND root, std::string_view className);

// A window's text.
std::string TextOf(HWND window);

}  // namespace test_support
