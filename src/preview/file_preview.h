// Makes a preview of a file: by the shell's extractor where there is one, else by the system's decoders for
// pictures and by our renderer for models.
#pragma once

#include <windows.h>

#include <shtypes.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <optional>

#include "src/preview/mesh.h"
#include "src/preview/picture.h"

namespace file_explorer::preview {

// What a preview may cost. Whatever would cost more has none.
struct PreviewLimits {
  std::chrono::milliseconds time{
      150};  // for reading, decoding and drawing; a system decoder's step is not cut
  std::uint64_t fileBytes = 32u << 20;
  std::uint64_t picturePixels = 24'000'000;  // as the file states them
  MeshLimits mesh;
  // Files of other machines: they may be slow to reach, and a machine that is gone holds the call up for
  // long.
  bool remoteFiles = false;
  const std::atomic<bool>* cancelled = nullptr;  // may be set by another thread; may be null
};

// For somebody who has time, on a thread of its own.
PreviewLimits PatientLimits();

// path: the file's full path; null gives none, as does every file that may not be opened. item: the same as an item
// identifier list from the desktop; may be null, then no extractor is asked. size: pixels, 16 to 512. None for damaged, empty, too large and offline files, for
// folders, devices and all other kinds of file. Needs COM on the thread; the file is not locked, and closed
// at the end of the call. May throw std::bad_alloc.
std::optional<Preview> MakePreview(const wchar_t* path, LPCITEMIDLIST item, int size,
                                   const PreviewLimits& limits);
// A path in the ANSI code page.
std::optional<Preview> MakePreview(const char* path, LPCITEMIDLIST item, int size,
                                   const PreviewLimits& limits);

}  // namespace file_explorer::preview
