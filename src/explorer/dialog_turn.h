// One modal dialog of the explorer at a time.
#pragma once

namespace file_explorer {

// A modal dialog disables its owner alone. A toolbar in a window that the host floats stays alive beside it
// and could ask for the dialog a second time, or for another one on top of it. A command that opens a dialog
// takes the turn first and does nothing when somebody has it. For the user-interface thread only.
class DialogTurn {
 public:
  DialogTurn() : mine_(!taken_) { taken_ = true; }
  ~DialogTurn() {
    if (mine_) taken_ = false;
  }
  DialogTurn(const DialogTurn&) = delete;
  DialogTurn& operator=(const DialogTurn&) = delete;
  // Whether this object has the turn; it keeps it to the end of its life.
  explicit operator bool() const { return mine_; }

 private:
  static inline bool taken_ = false;
  const bool mine_;
};

}  // namespace file_explorer
