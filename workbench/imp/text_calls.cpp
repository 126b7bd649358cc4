#include "src/host/vc64_imp.h"
#include "workbench/imp/host_text.h"
#include "workbench/imp/text_tools.h"

using namespace workbench::imp;

char* Import_IO_Copy_String(const char* text) {
  return text ? CopyToHostMemory(text) : nullptr;
}

char* Import_IO_Strip_Whitespace(char* text) {
  if (!text) return nullptr;
  const std::string_view kept = StripWhitespace(text);
  std::memmove(text, kept.data(), kept.size());
  text[kept.size()] = '\0';
  return text;
}
