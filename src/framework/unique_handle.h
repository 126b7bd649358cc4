// Owners of the host's memory, beside those of handles.
#pragma once

#include "base/handles/unique_handle.h"
#include "src/host/vc64_tx.h"

namespace file_explorer {

using base::HandleTraits;
using base::UniqueHandle;
using base::unique_file;
using base::unique_hbitmap;
using base::unique_hbrush;
using base::unique_hfont;
using base::unique_himagelist;
using base::unique_hmenu;
using base::unique_hwnd;
using base::unique_pidl;

struct HostTextTraits {
  using Handle = char*;
  static void Close(Handle text) { Tx_Free_Memory(text); }
};
using unique_host_text = UniqueHandle<HostTextTraits>;  // text of the host's memory
using unique_host_memory = UniqueHandle<HandleTraits<void*, Tx_Free_Memory>>;

}  // namespace file_explorer
