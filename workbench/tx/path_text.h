// Path arithmetic on 8-bit texts. "/" and "\" both separate.
//
// In the code pages with two-byte characters the second byte can have the value of "\". The functions
// therefore ask whether a byte begins such a character; without a test (null) every byte is a character of
// its own, which is also right for UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace workbench::tx {

using LeadByteTest = bool (*)(unsigned char byte);

bool IsPathSeparator(char c);
bool EndsInPathSeparator(std::string_view path, LeadByteTest isLeadByte = nullptr);

// folder + one separator + name; see Tx_ConcatenatePathAndFilename.
std::string JoinPath(std::string_view folder, std::string_view name, LeadByteTest isLeadByte = nullptr);
// Both are parts of path: the name behind the last separator or drive colon, and all before it.
std::string_view BaseName(std::string_view path, LeadByteTest isLeadByte = nullptr);
std::string_view BasePath(std::string_view path, LeadByteTest isLeadByte = nullptr);
// The path's extension with its dot, as part of path; empty when it has none. ".profile" and ".." have none.
std::string_view Extension(std::string_view path, LeadByteTest isLeadByte = nullptr);
// path with another extension (".bak" or "bak"); an empty one, or a dot alone, takes the path's own away.
std::string WithExtension(std::string_view path, std::string_view extension,
                          LeadByteTest isLeadByte = nullptr);

}  // namespace workbench::tx
