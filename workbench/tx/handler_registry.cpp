#include "workbench/tx/handler_registry.h"

#include <algorithm>
#include <utility>

#include "workbench/tx/extension_list.h"
#include "workbench/tx/path_text.h"

namespace workbench::tx {
namespace {

bool IsInList(HandlerFunction function, HandlerList list) {
  switch (list) {
    case HandlerList::kImport:
      return function == HandlerFunction::kImporter;
    case HandlerList::kExport:
      return function == HandlerFunction::kExporter;
    case HandlerList::kViewer:
      return function == HandlerFunction::kViewer;
    case HandlerList::kImportAndViewer:
      return function == HandlerFunction::kImporter || function == HandlerFunction::kViewer;
  }
  return false;
}

}  // namespace

bool HandlerRegistry::Register(Handler handler) {
  if (handler.guid.empty()) return false;
  const auto found = entries_.find(handler.guid);
  if (found != entries_.end()) {
    found->second.handler = std::move(handler);
  } else {
    if (order_.size() == order_.capacity())
      order_.reserve(2 * order_.size() + 16);  // so that push_back can't fail
    std::string guid = handler.guid;
    const auto added = entries_.emplace(std::move(guid), Entry{std::move(handler), nextSequence_++});
    order_.push_back(&added.first->second);
  }
  indexIsCurrent_ = false;
  return true;
}

bool HandlerRegistry::Remove(std::string_view guid) {
  const auto found = entries_.find(guid);
  if (found == entries_.end()) return false;
  std::erase(order_, &found->second);
  entries_.erase(found);
  indexIsCurrent_ = false;
  return true;
}

bool HandlerRegistry::Enable(std::string_view guid, bool enabled) {
  const auto found = entries_.find(guid);
  if (found == entries_.end()) return false;
  found->second.handler.enabled = enabled;
  indexIsCurrent_ = false;
  return true;
}

const Handler* HandlerRegistry::Find(std::string_view guid) const {
  const auto found = entries_.find(guid);
  return found == entries_.end() ? nullptr : &found->second.handler;
}

void HandlerRegistry::BuildIndex() {
  index_.clear();
  for (const Entry* entry : order_) {
    const Handler& handler = entry->handler;
    if (!handler.enabled || !handler.fileTypes) continue;
    std::string_view list = *handler.fileTypes;
    std::string_view extension;
    while (NextExtension(list, extension)) {
      uint32_t& types = index_[std::string(extension)][static_cast<size_t>(handler.function)];
      types |= static_cast<uint32_t>(handler.types);
    }
  }
  indexIsCurrent_ = true;
}

uint32_t HandlerRegistry::TypesOfName(HandlerList list, std::string_view fileName) {
  if (!indexIsCurrent_) BuildIndex();
  uint32_t types = 0;
  // An extension may have dots of its own ("tar.gz"): every dot of the name can begin one.
  for (size_t i = fileName.size(); i > 0 && !IsPathSeparator(fileName[i - 1]); --i) {
    if (fileName[i - 1] != '.') continue;
    const auto found = index_.find(fileName.substr(i));
    if (found == index_.end()) continue;
    for (size_t function = 0; function < found->second.size(); ++function) {
      if (IsInList(static_cast<HandlerFunction>(function), list)) types |= found->second[function];
    }
  }
  return types;
}

int HandlerRegistry::CountOfType(HandlerList list, uint32_t typeBits) const {
  return static_cast<int>(std::count_if(order_.begin(), order_.end(), [&](const Entry* entry) {
    const Handler& handler = entry->handler;
    return handler.enabled && IsInList(handler.function, list) &&
           (static_cast<uint32_t>(handler.types) & typeBits) != 0;
  }));
}

std::vector<std::string> HandlerRegistry::Guids(HandlerList list, size_t limit) const {
  std::vector<std::string> guids;
  for (const Entry* entry : order_) {
    if (guids.size() >= limit) break;
    if (IsInList(entry->handler.function, list)) guids.push_back(entry->handler.guid);
  }
  return guids;
}

void HandlerRegistry::SortByPluginOrder() {
  std::sort(order_.begin(), order_.end(),
            [](const Entry* a, const Entry* b) { return a->sequence < b->sequence; });
}

void HandlerRegistry::SortByName() {
  std::sort(order_.begin(), order_.end(), [](const Entry* a, const Entry* b) {
    const std::optional<std::string>& left = a->handler.name;
    const std::optional<std::string>& right = b->handler.name;
    if (left.has_value() != right.has_value()) return left.has_value();
    const int comparison = left ? CompareIgnoringCase(*left, *right) : 0;
    return comparison != 0 ? comparison < 0 : a->sequence < b->sequence;
  });
}

}  // namespace workbench::tx
