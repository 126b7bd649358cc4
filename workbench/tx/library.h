// What the library keeps between calls, behind one lock. It is made at the first call that needs it, never
// while the library is being loaded: a plug-in may call the memory functions from its own DllMain.
#pragma once

#include <windows.h>

#include "src/host/vc64_tx.h"
#include "workbench/tx/color_table.h"
#include "workbench/tx/environment_table.h"
#include "workbench/tx/guarded.h"
#include "workbench/tx/handler_arguments.h"
#include "workbench/tx/handler_registry.h"
#include "workbench/tx/token_table.h"

namespace workbench::tx {

struct LibraryState {
  TokenTable tokens;
  HandlerKeywords keywords{tokens};
  EnvironmentTable environment;
  HandlerRegistry registry;
  ColorTable colors;
};

// The library's state, for as long as the object lives. Not to be held while foreign code is called.
class LockedState {
 public:
  LockedState();
  ~LockedState();
  LockedState(const LockedState&) = delete;
  LockedState& operator=(const LockedState&) = delete;

  LibraryState* operator->() const { return state_; }
  LibraryState& operator*() const { return *state_; }

 private:
  LibraryState* state_;
};

// Fills the registry from the file of formats beside the library; leaves it as it is when there is no such
// file.
void LoadFormats(HandlerRegistry& registry);

bool IsLeadByte(unsigned char byte);

}  // namespace workbench::tx
