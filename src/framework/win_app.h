// The application object of a DLL: one module-wide object whose InitInstance and ExitInstance run when the DLL is
// loaded and unloaded.
#pragma once

#include <windows.h>

namespace file_explorer {

class CWinApp {
 public:
  // One row of a message map; the map ends with a null handler.
  struct MessageMapEntry {
    UINT message;
    LRESULT (*handler)(CWinApp* app, WPARAM wParam, LPARAM lParam);
  };
  struct MessageMap {
    const MessageMap* base;
    const MessageMapEntry* entries;
  };

  // Registers the object as the module's application; there must be only one. name is kept, not copied; may be null.
  explicit CWinApp(const char* name = nullptr);
  virtual ~CWinApp();
  virtual const MessageMap* GetMessageMap() const;

  // Called once when the module is loaded; FALSE refuses the load.
  virtual BOOL InitInstance();
  // Called once when the module is unloaded; not after an InitInstance that refused.
  virtual int ExitInstance();

  CWinApp(const CWinApp&) = delete;
  CWinApp& operator=(const CWinApp&) = delete;

  const char* name() const { return name_; }

  // The module's application object, or null.
  static CWinApp* Current();

 private:
  const char* name_;
};

}  // namespace file_explorer
