// The file operations of one control: one after the other, each on a thread of its own.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/files/transfer.h"
#include "workbench/controls/operations/operation_text.h"
#include "workbench/controls/operations/running_operation.h"
#include "workbench/controls/operations/undo_store.h"

namespace controls {

class FileOperations {
 public:
  // files: must outlive this object; the machine's when there are none given.
  explicit FileOperations(base::FileSystem* files = nullptr);
  ~FileOperations() { Close(); }
  FileOperations(const FileOperations&) = delete;
  FileOperations& operator=(const FileOperations&) = delete;

  // Called on the window's thread when the operation has ended, before the user is told what could not be
  // done; not after Close. whole: everything that was asked for was done.
  struct Outcome {
    bool whole = false;
    base::TransferReport report;
  };
  using Done = std::function<void(const Outcome&)>;

  // All paths are absolute. view: the control's window; questions belong to the window that contains it. Each
  // returns at once.
  //
  // Into a folder, or a link or mount point that leads to one. The user is asked about what stands there
  // already.
  void Copy(HWND view, std::vector<std::wstring> paths, std::wstring folder, bool move, Done done);
  // After one question. To the recycle bin, where there is one that can keep the item as it is.
  void Delete(HWND view, std::vector<std::wstring> paths, bool permanently, Done done);
  // Takes the process's last operation back.
  void Undo(HWND view, Done done);
  // What Undo would take back ("Copy"); empty for nothing.
  std::wstring UndoName() const { return store_->LastName(); }
  // The control gave a file another name by itself.
  void NoteRename(const std::wstring& from, const std::wstring& to);

  bool busy() const { return running_ != nullptr; }
  // Ends what is under way at a safe point and forgets the rest. Nothing can be started any more.
  void Close();

 private:
  struct State;
  struct Order {
    OperationKind kind;
    HWND view;
    std::function<void(OperationLink&, State&)> work;
    Done done;
  };
  void Begin(Order order);
  void StartNext();
  void OnFinished(const Order& order, const std::shared_ptr<State>& state);

  base::FileSystem& files_;
  std::shared_ptr<UndoStore> store_ = std::make_shared<UndoStore>();
  std::deque<Order> waiting_;
  std::shared_ptr<RunningOperation> running_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace controls
