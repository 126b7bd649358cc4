// Reading the variable argument lists of the registry's calls.
#pragma once

#include <cstdarg>
#include <optional>

#include "workbench/tx/handler_registry.h"
#include "workbench/tx/token_table.h"

namespace workbench::tx {

// A va_list that can be handed by reference, whatever the platform makes it of.
struct ArgumentList {
  va_list list;
};

// The tokens of the keywords that the registry's calls know.
class HandlerKeywords {
 public:
  explicit HandlerKeywords(TokenTable& tokens);

  // Reads the groups of a registration up to the closing 0. False, at the first argument that is out of
  // place: the rest of the list can't be told apart then.
  bool ReadGroups(ArgumentList& arguments, Handler& handler) const;
  // Writes the values that the pairs ask for. False at an unknown token or a null output.
  bool WriteValues(const Handler& handler, ArgumentList& arguments) const;

  std::optional<HandlerList> ListOf(TxToken token) const;
  TxToken byPluginOrder() const { return byPluginOrder_; }
  TxToken byName() const { return byName_; }

 private:
  bool ReadGroup(TxToken group, ArgumentList& arguments, Handler& handler) const;
  bool ReadCallbacks(ArgumentList& arguments, Handler& handler) const;
  bool ReadFunction(TxToken token, Handler& handler) const;
  bool WriteValue(TxToken token, const Handler& handler, ArgumentList& arguments) const;
  TxToken TokenOf(HandlerFunction function) const;

  TxToken enabled_, on_, off_;
  TxToken function_, importer_, exporter_, viewer_;
  TxToken type_, fileTypes_, descriptiveName_, verifyHeaderCallback_, executeCallback_;
  TxToken import_, export_, importAndViewer_;
  TxToken byPluginOrder_, byName_;
};

}  // namespace workbench::tx
