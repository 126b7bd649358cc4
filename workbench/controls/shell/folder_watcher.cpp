#include "workbench/controls/shell/folder_watcher.h"

#include <mutex>
#include <set>

#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/folder_reader.h"
#include "workbench/controls/shell/worker.h"

namespace controls {
namespace {

constexpr DWORD kQuietMs = 40;         // changes that follow within this time belong together
constexpr ULONGLONG kLongestMs = 400;  // but a change is never held back longer, however busy the folder is
constexpr size_t kMostNames = 2000;    // more are cheaper to read anew
constexpr DWORD kBufferBytes = 64 * 1024;
constexpr DWORD kWatched = FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME |
                           FILE_NOTIFY_CHANGE_ATTRIBUTES | FILE_NOTIFY_CHANGE_SIZE |
                           FILE_NOTIFY_CHANGE_LAST_WRITE;

class OwnedHandle {
 public:
  explicit OwnedHandle(HANDLE handle) : handle_(handle) {}
  ~OwnedHandle() {
    if (valid()) CloseHandle(handle_);
  }
  OwnedHandle(const OwnedHandle&) = delete;
  OwnedHandle& operator=(const OwnedHandle&) = delete;
  bool valid() const { return handle_ && handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};

// Adds the names of a notification block to a set.
void CollectNames(const BYTE* block, std::set<std::wstring>& names) {
  for (;;) {
    const auto* entry = reinterpret_cast<const FILE_NOTIFY_INFORMATION*>(block);
    names.emplace(entry->FileName, entry->FileNameLength / sizeof(wchar_t));
    if (entry->NextEntryOffset == 0) return;
    block += entry->NextEntryOffset;
  }
}

ItemChange Resolve(const std::wstring& folder, const std::wstring& name) {
  ItemChange change;
  change.name = name;
  WIN32_FIND_DATAW data;
  const HANDLE find = FindFirstFileExW(ExtendedPath(JoinPath(folder, name)).c_str(), FindExInfoBasic, &data,
                                       FindExSearchNameMatch, nullptr, 0);
  if (find == INVALID_HANDLE_VALUE) return change;
  FindClose(find);
  // Another spelling is another item: the one of this spelling is gone.
  if (name != data.cFileName) return change;
  change.exists = true;
  change.facts = FactsOf(data);
  return change;
}

}  // namespace

struct FolderWatcher::State {
  State(std::wstring folder, HWND window, UINT message) : path(std::move(folder)), wakeUp(window, message) {}
  ~State() { CloseHandle(stop); }

  const std::wstring path;
  WakeUp wakeUp;
  HANDLE stop = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  std::mutex mutex;
  ChangeSet waiting;

  void Deliver(ChangeSet&& set) {
    {
      const std::lock_guard lock(mutex);
      for (ItemChange& change : set.changes) waiting.changes.push_back(std::move(change));
      waiting.tooMany |= set.tooMany;
      waiting.ended |= set.ended;
    }
    wakeUp.Post();
  }
};

void FolderWatcher::Start(const std::wstring& path, HWND window, UINT message) {
  Stop();
  state_ = std::make_shared<State>(path, window, message);
  StartWorker([state = state_] {
    try {
      Follow(state);
    } catch (...) {
      // Out of memory: the view stays as it is until it is refreshed.
    }
  });
}

void FolderWatcher::Stop() {
  if (!state_) return;
  state_->wakeUp.Close();
  SetEvent(state_->stop);
  state_.reset();
}

bool FolderWatcher::Take(ChangeSet& changes) {
  if (!state_) return false;
  state_->wakeUp.Received();
  const std::lock_guard lock(state_->mutex);
  changes = std::move(state_->waiting);
  state_->waiting = ChangeSet();
  return changes.tooMany || changes.ended || !changes.changes.empty();
}

// On the worker thread.
void FolderWatcher::Follow(const std::shared_ptr<State>& state) {
  const OwnedHandle folder(CreateFileW(ExtendedPath(state->path).c_str(), FILE_LIST_DIRECTORY,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                       OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OVERLAPPED,
                                       nullptr));
  const OwnedHandle done(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  if (!folder.valid() || !done.valid()) return;
  // Aligned as notification records must be.
  std::vector<DWORD> buffer(kBufferBytes / sizeof(DWORD));
  std::set<std::wstring> names;
  bool tooMany = false;
  bool armed = false;
  ULONGLONG firstChange = 0;  // of those that wait
  OVERLAPPED overlapped = {};
  const auto deliver = [&] {
    ChangeSet set;
    set.tooMany = tooMany;
    if (!tooMany) {
      for (const std::wstring& name : names) set.changes.push_back(Resolve(state->path, name));
    }
    names.clear();
    tooMany = false;
    state->Deliver(std::move(set));
  };
  for (;;) {
    if (!armed) {
      overlapped = {};
      overlapped.hEvent = done.get();
      ResetEvent(done.get());
      if (!ReadDirectoryChangesW(folder.get(), buffer.data(), kBufferBytes, FALSE, kWatched, nullptr,
                                 &overlapped, nullptr)) {
        break;
      }
      armed = true;
    }
    const HANDLE handles[] = {state->stop, done.get()};
    const bool pending = tooMany || !names.empty();
    const bool overdue = pending && GetTickCount64() - firstChange >= kLongestMs;
    if (overdue) deliver();
    const DWORD woken = WaitForMultipleObjects(2, handles, FALSE, pending && !overdue ? kQuietMs : INFINITE);
    if (woken == WAIT_TIMEOUT) {
      deliver();
      continue;
    }
    if (!pending || overdue) firstChange = GetTickCount64();
    if (woken != WAIT_OBJECT_0 + 1) {
      // Stopped: the system must be done with the buffer before it goes.
      CancelIo(folder.get());
      DWORD ignored = 0;
      GetOverlappedResult(folder.get(), &overlapped, &ignored, TRUE);
      return;
    }
    armed = false;
    DWORD bytes = 0;
    if (!GetOverlappedResult(folder.get(), &overlapped, &bytes, FALSE)) break;
    if (bytes == 0) {
      tooMany = true;
    } else if (!tooMany) {
      CollectNames(reinterpret_cast<const BYTE*>(buffer.data()), names);
      tooMany = names.size() > kMostNames;
    }
  }
  ChangeSet set;
  set.ended = true;
  state->Deliver(std::move(set));
}

}  // namespace controls
