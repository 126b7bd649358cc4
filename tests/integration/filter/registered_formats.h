// Formats of the host's registry for a test, and those that a test switches off.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "src/host/vc64_tx.h"

namespace file_explorer {

inline TxToken Token(const char* keyword) {
  return Tx_Inquire_Token(keyword);
}

// A handler that is registered as long as the object lives.
class TestFormat {
 public:
  TestFormat(std::string guid, const char* function, const char* extensions, std::int64_t type,
             const char* state = "on")
      : guid_(std::move(guid)) {
    Tx_FileFormatHandler(guid_.c_str(), Token("enabled"), Token(state), 1, Token("function"), Token(function),
                         1, Token("type"), &type, 1, Token("filetypes"), extensions, 1,
                         Token("descriptivename"), "Test", 1, 0);
  }
  ~TestFormat() { Tx_Remove_FileFormatHandler(guid_.c_str()); }
  TestFormat(const TestFormat&) = delete;
  TestFormat& operator=(const TestFormat&) = delete;

 private:
  std::string guid_;
};

// While it lives, the registry has no enabled handler with one of these type bits.
class WithoutFormats {
 public:
  explicit WithoutFormats(std::int64_t typeBits) {
    for (const char* list : {"import", "viewer"}) {
      char** guids = nullptr;
      const int count = Tx_FileFormatHandler_Query_GUID_List(Token(list), 65535, &guids);
      for (int i = 0; i < count; ++i) {
        std::int64_t type = 0;
        TxToken enabled = 0;
        Tx_Inquire_FileFormatHandler(guids[i], Token("type"), &type, Token("enabled"), &enabled, 0);
        if ((type & typeBits) != 0 && enabled == Token("on")) disabled_.emplace_back(guids[i]);
        Tx_Free_Memory(guids[i]);
      }
      Tx_Free_Memory(guids);
    }
    for (const std::string& guid : disabled_) Tx_Enable_FileFormatHandler(guid.c_str(), 0);
  }
  ~WithoutFormats() {
    for (const std::string& guid : disabled_) Tx_Enable_FileFormatHandler(guid.c_str(), 1);
  }
  WithoutFormats(const WithoutFormats&) = delete;
  WithoutFormats& operator=(const WithoutFormats&) = delete;

 private:
  std::vector<std::string> disabled_;
};

}  // namespace file_explorer
