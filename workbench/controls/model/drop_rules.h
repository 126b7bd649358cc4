// What dropping files onto a folder does.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace controls {

enum class DropAction { kNone, kCopy, kMove };

// The keys that are held while the files are over the target.
struct DropKeys {
  bool control = false;  // copy
  bool shift = false;    // move
  bool alt = false;      // a link, which no view makes
};

// What the source allows.
struct DropOffer {
  bool copy = true;
  bool move = true;
};

// Whether every path may go into folder at all: there are some, and none of them is the folder itself or
// contains it.
bool MayDropInto(const std::vector<std::wstring>& paths, std::wstring_view folder);

// The action for paths over folder, both absolute; an empty folder takes nothing. Without keys files move
// within a drive and are copied between drives, and what lies in the folder already stays as it is.
DropAction ChooseDropAction(const std::vector<std::wstring>& paths, std::wstring_view folder, DropKeys keys,
                            DropOffer offer);

}  // namespace controls
