#include "src/explorer/command_state.h"

#include <algorithm>

#include "src/framework/command_ids.h"

namespace file_explorer {
namespace {

enum class Needs { AnySelection, OneSelected, Clipboard };

struct StateRow {
  int command;
  Needs needs;
};

constexpr StateRow kRows[] = {
    {kCommandCut, Needs::AnySelection},        {kCommandCopy, Needs::AnySelection},
    {kCommandMoveTo, Needs::AnySelection},     {kCommandCopyTo, Needs::AnySelection},
    {kCommandRename, Needs::AnySelection},     {kCommandDelete, Needs::AnySelection},
    {kCommandLoadPrevious, Needs::OneSelected}, {kCommandLoadNext, Needs::OneSelected},
    {kCommandPaste, Needs::Clipboard},
};

constexpr int kCommands[] = {kCommandCut,          kCommandCopy,     kCommandMoveTo, kCommandCopyTo, kCommandRename,
                             kCommandDelete,       kCommandLoadPrevious, kCommandLoadNext, kCommandPaste};

}  // namespace

std::span<const int> SelectionDependentCommands() { return kCommands; }

bool IsCommandEnabled(int command, const CommandSituation& situation) {
  const auto row =
      std::find_if(std::begin(kRows), std::end(kRows), [&](const StateRow& r) { return r.command == command; });
  if (row == std::end(kRows)) return true;
  switch (row->needs) {
    case Needs::AnySelection:
      return situation.selectedItems != 0;
    case Needs::OneSelected:
      return situation.selectedItems == 1;
    case Needs::Clipboard:
      return situation.clipboardHasContent;
  }
  return true;
}

}  // namespace file_explorer
