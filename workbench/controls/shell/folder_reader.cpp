#include "workbench/controls/shell/folder_reader.h"

#include <atomic>
#include <mutex>

#include "workbench/controls/model/display_text.h"
#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/worker.h"

namespace controls {
namespace {

// The first batch is small, so that rows appear at once; the later ones are large, so that waking up costs
// nothing.
constexpr size_t kFirstBatch = 200;
constexpr size_t kLaterBatch = 4000;

bool IsDotName(const wchar_t* name) {
  return name[0] == L'.' && (name[1] == L'\0' || (name[1] == L'.' && name[2] == L'\0'));
}

uint64_t Join(DWORD high, DWORD low) {
  return (static_cast<uint64_t>(high) << 32) | low;
}

}  // namespace

void ItemBatch::Add(std::wstring_view name, const ItemFacts& facts) {
  entries.push_back({static_cast<uint32_t>(names.size()), static_cast<uint32_t>(name.size()), facts});
  names.insert(names.end(), name.begin(), name.end());
}

ItemFacts FactsOf(const WIN32_FIND_DATAW& data) {
  ItemFacts facts;
  facts.attributes = data.dwFileAttributes;
  facts.modified = Join(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime);
  if (!(data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
    facts.size = Join(data.nFileSizeHigh, data.nFileSizeLow);
  return facts;
}

struct FolderReader::State {
  State(std::wstring folder, bool only, HWND window, UINT message, const ArchiveWish& wish)
      : path(std::move(folder)), foldersOnly(only), archives(wish), wakeUp(window, message) {}
  ~State() { CloseHandle(opened); }

  const std::wstring path;
  const bool foldersOnly;
  const ArchiveWish archives;
  WakeUp wakeUp;
  HANDLE opened = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  std::atomic<bool> cancelled{false};
  std::atomic<Progress> progress{Progress::kOpening};
  std::atomic<DWORD> error{0};
  std::atomic<bool> wasOpened{false};
  // Written before wasOpened.
  size_t archiveLength = 0;
  ArchivePointer archive;
  std::mutex mutex;
  std::deque<ItemBatch> batches;

  void Opened() {
    wasOpened = true;
    progress = Progress::kReading;
    SetEvent(opened);
    wakeUp.Post();
  }
  void Finish(Progress how, DWORD code) {
    error = code;
    progress = how;
    SetEvent(opened);
    wakeUp.Post();
  }
  void Deliver(ItemBatch& batch) {
    if (batch.entries.empty()) return;
    {
      const std::lock_guard lock(mutex);
      batches.push_back(std::move(batch));
    }
    batch = ItemBatch();
    wakeUp.Post();
  }
};

void FolderReader::Start(const std::wstring& path, bool foldersOnly, HWND window, UINT message,
                         const ArchiveWish& archives) {
  Cancel();
  state_ = std::make_shared<State>(path, foldersOnly, window, message, archives);
  const bool started = StartWorker([state = state_] {
    try {
      Read(state);
    } catch (...) {
      state->Finish(Progress::kFailed, ERROR_NOT_ENOUGH_MEMORY);
    }
  });
  if (!started) state_->Finish(Progress::kFailed, ERROR_NOT_ENOUGH_MEMORY);
}

// On the worker thread.
void FolderReader::Read(const std::shared_ptr<State>& state) {
  const std::wstring pattern = ExtendedPath(JoinPath(state->path, L"*"));
  WIN32_FIND_DATAW data;
  const HANDLE find = FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch,
                                       nullptr, FIND_FIRST_EX_LARGE_FETCH);
  if (find == INVALID_HANDLE_VALUE) {
    const DWORD error = GetLastError();
    if (state->archives.asFolders && ReadArchive(state)) return;
    // The root of an empty drive has not even the entry of itself.
    const bool emptyRoot = error == ERROR_FILE_NOT_FOUND && IsRootPath(state->path);
    state->Finish(emptyRoot ? Progress::kFinished : Progress::kFailed, error);
    return;
  }
  state->Opened();
  ItemBatch batch;
  size_t limit = kFirstBatch;
  do {
    if (IsDotName(data.cFileName)) continue;
    if (state->foldersOnly && !(data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) continue;
    batch.Add(data.cFileName, FactsOf(data));
    if (batch.entries.size() < limit) continue;
    state->Deliver(batch);
    limit = kLaterBatch;
  } while (!state->cancelled && FindNextFileW(find, &data));
  const DWORD error = state->cancelled ? 0 : GetLastError();
  FindClose(find);
  state->Deliver(batch);
  const bool complete = error == 0 || error == ERROR_NO_MORE_FILES;
  state->Finish(complete ? Progress::kFinished : Progress::kFailed, complete ? 0 : error);
}

// On the worker thread. False when the path leads into no archive.
bool FolderReader::ReadArchive(const std::shared_ptr<State>& state) {
  const size_t length = ArchiveLengthOnDisk(state->path);
  if (length == 0) return false;
  const ArchiveReading reading = OpenArchive(state->path.substr(0, length), state->archives.known,
                                             [&] { return state->cancelled.load(); });
  if (reading.error != 0 && !IsArchiveError(reading.error)) {
    state->Finish(Progress::kFailed, reading.error);
    return true;
  }
  state->archiveLength = length;
  state->archive = reading.archive;
  if (!reading.archive) {
    state->Opened();
    state->Finish(Progress::kFailed, reading.error);
    return true;
  }
  const ArchiveTree& tree = reading.archive->tree;
  const NodeId folder = tree.Find(std::wstring_view(state->path).substr(length));
  if (folder == kNoNode || !tree.at(folder).folder) {
    state->Finish(Progress::kFailed, ERROR_PATH_NOT_FOUND);
    return true;
  }
  state->Opened();
  ItemBatch batch;
  size_t limit = kFirstBatch;
  for (NodeId id = tree.at(folder).firstChild; id != kNoNode && !state->cancelled;
       id = tree.at(id).nextSibling) {
    if (state->foldersOnly && !tree.at(id).folder) continue;
    batch.Add(tree.name(id), FactsOfNode(tree.at(id)));
    if (batch.entries.size() < limit) continue;
    state->Deliver(batch);
    limit = kLaterBatch;
  }
  state->Deliver(batch);
  state->Finish(Progress::kFinished, 0);
  return true;
}

void FolderReader::Cancel() {
  if (!state_) return;
  state_->cancelled = true;
  state_->wakeUp.Close();
  state_.reset();
}

void FolderReader::Received() {
  if (state_) state_->wakeUp.Received();
}

void FolderReader::WaitUntilOpened(DWORD milliseconds) const {
  if (state_) WaitForSingleObject(state_->opened, milliseconds);
}

FolderReader::Progress FolderReader::progress() const {
  return state_ ? state_->progress.load() : Progress::kFinished;
}

DWORD FolderReader::error() const {
  return state_ ? state_->error.load() : 0;
}

bool FolderReader::opened() const {
  return state_ && state_->wasOpened;
}

size_t FolderReader::archiveLength() const {
  return opened() ? state_->archiveLength : 0;
}

ArchivePointer FolderReader::archive() const {
  return opened() ? state_->archive : nullptr;
}

bool FolderReader::TakeBatch(ItemBatch& batch) {
  if (!state_) return false;
  const std::lock_guard lock(state_->mutex);
  if (state_->batches.empty()) return false;
  batch = std::move(state_->batches.front());
  state_->batches.pop_front();
  return true;
}

}  // namespace controls
