#include "workbench/controls/model/drop_rules.h"

#include <algorithm>

#include "workbench/controls/model/natural_compare.h"
#include "workbench/controls/model/path_logic.h"

namespace controls {
namespace {

bool SameVolume(std::wstring_view first, std::wstring_view second) {
  const std::vector<std::wstring> one = PathChain(first);
  const std::vector<std::wstring> other = PathChain(second);
  return !one.empty() && !other.empty() && SamePath(one.front(), other.front());
}

}  // namespace

bool MayDropInto(const std::vector<std::wstring>& paths, std::wstring_view folder) {
  return !folder.empty() && !paths.empty() &&
         std::none_of(paths.begin(), paths.end(),
                      [&](const std::wstring& path) { return IsWithin(folder, path); });
}

DropAction ChooseDropAction(const std::vector<std::wstring>& paths, std::wstring_view folder, DropKeys keys,
                            DropOffer offer) {
  if (keys.alt || (keys.control && keys.shift) || !MayDropInto(paths, folder)) return DropAction::kNone;
  const bool here = std::all_of(paths.begin(), paths.end(), [&](const std::wstring& path) {
    return SamePath(ParentOfPath(path), folder);
  });
  if (keys.control) return offer.copy ? DropAction::kCopy : DropAction::kNone;
  if (here) return DropAction::kNone;
  if (keys.shift) return offer.move ? DropAction::kMove : DropAction::kNone;
  const bool near = std::all_of(paths.begin(), paths.end(),
                                [&](const std::wstring& path) { return SameVolume(path, folder); });
  if (near && offer.move) return DropAction::kMove;
  if (offer.copy) return DropAction::kCopy;
  return offer.move ? DropAction::kMove : DropAction::kNone;
}

}  // namespace controls
