// Takes part in what a list or a tree inside a shell control tells the control.
#pragma once

#include <windows.h>

namespace file_explorer {

// Sees one kind of notification before the window that the list or tree sends it to: that window's procedure
// is replaced for as long as there is a tap on it. Everything else reaches the window as if there was none.
class NotificationTap {
 public:
  NotificationTap(const NotificationTap&) = delete;
  NotificationTap& operator=(const NotificationTap&) = delete;

  // sender: the list or tree; null attaches to nothing. Of several taps for the same kind on one receiver the
  // first one has it.
  void Attach(HWND sender);
  // Gives the receiver back, unless it has gone.
  void Detach();

 protected:
  // The window that gets the notification, and the message that it came with.
  struct Receiver {
    HWND window;
    WNDPROC original;
    WPARAM wParam;

    // The window's own answer.
    LRESULT PassOn(NMHDR& header) const;
  };

  // code: the kind, as in NMHDR.
  explicit NotificationTap(UINT code) : code_(code) {}
  ~NotificationTap() { Detach(); }

  // Gives the answer that the sender gets. Must not throw. The object may be gone when PassOn comes back.
  virtual LRESULT OnNotification(NMHDR& header, const Receiver& receiver) = 0;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  UINT code_;
  HWND sender_ = nullptr;
  HWND receiver_ = nullptr;
};

}  // namespace file_explorer
