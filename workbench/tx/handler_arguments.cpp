#include "workbench/tx/handler_arguments.h"

namespace workbench::tx {
namespace {

template <typename T>
bool Store(ArgumentList& arguments, T value) {
  T* output = va_arg(arguments.list, T*);
  if (!output) return false;
  *output = value;
  return true;
}

std::optional<std::string> CopyText(const char* text) {
  if (!text) return std::nullopt;
  return std::string(text);
}

const char* TextOrNull(const std::optional<std::string>& text) {
  return text ? text->c_str() : nullptr;
}

}  // namespace

HandlerKeywords::HandlerKeywords(TokenTable& tokens)
    : enabled_(tokens.Token("enabled")),
      on_(tokens.Token("on")),
      off_(tokens.Token("off")),
      function_(tokens.Token("function")),
      importer_(tokens.Token("importer")),
      exporter_(tokens.Token("exporter")),
      viewer_(tokens.Token("viewer")),
      type_(tokens.Token("type")),
      fileTypes_(tokens.Token("filetypes")),
      descriptiveName_(tokens.Token("descriptivename")),
      verifyHeaderCallback_(tokens.Token("verifyheadercallback")),
      executeCallback_(tokens.Token("executecallback")),
      import_(tokens.Token("import")),
      export_(tokens.Token("export")),
      importAndViewer_(tokens.Token("import_and_viewer")),
      byPluginOrder_(tokens.Token("bypluginorder")),
      byName_(tokens.Token("byname")) {}

bool HandlerKeywords::ReadGroups(ArgumentList& arguments, Handler& handler) const {
  for (;;) {
    const TxToken group = va_arg(arguments.list, TxToken);
    if (group == 0) return true;
    if (!ReadGroup(group, arguments, handler)) return false;
    if (va_arg(arguments.list, int) != 1) return false;
  }
}

bool HandlerKeywords::ReadGroup(TxToken group, ArgumentList& arguments, Handler& handler) const {
  if (group == enabled_) {
    const TxToken state = va_arg(arguments.list, TxToken);
    handler.enabled = state == on_;
    return state == on_ || state == off_;
  }
  if (group == function_) return ReadFunction(va_arg(arguments.list, TxToken), handler);
  if (group == type_) {
    const int64_t* types = va_arg(arguments.list, const int64_t*);
    if (!types) return false;
    handler.types = *types;
    return true;
  }
  if (group == fileTypes_) {
    handler.fileTypes = CopyText(va_arg(arguments.list, const char*));
    return true;
  }
  if (group == descriptiveName_) {
    handler.name = CopyText(va_arg(arguments.list, const char*));
    return true;
  }
  if (group == viewer_ || group == importer_ || group == exporter_) return ReadCallbacks(arguments, handler);
  return false;
}

bool HandlerKeywords::ReadFunction(TxToken token, Handler& handler) const {
  for (const HandlerFunction function :
       {HandlerFunction::kImporter, HandlerFunction::kExporter, HandlerFunction::kViewer}) {
    if (token != TokenOf(function)) continue;
    handler.function = function;
    return true;
  }
  return false;
}

bool HandlerKeywords::ReadCallbacks(ArgumentList& arguments, Handler& handler) const {
  if (va_arg(arguments.list, TxToken) != verifyHeaderCallback_) return false;
  handler.verifyHeader = va_arg(arguments.list, TxVerifyHeaderCallback);
  if (va_arg(arguments.list, TxToken) != executeCallback_) return false;
  handler.execute = va_arg(arguments.list, TxExecuteCallback);
  return true;
}

TxToken HandlerKeywords::TokenOf(HandlerFunction function) const {
  switch (function) {
    case HandlerFunction::kImporter:
      return importer_;
    case HandlerFunction::kExporter:
      return exporter_;
    case HandlerFunction::kViewer:
      return viewer_;
    case HandlerFunction::kNone:
      break;
  }
  return 0;
}

bool HandlerKeywords::WriteValues(const Handler& handler, ArgumentList& arguments) const {
  for (;;) {
    const TxToken token = va_arg(arguments.list, TxToken);
    if (token == 0) return true;
    if (!WriteValue(token, handler, arguments)) return false;
  }
}

bool HandlerKeywords::WriteValue(TxToken token, const Handler& handler, ArgumentList& arguments) const {
  if (token == fileTypes_) return Store<const char*>(arguments, TextOrNull(handler.fileTypes));
  if (token == descriptiveName_) return Store<const char*>(arguments, TextOrNull(handler.name));
  if (token == enabled_) return Store<TxToken>(arguments, handler.enabled ? on_ : off_);
  if (token == function_) return Store<TxToken>(arguments, TokenOf(handler.function));
  if (token == type_) return Store<int64_t>(arguments, handler.types);
  if (token == executeCallback_) return Store<TxExecuteCallback>(arguments, handler.execute);
  if (token == verifyHeaderCallback_) return Store<TxVerifyHeaderCallback>(arguments, handler.verifyHeader);
  return false;
}

std::optional<HandlerList> HandlerKeywords::ListOf(TxToken token) const {
  if (token == import_) return HandlerList::kImport;
  if (token == export_) return HandlerList::kExport;
  if (token == viewer_) return HandlerList::kViewer;
  if (token == importAndViewer_) return HandlerList::kImportAndViewer;
  return std::nullopt;
}

}  // namespace workbench::tx
